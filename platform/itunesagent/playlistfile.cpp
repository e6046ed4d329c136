#include "playlistfile.h"

#include "library.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>
#include <QStringDecoder>
#include <QUrl>
#include <QXmlStreamReader>

#include <map>

namespace ita {

namespace {

// UTF-8 when it decodes cleanly (.m3u8 always is); otherwise the old
// single-byte .m3u convention, Latin-1.
QString decodeText(const QByteArray& bytes)
{
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = utf8.decode(bytes);
    if (utf8.hasError())
        text = QString::fromLatin1(bytes);
    if (text.startsWith(QChar(0xFEFF)))
        text.remove(0, 1);
    return text;
}

std::string toStd(const QString& s)
{
    const QByteArray b = s.toUtf8();
    return std::string(b.constData(), static_cast<size_t>(b.size()));
}

// An entry as written in the playlist, made an absolute path; empty for a
// stream, anything that is not a local file, or a path with a NUL in it.
QString resolveEntry(QString entry, const QDir& base)
{
    entry = entry.trimmed();
    if (entry.isEmpty())
        return QString();
    if (entry.startsWith(QLatin1String("file:"), Qt::CaseInsensitive)) {
        const QByteArray raw = entry.toUtf8();
        const std::string path =
            pathFromFileUrl(std::string_view(raw.constData(), static_cast<size_t>(raw.size())));
        entry = QString::fromUtf8(path.data(), static_cast<qsizetype>(path.size()));
        if (entry.isEmpty())
            return QString();
    } else if (entry.contains(QLatin1String("://"))) {
        return QString();
    }
    // A NUL would end the path there for the file APIs, naming another file.
    if (entry.contains(QChar(u'\0')))
        return QString();
    entry.replace(QLatin1Char('\\'), QLatin1Char('/'));
    if (QDir::isRelativePath(entry))
        entry = base.filePath(entry);
    return QDir::cleanPath(entry);
}

bool readLines(const QString& path, QStringList& lines, std::string& why)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        why = toStd(file.errorString());
        return false;
    }
    const QString text = decodeText(file.readAll());
    lines = text.split(QLatin1Char('\n'));
    for (QString& line : lines)
        if (line.endsWith(QLatin1Char('\r')))
            line.chop(1);
    return true;
}

bool readM3u(const QString& path, const QDir& base, PlaylistFile& playlist, std::string& why)
{
    QStringList lines;
    if (!readLines(path, lines, why))
        return false;
    for (const QString& line : lines) {
        if (line.trimmed().isEmpty() || line.trimmed().startsWith(QLatin1Char('#')))
            continue;
        const QString entry = resolveEntry(line, base);
        if (!entry.isEmpty())
            playlist.entries.push_back(toStd(entry));
    }
    return true;
}

bool readPls(const QString& path, const QDir& base, PlaylistFile& playlist, std::string& why)
{
    QStringList lines;
    if (!readLines(path, lines, why))
        return false;
    std::map<int, QString> files;
    for (const QString& line : lines) {
        const int eq = line.indexOf(QLatin1Char('='));
        if (eq < 5 || !line.startsWith(QLatin1String("File"), Qt::CaseInsensitive))
            continue;
        bool number = false;
        const int n = line.mid(4, eq - 4).toInt(&number);
        if (number)
            files[n] = line.mid(eq + 1);
    }
    for (const auto& [n, value] : files) {
        const QString entry = resolveEntry(value, base);
        if (!entry.isEmpty())
            playlist.entries.push_back(toStd(entry));
    }
    return true;
}

bool readXspf(const QString& path, const QDir& base, PlaylistFile& playlist, std::string& why)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        why = toStd(file.errorString());
        return false;
    }
    QXmlStreamReader xml(&file);
    bool inTrack = false;
    int depth = 0;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement()) {
            ++depth;
            const QStringView name = xml.name();
            if (name == QLatin1String("track")) {
                inTrack = true;
            } else if (name == QLatin1String("title") && !inTrack && depth == 2) {
                const QString title = xml.readElementText().trimmed();
                --depth;
                if (!title.isEmpty())
                    playlist.name = toStd(title);
            } else if (name == QLatin1String("location") && inTrack) {
                const QString location = xml.readElementText();
                --depth;
                QString entry;
                if (location.startsWith(QLatin1String("file:"), Qt::CaseInsensitive) ||
                    location.contains(QLatin1String("://")))
                    entry = resolveEntry(location, base);
                else // a relative URI reference
                    entry = resolveEntry(QUrl::fromPercentEncoding(location.toUtf8()), base);
                if (!entry.isEmpty())
                    playlist.entries.push_back(toStd(entry));
            }
        } else if (xml.isEndElement()) {
            --depth;
            if (xml.name() == QLatin1String("track"))
                inTrack = false;
        }
    }
    if (xml.hasError()) {
        why = toStd(xml.errorString()) + " (line " + std::to_string(xml.lineNumber()) + ")";
        return false;
    }
    return true;
}

} // namespace

bool readPlaylistFile(const std::string& path, PlaylistFile& playlist, std::string& why)
{
    const QString qpath = QString::fromUtf8(path.c_str());
    const QFileInfo info(qpath);
    const QDir base = info.absoluteDir();
    const QString suffix = info.suffix().toLower();
    playlist = PlaylistFile();
    playlist.name = toStd(info.completeBaseName());
    if (suffix == QLatin1String("m3u") || suffix == QLatin1String("m3u8"))
        return readM3u(qpath, base, playlist, why);
    if (suffix == QLatin1String("pls"))
        return readPls(qpath, base, playlist, why);
    if (suffix == QLatin1String("xspf"))
        return readXspf(qpath, base, playlist, why);
    why = "not a playlist file";
    return false;
}

} // namespace ita
