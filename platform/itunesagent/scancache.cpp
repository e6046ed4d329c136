#include "scancache.h"

#include <QByteArray>
#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace ita {

namespace {

constexpr quint32 kMagic = 0x54574C43; // "TWLC"
constexpr quint32 kVersion = 1;

QByteArray bytes(const std::string& s)
{
    return QByteArray(s.data(), static_cast<qsizetype>(s.size()));
}

std::string text(const QByteArray& b)
{
    return std::string(b.constData(), static_cast<size_t>(b.size()));
}

} // namespace

bool ScanCache::load(const std::string& path)
{
    entries.clear();
    QFile file(QString::fromUtf8(path.c_str()));
    if (!file.open(QIODevice::ReadOnly))
        return false;
    QDataStream in(&file);
    in.setVersion(QDataStream::Qt_6_0);
    quint32 magic = 0, version = 0;
    quint64 count = 0;
    in >> magic >> version >> count;
    if (in.status() != QDataStream::Ok || magic != kMagic || version != kVersion)
        return false;
    entries.reserve(static_cast<size_t>(std::min<quint64>(count, 1u << 20)));
    for (quint64 i = 0; i < count; ++i) {
        QByteArray key, why, title, artist, album;
        qint64 mtime = 0, size = 0;
        bool ok = false, video = false;
        qint32 artwork = 0;
        in >> key >> mtime >> size >> ok >> why >> title >> artist >> album >> video >> artwork;
        if (in.status() != QDataStream::Ok) {
            entries.clear();
            return false;
        }
        CacheEntry e;
        e.mtime = mtime;
        e.size = size;
        e.ok = ok;
        e.why = text(why);
        e.title = text(title);
        e.artist = text(artist);
        e.album = text(album);
        e.video = video;
        e.artwork = artwork;
        entries.emplace(text(key), std::move(e));
    }
    return true;
}

bool ScanCache::save(const std::string& path) const
{
    const QString qpath = QString::fromUtf8(path.c_str());
    QDir().mkpath(QFileInfo(qpath).absolutePath());
    QSaveFile file(qpath);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    QDataStream out(&file);
    out.setVersion(QDataStream::Qt_6_0);
    out << kMagic << kVersion << static_cast<quint64>(entries.size());
    for (const auto& [key, e] : entries) {
        out << bytes(key) << static_cast<qint64>(e.mtime) << static_cast<qint64>(e.size) << e.ok
            << bytes(e.why) << bytes(e.title) << bytes(e.artist) << bytes(e.album) << e.video
            << static_cast<qint32>(e.artwork);
    }
    return out.status() == QDataStream::Ok && file.commit();
}

} // namespace ita
