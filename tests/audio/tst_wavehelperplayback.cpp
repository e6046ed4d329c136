// Playback through SDL's own audio thread: the disk driver records every
// buffer the engine's callback filled, which is compared with the model;
// and the fallback to the dummy driver when no audio device can be used.
// Each test picks its driver through the environment and starts SDL's
// audio afresh. Last, SDL started from nothing leaves SIGINT and SIGTERM
// to the program.

#include "audio/wavehelper.h"
#include "audiotestsupport.h"
#include "testenv.h"

#include <QObject>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

#include <SDL.h>

#include <cstring>

#ifdef Q_OS_UNIX
#include <signal.h>
#endif

namespace {

QStringList* g_messages = nullptr;

void captureMessage(QtMsgType, const QMessageLogContext&, const QString& text)
{
    if (g_messages)
        g_messages->append(text);
}

// Collects the debug stream while it lives.
struct MessageCapture
{
    MessageCapture() : previous(qInstallMessageHandler(captureMessage)) { g_messages = &lines; }
    ~MessageCapture()
    {
        qInstallMessageHandler(previous);
        g_messages = nullptr;
    }
    MessageCapture(const MessageCapture&) = delete;
    MessageCapture& operator=(const MessageCapture&) = delete;
    QStringList lines;
    QtMessageHandler previous;
};

} // namespace

class TestWaveHelperPlayback : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void shouldPlayEveryBufferWithEffectsThroughSdl_data();
    void shouldPlayEveryBufferWithEffectsThroughSdl();
    void shouldFallBackToDummyDriverWhenNoDriverStarts();
    void shouldFallBackToDummyDriverWhenDeviceCannotOpen();
    void shouldLeaveAnotherRecordsDeviceAlone();
    void shouldLeaveSignalHandlingToTheProgram();

private:
    QTemporaryDir m_dir;
};

void TestWaveHelperPlayback::initTestCase()
{
    QVERIFY(m_dir.isValid());
    if (qEnvironmentVariableIsEmpty("SDL_VIDEODRIVER"))
        qputenv("SDL_VIDEODRIVER", "dummy");
}

void TestWaveHelperPlayback::init()
{
    // The engine starts audio only when it is not running: make it pick
    // this test's driver.
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
    qputenv("SDL_AUDIODRIVER", "dummy");
    qunsetenv("SDL_DISKAUDIOFILE");
}

void TestWaveHelperPlayback::cleanup()
{
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

void TestWaveHelperPlayback::shouldPlayEveryBufferWithEffectsThroughSdl_data()
{
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("bits");
    QTest::addColumn<int>("seconds");
    // At least ten times the rate in bytes.
    QTest::newRow("8-bit mono") << 1 << 8 << 10;
    QTest::newRow("8-bit stereo") << 2 << 8 << 6;
    QTest::newRow("16-bit mono") << 1 << 16 << 6;
    QTest::newRow("16-bit stereo") << 2 << 16 << 3;
}

void TestWaveHelperPlayback::shouldPlayEveryBufferWithEffectsThroughSdl()
{
    QFETCH(int, channels);
    QFETCH(int, bits);
    QFETCH(int, seconds);
    const int rate = 8000;
    const int frameBytes = channels * bits / 8;
    const int length = 1024 * frameBytes;
    const char silence = bits == 8 ? char(128) : char(0);
    const QByteArray file = audiotest::makeWav(
        rate, channels, bits, audiotest::noise(qint64(rate) * seconds * frameBytes, seconds));
    const QString path = m_dir.filePath("played.wav");
    QVERIFY(audiotest::writeFile(path, file));
    const QString output = m_dir.filePath("device.raw");
    qputenv("SDL_AUDIODRIVER", "disk");
    qputenv("SDL_DISKAUDIOFILE", output.toLocal8Bit());
    qputenv("SDL_DISKAUDIODELAY", "1"); // a millisecond per buffer

    audiotest::Effects e;
    {
        audiotest::WaveGuard g;
        QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), &g.w), 0);
        QCOMPARE(QString::fromLatin1(SDL_GetCurrentAudioDriver()), QString("disk"));
        WaveHelperChangeVolume(&g.w, 110);
        WaveHelperFadeIn(&g.w, 0, 1);
        WaveHelperFadeOut(&g.w, 1, 1);
        e.volume = g.w.volume;
        e.fadeInStart = g.w.fadeInStart;
        e.fadeInEnd = g.w.fadeInEnd;
        e.fadeOutStart = g.w.fadeOutStart;
        e.fadeOutEnd = g.w.fadeOutEnd;
        QCOMPARE(WaveHelperPlay(&g.w), 1);
        QTRY_COMPARE_WITH_TIMEOUT(WaveHelperGetState(&g.w), 0, 20000);
        QCOMPARE(SDL_GetAudioStatus(), SDL_AUDIO_PAUSED);
        QCOMPARE(WaveHelperGetPos(&g.w), qint64(seconds) * 1000);
    } // closing the device closes the output file

    // Every buffer from the file's start to the empty read that stopped it.
    QByteArray expected;
    qint64 pos = 44;
    for (;;) {
        qint64 got = 0;
        expected += audiotest::apply(audiotest::readPadded(file, pos, length, bits, &got), pos,
                                     bits, channels, e);
        pos += got;
        if (got == 0)
            break;
    }

    // The device wrote silence while paused before and after; the played
    // buffers begin at the first one holding anything else.
    const QByteArray device = audiotest::readFile(output);
    QCOMPARE(device.size() % length, 0);
    int first = 0;
    while (first < device.size() && device[first] == silence)
        ++first;
    QVERIFY2(first < device.size(), "the device got nothing but silence");
    const int start = first - first % length;
    const QByteArray played = device.mid(start, expected.size());
    QCOMPARE(played.size(), expected.size());
    for (int i = 0; i < expected.size(); ++i) {
        if (played[i] != expected[i])
            QFAIL(qPrintable(QString("buffer %1, byte %2: got %3, expected %4")
                                 .arg(i / length)
                                 .arg(i % length)
                                 .arg(quint8(played[i]))
                                 .arg(quint8(expected[i]))));
    }
    const QByteArray after = device.mid(start + expected.size());
    QCOMPARE(after, QByteArray(after.size(), silence));
    QCOMPARE(audiotest::readFile(path).left(44), file.left(44));
}

void TestWaveHelperPlayback::shouldFallBackToDummyDriverWhenNoDriverStarts()
{
    const QString path = m_dir.filePath("fallback.wav");
    QVERIFY(audiotest::writeFile(
        path, audiotest::makeWav(44100, 2, 16, audiotest::noise(44100 * 4 * 3, 1))));
    qputenv("SDL_AUDIODRIVER", "no-such-driver");
    audiotest::WaveGuard g;
    {
        MessageCapture log;
        QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), &g.w), 0);
        QCOMPARE(log.lines.size(), 1);
        QVERIFY2(log.lines[0].startsWith("audio device unavailable: ") &&
                     log.lines[0].size() > int(strlen("audio device unavailable: ")),
                 qPrintable(log.lines[0]));
    }
    QCOMPARE(QString::fromLatin1(SDL_GetCurrentAudioDriver()), QString("dummy"));
    QVERIFY(g.w.peakTable != nullptr);
    QCOMPARE(WaveHelperPlay(&g.w), 1);
    QCOMPARE(SDL_GetAudioStatus(), SDL_AUDIO_PLAYING);
    QTRY_VERIFY_WITH_TIMEOUT(WaveHelperGetPos(&g.w) > 0, 5000); // silent, but it plays
    QCOMPARE(WaveHelperUninit(&g.w), 0);
}

void TestWaveHelperPlayback::shouldFallBackToDummyDriverWhenDeviceCannotOpen()
{
    const QString path = m_dir.filePath("fallback8.wav");
    QVERIFY(
        audiotest::writeFile(path, audiotest::makeWav(44100, 1, 8, audiotest::noise(441000, 2))));
    // The disk driver starts, but its device cannot be opened.
    qputenv("SDL_AUDIODRIVER", "disk");
    qputenv("SDL_DISKAUDIOFILE", m_dir.filePath("no/such/dir/out.raw").toLocal8Bit());
    audiotest::WaveGuard g;
    {
        MessageCapture log;
        QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), &g.w), 0);
        QCOMPARE(log.lines.size(), 1);
        QVERIFY2(log.lines[0].startsWith("audio device unavailable: "), qPrintable(log.lines[0]));
    }
    QCOMPARE(QString::fromLatin1(SDL_GetCurrentAudioDriver()), QString("dummy"));
    QCOMPARE(SDL_GetAudioStatus(), SDL_AUDIO_PAUSED);
    // The hint that chose the dummy driver is gone again.
    QCOMPARE(QString::fromLatin1(SDL_GetHint(SDL_HINT_AUDIODRIVER)), QString("disk"));
}

void TestWaveHelperPlayback::shouldLeaveAnotherRecordsDeviceAlone()
{
    const QString path = m_dir.filePath("twice.wav");
    QVERIFY(audiotest::writeFile(
        path, audiotest::makeWav(44100, 2, 16, audiotest::noise(44100 * 4 * 3, 3))));
    audiotest::WaveGuard first;
    QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), &first.w), 0);
    tagWaveInfo second;
    std::memset(&second, 0, sizeof second);
    {
        MessageCapture log;
        // One device only: a second open record is refused, not rerouted.
        QVERIFY(WaveHelperInit(path.toLocal8Bit().constData(), &second) < 0);
        QVERIFY2(log.lines.isEmpty(), qPrintable(log.lines.join('\n')));
    }
    QCOMPARE(QString::fromLatin1(SDL_GetCurrentAudioDriver()), QString("dummy"));
    QCOMPARE(WaveHelperPlay(&first.w), 1);
    QCOMPARE(SDL_GetAudioStatus(), SDL_AUDIO_PLAYING);
    QCOMPARE(WaveHelperStop(&first.w), 0);
    QCOMPARE(WaveHelperUninit(&second), 0);
}

void TestWaveHelperPlayback::shouldLeaveSignalHandlingToTheProgram()
{
    const QString path = m_dir.filePath("signals.wav");
    QVERIFY(audiotest::writeFile(
        path, audiotest::makeWav(44100, 2, 16, audiotest::noise(44100 * 4 * 3, 4))));
#ifdef Q_OS_UNIX
    // The test runner may have its own handlers for SIGINT and SIGTERM, and
    // SDL only takes a signal whose handler is the default: put the defaults
    // back for the time of the test, so that SDL would take them.
    struct SignalRestorer
    {
        struct sigaction oldInt, oldTerm;
        SignalRestorer()
        {
            struct sigaction plain;
            std::memset(&plain, 0, sizeof plain);
            plain.sa_handler = SIG_DFL;
            sigemptyset(&plain.sa_mask);
            sigaction(SIGINT, &plain, &oldInt);
            sigaction(SIGTERM, &plain, &oldTerm);
        }
        ~SignalRestorer()
        {
            sigaction(SIGINT, &oldInt, nullptr);
            sigaction(SIGTERM, &oldTerm, nullptr);
        }
        SignalRestorer(const SignalRestorer&) = delete;
        SignalRestorer& operator=(const SignalRestorer&) = delete;
    } restorer;
#endif
    // SDL installs its handlers when its event loop starts: start SDL from
    // nothing, with the hint saying it may.
    SDL_Quit();
    QCOMPARE(SDL_WasInit(SDL_INIT_EVERYTHING), Uint32(0));
    qunsetenv("SDL_NO_SIGNAL_HANDLERS");
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "0");
    QCOMPARE(QString::fromLatin1(SDL_GetHint(SDL_HINT_NO_SIGNAL_HANDLERS)), QString("0"));

    audiotest::WaveGuard g;
    QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), &g.w), 0);
    QVERIFY(SDL_WasInit(SDL_INIT_EVENTS) != 0);
    QVERIFY(SDL_GetHint(SDL_HINT_NO_SIGNAL_HANDLERS) != nullptr);
    QCOMPARE(QString::fromLatin1(SDL_GetHint(SDL_HINT_NO_SIGNAL_HANDLERS)), QString("1"));
#ifdef Q_OS_UNIX
    struct sigaction now;
    std::memset(&now, 0, sizeof now);
    QCOMPARE(sigaction(SIGINT, nullptr, &now), 0);
    QVERIFY(now.sa_handler == SIG_DFL);
    QCOMPARE(now.sa_flags & SA_SIGINFO, 0);
    std::memset(&now, 0, sizeof now);
    QCOMPARE(sigaction(SIGTERM, nullptr, &now), 0);
    QVERIFY(now.sa_handler == SIG_DFL);
    QCOMPARE(now.sa_flags & SA_SIGINFO, 0);
#endif
    QCOMPARE(WaveHelperUninit(&g.w), 0);
}

TW_TEST_MAIN(TestWaveHelperPlayback)
#include "tst_wavehelperplayback.moc"
