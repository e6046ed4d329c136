// The song list filter over a song list model on the real library agent:
// fields, case, the "All" field, the empty filter that builds no record,
// sorting (as its base sorts, from the titles read once when the rows came,
// never asking the agent, also over a large playlist), and the model
// tester's view of it.

#include "library/ringtonemodel.h"
#include "library/ringtonesortproxymodel.h"
#include "tests/library/libraryfixture.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

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

// The source rows in the order a proxy shows them.
QList<int> sourceRows(const QSortFilterProxyModel& proxy)
{
    QList<int> rows;
    for (int row = 0; row < proxy.rowCount(); ++row)
        rows << proxy.mapToSource(proxy.index(row, 0)).row();
    return rows;
}

} // namespace

void TestRingToneSortProxyModel::shouldSortWithoutAskingTheAgent()
{
    // No model tester here: it reads rows of its own.
    CRingToneModel model;
    CRingToneSortProxyModel proxy;
    sortAsTheWindowDoes(proxy, model);

    // The rows come sorted; each song's title was read once, in the agent's
    // two passes, whatever the number of comparisons.
    const unsigned long songInfoBefore = ItunesAgentCallCount("GetSongInfo");
    model.load(LT_LIBRARY, 0);
    QCOMPARE(ItunesAgentCallCount("GetSongInfo") - songInfoBefore, 5ul * 2);
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
    CRingToneModel model;
    model.load(LT_LIBRARY, 0);
    QCOMPARE(model.rowCount(), tracks);
    for (const char* title : {"river 3", "RIVER 3", "Ärger 1", "", "Zoë 7"}) {
        CRingToneNode owned;
        owned.strTitle = QString::fromUtf8(title);
        model.addRingTone(owned);
    }

    auto setUp = [&](QSortFilterProxyModel& proxy) {
        proxy.setSortCaseSensitivity(Qt::CaseSensitivity(caseSensitivity));
        proxy.setSortLocaleAware(localeAware);
        proxy.setSourceModel(&model);
        proxy.sort(0, Qt::SortOrder(order));
    };
    QSortFilterProxyModel base;
    setUp(base);
    CRingToneSortProxyModel proxy;
    QAbstractItemModelTester tester(&proxy, QAbstractItemModelTester::FailureReportingMode::Fatal);
    setUp(proxy);
    QCOMPARE(proxy.rowCount(), tracks + 5);
    QCOMPARE(sourceRows(proxy), sourceRows(base));
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

    // The click on "Music": the rows come sorted, and the agent was asked
    // for each title once (two passes), not once a comparison.
    CRingToneModel model;
    CRingToneSortProxyModel proxy;
    sortAsTheWindowDoes(proxy, model);
    const unsigned long songInfoBefore = ItunesAgentCallCount("GetSongInfo");
    model.load(LT_LIBRARY, 0);
    QCOMPARE(ItunesAgentCallCount("GetSongInfo") - songInfoBefore, 2ul * tracks);
    QCOMPARE(proxy.rowCount(), tracks);

    // The first row is the smallest title.
    QCOMPARE(proxy.data(proxy.index(0, 0)).toString(), QString("blue 0"));

    // Every row, as the agent shows it, follows the one before: a larger
    // title, or an equal one (but for case) further down the playlist. So the
    // order is the titles' without regard to case, ties in playlist order.
    QString previous = proxy.data(proxy.index(0, 0)).toString();
    int previousRow = proxy.mapToSource(proxy.index(0, 0)).row();
    for (int row = 1; row < tracks; ++row) {
        const QModelIndex index = proxy.index(row, 0);
        const QString title = proxy.data(index).toString();
        const int sourceRow = proxy.mapToSource(index).row();
        const int order = QString::compare(previous, title, Qt::CaseInsensitive);
        if (order > 0 || (order == 0 && previousRow >= sourceRow))
            QFAIL(qPrintable(QString("row %1 \"%2\" (song %3) after \"%4\" (song %5)")
                                 .arg(row)
                                 .arg(title)
                                 .arg(sourceRow)
                                 .arg(previous)
                                 .arg(previousRow)));
        previous = title;
        previousRow = sourceRow;
    }
}

TW_TEST_MAIN(TestRingToneSortProxyModel)
#include "tst_ringtonesortproxymodel.moc"
