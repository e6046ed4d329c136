#include "library/titlesortkeys.h"

#include <QChar>

#include <algorithm>
#include <cstring>

namespace {

// Any value up to U+10FFFF, surrogates included, in UTF-8's form: the byte
// order of the results is the values' order.
char* putUtf8(char* out, char32_t c)
{
    if (c < 0x80) {
        *out++ = static_cast<char>(c);
    } else if (c < 0x800) {
        *out++ = static_cast<char>(0xC0 | (c >> 6));
        *out++ = static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        *out++ = static_cast<char>(0xE0 | (c >> 12));
        *out++ = static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        *out++ = static_cast<char>(0x80 | (c & 0x3F));
    } else {
        *out++ = static_cast<char>(0xF0 | (c >> 18));
        *out++ = static_cast<char>(0x80 | ((c >> 12) & 0x3F));
        *out++ = static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        *out++ = static_cast<char>(0x80 | (c & 0x3F));
    }
    return out;
}

// The key of any title into `out`, which has room for four bytes a unit.
char* putKey(const QString& title, char* out)
{
    char16_t last = 0;
    for (const QChar c : title) {
        const char16_t u = c.unicode();
        char32_t folded;
        if (u < 0x80)
            folded = u >= 'A' && u <= 'Z' ? u + ('a' - 'A') : u;
        else if (QChar::isLowSurrogate(u) && QChar::isHighSurrogate(last))
            folded = QChar::toCaseFolded(QChar::surrogateToUcs4(last, u));
        else
            folded = QChar::toCaseFolded(char32_t(u)); // a lone surrogate stays itself
        last = u;
        out = putUtf8(out, folded);
    }
    return out;
}

// The key of a title straight from its UTF-8 bytes into `out`, which has
// room for twice as many bytes (a four-byte character makes seven). Null
// for anything Qt's decoder might read otherwise: bytes that are not UTF-8
// and a byte order mark; those titles go through QString.
char* putKeyOfUtf8(const unsigned char* p, const unsigned char* end, char* out)
{
    while (p < end) {
        const unsigned lead = *p;
        if (lead < 0x80) {
            *out++ = static_cast<char>(lead >= 'A' && lead <= 'Z' ? lead + ('a' - 'A') : lead);
            ++p;
            continue;
        }
        int more;
        char32_t c;
        if (lead >= 0xC2 && lead <= 0xDF) {
            more = 1;
            c = lead & 0x1F;
        } else if (lead >= 0xE0 && lead <= 0xEF) {
            more = 2;
            c = lead & 0x0F;
        } else if (lead >= 0xF0 && lead <= 0xF4) {
            more = 3;
            c = lead & 0x07;
        } else {
            return nullptr;
        }
        if (end - p <= more)
            return nullptr;
        for (int i = 1; i <= more; ++i) {
            if ((p[i] & 0xC0) != 0x80)
                return nullptr;
            c = (c << 6) | (p[i] & 0x3F);
        }
        const bool overlong = (more == 2 && c < 0x800) || (more == 3 && c < 0x10000);
        if (overlong || c > 0x10FFFF || QChar::isSurrogate(c) || c == 0xFEFF)
            return nullptr;
        p += more + 1;
        if (c < 0x10000) {
            out = putUtf8(out, QChar::toCaseFolded(c));
        } else {
            // As QString compares a surrogate pair: the first unit as it
            // is, then the folded character.
            out = putUtf8(out, QChar::highSurrogate(c));
            out = putUtf8(out, QChar::toCaseFolded(c));
        }
    }
    return out;
}

QString decode(const char* text, size_t length)
{
    return QString::fromLocal8Bit(text, static_cast<qsizetype>(length));
}

} // namespace

std::string CTitleSortKeys::keyOf(const QString& title)
{
    std::string key(4 * static_cast<size_t>(title.size()), '\0');
    key.resize(static_cast<size_t>(putKey(title, key.data()) - key.data()));
    return key;
}

void CTitleSortKeys::assignUtf8(const QByteArray& titles)
{
    clear();
    m_titles = titles;
    const char* const data = m_titles.constData();
    const size_t total = static_cast<size_t>(m_titles.size());
    // Room for every key at its longest (three bytes a byte, for bytes that
    // are not UTF-8), left unwritten until used; cut to what was written.
    m_keys = QByteArray(static_cast<qsizetype>(3 * total), Qt::Uninitialized);
    char* out = m_keys.data();
    const auto count = static_cast<size_t>(std::count(data, data + total, '\0'));
    m_titleStart.reserve(count);
    m_keyStart.reserve(count + 1);
    m_keyStart.push_back(0);
    size_t at = 0;
    while (at < total) {
        const void* nul = std::memchr(data + at, '\0', total - at);
        if (!nul)
            break;
        const size_t end = static_cast<size_t>(static_cast<const char*>(nul) - data);
        m_titleStart.push_back(static_cast<uint32_t>(at));
        const auto* bytes = reinterpret_cast<const unsigned char*>(data + at);
        char* keyEnd = putKeyOfUtf8(bytes, bytes + (end - at), out);
        // Room enough: a byte decodes to one unit at most, whose key takes
        // three bytes; a pair takes seven for four bytes.
        if (!keyEnd)
            keyEnd = putKey(decode(data + at, end - at), out);
        out = keyEnd;
        m_keyStart.push_back(static_cast<uint32_t>(out - m_keys.data()));
        at = end + 1;
    }
    m_keys.truncate(static_cast<qsizetype>(out - m_keys.data()));
}

void CTitleSortKeys::clear()
{
    m_titles.clear();
    m_titleStart.clear();
    m_keys.clear();
    m_keyStart.clear();
}

QString CTitleSortKeys::title(int i) const
{
    const char* text = m_titles.constData() + m_titleStart[static_cast<size_t>(i)];
    return decode(text, std::strlen(text));
}

std::string_view CTitleSortKeys::key(int i) const
{
    const auto at = static_cast<size_t>(i);
    return std::string_view(m_keys.constData() + m_keyStart[at],
                            m_keyStart[at + 1] - m_keyStart[at]);
}
