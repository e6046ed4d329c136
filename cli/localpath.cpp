#include "cli/localpath.h"

#include <unistd.h>

#include <climits>

namespace {

constexpr char16_t kEscapeBase = 0xDC00;

// A low surrogate of its own (one after a high surrogate is half of a
// character beyond U+FFFF).
bool isEscape(const QString& text, int i)
{
    const char16_t c = text[i].unicode();
    return c >= 0xDC80 && c <= 0xDCFF && (i == 0 || !text[i - 1].isHighSurrogate());
}

// The length of the UTF-8 sequence at `at`, or 0 when the bytes there are
// not one (overlong forms, surrogates and code points past U+10FFFF
// included).
int sequenceAt(const QByteArray& bytes, int at)
{
    const auto b = [&bytes](int i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned char lead = b(at);
    if (lead < 0x80)
        return 1;
    int length = 0;
    unsigned int low = 0;
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3;
        low = lead == 0xE0 ? 0xA0 : 0x80;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
        low = lead == 0xF0 ? 0x90 : 0x80;
    } else {
        return 0;
    }
    if (at + length > bytes.size())
        return 0;
    for (int i = 1; i < length; ++i) {
        const unsigned char c = b(at + i);
        unsigned int from = 0x80;
        unsigned int to = 0xBF;
        if (i == 1 && length > 2) {
            from = low;
            if (lead == 0xED)
                to = 0x9F; // no surrogates
            else if (lead == 0xF4)
                to = 0x8F; // nothing past U+10FFFF
        }
        if (c < from || c > to)
            return 0;
    }
    return length;
}

} // namespace

namespace localpath {

QString decode(const QByteArray& bytes)
{
    QString text;
    int at = 0;
    while (at < bytes.size()) {
        const int length = sequenceAt(bytes, at);
        if (length == 0) {
            text += QChar(char16_t(kEscapeBase + static_cast<unsigned char>(bytes[at])));
            ++at;
            continue;
        }
        text += QString::fromUtf8(bytes.constData() + at, length);
        at += length;
    }
    return text;
}

QStringList arguments(int argc, char** argv)
{
    QStringList list;
    for (int i = 0; i < argc; ++i)
        list << decode(QByteArray(argv[i]));
    return list;
}

QByteArray encode(const QString& text)
{
    QByteArray bytes;
    int from = 0;
    for (int i = 0; i <= text.size(); ++i) {
        if (i < text.size() && !isEscape(text, i))
            continue;
        bytes += text.mid(from, i - from).toUtf8();
        if (i < text.size())
            bytes += static_cast<char>(text[i].unicode() - kEscapeBase);
        from = i + 1;
    }
    return bytes;
}

bool hasRawBytes(const QString& text)
{
    for (int i = 0; i < text.size(); ++i)
        if (isEscape(text, i))
            return true;
    return false;
}

QString readable(const QString& text)
{
    QString shown = text;
    for (int i = 0; i < text.size(); ++i)
        if (isEscape(text, i))
            shown[i] = QChar::ReplacementCharacter;
    return shown;
}

QString absolute(const QString& path)
{
    if (path.startsWith('/'))
        return path;
    char cwd[PATH_MAX] = {};
    if (!::getcwd(cwd, sizeof cwd))
        return path;
    const QString folder = decode(QByteArray(cwd));
    return (folder.endsWith('/') ? folder : folder + '/') + path;
}

QString folderOf(const QString& path)
{
    const QString full = absolute(path);
    const int slash = full.lastIndexOf('/');
    return slash > 0 ? full.left(slash) : QString("/");
}

} // namespace localpath
