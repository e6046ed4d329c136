#pragma once
// The library the tests of the library classes run on: an iTunes library XML
// file written into a temporary folder, whose first song exists on disk with
// a JPEG cover. Header-only.
//
// Collection 0: Music (4), Movies (2), Odd Kind (7, no icon), Ringtones (55,
// added by the agent). Collection 2: Road Trip, Empty.
// Music: Yesterday, Something, Beat It, Here Comes the Sun, No Artist.
// musicLibraryXml() writes a large generated library besides.

#include "tests/itunesagent/agentfixtures.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtGlobal>

namespace lib {

struct Library
{
    QString xml;
    QString coveredSong; // the path of "Yesterday"
    QByteArray cover;    // its JPEG cover, 40 x 30
};

inline fx::XmlTrack track(int id, const QString& name, const QString& artist, const QString& album,
                          const QString& path, bool video = false)
{
    fx::XmlTrack t;
    t.id = id;
    t.name = name;
    t.artist = artist;
    t.album = album;
    t.path = path;
    t.video = video;
    return t;
}

inline fx::XmlPlaylist playlist(const QString& name, int kind, const QList<int>& items)
{
    fx::XmlPlaylist p;
    p.name = name;
    p.kind = kind;
    p.items = items;
    return p;
}

// Writes the library into dir and makes the agent serve it.
inline Library makeLibrary(const QTemporaryDir& dir)
{
    Library lib;
    const QString media = dir.filePath("iTunes Media");
    lib.coveredSong = media + "/Beatles/Yesterday.mp3";
    if (!fx::makeAudio(lib.coveredSong, {"-c:a", "libmp3lame", "-b:a", "64k"}))
        qFatal("cannot make %s", qPrintable(lib.coveredSong));
    lib.cover = fx::picture("JPEG", QColor(200, 40, 40), QSize(40, 30));
    fx::addPicture(lib.coveredSong, lib.cover, "image/jpeg");

    QList<fx::XmlTrack> tracks;
    tracks << track(1, "Yesterday", "The Beatles", "Help!", lib.coveredSong);
    tracks << track(2, "Something", "The Beatles", "Abbey Road", media + "/Beatles/Something.mp3");
    tracks << track(3, "Beat It", "Michael Jackson", "Thriller", media + "/MJ/Beat It.mp3");
    tracks << track(4, "Clip", "Studio", "Shorts", media + "/Movies/Clip.m4v", true);
    tracks << track(5, "Here Comes the Sun", "George", "Abbey Road", media + "/G/Sun.mp3");
    tracks << track(6, "No Artist", QString(), "Beatles Covers", media + "/Covers/No Artist.mp3");
    tracks[1].artworkCount = 0;

    QList<fx::XmlPlaylist> lists;
    lists << playlist("Library", -1, {1, 2, 3, 4, 5, 6});
    lists.last().master = true;
    lists << playlist("Music", 4, {1, 2, 3, 5, 6});
    lists << playlist("Movies", 2, {4});
    lists << playlist("Odd Kind", 7, {1});
    lists << playlist("Road Trip", -1, {3, 1});
    lists << playlist("Empty", -1, {});
    lib.xml = dir.filePath("library.xml");
    fx::writeFile(lib.xml, fx::libraryXml(media, tracks, lists));
    fx::useXmlLibrary(lib.xml);
    return lib;
}

// The title of song `track` (1 .. tracks) of musicLibraryXml(tracks): the
// songs come in no order, titles in ten words of mixed case (some of them
// beyond ASCII), and titles that differ only in case share a number.
inline QString musicTitle(int track, int tracks)
{
    static const char* const kWords[] = {"love", "LOVE",  "Night", "river", "RIVER",
                                         "blue", "Ärger", "ärger", "Zoë",   "home"};
    // 7919 is prime and no count used here is a multiple of it: every track
    // gets its own n.
    const long long n = track * 7919LL % tracks;
    return QString::fromUtf8(kWords[n % 10]) + ' ' + QString::number(n / 10);
}

// A lean library of `tracks` songs (a number and a name each), all of them in
// "Music" in track order.
inline QByteArray musicLibraryXml(int tracks)
{
    QByteArray x;
    x.reserve(tracks * 150 + 1024);
    x += "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n<dict>\n"
         "<key>Tracks</key>\n<dict>\n";
    for (int i = 1; i <= tracks; ++i) {
        const QByteArray id = QByteArray::number(i);
        x += "<key>" + id + "</key><dict><key>Track ID</key><integer>" + id +
             "</integer><key>Name</key><string>" + musicTitle(i, tracks).toUtf8() +
             "</string></dict>\n";
    }
    x += "</dict>\n<key>Playlists</key>\n<array>\n<dict><key>Name</key><string>Music</string>"
         "<key>Distinguished Kind</key><integer>4</integer>\n<key>Playlist Items</key>\n<array>\n";
    for (int i = 1; i <= tracks; ++i)
        x += "<dict><key>Track ID</key><integer>" + QByteArray::number(i) + "</integer></dict>\n";
    x += "</array>\n</dict>\n</array>\n</dict>\n</plist>\n";
    return x;
}

// Collects the model tester's complaints while it is installed.
class TesterWarnings
{
public:
    TesterWarnings()
    {
        s_lines.clear();
        s_previous = qInstallMessageHandler(&TesterWarnings::handle);
    }
    ~TesterWarnings() { qInstallMessageHandler(s_previous); }
    TesterWarnings(const TesterWarnings&) = delete;
    TesterWarnings& operator=(const TesterWarnings&) = delete;

    QStringList take()
    {
        QStringList lines = s_lines;
        s_lines.clear();
        return lines;
    }

    // The complaints so far, in the order made, each on one line, without the
    // last line that names the tester's own source line, and with addresses
    // written "@" (they change from run to run).
    QStringList takeComplaints()
    {
        QStringList complaints;
        for (const QString& text : take()) {
            QStringList lines = text.split('\n');
            if (lines.size() > 1 && lines.last().trimmed().startsWith('('))
                lines.removeLast();
            for (QString& line : lines)
                line = line.trimmed().replace(QRegularExpression("0x[0-9a-fA-F]+"), "@");
            complaints << lines.join(" | ");
        }
        return complaints;
    }

private:
    static void handle(QtMsgType type, const QMessageLogContext& context, const QString& text)
    {
        if (type == QtWarningMsg && QByteArray(context.category).startsWith("qt.modeltest")) {
            s_lines << text;
            return;
        }
        s_previous(type, context, text);
    }

    static inline QStringList s_lines;
    static inline QtMessageHandler s_previous = nullptr;
};

// What the model tester says of the library tree's deliberate parent()
// (a parent index carries its child's row), for one child under its group.
inline QStringList parentRowComplaints(int childRow, int parentRow, const char* child,
                                       const char* parent)
{
    return QStringList{
        "Inconsistent parent() implementation detected:",
        QString("index= QModelIndex(%1,0,@,CLibraryModel(@)) exp. parent= "
                "QModelIndex(%2,0,@,CLibraryModel(@)) act. parent= "
                "QModelIndex(%1,0,@,CLibraryModel(@))")
            .arg(childRow)
            .arg(parentRow),
        QString("row= %1 col= 0 depth= 1").arg(childRow),
        QString("data for child \"%1\"").arg(child),
        QString("data for parent \"%1\"").arg(parent),
        QString("FAIL! Compared values are not the same: | Actual (model->parent(index)) "
                "QModelIndex(%1,0,@,@) | Expected (parent) QModelIndex(%2,0,@,@)")
            .arg(childRow)
            .arg(parentRow)};
}

} // namespace lib
