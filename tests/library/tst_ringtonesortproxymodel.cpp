// The song list filter over a song list model on the real library agent:
// fields, case, the "All" field, the empty filter that builds no record,
// sorting, and the model tester's view of it.

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

TW_TEST_MAIN(TestRingToneSortProxyModel)
#include "tst_ringtonesortproxymodel.moc"
