// What the engine plays and what it writes back: the SDL callback called
// directly on an opened record (the device stays paused, so SDL's own
// thread never calls it meanwhile), and the effects written into the file
// by WaveHelperUninit, both checked byte by byte against the independent
// model in audiotestsupport.h.

#include "audio/pcmeffects.h"
#include "audio/wavehelper.h"
#include "audio/wavehelper_p.h"
#include "audiotestsupport.h"
#include "testenv.h"

#include <QObject>
#include <QTemporaryDir>
#include <QTest>

#include <SDL.h>

#include <cstring>

namespace {

constexpr int kRate = 44100;
constexpr int kSeconds = 12;

struct Format
{
    const char* name;
    int channels;
    int bits;
};

const Format kFormats[] = {
    {"8-bit mono", 1, 8}, {"8-bit stereo", 2, 8}, {"16-bit mono", 1, 16}, {"16-bit stereo", 2, 16}};

// Fade arguments in whole seconds; a negative start means none.
struct Scenario
{
    const char* name;
    int volume;
    int fadeInStart;
    int fadeInLength;
    int fadeOutStart;
    int fadeOutLength;
    qint64 posMs; // where playback starts
    int calls;    // callbacks to check in a row
};

audiotest::Effects effectsOf(const tagWaveInfo& w)
{
    audiotest::Effects e;
    e.volume = w.volume;
    e.fadeInStart = w.fadeInStart;
    e.fadeInEnd = w.fadeInEnd;
    e.fadeOutStart = w.fadeOutStart;
    e.fadeOutEnd = w.fadeOutEnd;
    return e;
}

void setEffects(tagWaveInfo* w, int volume, int inStart, int inLength, int outStart, int outLength)
{
    WaveHelperChangeVolume(w, volume);
    WaveHelperFadeIn(w, inStart, inLength);
    WaveHelperFadeOut(w, outStart, outLength);
}

QString firstDifference(const QByteArray& got, const QByteArray& want, int frameBytes)
{
    if (got.size() != want.size())
        return QString("sizes differ: %1 and %2").arg(got.size()).arg(want.size());
    for (int i = 0; i < got.size(); ++i) {
        if (got[i] != want[i])
            return QString("byte %1 (frame %2): got %3, expected %4")
                .arg(i)
                .arg(i / frameBytes)
                .arg(quint8(got[i]))
                .arg(quint8(want[i]));
    }
    return QString();
}

} // namespace

class TestWaveHelperCallback : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void shouldPlayFileWithEffects_data();
    void shouldPlayFileWithEffects();
    void shouldStopAndPadWithSilenceAtEndOfData_data();
    void shouldStopAndPadWithSilenceAtEndOfData();
    void shouldIgnoreNullRecord();
    void shouldWrapAFadeRegionTooLongForThirtyTwoBits();
    void shouldAskForBuffersOfAtMostAnEighthSecond_data();
    void shouldAskForBuffersOfAtMostAnEighthSecond();

    void shouldWriteEffectsBackAsPlayed_data();
    void shouldWriteEffectsBackAsPlayed();
    void shouldWriteBareVolumeIntoOneChunkOnly_data();
    void shouldWriteBareVolumeIntoOneChunkOnly();
    void shouldLeaveFileUntouchedWithoutEffects();
    void shouldWriteNothingWhenStreamIsAtEnd();
    void shouldLoopASpanWithItsEffects_data();
    void shouldLoopASpanWithItsEffects();
    void shouldTakeTheLoopOffForAnEmptySpan();

private:
    QString makeWav(const Format& f, quint32 seed, QByteArray* file);

    QTemporaryDir m_dir;
};

void TestWaveHelperCallback::initTestCase()
{
    QVERIFY(m_dir.isValid());
    if (qEnvironmentVariableIsEmpty("SDL_VIDEODRIVER"))
        qputenv("SDL_VIDEODRIVER", "dummy");
    qputenv("SDL_AUDIODRIVER", "dummy");
}

QString TestWaveHelperCallback::makeWav(const Format& f, quint32 seed, QByteArray* file)
{
    const qint64 bytes = qint64(kRate) * kSeconds * f.channels * f.bits / 8;
    *file = audiotest::makeWav(kRate, f.channels, f.bits, audiotest::noise(bytes, seed));
    const QString path = m_dir.filePath(QString("%1 ü.wav").arg(seed));
    if (!audiotest::writeFile(path, *file))
        qWarning("cannot write %s", qPrintable(path));
    return path;
}

void TestWaveHelperCallback::shouldPlayFileWithEffects_data()
{
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("bits");
    QTest::addColumn<int>("volume");
    QTest::addColumn<int>("inStart");
    QTest::addColumn<int>("inLength");
    QTest::addColumn<int>("outStart");
    QTest::addColumn<int>("outLength");
    QTest::addColumn<qint64>("posMs");
    QTest::addColumn<int>("calls");
    const Scenario scenarios[] = {
        {"no effects", 100, -1, 0, -1, 0, 1000, 2},
        {"volume 50", 50, -1, 0, -1, 0, 3000, 2},
        {"volume 110", 110, -1, 0, -1, 0, 0, 2},
        {"volume 256", 256, -1, 0, -1, 0, 500, 2},
        {"volume 0", 0, -1, 0, -1, 0, 500, 1},
        {"fade-in from the start", 100, 0, 2, -1, 0, 0, 3},
        {"fade-in in the middle", 100, 3, 4, -1, 0, 5000, 3},
        {"fade-in buffer running past its end", 100, 1, 1, -1, 0, 1990, 2},
        {"fade-out", 100, -1, 0, 6, 3, 7000, 3},
        // The seek lands a little before the fade-out's first byte: the
        // first buffer plays unfaded, the next one is faded.
        {"fade-out reached from before", 100, -1, 0, 6, 3, 6000, 3},
        {"fade-out buffer running past its end", 100, -1, 0, 6, 3, 9990, 3},
        {"both fades, fade-in wins", 100, 2, 4, 3, 2, 4000, 2},
        {"between the fades: volume only", 120, 0, 1, 8, 1, 4000, 2},
        {"volume with fade-in", 150, 0, 2, -1, 0, 500, 2},
        {"volume with fade-out", 70, -1, 0, 2, 5, 3000, 2},
    };
    for (const Format& f : kFormats) {
        for (const Scenario& s : scenarios) {
            QTest::newRow(qPrintable(QString("%1, %2").arg(f.name, s.name)))
                << f.channels << f.bits << s.volume << s.fadeInStart << s.fadeInLength
                << s.fadeOutStart << s.fadeOutLength << s.posMs << s.calls;
        }
    }
}

void TestWaveHelperCallback::shouldPlayFileWithEffects()
{
    QFETCH(int, channels);
    QFETCH(int, bits);
    QFETCH(int, volume);
    QFETCH(int, inStart);
    QFETCH(int, inLength);
    QFETCH(int, outStart);
    QFETCH(int, outLength);
    QFETCH(qint64, posMs);
    QFETCH(int, calls);
    const Format f{"", channels, bits};
    QByteArray file;
    const QString path = makeWav(f, quint32(channels * 100 + bits + posMs), &file);
    const int frameBytes = channels * bits / 8;
    const int length = 1024 * frameBytes; // SDL's buffer for 1024 frames

    audiotest::WaveGuard g;
    QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), &g.w), 0);
    setEffects(&g.w, volume, inStart, inLength, outStart, outLength);
    QCOMPARE(WaveHelperSetPos(&g.w, posMs), 0);
    const audiotest::Effects e = effectsOf(g.w);

    qint64 pos = frameBytes * (kRate / 1000) * posMs + 44;
    for (int call = 0; call < calls; ++call) {
        QByteArray stream(length, char(0xEE)); // SDL2 does not clear it
        AudioPlayCallbackFunc(&g.w, reinterpret_cast<unsigned char*>(stream.data()), length);
        const QByteArray want = audiotest::apply(audiotest::readPadded(file, pos, length, bits),
                                                 pos, bits, channels, e);
        const QString diff = firstDifference(stream, want, frameBytes);
        if (!diff.isEmpty())
            QFAIL(qPrintable(QString("callback %1 at offset %2: %3").arg(call).arg(pos).arg(diff)));
        pos += length;
        QCOMPARE(std::ftell(g.w.playFile), long(pos));
    }
    QCOMPARE(audiotest::readFile(path), file); // playing never writes
}

void TestWaveHelperCallback::shouldStopAndPadWithSilenceAtEndOfData_data()
{
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("bits");
    QTest::addColumn<int>("volume");
    QTest::addColumn<int>("outStart");
    for (const Format& f : kFormats) {
        QTest::newRow(qPrintable(QString("%1, no effects").arg(f.name)))
            << f.channels << f.bits << 100 << -1;
        // 8-bit silence is scaled from 0 like any byte: 128 becomes 102.
        QTest::newRow(qPrintable(QString("%1, volume 80").arg(f.name)))
            << f.channels << f.bits << 80 << -1;
        QTest::newRow(qPrintable(QString("%1, volume 80 and fade-out to the end").arg(f.name)))
            << f.channels << f.bits << 80 << kSeconds - 2;
    }
}

void TestWaveHelperCallback::shouldStopAndPadWithSilenceAtEndOfData()
{
    QFETCH(int, channels);
    QFETCH(int, bits);
    QFETCH(int, volume);
    QFETCH(int, outStart);
    const Format f{"", channels, bits};
    QByteArray file;
    const QString path = makeWav(f, quint32(channels * 10 + bits + volume), &file);
    const int frameBytes = channels * bits / 8;
    const int length = 1024 * frameBytes;

    audiotest::WaveGuard g;
    QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), &g.w), 0);
    setEffects(&g.w, volume, -1, 0, outStart, 1);
    // 300 frames before the end: one short read, then nothing.
    const qint64 start = file.size() - 300 * frameBytes;
    QCOMPARE(std::fseek(g.w.playFile, long(start), SEEK_SET), 0);
    g.w.state = 1; // as if playing; the device itself stays paused
    const audiotest::Effects e = effectsOf(g.w);

    qint64 pos = start;
    for (int call = 0; call < 2; ++call) {
        QByteArray stream(length, char(0xEE));
        AudioPlayCallbackFunc(&g.w, reinterpret_cast<unsigned char*>(stream.data()), length);
        qint64 got = 0;
        const QByteArray want = audiotest::apply(
            audiotest::readPadded(file, pos, length, bits, &got), pos, bits, channels, e);
        QCOMPARE(got, call == 0 ? qint64(300 * frameBytes) : qint64(0));
        const QString diff = firstDifference(stream, want, frameBytes);
        if (!diff.isEmpty())
            QFAIL(qPrintable(QString("callback %1: %2").arg(call).arg(diff)));
        // A short read keeps playing; only a read of nothing stops.
        QCOMPARE(g.w.state, call == 0 ? 1 : 0);
        pos += got;
    }
    QCOMPARE(SDL_GetAudioStatus(), SDL_AUDIO_PAUSED);
}

void TestWaveHelperCallback::shouldIgnoreNullRecord()
{
    QByteArray stream(64, char(0x42));
    AudioPlayCallbackFunc(nullptr, reinterpret_cast<unsigned char*>(stream.data()), 64);
    QCOMPARE(stream, QByteArray(64, char(0x42)));
}

void TestWaveHelperCallback::shouldWriteEffectsBackAsPlayed_data()
{
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("bits");
    QTest::addColumn<int>("volume");
    QTest::addColumn<int>("inStart");
    QTest::addColumn<int>("inLength");
    QTest::addColumn<int>("outStart");
    QTest::addColumn<int>("outLength");
    const Scenario scenarios[] = {
        {"fade-in, fade-out and volume", 120, 1, 2, 6, 2, 0, 0},
        {"fade-in only", 100, 2, 3, -1, 0, 0, 0},
        {"fade-in from 0 with volume", 60, 0, 1, -1, 0, 0, 0},
        {"fade-out only with volume", 70, -1, 0, 7, 3, 0, 0},
        {"fade-out to the end of the file", 100, -1, 0, kSeconds - 2, 1, 0, 0},
        // With the fade-out first the walk starts at the fade-in and never
        // meets its stop rule: it runs to the end of the file.
        {"fade-out before fade-in", 90, 8, 1, 2, 1, 0, 0},
        {"zero-length fade-in", 100, 3, 0, -1, 0, 0, 0},
    };
    for (const Format& f : kFormats) {
        for (const Scenario& s : scenarios) {
            QTest::newRow(qPrintable(QString("%1, %2").arg(f.name, s.name)))
                << f.channels << f.bits << s.volume << s.fadeInStart << s.fadeInLength
                << s.fadeOutStart << s.fadeOutLength;
        }
    }
}

void TestWaveHelperCallback::shouldWriteEffectsBackAsPlayed()
{
    QFETCH(int, channels);
    QFETCH(int, bits);
    QFETCH(int, volume);
    QFETCH(int, inStart);
    QFETCH(int, inLength);
    QFETCH(int, outStart);
    QFETCH(int, outLength);
    const Format f{"", channels, bits};
    QByteArray file;
    const QString path = makeWav(f, quint32(volume + inStart * 7 + outStart * 13 + bits), &file);
    const int frameBytes = channels * bits / 8;

    tagWaveInfo w;
    std::memset(&w, 0, sizeof w);
    QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), &w), 0);
    setEffects(&w, volume, inStart, inLength, outStart, outLength);
    const audiotest::Effects e = effectsOf(w);
    QCOMPARE(WaveHelperUninit(&w), 0);

    // The model of the walk: from the first fade, 32768 bytes at a time,
    // each chunk treated like a played buffer starting at its offset, until
    // the stop rule holds or the file ends.
    QByteArray want = file;
    qint64 pos = e.fadeInStart >= 1 ? e.fadeInStart : e.fadeOutStart;
    qint64 first = pos;
    for (;;) {
        const QByteArray chunk = want.mid(pos, 32768);
        if (chunk.isEmpty())
            break;
        want.replace(pos, chunk.size(), audiotest::apply(chunk, pos, bits, channels, e));
        pos += chunk.size();
        if ((pos > e.fadeInEnd && e.fadeOutEnd < 0) ||
            (pos > e.fadeOutEnd && e.fadeInEnd < e.fadeOutEnd))
            break;
    }
    const QByteArray got = audiotest::readFile(path);
    QCOMPARE(got.size(), file.size());
    QCOMPARE(got.left(int(first)), file.left(int(first))); // header and lead-in untouched
    QCOMPARE(got.mid(int(pos)), file.mid(int(pos)));       // nothing after the walk
    QVERIFY(got != file);
    const QString diff = firstDifference(got, want, frameBytes);
    if (!diff.isEmpty())
        QFAIL(qPrintable(diff));
}

void TestWaveHelperCallback::shouldWriteBareVolumeIntoOneChunkOnly_data()
{
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("bits");
    for (const Format& f : kFormats)
        QTest::newRow(f.name) << f.channels << f.bits;
}

void TestWaveHelperCallback::shouldWriteBareVolumeIntoOneChunkOnly()
{
    QFETCH(int, channels);
    QFETCH(int, bits);
    const Format f{"", channels, bits};
    QByteArray file;
    const QString path = makeWav(f, quint32(channels + bits * 3), &file);
    const int frameBytes = channels * bits / 8;

    tagWaveInfo w;
    std::memset(&w, 0, sizeof w);
    QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), &w), 0);
    // Drawing reads raw data; the write-back starts where that read ended.
    WaveHelperGetRawData(&w, 1001, 5000);
    const qint64 from = ((1001 * frameBytes) & ~3) + 44 + 5000 * frameBytes;
    QCOMPARE(std::ftell(w.scanFile), long(from));
    WaveHelperChangeVolume(&w, 150);
    QCOMPARE(WaveHelperUninit(&w), 0);

    audiotest::Effects e;
    e.volume = 150;
    QByteArray want = file;
    want.replace(from, 32768, audiotest::apply(file.mid(from, 32768), from, bits, channels, e));
    const QByteArray got = audiotest::readFile(path);
    QVERIFY(got != file);
    QCOMPARE(got.left(int(from)), file.left(int(from)));
    QCOMPARE(got.mid(int(from) + 32768), file.mid(int(from) + 32768));
    const QString diff = firstDifference(got, want, frameBytes);
    if (!diff.isEmpty())
        QFAIL(qPrintable(diff));
}

void TestWaveHelperCallback::shouldLeaveFileUntouchedWithoutEffects()
{
    QByteArray file;
    const QString path = makeWav(kFormats[3], 77, &file);
    tagWaveInfo w;
    std::memset(&w, 0, sizeof w);
    QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), &w), 0);
    WaveHelperGetRawData(&w, 0, 20000);
    WaveHelperFadeIn(&w, -1, 0);
    WaveHelperFadeOut(&w, -1, 0);
    QCOMPARE(WaveHelperUninit(&w), 0);
    QCOMPARE(audiotest::readFile(path), file);
}

void TestWaveHelperCallback::shouldWriteNothingWhenStreamIsAtEnd()
{
    QByteArray file;
    const QString path = makeWav(kFormats[0], 78, &file);
    tagWaveInfo w;
    std::memset(&w, 0, sizeof w);
    QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), &w), 0);
    // The peak scan left the stream at the end of the data: a bare volume
    // change finds nothing to write.
    WaveHelperChangeVolume(&w, 50);
    QCOMPARE(WaveHelperUninit(&w), 0);
    QCOMPARE(audiotest::readFile(path), file);
}

void TestWaveHelperCallback::shouldWrapAFadeRegionTooLongForThirtyTwoBits()
{
    // Offsets of a file whose rate no sound card plays (found by fuzzing):
    // the region's length does not fit 32 bits and wraps, as the offsets do.
    const QString path = m_dir.filePath("wrap.wav");
    QVERIFY(audiotest::writeFile(
        path, audiotest::makeWav(kRate, 2, 16, audiotest::noise(qint64(kRate) * 4 * 3, 21))));
    audiotest::WaveGuard g;
    QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), &g.w), 0);
    g.w.fadeOutStart = -805305324;
    g.w.fadeOutEnd = 1879051236;
    const int length = 4096;
    QByteArray stream(length, '\0');
    AudioPlayCallbackFunc(&g.w, reinterpret_cast<unsigned char*>(stream.data()), length);
    // What the stereo fade-out makes of the file's first bytes with the
    // wrapped numbers.
    QByteArray expected = audiotest::readFile(path).mid(44, length);
    const int off = static_cast<int>(44LL + 805305324LL);
    const int len = static_cast<int>(static_cast<unsigned>(1879051236U + 805305324U));
    FadeOutS16Stereo(reinterpret_cast<unsigned char*>(expected.data()), (off + length) / 4, off / 4,
                     len / 4);
    QCOMPARE(stream, expected);
}

void TestWaveHelperCallback::shouldAskForBuffersOfAtMostAnEighthSecond_data()
{
    QTest::addColumn<uint>("rate");
    QTest::addColumn<int>("frames");
    QTest::newRow("48000 Hz") << 48000u << 1024;
    QTest::newRow("44100 Hz") << 44100u << 1024;
    QTest::newRow("8000 Hz: 128 ms") << 8000u << 1024;
    QTest::newRow("7999 Hz") << 7999u << 512;
    QTest::newRow("4000 Hz") << 4000u << 512;
    QTest::newRow("1000 Hz") << 1000u << 128;
    QTest::newRow("100 Hz: the least") << 100u << 16;
    QTest::newRow("1 Hz") << 1u << 16;
    QTest::newRow("0 Hz") << 0u << 16;
}

void TestWaveHelperCallback::shouldAskForBuffersOfAtMostAnEighthSecond()
{
    QFETCH(uint, rate);
    QFETCH(int, frames);
    QCOMPARE(int(WaveHelperCallbackFrames(rate)), frames);
}

void TestWaveHelperCallback::shouldLoopASpanWithItsEffects_data()
{
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("bits");
    QTest::addColumn<qint64>("firstFrame");
    QTest::addColumn<qint64>("endFrame");
    QTest::addColumn<int>("calls");
    for (const Format& f : kFormats) {
        // Longer than a buffer: wraps now and then.
        QTest::newRow(qPrintable(QString("%1, 1 s").arg(f.name)))
            << f.channels << f.bits << qint64(2 * kRate) << qint64(3 * kRate) << 100;
        // Shorter than a buffer: wraps several times within one.
        QTest::newRow(qPrintable(QString("%1, 300 frames").arg(f.name)))
            << f.channels << f.bits << qint64(kRate + 17) << qint64(kRate + 317) << 4;
    }
}

void TestWaveHelperCallback::shouldLoopASpanWithItsEffects()
{
    QFETCH(int, channels);
    QFETCH(int, bits);
    QFETCH(qint64, firstFrame);
    QFETCH(qint64, endFrame);
    QFETCH(int, calls);
    const Format f{"", channels, bits};
    QByteArray file;
    const QString path = makeWav(f, quint32(channels * 31 + bits + firstFrame), &file);
    const int frameBytes = channels * bits / 8;
    const int length = 1024 * frameBytes;

    audiotest::WaveGuard g;
    QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), &g.w), 0);
    // A fade in over the loop's start and a fade out over its end, as a
    // preview plays them.
    setEffects(&g.w, 150, 2, 1, 1, 2);
    QCOMPARE(WaveHelperSetLoop(&g.w, firstFrame, endFrame), 0);
    const long loopStart = long(firstFrame * frameBytes + 44);
    const long loopEnd = long(endFrame * frameBytes + 44);
    QCOMPARE(g.w.loopStart, loopStart);
    QCOMPARE(g.w.loopEnd, loopEnd);
    QCOMPARE(std::fseek(g.w.playFile, loopStart, SEEK_SET), 0);
    const audiotest::Effects e = effectsOf(g.w);

    // The model: the span's bytes over and over, each with its effects.
    qint64 pos = loopStart;
    int wraps = 0;
    for (int call = 0; call < calls; ++call) {
        QByteArray stream(length, char(0xEE));
        AudioPlayCallbackFunc(&g.w, reinterpret_cast<unsigned char*>(stream.data()), length);
        QByteArray want;
        while (want.size() < length) {
            const int piece = int(qMin<qint64>(length - want.size(), loopEnd - pos));
            want += audiotest::apply(audiotest::readPadded(file, pos, piece, bits), pos, bits,
                                     channels, e);
            pos += piece;
            if (pos == loopEnd) {
                pos = loopStart;
                ++wraps;
            }
        }
        const QString diff = firstDifference(stream, want, frameBytes);
        if (!diff.isEmpty())
            QFAIL(qPrintable(QString("callback %1: %2").arg(call).arg(diff)));
        QCOMPARE(std::ftell(g.w.playFile), long(pos));
    }
    QVERIFY(wraps >= 2);
    QCOMPARE(g.w.state, int(WAVE_STOPPED)); // the device was never started here
}

void TestWaveHelperCallback::shouldTakeTheLoopOffForAnEmptySpan()
{
    QByteArray file;
    const QString path = makeWav(kFormats[3], 7, &file);
    audiotest::WaveGuard g;
    QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), &g.w), 0);
    QCOMPARE(WaveHelperSetLoop(&g.w, 100, 200), 0);
    QVERIFY(g.w.loopEnd > g.w.loopStart);
    QCOMPARE(WaveHelperSetLoop(&g.w, 200, 200), 0);
    QCOMPARE(g.w.loopEnd, 0L);
    // Past the end of the data it is held to the data.
    QCOMPARE(WaveHelperSetLoop(&g.w, 0, 1LL << 40), 0);
    QCOMPARE(g.w.loopEnd, long(qint64(g.w.frameCount) * g.w.frameBytes + 44));
    QCOMPARE(WaveHelperSetLoop(&g.w, -5, -1), 0);
    QCOMPARE(g.w.loopEnd, 0L);
    // The callback plays straight on without a loop.
    QCOMPARE(std::fseek(g.w.playFile, 44, SEEK_SET), 0);
    QByteArray stream(4096, char(0xEE));
    AudioPlayCallbackFunc(&g.w, reinterpret_cast<unsigned char*>(stream.data()), 4096);
    QCOMPARE(std::ftell(g.w.playFile), 44L + 4096);
}

TW_TEST_MAIN(TestWaveHelperCallback)
#include "tst_wavehelpercallback.moc"
