// The song list filter over a song list model on the real library agent:
// fields, case, the "All" field, the empty filter that builds no record,
// sorting (as its base sorts, every way, from the titles read in a few agent
// calls when the rows came, also over a large playlist; handed to the song
// list, and taken back), and the model tester's view of it.

#include "library/ringtonemodel.h"
#include "library/ringtonesortproxymodel.h"
#include "tests/library/libraryfixture.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <vector>

class TestRingToneSortProxyModel : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void shouldKeepRecordsMatchingTheField_data();
    void shouldKeepRecordsMatchingTheField();
    void shouldAcceptEveryRowOfAnEmptyFilterWithoutBuildingRecords();
    void shouldFilterOwnedRecordsToo();
    void shouldTestEveryRowAgainWhenTheFilterChanges();
    void shouldSortLikeItsBase();
    void shouldSortWithoutAskingTheAgent();
    void shouldSortEveryWayItsBaseSorts_data();
    void shouldSortEveryWayItsBaseSorts();
    void shouldHandTheSortBackWhenAskedOtherwise();
    void shouldShowALargePlaylistSortedFromTitlesReadOnce();

private:
    QStringList titles(const CRingToneSortProxyModel& proxy) const;

    QTemporaryDir m_dir;
    lib::Library m_library;
};

QStringList TestRingToneSortProxyModel::titles(const CRingToneSortProxyModel& proxy) const
{
    QStringList list;
    for (int row = 0; row < proxy.rowCount(); ++row)
        list << proxy.data(proxy.index(row, 0)).toString();
    return list;
}

void TestRingToneSortProxyModel::initTestCase()
{
    QVERIFY(m_dir.isValid());
    m_library = lib::makeLibrary(m_dir);
}

void TestRingToneSortProxyModel::init()
{
    fx::useXmlLibrary(m_library.xml);
}

void TestRingToneSortProxyModel::shouldKeepRecordsMatchingTheField_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("field");
    QTest::addColumn<QStringList>("kept");
    QTest::newRow("artist, in capitals")
        << "BEATLES" << int(FT_ARTIST) << QStringList{"Yesterday", "Something"};
    QTest::newRow("all: artist or album")
        << "BEATLES" << int(FT_ALL) << QStringList{"Yesterday", "Something", "No Artist"};
    QTest::newRow("title") << "the" << int(FT_TITLE) << QStringList{"Here Comes the Sun"};
    QTest::newRow("album") << "ROAD" << int(FT_ALBUM)
                           << QStringList{"Something", "Here Comes the Sun"};
    QTest::newRow("all: title") << "it" << int(FT_ALL) << QStringList{"Beat It"};
    QTest::newRow("no match") << "zzz" << int(FT_ALL) << QStringList{};
    QTest::newRow("unknown field never matches") << "e" << 7 << QStringList{};
}

void TestRingToneSortProxyModel::shouldKeepRecordsMatchingTheField()
{
    QFETCH(QString, text);
    QFETCH(int, field);
    QFETCH(QStringList, kept);
    CRingToneModel model;
    model.load(LT_LIBRARY, 0);
    CRingToneSortProxyModel proxy;
    QAbstractItemModelTester tester(&proxy, QAbstractItemModelTester::FailureReportingMode::Fatal);
    proxy.setSourceModel(&model);
    proxy.filter(text, FilterType(field));
    QCOMPARE(titles(proxy), kept);
}

void TestRingToneSortProxyModel::shouldAcceptEveryRowOfAnEmptyFilterWithoutBuildingRecords()
{
    CRingToneModel model;
    model.load(LT_LIBRARY, 0);
    CRingToneSortProxyModel proxy;
    proxy.setSourceModel(&model);
    const unsigned long before = ItunesAgentCallCount("GetSongInfo");
    proxy.filter(QString(), FT_ARTIST);
    QCOMPARE(proxy.rowCount(), 5);
    QCOMPARE(ItunesAgentCallCount("GetSongInfo"), before);
    // A real filter asks the agent for every row it tests.
    proxy.filter("x", FT_ARTIST);
    QVERIFY(ItunesAgentCallCount("GetSongInfo") >= before + 5 * 2);
}

void TestRingToneSortProxyModel::shouldFilterOwnedRecordsToo()
{
    CRingToneModel model;
    model.Search("abbey", FT_ALBUM);
    CRingToneSortProxyModel proxy;
    proxy.setSourceModel(&model);
    proxy.filter("GEORGE", FT_ARTIST);
    QCOMPARE(titles(proxy), QStringList({"Here Comes the Sun"}));
}

void TestRingToneSortProxyModel::shouldTestEveryRowAgainWhenTheFilterChanges()
{
    CRingToneModel model;
    model.load(LT_LIBRARY, 0);
    CRingToneSortProxyModel proxy;
    proxy.setSourceModel(&model);
    QCOMPARE(proxy.rowCount(), 5);
    QSignalSpy removed(&proxy, &QAbstractItemModel::rowsRemoved);
    proxy.filter("beatles", FT_ARTIST);
    QCOMPARE(proxy.rowCount(), 2);
    QVERIFY(removed.count() > 0);
    proxy.filter("beatles", FT_ALBUM);
    QCOMPARE(titles(proxy), QStringList({"No Artist"}));
    proxy.filter(QString(), FT_ALBUM);
    QCOMPARE(proxy.rowCount(), 5);
}

void TestRingToneSortProxyModel::shouldSortLikeItsBase()
{
    CRingToneModel model;
    model.load(LT_LIBRARY, 0);
    CRingToneSortProxyModel proxy;
    proxy.setSourceModel(&model);
    proxy.sort(0, Qt::AscendingOrder);
    QCOMPARE(titles(proxy),
             QStringList({"Beat It", "Here Comes the Sun", "No Artist", "Something", "Yesterday"}));
    proxy.sort(0, Qt::DescendingOrder);
    QCOMPARE(titles(proxy).first(), QString("Yesterday"));
}

namespace {

// A proxy set up as the window sets up the song list's: sorted on the first
// column without regard to case, and kept sorted.
void sortAsTheWindowDoes(QSortFilterProxyModel& proxy, QAbstractItemModel& model)
{
    proxy.setSourceModel(&model);
    proxy.setDynamicSortFilter(true);
    proxy.sort(0, Qt::AscendingOrder);
    proxy.setSortCaseSensitivity(Qt::CaseInsensitive);
}

// The agent calls a load made: for song records and for titles.
struct LoadCalls
{
    unsigned long songInfo;
    unsigned long titles;
};

LoadCalls loadLibrary(CRingToneModel& model)
{
    const unsigned long songInfo = ItunesAgentCallCount("GetSongInfo");
    const unsigned long titles = ItunesAgentCallCount("GetSongTitles");
    model.load(LT_LIBRARY, 0);
    return {ItunesAgentCallCount("GetSongInfo") - songInfo,
            ItunesAgentCallCount("GetSongTitles") - titles};
}

} // namespace

void TestRingToneSortProxyModel::shouldSortWithoutAskingTheAgent()
{
    // No model tester here: it reads rows of its own.
    CRingToneModel model;
    CRingToneSortProxyModel proxy;
    sortAsTheWindowDoes(proxy, model);

    // The rows come sorted; the titles were read in one call, and no song's
    // record was asked for.
    const LoadCalls calls = loadLibrary(model);
    QCOMPARE(calls.songInfo, 0ul);
    QCOMPARE(calls.titles, 1ul);
    const QStringList ascending{"Beat It", "Here Comes the Sun", "No Artist", "Something",
                                "Yesterday"};
    QCOMPARE(titles(proxy), ascending);

    // Sorting again, either way, asks the agent nothing at all.
    const unsigned long before = ItunesAgentCallCount(nullptr);
    proxy.sort(0, Qt::DescendingOrder);
    proxy.invalidate();
    proxy.sort(0, Qt::AscendingOrder);
    QCOMPARE(ItunesAgentCallCount(nullptr), before);
    QCOMPARE(titles(proxy), ascending);
}

void TestRingToneSortProxyModel::shouldSortEveryWayItsBaseSorts_data()
{
    QTest::addColumn<int>("order");
    QTest::addColumn<int>("caseSensitivity");
    QTest::addColumn<bool>("localeAware");
    QTest::newRow("as the window sorts")
        << int(Qt::AscendingOrder) << int(Qt::CaseInsensitive) << false;
    QTest::newRow("descending") << int(Qt::DescendingOrder) << int(Qt::CaseInsensitive) << false;
    QTest::newRow("case sensitive") << int(Qt::AscendingOrder) << int(Qt::CaseSensitive) << false;
    QTest::newRow("locale aware") << int(Qt::AscendingOrder) << int(Qt::CaseInsensitive) << true;
}

void TestRingToneSortProxyModel::shouldSortEveryWayItsBaseSorts()
{
    QFETCH(int, order);
    QFETCH(int, caseSensitivity);
    QFETCH(bool, localeAware);
    // Titles equal but for case (kept in playlist order), beyond ASCII, and
    // owned records before the playlist's songs.
    const int tracks = 2000;
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString xml = dir.filePath("music.xml");
    QVERIFY(fx::writeFile(xml, lib::musicLibraryXml(tracks)));
    fx::useXmlLibrary(xml);
    // The base class over a song list of its own, and the proxy over another
    // with the same rows: the proxy's sorts its rows itself.
    auto fill = [&](CRingToneModel& model) {
        model.load(LT_LIBRARY, 0);
        int n = 0;
        for (const char* title : {"river 3", "RIVER 3", "Ärger 1", "", "Zoë 7"}) {
            CRingToneNode owned;
            owned.strTitle = QString::fromUtf8(title);
            owned.strPath = QString("/owned/%1.mp3").arg(n++);
            model.addRingTone(owned);
        }
    };
    CRingToneModel baseSongs;
    fill(baseSongs);
    CRingToneModel songs;
    fill(songs);
    QCOMPARE(songs.rowCount(), tracks + 5);

    auto setUp = [&](QSortFilterProxyModel& proxy, CRingToneModel& model) {
        proxy.setSortCaseSensitivity(Qt::CaseSensitivity(caseSensitivity));
        proxy.setSortLocaleAware(localeAware);
        proxy.setSourceModel(&model);
        proxy.sort(0, Qt::SortOrder(order));
    };
    QSortFilterProxyModel base;
    setUp(base, baseSongs);
    CRingToneSortProxyModel proxy;
    QAbstractItemModelTester tester(&proxy, QAbstractItemModelTester::FailureReportingMode::Fatal);
    setUp(proxy, songs);
    QCOMPARE(proxy.rowCount(), tracks + 5);
    // Row by row the same record: its title (case included) and its file.
    for (int row = 0; row < proxy.rowCount(); ++row) {
        const CRingToneNode expected =
            baseSongs.nodeFromIndex(base.mapToSource(base.index(row, 0)));
        const CRingToneNode actual = songs.nodeFromIndex(proxy.mapToSource(proxy.index(row, 0)));
        if (actual.strTitle != expected.strTitle || actual.strPath != expected.strPath)
            QFAIL(qPrintable(
                QString("row %1: \"%2\" (%3), \"%4\" (%5) expected")
                    .arg(row)
                    .arg(actual.strTitle, actual.strPath, expected.strTitle, expected.strPath)));
    }
}

void TestRingToneSortProxyModel::shouldHandTheSortBackWhenAskedOtherwise()
{
    CRingToneModel model;
    model.load(LT_LIBRARY, 0);
    const QStringList unsorted{"Yesterday", "Something", "Beat It", "Here Comes the Sun",
                               "No Artist"};
    const QStringList ascending{"Beat It", "Here Comes the Sun", "No Artist", "Something",
                                "Yesterday"};
    CRingToneSortProxyModel proxy;
    QAbstractItemModelTester tester(&proxy, QAbstractItemModelTester::FailureReportingMode::Fatal);
    proxy.setSourceModel(&model);
    QCOMPARE(titles(proxy), unsorted);
    proxy.sort(0);
    QCOMPARE(titles(proxy), ascending);
    // The song list keeps the order; the base class keeps the source's.
    QCOMPARE(model.title(0), QString("Beat It"));
    QCOMPARE(proxy.sortColumn(), -1);

    // Sorting by another role is the base class's, over the song list's own
    // order: the tooltip is the title too.
    proxy.setSortRole(Qt::ToolTipRole);
    QCOMPARE(model.title(0), QString("Yesterday"));
    QCOMPARE(proxy.sortColumn(), 0);
    QCOMPARE(titles(proxy), ascending);
    proxy.setSortRole(Qt::DisplayRole);
    QCOMPARE(model.title(0), QString("Beat It"));
    QCOMPARE(titles(proxy), ascending);

    // No sort: the playlist's order again.
    proxy.sort(-1);
    QCOMPARE(titles(proxy), unsorted);
    proxy.sort(0, Qt::DescendingOrder);
    QCOMPARE(titles(proxy).first(), QString("Yesterday"));

    // A song list left behind goes back to its own order.
    CRingToneModel other;
    other.load(LT_PLAYLISTS, 0);
    proxy.setSourceModel(&other);
    QCOMPARE(model.title(0), QString("Yesterday"));
    QCOMPARE(titles(proxy), QStringList({"Yesterday", "Beat It"}));
}

void TestRingToneSortProxyModel::shouldShowALargePlaylistSortedFromTitlesReadOnce()
{
    const int tracks = 520000;
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString xml = dir.filePath("music.xml");
    QVERIFY(fx::writeFile(xml, lib::musicLibraryXml(tracks)));
    fx::useXmlLibrary(xml);
    QCOMPARE(ItunesAgentLoad(), int(ITA_BACKEND_XML));

    // The click on "Music": the rows come sorted, and the agent was asked for
    // the titles in slices (a call each, and a size now and then), for no
    // song's record.
    CRingToneModel model;
    CRingToneSortProxyModel proxy;
    sortAsTheWindowDoes(proxy, model);
    const LoadCalls calls = loadLibrary(model);
    QCOMPARE(calls.songInfo, 0ul);
    QVERIFY2(calls.titles > 0 && calls.titles <= 2ul * (tracks / 65536 + 1),
             qPrintable(QString::number(calls.titles)));
    QCOMPARE(proxy.rowCount(), tracks);

    // The same order as a stable sort of the playlist by QString's
    // comparison without regard to case: titles equal but for case in
    // playlist order. Compared title by title, case included.
    std::vector<QString> expected;
    expected.reserve(tracks);
    for (int track = 1; track <= tracks; ++track)
        expected.push_back(lib::musicTitle(track, tracks));
    std::stable_sort(expected.begin(), expected.end(), [](const QString& a, const QString& b) {
        return QString::compare(a, b, Qt::CaseInsensitive) < 0;
    });
    QCOMPARE(proxy.data(proxy.index(0, 0)).toString(), QString("blue 0"));
    for (int row = 0; row < tracks; ++row) {
        const QString title = model.title(proxy.mapToSource(proxy.index(row, 0)).row());
        if (title != expected[static_cast<size_t>(row)])
            QFAIL(qPrintable(QString("row %1: \"%2\", \"%3\" expected")
                                 .arg(row)
                                 .arg(title, expected[static_cast<size_t>(row)])));
    }
    // And what the agent shows for a few rows is that title.
    for (const int row : {0, 1, tracks / 2, tracks - 1})
        QCOMPARE(proxy.data(proxy.index(row, 0)).toString(), expected[static_cast<size_t>(row)]);
}

TW_TEST_MAIN(TestRingToneSortProxyModel)
#include "tst_ringtonesortproxymodel.moc"
