// The library tree over the real library agent: groups and playlists, the
// empty tree, flags, roles, header, the deliberate parent rows, the notices
// of a rebuild, and the model tester's view of it.

#include "library/librarymodel.h"
#include "tests/library/libraryfixture.h"

#include <QAbstractItemModelTester>
#include <QFont>
#include <QSignalSpy>
#include <QTest>
#include <QTranslator>
#include <QTreeView>

class TestLibraryModel : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void shouldBeEmptyBeforeLoading();
    void shouldShowTwoBoldGroupsWithoutChildrenForAnEmptyLibrary();
    void shouldListPlaylistsUnderTheirGroups();
    void shouldRememberEachPlaylistsPositionInItsCollection();
    void shouldLetOnlyPlaylistsBeSelected();
    void shouldAnswerRoles();
    void shouldAnswerHeaderWhatever_data();
    void shouldAnswerHeaderWhatever();
    void shouldGiveParentsTheChildsRowAndTheParentNode();
    void shouldRefuseIndexesOutOfRange();
    void shouldAnnounceOnlyTheRemovalOfRowZeroWhenRebuilding();
    void shouldBeWalkableByTesterAndView();
    void shouldTranslateBuiltInNamesButNotTheUsers();
    void shouldTellTheViewsOfEveryCaptionOnRetranslate();

private:
    QTemporaryDir m_dir;
    lib::Library m_library;
    QString m_emptyXml;
};

void TestLibraryModel::initTestCase()
{
    QVERIFY(m_dir.isValid());
    m_library = lib::makeLibrary(m_dir);
    // A library whose only playlist, its ringtones, is hidden: both groups
    // stay empty.
    fx::XmlPlaylist tones;
    tones.name = "Ringtones";
    tones.kind = 55;
    tones.hidden = true;
    m_emptyXml = m_dir.filePath("empty.xml");
    QVERIFY(fx::writeFile(m_emptyXml, fx::libraryXml(m_dir.filePath("none"), {}, {tones})));
}

void TestLibraryModel::init()
{
    fx::useXmlLibrary(m_library.xml);
}

void TestLibraryModel::shouldBeEmptyBeforeLoading()
{
    CLibraryModel model;
    QCOMPARE(model.rowCount(), 0);
    QVERIFY(!model.index(0, 0).isValid());
}

void TestLibraryModel::shouldShowTwoBoldGroupsWithoutChildrenForAnEmptyLibrary()
{
    fx::useXmlLibrary(m_emptyXml);
    CLibraryModel model;
    model.loadLibrary();
    QCOMPARE(model.rowCount(), 2);
    for (int row = 0; row < 2; ++row) {
        const QModelIndex group = model.index(row, 0);
        QCOMPARE(model.rowCount(group), 0);
        QCOMPARE(model.flags(group), Qt::ItemFlags());
        const QFont font = model.data(group, Qt::FontRole).value<QFont>();
        QCOMPARE(font.weight(), QFont::Black);
    }
    QCOMPARE(model.data(model.index(0, 0)).toString(), QString("Library"));
    QCOMPARE(model.data(model.index(1, 0)).toString(), QString("PlayList"));
}

void TestLibraryModel::shouldListPlaylistsUnderTheirGroups()
{
    CLibraryModel model;
    model.loadLibrary();
    QCOMPARE(model.rowCount(), 2);
    auto captions = [&](const QModelIndex& group) {
        QStringList names;
        for (int row = 0; row < model.rowCount(group); ++row)
            names << model.data(model.index(row, 0, group)).toString();
        return names;
    };
    // "Odd Kind" has no icon and is left out.
    QCOMPARE(captions(model.index(0, 0)), QStringList({"Music", "Movies", "Ringtones"}));
    QCOMPARE(captions(model.index(1, 0)), QStringList({"Road Trip", "Empty"}));
    const CLibraryNode* root = model.nodeFromIndex(model.index(0, 0))->parent;
    QVERIFY(root);
    QCOMPARE(root->type, LT_ROOT);
    QCOMPARE(root->caption, QString("ITunes"));
    QCOMPARE(model.nodeFromIndex(model.index(0, 0))->type, LT_LIBRARY);
    QCOMPARE(model.nodeFromIndex(model.index(1, 0))->type, LT_PLAYLISTS);
}

void TestLibraryModel::shouldRememberEachPlaylistsPositionInItsCollection()
{
    CLibraryModel model;
    model.loadLibrary();
    const QModelIndex library = model.index(0, 0);
    QCOMPARE(model.nodeFromIndex(model.index(1, 0, library))->position, 1);
    // Row 2 of the tree, position 3 of the collection (after "Odd Kind").
    const CLibraryNode* ringtones = model.nodeFromIndex(model.index(2, 0, library));
    QCOMPARE(ringtones->caption, QString("Ringtones"));
    QCOMPARE(ringtones->position, 3);
    QCOMPARE(ringtones->type, LT_PLAYLIST);
    QCOMPARE(model.nodeFromIndex(model.index(1, 0, model.index(1, 0)))->position, 1);
}

void TestLibraryModel::shouldLetOnlyPlaylistsBeSelected()
{
    CLibraryModel model;
    model.loadLibrary();
    QCOMPARE(model.flags(model.index(0, 0)), Qt::ItemFlags());
    QCOMPARE(model.flags(model.index(1, 0)), Qt::ItemFlags());
    QCOMPARE(model.flags(model.index(0, 0, model.index(0, 0))),
             Qt::ItemIsSelectable | Qt::ItemIsEnabled);
    QCOMPARE(model.flags(QModelIndex()), Qt::ItemFlags());
}

void TestLibraryModel::shouldAnswerRoles()
{
    CLibraryModel model;
    model.loadLibrary();
    const QModelIndex group = model.index(0, 0);
    const QModelIndex music = model.index(0, 0, group);
    QCOMPARE(model.data(music).toString(), QString("Music"));
    const QIcon icon = model.data(music, Qt::DecorationRole).value<QIcon>();
    QCOMPARE(icon.pixmap(16, 16).toImage(), QIcon(":/li/music").pixmap(16, 16).toImage());
    // A group has no icon: an empty one.
    QVERIFY(model.data(group, Qt::DecorationRole).value<QIcon>().isNull());
    QVERIFY(!model.data(music, Qt::FontRole).isValid());
    QCOMPARE(model.data(group, Qt::FontRole).value<QFont>().weight(), QFont::Black);
    QVERIFY(!model.data(music, Qt::ToolTipRole).isValid());
    QVERIFY(!model.data(group, Qt::SizeHintRole).isValid());
    QVERIFY(!model.data(QModelIndex()).isValid());
    QCOMPARE(model.columnCount(), 1);
    QCOMPARE(model.columnCount(group), 1);
}

void TestLibraryModel::shouldAnswerHeaderWhatever_data()
{
    QTest::addColumn<int>("section");
    QTest::addColumn<int>("orientation");
    QTest::addColumn<int>("role");
    QTest::newRow("display") << 0 << int(Qt::Horizontal) << int(Qt::DisplayRole);
    QTest::newRow("vertical, section 5") << 5 << int(Qt::Vertical) << int(Qt::DisplayRole);
    QTest::newRow("decoration") << 0 << int(Qt::Horizontal) << int(Qt::DecorationRole);
    QTest::newRow("font, section -1") << -1 << int(Qt::Horizontal) << int(Qt::FontRole);
}

void TestLibraryModel::shouldAnswerHeaderWhatever()
{
    QFETCH(int, section);
    QFETCH(int, orientation);
    QFETCH(int, role);
    CLibraryModel model;
    QCOMPARE(model.headerData(section, Qt::Orientation(orientation), role).toString(),
             QString("header"));
}

void TestLibraryModel::shouldGiveParentsTheChildsRowAndTheParentNode()
{
    CLibraryModel model;
    model.loadLibrary();
    const QModelIndex playlists = model.index(1, 0);
    const QModelIndex empty = model.index(1, 0, playlists);
    const QModelIndex road = model.index(0, 0, playlists);
    const QModelIndex ringtones = model.index(2, 0, model.index(0, 0));
    QCOMPARE(model.parent(empty).row(), 1);
    QCOMPARE(model.parent(road).row(), 0); // the child's row, deliberately
    QCOMPARE(model.parent(ringtones).row(), 2);
    QCOMPARE(model.nodeFromIndex(model.parent(road)), model.nodeFromIndex(playlists));
    QCOMPARE(model.nodeFromIndex(model.parent(ringtones)), model.nodeFromIndex(model.index(0, 0)));
    QVERIFY(!model.parent(playlists).isValid());
    QVERIFY(!model.parent(QModelIndex()).isValid());
}

void TestLibraryModel::shouldRefuseIndexesOutOfRange()
{
    CLibraryModel model;
    model.loadLibrary();
    QVERIFY(!model.index(2, 0).isValid());
    QVERIFY(!model.index(0, 1).isValid());
    QVERIFY(!model.index(-1, 0).isValid());
    QVERIFY(!model.index(3, 0, model.index(0, 0)).isValid());
    QCOMPARE(model.rowCount(model.index(0, 0, model.index(0, 0))), 0);
}

void TestLibraryModel::shouldAnnounceOnlyTheRemovalOfRowZeroWhenRebuilding()
{
    CLibraryModel model;
    QSignalSpy aboutToBeRemoved(&model, &QAbstractItemModel::rowsAboutToBeRemoved);
    QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
    model.loadLibrary();
    model.loadLibrary();
    QCOMPARE(aboutToBeRemoved.count(), 2);
    QCOMPARE(removed.count(), 2);
    for (const QList<QVariant>& args : std::as_const(removed)) {
        QVERIFY(!args[0].value<QModelIndex>().isValid());
        QCOMPARE(args[1].toInt(), 0);
        QCOMPARE(args[2].toInt(), 0);
    }
    QCOMPARE(inserted.count(), 0);
    QCOMPARE(reset.count(), 0);
    QCOMPARE(model.rowCount(), 2);

    // A rebuild follows the agent's library.
    fx::useXmlLibrary(tw::testData("library-kinds.xml"));
    model.loadLibrary();
    QCOMPARE(model.rowCount(model.index(0, 0)), 8);
    QCOMPARE(model.rowCount(model.index(1, 0)), 5);
    QCOMPARE(model.data(model.index(0, 0, model.index(1, 0))).toString(),
             QString::fromUtf8("90’s Music"));
}

void TestLibraryModel::shouldTranslateBuiltInNamesButNotTheUsers()
{
    CLibraryNode library(LT_LIBRARY, "Library");
    CLibraryNode music(LT_PLAYLIST, "Music");
    CLibraryNode movies(LT_PLAYLIST, "Movies");
    CLibraryNode renamed(LT_PLAYLIST, "Musique"); // the library's own word kept
    library.children << &music << &movies << &renamed;
    music.parent = movies.parent = renamed.parent = &library;
    CLibraryNode lists(LT_PLAYLISTS, "PlayList");
    CLibraryNode mine(LT_PLAYLIST, "Music"); // a user's playlist of that name
    mine.parent = &lists;

    QTranslator french;
    QVERIFY(french.load("Tonewright_fr", TW_BINARY_DIR));
    QCoreApplication::installTranslator(&french);
    QCOMPARE(CLibraryModel::displayCaption(&library), QString::fromUtf8("Bibliothèque"));
    QCOMPARE(CLibraryModel::displayCaption(&music), QString("Musique"));
    QCOMPARE(CLibraryModel::displayCaption(&movies), QString("Films"));
    QCOMPARE(CLibraryModel::displayCaption(&renamed), QString("Musique"));
    QCOMPARE(CLibraryModel::displayCaption(&lists), QString("Listes de lecture"));
    QCOMPARE(CLibraryModel::displayCaption(&mine), QString("Music"));
    QCoreApplication::removeTranslator(&french);
    QCOMPARE(CLibraryModel::displayCaption(&music), QString("Music"));
    library.children.clear(); // the stack owns them
}

void TestLibraryModel::shouldTellTheViewsOfEveryCaptionOnRetranslate()
{
    CLibraryModel model;
    model.loadLibrary();
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    model.retranslate();
    // Each group, then the span of its children.
    QCOMPARE(changed.count(), 4);
    QCOMPARE(changed.at(0).at(0).value<QModelIndex>(), model.index(0, 0));
    const QModelIndex library = model.index(0, 0);
    QCOMPARE(changed.at(1).at(0).value<QModelIndex>(), model.index(0, 0, library));
    QCOMPARE(changed.at(1).at(1).value<QModelIndex>(),
             model.index(model.rowCount(library) - 1, 0, library));
    QCOMPARE(changed.at(2).at(0).value<QModelIndex>(), model.index(1, 0));
    for (const QList<QVariant>& args : changed)
        QCOMPARE(args.at(2).value<QList<int>>(), QList<int>({Qt::DisplayRole}));
}

void TestLibraryModel::shouldBeWalkableByTesterAndView()
{
    // Loaded before the view is made, as the main window does.
    CLibraryModel model;
    model.loadLibrary();
    lib::TesterWarnings warnings;
    QAbstractItemModelTester tester(&model,
                                    QAbstractItemModelTester::FailureReportingMode::Warning);
    QTreeView view;
    view.setModel(&model);
    view.expandAll();
    view.resize(240, 320);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    const QImage shot = view.grab().toImage();
    QVERIFY(!shot.isNull());
    // The view reaches every playlist by walking down from the root.
    int leaves = 0;
    for (int g = 0; g < model.rowCount(); ++g)
        for (int r = 0; r < model.rowCount(model.index(g, 0)); ++r)
            leaves += view.visualRect(model.index(r, 0, model.index(g, 0))).isValid() ? 1 : 0;
    QCOMPARE(leaves, 5);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {},
                      view.visualRect(model.index(1, 0, model.index(0, 0))).center());
    QCOMPARE(view.currentIndex().data().toString(), QString("Movies"));
    // The tester objects to the parent rows, which are deliberate (a parent
    // carries its child's row), once per group, and to nothing else.
    QCOMPARE(warnings.takeComplaints(),
             lib::parentRowComplaints(1, 0, "Movies", "Library") +
                 lib::parentRowComplaints(0, 1, "Road Trip", "PlayList"));
}

TW_TEST_MAIN(TestLibraryModel)
#include "tst_librarymodel.moc"
