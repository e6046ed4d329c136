// The seven in-place sample routines, checked sample by sample against the
// independent model and on their boundary values.

#include "audio/pcmeffects.h"
#include "audiotestsupport.h"
#include "testenv.h"

#include <QObject>
#include <QTest>

namespace {

using FadeFn = void (*)(unsigned char*, int, int, int);

unsigned char* bytesOf(QByteArray& b)
{
    return reinterpret_cast<unsigned char*>(b.data());
}

QByteArray s16(std::initializer_list<int> samples)
{
    QByteArray b;
    for (int s : samples)
        audiotest::putLe(b, quint32(quint16(qint16(s))), 2);
    return b;
}

int s16At(const QByteArray& b, int i)
{
    return audiotest::sampleAt(b, i, 16);
}

struct FadeRoutine
{
    FadeFn fn;
    int bits;
    int channels;
    bool fadeIn;
};

FadeRoutine routine(const QString& name)
{
    if (name == "FadeInS16Stereo")
        return {FadeInS16Stereo, 16, 2, true};
    if (name == "FadeOutS16Stereo")
        return {FadeOutS16Stereo, 16, 2, false};
    if (name == "FadeInU8Mono")
        return {FadeInU8Mono, 8, 1, true};
    if (name == "FadeInU8Stereo")
        return {FadeInU8Stereo, 8, 2, true};
    if (name == "FadeOutU8Mono")
        return {FadeOutU8Mono, 8, 1, false};
    return {FadeOutU8Stereo, 8, 2, false};
}

const char* const kFadeNames[] = {"FadeInS16Stereo", "FadeOutS16Stereo", "FadeInU8Mono",
                                  "FadeInU8Stereo",  "FadeOutU8Mono",    "FadeOutU8Stereo"};

} // namespace

class TestPcmEffects : public QObject
{
    Q_OBJECT

private slots:
    void shouldScaleSamplesByVolume_data();
    void shouldScaleSamplesByVolume();
    void shouldMatchModelForVolume_data();
    void shouldMatchModelForVolume();
    void shouldTouchOnlyWholeSamplesOfTheByteCount();

    void shouldMatchModelForEveryFade_data();
    void shouldMatchModelForEveryFade();
    void shouldSilenceFirstFrameOfFadeInFromZero_data();
    void shouldSilenceFirstFrameOfFadeInFromZero();
    void shouldGiveFactorZeroWhenFadeOutStartsAtItsLength();
    void shouldKeepCentreValueUnderEveryU8Fade_data();
    void shouldKeepCentreValueUnderEveryU8Fade();
    void shouldWrapS16FadeInPastItsEnd();
    void shouldTruncateTowardZero();
    void shouldProcessOnlyEndMinusStartFrames_data();
    void shouldProcessOnlyEndMinusStartFrames();
    void shouldWrapThePositionsOfADamagedHeader();
};

void TestPcmEffects::shouldScaleSamplesByVolume_data()
{
    QTest::addColumn<int>("volume");
    QTest::addColumn<int>("in");
    QTest::addColumn<int>("out");
    QTest::newRow("100% keeps 1234") << 100 << 1234 << 1234;
    QTest::newRow("100% keeps -32768") << 100 << -32768 << -32768;
    QTest::newRow("100% keeps 32767") << 100 << 32767 << 32767;
    QTest::newRow("256% clamps 20000") << 256 << 20000 << 32767;
    QTest::newRow("256% clamps -20000") << 256 << -20000 << -32768;
    QTest::newRow("0% silences 32767") << 0 << 32767 << 0;
    QTest::newRow("0% silences -32768") << 0 << -32768 << 0;
    // 110% is a gain of 281/256.
    QTest::newRow("110% of 1000") << 110 << 1000 << 1097;
    // Arithmetic shift: the negative product rounds toward minus infinity.
    QTest::newRow("110% of -1000") << 110 << -1000 << -1098;
    QTest::newRow("50% of -1") << 50 << -1 << -1;
    QTest::newRow("50% of 1") << 50 << 1 << 0;
}

void TestPcmEffects::shouldScaleSamplesByVolume()
{
    QFETCH(int, volume);
    QFETCH(int, in);
    QFETCH(int, out);
    QByteArray b = s16({in, in});
    VolumeChangeS16(bytesOf(b), b.size(), volume);
    QCOMPARE(s16At(b, 0), out);
    QCOMPARE(s16At(b, 1), out);
}

void TestPcmEffects::shouldMatchModelForVolume_data()
{
    QTest::addColumn<int>("volume");
    for (int v : {0, 1, 37, 50, 99, 100, 101, 110, 150, 200, 255, 256, 1000})
        QTest::newRow(qPrintable(QString("%1%").arg(v))) << v;
}

void TestPcmEffects::shouldMatchModelForVolume()
{
    QFETCH(int, volume);
    const QByteArray in = audiotest::noise(8192, quint32(volume) + 7);
    QByteArray b = in;
    VolumeChangeS16(bytesOf(b), b.size(), volume);
    for (int i = 0; i < in.size() / 2; ++i) {
        const qint64 expected = audiotest::volumeS16(s16At(in, i), volume);
        if (s16At(b, i) != expected)
            QFAIL(qPrintable(QString("sample %1: %2 became %3, expected %4")
                                 .arg(i)
                                 .arg(s16At(in, i))
                                 .arg(s16At(b, i))
                                 .arg(expected)));
    }
}

void TestPcmEffects::shouldTouchOnlyWholeSamplesOfTheByteCount()
{
    QByteArray b = s16({1000, 1000, 1000});
    VolumeChangeS16(bytesOf(b), 3, 200); // one and a half samples: one sample
    QCOMPARE(s16At(b, 0), 2000);
    QCOMPARE(s16At(b, 1), 1000);
    QCOMPARE(s16At(b, 2), 1000);
}

void TestPcmEffects::shouldMatchModelForEveryFade_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("frames");
    QTest::addColumn<int>("length");
    for (const char* name : kFadeNames) {
        const QString n = QString::fromLatin1(name);
        QTest::newRow(qPrintable(n + " from the start")) << n << 0 << 1024 << 44100;
        QTest::newRow(qPrintable(n + " in the middle")) << n << 20000 << 1024 << 44100;
        QTest::newRow(qPrintable(n + " short fade")) << n << 0 << 1024 << 1000;
        QTest::newRow(qPrintable(n + " running past the end")) << n << 900 << 1024 << 1000;
        QTest::newRow(qPrintable(n + " far past the end")) << n << 5000 << 512 << 100;
        QTest::newRow(qPrintable(n + " long fade, large positions"))
            << n << 30000000 << 1024 << 40000000;
        QTest::newRow(qPrintable(n + " length 1")) << n << 0 << 64 << 1;
    }
}

void TestPcmEffects::shouldMatchModelForEveryFade()
{
    QFETCH(QString, name);
    QFETCH(int, start);
    QFETCH(int, frames);
    QFETCH(int, length);
    const FadeRoutine r = routine(name);
    const int frameBytes = r.bits / 8 * r.channels;
    const QByteArray in = audiotest::noise(qint64(frames) * frameBytes, quint32(start + length));
    QByteArray b = in;
    r.fn(bytesOf(b), start + frames, start, length);

    // Frame f sits at position start + f: a fade-in gives it the factor
    // (start + f) / length, a fade-out (length - start - f) / length.
    QByteArray expected = in;
    for (int f = 0; f < frames; ++f) {
        const qint64 at = start + f;
        const qint64 n = r.fadeIn ? at : length - at;
        for (int c = 0; c < r.channels; ++c) {
            const qint64 i = qint64(f) * r.channels + c;
            audiotest::setSample(
                expected, i, r.bits,
                audiotest::fadeSample(audiotest::sampleAt(in, i, r.bits), n, length, r.bits));
        }
    }
    for (int i = 0; i < b.size(); ++i) {
        if (b[i] != expected[i])
            QFAIL(qPrintable(QString("byte %1 (frame %2): got %3, expected %4")
                                 .arg(i)
                                 .arg(i / frameBytes)
                                 .arg(quint8(b[i]))
                                 .arg(quint8(expected[i]))));
    }
}

void TestPcmEffects::shouldSilenceFirstFrameOfFadeInFromZero_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : {"FadeInS16Stereo", "FadeInU8Mono", "FadeInU8Stereo"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestPcmEffects::shouldSilenceFirstFrameOfFadeInFromZero()
{
    QFETCH(QString, name);
    const FadeRoutine r = routine(name);
    QByteArray b =
        r.bits == 16 ? s16({-32768, 32767, 1234, 1234}) : QByteArray::fromHex("00ff7f81");
    const QByteArray before = b;
    r.fn(bytesOf(b), 2, 0, 100);
    if (r.bits == 16) {
        QCOMPARE(s16At(b, 0), 0);
        QCOMPARE(s16At(b, 1), 0);
        QCOMPARE(s16At(b, 2), 12); // 1234 * 1 / 100
    } else {
        QCOMPARE(quint8(b[0]), quint8(128));
        QCOMPARE(quint8(b[r.channels == 2 ? 1 : 0]), quint8(128));
        QVERIFY(b != before);
    }
}

void TestPcmEffects::shouldGiveFactorZeroWhenFadeOutStartsAtItsLength()
{
    QByteArray b = s16({30000, -30000, 30000, -30000});
    FadeOutS16Stereo(bytesOf(b), 102, 100, 100);
    QCOMPARE(s16At(b, 0), 0);
    QCOMPARE(s16At(b, 1), 0);
    // Past the end the factor turns negative: -1/100.
    QCOMPARE(s16At(b, 2), -300);
    QCOMPARE(s16At(b, 3), 300);
}

void TestPcmEffects::shouldKeepCentreValueUnderEveryU8Fade_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("length");
    for (const char* name :
         {"FadeInU8Mono", "FadeInU8Stereo", "FadeOutU8Mono", "FadeOutU8Stereo"}) {
        for (int start : {0, 50, 99, 100, 150, 1000}) {
            QTest::newRow(qPrintable(QString("%1 from %2").arg(name).arg(start)))
                << QString::fromLatin1(name) << start << 100;
        }
    }
}

void TestPcmEffects::shouldKeepCentreValueUnderEveryU8Fade()
{
    QFETCH(QString, name);
    QFETCH(int, start);
    QFETCH(int, length);
    const FadeRoutine r = routine(name);
    QByteArray b(256 * r.channels, char(128));
    r.fn(bytesOf(b), start + 256, start, length);
    QCOMPARE(b, QByteArray(256 * r.channels, char(128)));
}

void TestPcmEffects::shouldWrapS16FadeInPastItsEnd()
{
    // The frame at the fade's last position keeps its value (factor 1).
    QByteArray b = s16({20000, -20000});
    FadeInS16Stereo(bytesOf(b), 5, 4, 4);
    QCOMPARE(s16At(b, 0), 20000);
    QCOMPARE(s16At(b, 1), -20000);
    b = s16({20000, -20000, 100, 100});
    FadeInS16Stereo(bytesOf(b), 8, 6, 4);
    // 20000 * 6 / 4 = 30000 fits; at 7/4 the 100s become 175.
    QCOMPARE(s16At(b, 0), 30000);
    QCOMPARE(s16At(b, 1), -30000);
    QCOMPARE(s16At(b, 2), 175);
    b = s16({20000, -20000});
    FadeInS16Stereo(bytesOf(b), 9, 8, 4);
    // 20000 * 2 = 40000 wraps to 40000 - 65536.
    QCOMPARE(s16At(b, 0), 40000 - 65536);
    QCOMPARE(s16At(b, 1), -40000 + 65536);
}

void TestPcmEffects::shouldTruncateTowardZero()
{
    QByteArray b = s16({-3, 3});
    FadeInS16Stereo(bytesOf(b), 2, 1, 2); // -1.5 and 1.5
    QCOMPARE(s16At(b, 0), -1);
    QCOMPARE(s16At(b, 1), 1);

    QByteArray u = QByteArray::fromHex("00ff");
    FadeInU8Mono(reinterpret_cast<unsigned char*>(u.data()), 3, 1, 3);
    QCOMPARE(quint8(u[0]), quint8(85));  // 128 - 128 / 3 = 85.33
    QCOMPARE(quint8(u[1]), quint8(212)); // 2 * 127 / 3 + 128 = 212.67

    // A fade-out one frame past its end: k = -1, so 200 goes below 128.
    QByteArray o = QByteArray::fromHex("c8");
    FadeOutU8Mono(reinterpret_cast<unsigned char*>(o.data()), 12, 11, 10);
    QCOMPARE(quint8(o[0]), quint8(120)); // -72 / 10 + 128 = 120.8
    // Two past the end of a 1-frame fade: 128 + 256 = 384, low byte kept.
    o = QByteArray::fromHex("00");
    FadeOutU8Mono(reinterpret_cast<unsigned char*>(o.data()), 4, 3, 1);
    QCOMPARE(quint8(o[0]), quint8(384 & 0xFF));
}

void TestPcmEffects::shouldProcessOnlyEndMinusStartFrames_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : kFadeNames)
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestPcmEffects::shouldProcessOnlyEndMinusStartFrames()
{
    QFETCH(QString, name);
    const FadeRoutine r = routine(name);
    const int frameBytes = r.bits / 8 * r.channels;
    const QByteArray in = audiotest::noise(64 * frameBytes, 3);
    QByteArray b = in;
    r.fn(bytesOf(b), 10 + 40, 10, 1000);
    QVERIFY(b.left(40 * frameBytes) != in.left(40 * frameBytes));
    QCOMPARE(b.mid(40 * frameBytes), in.mid(40 * frameBytes));
}

// A damaged header gives fade positions near the ends of the 32-bit range:
// the count-down of a fade-out wraps as the machine's integers do (the
// undefined-behaviour sanitizer of the test builds stops on an overflow).
void TestPcmEffects::shouldWrapThePositionsOfADamagedHeader()
{
    QByteArray b(8, char(200));
    const int start = 2147483646;
    const int length = -2147483000;
    FadeOutU8Mono(reinterpret_cast<unsigned char*>(b.data()), start + 1, start, length);
    FadeOutU8Stereo(reinterpret_cast<unsigned char*>(b.data()), start + 1, start, length);
    FadeOutS16Stereo(reinterpret_cast<unsigned char*>(b.data()), start + 1, start, length);
    // One frame each: k = length - start wraps to a small positive number.
    const int k = pcm::wrapSub(length, start);
    QCOMPARE(k, static_cast<int>(static_cast<unsigned>(length) - static_cast<unsigned>(start)));
    QCOMPARE(pcm::wrapSub(-2147483647 - 1, 1), 2147483647);
    QCOMPARE(pcm::wrapAdd(2147483647, 1), -2147483647 - 1);
}

TW_TEST_MAIN(TestPcmEffects)
#include "tst_pcmeffects.moc"
