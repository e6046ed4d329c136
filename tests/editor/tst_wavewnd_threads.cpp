// Playback on SDL's own audio thread while the user drags the play cursor
// and the editor seeks: many drags and seeks during real playback through
// SDL's disk driver, which records every buffer the engine's callback
// filled. Each recorded buffer must be one unbroken run of the file's
// frames (a seek never lands inside a callback's read), and every drag must
// go on playing from where the cursor was dropped. Under the thread
// sanitizer (make check-tsan) the same run shows that the engine record is
// shared without a data race.

#include "wavewndfixture.h"

#include <QFile>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>

#include <SDL.h>

#include <memory>

namespace {

constexpr int kRate = 44100;
constexpr int kSeconds = 120;
constexpr int kFrameBytes = 4;
constexpr int kBufferBytes = 1024 * kFrameBytes;
constexpr int kRulerY = 5;

// Frame f carries f + 1 split over its two channels: never silence, and
// every frame of the file is told apart.
int frameSample(qint64 frame, int channel)
{
    const qint64 n = frame + 1;
    return channel == 0 ? int(n & 0x7FFF) : int((n >> 15) & 0x7FFF);
}

qint64 frameAt(const QByteArray& device, qsizetype offset)
{
    const auto* p = reinterpret_cast<const uchar*>(device.constData() + offset);
    const qint64 left = p[0] | (p[1] << 8);
    const qint64 right = p[2] | (p[3] << 8);
    return (left | (right << 15)) - 1;
}

} // namespace

class TestWaveWndThreads : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir dir;
    QString wav;
    QString device;

private slots:
    void initTestCase()
    {
        QVERIFY(dir.isValid());
        wav = dir.filePath("frames.wav");
        QVERIFY(tw::writeWav(wav, kRate, 2, 16, qint64(kRate) * kSeconds, frameSample));
        device = dir.filePath("device.raw");
        // The engine starts SDL's audio itself: make it take the disk driver,
        // five milliseconds a buffer (about four times real time).
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
        qputenv("SDL_AUDIODRIVER", "disk");
        qputenv("SDL_DISKAUDIOFILE", QFile::encodeName(device));
        qputenv("SDL_DISKAUDIODELAY", "5");
    }

    void cleanupTestCase() { SDL_QuitSubSystem(SDL_INIT_AUDIO); }

    void shouldPlayOnFromEveryDropAndSeekWithoutTearingABuffer()
    {
        auto w = std::make_unique<CWaveWnd>();
        w->resize(1250, 200); // the whole song at zoom 1: 1200 px
        w->show();
        QVERIFY(QTest::qWaitForWindowExposed(w.get()));
        QCOMPARE(twed::load(*w, wav), 0);
        QCOMPARE(QString::fromLatin1(SDL_GetCurrentAudioDriver()), QString("disk"));
        QSignalSpy moved(w.get(), &CWaveWnd::playPosChange);

        w->play();
        QTRY_VERIFY_WITH_TIMEOUT(w->model().playPos() > 1000, 10000);

        QRandomGenerator random(20261123);
        int drops = 0;
        for (int i = 0; i < 150; ++i) {
            // Grab the cursor by its marker in the ruler and drop it elsewhere.
            const int from = w->model().timeToX(w->model().playPos());
            const int to = random.bounded(50, 1000);
            QTest::mousePress(w.get(), Qt::LeftButton, {}, QPoint(from + 1, kRulerY));
            QCOMPARE(w->model().mouseMode(), int(MM_PLAY_CURSOR));
            QTest::mouseMove(w.get(), QPoint(to, kRulerY));
            moved.clear();
            QTest::mouseRelease(w.get(), Qt::LeftButton, {}, QPoint(to, kRulerY));
            const long long target = w->model().playPos();
            if (moved.count() == 1) {
                ++drops;
                QCOMPARE(moved.at(0).at(0).toLongLong(), target);
                QCOMPARE(w->playback().engineState(), 1);
                // The audio thread only moves forward from the drop (a seek
                // counts 44 frames a millisecond at 44.1 kHz).
                const long long seekedTo = target * 44 * 1000 / kRate;
                QVERIFY2(
                    w->playback().enginePos() >= seekedTo,
                    qPrintable(QString("%1 < %2").arg(w->playback().enginePos()).arg(seekedTo)));
            }
            // And seeks straight on the engine, and sets the volume and the
            // fades the callback reads, with the audio thread running (the
            // values leave the sound as it is).
            WaveHelperSetPos(&w->playback().record(), random.bounded(5000, 80000));
            w->setVolume(100);
            w->applyEffect(false);
            // A buffer's time for the audio thread to take a buffer or two.
            QTest::qWait(5);
        }
        QVERIFY2(drops > 100, qPrintable(QString::number(drops)));
        QCOMPARE(w->playback().engineState(), 1);
        w->stop(); // closing the device closes the recording
        w.reset();

        QFile out(device);
        QVERIFY(out.open(QIODevice::ReadOnly));
        const QByteArray played = out.readAll();
        QCOMPARE(played.size() % kBufferBytes, 0);
        int buffers = 0;
        int jumps = 0;
        qint64 previousEnd = -1;
        for (qsizetype b = 0; b < played.size(); b += kBufferBytes) {
            // Paused buffers are silence; a played one holds frames only.
            const QByteArray buffer = played.mid(b, kBufferBytes);
            if (buffer == QByteArray(kBufferBytes, '\0'))
                continue;
            ++buffers;
            const qint64 first = frameAt(played, b);
            QVERIFY2(first >= 0 && first < qint64(kRate) * kSeconds,
                     qPrintable(QString("buffer at %1 starts with %2").arg(b).arg(first)));
            for (int k = 1; k < 1024; ++k) {
                const qint64 frame = frameAt(played, b + k * kFrameBytes);
                if (frame != first + k)
                    QFAIL(qPrintable(QString("buffer at byte %1 is torn at frame %2: %3 after %4")
                                         .arg(b)
                                         .arg(k)
                                         .arg(frame)
                                         .arg(first + k - 1)));
            }
            if (previousEnd >= 0 && first != previousEnd)
                ++jumps;
            previousEnd = first + 1024;
        }
        QVERIFY2(buffers > 150, qPrintable(QString::number(buffers)));
        // Playback went on from the new places.
        QVERIFY2(jumps > 75, qPrintable(QString::number(jumps)));
    }
};

TW_TEST_MAIN(TestWaveWndThreads)
#include "tst_wavewnd_threads.moc"
