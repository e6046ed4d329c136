// The library loads beside the window: on a worker thread, while the tree
// shows "Loading library…" and the agent stays free. The library file here
// is a named pipe that the test fills when it chooses, so the load lasts
// exactly as long as the test needs; searches and playlist loads asked for
// meanwhile are answered when it ends, and the tree fills itself.

#include "libraryfixture.h"

#include "library/libraryloader.h"
#include "library/librarymodel.h"
#include "library/ringtonemodel.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>
#include <QTreeView>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// The writing end of the pipe the agent reads its library file from. Ends
// the load in any case: a test that fails half-way closes the pipe empty.
class LibraryPipe
{
public:
    explicit LibraryPipe(const QString& path) : m_path(QFile::encodeName(path))
    {
        m_made = mkfifo(m_path.constData(), 0600) == 0;
    }
    ~LibraryPipe() { close(QByteArray()); }
    LibraryPipe(const LibraryPipe&) = delete;
    LibraryPipe& operator=(const LibraryPipe&) = delete;

    bool made() const { return m_made; }

    // Hands the reader its document and the end of the file.
    bool close(const QByteArray& document)
    {
        if (!m_made || m_closed)
            return false;
        m_closed = true;
        // Opening for writing without blocking succeeds once the reader has
        // the pipe open (the loading thread may not have got that far yet).
        int fd = -1;
        for (int tries = 0; tries < 10000 && fd < 0; ++tries) {
            fd = ::open(m_path.constData(), O_WRONLY | O_NONBLOCK);
            if (fd < 0 && errno == ENXIO)
                usleep(1000);
            else
                break;
        }
        if (fd < 0)
            return false;
        qsizetype done = 0;
        while (done < document.size()) {
            const ssize_t n =
                ::write(fd, document.constData() + done, size_t(document.size() - done));
            if (n <= 0) {
                if (errno == EAGAIN) {
                    usleep(1000);
                    continue;
                }
                break;
            }
            done += n;
        }
        ::close(fd);
        return done == document.size();
    }

private:
    QByteArray m_path;
    bool m_made = false;
    bool m_closed = false;
};

} // namespace

class TestLibraryLoader : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;

private slots:
    void shouldShowALoadingRowAndAnswerEverythingWhenTheLoadEnds()
    {
        QVERIFY(m_dir.isValid());
        // The library's document, written as a file first and then piped.
        const lib::Library library = lib::makeLibrary(m_dir);
        const QByteArray document = fx::readFile(library.xml);
        QVERIFY(!document.isEmpty());
        LibraryPipe pipe(m_dir.filePath("piped library.xml"));
        QVERIFY(pipe.made());
        fx::useXmlLibrary(m_dir.filePath("piped library.xml"));

        CLibraryLoader* loader = CLibraryLoader::instance();
        QSignalSpy loaded(loader, &CLibraryLoader::loaded);
        QVERIFY(!loader->isLoading());
        loader->start();
        QVERIFY(loader->isLoading());

        // The tree: one row that says so, and nothing to select.
        CLibraryModel tree;
        tree.loadLibrary();
        lib::TesterWarnings warnings;
        QAbstractItemModelTester tester(&tree,
                                        QAbstractItemModelTester::FailureReportingMode::Warning);
        QTreeView view;
        view.setModel(&tree);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        QSignalSpy reset(&tree, &QAbstractItemModel::modelReset);
        QCOMPARE(tree.rowCount(), 1);
        const QModelIndex loadingRow = tree.index(0, 0);
        QCOMPARE(tree.data(loadingRow).toString(), QString::fromUtf8("Loading library…"));
        QCOMPARE(tree.rowCount(loadingRow), 0);
        QCOMPARE(tree.flags(loadingRow), Qt::NoItemFlags);
        QVERIFY(tree.data(loadingRow, Qt::FontRole).value<QFont>().italic());
        QCOMPARE(warnings.takeComplaints(), QStringList());

        // A search and a playlist asked for now wait for the load, and the
        // agent, which is not held by the load, is not asked.
        const unsigned long callsBefore = ItunesAgentCallCount(nullptr);
        CRingToneModel hits;
        hits.Search("abbey", FT_ALBUM);
        CRingToneModel songs;
        songs.load(LT_LIBRARY, 0);
        QCOMPARE(hits.rowCount(), 0);
        QCOMPARE(songs.rowCount(), 0);
        QCOMPARE(ItunesAgentCallCount(nullptr), callsBefore);
        QCOMPARE(ItunesAgentBackend(), int(ITA_BACKEND_NONE));
        QCOMPARE(loaded.count(), 0);
        QVERIFY(loader->isLoading());

        // The document arrives: the load ends on its thread, and everything
        // asked for meanwhile is answered.
        QVERIFY(pipe.close(document));
        QTRY_COMPARE_WITH_TIMEOUT(loaded.count(), 1, 10000);
        QVERIFY(!loader->isLoading());
        QCOMPARE(ItunesAgentBackend(), int(ITA_BACKEND_XML));
        QCOMPARE(reset.count(), 1);
        // The refill is announced as a reset; the tester finds only the
        // tree's deliberate parent rows.
        QCOMPARE(warnings.takeComplaints(),
                 lib::parentRowComplaints(1, 0, "Movies", "Library") +
                     lib::parentRowComplaints(0, 1, "Road Trip", "PlayList"));
        QCOMPARE(tree.rowCount(), 2);
        QCOMPARE(tree.data(tree.index(0, 0)).toString(), QString("Library"));
        QCOMPARE(tree.rowCount(tree.index(0, 0)), 3); // Music, Movies, Ringtones
        QCOMPARE(tree.data(tree.index(0, 0, tree.index(0, 0))).toString(), QString("Music"));
        QVERIFY(tree.data(tree.index(0, 0), Qt::FontRole).value<QFont>().weight() == QFont::Black);
        QCOMPARE(hits.rowCount(), 2);
        QCOMPARE(hits.data(hits.index(0, 0)).toString(), QString("Something"));
        QCOMPARE(songs.rowCount(), 5);
        QCOMPARE(songs.data(songs.index(0, 0)).toString(), QString("Yesterday"));

        // Without a load under way, models ask the agent at once.
        CLibraryModel again;
        again.loadLibrary();
        QCOMPARE(again.rowCount(), 2);
        hits.Search("beat", FT_TITLE);
        QCOMPARE(hits.rowCount(), 1);
    }
};

TW_TEST_MAIN(TestLibraryLoader)
#include "tst_libraryloader.moc"
