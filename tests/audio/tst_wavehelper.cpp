// The WAV engine's opening, peak table, raw data, positions, fade offsets
// and play state, on real files through real SDL (dummy audio driver).

#include "audio/wavehelper.h"
#include "audiotestsupport.h"
#include "testenv.h"

#include <QFileInfo>
#include <QObject>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>

#include <SDL.h>
#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <future>
#include <memory>
#include <thread>

namespace {

bool isZero(const tagWaveInfo& w)
{
    tagWaveInfo zero;
    std::memset(&zero, 0, sizeof zero);
    return std::memcmp(&w, &zero, sizeof w) == 0;
}

} // namespace

class TestWaveHelper : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void shouldRefuseNullArguments();
    void shouldFailWhenFileCannotBeOpened_data();
    void shouldFailWhenFileCannotBeOpened();
    void shouldRefuseFileWithoutRiffHeader_data();
    void shouldRefuseFileWithoutRiffHeader();
    void shouldRefuseFileOverSizeLimit();
    void shouldAcceptFileAtSizeLimit();
    void shouldRefuseTooLittleDataCountedInBytes_data();
    void shouldRefuseTooLittleDataCountedInBytes();
    void shouldAcceptUnknownFormatWithoutPeaksOrDevice_data();
    void shouldAcceptUnknownFormatWithoutPeaksOrDevice();
    void shouldReadHeaderIntoRecord_data();
    void shouldReadHeaderIntoRecord();
    void shouldRefuseSampleRatesOutsideItsRange_data();
    void shouldRefuseSampleRatesOutsideItsRange();
    void shouldCountOnlyTheDataTheFileHolds();
    void shouldOpenAndCloseWhatNeverEndsWithinTheLimit_data();
    void shouldOpenAndCloseWhatNeverEndsWithinTheLimit();

    void shouldBuildPeakTable_data();
    void shouldBuildPeakTable();

    void shouldServeRawDataFromRoundedOffset_data();
    void shouldServeRawDataFromRoundedOffset();
    void shouldNeverWritePastRawBuffer();

    void shouldPlaceFadesAtByteOffsets_data();
    void shouldPlaceFadesAtByteOffsets();
    void shouldStoreVolumeWithoutRangeCheck();
    void shouldSeekByWholeMillisecondFrames_data();
    void shouldSeekByWholeMillisecondFrames();
    void shouldAnswerPositionWithoutStream();

    void shouldToggleBetweenPlayAndPause();
    void shouldPauseOnlyWhilePlaying();
    void shouldStopWithoutRewinding();
    void shouldStopAtEndOfData();

    void shouldZeroRecordOnUninit();
    void shouldRefuseNullRecordOnUninit();
    void shouldReopenAfterUninit();

private:
    QString makeWav(const QString& name, int rate, int channels, int bits, const QByteArray& data,
                    qint64 headerDataSize = -1);

    QTemporaryDir m_dir;
};

void TestWaveHelper::initTestCase()
{
    QVERIFY(m_dir.isValid());
    if (qEnvironmentVariableIsEmpty("SDL_VIDEODRIVER"))
        qputenv("SDL_VIDEODRIVER", "dummy");
    qputenv("SDL_AUDIODRIVER", "dummy");
}

QString TestWaveHelper::makeWav(const QString& name, int rate, int channels, int bits,
                                const QByteArray& data, qint64 headerDataSize)
{
    const QString path = m_dir.filePath(name);
    if (!audiotest::writeFile(path, audiotest::makeWav(rate, channels, bits, data, headerDataSize)))
        qWarning("cannot write %s", qPrintable(path));
    return path;
}

void TestWaveHelper::shouldRefuseNullArguments()
{
    audiotest::WaveGuard g;
    const QString path = makeWav("null.wav", 44100, 1, 8, audiotest::noise(441000, 1));
    QCOMPARE(WaveHelperInit(nullptr, &g.w), -4);
    QVERIFY(isZero(g.w));
    QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), nullptr), -4);
}

void TestWaveHelper::shouldFailWhenFileCannotBeOpened_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("missing") << m_dir.filePath("no such file.wav");
    QTest::newRow("directory") << m_dir.path();
}

void TestWaveHelper::shouldFailWhenFileCannotBeOpened()
{
    QFETCH(QString, path);
    audiotest::WaveGuard g;
    QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), &g.w), -1);
    QVERIFY(isZero(g.w));
}

void TestWaveHelper::shouldRefuseFileWithoutRiffHeader_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QByteArray wav = audiotest::makeWav(8000, 1, 8, audiotest::noise(80000, 2));
    QByteArray rifx = wav;
    rifx[3] = 'X';
    QTest::newRow("RIFX") << rifx;
    QTest::newRow("lower case") << QByteArray("riff") + wav.mid(4);
    QTest::newRow("empty file") << QByteArray();
    QTest::newRow("three bytes") << QByteArray("RIF");
    QTest::newRow("text") << QByteArray("hello, this is not a wave file at all\n");
}

void TestWaveHelper::shouldRefuseFileWithoutRiffHeader()
{
    QFETCH(QByteArray, bytes);
    const QString path = m_dir.filePath("notriff.wav");
    QVERIFY(audiotest::writeFile(path, bytes));
    tagWaveInfo w;
    std::memset(&w, 0x5A, sizeof w);
    tagWaveInfo before = w;
    QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), &w), -2);
    QVERIFY(std::memcmp(&w, &before, sizeof w) == 0); // record untouched
    QCOMPARE(audiotest::readFile(path), bytes);
}

void TestWaveHelper::shouldRefuseFileOverSizeLimit()
{
    const QString path = m_dir.filePath("huge.wav");
    QVERIFY(audiotest::writeFile(path, audiotest::makeWav(8000, 2, 16, QByteArray(80000, 0))));
    QFile f(path);
    QVERIFY(f.resize(0x7D000001LL)); // sparse: takes no disk space
    tagWaveInfo w;
    std::memset(&w, 0x33, sizeof w);
    tagWaveInfo before = w;
    QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), &w), -3);
    QVERIFY(std::memcmp(&w, &before, sizeof w) == 0);
    QCOMPARE(QFileInfo(path).size(), 0x7D000001LL);
    QFile::remove(path);
}

void TestWaveHelper::shouldAcceptFileAtSizeLimit()
{
    const QString path = m_dir.filePath("limit.wav");
    QVERIFY(audiotest::writeFile(path, audiotest::makeWav(8000, 2, 16, QByteArray(80000, 0))));
    QFile f(path);
    QVERIFY(f.resize(0x7D000000LL));
    {
        audiotest::WaveGuard g;
        QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), &g.w), 0);
        QCOMPARE(g.w.frameCount, 20000u);
    }
    QCOMPARE(QFileInfo(path).size(), 0x7D000000LL);
    QFile::remove(path);
}

void TestWaveHelper::shouldRefuseTooLittleDataCountedInBytes_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("bits");
    QTest::addColumn<int>("dataBytes");
    QTest::addColumn<int>("result");
    // Ten times the rate, in bytes whatever the format.
    QTest::newRow("8 kHz 8-bit mono, 10 s") << 8000 << 1 << 8 << 80000 << 0;
    QTest::newRow("8 kHz 8-bit mono, one byte short") << 8000 << 1 << 8 << 79999 << -4;
    QTest::newRow("44.1 kHz 16-bit stereo, 2.5 s") << 44100 << 2 << 16 << 441000 << 0;
    QTest::newRow("44.1 kHz 16-bit stereo, one frame short") << 44100 << 2 << 16 << 440996 << -4;
    QTest::newRow("8 kHz 16-bit mono, 5 s") << 8000 << 1 << 16 << 80000 << 0;
    QTest::newRow("8 kHz 16-bit mono, one frame short") << 8000 << 1 << 16 << 79998 << -4;
    QTest::newRow("empty data") << 8000 << 2 << 8 << 0 << -4;
}

void TestWaveHelper::shouldRefuseTooLittleDataCountedInBytes()
{
    QFETCH(int, rate);
    QFETCH(int, channels);
    QFETCH(int, bits);
    QFETCH(int, dataBytes);
    QFETCH(int, result);
    const QString path = makeWav("short.wav", rate, channels, bits, audiotest::noise(dataBytes, 3));
    const QByteArray before = audiotest::readFile(path);
    tagWaveInfo w;
    std::memset(&w, 0, sizeof w);
    QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), &w), result);
    if (result == -4) {
        QCOMPARE(w.scanFile, nullptr); // closed, and not left dangling
        QCOMPARE(w.peakTable, nullptr);
    }
    // A failed record may be closed again without harm.
    QCOMPARE(WaveHelperUninit(&w), 0);
    QVERIFY(isZero(w));
    QCOMPARE(audiotest::readFile(path), before);
}

void TestWaveHelper::shouldAcceptUnknownFormatWithoutPeaksOrDevice_data()
{
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("bits");
    QTest::addColumn<unsigned>("formatKey");
    QTest::newRow("24-bit stereo") << 2 << 24 << 26u;
    QTest::newRow("24-bit mono") << 1 << 24 << 25u;
    QTest::newRow("16-bit, 4 channels") << 4 << 16 << 20u;
    QTest::newRow("8-bit, 4 channels") << 4 << 8 << 12u;
    QTest::newRow("32-bit stereo") << 2 << 32 << 34u;
}

void TestWaveHelper::shouldAcceptUnknownFormatWithoutPeaksOrDevice()
{
    QFETCH(int, channels);
    QFETCH(int, bits);
    QFETCH(unsigned, formatKey);
    const QString path = makeWav("odd.wav", 44100, channels, bits,
                                 audiotest::noise(44100 * channels * bits / 8 * 11, 4));
    const QByteArray before = audiotest::readFile(path);
    audiotest::WaveGuard g;
    QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), &g.w), 0);
    QCOMPARE(g.w.formatKey, formatKey);
    QCOMPARE(g.w.peakTable, nullptr);
    QCOMPARE(g.w.playFile, nullptr);
    QCOMPARE(g.w.rawBuffer, nullptr);
    QVERIFY(g.w.scanFile != nullptr);
    QCOMPARE(SDL_GetAudioStatus(), SDL_AUDIO_STOPPED); // no device opened
    // The other calls find no streams and do nothing harmful.
    QCOMPARE(WaveHelperGetRawData(&g.w, 0, 100), nullptr);
    QCOMPARE(WaveHelperGetPos(&g.w), 0LL);
    QCOMPARE(WaveHelperSetPos(&g.w, 1000), -1);
    QCOMPARE(WaveHelperUninit(&g.w), 0);
    QVERIFY(isZero(g.w));
    QCOMPARE(audiotest::readFile(path), before);
}

void TestWaveHelper::shouldReadHeaderIntoRecord_data()
{
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("bits");
    QTest::addColumn<unsigned>("formatKey");
    QTest::addColumn<int>("frameBytes");
    QTest::addColumn<int>("silence");
    QTest::newRow("8-bit mono") << 1 << 8 << 9u << 1 << 128;
    QTest::newRow("8-bit stereo") << 2 << 8 << 10u << 2 << 128;
    QTest::newRow("16-bit mono") << 1 << 16 << 17u << 2 << 0;
    QTest::newRow("16-bit stereo") << 2 << 16 << 18u << 4 << 0;
}

void TestWaveHelper::shouldReadHeaderIntoRecord()
{
    QFETCH(int, channels);
    QFETCH(int, bits);
    QFETCH(unsigned, formatKey);
    QFETCH(int, frameBytes);
    QFETCH(int, silence);
    const unsigned frames = 44100 * 10 + 777;
    const QString path =
        makeWav("fields.wav", 44100, channels, bits, audiotest::noise(frames * frameBytes, 5));
    audiotest::WaveGuard g;
    QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), &g.w), 0);
    QCOMPARE(g.w.formatKey, formatKey);
    QCOMPARE(int(g.w.frameBytes), frameBytes);
    QCOMPARE(g.w.frameCount, frames);
    QCOMPARE(g.w.sampleRate, 44100u);
    QCOMPARE(int(g.w.silence), silence);
    QCOMPARE(g.w.peakCount, int((frames + 511) >> 9));
    QVERIFY(g.w.peakTable != nullptr);
    QVERIFY(g.w.rawBuffer != nullptr);
    QVERIFY(g.w.scanFile != nullptr);
    QVERIFY(g.w.playFile != nullptr);
    QCOMPARE(g.w.extraFile1, nullptr);
    QCOMPARE(g.w.extraFile2, nullptr);
    QCOMPARE(std::ftell(g.w.playFile), 44L);
    QCOMPARE(g.w.state, 0);
    QCOMPARE(g.w.volume, 100);
    QCOMPARE(g.w.fadeInStart, -1);
    QCOMPARE(g.w.fadeInEnd, -1);
    QCOMPARE(g.w.fadeOutStart, -1);
    QCOMPARE(g.w.fadeOutEnd, -1);
    QCOMPARE(SDL_GetAudioStatus(), SDL_AUDIO_PAUSED); // open, not playing
}

void TestWaveHelper::shouldRefuseSampleRatesOutsideItsRange_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("result");
    QTest::newRow("1 Hz") << 1 << -5;
    QTest::newRow("16 Hz") << 16 << -5;
    QTest::newRow("7999 Hz") << 7999 << -5;
    QTest::newRow("8000 Hz") << 8000 << 0;
    QTest::newRow("384000 Hz") << 384000 << 0;
    QTest::newRow("384001 Hz") << 384001 << -5;
}

void TestWaveHelper::shouldRefuseSampleRatesOutsideItsRange()
{
    QFETCH(int, rate);
    QFETCH(int, result);
    // Eleven times the rate in bytes: more than the least data it takes.
    const QString path = makeWav("rate.wav", rate, 2, 16, audiotest::noise(qint64(rate) * 11, 6));
    const QByteArray before = audiotest::readFile(path);
    // Zeroed, not patterned: a record that did open must be safe to close.
    tagWaveInfo w;
    std::memset(&w, 0, sizeof w);
    const int rc = WaveHelperInit(path.toLocal8Bit().constData(), &w);
    // Whatever the checks below say, an opened record is closed again.
    const auto close = qScopeGuard([&w, rc] {
        if (rc == 0)
            WaveHelperUninit(&w);
    });
    QCOMPARE(rc, result);
    if (result != 0) {
        QVERIFY(isZero(w));                                // record untouched
        QCOMPARE(SDL_GetAudioStatus(), SDL_AUDIO_STOPPED); // no device opened
    } else {
        QCOMPARE(w.sampleRate, unsigned(rate));
    }
    QCOMPARE(audiotest::readFile(path), before);
}

void TestWaveHelper::shouldOpenAndCloseWhatNeverEndsWithinTheLimit_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("result");
    const QString pipe = m_dir.filePath("pipe.wav");
    QFile::remove(pipe);
    QVERIFY(mkfifo(QFile::encodeName(pipe).constData(), 0600) == 0);
    QTest::newRow("a named pipe") << pipe << -1;
    QTest::newRow("/dev/zero") << QString("/dev/zero") << -1;
    QTest::newRow("a WAV at 1 Hz")
        << makeWav("one hertz.wav", 1, 2, 16, audiotest::noise(400, 8)) << -5;
}

void TestWaveHelper::shouldOpenAndCloseWhatNeverEndsWithinTheLimit()
{
    QFETCH(QString, path);
    QFETCH(int, result);
    // On a thread of its own, so that a hang is a failure and not the end
    // of the run; what it uses lives on the heap, for a thread that never
    // comes back.
    struct Attempt
    {
        QByteArray path;
        tagWaveInfo w;
        std::promise<int> done;
    };
    auto attempt = std::make_shared<Attempt>();
    attempt->path = QFile::encodeName(path);
    std::memset(&attempt->w, 0, sizeof attempt->w);
    std::future<int> rc = attempt->done.get_future();
    std::thread([attempt] {
        const int opened = WaveHelperInit(attempt->path.constData(), &attempt->w);
        // A refused record has no device to close: SDL is left alone on a
        // thread it does not know (it keeps per-thread state it never frees).
        if (opened == 0)
            WaveHelperUninit(&attempt->w);
        attempt->done.set_value(opened);
    }).detach();
    QVERIFY2(rc.wait_for(std::chrono::seconds(10)) == std::future_status::ready,
             "opening and closing took more than ten seconds");
    QCOMPARE(rc.get(), result);
}

void TestWaveHelper::shouldCountOnlyTheDataTheFileHolds()
{
    // The header claims 30 s; the file holds 20 s.
    const QString path =
        makeWav("claims.wav", 44100, 2, 16, audiotest::noise(44100 * 4 * 20, 7), 44100 * 4 * 30);
    audiotest::WaveGuard g;
    QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), &g.w), 0);
    QCOMPARE(g.w.frameCount, 44100u * 20);
    QCOMPARE(g.w.peakCount, int((44100 * 20 + 511) >> 9));
}

void TestWaveHelper::shouldBuildPeakTable_data()
{
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("bits");
    QTest::addColumn<int>("frames");
    const int blocks = 870; // 445440 frames: at least ten times 44100 bytes
    const struct
    {
        const char* name;
        int channels;
        int bits;
    } formats[] = {{"8-bit mono", 1, 8},
                   {"8-bit stereo", 2, 8},
                   {"16-bit mono", 1, 16},
                   {"16-bit stereo", 2, 16}};
    for (const auto& f : formats) {
        const QString n = QString::fromLatin1(f.name);
        QTest::newRow(qPrintable(n + ", whole blocks")) << f.channels << f.bits << blocks * 512;
        QTest::newRow(qPrintable(n + ", partial block of 300"))
            << f.channels << f.bits << blocks * 512 + 300;
        QTest::newRow(qPrintable(n + ", partial block of 1"))
            << f.channels << f.bits << blocks * 512 + 1;
        QTest::newRow(qPrintable(n + ", partial block of 2"))
            << f.channels << f.bits << blocks * 512 + 2;
        QTest::newRow(qPrintable(n + ", partial block of 511"))
            << f.channels << f.bits << blocks * 512 + 511;
    }
}

void TestWaveHelper::shouldBuildPeakTable()
{
    QFETCH(int, channels);
    QFETCH(int, bits);
    QFETCH(int, frames);
    const int sampleBytes = bits / 8;
    const QByteArray data = audiotest::noise(qint64(frames) * channels * sampleBytes, frames);
    const QString path = makeWav("peaks.wav", 44100, channels, bits, data);

    // Independent computation: min/max of the first channel per 512-frame
    // block; a last block of two or more frames also gives, for stereo, the
    // second channel's min/max right after its own entry.
    QList<int> expected;
    auto minMax = [&](int first, int count, int channel) {
        int mn = audiotest::sampleAt(data, qint64(first) * channels + channel, bits);
        int mx = mn;
        for (int f = first; f < first + count; ++f) {
            const int s = audiotest::sampleAt(data, qint64(f) * channels + channel, bits);
            mn = std::min(mn, s);
            mx = std::max(mx, s);
        }
        expected << mn << mx;
    };
    const int whole = frames / 512;
    for (int b = 0; b < whole; ++b)
        minMax(b * 512, 512, 0);
    const int rest = frames % 512;
    if (rest > 1) {
        minMax(whole * 512, rest, 0);
        if (channels == 2)
            minMax(whole * 512, rest, 1);
    }

    audiotest::WaveGuard g;
    QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), &g.w), 0);
    const int peakCount = (frames + 511) >> 9;
    QCOMPARE(g.w.peakCount, peakCount);
    const int elements = peakCount * 2 * channels; // the table's size in elements
    QVERIFY(expected.size() <= elements);
    for (int i = 0; i < elements; ++i) {
        int actual;
        if (bits == 8) {
            actual = g.w.peakTable[i];
        } else {
            qint16 v;
            std::memcpy(&v, g.w.peakTable + 2 * i, 2);
            actual = v;
        }
        // Nothing is written beyond the entries; the rest reads as silence.
        const int want = i < expected.size() ? expected[i] : (bits == 8 ? 128 : 0);
        if (actual != want)
            QFAIL(qPrintable(QString("element %1 of %2 (written: %3): %4, expected %5")
                                 .arg(i)
                                 .arg(elements)
                                 .arg(expected.size())
                                 .arg(actual)
                                 .arg(want)));
    }
}

void TestWaveHelper::shouldServeRawDataFromRoundedOffset_data()
{
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("bits");
    QTest::addColumn<int>("firstFrame");
    QTest::addColumn<int>("frameCount");
    QTest::addColumn<int>("offset"); // expected data offset in bytes
    // Offsets are rounded down to a multiple of 4 bytes.
    QTest::newRow("8-bit mono from frame 5") << 1 << 8 << 5 << 1000 << 4;
    QTest::newRow("8-bit mono from frame 4") << 1 << 8 << 4 << 1000 << 4;
    QTest::newRow("8-bit stereo from frame 3") << 2 << 8 << 3 << 1000 << 4;
    QTest::newRow("16-bit mono from frame 3") << 1 << 16 << 3 << 1000 << 4;
    QTest::newRow("16-bit stereo from frame 10") << 2 << 16 << 10 << 1000 << 40;
    QTest::newRow("16-bit stereo from 0") << 2 << 16 << 0 << 4096 << 0;
    QTest::newRow("8-bit mono past the end") << 1 << 8 << 449000 << 2000 << 449000;
    QTest::newRow("16-bit stereo past the end") << 2 << 16 << 449000 << 2000 << 1796000;
    QTest::newRow("8-bit stereo wholly beyond") << 2 << 8 << 460000 << 100 << 920000;
}

void TestWaveHelper::shouldServeRawDataFromRoundedOffset()
{
    QFETCH(int, channels);
    QFETCH(int, bits);
    QFETCH(int, firstFrame);
    QFETCH(int, frameCount);
    QFETCH(int, offset);
    const int frameBytes = channels * bits / 8;
    const QByteArray data = audiotest::noise(450000LL * frameBytes, 6);
    const QString path = makeWav("raw.wav", 44100, channels, bits, data);
    audiotest::WaveGuard g;
    QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), &g.w), 0);
    // Twice: once after a seek, once continuing where the first read ended.
    for (int pass = 0; pass < 2; ++pass) {
        const int first = firstFrame + pass * frameCount;
        const int off = offset + pass * frameCount * frameBytes;
        unsigned char* raw = WaveHelperGetRawData(&g.w, first, frameCount);
        QCOMPARE(raw, g.w.rawBuffer);
        const QByteArray got(reinterpret_cast<const char*>(raw), frameCount * frameBytes);
        const QByteArray want = audiotest::readPadded(data, off, frameCount * frameBytes, bits);
        QCOMPARE(got, want);
    }
}

void TestWaveHelper::shouldNeverWritePastRawBuffer()
{
    const QByteArray data = audiotest::noise(5000000, 7);
    const QString path = makeWav("big.wav", 44100, 1, 8, data);
    audiotest::WaveGuard g;
    QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), &g.w), 0);
    // Larger than the 4 MiB buffer: only what fits is read.
    unsigned char* raw = WaveHelperGetRawData(&g.w, 0, 5000000);
    QCOMPARE(QByteArray(reinterpret_cast<const char*>(raw), 4194304), data.left(4194304));
    QCOMPARE(std::ftell(g.w.scanFile), 44L + 4194304L);
}

void TestWaveHelper::shouldPlaceFadesAtByteOffsets_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("bits");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("inStart");
    QTest::addColumn<int>("inEnd");
    QTest::addColumn<int>("outStart");
    QTest::addColumn<int>("outEnd");
    const int bps = 176400;
    QTest::newRow("fade-out of 5 s from 20 s covers 20 to 26 s")
        << 44100 << 2 << 16 << 20 << 5 << bps * 20 + 44 << bps * 25 + 44 << bps * 20 + 44
        << bps * 26 + 44;
    QTest::newRow("from 0 for 3 s")
        << 44100 << 2 << 16 << 0 << 3 << 44 << bps * 3 + 44 << 44 << bps * 4 + 44;
    QTest::newRow("zero length") << 44100 << 2 << 16 << 2 << 0 << bps * 2 + 44 << bps * 2 + 44
                                 << bps * 2 + 44 << bps * 3 + 44;
    QTest::newRow("8-bit mono") << 44100 << 1 << 8 << 4 << 2 << 176444 << 264644 << 176444
                                << 308744;
    QTest::newRow("negative start: none") << 44100 << 2 << 16 << -1 << 0 << -1 << -1 << -1 << -1;
    QTest::newRow("negative length: none") << 44100 << 2 << 16 << 3 << -1 << -1 << -1 << -1 << -1;
}

void TestWaveHelper::shouldPlaceFadesAtByteOffsets()
{
    QFETCH(int, rate);
    QFETCH(int, channels);
    QFETCH(int, bits);
    QFETCH(int, start);
    QFETCH(int, length);
    QFETCH(int, inStart);
    QFETCH(int, inEnd);
    QFETCH(int, outStart);
    QFETCH(int, outEnd);
    const QString path =
        makeWav("fades.wav", rate, channels, bits, QByteArray(rate * channels * bits / 8 * 11, 0));
    audiotest::WaveGuard g;
    QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), &g.w), 0);
    WaveHelperFadeIn(&g.w, 7, 7); // replaced below
    QCOMPARE(WaveHelperFadeIn(&g.w, start, length), 0);
    QCOMPARE(WaveHelperFadeOut(&g.w, start, length), 0);
    QCOMPARE(g.w.fadeInStart, inStart);
    QCOMPARE(g.w.fadeInEnd, inEnd);
    QCOMPARE(g.w.fadeOutStart, outStart);
    QCOMPARE(g.w.fadeOutEnd, outEnd);
}

void TestWaveHelper::shouldStoreVolumeWithoutRangeCheck()
{
    audiotest::WaveGuard g;
    for (int v : {0, 100, 256, 300, -5}) {
        QCOMPARE(WaveHelperChangeVolume(&g.w, v), 0);
        QCOMPARE(g.w.volume, v);
    }
}

void TestWaveHelper::shouldSeekByWholeMillisecondFrames_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("bits");
    QTest::addColumn<qlonglong>("ms");
    QTest::addColumn<long>("offset");
    QTest::addColumn<qlonglong>("reported");
    // 44 frames per millisecond at 44100 Hz: the seek lands a little early.
    QTest::newRow("44.1 kHz 16-bit stereo, 1000 ms")
        << 44100 << 2 << 16 << 1000LL << 176044L << 997LL;
    QTest::newRow("44.1 kHz 16-bit stereo, 0 ms") << 44100 << 2 << 16 << 0LL << 44L << 0LL;
    QTest::newRow("44.1 kHz 8-bit mono, 2000 ms") << 44100 << 1 << 8 << 2000LL << 88044L << 1995LL;
    QTest::newRow("8 kHz 16-bit mono, 1500 ms") << 8000 << 1 << 16 << 1500LL << 24044L << 1500LL;
    QTest::newRow("22.05 kHz 8-bit stereo, 999 ms") << 22050 << 2 << 8 << 999LL << 44000L << 996LL;
}

void TestWaveHelper::shouldSeekByWholeMillisecondFrames()
{
    QFETCH(int, rate);
    QFETCH(int, channels);
    QFETCH(int, bits);
    QFETCH(qlonglong, ms);
    QFETCH(long, offset);
    QFETCH(qlonglong, reported);
    const QString path =
        makeWav("seek.wav", rate, channels, bits, QByteArray(rate * channels * bits / 8 * 11, 0));
    audiotest::WaveGuard g;
    QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), &g.w), 0);
    QCOMPARE(WaveHelperSetPos(&g.w, ms), 0);
    QCOMPARE(std::ftell(g.w.playFile), offset);
    QCOMPARE(WaveHelperGetPos(&g.w), reported);
}

void TestWaveHelper::shouldAnswerPositionWithoutStream()
{
    audiotest::WaveGuard g;
    QCOMPARE(WaveHelperGetPos(&g.w), 0LL);
    QCOMPARE(WaveHelperSetPos(&g.w, 500), -1);
    QCOMPARE(WaveHelperGetRawData(&g.w, 0, 10), nullptr);
    QCOMPARE(WaveHelperGetState(&g.w), 0);
}

void TestWaveHelper::shouldToggleBetweenPlayAndPause()
{
    const QString path = makeWav("toggle.wav", 44100, 2, 16, audiotest::noise(44100 * 4 * 20, 8));
    audiotest::WaveGuard g;
    QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), &g.w), 0);
    QCOMPARE(WaveHelperPlay(&g.w), 1);
    QCOMPARE(WaveHelperGetState(&g.w), 1);
    QCOMPARE(SDL_GetAudioStatus(), SDL_AUDIO_PLAYING);
    QCOMPARE(WaveHelperPlay(&g.w), 0); // second Play pauses
    QCOMPARE(WaveHelperGetState(&g.w), 2);
    QCOMPARE(SDL_GetAudioStatus(), SDL_AUDIO_PAUSED);
    QCOMPARE(WaveHelperPlay(&g.w), 1); // third resumes
    QCOMPARE(WaveHelperGetState(&g.w), 1);
    QCOMPARE(SDL_GetAudioStatus(), SDL_AUDIO_PLAYING);
    QCOMPARE(WaveHelperStop(&g.w), 0);
    QCOMPARE(WaveHelperPlay(&g.w), 1); // from stopped
    QCOMPARE(WaveHelperGetState(&g.w), 1);
}

void TestWaveHelper::shouldPauseOnlyWhilePlaying()
{
    const QString path = makeWav("pause.wav", 44100, 1, 8, audiotest::noise(44100 * 20, 9));
    audiotest::WaveGuard g;
    QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), &g.w), 0);
    QCOMPARE(WaveHelperPause(&g.w), 0);
    QCOMPARE(WaveHelperGetState(&g.w), 0);
    QCOMPARE(WaveHelperPlay(&g.w), 1);
    QCOMPARE(WaveHelperPause(&g.w), 1);
    QCOMPARE(WaveHelperGetState(&g.w), 2);
    QCOMPARE(SDL_GetAudioStatus(), SDL_AUDIO_PAUSED);
    QCOMPARE(WaveHelperPause(&g.w), 0);
    QCOMPARE(WaveHelperGetState(&g.w), 2);
    QCOMPARE(WaveHelperStop(&g.w), 0);
    QCOMPARE(WaveHelperGetState(&g.w), 0);
    QCOMPARE(WaveHelperPause(&g.w), 0);
    QCOMPARE(WaveHelperStop(&g.w), 0); // stopping twice is harmless
    QCOMPARE(WaveHelperGetState(&g.w), 0);
}

void TestWaveHelper::shouldStopWithoutRewinding()
{
    const QString path = makeWav("stop.wav", 44100, 2, 16, audiotest::noise(44100 * 4 * 20, 10));
    audiotest::WaveGuard g;
    QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), &g.w), 0);
    QCOMPARE(WaveHelperSetPos(&g.w, 5000), 0);
    QCOMPARE(WaveHelperPlay(&g.w), 1);
    // The dummy driver consumes audio in real time.
    QTRY_VERIFY_WITH_TIMEOUT(WaveHelperGetPos(&g.w) > 5000, 5000);
    QCOMPARE(WaveHelperStop(&g.w), 0);
    QCOMPARE(WaveHelperGetState(&g.w), 0);
    QCOMPARE(SDL_GetAudioStatus(), SDL_AUDIO_PAUSED);
    const long long at = WaveHelperGetPos(&g.w);
    QVERIFY(at > 5000);
    QTest::qWait(150);
    QCOMPARE(WaveHelperGetPos(&g.w), at); // paused, and not rewound
}

void TestWaveHelper::shouldStopAtEndOfData()
{
    const QString path = makeWav("end.wav", 44100, 2, 16, audiotest::noise(44100 * 4 * 3, 11));
    audiotest::WaveGuard g;
    QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), &g.w), 0);
    QCOMPARE(WaveHelperSetPos(&g.w, 2900), 0);
    QCOMPARE(WaveHelperPlay(&g.w), 1);
    QTRY_COMPARE_WITH_TIMEOUT(WaveHelperGetState(&g.w), 0, 5000);
    QCOMPARE(SDL_GetAudioStatus(), SDL_AUDIO_PAUSED);
    QCOMPARE(WaveHelperGetPos(&g.w), 3000LL);
    // Play again from the end: nothing to read, so it stops again.
    QCOMPARE(WaveHelperPlay(&g.w), 1);
    QTRY_COMPARE_WITH_TIMEOUT(WaveHelperGetState(&g.w), 0, 5000);
}

void TestWaveHelper::shouldZeroRecordOnUninit()
{
    const QString path = makeWav("zero.wav", 44100, 2, 8, audiotest::noise(44100 * 2 * 6, 12));
    const QByteArray before = audiotest::readFile(path);
    tagWaveInfo w;
    std::memset(&w, 0, sizeof w);
    QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), &w), 0);
    QCOMPARE(WaveHelperUninit(&w), 0);
    QVERIFY(isZero(w));
    QCOMPARE(SDL_GetAudioStatus(), SDL_AUDIO_STOPPED); // device closed
    QCOMPARE(audiotest::readFile(path), before);       // no effects, no change
    QCOMPARE(WaveHelperUninit(&w), 0);                 // a zeroed record again
    QVERIFY(isZero(w));
}

void TestWaveHelper::shouldRefuseNullRecordOnUninit()
{
    QCOMPARE(WaveHelperUninit(nullptr), -1);
    QCOMPARE(WaveHelperInit("x", nullptr), -4);
    QCOMPARE(WaveHelperGetState(nullptr), 0);
    QCOMPARE(WaveHelperGetRawData(nullptr, 0, 1), nullptr);
}

void TestWaveHelper::shouldReopenAfterUninit()
{
    const QString path = makeWav("again.wav", 44100, 2, 16, audiotest::noise(44100 * 4 * 3, 13));
    audiotest::WaveGuard g;
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), &g.w), 0);
        QCOMPARE(g.w.frameCount, 44100u * 3);
        QCOMPARE(WaveHelperUninit(&g.w), 0);
    }
}

TW_TEST_MAIN(TestWaveHelper)
#include "tst_wavehelper.moc"
