// The library agent serving the folder library: tagged files of each format
// in the (temporary) Music and Videos folders, their embedded artwork, the
// video flag, playlist files of each kind, a broken file, the ringtones
// folder, the two-pass protocol, handles and positions, the scan cache and
// its incremental refresh, and AppendRingtone.

#include "engine/platformfolders.h"
#include "tests/itunesagent/agentfixtures.h"

#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <cstdint>
#include <vector>

class TestItunesAgentFolder : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanupTestCase();

    void shouldServeTheFolderLibraryWithoutALibraryFile();
    void shouldListBuiltInPlaylistsInCollectionZero();
    void shouldReadTheTagsOfEachFormat_data();
    void shouldReadTheTagsOfEachFormat();
    void shouldPutVideosInMoviesAndTheRestInMusic();
    void shouldReadEmbeddedArtworkOfEachFormat_data();
    void shouldReadEmbeddedArtworkOfEachFormat();
    void shouldOpenNoArtworkForAFileWithoutPictures();
    void shouldSkipABrokenFileWithALogLine();
    void shouldLeaveOutHiddenFoldersAndOtherFiles();
    void shouldListPlaylistFilesOfEachKind_data();
    void shouldListPlaylistFilesOfEachKind();
    void shouldSkipAnUnreadablePlaylistWithALogLine();
    void shouldLeaveOutPlaylistEntriesWithANulByte();
    void shouldListTheRingtonesFolder();
    void shouldFillSizesFirstAndTextsSecond();
    void shouldRefuseClosedAndMadeUpHandles();
    void shouldRefuseOutOfRangePositions_data();
    void shouldRefuseOutOfRangePositions();
    void shouldSearchTheFolderLibrary_data();
    void shouldSearchTheFolderLibrary();
    void shouldAppendRingtoneIntoMusicRingtones();
    void shouldScanOnceAndThenAnswerFromTheCache();
    void shouldRereadChangedFilesAndDropRemovedOnes();

private:
    struct ScanFigures
    {
        int files = -1;
        int read = -1;
        int cached = -1;
        int skipped = -1;
    };
    static ScanFigures lastScan();
    int musicIndexOf(const QString& title) const;

    QString m_music;
    QString m_videos;
    QTemporaryDir m_outside;
    QMap<QString, QByteArray> m_pictures; // title -> embedded bytes
};

TestItunesAgentFolder::ScanFigures TestItunesAgentFolder::lastScan()
{
    static const QRegularExpression figures(
        "(\\d+) files \\((\\d+) read, (\\d+) from the cache, (\\d+) skipped\\)");
    ScanFigures f;
    for (const QString& line : fx::agentLines()) {
        const QRegularExpressionMatch m = figures.match(line);
        if (m.hasMatch()) {
            f.files = m.captured(1).toInt();
            f.read = m.captured(2).toInt();
            f.cached = m.captured(3).toInt();
            f.skipped = m.captured(4).toInt();
        }
    }
    return f;
}

int TestItunesAgentFolder::musicIndexOf(const QString& title) const
{
    return static_cast<int>(fx::titlesOf(ITA_COLLECTION_LIBRARY, 0).indexOf(title));
}

void TestItunesAgentFolder::initTestCase()
{
    m_music = QStandardPaths::writableLocation(QStandardPaths::MusicLocation);
    m_videos = QStandardPaths::writableLocation(QStandardPaths::MoviesLocation);
    QVERIFY(m_music.startsWith(tw::testHome()));
    QVERIFY(m_videos.startsWith(tw::testHome()));
    QVERIFY(m_outside.isValid());

    const QString mp3 = m_music + "/Beatles/Yesterday.mp3";
    QVERIFY(fx::makeAudio(mp3, {"-c:a", "libmp3lame", "-b:a", "64k"}));
    QVERIFY(fx::setTags(mp3, "Yesterday", "The Beatles", "Help!"));
    m_pictures["Yesterday"] = fx::picture("JPEG", QColor(220, 20, 20), QSize(40, 30));
    QVERIFY(fx::addPicture(mp3, m_pictures["Yesterday"], "image/jpeg"));

    const QString m4a = m_music + QString::fromUtf8("/Björk/Jóga.m4a");
    QVERIFY(fx::makeAudio(m4a, {"-c:a", "aac", "-b:a", "64k"}));
    QVERIFY(fx::setTags(m4a, QString::fromUtf8("Jóga"), QString::fromUtf8("Björk"), "Homogenic"));
    m_pictures[QString::fromUtf8("Jóga")] = fx::picture("PNG", QColor(20, 200, 20), QSize(32, 32));
    QVERIFY(fx::addPicture(m4a, m_pictures[QString::fromUtf8("Jóga")], "image/png"));

    const QString flac = m_music + "/Classical/Canon.flac";
    QVERIFY(fx::makeAudio(flac, {"-c:a", "flac"}));
    QVERIFY(fx::setTags(flac, "Canon in D", "Pachelbel", "Baroque"));
    m_pictures["Canon in D"] = fx::picture("BMP", QColor(20, 20, 220), QSize(20, 10));
    QVERIFY(fx::addPicture(flac, m_pictures["Canon in D"], "image/bmp"));

    const QString ogg = m_music + "/Ogg/Tune.ogg";
    QVERIFY(fx::makeAudio(ogg, {"-c:a", "libvorbis"}));
    QVERIFY(fx::setTags(ogg, "Tune", "Vorbis Band", "Open Album"));
    m_pictures["Tune"] = fx::picture("PNG", QColor(230, 230, 20), QSize(16, 16));
    QVERIFY(fx::addPicture(ogg, m_pictures["Tune"], "image/png"));

    QVERIFY(tw::writeWav(m_music + "/Untagged Take.wav", 44100, 2, 16, 22050,
                         [](qint64 frame, int) { return int((frame * 37) % 2000) - 1000; }));
    QVERIFY(fx::writeFile(m_music + "/broken.mp3", QByteArray("this is not audio ").repeated(256)));
    QVERIFY(fx::makeAudio(m_music + "/.hidden/Secret.mp3", {"-c:a", "libmp3lame"}));
    QVERIFY(fx::writeFile(m_music + "/notes.txt", "a text file"));
    QVERIFY(fx::makeRingtone(m_music + "/Ringtones/Old Tone.m4r"));

    QVERIFY(fx::makeVideo(m_videos + "/Holiday Clip.mp4"));
    QVERIFY(fx::makeAudio(m_videos + "/Talk.mp4", {"-c:a", "aac"}));

    const QString extra = m_outside.filePath("Extra.mp3");
    QVERIFY(fx::makeAudio(extra, {"-c:a", "libmp3lame"}));
    QVERIFY(fx::setTags(extra, "Extra Song", "Guest", "Elsewhere"));

    // Playlists: relative entries, comments, CRLF, a stream and a missing
    // file (.m3u); UTF-8 and file URLs (.m3u8); numbered keys out of order
    // (.pls); file and relative URLs with a title (.xspf); a file outside
    // the folders; and a broken one.
    QVERIFY(fx::writeFile(m_music + "/Playlists/Road Trip.m3u",
                          "#EXTM3U\r\n#EXTINF:123,The Beatles - Yesterday\r\n"
                          "../Beatles/Yesterday.mp3\r\n\r\n../Missing.mp3\r\n"
                          "http://stream.example/radio\r\n../Classical/Canon.flac\r\n"));
    QVERIFY(fx::writeFile(m_music + QString::fromUtf8("/Playlists/Ünïcode.m3u8"),
                          (m4a + "\n" + fx::fileUrl(ogg, false) + "\n").toUtf8()));
    QVERIFY(fx::writeFile(m_music + "/Playlists/Party.pls",
                          ("[playlist]\nFile2=" + flac +
                           "\nTitle2=Canon\nFile1=../Ogg/Tune.ogg\nNumberOfEntries=2\nVersion=2\n")
                              .toUtf8()));
    QVERIFY(fx::writeFile(
        m_videos + "/Clips.xspf",
        ("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
         "<playlist version=\"1\" xmlns=\"http://xspf.org/ns/0/\">\n<title>Best Clips</title>\n"
         "<trackList>\n<track><title>Clip</title><location>" +
         fx::fileUrl(m_videos + "/Holiday Clip.mp4", false) +
         "</location></track>\n<track><location>../Music/Beatles/Yesterday.mp3</location>"
         "</track>\n</trackList>\n</playlist>\n")
            .toUtf8()));
    QVERIFY(fx::writeFile(m_music + "/Playlists/Outside.m3u", (extra + "\n").toUtf8()));
    QVERIFY(fx::writeFile(m_music + "/Playlists/bad.xspf", "<playlist><trackList><track>"));
}

void TestItunesAgentFolder::init()
{
    fx::captureAgentLog();
    fx::useFolderLibrary();
}

void TestItunesAgentFolder::cleanupTestCase()
{
    ItunesAgentSetLogger(nullptr, nullptr);
    ItunesAgentReset();
}

void TestItunesAgentFolder::shouldServeTheFolderLibraryWithoutALibraryFile()
{
    QCOMPARE(ItunesAgentBackend(), int(ITA_BACKEND_NONE));
    QCOMPARE(ItunesAgentLoad(), int(ITA_BACKEND_FOLDER));
    QVERIFY(fx::loggedLine("folder library " + m_music + ", " + m_videos));
}

void TestItunesAgentFolder::shouldListBuiltInPlaylistsInCollectionZero()
{
    QCOMPARE(fx::playlistNames(ITA_COLLECTION_LIBRARY),
             QStringList({"Music", "Movies", "Ringtones"}));
    QCOMPARE(fx::playlistKind(ITA_COLLECTION_LIBRARY, 0), int(ITA_KIND_MUSIC));
    QCOMPARE(fx::playlistKind(ITA_COLLECTION_LIBRARY, 1), int(ITA_KIND_MOVIES));
    QCOMPARE(fx::playlistKind(ITA_COLLECTION_LIBRARY, 2), int(ITA_KIND_RINGTONES));
    QCOMPARE(GetPlaylistCount(ITA_COLLECTION_OTHER), 0);
}

void TestItunesAgentFolder::shouldReadTheTagsOfEachFormat_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("artist");
    QTest::addColumn<QString>("album");
    QTest::newRow("MP3, ID3v2") << "Beatles/Yesterday.mp3"
                                << "Yesterday"
                                << "The Beatles"
                                << "Help!";
    QTest::newRow("M4A") << QString::fromUtf8("Björk/Jóga.m4a") << QString::fromUtf8("Jóga")
                         << QString::fromUtf8("Björk") << "Homogenic";
    QTest::newRow("FLAC") << "Classical/Canon.flac"
                          << "Canon in D"
                          << "Pachelbel"
                          << "Baroque";
    QTest::newRow("Ogg Vorbis") << "Ogg/Tune.ogg"
                                << "Tune"
                                << "Vorbis Band"
                                << "Open Album";
    QTest::newRow("untagged WAV") << "Untagged Take.wav"
                                  << "Untagged Take"
                                  << ""
                                  << "";
}

void TestItunesAgentFolder::shouldReadTheTagsOfEachFormat()
{
    QFETCH(QString, file);
    QFETCH(QString, title);
    QFETCH(QString, artist);
    QFETCH(QString, album);
    const int index = musicIndexOf(title);
    QVERIFY2(index >= 0, qPrintable(fx::titlesOf(ITA_COLLECTION_LIBRARY, 0).join(", ")));
    const fx::Song song = fx::songsOf(ITA_COLLECTION_LIBRARY, 0)[index];
    QCOMPARE(song.location, m_music + "/" + file);
    QCOMPARE(song.artist, artist);
    QCOMPARE(song.album, album);
    QCOMPARE(song.video, 0);
    if (artist.isEmpty())
        QCOMPARE(song.artistSize, 0);
}

void TestItunesAgentFolder::shouldPutVideosInMoviesAndTheRestInMusic()
{
    const QList<fx::Song> movies = fx::songsOf(ITA_COLLECTION_LIBRARY, 1);
    QCOMPARE(movies.size(), 1);
    QCOMPARE(movies[0].title, QString("Holiday Clip"));
    QCOMPARE(movies[0].video, 1);
    QCOMPARE(movies[0].location, m_videos + "/Holiday Clip.mp4");
    // An .mp4 with sound only is music.
    QCOMPARE(fx::titlesOf(ITA_COLLECTION_LIBRARY, 0),
             QStringList({"Yesterday", QString::fromUtf8("Jóga"), "Canon in D", "Tune",
                          "Untagged Take", "Talk", "Extra Song"}));
}

void TestItunesAgentFolder::shouldReadEmbeddedArtworkOfEachFormat_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QColor>("colour");
    QTest::newRow("MP3 APIC, JPEG") << "Yesterday" << QSize(40, 30) << QColor(220, 20, 20);
    QTest::newRow("M4A covr, PNG")
        << QString::fromUtf8("Jóga") << QSize(32, 32) << QColor(20, 200, 20);
    QTest::newRow("FLAC picture, BMP") << "Canon in D" << QSize(20, 10) << QColor(20, 20, 220);
    QTest::newRow("Vorbis picture, PNG") << "Tune" << QSize(16, 16) << QColor(230, 230, 20);
}

void TestItunesAgentFolder::shouldReadEmbeddedArtworkOfEachFormat()
{
    QFETCH(QString, title);
    QFETCH(QSize, size);
    QFETCH(QColor, colour);
    void* music = OpenPlaylist(ITA_COLLECTION_LIBRARY, 0);
    const QList<QByteArray> images = fx::artworkOf(music, musicIndexOf(title));
    ClosePlaylist(music);
    QCOMPARE(images.size(), 1);
    QCOMPARE(images[0], m_pictures[title]);
    const QImage image = QImage::fromData(images[0]);
    QCOMPARE(image.size(), size);
    const QColor centre = image.pixelColor(size.width() / 2, size.height() / 2);
    QVERIFY(qAbs(centre.red() - colour.red()) < 12);
    QVERIFY(qAbs(centre.green() - colour.green()) < 12);
    QVERIFY(qAbs(centre.blue() - colour.blue()) < 12);
}

void TestItunesAgentFolder::shouldOpenNoArtworkForAFileWithoutPictures()
{
    void* music = OpenPlaylist(ITA_COLLECTION_LIBRARY, 0);
    QCOMPARE(OpenArtwork(music, musicIndexOf("Untagged Take")), nullptr);
    QCOMPARE(OpenArtwork(music, musicIndexOf("Talk")), nullptr);
    ClosePlaylist(music);
}

void TestItunesAgentFolder::shouldSkipABrokenFileWithALogLine()
{
    ItunesAgentLoad();
    QVERIFY2(fx::loggedLine("skipping unreadable file: " + m_music + "/broken.mp3"),
             qPrintable(fx::agentLines().join('\n')));
    QCOMPARE(lastScan().skipped, 1);
    for (const fx::Song& s : fx::songsOf(ITA_COLLECTION_LIBRARY, 0))
        QVERIFY(!s.location.endsWith("broken.mp3"));
}

void TestItunesAgentFolder::shouldLeaveOutHiddenFoldersAndOtherFiles()
{
    const QStringList titles = fx::titlesOf(ITA_COLLECTION_LIBRARY, 0);
    QVERIFY(!titles.contains("Secret"));
    QVERIFY(!titles.contains("notes"));
    QVERIFY(!titles.contains("Old Tone")); // the ringtones folder has its own playlist
}

void TestItunesAgentFolder::shouldListPlaylistFilesOfEachKind_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("titles");
    QTest::newRow(".m3u") << "Road Trip" << QStringList{"Yesterday", "Canon in D"};
    QTest::newRow(".m3u8") << QString::fromUtf8("Ünïcode")
                           << QStringList{QString::fromUtf8("Jóga"), "Tune"};
    QTest::newRow(".pls") << "Party" << QStringList{"Tune", "Canon in D"};
    QTest::newRow(".xspf") << "Best Clips" << QStringList{"Holiday Clip", "Yesterday"};
    QTest::newRow("outside the folders") << "Outside" << QStringList{"Extra Song"};
}

void TestItunesAgentFolder::shouldListPlaylistFilesOfEachKind()
{
    QFETCH(QString, name);
    QFETCH(QStringList, titles);
    // In the order of their paths; every kind is 0.
    QCOMPARE(
        fx::playlistNames(ITA_COLLECTION_PLAYLISTS),
        QStringList({"Outside", "Party", "Road Trip", QString::fromUtf8("Ünïcode"), "Best Clips"}));
    const int position = fx::findPlaylist(ITA_COLLECTION_PLAYLISTS, name);
    QVERIFY(position >= 0);
    QCOMPARE(fx::playlistKind(ITA_COLLECTION_PLAYLISTS, position), int(ITA_KIND_USER));
    QCOMPARE(fx::titlesOf(ITA_COLLECTION_PLAYLISTS, position), titles);
}

void TestItunesAgentFolder::shouldSkipAnUnreadablePlaylistWithALogLine()
{
    ItunesAgentLoad();
    QVERIFY2(fx::loggedLine("skipping unreadable playlist: " + m_music + "/Playlists/bad.xspf"),
             qPrintable(fx::agentLines().join('\n')));
}

void TestItunesAgentFolder::shouldLeaveOutPlaylistEntriesWithANulByte()
{
    // Each entry names "Yesterday.mp3", a NUL and more, which C strings
    // would cut back to the song: as a file URL ("%00"), as a path holding a
    // NUL byte, and as a relative XSPF location ("%00").
    const QString yesterday = m_music + "/Beatles/Yesterday.mp3";
    const QString m3u = m_music + "/Playlists/Cut Short.m3u";
    const QString xspf = m_music + "/Playlists/Cut Short Too.xspf";
    struct Removed
    {
        QStringList files;
        ~Removed()
        {
            for (const QString& file : files)
                QFile::remove(file);
        }
    } removed{{m3u, xspf}};
    QVERIFY(fx::writeFile(m3u, "file://" + QUrl::toPercentEncoding(yesterday, "/") + "%00.txt\n" +
                                   yesterday.toUtf8() + '\0' + ".mp3\n../Classical/Canon.flac\n"));
    QVERIFY(fx::writeFile(xspf,
                          "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                          "<playlist version=\"1\" xmlns=\"http://xspf.org/ns/0/\">\n"
                          "<trackList>\n"
                          "<track><location>../Beatles/Yesterday.mp3%00.mp3</location></track>\n"
                          "<track><location>../Ogg/Tune.ogg</location></track>\n"
                          "</trackList>\n</playlist>\n"));
    fx::useFolderLibrary();

    // Only the entries that name a file are listed, and the song is not
    // added again under the longer name.
    QCOMPARE(fx::titlesOf(ITA_COLLECTION_PLAYLISTS,
                          fx::findPlaylist(ITA_COLLECTION_PLAYLISTS, "Cut Short")),
             QStringList({"Canon in D"}));
    QCOMPARE(fx::titlesOf(ITA_COLLECTION_PLAYLISTS,
                          fx::findPlaylist(ITA_COLLECTION_PLAYLISTS, "Cut Short Too")),
             QStringList({"Tune"}));
    QCOMPARE(fx::titlesOf(ITA_COLLECTION_LIBRARY, 0),
             QStringList({"Yesterday", QString::fromUtf8("Jóga"), "Canon in D", "Tune",
                          "Untagged Take", "Talk", "Extra Song"}));
}

void TestItunesAgentFolder::shouldListTheRingtonesFolder()
{
    char dir[1024];
    QVERIFY(ItunesAgentGetRingtoneDir(dir, sizeof dir) > 0);
    QCOMPARE(QString::fromUtf8(dir), m_music + "/Ringtones");
    const QList<fx::Song> tones = fx::songsOf(ITA_COLLECTION_LIBRARY, 2);
    QCOMPARE(tones.size(), 1);
    QCOMPARE(tones[0].title, QString("Old Tone"));
    QCOMPARE(tones[0].location, m_music + "/Ringtones/Old Tone.m4r");
}

void TestItunesAgentFolder::shouldFillSizesFirstAndTextsSecond()
{
    const QString joga = QString::fromUtf8("Jóga");
    const int song = musicIndexOf(joga);
    QVERIFY(song >= 0);
    void* h = OpenPlaylist(ITA_COLLECTION_LIBRARY, 0);
    QVERIFY(h);
    tagSongInfo info = {};
    QCOMPARE(GetSongInfo(h, song, &info), int(ITA_OK));
    QCOMPARE(info.nTitleSize, int(joga.toUtf8().size()) + 1);
    QCOMPARE(info.nArtistSize, int(QString::fromUtf8("Björk").toUtf8().size()) + 1);
    QCOMPARE(info.nAlbumSize, 10); // "Homogenic"
    const QString location = m_music + QString::fromUtf8("/Björk/Jóga.m4a");
    QCOMPARE(info.nLocationSize, int(location.toUtf8().size()) + 1);
    QVERIFY(!info.pszTitle && !info.pszArtist);

    std::vector<char> title(info.nTitleSize, 'x'), artist(info.nArtistSize, 'x');
    info.pszTitle = title.data();
    info.pszArtist = artist.data();
    info.bVideo = 7;
    QCOMPARE(GetSongInfo(h, song, &info), int(ITA_OK));
    QCOMPARE(QString::fromUtf8(title.data()), joga);
    QCOMPARE(QString::fromUtf8(artist.data()), QString::fromUtf8("Björk"));
    QCOMPARE(info.bVideo, 0);
    // Fields left without a buffer get their sizes again.
    QCOMPARE(info.nAlbumSize, 10);
    QCOMPARE(info.nLocationSize, int(location.toUtf8().size()) + 1);
    QCOMPARE(ClosePlaylist(h), int(ITA_OK));
}

void TestItunesAgentFolder::shouldRefuseClosedAndMadeUpHandles()
{
    const int yesterday = musicIndexOf("Yesterday");
    QVERIFY(yesterday >= 0);
    void* h = OpenPlaylist(ITA_COLLECTION_LIBRARY, 0);
    QVERIFY(h);
    QCOMPARE(GetSongCount(h), 7);
    QCOMPARE(GetPlaylistKind(h), int(ITA_KIND_MUSIC));
    void* art = OpenArtwork(h, yesterday);
    QVERIFY(art);
    QCOMPARE(ClosePlaylist(h), int(ITA_OK));
    // The artwork handle lives on without its playlist.
    QCOMPARE(GetArtworkCount(art), 1);
    fx::verifyClosedAndMadeUpHandlesRefused(h, yesterday, art);
}

void TestItunesAgentFolder::shouldRefuseOutOfRangePositions_data()
{
    QTest::addColumn<int>("collection");
    QTest::addColumn<int>("position");
    // Music, Movies and Ringtones; five playlist files; nothing in between.
    QTest::newRow("negative position") << 0 << -1;
    QTest::newRow("past the last built-in playlist") << 0 << 3;
    QTest::newRow("past the last playlist file") << 2 << 5;
    QTest::newRow("far past the last") << 2 << 1000000;
    QTest::newRow("empty collection 1") << 1 << 0;
    QTest::newRow("collection 3") << 3 << 0;
    QTest::newRow("negative collection") << -1 << 0;
}

void TestItunesAgentFolder::shouldRefuseOutOfRangePositions()
{
    QFETCH(int, collection);
    QFETCH(int, position);
    QCOMPARE(GetPlaylistCount(ITA_COLLECTION_LIBRARY), 3);
    QCOMPARE(GetPlaylistCount(ITA_COLLECTION_PLAYLISTS), 5);
    const int yesterday = musicIndexOf("Yesterday");
    QVERIFY(yesterday >= 0);
    fx::verifyOutOfRangeRefused(collection, position, 7, yesterday);
}

void TestItunesAgentFolder::shouldSearchTheFolderLibrary_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("artist");
    QTest::addColumn<QString>("album");
    QTest::addColumn<QStringList>("hits");
    QTest::newRow("artist") << ""
                            << "beatles"
                            << "" << QStringList{"Yesterday"};
    QTest::newRow("non-ASCII title") << QString::fromUtf8("JÓGA") << ""
                                     << "" << QStringList{QString::fromUtf8("Jóga")};
    QTest::newRow("album") << ""
                           << ""
                           << "BAROQUE" << QStringList{"Canon in D"};
    QTest::newRow("file outside the folders") << "extra"
                                              << ""
                                              << "" << QStringList{"Extra Song"};
    QTest::newRow("ringtones too") << "tone"
                                   << ""
                                   << "" << QStringList{"Old Tone"};
    QTest::newRow("title from the file name") << "untagged"
                                              << ""
                                              << "" << QStringList{"Untagged Take"};
}

void TestItunesAgentFolder::shouldSearchTheFolderLibrary()
{
    QFETCH(QString, title);
    QFETCH(QString, artist);
    QFETCH(QString, album);
    QFETCH(QStringList, hits);
    QByteArray t = title.toUtf8(), a = artist.toUtf8(), b = album.toUtf8();
    tagSongInfo query = {};
    query.pszTitle = t.data();
    query.nTitleSize = int(t.size()) + 1;
    query.pszArtist = a.data();
    query.nArtistSize = int(a.size()) + 1;
    query.pszAlbum = b.data();
    query.nAlbumSize = int(b.size()) + 1;
    fx::SearchHits found;
    SearchSong(&query, &fx::collectHit, &found);
    QCOMPARE(found.titles, hits);
}

void TestItunesAgentFolder::shouldAppendRingtoneIntoMusicRingtones()
{
    const QString source = m_outside.filePath("made/New Tone.m4r");
    QVERIFY(fx::makeRingtone(source));
    QVERIFY(fx::setTags(source, "New Tone", "Me", "Tones"));
    const QByteArray before = fx::sha1(source);
    const QDateTime modified = QFileInfo(source).lastModified();

    QCOMPARE(AppendRingtone(QFile::encodeName(source).constData()), int(ITA_OK));
    QCOMPARE(fx::titlesOf(ITA_COLLECTION_LIBRARY, 2), QStringList({"Old Tone", "New Tone"}));
    QCOMPARE(fx::sha1(m_music + "/Ringtones/New Tone.m4r"), before);
    QCOMPARE(AppendRingtone(QFile::encodeName(source).constData()), int(ITA_OK));
    QCOMPARE(fx::titlesOf(ITA_COLLECTION_LIBRARY, 2), QStringList({"Old Tone", "New Tone"}));
    QCOMPARE(fx::sha1(source), before);
    QCOMPARE(QFileInfo(source).lastModified(), modified);
    QVERIFY(!fx::titlesOf(ITA_COLLECTION_LIBRARY, 0).contains("New Tone"));

    // Still there after a fresh load, listed from the folder.
    fx::useFolderLibrary();
    QCOMPARE(fx::titlesOf(ITA_COLLECTION_LIBRARY, 2), QStringList({"New Tone", "Old Tone"}));
    QVERIFY(QFile::remove(m_music + "/Ringtones/New Tone.m4r"));
}

void TestItunesAgentFolder::shouldScanOnceAndThenAnswerFromTheCache()
{
    // With the program's other scratch files, in its own cache folder.
    const QString cache = programCacheDir() + "/library-cache.bin";
    QVERIFY2(cache.endsWith("/vandrel/tonewright/library-cache.bin"), qPrintable(cache));
    QVERIFY(cache.startsWith(tw::testHome()));
    QFile::remove(cache);
    ItunesAgentLoad();
    ScanFigures first = lastScan();
    QVERIFY(first.files >= 9);
    QCOMPARE(first.read, first.files);
    QCOMPARE(first.cached, 0);
    QVERIFY(QFileInfo::exists(cache));

    fx::captureAgentLog();
    fx::useFolderLibrary();
    ItunesAgentLoad();
    const ScanFigures second = lastScan();
    QCOMPARE(second.files, first.files);
    QCOMPARE(second.read, 0);
    QCOMPARE(second.cached, first.files);
    // Broken files are remembered as broken, and still skipped with a line.
    QCOMPARE(second.skipped, 1);
    QVERIFY(fx::loggedLine("skipping unreadable file: " + m_music + "/broken.mp3"));
    QCOMPARE(fx::titlesOf(ITA_COLLECTION_LIBRARY, 0).size(), 7);
}

void TestItunesAgentFolder::shouldRereadChangedFilesAndDropRemovedOnes()
{
    ItunesAgentLoad();
    const int files = lastScan().files;
    const QString mp3 = m_music + "/Beatles/Yesterday.mp3";
    QVERIFY(fx::setTags(mp3, "Yesterday (Remastered)", "The Beatles", "Help!"));
    QVERIFY(QFile::remove(m_music + "/Ogg/Tune.ogg"));

    fx::captureAgentLog();
    fx::useFolderLibrary();
    ItunesAgentLoad();
    const ScanFigures after = lastScan();
    QCOMPARE(after.files, files - 1);
    QCOMPARE(after.read, 1);
    QCOMPARE(after.cached, files - 2);
    const QStringList titles = fx::titlesOf(ITA_COLLECTION_LIBRARY, 0);
    QVERIFY(titles.contains("Yesterday (Remastered)"));
    QVERIFY(!titles.contains("Yesterday"));
    QVERIFY(!titles.contains("Tune"));
    // Playlists naming the removed file keep their other entries.
    QCOMPARE(
        fx::titlesOf(ITA_COLLECTION_PLAYLISTS, fx::findPlaylist(ITA_COLLECTION_PLAYLISTS, "Party")),
        QStringList({"Canon in D"}));

    fx::captureAgentLog();
    fx::useFolderLibrary();
    ItunesAgentLoad();
    QCOMPARE(lastScan().read, 0);
    QCOMPARE(lastScan().cached, files - 1);
}

TW_TEST_MAIN(TestItunesAgentFolder)
#include "tst_itunesagentfolder.moc"
