// The engine's two additions for loudness: the preview gain the SDL
// callback applies over the selection (instead of the volume there), and
// WaveHelperReadFaded, which must read exactly what closing the record
// writes into the file (fades chunk for chunk), volume left out.

#include "audio/wavehelper.h"
#include "audio/wavehelper_p.h"
#include "audiotestsupport.h"
#include "testenv.h"

#include <QObject>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>
#include <cstring>
#include <vector>

namespace {

constexpr int kRate = 44100;

// 16-bit stereo: left a ramp, right its negative, never silent.
QByteArray rampData(int seconds)
{
    QByteArray data;
    for (int f = 0; f < kRate * seconds; ++f) {
        const int v = ((f * 7) % 20000) + 1000;
        audiotest::putLe(data, quint32(quint16(qint16(v))), 2);
        audiotest::putLe(data, quint32(quint16(qint16(-v))), 2);
    }
    return data;
}

qint16 sampleAt(const unsigned char* p, qint64 index)
{
    return qint16(quint16(p[2 * index] | (p[2 * index + 1] << 8)));
}

} // namespace

class TestWaveGain : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;

    QString writeWave(const QString& name, int seconds)
    {
        const QString path = m_dir.filePath(name);
        QFile f(path);
        if (!f.open(QIODevice::WriteOnly))
            return QString();
        f.write(audiotest::makeWav(kRate, 2, 16, rampData(seconds)));
        return path;
    }

private slots:
    void initTestCase() { QVERIFY(m_dir.isValid()); }

    void shouldApplyThePreviewGainOverItsFramesOnly()
    {
        const QString path = writeWave("gain.wav", 6);
        audiotest::WaveGuard g;
        QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), &g.w), 0);
        WaveHelperChangeVolume(&g.w, 200);
        // Frames 1000..2999 at half, with the factor of the second half halved again.
        std::vector<float> envelope(2000, 1.0f);
        for (std::size_t i = 1000; i < envelope.size(); ++i)
            envelope[i] = 0.5f;
        const tagWaveGain gain{1000, 2000, 0.5f, envelope.data()};
        QCOMPARE(WaveHelperSetGain(&g.w, &gain), 0);

        // One callback over frames 0..4095 (16384 bytes) from the start.
        QCOMPARE(WaveHelperSetPos(&g.w, 0), 0);
        std::vector<unsigned char> out(16384);
        AudioPlayCallbackFunc(&g.w, out.data(), int(out.size()));
        const QByteArray raw = rampData(1);
        const auto* in = reinterpret_cast<const unsigned char*>(raw.constData());
        for (qint64 f = 0; f < 4096; ++f) {
            for (int c = 0; c < 2; ++c) {
                const int source = sampleAt(in, 2 * f + c);
                const int played = sampleAt(out.data(), 2 * f + c);
                int expected;
                if (f < 1000 || f >= 3000) // the volume, 200 %, clamped
                    expected = std::clamp(source * 512 / 256, -32768, 32767);
                else // the gain and the envelope, rounded; the volume stays off
                    expected = int(std::lround(source * 0.5f * (f >= 2000 ? 0.5f : 1.0f)));
                if (played != expected)
                    QFAIL(qPrintable(QString("frame %1 channel %2: %3, expected %4")
                                         .arg(f)
                                         .arg(c)
                                         .arg(played)
                                         .arg(expected)));
            }
        }
        // Taken off, the volume applies everywhere again.
        QCOMPARE(WaveHelperSetGain(&g.w, nullptr), 0);
        QCOMPARE(WaveHelperSetPos(&g.w, 0), 0);
        AudioPlayCallbackFunc(&g.w, out.data(), int(out.size()));
        QCOMPARE(int(sampleAt(out.data(), 2 * 1500)),
                 std::clamp(sampleAt(in, 2 * 1500) * 2, -32768, 32767));
    }

    void shouldNeverWriteThePreviewGainIntoTheFile()
    {
        const QString path = writeWave("kept.wav", 6);
        const QByteArray before = tw::fileChecksum(path);
        {
            audiotest::WaveGuard g;
            QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), &g.w), 0);
            const tagWaveGain gain{0, 3 * kRate, 0.25f, nullptr};
            WaveHelperSetGain(&g.w, &gain);
            QCOMPARE(WaveHelperUninit(&g.w), 0);
            QVERIFY(g.w.gain == nullptr);
        }
        // Volume 100 and no fades: closing wrote nothing that changes the file.
        QCOMPARE(tw::fileChecksum(path), before);
    }

    void shouldReadWhatClosingWrites_data()
    {
        QTest::addColumn<int>("fadeInStart");
        QTest::addColumn<int>("fadeInLength");
        QTest::addColumn<int>("fadeOutStart");
        QTest::addColumn<int>("fadeOutLength");
        QTest::addColumn<int>("firstFrame");
        QTest::addColumn<int>("frames");
        QTest::newRow("both fades, the whole span") << 2 << 3 << 14 << 4 << 2 * kRate << 18 * kRate;
        QTest::newRow("fade-in only, from inside a chunk")
            << 1 << 2 << -1 << 0 << kRate + 1234 << 6 * kRate;
        QTest::newRow("fade-out only, past the end of the file")
            << -1 << 0 << 16 << 4 << 15 * kRate << 10 * kRate;
        QTest::newRow("no fades") << -1 << 0 << -1 << 0 << 3 * kRate << 5 * kRate;
        QTest::newRow("overlapping fades") << 5 << 6 << 6 << 3 << 5 * kRate << 5 * kRate;
    }

    void shouldReadWhatClosingWrites()
    {
        QFETCH(int, fadeInStart);
        QFETCH(int, fadeInLength);
        QFETCH(int, fadeOutStart);
        QFETCH(int, fadeOutLength);
        QFETCH(int, firstFrame);
        QFETCH(int, frames);
        const QString path = writeWave("faded.wav", 20);

        audiotest::WaveGuard g;
        QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), &g.w), 0);
        WaveHelperFadeIn(&g.w, fadeInStart, fadeInLength);
        WaveHelperFadeOut(&g.w, fadeOutStart, fadeOutLength);
        // Read before closing, as the export does.
        tagWaveInfo layout = g.w;
        const qint64 held = std::min<qint64>(frames, 20 * kRate - firstFrame);
        std::vector<unsigned char> read(std::size_t(frames) * 4, 0xAB);
        QCOMPARE(WaveHelperReadFaded(&layout, path.toLocal8Bit().constData(), firstFrame, frames,
                                     read.data()),
                 held);
        QCOMPARE(WaveHelperUninit(&g.w), 0);

        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.seek(44 + qint64(firstFrame) * 4));
        const QByteArray written = file.read(held * 4);
        QCOMPARE(written.size(), int(held * 4));
        QVERIFY(std::memcmp(written.constData(), read.data(), std::size_t(held) * 4) == 0);
        // What the file does not hold is left alone.
        if (held < frames)
            QCOMPARE(int(read[std::size_t(held) * 4]), 0xAB);
    }

    void shouldLeaveTheVolumeOutOfAFadedRead()
    {
        const QString path = writeWave("volume.wav", 6);
        audiotest::WaveGuard g;
        QCOMPARE(WaveHelperInit(path.toLocal8Bit().constData(), &g.w), 0);
        WaveHelperChangeVolume(&g.w, 40);
        std::vector<unsigned char> read(std::size_t(kRate) * 4);
        QCOMPARE(WaveHelperReadFaded(&g.w, path.toLocal8Bit().constData(), 0, kRate, read.data()),
                 qint64(kRate));
        const QByteArray raw = rampData(1);
        QVERIFY(std::memcmp(raw.constData(), read.data(), read.size()) == 0);
    }

    void shouldRefuseAFadedReadItCannotDo()
    {
        audiotest::WaveGuard g;
        std::vector<unsigned char> out(16);
        QCOMPARE(WaveHelperReadFaded(nullptr, "x", 0, 1, out.data()), -1LL);
        g.w.frameBytes = 4;
        QCOMPARE(WaveHelperReadFaded(&g.w, m_dir.filePath("missing.wav").toLocal8Bit().constData(),
                                     0, 1, out.data()),
                 -1LL);
        QCOMPARE(WaveHelperReadFaded(&g.w, "x", -1, 1, out.data()), -1LL);
        g.w.frameBytes = 0;
        QCOMPARE(WaveHelperReadFaded(&g.w, "x", 0, 1, out.data()), -1LL);
    }
};

TW_TEST_MAIN(TestWaveGain)
#include "tst_wavegain.moc"
