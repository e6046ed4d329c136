// The media engine's video player on real files: the first picture, seeks
// that land on the last picture at or before the position, playing with its
// events, pausing, the end, and failures (no file, no video, a truncated
// file, destroying while decoding). Pictures go to a surface that records
// them; their colours tell which second of the video they show.

#include "mediafixtures.h"
#include "testenv.h"

#include <vexa.h>

#include <QColor>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <algorithm>
#include <atomic>
#include <cstring>
#include <mutex>
#include <vector>

namespace {

// Records every picture and event it gets, from the player's thread.
struct Recorder
{
    tagVexaSurface surface;
    std::mutex mutex;
    std::vector<qint64> positions;
    QImage last;
    std::vector<std::pair<int, qint64>> events; // kind, position
    int boxWidth = 64;
    int boxHeight = 48;
    std::vector<int> players; // reporting here: gone before the recorder is

    Recorder()
    {
        surface.pfnTargetSize = [](tagVexaSurface* s, int32_t* w, int32_t* h) {
            auto* self = reinterpret_cast<Recorder*>(s);
            *w = self->boxWidth;
            *h = self->boxHeight;
        };
        surface.pfnShowFrame = [](tagVexaSurface* s, const uint8_t* pixels, int32_t w, int32_t h,
                                  int32_t stride, int64_t position) {
            auto* self = reinterpret_cast<Recorder*>(s);
            std::lock_guard<std::mutex> lock(self->mutex);
            self->positions.push_back(position);
            self->last = QImage(pixels, w, h, stride, QImage::Format_RGB32).copy();
        };
    }
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;
    // A test that fails half way leaves its players playing: they must not
    // report to a recorder that no longer exists.
    ~Recorder()
    {
        for (int p : players)
            VexaDestroy(p);
        VexaRemoveEnvironment(&surface);
    }
    static int onEvent(tagKeloEvent* event, void* user)
    {
        auto* self = static_cast<Recorder*>(user);
        std::lock_guard<std::mutex> lock(self->mutex);
        self->events.emplace_back(event->nKind, event->nPosition);
        return 0;
    }
    qint64 lastPosition()
    {
        std::lock_guard<std::mutex> lock(mutex);
        return positions.empty() ? -1 : positions.back();
    }
    bool showed(qint64 at)
    {
        std::lock_guard<std::mutex> lock(mutex);
        return std::find(positions.begin(), positions.end(), at) != positions.end();
    }
    int pictures()
    {
        std::lock_guard<std::mutex> lock(mutex);
        return int(positions.size());
    }
    QImage picture()
    {
        std::lock_guard<std::mutex> lock(mutex);
        return last;
    }
    int count(int kind)
    {
        std::lock_guard<std::mutex> lock(mutex);
        int n = 0;
        for (const auto& e : events)
            n += e.first == kind;
        return n;
    }
    std::vector<std::pair<int, qint64>> takeEvents()
    {
        std::lock_guard<std::mutex> lock(mutex);
        return events;
    }
};

// Red, green and blue seconds at 10 pictures a second.
QString colourSeconds(const QString& dir, const QString& name, const QStringList& codec)
{
    const QString path = dir + "/" + name;
    QString error;
    const bool ok =
        tw::ffmpeg(QStringList{"-f", "lavfi", "-i", "color=c=red:s=96x72:r=10:d=1", "-f", "lavfi",
                               "-i", "color=c=0x00ff00:s=96x72:r=10:d=1", "-f", "lavfi", "-i",
                               "color=c=blue:s=96x72:r=10:d=1", "-filter_complex",
                               "[0][1][2]concat=n=3:v=1:a=0,format=yuv420p", "-g", "7"} +
                       codec + QStringList{path},
                   &error);
    if (!ok)
        qWarning("%s", qPrintable(error));
    return ok ? path : QString();
}

QString colourAt(const QImage& image)
{
    const QColor c = image.pixelColor(image.width() / 2, image.height() / 2);
    if (c.red() > 150 && c.green() < 100 && c.blue() < 100)
        return "red";
    if (c.green() > 150 && c.red() < 100 && c.blue() < 100)
        return "green";
    if (c.blue() > 150 && c.red() < 100 && c.green() < 100)
        return "blue";
    return c.name();
}

} // namespace

class TestVexaPlayer : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    int m_timeline = 0;
    QString m_h264;
    QString m_vp9;

    int player(const QString& path, Recorder& rec)
    {
        tagKeloMediaSrc src;
        std::memset(&src, 0, sizeof src);
        const QByteArray local = QFile::encodeName(path);
        src.pszPath = local.constData();
        const int media = KeloAddMedia2(m_timeline, &src, 0, 0);
        if (media < 0)
            return media;
        void* object = nullptr;
        if (KeloGetMediaObject(m_timeline, media, &object) != KELO_OK)
            return -100;
        tagVexaCreateParam param;
        std::memset(&param, 0, sizeof param);
        param.nTimeline = m_timeline;
        param.pMediaObject = object;
        param.nWidth = 180;
        param.nHeight = 135;
        param.pfnEvent = &Recorder::onEvent;
        param.pUser = &rec;
        int handle = 0;
        const int rc = VexaCreateEx(&param, 0, 1, &handle);
        if (rc < 0)
            return rc;
        rec.players.push_back(handle);
        return handle;
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        m_timeline = CreateTimelineEx("tst_vexaplayer", -1);
        QVERIFY(m_timeline > 0);
        m_h264 = colourSeconds(m_dir.path(), "colours.mp4", {"-c:v", "libx264"});
        m_vp9 = colourSeconds(m_dir.path(), "colours.webm",
                              {"-c:v", "libvpx-vp9", "-deadline", "realtime"});
        QVERIFY(!m_h264.isEmpty() && !m_vp9.isEmpty());
    }

    void cleanupTestCase() { VexaSetEnvironment(nullptr); }

    void shouldShowTheFirstPictureFittedToTheSurface_data()
    {
        QTest::addColumn<QString>("file");
        QTest::newRow("H.264 in MP4") << "colours.mp4";
        QTest::newRow("VP9 in WebM") << "colours.webm";
    }
    void shouldShowTheFirstPictureFittedToTheSurface()
    {
        QFETCH(QString, file);
        Recorder rec;
        rec.boxWidth = 200; // wider than the picture's shape: fitted by height
        rec.boxHeight = 100;
        VexaSetEnvironment(&rec.surface);
        const int p = player(m_dir.filePath(file), rec);
        QVERIFY(p > 0);
        QTRY_VERIFY_WITH_TIMEOUT(rec.pictures() >= 1, 10000);
        QCOMPARE(rec.lastPosition(), 0LL);
        QCOMPARE(colourAt(rec.picture()), QString("red"));
        QCOMPARE(rec.picture().size(), QSize(132, 100)); // 4:3 in 200 x 100, even sizes
        QCOMPARE(VexaDestroy(p), int(KELO_OK));
        QCOMPARE(VexaDestroy(p), int(KELO_E_HANDLE));
    }

    void shouldSeekToTheLastPictureAtOrBeforeThePosition_data()
    {
        QTest::addColumn<qint64>("target");
        QTest::addColumn<qint64>("shown");
        QTest::addColumn<QString>("colour");
        QTest::newRow("one second") << 1000LL << 1000LL << "green";
        QTest::newRow("between pictures") << 1099LL << 1000LL << "green";
        QTest::newRow("the next picture") << 1100LL << 1100LL << "green";
        QTest::newRow("just before the blue second") << 1999LL << 1900LL << "green";
        QTest::newRow("into blue, past a key picture") << 2550LL << 2500LL << "blue";
        QTest::newRow("past the end: the last picture") << 9000LL << 2900LL << "blue";
    }
    void shouldSeekToTheLastPictureAtOrBeforeThePosition()
    {
        QFETCH(qint64, target);
        QFETCH(qint64, shown);
        QFETCH(QString, colour);
        Recorder rec;
        VexaSetEnvironment(&rec.surface);
        const int p = player(m_h264, rec);
        QVERIFY(p > 0);
        QTRY_VERIFY_WITH_TIMEOUT(rec.pictures() >= 1, 10000);
        QCOMPARE(VexaSeekToPos(p, target), int(KELO_OK));
        QTRY_COMPARE_WITH_TIMEOUT(rec.lastPosition(), shown, 10000);
        QCOMPARE(colourAt(rec.picture()), colour);
        // Played from there, the clock starts at the position asked for: the
        // first event is no further on than the time since playing began.
        QElapsedTimer sincePlay;
        sincePlay.start();
        VexaPlay(p);
        QTRY_VERIFY_WITH_TIMEOUT(rec.count(KELO_EVENT_PROGRESS) >= 1, 10000);
        const qint64 bound = target + sincePlay.elapsed();
        const std::pair<int, qint64> first = rec.takeEvents().front();
        QCOMPARE(first.first, int(KELO_EVENT_PROGRESS));
        QVERIFY2(
            first.second >= target && first.second <= bound,
            qPrintable(QString("%1 not in [%2, %3]").arg(first.second).arg(target).arg(bound)));
        VexaDestroy(p);
    }

    void shouldPlayReportPauseAndRestAtTheEnd()
    {
        Recorder rec;
        VexaSetEnvironment(&rec.surface);
        const int p = player(m_vp9, rec);
        QVERIFY(p > 0);
        QTRY_VERIFY_WITH_TIMEOUT(rec.pictures() >= 1, 10000);
        QCOMPARE(VexaPlay(p), int(KELO_OK));
        QTRY_VERIFY_WITH_TIMEOUT(rec.lastPosition() >= 1000, 10000);
        QCOMPARE(VexaPause(p), int(KELO_OK));
        // Pictures come in their order, and progress while playing.
        {
            std::lock_guard<std::mutex> lock(rec.mutex);
            for (size_t i = 1; i < rec.positions.size(); ++i)
                QVERIFY(rec.positions[i] >= rec.positions[i - 1]);
        }
        std::vector<qint64> progress;
        for (const auto& e : rec.takeEvents())
            if (e.first == KELO_EVENT_PROGRESS)
                progress.push_back(e.second);
        QVERIFY(progress.size() >= 3);
        for (size_t i = 1; i < progress.size(); ++i)
            QVERIFY(progress[i] >= progress[i - 1]);
        // Played on, it ends on the last picture and says so.
        QCOMPARE(VexaPlay(p), int(KELO_OK));
        QTRY_VERIFY_WITH_TIMEOUT(rec.count(KELO_EVENT_END) == 1, 10000);
        QCOMPARE(rec.lastPosition(), 2900LL);
        QCOMPARE(colourAt(rec.picture()), QString("blue"));
        // A seek after the end shows a picture again.
        VexaSeekToPos(p, 500);
        QTRY_COMPARE_WITH_TIMEOUT(rec.lastPosition(), 500LL, 10000);
        VexaDestroy(p);
    }

    void shouldShowThePicturesAtTheVideosOwnRate()
    {
        // 25 pictures a second, small enough to decode at once: playing
        // shows them one after the other, not one per progress event.
        const QString path = m_dir.filePath("rate25.mp4");
        QVERIFY(tw::ffmpeg({"-f", "lavfi", "-i", "testsrc=size=64x48:rate=25:duration=3", "-c:v",
                            "libx264", "-pix_fmt", "yuv420p", path}));
        Recorder rec;
        VexaSetEnvironment(&rec.surface);
        const int p = player(path, rec);
        QVERIFY(p > 0);
        QTRY_VERIFY_WITH_TIMEOUT(rec.pictures() >= 1, 10000);
        QCOMPARE(VexaPlay(p), int(KELO_OK));
        QTRY_VERIFY_WITH_TIMEOUT(rec.lastPosition() >= 2000, 10000);
        VexaPause(p);
        int shown = 0;
        {
            std::lock_guard<std::mutex> lock(rec.mutex);
            for (qint64 at : rec.positions)
                shown += at > 0 && at <= 2000;
        }
        // 50 pictures in those two seconds; a late one may be skipped on a
        // busy machine, but most must show.
        QVERIFY2(shown >= 35, qPrintable(QString::number(shown)));
        VexaDestroy(p);
    }

    void shouldFailWithoutACrash()
    {
        Recorder rec;
        VexaSetEnvironment(&rec.surface);
        // A song has no picture to play.
        const int song = player(tw::mp3Fixture(3), rec);
        QVERIFY(song > 0);
        QTRY_COMPARE_WITH_TIMEOUT(rec.count(KELO_EVENT_OPEN_FAILED), 1, 10000);
        QCOMPARE(VexaPlay(song), int(KELO_OK));
        VexaDestroy(song);
        // A video cut in half plays what is there and ends.
        const QString cut = m_dir.filePath("cut.mkv");
        // Matroska keeps its index up front: half a file still opens.
        QString error;
        QVERIFY(tw::ffmpeg({"-i", m_vp9, "-c", "copy", cut}, &error));
        QFile f(cut);
        QVERIFY(f.open(QIODevice::ReadWrite));
        QVERIFY(f.resize(f.size() / 2));
        f.close();
        Recorder cutRec;
        VexaSetEnvironment(&cutRec.surface);
        const int half = player(cut, cutRec);
        QVERIFY(half > 0);
        VexaPlay(half);
        QTRY_VERIFY_WITH_TIMEOUT(
            cutRec.count(KELO_EVENT_END) + cutRec.count(KELO_EVENT_DECODE_FAILED) == 1, 15000);
        VexaDestroy(half);
        // Bad handles and records.
        QCOMPARE(VexaPlay(99999), int(KELO_E_HANDLE));
        QCOMPARE(VexaPause(-1), int(KELO_E_HANDLE));
        QCOMPARE(VexaSeekToPos(0, 5), int(KELO_E_HANDLE));
        int handle = 0;
        QCOMPARE(VexaCreateEx(nullptr, 0, 1, &handle), int(KELO_E_ARGUMENT));
        tagVexaCreateParam param;
        std::memset(&param, 0, sizeof param);
        param.nTimeline = m_timeline;
        param.pMediaObject = reinterpret_cast<void*>(intptr_t(12345));
        QCOMPARE(VexaCreateEx(&param, 0, 1, &handle), int(KELO_E_HANDLE));
        void* object = nullptr;
        QCOMPARE(KeloGetMediaObject(m_timeline, 9999, &object), int(KELO_E_HANDLE));
        QCOMPARE(KeloGetMediaObject(m_timeline, 0, nullptr), int(KELO_E_ARGUMENT));
    }

    void shouldStopCleanlyWhileDecodingAndSeeking()
    {
        Recorder rec;
        VexaSetEnvironment(&rec.surface);
        for (int i = 0; i < 20; ++i) {
            const int p = player(i % 2 ? m_vp9 : m_h264, rec);
            QVERIFY(p > 0);
            VexaPlay(p);
            VexaSeekToPos(p, 100 * i);
            VexaSeekToPos(p, 2000);
            if (i % 3 == 0)
                QTest::qWait(i);
            QCOMPARE(VexaDestroy(p), int(KELO_OK));
        }
        // Nothing comes after the players are gone.
        const int pictures = rec.pictures();
        VexaSetEnvironment(nullptr);
        QCOMPARE(rec.pictures(), pictures);
    }

    void shouldLetASurfaceGoWhilePlaying()
    {
        auto rec = std::make_unique<Recorder>();
        VexaSetEnvironment(&rec->surface);
        const int p = player(m_h264, *rec);
        VexaPlay(p);
        QTRY_VERIFY_WITH_TIMEOUT(rec->pictures() >= 3, 10000);
        QCOMPARE(VexaRemoveEnvironment(&rec->surface), int(KELO_OK));
        rec->surface.pfnShowFrame = nullptr; // would crash if called again
        rec->surface.pfnTargetSize = nullptr;
        const int events = rec->count(KELO_EVENT_PROGRESS);
        VexaSeekToPos(p, 0);
        QTRY_VERIFY_WITH_TIMEOUT(rec->count(KELO_EVENT_PROGRESS) >= events + 2, 10000);
        // Removing a surface that is not the one set leaves the set one.
        Recorder other;
        VexaSetEnvironment(&other.surface);
        VexaRemoveEnvironment(&rec->surface);
        VexaSeekToPos(p, 1500);
        // Still playing: the picture at 1500 shows, and later ones follow it.
        QTRY_VERIFY_WITH_TIMEOUT(other.showed(1500), 10000);
        VexaDestroy(p);
        VexaSetEnvironment(nullptr);
    }
};

TW_TEST_MAIN(TestVexaPlayer)
#include "tst_vexaplayer.moc"
