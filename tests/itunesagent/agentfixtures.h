#pragma once
// Fixtures for the tests of the library agent and of the library classes:
// iTunes library XML files written from a description, media files made with
// ffmpeg and tagged with TagLib, pictures in several formats, readers that
// walk the agent's two-pass calls, and a logger that collects its lines.
// Header-only: every test that needs them includes this file.

#include "testenv.h"

#include <itunesagent.h>
#include <itunesagent_testing.h>

#include <QBuffer>
#include <QColor>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QList>
#include <QStringList>
#include <QUrl>

#include <taglib/attachedpictureframe.h>
#include <taglib/fileref.h>
#include <taglib/flacfile.h>
#include <taglib/flacpicture.h>
#include <taglib/id3v2tag.h>
#include <taglib/mp4coverart.h>
#include <taglib/mp4file.h>
#include <taglib/mpegfile.h>
#include <taglib/tag.h>
#include <taglib/vorbisfile.h>
#include <taglib/xiphcomment.h>

#include <vector>

namespace fx {

// --- library XML -----------------------------------------------------------

struct XmlTrack
{
    int id = 0;
    QString name; // left out of the file when empty
    QString artist;
    QString album;
    QString path; // written as a percent-encoded file URL
    bool video = false;
    int artworkCount = -1; // left out when negative
    bool localhost = true; // "file://localhost/..." or "file:///..."
};

struct XmlPlaylist
{
    QString name;
    int kind = -1; // "Distinguished Kind", left out when negative
    bool master = false;
    bool hidden = false; // "Visible" false
    bool folder = false;
    bool smart = false;
    QString id;     // "Playlist Persistent ID"
    QString parent; // "Parent Persistent ID"
    QList<int> items;
};

inline QString fileUrl(const QString& path, bool localhost = true)
{
    const QByteArray encoded = QUrl::toPercentEncoding(path, "/");
    return QString(localhost ? "file://localhost" : "file://") + QString::fromLatin1(encoded);
}

inline QString xmlText(const QString& s)
{
    return s.toHtmlEscaped();
}

inline QByteArray libraryXml(const QString& musicFolder, const QList<XmlTrack>& tracks,
                             const QList<XmlPlaylist>& playlists)
{
    QString x;
    x += "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
         "<!DOCTYPE plist PUBLIC \"-//Apple Computer//DTD PLIST 1.0//EN\" "
         "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
         "<plist version=\"1.0\">\n<dict>\n"
         "\t<key>Major Version</key><integer>1</integer>\n"
         "\t<key>Application Version</key><string>10.1.1</string>\n"
         "\t<key>Show Content Ratings</key><true/>\n";
    if (!musicFolder.isEmpty())
        x += "\t<key>Music Folder</key><string>" + xmlText(fileUrl(musicFolder + "/")) +
             "</string>\n";
    x += "\t<key>Tracks</key>\n\t<dict>\n";
    for (const XmlTrack& t : tracks) {
        x += QString("\t\t<key>%1</key>\n\t\t<dict>\n").arg(t.id);
        x += QString("\t\t\t<key>Track ID</key><integer>%1</integer>\n").arg(t.id);
        if (!t.name.isEmpty())
            x += "\t\t\t<key>Name</key><string>" + xmlText(t.name) + "</string>\n";
        if (!t.artist.isEmpty())
            x += "\t\t\t<key>Artist</key><string>" + xmlText(t.artist) + "</string>\n";
        if (!t.album.isEmpty())
            x += "\t\t\t<key>Album</key><string>" + xmlText(t.album) + "</string>\n";
        x += "\t\t\t<key>Kind</key><string>MPEG audio file</string>\n"
             "\t\t\t<key>Total Time</key><integer>320287</integer>\n"
             "\t\t\t<key>Date Added</key><date>2009-08-23T18:53:07Z</date>\n";
        if (t.video)
            x += "\t\t\t<key>Has Video</key><true/>\n\t\t\t<key>Movie</key><true/>\n";
        if (t.artworkCount >= 0)
            x += QString("\t\t\t<key>Artwork Count</key><integer>%1</integer>\n")
                     .arg(t.artworkCount);
        if (!t.path.isEmpty())
            x += "\t\t\t<key>Location</key><string>" + xmlText(fileUrl(t.path, t.localhost)) +
                 "</string>\n";
        x += "\t\t</dict>\n";
    }
    x += "\t</dict>\n\t<key>Playlists</key>\n\t<array>\n";
    for (const XmlPlaylist& p : playlists) {
        x += "\t\t<dict>\n\t\t\t<key>Name</key><string>" + xmlText(p.name) + "</string>\n";
        if (p.master)
            x += "\t\t\t<key>Master</key><true/>\n";
        if (p.hidden)
            x += "\t\t\t<key>Visible</key><false/>\n";
        if (p.kind >= 0)
            x += QString("\t\t\t<key>Distinguished Kind</key><integer>%1</integer>\n").arg(p.kind);
        if (p.folder)
            x += "\t\t\t<key>Folder</key><true/>\n";
        if (!p.id.isEmpty())
            x += "\t\t\t<key>Playlist Persistent ID</key><string>" + p.id + "</string>\n";
        if (!p.parent.isEmpty())
            x += "\t\t\t<key>Parent Persistent ID</key><string>" + p.parent + "</string>\n";
        x += "\t\t\t<key>All Items</key><true/>\n";
        if (p.smart)
            x += "\t\t\t<key>Smart Info</key>\n\t\t\t<data>\n\t\t\tAQEAAwAAAAIAAAAZAAAAAAAAAAA=\n"
                 "\t\t\t</data>\n";
        if (!p.items.isEmpty()) {
            x += "\t\t\t<key>Playlist Items</key>\n\t\t\t<array>\n";
            for (int id : p.items)
                x += QString("\t\t\t\t<dict>\n\t\t\t\t\t<key>Track ID</key><integer>%1</integer>\n"
                             "\t\t\t\t</dict>\n")
                         .arg(id);
            x += "\t\t\t</array>\n";
        }
        x += "\t\t</dict>\n";
    }
    x += "\t</array>\n</dict>\n</plist>\n";
    return x.toUtf8();
}

inline bool writeFile(const QString& path, const QByteArray& bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile f(path);
    return f.open(QIODevice::WriteOnly | QIODevice::Truncate) && f.write(bytes) == bytes.size();
}

inline QByteArray readFile(const QString& path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

inline QByteArray sha1(const QString& path)
{
    return QCryptographicHash::hash(readFile(path), QCryptographicHash::Sha1);
}

// Makes the agent serve the XML file at path on its next call.
inline void useXmlLibrary(const QString& path)
{
    ItunesAgentSetLibraryFile(QFile::encodeName(path).constData());
    ItunesAgentReset();
}

// Makes the agent serve the folder library (or a library file under the
// Music folder) on its next call.
inline void useFolderLibrary()
{
    ItunesAgentSetLibraryFile(nullptr);
    ItunesAgentReset();
}

// --- the agent's log -----------------------------------------------------

inline QStringList& agentLines()
{
    static QStringList lines;
    return lines;
}

inline void collectAgentLine(const char* line, void*)
{
    agentLines() << QString::fromUtf8(line);
}

inline void captureAgentLog()
{
    agentLines().clear();
    ItunesAgentSetLogger(&collectAgentLine, nullptr);
}

inline bool loggedLine(const QString& part)
{
    for (const QString& line : agentLines())
        if (line.contains(part))
            return true;
    return false;
}

// --- reading through the agent --------------------------------------------

struct Song
{
    int result = 0;
    QString title;
    QString location;
    QString artist;
    QString album;
    int video = 0;
    int titleSize = 0;
    int artistSize = 0;
};

inline Song songOf(const void* playlist, int song)
{
    Song s;
    tagSongInfo info = {};
    s.result = GetSongInfo(playlist, song, &info);
    if (s.result != ITA_OK)
        return s;
    s.titleSize = info.nTitleSize;
    s.artistSize = info.nArtistSize;
    std::vector<char> title(info.nTitleSize), location(info.nLocationSize),
        artist(info.nArtistSize), album(info.nAlbumSize);
    info.pszTitle = info.nTitleSize ? title.data() : nullptr;
    info.pszLocation = info.nLocationSize ? location.data() : nullptr;
    info.pszArtist = info.nArtistSize ? artist.data() : nullptr;
    info.pszAlbum = info.nAlbumSize ? album.data() : nullptr;
    s.result = GetSongInfo(playlist, song, &info);
    s.title = info.pszTitle ? QString::fromUtf8(info.pszTitle) : QString();
    s.location = info.pszLocation ? QString::fromUtf8(info.pszLocation) : QString();
    s.artist = info.pszArtist ? QString::fromUtf8(info.pszArtist) : QString();
    s.album = info.pszAlbum ? QString::fromUtf8(info.pszAlbum) : QString();
    s.video = info.bVideo;
    return s;
}

inline QString playlistName(int collection, int position)
{
    const int size = GetPlaylistName(collection, position, nullptr, 0);
    if (size <= 0)
        return QString();
    std::vector<char> name(static_cast<size_t>(size));
    GetPlaylistName(collection, position, name.data(), size);
    return QString::fromUtf8(name.data());
}

inline QStringList playlistNames(int collection)
{
    QStringList names;
    for (int i = 0; i < GetPlaylistCount(collection); ++i)
        names << playlistName(collection, i);
    return names;
}

inline int playlistKind(int collection, int position)
{
    void* h = OpenPlaylist(collection, position);
    const int kind = GetPlaylistKind(h);
    ClosePlaylist(h);
    return kind;
}

inline int findPlaylist(int collection, const QString& name)
{
    return static_cast<int>(playlistNames(collection).indexOf(name));
}

inline QList<Song> songsOf(int collection, int position)
{
    QList<Song> songs;
    void* h = OpenPlaylist(collection, position);
    const int count = GetSongCount(h);
    for (int i = 0; i < count; ++i)
        songs << songOf(h, i);
    ClosePlaylist(h);
    return songs;
}

inline QStringList titlesOf(const QList<Song>& songs)
{
    QStringList titles;
    for (const Song& s : songs)
        titles << s.title;
    return titles;
}

inline QStringList titlesOf(int collection, int position)
{
    return titlesOf(songsOf(collection, position));
}

// The pictures of a song, through the two-pass artwork calls.
inline QList<QByteArray> artworkOf(const void* playlist, int song)
{
    QList<QByteArray> images;
    void* art = OpenArtwork(playlist, song);
    if (!art)
        return images;
    const int count = GetArtworkCount(art);
    for (int i = 0; i < count; ++i) {
        tagArtworkInfo info = {};
        if (GetArtworkInfo(art, i, &info) != ITA_OK)
            break;
        QByteArray data(info.nDataSize, '\0');
        info.pData = data.data();
        GetArtworkInfo(art, i, &info);
        images << data;
    }
    CloseArtwork(art);
    return images;
}

// Titles of a search's hits, in the order the agent reports them.
struct SearchHits
{
    QStringList titles;
    int stopAfter = -1; // return 0 from the callback after this many
};

inline int collectHit(const void* playlist, int song, void* user)
{
    auto* hits = static_cast<SearchHits*>(user);
    hits->titles << songOf(playlist, song).title;
    return hits->stopAfter < 0 || hits->titles.size() < hits->stopAfter ? 1 : 0;
}

// After its playlist `closed` was closed: every call on that handle fails and
// writes nothing, the artwork handle `art` (open before) serves no playlist
// call, closes once, and made-up or null handles are refused too.
inline void verifyClosedAndMadeUpHandlesRefused(void* closed, int song, void* art)
{
    QCOMPARE(GetSongCount(closed), int(ITA_E_HANDLE));
    QCOMPARE(GetPlaylistKind(closed), int(ITA_E_HANDLE));
    QCOMPARE(ClosePlaylist(closed), int(ITA_E_HANDLE));
    QCOMPARE(OpenArtwork(closed, song), nullptr);
    tagSongInfo info = {};
    info.nTitleSize = 1234;
    QCOMPARE(GetSongInfo(closed, 0, &info), int(ITA_E_HANDLE));
    QCOMPARE(info.nTitleSize, 1234); // left as it was

    // An artwork handle is no playlist handle, and the other way round.
    QCOMPARE(GetSongCount(art), int(ITA_E_HANDLE));
    void* other = OpenPlaylist(ITA_COLLECTION_LIBRARY, 1);
    QVERIFY(other);
    QCOMPARE(GetArtworkCount(other), int(ITA_E_HANDLE));
    QCOMPARE(CloseArtwork(other), int(ITA_E_HANDLE));
    QCOMPARE(ClosePlaylist(other), int(ITA_OK));
    QCOMPARE(CloseArtwork(art), int(ITA_OK));
    QCOMPARE(CloseArtwork(art), int(ITA_E_HANDLE));
    QCOMPARE(GetArtworkCount(art), int(ITA_E_HANDLE));
    tagArtworkInfo artInfo = {};
    QCOMPARE(GetArtworkInfo(art, 0, &artInfo), int(ITA_E_HANDLE));

    const void* madeUp = reinterpret_cast<const void*>(uintptr_t(0x12345678));
    QCOMPARE(GetSongCount(madeUp), int(ITA_E_HANDLE));
    QCOMPARE(GetPlaylistKind(madeUp), int(ITA_E_HANDLE));
    QCOMPARE(GetSongInfo(madeUp, 0, &info), int(ITA_E_HANDLE));
    QCOMPARE(GetSongCount(nullptr), int(ITA_E_HANDLE));
    QCOMPARE(ClosePlaylist(nullptr), int(ITA_E_HANDLE));
    QCOMPARE(CloseArtwork(nullptr), int(ITA_E_HANDLE));
}

// A playlist position out of range opens and names nothing; in the first
// built-in playlist (of `songs` songs, `songWithArt` having one picture)
// song and picture positions out of range are refused too.
inline void verifyOutOfRangeRefused(int collection, int position, int songs, int songWithArt)
{
    QCOMPARE(OpenPlaylist(collection, position), nullptr);
    char buffer[8];
    QCOMPARE(GetPlaylistName(collection, position, nullptr, 0), int(ITA_E_ARGUMENT));
    QCOMPARE(GetPlaylistName(collection, position, buffer, sizeof buffer), int(ITA_E_ARGUMENT));

    void* h = OpenPlaylist(ITA_COLLECTION_LIBRARY, 0);
    QVERIFY(h);
    QCOMPARE(GetSongCount(h), songs);
    tagSongInfo info = {};
    QCOMPARE(GetSongInfo(h, -1, &info), int(ITA_E_ARGUMENT));
    QCOMPARE(GetSongInfo(h, songs, &info), int(ITA_E_ARGUMENT));
    QCOMPARE(GetSongInfo(h, 0, nullptr), int(ITA_E_ARGUMENT));
    QCOMPARE(OpenArtwork(h, songs), nullptr);
    QCOMPARE(OpenArtwork(h, -1), nullptr);
    void* art = OpenArtwork(h, songWithArt);
    QVERIFY(art);
    QCOMPARE(GetArtworkCount(art), 1);
    tagArtworkInfo artInfo = {};
    QCOMPARE(GetArtworkInfo(art, 1, &artInfo), int(ITA_E_ARGUMENT));
    QCOMPARE(GetArtworkInfo(art, -1, &artInfo), int(ITA_E_ARGUMENT));
    QCOMPARE(GetArtworkInfo(art, 0, nullptr), int(ITA_E_ARGUMENT));
    QCOMPARE(CloseArtwork(art), int(ITA_OK));
    QCOMPARE(ClosePlaylist(h), int(ITA_OK));
    QCOMPARE(GetPlaylistCount(3), int(ITA_E_ARGUMENT));
    QCOMPARE(GetPlaylistCount(-1), int(ITA_E_ARGUMENT));
}

// --- media ----------------------------------------------------------------

inline QByteArray picture(const char* format, const QColor& colour, const QSize& size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(colour);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

// A half-second tone; codec holds the encoder arguments ("-c:a", "flac").
inline bool makeAudio(const QString& path, const QStringList& codec)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    return tw::ffmpeg(QStringList{"-f", "lavfi", "-i", "sine=frequency=440:duration=0.5"} + codec +
                      QStringList{path});
}

inline bool makeVideo(const QString& path)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    return tw::ffmpeg({"-f", "lavfi", "-i", "testsrc=size=64x48:rate=10:duration=0.5", "-f",
                       "lavfi", "-i", "sine=frequency=440:duration=0.5", "-c:v", "libx264",
                       "-pix_fmt", "yuv420p", "-c:a", "aac", "-shortest", path});
}

inline bool makeRingtone(const QString& path)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    return tw::ffmpeg({"-f", "lavfi", "-i", "sine=frequency=880:duration=0.5", "-c:a", "aac",
                       "-b:a", "64k", "-f", "ipod", path});
}

inline TagLib::String tagText(const QString& s)
{
    return TagLib::String(s.toUtf8().constData(), TagLib::String::UTF8);
}

inline bool setTags(const QString& path, const QString& title, const QString& artist,
                    const QString& album)
{
    TagLib::FileRef f(QFile::encodeName(path).constData());
    if (f.isNull() || !f.tag())
        return false;
    f.tag()->setTitle(tagText(title));
    f.tag()->setArtist(tagText(artist));
    f.tag()->setAlbum(tagText(album));
    return f.save();
}

inline TagLib::ByteVector bytesOf(const QByteArray& data)
{
    return TagLib::ByteVector(data.constData(), static_cast<unsigned int>(data.size()));
}

inline TagLib::FLAC::Picture* flacPicture(const QByteArray& data, const QString& mime)
{
    auto* pic = new TagLib::FLAC::Picture;
    pic->setType(TagLib::FLAC::Picture::FrontCover);
    pic->setMimeType(tagText(mime));
    pic->setData(bytesOf(data));
    return pic;
}

// Embeds a picture the way each format stores it: ID3v2 APIC, MP4 covr,
// FLAC PICTURE block, Vorbis METADATA_BLOCK_PICTURE.
inline bool addPicture(const QString& path, const QByteArray& data, const QString& mime)
{
    const QByteArray name = QFile::encodeName(path);
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == "mp3") {
        TagLib::MPEG::File f(name.constData());
        auto* frame = new TagLib::ID3v2::AttachedPictureFrame;
        frame->setMimeType(tagText(mime));
        frame->setType(TagLib::ID3v2::AttachedPictureFrame::FrontCover);
        frame->setPicture(bytesOf(data));
        f.ID3v2Tag(true)->addFrame(frame);
        return f.save();
    }
    if (suffix == "m4a" || suffix == "mp4" || suffix == "m4r") {
        TagLib::MP4::File f(name.constData());
        const auto format = mime.endsWith("png")   ? TagLib::MP4::CoverArt::PNG
                            : mime.endsWith("bmp") ? TagLib::MP4::CoverArt::BMP
                                                   : TagLib::MP4::CoverArt::JPEG;
        TagLib::MP4::CoverArtList list;
        list.append(TagLib::MP4::CoverArt(format, bytesOf(data)));
        f.tag()->setItem("covr", list);
        return f.save();
    }
    if (suffix == "flac") {
        TagLib::FLAC::File f(name.constData());
        f.addPicture(flacPicture(data, mime));
        return f.save();
    }
    if (suffix == "ogg") {
        TagLib::Ogg::Vorbis::File f(name.constData());
        f.tag()->addPicture(flacPicture(data, mime));
        return f.save();
    }
    return false;
}

} // namespace fx
