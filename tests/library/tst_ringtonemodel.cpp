// The song list model over the real library agent: rows from a playlist and
// owned rows, the announced ranges (one past the end on clearing, on
// purpose), searches, roles, a proxy and a view above it that stay in step,
// and the rows kept in title order when asked (moved as a layout change,
// added records put in their place). The model is watched by QAbstractItemModelTester in warning
// mode.

#include "library/ringtonemodel.h"
#include "library/ringtonesortproxymodel.h"
#include "tests/library/libraryfixture.h"

#include <QAbstractItemModelTester>
#include <QListView>
#include <QSignalSpy>
#include <QTest>

#include <memory>

namespace {

CRingToneNode record(const QString& title, int video = 0)
{
    CRingToneNode node;
    node.strTitle = title;
    node.strArtist = title + " artist";
    node.strPath = "/nowhere/" + title + ".mp3";
    node.bVideo = video;
    return node;
}

QImage imageOf(const QVariant& icon)
{
    return icon.value<QIcon>().pixmap(QSize(16, 16)).toImage();
}

} // namespace

// What the model tester says of the deliberate row ranges: a clearing that
// names one row past the end, and rows counted before their insertion.
const QString kRemovedOnePast = "FAIL! Compared values are not the same: | Actual "
                                "(model->rowCount(parent)) %1 | Expected (c.oldSize - (end - "
                                "start + 1)) %2";
const QString kCountedEarly = "FAIL! Compared values are not the same: | Actual "
                              "(model->rowCount(parent)) %1 | Expected (c.oldSize + (end - "
                              "start + 1)) %2";

class TestRingToneModel : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void shouldHaveOneColumnWhateverTheParent();
    void shouldShowTheSongsOfAPlaylist();
    void shouldAnnounceTheInsertionOfAPlaylistsRows();
    void shouldAnnounceAnEmptyPlaylistToo();
    void shouldStopAfterClearingOnANegativeCount();
    void shouldPutAddedRecordsBeforeThePlaylistsSongs();
    void shouldAnnounceOneRowPastTheEndWhenClearing();
    void shouldAnswerTheSizeHintForAnyValidIndex();
    void shouldShowAFailedRowFromTheDefaultRecord();
    void shouldGiveTheIconOfTheKind();
    void shouldListSearchHitsInTheAgentsOrder();
    void shouldReplaceSearchHitsOnTheNextLoad();
    void shouldGiveRecordsByIndex();
    void shouldGiveTheTitlesItShowsWithoutAskingTheAgent();
    void shouldKeepProxyAndViewConsistent();
    void shouldKeepItsRowsInTitleOrderWhenAsked();

private:
    QTemporaryDir m_dir;
    lib::Library m_library;
};

void TestRingToneModel::initTestCase()
{
    QVERIFY(m_dir.isValid());
    m_library = lib::makeLibrary(m_dir);
}

void TestRingToneModel::init()
{
    fx::useXmlLibrary(m_library.xml);
}

void TestRingToneModel::shouldHaveOneColumnWhateverTheParent()
{
    CRingToneModel model;
    model.load(LT_LIBRARY, 0);
    QCOMPARE(model.columnCount(), 1);
    QCOMPARE(model.columnCount(model.index(0, 0)), 1);
    QCOMPARE(model.rowCount(model.index(0, 0)), 0);
}

void TestRingToneModel::shouldShowTheSongsOfAPlaylist()
{
    CRingToneModel model;
    lib::TesterWarnings warnings;
    QAbstractItemModelTester tester(&model,
                                    QAbstractItemModelTester::FailureReportingMode::Warning);
    model.load(LT_LIBRARY, 0);
    // The clearing of the empty list names row 0, and the playlist's rows
    // are counted before their insertion is announced: both deliberate.
    QCOMPARE(warnings.takeComplaints(),
             QStringList({kRemovedOnePast.arg(0).arg(-1), kCountedEarly.arg(5).arg(10)}));
    QCOMPARE(model.rowCount(), 5);
    QStringList titles;
    for (int row = 0; row < model.rowCount(); ++row)
        titles << model.data(model.index(row, 0)).toString();
    QCOMPARE(titles,
             QStringList({"Yesterday", "Something", "Beat It", "Here Comes the Sun", "No Artist"}));
    QCOMPARE(model.data(model.index(2, 0), Qt::ToolTipRole).toString(), QString("Beat It"));
    QVERIFY(!model.data(model.index(2, 0), Qt::FontRole).isValid());
    QVERIFY(!model.data(model.index(2, 0), Qt::EditRole).isValid());
    QVERIFY(!model.data(QModelIndex()).isValid());

    model.load(LT_PLAYLISTS, 0);
    QCOMPARE(model.rowCount(), 2);
    QCOMPARE(model.data(model.index(0, 0)).toString(), QString("Beat It"));
    QCOMPARE(warnings.takeComplaints(),
             QStringList({kRemovedOnePast.arg(5).arg(-1), kCountedEarly.arg(2).arg(4)}));
}

void TestRingToneModel::shouldAnnounceTheInsertionOfAPlaylistsRows()
{
    CRingToneModel model;
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    model.load(LT_LIBRARY, 0);
    QCOMPARE(inserted.count(), 1);
    QCOMPARE(inserted[0][1].toInt(), 0);
    QCOMPARE(inserted[0][2].toInt(), 4);
}

void TestRingToneModel::shouldAnnounceAnEmptyPlaylistToo()
{
    CRingToneModel model;
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    model.load(LT_PLAYLISTS, 1); // "Empty"
    QCOMPARE(model.rowCount(), 0);
    QCOMPARE(inserted.count(), 1);
    QCOMPARE(inserted[0][1].toInt(), 0);
    QCOMPARE(inserted[0][2].toInt(), -1);
}

void TestRingToneModel::shouldStopAfterClearingOnANegativeCount()
{
    CRingToneModel model;
    model.addRingTone(record("owned"));
    QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    model.load(LT_PLAYLISTS, 99); // no such playlist: the agent's count is negative
    QCOMPARE(removed.count(), 1);
    QCOMPARE(inserted.count(), 0);
    QCOMPARE(model.rowCount(), 0);
}

void TestRingToneModel::shouldPutAddedRecordsBeforeThePlaylistsSongs()
{
    CRingToneModel model;
    model.load(LT_LIBRARY, 0);
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    QVERIFY(model.addRingTone(record("first")));
    QVERIFY(model.addRingTone(record("second")));
    QCOMPARE(inserted.count(), 2);
    QCOMPARE(inserted[0][1].toInt(), 0);
    QCOMPARE(inserted[1][1].toInt(), 1);
    QCOMPARE(inserted[1][2].toInt(), 1);
    QCOMPARE(model.rowCount(), 7);
    QCOMPARE(model.data(model.index(0, 0)).toString(), QString("first"));
    QCOMPARE(model.data(model.index(1, 0)).toString(), QString("second"));
    QCOMPARE(model.data(model.index(2, 0)).toString(), QString("Yesterday"));
    QCOMPARE(model.data(model.index(6, 0)).toString(), QString("No Artist"));
}

void TestRingToneModel::shouldAnnounceOneRowPastTheEndWhenClearing()
{
    CRingToneModel model;
    lib::TesterWarnings warnings;
    QAbstractItemModelTester tester(&model,
                                    QAbstractItemModelTester::FailureReportingMode::Warning);
    model.load(LT_LIBRARY, 0);
    model.addRingTone(record("owned"));
    // Adding rows is clean; the tester has nothing to say about it.
    warnings.take();
    model.addRingTone(record("owned too"));
    QCOMPARE(warnings.take(), QStringList());

    QSignalSpy aboutToBeRemoved(&model, &QAbstractItemModel::rowsAboutToBeRemoved);
    model.clearRingTone();
    QCOMPARE(aboutToBeRemoved.count(), 1);
    QCOMPARE(aboutToBeRemoved[0][1].toInt(), 0);
    QCOMPARE(aboutToBeRemoved[0][2].toInt(), 7); // 5 songs + 2 records: rows 0..6, and 7
    // The tester notices the deliberate extra row, and only that.
    QCOMPARE(warnings.takeComplaints(), QStringList({kRemovedOnePast.arg(5).arg(-1)}));
    // Type and position stay: the playlist's rows are still counted.
    QCOMPARE(model.rowCount(), 5);

    CRingToneModel empty;
    QSignalSpy emptyRemoved(&empty, &QAbstractItemModel::rowsAboutToBeRemoved);
    empty.clearRingTone();
    QCOMPARE(emptyRemoved[0][1].toInt(), 0);
    QCOMPARE(emptyRemoved[0][2].toInt(), 0);
}

void TestRingToneModel::shouldAnswerTheSizeHintForAnyValidIndex()
{
    CRingToneModel model;
    model.load(LT_LIBRARY, 0);
    QCOMPARE(model.data(model.index(0, 0), Qt::SizeHintRole).toSize(), QSize(50, 20));
    const QModelIndex last = model.index(4, 0);
    model.load(LT_PLAYLISTS, 0);
    // The last index outlived its row; it is still valid as an index.
    QVERIFY(last.isValid());
    const unsigned long before = ItunesAgentCallCount("GetSongInfo");
    QCOMPARE(model.data(last, Qt::SizeHintRole).toSize(), QSize(50, 20));
    QCOMPARE(ItunesAgentCallCount("GetSongInfo"), before); // no record built
    QVERIFY(!model.data(QModelIndex(), Qt::SizeHintRole).isValid());
}

void TestRingToneModel::shouldShowAFailedRowFromTheDefaultRecord()
{
    CRingToneModel model;
    model.load(LT_LIBRARY, 1); // Movies: one video
    const QModelIndex clip = model.index(0, 0);
    QCOMPARE(model.data(clip).toString(), QString("Clip"));
    QCOMPARE(imageOf(model.data(clip, Qt::DecorationRole)), imageOf(QIcon(":/li/f_video")));
    // The same index once the list is empty: the agent refuses the row.
    model.load(LT_PLAYLISTS, 1);
    QCOMPARE(model.data(clip).toString(), QString());
    QCOMPARE(imageOf(model.data(clip, Qt::DecorationRole)), imageOf(QIcon(":/li/f_music")));
}

void TestRingToneModel::shouldGiveTheIconOfTheKind()
{
    CRingToneModel model;
    model.addRingTone(record("song"));
    model.addRingTone(record("film", 1));
    const QImage music = imageOf(QIcon(":/li/f_music"));
    const QImage video = imageOf(QIcon(":/li/f_video"));
    QVERIFY(music != video);
    QCOMPARE(imageOf(model.data(model.index(0, 0), Qt::DecorationRole)), music);
    QCOMPARE(imageOf(model.data(model.index(1, 0), Qt::DecorationRole)), video);
}

void TestRingToneModel::shouldListSearchHitsInTheAgentsOrder()
{
    CRingToneModel model;
    lib::TesterWarnings warnings;
    QAbstractItemModelTester tester(&model,
                                    QAbstractItemModelTester::FailureReportingMode::Warning);
    model.load(LT_LIBRARY, 0);
    warnings.take(); // the load's, as above
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    model.Search("abbey", FT_ALBUM);
    // Only the clearing's extra row; each hit's insertion is clean.
    QCOMPARE(warnings.takeComplaints(), QStringList({kRemovedOnePast.arg(5).arg(-1)}));
    QCOMPARE(model.rowCount(), 2);
    QCOMPARE(inserted.count(), 2); // one notice per hit
    QCOMPARE(model.data(model.index(0, 0)).toString(), QString("Something"));
    QCOMPARE(model.data(model.index(1, 0)).toString(), QString("Here Comes the Sun"));
    // The hits are owned: the agent is no longer asked for rows.
    const unsigned long before = ItunesAgentCallCount(nullptr);
    QCOMPARE(model.rowCount(), 2);
    model.data(model.index(1, 0));
    QCOMPARE(ItunesAgentCallCount(nullptr), before);
}

void TestRingToneModel::shouldReplaceSearchHitsOnTheNextLoad()
{
    CRingToneModel model;
    model.Search("beatles", FT_ARTIST);
    QCOMPARE(model.rowCount(), 2);
    model.Search("zzz", FT_ALL);
    QCOMPARE(model.rowCount(), 0);
    model.Search("beatles", FT_ARTIST);
    model.load(LT_LIBRARY, 1);
    QCOMPARE(model.rowCount(), 1);
    QCOMPARE(model.data(model.index(0, 0)).toString(), QString("Clip"));
}

void TestRingToneModel::shouldGiveRecordsByIndex()
{
    CRingToneModel model;
    model.load(LT_LIBRARY, 0);
    CRingToneNode owned = record("owned", 1);
    QPixmap picture(3, 3);
    picture.fill(Qt::blue);
    owned.pixAlbum = picture;
    model.addRingTone(owned);

    const CRingToneNode none = model.nodeFromIndex(QModelIndex());
    QVERIFY(none.strTitle.isEmpty() && none.strPath.isEmpty());
    const CRingToneNode copy = model.nodeFromIndex(model.index(0, 0));
    QCOMPARE(copy.strTitle, QString("owned"));
    QCOMPARE(copy.pixAlbum.size(), QSize(3, 3));
    QCOMPARE(copy.bVideo, 1);
    const CRingToneNode song = model.nodeFromIndex(model.index(1, 0));
    QCOMPARE(song.strTitle, QString("Yesterday"));
    QCOMPARE(song.strArtist, QString("The Beatles"));
    QCOMPARE(song.strPath, m_library.coveredSong);
    QCOMPARE(song.bLocalFile, 0);
    QVERIFY(song.pixAlbum.isNull()); // playlist rows carry no artwork
}

void TestRingToneModel::shouldGiveTheTitlesItShowsWithoutAskingTheAgent()
{
    CRingToneModel model;
    model.load(LT_LIBRARY, 0);
    model.addRingTone(record("beat it"));
    model.addRingTone(record(QString::fromUtf8("Ärger")));
    QStringList shown;
    for (int row = 0; row < model.rowCount(); ++row)
        shown << model.data(model.index(row, 0)).toString();

    const unsigned long before = ItunesAgentCallCount(nullptr);
    QStringList titles;
    for (int row = 0; row < model.rowCount(); ++row)
        titles << model.title(row);
    QCOMPARE(titles, shown);
    QVERIFY(model.title(-1).isEmpty());
    QVERIFY(model.title(model.rowCount()).isEmpty());
    QCOMPARE(ItunesAgentCallCount(nullptr), before);

    // A search's hits are owned records; the playlist's titles are gone.
    model.Search("abbey", FT_ALBUM);
    QCOMPARE(model.title(0), QString("Something"));
    QCOMPARE(model.title(1), QString("Here Comes the Sun"));
    QVERIFY(model.title(2).isEmpty());
}

void TestRingToneModel::shouldKeepProxyAndViewConsistent()
{
    CRingToneModel model;
    CRingToneSortProxyModel proxy;
    proxy.setSourceModel(&model);
    lib::TesterWarnings warnings;
    QAbstractItemModelTester modelTester(&model,
                                         QAbstractItemModelTester::FailureReportingMode::Warning);
    QAbstractItemModelTester proxyTester(&proxy,
                                         QAbstractItemModelTester::FailureReportingMode::Warning);
    QListView view;
    view.setModel(&proxy);
    view.resize(200, 300);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));

    auto consistent = [&]() {
        if (proxy.rowCount() != model.rowCount())
            return false;
        for (int row = 0; row < proxy.rowCount(); ++row) {
            const QModelIndex p = proxy.index(row, 0);
            if (proxy.mapToSource(p).row() != row ||
                proxy.data(p).toString() != model.data(model.index(row, 0)).toString())
                return false;
        }
        return !view.grab().isNull() && view.model()->rowCount() == model.rowCount();
    };

    model.load(LT_LIBRARY, 0);
    QVERIFY(consistent());
    model.addRingTone(record("added"));
    QVERIFY(consistent());
    model.clearRingTone();
    model.load(LT_PLAYLISTS, 0);
    QVERIFY(consistent());
    model.Search("beatles", FT_ARTIST);
    QVERIFY(consistent());
    QCOMPARE(proxy.rowCount(), 2);
    model.load(LT_PLAYLISTS, 1); // empty
    QVERIFY(consistent());
    model.clearRingTone(); // nothing to clear: rows 0..0 of an empty list
    QVERIFY(consistent());
    model.load(LT_LIBRARY, 0);
    proxy.filter("beatles", FT_ALL);
    // Two by their artist, one by its album "Beatles Covers".
    QCOMPARE(proxy.rowCount(), 3);
    view.grab();
    model.clearRingTone();
    model.load(LT_LIBRARY, 0);
    proxy.filter(QString(), FT_ALL);
    QVERIFY(consistent());
    // The testers' only complaints are the row counts around the announced
    // ranges (one past the end when clearing, the count set before the
    // insertion notice), all the source model's; the proxy clamps them and
    // stays in step.
    const QStringList expected = {
        kRemovedOnePast.arg(0).arg(-1), // the first load
        kCountedEarly.arg(5).arg(10),
        kRemovedOnePast.arg(5).arg(-1), // adding a record is clean; clearing
        kRemovedOnePast.arg(5).arg(-1), // the next load
        kCountedEarly.arg(2).arg(4),
        kRemovedOnePast.arg(2).arg(-1), // the search (its hits are clean)
        kRemovedOnePast.arg(0).arg(-1), // the empty playlist
        kRemovedOnePast.arg(0).arg(-1), // nothing to clear
        kRemovedOnePast.arg(0).arg(-1), // the load before filtering
        kCountedEarly.arg(5).arg(10),
        kRemovedOnePast.arg(5).arg(-1), // clearing, and the last load
        kRemovedOnePast.arg(5).arg(-1), kCountedEarly.arg(5).arg(10)};
    QCOMPARE(warnings.takeComplaints(), expected);
}

void TestRingToneModel::shouldKeepItsRowsInTitleOrderWhenAsked()
{
    CRingToneModel model;
    model.load(LT_LIBRARY, 0);
    // Created after the load, whose announced ranges are odd on purpose:
    // from here on every change must be clean.
    auto tester = std::make_unique<QAbstractItemModelTester>(
        &model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    auto shown = [&model] {
        QStringList titles;
        for (int row = 0; row < model.rowCount(); ++row) {
            titles << model.data(model.index(row, 0)).toString();
            if (model.title(row) != titles.last())
                titles.last() += " (title differs)";
        }
        return titles;
    };
    const QPersistentModelIndex yesterday = model.index(0, 0);
    QSignalSpy aboutToMove(&model, &QAbstractItemModel::layoutAboutToBeChanged);
    QSignalSpy moved(&model, &QAbstractItemModel::layoutChanged);
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);

    model.setTitleOrder(true, Qt::AscendingOrder, Qt::CaseInsensitive, false);
    QCOMPARE(aboutToMove.count(), 1);
    QCOMPARE(moved.count(), 1);
    QCOMPARE(shown(),
             QStringList({"Beat It", "Here Comes the Sun", "No Artist", "Something", "Yesterday"}));
    // A kept index follows its row.
    QCOMPARE(yesterday.row(), 4);
    QCOMPARE(yesterday.data().toString(), QString("Yesterday"));
    // The same order again moves nothing.
    model.setTitleOrder(true, Qt::AscendingOrder, Qt::CaseInsensitive, false);
    QCOMPARE(moved.count(), 1);

    // Added records land in their place; a title equal but for case comes
    // before the song's (owned records first), after an earlier owned one.
    model.addRingTone(record("Help"));
    QCOMPARE(inserted.count(), 1);
    QCOMPARE(inserted[0][1].toInt(), 1);
    QCOMPARE(inserted[0][2].toInt(), 1);
    model.addRingTone(record("beat it"));
    QCOMPARE(inserted[1][1].toInt(), 0);
    model.addRingTone(record("BEAT IT"));
    QCOMPARE(inserted[2][1].toInt(), 1);
    QCOMPARE(shown(), QStringList({"beat it", "BEAT IT", "Beat It", "Help", "Here Comes the Sun",
                                   "No Artist", "Something", "Yesterday"}));
    QCOMPARE(model.nodeFromIndex(model.index(0, 0)).strArtist, QString("beat it artist"));
    QCOMPARE(yesterday.row(), 7);

    // Descending: titles the other way round, equal ones still in their
    // unsorted order.
    model.setTitleOrder(true, Qt::DescendingOrder, Qt::CaseInsensitive, false);
    QCOMPARE(shown(), QStringList({"Yesterday", "Something", "No Artist", "Here Comes the Sun",
                                   "Help", "beat it", "BEAT IT", "Beat It"}));
    // Case sensitive: capitals first, as QString compares.
    model.setTitleOrder(true, Qt::AscendingOrder, Qt::CaseSensitive, false);
    QCOMPARE(shown(), QStringList({"BEAT IT", "Beat It", "Help", "Here Comes the Sun", "No Artist",
                                   "Something", "Yesterday", "beat it"}));
    QCOMPARE(yesterday.row(), 6);

    // Unsorted again: owned records in the order added, then the playlist.
    model.setTitleOrder(false, Qt::AscendingOrder, Qt::CaseInsensitive, false);
    QCOMPARE(shown(), QStringList({"Help", "beat it", "BEAT IT", "Yesterday", "Something",
                                   "Beat It", "Here Comes the Sun", "No Artist"}));
    QCOMPARE(yesterday.row(), 3);
    QCOMPARE(aboutToMove.count(), moved.count());

    // Sorted, a load and a search bring their rows in order (each clears
    // first, with its odd range).
    tester.reset();
    model.setTitleOrder(true, Qt::AscendingOrder, Qt::CaseInsensitive, false);
    model.load(LT_PLAYLISTS, 0);
    QCOMPARE(shown(), QStringList({"Beat It", "Yesterday"}));
    model.Search("abbey", FT_ALBUM);
    QCOMPARE(shown(), QStringList({"Here Comes the Sun", "Something"}));
}

TW_TEST_MAIN(TestRingToneModel)
#include "tst_ringtonemodel.moc"
