// The iTunes wrapper over the real library agent: collection mapping, the
// two-pass reads into records, album pictures, playlist nodes and icons,
// searches into a song list model, handing ringtones over, and the agent's
// log lines reaching the application's log.

#include "library/ItunesWrap.h"
#include "library/librarynode.h"
#include "library/ringtonemodel.h"
#include "tests/library/libraryfixture.h"

#include <QRegularExpression>
#include <QTest>

class TestItunesWrap : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void shouldShipEveryLibraryIcon_data();
    void shouldShipEveryLibraryIcon();
    void shouldMapGroupsOntoCollections_data();
    void shouldMapGroupsOntoCollections();
    void shouldAnswerZeroWithoutAskingTheAgent_data();
    void shouldAnswerZeroWithoutAskingTheAgent();
    void shouldFillARecordFromTheAgent();
    void shouldLeaveTheArtistAsItWasWhenTheAgentHasNone();
    void shouldLeaveTheRecordAloneWithoutAPlaylist();
    void shouldReadEveryTitleOfAPlaylistThroughOneHandle();
    void shouldReadTitlesLongerThanTheRoomSetAside();
    void shouldGiveNoPathForALocationWithANulByte();
    void shouldLoadTheAlbumPictureAndLeaveItsHandlesOpen();
    void shouldGiveANullPictureAndCloseWhatItOpened();
    void shouldFillAPlaylistNodeWithCaptionPositionAndIcon();
    void shouldRefuseAPlaylistKindWithoutIcon();
    void shouldKeepANodeWithoutIconWhenThePlaylistCannotBeOpened();
    void shouldGiveEveryKnownKindItsIcon_data();
    void shouldGiveEveryKnownKindItsIcon();
    void shouldSearchIntoTheModel_data();
    void shouldSearchIntoTheModel();
    void shouldSearchTitlesAndAlbumsButNotArtistsForAll();
    void shouldRefuseAnUnknownFilterType();
    void shouldAddNothingForANullPlaylist();
    void shouldHandARingtoneToTheLibrary();
    void shouldPassTheAgentsFailureBackAndLogIt();

private:
    QTemporaryDir m_dir;
    lib::Library m_library;
};

static QImage iconImage(const QIcon& icon)
{
    return icon.pixmap(QSize(32, 32)).toImage().convertToFormat(QImage::Format_ARGB32);
}

void TestItunesWrap::initTestCase()
{
    QVERIFY(m_dir.isValid());
    m_library = lib::makeLibrary(m_dir);
    QVERIFY(CItunesWraper::instance());
}

void TestItunesWrap::init()
{
    fx::useXmlLibrary(m_library.xml);
    ItunesAgentLoad();
}

void TestItunesWrap::shouldShipEveryLibraryIcon_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : {"music", "video", "tv_show", "podcasts", "ringtones", "purchase",
                             "genius", "file", "f_music", "f_video"})
        QTest::newRow(name) << QString(":/li/") + name;
}

void TestItunesWrap::shouldShipEveryLibraryIcon()
{
    QFETCH(QString, name);
    const QIcon icon(name);
    QVERIFY(!icon.isNull());
    const QImage image = iconImage(icon);
    QCOMPARE(image.size(), QSize(32, 32));
    // Painted, not blank: some pixels opaque, some clear.
    int opaque = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            opaque += qAlpha(image.pixel(x, y)) > 200 ? 1 : 0;
    QVERIFY2(opaque > 60 && opaque < 32 * 32, qPrintable(QString::number(opaque)));
}

void TestItunesWrap::shouldMapGroupsOntoCollections_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("playlists");
    QTest::addColumn<int>("songsOfFirst");
    QTest::newRow("LT_LIBRARY is collection 0") << int(LT_LIBRARY) << 4 << 5;
    QTest::newRow("LT_COLLECTION1 is collection 1") << int(LT_COLLECTION1) << 0 << -1;
    QTest::newRow("LT_PLAYLISTS is collection 2") << int(LT_PLAYLISTS) << 2 << 2;
}

void TestItunesWrap::shouldMapGroupsOntoCollections()
{
    QFETCH(int, type);
    QFETCH(int, playlists);
    QFETCH(int, songsOfFirst);
    CItunesWraper* wrapper = CItunesWraper::instance();
    QCOMPARE(wrapper->getPlaylistCount(tagLibraryType(type)), playlists);
    // A playlist that cannot be opened passes the agent's failure on.
    QCOMPARE(wrapper->getSongCount(tagLibraryType(type), 0), songsOfFirst);
}

void TestItunesWrap::shouldAnswerZeroWithoutAskingTheAgent_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("LT_ROOT") << int(LT_ROOT);
    QTest::newRow("LT_PLAYLIST") << int(LT_PLAYLIST);
    QTest::newRow("LT_SEARCH") << int(LT_SEARCH);
}

void TestItunesWrap::shouldAnswerZeroWithoutAskingTheAgent()
{
    QFETCH(int, type);
    const unsigned long calls = ItunesAgentCallCount(nullptr);
    QCOMPARE(CItunesWraper::instance()->getSongCount(tagLibraryType(type), 0), 0);
    QCOMPARE(CItunesWraper::instance()->getPlaylistCount(tagLibraryType(type)), 0);
    QCOMPARE(ItunesAgentCallCount(nullptr), calls);
}

void TestItunesWrap::shouldFillARecordFromTheAgent()
{
    CRingToneNode node;
    QPixmap mark(4, 4);
    mark.fill(Qt::green);
    node.pixAlbum = mark;
    node.bLocalFile = 1;
    CItunesWraper::instance()->getSongInfo(LT_LIBRARY, 0, 0, &node);
    QCOMPARE(node.strTitle, QString("Yesterday"));
    QCOMPARE(node.strArtist, QString("The Beatles"));
    QCOMPARE(node.strAlbum, QString("Help!"));
    QCOMPARE(node.strPath, m_library.coveredSong);
    QCOMPARE(node.bVideo, 0);
    // Artwork and the local-file flag are not the wrapper's business here.
    QCOMPARE(node.pixAlbum.size(), QSize(4, 4));
    QCOMPARE(node.bLocalFile, 1);

    CRingToneNode clip;
    CItunesWraper::instance()->getSongInfo(LT_LIBRARY, 1, 0, &clip);
    QCOMPARE(clip.strTitle, QString("Clip"));
    QCOMPARE(clip.bVideo, 1);

    CRingToneNode road;
    CItunesWraper::instance()->getSongInfo(LT_PLAYLISTS, 0, 1, &road);
    QCOMPARE(road.strTitle, QString("Yesterday"));
    // One playlist opened and closed per call, two reads.
    QCOMPARE(ItunesAgentCallCount("OpenPlaylist"), 3ul);
    QCOMPARE(ItunesAgentCallCount("ClosePlaylist"), 3ul);
    QCOMPARE(ItunesAgentCallCount("GetSongInfo"), 6ul);
}

void TestItunesWrap::shouldLeaveTheArtistAsItWasWhenTheAgentHasNone()
{
    CRingToneNode node;
    node.strArtist = "kept";
    CItunesWraper::instance()->getSongInfo(LT_LIBRARY, 0, 4, &node);
    QCOMPARE(node.strTitle, QString("No Artist"));
    QCOMPARE(node.strAlbum, QString("Beatles Covers"));
    QCOMPARE(node.strArtist, QString("kept"));
}

void TestItunesWrap::shouldLeaveTheRecordAloneWithoutAPlaylist()
{
    CRingToneNode node;
    node.strTitle = "untouched";
    node.bVideo = 1;
    CItunesWraper::instance()->getSongInfo(LT_ROOT, 0, 0, &node);
    CItunesWraper::instance()->getSongInfo(LT_LIBRARY, 99, 0, &node);
    QCOMPARE(node.strTitle, QString("untouched"));
    QCOMPARE(node.bVideo, 1);
    // Both paths close handle 0; only the second one tried to open.
    QCOMPARE(ItunesAgentCallCount("ClosePlaylist"), 2ul);
    QCOMPARE(ItunesAgentCallCount("OpenPlaylist"), 1ul);
    QCOMPARE(ItunesAgentCallCount("GetSongInfo"), 0ul);
}

void TestItunesWrap::shouldReadEveryTitleOfAPlaylistThroughOneHandle()
{
    CItunesWraper* wrapper = CItunesWraper::instance();
    const QByteArray titles = wrapper->getSongTitles(LT_LIBRARY, 0);
    const char expected[] = "Yesterday\0Something\0Beat It\0Here Comes the Sun\0No Artist\0";
    QCOMPARE(titles, QByteArray(expected, sizeof expected - 1));
    // One playlist opened and closed, one call for the titles, no song read.
    QCOMPARE(ItunesAgentCallCount("OpenPlaylist"), 1ul);
    QCOMPARE(ItunesAgentCallCount("ClosePlaylist"), 1ul);
    QCOMPARE(ItunesAgentCallCount("GetSongTitles"), 1ul);
    QCOMPARE(ItunesAgentCallCount("GetSongInfo"), 0ul);
    // The same titles as the songs' records.
    const QList<QByteArray> each = titles.split('\0');
    QCOMPARE(each.size(), 6); // and nothing after the last terminator
    for (int song = 0; song < 5; ++song) {
        CRingToneNode node;
        wrapper->getSongInfo(LT_LIBRARY, 0, song, &node);
        QCOMPARE(QString::fromUtf8(each[song]), node.strTitle);
    }
    const char playlist[] = "Beat It\0Yesterday\0";
    QCOMPARE(wrapper->getSongTitles(LT_PLAYLISTS, 0), QByteArray(playlist, sizeof playlist - 1));
    QVERIFY(wrapper->getSongTitles(LT_PLAYLISTS, 1).isEmpty()); // "Empty"

    // Nothing for a type without a collection (the agent is not asked) or a
    // playlist that does not exist.
    const unsigned long calls = ItunesAgentCallCount(nullptr);
    QVERIFY(wrapper->getSongTitles(LT_ROOT, 0).isEmpty());
    QCOMPARE(ItunesAgentCallCount(nullptr), calls);
    QVERIFY(wrapper->getSongTitles(LT_LIBRARY, 99).isEmpty());
}

void TestItunesWrap::shouldReadTitlesLongerThanTheRoomSetAside()
{
    // Titles far longer than usual, between short ones: each is read whole.
    const QString longTitle = QString("very long title ").repeated(800);
    const QString longer = QString::fromUtf8("Jóga ").repeated(4000);
    QList<fx::XmlTrack> tracks;
    tracks << lib::track(1, "Short", "A", "B", m_library.coveredSong)
           << lib::track(2, longTitle, "A", "B", m_library.coveredSong)
           << lib::track(3, "Also short", "A", "B", m_library.coveredSong)
           << lib::track(4, longer, "A", "B", m_library.coveredSong);
    QList<fx::XmlPlaylist> lists;
    lists << lib::playlist("Music", 4, {1, 2, 3, 4});
    const QString path = m_dir.filePath("long titles.xml");
    QVERIFY(fx::writeFile(path, fx::libraryXml(QString(), tracks, lists)));
    fx::useXmlLibrary(path);

    const QByteArray titles = CItunesWraper::instance()->getSongTitles(LT_LIBRARY, 0);
    const QByteArray expected = QByteArray("Short") + '\0' + longTitle.toUtf8() + '\0' +
                                "Also short" + '\0' + longer.toUtf8() + '\0';
    QCOMPARE(titles.size(), expected.size());
    QCOMPARE(titles, expected);
    // A copy that takes "Short" and stops before the long title, a copy
    // that takes nothing, that title's size, and a copy of the rest into
    // the room grown to it.
    QCOMPARE(ItunesAgentCallCount("GetSongTitles"), 4ul);
}

void TestItunesWrap::shouldGiveNoPathForALocationWithANulByte()
{
    // The library names "Yesterday.mp3%00.txt"; "Yesterday.mp3" exists, with
    // a cover, and is what C strings would cut the name back to.
    QList<fx::XmlTrack> tracks;
    tracks << lib::track(1, "Cut Short", "Someone", "Somewhere", m_library.coveredSong + ".CUT");
    QList<fx::XmlPlaylist> lists;
    lists << lib::playlist("Music", 4, {1});
    QByteArray xml = fx::libraryXml(QString(), tracks, lists);
    xml.replace(".CUT<", "%00.txt<");
    QVERIFY(xml.contains("Yesterday.mp3%00.txt</string>"));
    const QString path = m_dir.filePath("cut short.xml");
    QVERIFY(fx::writeFile(path, xml));
    fx::useXmlLibrary(path);

    // The song is listed, with no file to open and no picture.
    CRingToneNode node;
    CItunesWraper::instance()->getSongInfo(LT_LIBRARY, 0, 0, &node);
    QCOMPARE(node.strTitle, QString("Cut Short"));
    QCOMPARE(node.strPath, QString());
    QVERIFY(CItunesWraper::instance()->getAlbumPic(LT_LIBRARY, 0, 0).isNull());
    QCOMPARE(ItunesAgentCallCount("GetArtworkCount"), 0ul);
}

void TestItunesWrap::shouldLoadTheAlbumPictureAndLeaveItsHandlesOpen()
{
    const QPixmap picture = CItunesWraper::instance()->getAlbumPic(LT_LIBRARY, 0, 0);
    QVERIFY(!picture.isNull());
    QCOMPARE(picture.size(), QSize(40, 30));
    const QColor centre = picture.toImage().pixelColor(20, 15);
    QVERIFY(qAbs(centre.red() - 200) < 12 && centre.green() < 60);
    // On success neither handle is closed.
    QCOMPARE(ItunesAgentCallCount("OpenPlaylist"), 1ul);
    QCOMPARE(ItunesAgentCallCount("OpenArtwork"), 1ul);
    QCOMPARE(ItunesAgentCallCount("ClosePlaylist"), 0ul);
    QCOMPARE(ItunesAgentCallCount("CloseArtwork"), 0ul);
}

void TestItunesWrap::shouldGiveANullPictureAndCloseWhatItOpened()
{
    CItunesWraper* wrapper = CItunesWraper::instance();
    // "Something": the library says it has no artwork, so none is opened.
    QVERIFY(wrapper->getAlbumPic(LT_LIBRARY, 0, 1).isNull());
    QCOMPARE(ItunesAgentCallCount("ClosePlaylist"), 1ul);
    QCOMPARE(ItunesAgentCallCount("CloseArtwork"), 0ul);
    // "Beat It": artwork opened, but its file is not there: no pictures.
    QVERIFY(wrapper->getAlbumPic(LT_LIBRARY, 0, 2).isNull());
    QCOMPARE(ItunesAgentCallCount("CloseArtwork"), 1ul);
    QCOMPARE(ItunesAgentCallCount("ClosePlaylist"), 2ul);
    // No collection: handle 0 is closed, nothing is opened.
    QVERIFY(wrapper->getAlbumPic(LT_SEARCH, 0, 0).isNull());
    QCOMPARE(ItunesAgentCallCount("ClosePlaylist"), 3ul);
    QCOMPARE(ItunesAgentCallCount("OpenPlaylist"), 2ul);
}

void TestItunesWrap::shouldFillAPlaylistNodeWithCaptionPositionAndIcon()
{
    CLibraryNode node(LT_PLAYLIST, QString());
    QCOMPARE(CItunesWraper::instance()->getPlaylistNode(LT_LIBRARY, 1, &node), 0);
    QCOMPARE(node.caption, QString("Movies"));
    QCOMPARE(node.position, 1);
    QVERIFY(!node.icon.isNull());
    QCOMPARE(iconImage(node.icon), iconImage(QIcon(":/li/video")));

    CLibraryNode mine(LT_PLAYLIST, QString());
    QCOMPARE(CItunesWraper::instance()->getPlaylistNode(LT_PLAYLISTS, 1, &mine), 0);
    QCOMPARE(mine.caption, QString("Empty"));
    QCOMPARE(iconImage(mine.icon), iconImage(QIcon(":/li/file")));

    CLibraryNode none(LT_PLAYLIST, QString("as it was"));
    QCOMPARE(CItunesWraper::instance()->getPlaylistNode(LT_SEARCH, 0, &none), -1);
    QCOMPARE(none.caption, QString("as it was"));
}

void TestItunesWrap::shouldRefuseAPlaylistKindWithoutIcon()
{
    CLibraryNode node(LT_PLAYLIST, QString());
    QCOMPARE(CItunesWraper::instance()->getPlaylistNode(LT_LIBRARY, 2, &node), -2);
    QCOMPARE(node.caption, QString("Odd Kind"));
    QVERIFY(node.icon.isNull());
}

void TestItunesWrap::shouldKeepANodeWithoutIconWhenThePlaylistCannotBeOpened()
{
    ItunesAgentSetHandleLimit(1);
    void* held = OpenPlaylist(ITA_COLLECTION_LIBRARY, 0);
    QVERIFY(held);
    CLibraryNode node(LT_PLAYLIST, QString());
    QCOMPARE(CItunesWraper::instance()->getPlaylistNode(LT_LIBRARY, 0, &node), 0);
    QCOMPARE(node.caption, QString("Music"));
    QCOMPARE(node.position, 0);
    QVERIFY(node.icon.isNull());
    ClosePlaylist(held);
    ItunesAgentSetHandleLimit(0);
}

void TestItunesWrap::shouldGiveEveryKnownKindItsIcon_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("icon");
    // The kinds fixture holds a playlist of every distinguished kind.
    QTest::newRow("4 music") << int(LT_LIBRARY) << "Music"
                             << ":/li/music";
    QTest::newRow("2 movies") << int(LT_LIBRARY) << "Movies"
                              << ":/li/video";
    QTest::newRow("3 TV shows") << int(LT_LIBRARY) << "TV Shows"
                                << ":/li/tv_show";
    QTest::newRow("10 podcasts") << int(LT_LIBRARY) << "Podcasts"
                                 << ":/li/podcasts";
    QTest::newRow("19 purchased") << int(LT_LIBRARY) << "Purchased"
                                  << ":/li/purchase";
    QTest::newRow("26 genius") << int(LT_LIBRARY) << "Genius"
                               << ":/li/genius";
    QTest::newRow("22 DJ") << int(LT_LIBRARY) << "iTunes DJ"
                           << ":/li/file";
    QTest::newRow("55 ringtones") << int(LT_LIBRARY) << "Ringtones"
                                  << ":/li/ringtones";
    QTest::newRow("0 a smart playlist") << int(LT_PLAYLISTS) << "Recently Added"
                                        << ":/li/file";
}

void TestItunesWrap::shouldGiveEveryKnownKindItsIcon()
{
    QFETCH(int, type);
    QFETCH(QString, caption);
    QFETCH(QString, icon);
    fx::useXmlLibrary(tw::testData("library-kinds.xml"));
    const int collection = type == LT_LIBRARY ? 0 : 2;
    const int position = fx::findPlaylist(collection, caption);
    QVERIFY(position >= 0);
    CLibraryNode node(LT_PLAYLIST, QString());
    QCOMPARE(CItunesWraper::instance()->getPlaylistNode(tagLibraryType(type), position, &node), 0);
    QCOMPARE(node.caption, caption);
    QCOMPARE(iconImage(node.icon), iconImage(QIcon(icon)));
}

void TestItunesWrap::shouldSearchIntoTheModel_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("type");
    QTest::addColumn<QStringList>("titles");
    QTest::newRow("title") << "beat" << int(FT_TITLE) << QStringList{"Beat It"};
    QTest::newRow("artist in capitals")
        << "BEATLES" << int(FT_ARTIST) << QStringList{"Yesterday", "Something"};
    QTest::newRow("album") << "abbey" << int(FT_ALBUM)
                           << QStringList{"Something", "Here Comes the Sun"};
    QTest::newRow("all: title or album")
        << "beat" << int(FT_ALL) << QStringList{"Beat It", "No Artist"};
    QTest::newRow("nothing") << "zzz" << int(FT_ALL) << QStringList{};
}

void TestItunesWrap::shouldSearchIntoTheModel()
{
    QFETCH(QString, text);
    QFETCH(int, type);
    QFETCH(QStringList, titles);
    CRingToneModel model;
    QCOMPARE(CItunesWraper::instance()->SearchSong(text, FilterType(type), &model), 1);
    QCOMPARE(model.rowCount(), titles.size());
    for (int row = 0; row < titles.size(); ++row) {
        const CRingToneNode node = model.nodeFromIndex(model.index(row, 0));
        QCOMPARE(node.strTitle, titles[row]);
        QCOMPARE(node.bLocalFile, 0);
    }
}

void TestItunesWrap::shouldSearchTitlesAndAlbumsButNotArtistsForAll()
{
    CRingToneModel model;
    // "Michael" is only an artist: "All" does not find it, "Artist" does.
    CItunesWraper::instance()->SearchSong("Michael", FT_ALL, &model);
    QCOMPARE(model.rowCount(), 0);
    CItunesWraper::instance()->SearchSong("Michael", FT_ARTIST, &model);
    QCOMPARE(model.rowCount(), 1);
    // A hit carries its album picture when its file has one.
    CRingToneModel pictures;
    CItunesWraper::instance()->SearchSong("yesterday", FT_ALL, &pictures);
    QCOMPARE(pictures.rowCount(), 1);
    const CRingToneNode hit = pictures.nodeFromIndex(pictures.index(0, 0));
    QCOMPARE(hit.pixAlbum.size(), QSize(40, 30));
    QCOMPARE(hit.strPath, m_library.coveredSong);
    QCOMPARE(ItunesAgentCallCount("OpenArtwork"), ItunesAgentCallCount("CloseArtwork"));
}

void TestItunesWrap::shouldRefuseAnUnknownFilterType()
{
    CRingToneModel model;
    QCOMPARE(CItunesWraper::instance()->SearchSong("beat", FilterType(9), &model), -1);
    QCOMPARE(model.rowCount(), 0);
    QCOMPARE(ItunesAgentCallCount("SearchSong"), 0ul);
}

void TestItunesWrap::shouldAddNothingForANullPlaylist()
{
    CRingToneModel model;
    QCOMPARE(CItunesWraper::SearchCallback(nullptr, 0, &model), 1);
    QCOMPARE(model.rowCount(), 0);
}

void TestItunesWrap::shouldHandARingtoneToTheLibrary()
{
    const QString tone = m_dir.filePath(QString::fromUtf8("made/Rïng.m4r"));
    QVERIFY(fx::makeRingtone(tone));
    const QByteArray before = fx::sha1(tone);
    const int ringtones = fx::findPlaylist(0, "Ringtones");
    const int songsBefore = CItunesWraper::instance()->getSongCount(LT_LIBRARY, ringtones);
    QTest::ignoreMessage(QtDebugMsg, qPrintable("AddToItunes: " + tone));
    QTest::ignoreMessage(QtDebugMsg, QRegularExpression("^library agent: ringtone added: "));
    QCOMPARE(CItunesWraper::instance()->AddToItunes(tone), 0);
    QCOMPARE(CItunesWraper::instance()->getSongCount(LT_LIBRARY, ringtones), songsBefore + 1);
    QCOMPARE(fx::sha1(tone), before);
}

void TestItunesWrap::shouldPassTheAgentsFailureBackAndLogIt()
{
    const QString missing = m_dir.filePath("made/none.m4r");
    QTest::ignoreMessage(QtDebugMsg, qPrintable("AddToItunes: " + missing));
    QTest::ignoreMessage(QtDebugMsg,
                         qPrintable("library agent: append ringtone: no such file: " + missing));
    QCOMPARE(CItunesWraper::instance()->AddToItunes(missing), int(ITA_E_NOTFOUND));
}

TW_TEST_MAIN(TestItunesWrap)
#include "tst_ituneswrap.moc"
