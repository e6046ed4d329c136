// The media engine's handles, media items, stream records and logger.

#include "mediafixtures.h"
#include "testenv.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <cstring>
#include <thread>
#include <vector>

#include <vexa.h>

class TestVexaCore : public QObject
{
    Q_OBJECT

private:
    static tagKeloMediaSrc source(const QByteArray& path)
    {
        tagKeloMediaSrc src;
        std::memset(&src, 0, sizeof src);
        src.pszPath = path.constData();
        return src;
    }

private slots:
    void shouldKeepRecordsAtTheirSizes()
    {
        QCOMPARE(sizeof(tagKeloStreamInfo), size_t(64));
        QCOMPARE(offsetof(tagKeloProgInfo, nProgress), size_t(8));
        QCOMPARE(offsetof(tagKeloProgInfo, nStatus), size_t(16));
    }

    void shouldHandOutDistinctTimelines()
    {
        const int a = CreateTimelineEx("com.vandrel.tonewright", -1);
        const int b = CreateTimelineEx("other", -1);
        QVERIFY(a > 0);
        QVERIFY(b > 0);
        QVERIFY(a != b);
        QCOMPARE(DestroyTimeline(a), int(KELO_OK));
        QCOMPARE(DestroyTimeline(b), int(KELO_OK));
    }

    void shouldRefuseBadHandles()
    {
        const QByteArray path = tw::wavFixture().toLocal8Bit();
        const tagKeloMediaSrc src = source(path);
        void* info = nullptr;
        QVERIFY(DestroyTimeline(0) < 0);
        QVERIFY(DestroyTimeline(-5) < 0);
        QVERIFY(DestroyTimeline(999999) < 0);
        QVERIFY(KeloAddMedia2(999999, &src, 0, 0) < 0);
        QVERIFY(KeloRemoveMedia(999999, 0) < 0);
        QVERIFY(KeloGetMediaInfo(999999, 0, &info) < 0);

        const int t = CreateTimelineEx("x", -1);
        QVERIFY(KeloRemoveMedia(t, 42) < 0);
        QVERIFY(KeloGetMediaInfo(t, 42, &info) < 0);
        QVERIFY(KeloGetMediaInfo(t, 0, nullptr) < 0);
        QVERIFY(KeloAddMedia2(t, nullptr, 0, 0) < 0);
        tagKeloMediaSrc empty;
        std::memset(&empty, 0, sizeof empty);
        QVERIFY(KeloAddMedia2(t, &empty, 0, 0) < 0);
        DestroyTimeline(t);
        // A destroyed timeline is a bad handle too.
        QVERIFY(KeloAddMedia2(t, &src, 0, 0) < 0);
        QVERIFY(DestroyTimeline(t) < 0);
    }

    void shouldRefuseFilesThatAreNotMedia_data()
    {
        QTest::addColumn<QString>("path");
        QTest::newRow("text") << tw::textFixture();
        QTest::newRow("empty") << tw::emptyFixture();
        QTest::newRow("missing") << tw::fixtureDir() + "/missing.flac";
        QTest::newRow("directory") << tw::fixtureDir();
    }

    void shouldRefuseFilesThatAreNotMedia()
    {
        QFETCH(QString, path);
        const int t = CreateTimelineEx("x", -1);
        const QByteArray local = path.toLocal8Bit();
        const tagKeloMediaSrc src = source(local);
        QVERIFY(KeloAddMedia2(t, &src, 0, 0) < 0);
        DestroyTimeline(t);
    }

    void shouldDescribeEachStreamIn64Bytes()
    {
        const int t = CreateTimelineEx("x", -1);
        const QByteArray path = tw::mp4AvFixture().toLocal8Bit();
        const tagKeloMediaSrc src = source(path);
        const int id = KeloAddMedia2(t, &src, 0, 0);
        QVERIFY(id >= 0);
        void* info = nullptr;
        const int n = KeloGetMediaInfo(t, id, &info);
        QCOMPARE(n, 2);
        QVERIFY(info);
        const auto* records = static_cast<const tagKeloStreamInfo*>(info);
        QSet<int> kinds{records[0].nKind, records[1].nKind};
        QCOMPARE(kinds, (QSet<int>{KELO_STREAM_AUDIO, KELO_STREAM_VIDEO}));
        for (int i = 0; i < n; ++i) {
            if (records[i].nKind == KELO_STREAM_AUDIO) {
                QCOMPARE(records[i].nSampleRate, 44100);
                QVERIFY(records[i].llDuration > 2500 && records[i].llDuration < 3500);
            } else {
                QCOMPARE(records[i].nWidth, 320);
                QCOMPARE(records[i].nHeight, 240);
            }
        }
        QCOMPARE(KeloRemoveMedia(t, id), int(KELO_OK));
        QVERIFY(KeloGetMediaInfo(t, id, &info) < 0);
        QVERIFY(KeloRemoveMedia(t, id) < 0);
        DestroyTimeline(t);
    }

    void shouldOpenRelativePathsThatLookLikeUrls()
    {
        const QString dir = tw::fixtureDir();
        QVERIFY(QFile::copy(tw::flacFixture(), dir + "/Song: Remix.flac"));
        const QString old = QDir::currentPath();
        QDir::setCurrent(dir);
        const int t = CreateTimelineEx("x", -1);
        const QByteArray rel("Song: Remix.flac");
        const tagKeloMediaSrc src = source(rel);
        const int id = KeloAddMedia2(t, &src, 0, 0);
        QDir::setCurrent(old);
        QVERIFY(id >= 0);
        DestroyTimeline(t);
    }

    void shouldKeepPathAndSpanOfAnItem()
    {
        const int t = CreateTimelineEx("x", -1);
        const QByteArray path = tw::wavFixture().toLocal8Bit();
        tagKeloMediaSrc src = source(path);
        src.llStart = 1000;
        src.llEnd = 2000;
        const int a = KeloAddMedia2(t, &src, 0, 0);
        const int b = KeloAddMedia2(t, &src, 0, 0);
        QVERIFY(a >= 0);
        QVERIFY(b > a);
        DestroyTimeline(t);
    }

    void shouldSurviveManyItems()
    {
        // Probes pile up for the life of the process; items must stay light.
        const int t = CreateTimelineEx("x", -1);
        const QByteArray path = tw::wavFixture().toLocal8Bit();
        const tagKeloMediaSrc src = source(path);
        int last = -1;
        for (int i = 0; i < 300; ++i)
            last = KeloAddMedia2(t, &src, 0, 0);
        QCOMPARE(last, 299);
        DestroyTimeline(t);
    }

    void shouldLogFromManyThreadsWithoutMixingLines()
    {
        QTemporaryDir data;
        KeloSetDataDirectory(data.path().toLocal8Bit().constData());
        std::vector<std::thread> threads;
        for (int t = 0; t < 8; ++t) {
            threads.emplace_back([t] {
                for (int i = 0; i < 200; ++i)
                    KeloLogMessage(0, "thread %d line %d %s", t, i, "payload-payload-payload");
            });
        }
        for (auto& th : threads)
            th.join();
        const QString name = QDate::currentDate().toString("dd.MM.yyyy") + ".log";
        QFile f(data.path() + "/log/" + name);
        QVERIFY2(f.open(QIODevice::ReadOnly), qPrintable(f.fileName()));
        const QList<QByteArray> lines = f.readAll().split('\n');
        int count = 0;
        for (const QByteArray& line : lines) {
            if (line.isEmpty())
                continue;
            QVERIFY2(line.endsWith("payload-payload-payload"), line.constData());
            QVERIFY(line.contains(" thread "));
            ++count;
        }
        QCOMPARE(count, 8 * 200);
        KeloSetDataDirectory(nullptr);
    }

    void shouldTellTheFilesOwnArtistInTwoPasses()
    {
        const int t = CreateTimelineEx("com.vandrel.tonewright", -1);
        const QByteArray tagged = tw::mp3Fixture(5).toLocal8Bit(); // artist "Tonewright"
        tagKeloMediaSrc src = source(tagged);
        const int media = KeloAddMedia2(t, &src, 0, 0);
        QVERIFY(media >= 0);
        QCOMPARE(KeloGetMediaArtist(t, media, nullptr, 0), 11);
        char small[5] = {'x', 'x', 'x', 'x', 'x'};
        QCOMPARE(KeloGetMediaArtist(t, media, small, sizeof small), 11);
        QCOMPARE(QByteArray(small), QByteArray("Tone")); // cut, and terminated
        char whole[32] = {};
        KeloGetMediaArtist(t, media, whole, sizeof whole);
        QCOMPARE(QByteArray(whole), QByteArray("Tonewright"));
        const QByteArray plain = tw::wavFixture(3).toLocal8Bit(); // no tags at all
        tagKeloMediaSrc bare = source(plain);
        const int untagged = KeloAddMedia2(t, &bare, 0, 0);
        QCOMPARE(KeloGetMediaArtist(t, untagged, whole, sizeof whole), 1);
        QCOMPARE(QByteArray(whole), QByteArray());
        QCOMPARE(KeloGetMediaArtist(t, 9999, whole, sizeof whole), int(KELO_E_HANDLE));
        DestroyTimeline(t);
    }

    void shouldKeepWritingTheDayFileWithoutTheEcho()
    {
        QTemporaryDir data;
        KeloSetDataDirectory(data.path().toLocal8Bit().constData());
        KeloSetLogEcho(0);
        KeloLogMessage(0, "%s", "only in the file");
        KeloSetLogEcho(1);
        QFile f(data.path() + "/log/" + QDate::currentDate().toString("dd.MM.yyyy") + ".log");
        QVERIFY(f.open(QIODevice::ReadOnly));
        QVERIFY(f.readAll().contains("only in the file"));
        KeloSetDataDirectory(nullptr);
    }

    void shouldPassLogTextThroughPercentFormat()
    {
        QTemporaryDir data;
        KeloSetDataDirectory(data.path().toLocal8Bit().constData());
        KeloLogMessage(0, "%s", "50% of %d");
        QFile f(data.path() + "/log/" + QDate::currentDate().toString("dd.MM.yyyy") + ".log");
        QVERIFY(f.open(QIODevice::ReadOnly));
        QVERIFY(f.readAll().contains("50% of %d"));
        KeloSetDataDirectory(nullptr);
    }
};

TW_TEST_MAIN(TestVexaCore)
#include "tst_vexacore.moc"
