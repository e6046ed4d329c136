// The library agent serving an iTunes library XML file: collections and
// kinds, songs and their decoded locations, the two-pass protocol, handles,
// search, artwork, and the two real library files of the shared data.

#include "tests/itunesagent/agentfixtures.h"

#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <vector>

class TestItunesAgentXml : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanupTestCase();

    void shouldListBuiltInPlaylistsInCollectionZeroWithTheirKinds();
    void shouldListUserPlaylistsFoldersAndSmartOnesInCollectionTwo();
    void shouldLeaveCollectionOneEmpty();
    void shouldReadSongsWithDecodedLocations();
    void shouldTakeTheFileNameWhenATrackHasNoName();
    void shouldReportZeroSizeForAnEmptyArtist();
    void shouldFillSizesFirstAndTextsSecond();
    void shouldTerminateATextCutByASmallBuffer();
    void shouldGiveManyTitlesInOneCall();
    void shouldListTheSongsOfAFolderFromItsPlaylists();
    void shouldLeaveOutItemsOfUnknownTracks();
    void shouldRefuseClosedAndMadeUpHandles();
    void shouldRefuseOutOfRangePositions_data();
    void shouldRefuseOutOfRangePositions();
    void shouldSearchFieldsCaseInsensitivelyInLibraryOrder_data();
    void shouldSearchFieldsCaseInsensitivelyInLibraryOrder();
    void shouldReadAnArtistQueryUpToItsSize();
    void shouldStopSearchingWhenTheCallbackSaysSo();
    void shouldRefuseASearchWithoutQueryOrCallback();
    void shouldReadArtworkFromTheTracksFile();
    void shouldOpenNoArtworkForATrackKnownToHaveNone();
    void shouldRefuseOpeningPlaylistsBeyondTheHandleLimit();
    void shouldKeepOnlyTheNewestArtworkHandles();
    void shouldCountCallsAndForgetEverythingOnReset();
    void shouldReadEveryKindOfPlaylistWithWindowsLocations();
    void shouldGiveNoFileForALocationWithANulByte();
    void shouldReadTheRealMacLibrary();
    void shouldReadTheRealWindowsLibrary();
    void shouldFindTheLibraryFileUnderTheMusicFolder_data();
    void shouldFindTheLibraryFileUnderTheMusicFolder();

private:
    QString media(const QString& relative) const { return m_media + "/" + relative; }
    QString writeLibrary(const QString& name, const QByteArray& xml);
    void useMainLibrary() { fx::useXmlLibrary(m_library); }

    QTemporaryDir m_dir;
    QString m_media;
    QString m_library;
    QByteArray m_cover;
    QList<fx::XmlTrack> m_tracks;
};

QString TestItunesAgentXml::writeLibrary(const QString& name, const QByteArray& xml)
{
    const QString path = m_dir.filePath(name);
    if (!fx::writeFile(path, xml))
        qFatal("cannot write %s", qPrintable(path));
    return path;
}

void TestItunesAgentXml::initTestCase()
{
    QVERIFY(m_dir.isValid());
    m_media = m_dir.filePath("iTunes Media");
    QVERIFY(QDir().mkpath(m_media));

    // The first track exists, tagged and with a cover; the others are only
    // named by the library, as in a library copied from another machine.
    const QString eminem = media("Eminem/Relapse/01 3 A.M..mp3");
    QVERIFY(fx::makeAudio(eminem, {"-c:a", "libmp3lame", "-b:a", "64k"}));
    m_cover = fx::picture("JPEG", QColor(200, 30, 30), QSize(40, 30));
    QVERIFY(fx::addPicture(eminem, m_cover, "image/jpeg"));

    auto track = [](int id, const QString& name, const QString& artist, const QString& album,
                    const QString& path) {
        fx::XmlTrack t;
        t.id = id;
        t.name = name;
        t.artist = artist;
        t.album = album;
        t.path = path;
        return t;
    };
    m_tracks << track(101, "3 A.M.", "Eminem", "Relapse", eminem);
    m_tracks[0].artworkCount = 1;
    m_tracks << track(102, QString::fromUtf8("Jóga"), QString::fromUtf8("Björk"), "Homogenic",
                      media(QString::fromUtf8("Björk/Homogenic/02 Jóga [live] #1 100%.mp3")));
    m_tracks[1].localhost = false;
    m_tracks << track(103, QString(), QString(), "Untitled Album",
                      media("Misc/Nameless Track.m4a"));
    m_tracks[2].artworkCount = 0;
    m_tracks << track(104, "Clip", "Studio", "Shorts", media("Movies/Clip.m4v"));
    m_tracks[3].video = true;
    m_tracks << track(105, "Yesterday", "The Beatles", "Help!", media("Beatles/Yesterday.mp3"));
    m_tracks << track(106, "Something", "The Beatles", "Abbey Road",
                      media("Beatles/Something.mp3"));
    m_tracks << track(107, "Beat It", "Michael Jackson", "Thriller", media("MJ/Beat It.mp3"));
    m_tracks << track(108, "Song & <Dance>", "A & B", "Q&A", media("AB/Song.mp3"));

    auto list = [](const QString& name, int kind, const QList<int>& items) {
        fx::XmlPlaylist p;
        p.name = name;
        p.kind = kind;
        p.items = items;
        return p;
    };
    QList<fx::XmlPlaylist> lists;
    lists << list("Library", -1, {101, 102, 103, 104, 105, 106, 107, 108});
    lists.last().master = true;
    lists.last().hidden = true;
    lists << list("Music", 4, {101, 102, 103, 105, 106, 107, 108});
    lists << list("Movies", 2, {104});
    lists << list("TV Shows", 3, {});
    lists << list("Podcasts", 10, {});
    lists << list("Purchased", 19, {105});
    lists << list("iTunes DJ", 22, {});
    lists << list("Genius", 26, {});
    lists << list("Odd Kind", 7, {101});
    lists << list("Hidden Built-in", 4, {101});
    lists.last().hidden = true;
    lists << list("Road Trip", -1, {107, 105, 101});
    lists << list("Secret", -1, {101});
    lists.last().hidden = true;
    lists << list("Recently Added", -1, {106});
    lists.last().smart = true;
    lists << list("Mixes", -1, {});
    lists.last().folder = true;
    lists.last().id = "F1";
    lists << list("Mix A", -1, {105, 106});
    lists.last().parent = "F1";
    lists << list("Mix B", -1, {106, 107});
    lists.last().parent = "F1";
    lists << list("Dangling", -1, {101, 999});
    m_library = writeLibrary("library.xml", fx::libraryXml(m_media, m_tracks, lists));
}

void TestItunesAgentXml::init()
{
    fx::captureAgentLog();
    useMainLibrary();
}

void TestItunesAgentXml::cleanupTestCase()
{
    ItunesAgentSetLogger(nullptr, nullptr);
    fx::useFolderLibrary();
}

void TestItunesAgentXml::shouldListBuiltInPlaylistsInCollectionZeroWithTheirKinds()
{
    QCOMPARE(ItunesAgentLoad(), int(ITA_BACKEND_XML));
    // The master and hidden playlists are left out; the ringtones playlist
    // comes last because this library has none of its own.
    const QStringList names{"Music",     "Movies", "TV Shows", "Podcasts", "Purchased",
                            "iTunes DJ", "Genius", "Odd Kind", "Ringtones"};
    QCOMPARE(fx::playlistNames(ITA_COLLECTION_LIBRARY), names);
    const QList<int> kinds{4, 2, 3, 10, 19, 22, 26, 7, 55};
    for (int i = 0; i < kinds.size(); ++i)
        QCOMPARE(fx::playlistKind(ITA_COLLECTION_LIBRARY, i), kinds[i]);
}

void TestItunesAgentXml::shouldListUserPlaylistsFoldersAndSmartOnesInCollectionTwo()
{
    const QStringList names{"Road Trip", "Recently Added", "Mixes", "Mix A", "Mix B", "Dangling"};
    QCOMPARE(fx::playlistNames(ITA_COLLECTION_PLAYLISTS), names);
    for (int i = 0; i < names.size(); ++i)
        QCOMPARE(fx::playlistKind(ITA_COLLECTION_PLAYLISTS, i), int(ITA_KIND_USER));
    QCOMPARE(fx::titlesOf(ITA_COLLECTION_PLAYLISTS, 0),
             QStringList({"Beat It", "Yesterday", "3 A.M."}));
    QCOMPARE(fx::titlesOf(ITA_COLLECTION_PLAYLISTS, 1), QStringList({"Something"}));
}

void TestItunesAgentXml::shouldLeaveCollectionOneEmpty()
{
    QCOMPARE(GetPlaylistCount(ITA_COLLECTION_OTHER), 0);
    QCOMPARE(OpenPlaylist(ITA_COLLECTION_OTHER, 0), nullptr);
}

void TestItunesAgentXml::shouldReadSongsWithDecodedLocations()
{
    const QList<fx::Song> music = fx::songsOf(ITA_COLLECTION_LIBRARY, 0);
    QCOMPARE(music.size(), 7);
    QCOMPARE(music[0].title, QString("3 A.M."));
    QCOMPARE(music[0].artist, QString("Eminem"));
    QCOMPARE(music[0].album, QString("Relapse"));
    QCOMPARE(music[0].location, m_tracks[0].path);
    QCOMPARE(music[0].video, 0);
    // Non-ASCII letters, spaces, brackets, '#' and '%' come back decoded,
    // from a "file:///" URL as from a "file://localhost/" one.
    QCOMPARE(music[1].title, QString::fromUtf8("Jóga"));
    QCOMPARE(music[1].artist, QString::fromUtf8("Björk"));
    QCOMPARE(music[1].location, m_tracks[1].path);
    QVERIFY(music[1].location.endsWith(QString::fromUtf8("02 Jóga [live] #1 100%.mp3")));
    QCOMPARE(music[6].title, QString("Song & <Dance>"));
    QCOMPARE(music[6].album, QString("Q&A"));

    const QList<fx::Song> movies = fx::songsOf(ITA_COLLECTION_LIBRARY, 1);
    QCOMPARE(movies.size(), 1);
    QCOMPARE(movies[0].title, QString("Clip"));
    QCOMPARE(movies[0].video, 1);
}

void TestItunesAgentXml::shouldTakeTheFileNameWhenATrackHasNoName()
{
    const QList<fx::Song> music = fx::songsOf(ITA_COLLECTION_LIBRARY, 0);
    QCOMPARE(music[2].title, QString("Nameless Track"));
    QCOMPARE(music[2].album, QString("Untitled Album"));
}

void TestItunesAgentXml::shouldReportZeroSizeForAnEmptyArtist()
{
    void* h = OpenPlaylist(ITA_COLLECTION_LIBRARY, 0);
    QVERIFY(h);
    tagSongInfo info = {};
    info.nArtistSize = 99;
    QCOMPARE(GetSongInfo(h, 2, &info), int(ITA_OK));
    QCOMPARE(info.nArtistSize, 0);
    QVERIFY(info.nTitleSize > 0);
    QCOMPARE(ClosePlaylist(h), int(ITA_OK));
}

void TestItunesAgentXml::shouldFillSizesFirstAndTextsSecond()
{
    void* h = OpenPlaylist(ITA_COLLECTION_LIBRARY, 0);
    QVERIFY(h);
    tagSongInfo info = {};
    QCOMPARE(GetSongInfo(h, 1, &info), int(ITA_OK));
    QCOMPARE(info.nTitleSize, int(QString::fromUtf8("Jóga").toUtf8().size()) + 1);
    QCOMPARE(info.nArtistSize, int(QString::fromUtf8("Björk").toUtf8().size()) + 1);
    QCOMPARE(info.nAlbumSize, 10);
    QCOMPARE(info.nLocationSize, int(m_tracks[1].path.toUtf8().size()) + 1);
    QVERIFY(!info.pszTitle && !info.pszArtist);

    std::vector<char> title(info.nTitleSize, 'x'), artist(info.nArtistSize, 'x');
    info.pszTitle = title.data();
    info.pszArtist = artist.data();
    info.bVideo = 7;
    QCOMPARE(GetSongInfo(h, 1, &info), int(ITA_OK));
    QCOMPARE(QString::fromUtf8(title.data()), QString::fromUtf8("Jóga"));
    QCOMPARE(QString::fromUtf8(artist.data()), QString::fromUtf8("Björk"));
    QCOMPARE(info.bVideo, 0);
    // Fields left without a buffer get their sizes again.
    QCOMPARE(info.nAlbumSize, 10);
    ClosePlaylist(h);
}

void TestItunesAgentXml::shouldTerminateATextCutByASmallBuffer()
{
    void* h = OpenPlaylist(ITA_COLLECTION_LIBRARY, 0);
    char title[4] = {'x', 'x', 'x', 'x'};
    tagSongInfo info = {};
    info.pszTitle = title;
    info.nTitleSize = sizeof title;
    QCOMPARE(GetSongInfo(h, 0, &info), int(ITA_OK));
    QCOMPARE(QByteArray(title), QByteArray("3 A"));
    ClosePlaylist(h);
}

void TestItunesAgentXml::shouldGiveManyTitlesInOneCall()
{
    void* h = OpenPlaylist(ITA_COLLECTION_LIBRARY, 0);
    QVERIFY(h);
    const QList<fx::Song> songs = fx::songsOf(ITA_COLLECTION_LIBRARY, 0);
    const int count = GetSongCount(h);
    QCOMPARE(count, songs.size());
    QVERIFY(count >= 3);
    // Each title as GetSongInfo gives it, with its terminator, one after
    // another; the first pass says how many bytes.
    QByteArray expected;
    for (const fx::Song& song : songs)
        expected += song.title.toUtf8() + '\0';
    QCOMPARE(GetSongTitles(h, 0, count, nullptr, 0), int(expected.size()));
    QByteArray titles(expected.size(), 'x');
    QCOMPARE(GetSongTitles(h, 0, count, titles.data(), int(titles.size())), int(expected.size()));
    QCOMPARE(titles, expected);

    // A slice: songs 1 and 2.
    const QByteArray slice = songs[1].title.toUtf8() + '\0' + songs[2].title.toUtf8() + '\0';
    QCOMPARE(GetSongTitles(h, 1, 2, nullptr, 0), int(slice.size()));
    // A buffer too small for the second title takes the first one whole and
    // nothing of the second.
    QByteArray cut(slice.size() - 1, 'x');
    const int first = int(songs[1].title.toUtf8().size()) + 1;
    QCOMPARE(GetSongTitles(h, 1, 2, cut.data(), int(cut.size())), first);
    QCOMPARE(cut.left(first), slice.left(first));
    QCOMPARE(cut.mid(first), QByteArray(cut.size() - first, 'x'));
    // No songs: no bytes.
    QCOMPARE(GetSongTitles(h, count, 0, nullptr, 0), 0);

    // Songs out of range, a negative size, a handle that is not open.
    QCOMPARE(GetSongTitles(h, -1, 1, nullptr, 0), int(ITA_E_ARGUMENT));
    QCOMPARE(GetSongTitles(h, 0, count + 1, nullptr, 0), int(ITA_E_ARGUMENT));
    QCOMPARE(GetSongTitles(h, count, 1, nullptr, 0), int(ITA_E_ARGUMENT));
    QCOMPARE(GetSongTitles(h, 0, -1, nullptr, 0), int(ITA_E_ARGUMENT));
    QCOMPARE(GetSongTitles(h, 0, 1, titles.data(), -1), int(ITA_E_ARGUMENT));
    QCOMPARE(ClosePlaylist(h), int(ITA_OK));
    QCOMPARE(GetSongTitles(h, 0, 1, nullptr, 0), int(ITA_E_HANDLE));
    QCOMPARE(GetSongTitles(nullptr, 0, 1, nullptr, 0), int(ITA_E_HANDLE));

    // Through the whole library's handle a search hands out, too.
    struct Seen
    {
        QStringList titles;
        QStringList infos;
    } seen;
    tagSongInfo query = {};
    char text[] = "o";
    query.pszTitle = text;
    query.nTitleSize = sizeof text;
    SearchSong(
        &query,
        [](const void* playlist, int song, void* user) {
            auto* found = static_cast<Seen*>(user);
            char title[256] = {};
            GetSongTitles(playlist, song, 1, title, sizeof title);
            found->titles << QString::fromUtf8(title);
            found->infos << fx::songOf(playlist, song).title;
            return 1;
        },
        &seen);
    QVERIFY(!seen.titles.isEmpty());
    QCOMPARE(seen.titles, seen.infos);
}

void TestItunesAgentXml::shouldListTheSongsOfAFolderFromItsPlaylists()
{
    const int mixes = fx::findPlaylist(ITA_COLLECTION_PLAYLISTS, "Mixes");
    QVERIFY(mixes >= 0);
    // Each song once, in the order the child playlists name them.
    QCOMPARE(fx::titlesOf(ITA_COLLECTION_PLAYLISTS, mixes),
             QStringList({"Yesterday", "Something", "Beat It"}));
}

void TestItunesAgentXml::shouldLeaveOutItemsOfUnknownTracks()
{
    const int dangling = fx::findPlaylist(ITA_COLLECTION_PLAYLISTS, "Dangling");
    QCOMPARE(fx::titlesOf(ITA_COLLECTION_PLAYLISTS, dangling), QStringList({"3 A.M."}));
    QVERIFY(fx::loggedLine("1 playlist items name no known track"));
}

void TestItunesAgentXml::shouldRefuseClosedAndMadeUpHandles()
{
    void* h = OpenPlaylist(ITA_COLLECTION_LIBRARY, 0);
    QVERIFY(h);
    QCOMPARE(GetSongCount(h), 7);
    void* art = OpenArtwork(h, 0);
    QVERIFY(art);
    QCOMPARE(ClosePlaylist(h), int(ITA_OK));
    fx::verifyClosedAndMadeUpHandlesRefused(h, 0, art);
}

void TestItunesAgentXml::shouldRefuseOutOfRangePositions_data()
{
    QTest::addColumn<int>("collection");
    QTest::addColumn<int>("position");
    QTest::newRow("negative position") << 0 << -1;
    QTest::newRow("past the last playlist") << 0 << 9;
    QTest::newRow("far past the last") << 2 << 1000000;
    QTest::newRow("collection 3") << 3 << 0;
    QTest::newRow("negative collection") << -1 << 0;
}

void TestItunesAgentXml::shouldRefuseOutOfRangePositions()
{
    QFETCH(int, collection);
    QFETCH(int, position);
    fx::verifyOutOfRangeRefused(collection, position, 7, 0);
}

void TestItunesAgentXml::shouldSearchFieldsCaseInsensitivelyInLibraryOrder_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("artist");
    QTest::addColumn<QString>("album");
    QTest::addColumn<QStringList>("hits");
    QTest::newRow("title") << "beat"
                           << ""
                           << "" << QStringList{"Beat It"};
    QTest::newRow("artist in capitals") << ""
                                        << "BEATLES"
                                        << "" << QStringList{"Yesterday", "Something"};
    QTest::newRow("album") << ""
                           << ""
                           << "road" << QStringList{"Something"};
    QTest::newRow("title or album") << "HELP"
                                    << ""
                                    << "help" << QStringList{"Yesterday"};
    QTest::newRow("non-ASCII artist")
        << "" << QString::fromUtf8("BJÖRK") << "" << QStringList{QString::fromUtf8("Jóga")};
    QTest::newRow("non-ASCII title") << QString::fromUtf8("JÓGA") << ""
                                     << "" << QStringList{QString::fromUtf8("Jóga")};
    QTest::newRow("two fields, one hit") << "something"
                                         << ""
                                         << "abbey" << QStringList{"Something"};
    QTest::newRow("several fields, library order")
        << "3 a.m."
        << "michael"
        << "help" << QStringList{"3 A.M.", "Yesterday", "Beat It"};
    QTest::newRow("markup characters") << "& <dance>"
                                       << ""
                                       << "" << QStringList{"Song & <Dance>"};
    QTest::newRow("title from the file name") << "nameless"
                                              << ""
                                              << "" << QStringList{"Nameless Track"};
    QTest::newRow("no match") << "zzz"
                              << ""
                              << "" << QStringList{};
    QTest::newRow("empty query") << ""
                                 << ""
                                 << "" << QStringList{};
}

void TestItunesAgentXml::shouldSearchFieldsCaseInsensitivelyInLibraryOrder()
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
    QCOMPARE(SearchSong(&query, &fx::collectHit, &found), int(hits.size()));
    QCOMPARE(found.titles, hits);
}

void TestItunesAgentXml::shouldReadAnArtistQueryUpToItsSize()
{
    // No terminator: the size alone ends the text.
    char artist[7] = {'b', 'e', 'a', 't', 'l', 'e', 's'};
    char trailing[] = "beatlesXYZ";
    tagSongInfo query = {};
    query.pszArtist = artist;
    query.nArtistSize = sizeof artist;
    fx::SearchHits found;
    QCOMPARE(SearchSong(&query, &fx::collectHit, &found), 2);
    QCOMPARE(found.titles, QStringList({"Yesterday", "Something"}));

    query.pszArtist = trailing;
    fx::SearchHits again;
    QCOMPARE(SearchSong(&query, &fx::collectHit, &again), 2);
}

void TestItunesAgentXml::shouldStopSearchingWhenTheCallbackSaysSo()
{
    char album[] = "e";
    tagSongInfo query = {};
    query.pszAlbum = album;
    query.nAlbumSize = sizeof album;
    fx::SearchHits all;
    const int total = SearchSong(&query, &fx::collectHit, &all);
    QVERIFY(total >= 3);
    fx::SearchHits first;
    first.stopAfter = 2;
    QCOMPARE(SearchSong(&query, &fx::collectHit, &first), 2);
    QCOMPARE(first.titles, all.titles.mid(0, 2));
}

void TestItunesAgentXml::shouldRefuseASearchWithoutQueryOrCallback()
{
    tagSongInfo query = {};
    fx::SearchHits found;
    QCOMPARE(SearchSong(nullptr, &fx::collectHit, &found), int(ITA_E_ARGUMENT));
    QCOMPARE(SearchSong(&query, nullptr, &found), int(ITA_E_ARGUMENT));
}

void TestItunesAgentXml::shouldReadArtworkFromTheTracksFile()
{
    void* h = OpenPlaylist(ITA_COLLECTION_LIBRARY, 0);
    void* art = OpenArtwork(h, 0);
    QVERIFY(art);
    QCOMPARE(GetArtworkCount(art), 1);
    tagArtworkInfo info = {};
    QCOMPARE(GetArtworkInfo(art, 0, &info), int(ITA_OK));
    QCOMPARE(info.nDataSize, int(m_cover.size()));
    QByteArray data(info.nDataSize, '\0');
    info.pData = data.data();
    QCOMPARE(GetArtworkInfo(art, 0, &info), int(ITA_OK));
    QCOMPARE(data, m_cover);
    QCOMPARE(QImage::fromData(data).size(), QSize(40, 30));
    CloseArtwork(art);

    // The library names a picture, but the file is not there: an empty
    // artwork, and no second try.
    void* missing = OpenArtwork(h, 4);
    QVERIFY(missing);
    QCOMPARE(GetArtworkCount(missing), 0);
    CloseArtwork(missing);
    QCOMPARE(OpenArtwork(h, 4), nullptr);
    ClosePlaylist(h);
}

void TestItunesAgentXml::shouldOpenNoArtworkForATrackKnownToHaveNone()
{
    void* h = OpenPlaylist(ITA_COLLECTION_LIBRARY, 0);
    QCOMPARE(OpenArtwork(h, 2), nullptr); // "Artwork Count" 0
    ClosePlaylist(h);
}

void TestItunesAgentXml::shouldRefuseOpeningPlaylistsBeyondTheHandleLimit()
{
    QCOMPARE(ItunesAgentSetHandleLimit(3), 65536);
    void* a = OpenPlaylist(0, 0);
    void* b = OpenPlaylist(0, 1);
    void* c = OpenPlaylist(0, 2);
    QVERIFY(a && b && c);
    QCOMPARE(OpenPlaylist(0, 3), nullptr);
    QVERIFY(fx::loggedLine("3 handles are open"));
    QCOMPARE(GetPlaylistName(0, 3, nullptr, 0), int(strlen("Podcasts")) + 1);
    ClosePlaylist(b);
    void* d = OpenPlaylist(0, 3);
    QVERIFY(d);
    QCOMPARE(GetPlaylistKind(d), 10);
    ClosePlaylist(a);
    ClosePlaylist(c);
    ClosePlaylist(d);
    QCOMPARE(ItunesAgentSetHandleLimit(0), 3);
}

void TestItunesAgentXml::shouldKeepOnlyTheNewestArtworkHandles()
{
    void* h = OpenPlaylist(ITA_COLLECTION_LIBRARY, 0);
    std::vector<void*> handles;
    for (int i = 0; i < 65; ++i)
        handles.push_back(OpenArtwork(h, 0));
    QCOMPARE(GetArtworkCount(handles.front()), int(ITA_E_HANDLE));
    QCOMPARE(GetArtworkCount(handles[1]), 1);
    QCOMPARE(GetArtworkCount(handles.back()), 1);
    for (void* art : handles)
        CloseArtwork(art);
    ClosePlaylist(h);
}

void TestItunesAgentXml::shouldCountCallsAndForgetEverythingOnReset()
{
    void* h = OpenPlaylist(0, 0);
    fx::songOf(h, 0);
    QCOMPARE(ItunesAgentCallCount("GetSongInfo"), 2ul);
    QCOMPARE(ItunesAgentCallCount("OpenPlaylist"), 1ul);
    QCOMPARE(ItunesAgentCallCount(nullptr), 3ul);
    QCOMPARE(ItunesAgentCallCount("NoSuchCall"), 0ul);
    QCOMPARE(ItunesAgentBackend(), int(ITA_BACKEND_XML));

    ItunesAgentReset();
    QCOMPARE(ItunesAgentBackend(), int(ITA_BACKEND_NONE));
    QCOMPARE(ItunesAgentCallCount(nullptr), 0ul);
    QCOMPARE(GetSongCount(h), int(ITA_E_HANDLE));          // opened before the reset
    QCOMPARE(GetPlaylistCount(ITA_COLLECTION_LIBRARY), 9); // loads the library again
    QCOMPARE(ItunesAgentBackend(), int(ITA_BACKEND_XML));
}

void TestItunesAgentXml::shouldReadEveryKindOfPlaylistWithWindowsLocations()
{
    fx::useXmlLibrary(tw::testData("library-kinds.xml"));
    QCOMPARE(ItunesAgentLoad(), int(ITA_BACKEND_XML));
    // The master and the hidden playlist are left out; the library's own
    // ringtones playlist is the one served.
    QCOMPARE(fx::playlistNames(ITA_COLLECTION_LIBRARY),
             QStringList({"Music", "Movies", "TV Shows", "Podcasts", "Purchased", "Genius",
                          "iTunes DJ", "Ringtones"}));
    const QList<int> kinds{4, 2, 3, 10, 19, 26, 22, 55};
    for (int i = 0; i < kinds.size(); ++i)
        QCOMPARE(fx::playlistKind(ITA_COLLECTION_LIBRARY, i), kinds[i]);
    QCOMPARE(GetPlaylistCount(ITA_COLLECTION_OTHER), 0);
    QCOMPARE(fx::playlistNames(ITA_COLLECTION_PLAYLISTS),
             QStringList({QString::fromUtf8("90’s Music"), "Recently Added", "Road Trip", "Summer",
                          "Beach"}));
    for (int i = 0; i < 5; ++i)
        QCOMPARE(fx::playlistKind(ITA_COLLECTION_PLAYLISTS, i), 0);

    // Locations: the drive letter kept, percent escapes and entities decoded.
    const QList<fx::Song> music = fx::songsOf(ITA_COLLECTION_LIBRARY, 0);
    QCOMPARE(fx::titlesOf(music),
             QStringList({"Morning Light", "Tide & Stone", QString::fromUtf8("Café [Live]"),
                          "Weekly Talk", "Bought Song"}));
    QCOMPARE(music[1].location,
             QString("C:/Users/Public/Music/Ana Ruiz/Coastline/02 Tide & Stone.mp3"));
    QCOMPARE(music[2].location,
             QString::fromUtf8("C:/Users/Public/Music/Les Quatre/Café [Live].m4a"));
    QCOMPARE(music[2].artist, QString("Les Quatre"));
    QCOMPARE(fx::songsOf(ITA_COLLECTION_LIBRARY, 1)[0].video, 1);
    QCOMPARE(fx::songsOf(ITA_COLLECTION_LIBRARY, 2)[0].video, 1);
    QCOMPARE(music[0].video, 0);
    QCOMPARE(fx::titlesOf(ITA_COLLECTION_LIBRARY, 5), QStringList()); // Genius, empty
    QCOMPARE(fx::titlesOf(ITA_COLLECTION_LIBRARY, 7), QStringList({"Old Bell"}));
    // Playlist order is the file's, not the library's.
    QCOMPARE(fx::titlesOf(ITA_COLLECTION_PLAYLISTS, 1),
             QStringList({"Bought Song", "Weekly Talk"}));
    QCOMPARE(fx::titlesOf(ITA_COLLECTION_PLAYLISTS, 2),
             QStringList({QString::fromUtf8("Café [Live]"), "Morning Light"}));
    // A folder lists the songs of the playlists inside it.
    QCOMPARE(fx::titlesOf(ITA_COLLECTION_PLAYLISTS, 3), QStringList({"Tide & Stone"}));
    QCOMPARE(fx::titlesOf(ITA_COLLECTION_PLAYLISTS, 4), QStringList({"Tide & Stone"}));
}

void TestItunesAgentXml::shouldGiveNoFileForALocationWithANulByte()
{
    // "a.mp3" exists, with a cover; the library names "a.mp3%00.txt", which
    // C strings would cut back to "a.mp3". Its music folder names
    // "media%00x", cut back to "media", which holds the folder ringtones
    // would go to.
    const QString real = m_dir.filePath("nul/a.mp3");
    QVERIFY(fx::makeAudio(real, {"-c:a", "libmp3lame", "-b:a", "64k"}));
    QVERIFY(fx::addPicture(real, m_cover, "image/jpeg"));
    const QString media = m_dir.filePath("nul/media");
    QVERIFY(QDir().mkpath(media + "/Automatically Add to iTunes"));
    fx::XmlTrack named;
    named.id = 1;
    named.name = "Real";
    named.path = real;
    fx::XmlTrack hostile = named;
    hostile.id = 2;
    hostile.name = "Hostile";
    hostile.path = real + ".HOSTILE";
    fx::XmlPlaylist music;
    music.name = "Music";
    music.kind = ITA_KIND_MUSIC;
    music.items = {1, 2};
    QByteArray xml = fx::libraryXml(media + ".HOSTILE", {named, hostile}, {music});
    xml.replace(".HOSTILE/", "%00x/").replace(".HOSTILE<", "%00.txt<");
    QVERIFY(xml.contains("a.mp3%00.txt</string>"));
    QVERIFY(xml.contains("media%00x/</string>"));
    fx::useXmlLibrary(writeLibrary("nul.xml", xml));

    // The track stays, with no file: no location, and no artwork read from
    // anywhere. The other track names the same file and gets it.
    const QList<fx::Song> songs = fx::songsOf(ITA_COLLECTION_LIBRARY, 0);
    QCOMPARE(songs.size(), 2);
    QCOMPARE(songs[0].location, real);
    QCOMPARE(songs[1].title, QString("Hostile"));
    QCOMPARE(songs[1].location, QString());
    void* h = OpenPlaylist(ITA_COLLECTION_LIBRARY, 0);
    QVERIFY(h);
    tagSongInfo info = {};
    QCOMPARE(GetSongInfo(h, 1, &info), int(ITA_OK));
    QCOMPARE(info.nLocationSize, 0);
    QCOMPARE(OpenArtwork(h, 1), nullptr);
    QCOMPARE(fx::artworkOf(h, 0), QList<QByteArray>({m_cover}));
    ClosePlaylist(h);
    QVERIFY2(fx::loggedLine("library file: 1 track locations name no usable path"),
             qPrintable(fx::agentLines().join('\n')));

    // Ringtones do not go under the cut-back music folder.
    char dir[1024];
    QVERIFY(ItunesAgentGetRingtoneDir(dir, sizeof dir) > 0);
    QCOMPARE(QString::fromUtf8(dir),
             QStandardPaths::writableLocation(QStandardPaths::MusicLocation) + "/Ringtones");
}

void TestItunesAgentXml::shouldReadTheRealMacLibrary()
{
    TW_SHARED_DATA_OR_SKIP(mac, "itunes-library-mac.xml");
    fx::useXmlLibrary(mac);
    QCOMPARE(ItunesAgentLoad(), int(ITA_BACKEND_XML));
    QCOMPARE(fx::playlistNames(ITA_COLLECTION_LIBRARY),
             QStringList(
                 {"Music", "Movies", "TV Shows", "Podcasts", "Genius", "iTunes DJ", "Ringtones"}));
    const QList<int> kinds{4, 2, 3, 10, 26, 22, 55};
    for (int i = 0; i < kinds.size(); ++i)
        QCOMPARE(fx::playlistKind(ITA_COLLECTION_LIBRARY, i), kinds[i]);
    QCOMPARE(
        fx::playlistNames(ITA_COLLECTION_PLAYLISTS),
        QStringList({QString::fromUtf8("90’s Music"), "Classical Music", "Music Videos",
                     "My Top Rated", "Recently Added", "Recently Played", "Top 25 Most Played"}));

    const QList<fx::Song> music = fx::songsOf(ITA_COLLECTION_LIBRARY, 0);
    QCOMPARE(music.size(), 21);
    QCOMPARE(music[0].title, QString("People Are Crazy"));
    QCOMPARE(fx::songsOf(ITA_COLLECTION_LIBRARY, 1).size(), 2);
    QCOMPARE(fx::songsOf(ITA_COLLECTION_LIBRARY, 3).size(), 32);
    QCOMPARE(fx::songsOf(ITA_COLLECTION_LIBRARY, 2).size(), 0);
    QCOMPARE(fx::titlesOf(ITA_COLLECTION_PLAYLISTS, 0),
             QStringList({"Point Blank", "Don't Let Our Love Start Slippin' Away"}));

    // Library order is the order of the "Tracks" dictionary.
    char eminem[] = "eminem";
    tagSongInfo query = {};
    query.pszArtist = eminem;
    query.nArtistSize = sizeof eminem;
    fx::SearchHits found;
    QCOMPARE(SearchSong(&query, &fx::collectHit, &found), 2);
    QCOMPARE(found.titles, QStringList({"3 A.M. [Explicit]", "Beautiful [Explicit]"}));

    // Titles or albums holding "the".
    char the[] = "the";
    tagSongInfo titleOrAlbum = {};
    titleOrAlbum.pszTitle = the;
    titleOrAlbum.nTitleSize = sizeof the;
    titleOrAlbum.pszAlbum = the;
    titleOrAlbum.nAlbumSize = sizeof the;
    fx::SearchHits theHits;
    QCOMPARE(SearchSong(&titleOrAlbum, &fx::collectHit, &theHits), 34);

    // The first track: entities and percent escapes decoded.

    struct First
    {
        fx::Song song;
    } first;
    char explicitTitle[] = "3 A.M. [Explicit]";
    tagSongInfo byTitle = {};
    byTitle.pszTitle = explicitTitle;
    byTitle.nTitleSize = sizeof explicitTitle;
    SearchSong(
        &byTitle,
        [](const void* playlist, int song, void* user) {
            static_cast<First*>(user)->song = fx::songOf(playlist, song);
            return 0;
        },
        &first);
    QCOMPARE(first.song.location,
             QString("/Users/cervantes_vive/Music/iTunes/iTunes Music/Eminem/3 A.M. [Explicit]/"
                     "01 3 A.M. [Explicit].mp3"));
    QCOMPARE(first.song.artist, QString("Eminem"));

    // Video podcasts carry "Has Video".
    int videos = 0;
    for (const fx::Song& s : fx::songsOf(ITA_COLLECTION_LIBRARY, 3))
        videos += s.video;
    QVERIFY(videos > 0);
    for (const fx::Song& s : fx::songsOf(ITA_COLLECTION_LIBRARY, 1))
        QCOMPARE(s.video, 1);
}

void TestItunesAgentXml::shouldReadTheRealWindowsLibrary()
{
    TW_SHARED_DATA_OR_SKIP(windows, "itunes-library-windows.xml");
    fx::useXmlLibrary(windows);
    QCOMPARE(ItunesAgentLoad(), int(ITA_BACKEND_XML));
    const QList<fx::Song> music = fx::songsOf(ITA_COLLECTION_LIBRARY, 0);
    QCOMPARE(music.size(), 6);
    QCOMPARE(music[0].title, QString("Sleep Away"));
    QCOMPARE(music[1].title,
             QString("Run This Town [Jay-Z, Rihanna, & Kanye West] (Explicit Album Version)"));
    bool kalimba = false;
    for (const fx::Song& s : music)
        kalimba = kalimba || s.location == "C:/Users/Public/Music/Sample Music/Kalimba.mp3";
    QVERIFY(kalimba);
    const int classical = fx::findPlaylist(ITA_COLLECTION_PLAYLISTS, "Classical Music");
    QCOMPARE(fx::titlesOf(ITA_COLLECTION_PLAYLISTS, classical),
             QStringList({"Maid with the Flaxen Hair"}));
}

void TestItunesAgentXml::shouldFindTheLibraryFileUnderTheMusicFolder_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("older name") << "iTunes/iTunes Music Library.xml";
    QTest::newRow("newer name") << "iTunes/iTunes Library.xml";
}

void TestItunesAgentXml::shouldFindTheLibraryFileUnderTheMusicFolder()
{
    QFETCH(QString, name);
    const QString path =
        QStandardPaths::writableLocation(QStandardPaths::MusicLocation) + "/" + name;
    QVERIFY(path.startsWith(tw::testHome()));
    QVERIFY(fx::writeFile(path, fx::readFile(tw::testData("library-kinds.xml"))));
    fx::useFolderLibrary(); // no TONEWRIGHT_LIBRARY_XML
    QCOMPARE(ItunesAgentLoad(), int(ITA_BACKEND_XML));
    QCOMPARE(fx::songsOf(ITA_COLLECTION_LIBRARY, 0).size(), 5);
    QVERIFY(QFile::remove(path));
    fx::useFolderLibrary();
    QCOMPARE(ItunesAgentLoad(), int(ITA_BACKEND_FOLDER));
}

TW_TEST_MAIN(TestItunesAgentXml)
#include "tst_itunesagentxml.moc"
