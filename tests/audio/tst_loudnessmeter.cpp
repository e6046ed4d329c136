// The loudness meter against the reference cases of the broadcast meters
// (EBU Tech 3341), and the true-peak limiter: what it lets through, how
// early it starts and how smoothly it moves.

#include "audio/loudnessmeter.h"
#include "audio/peaklimiter.h"
#include "testenv.h"

#include <QObject>
#include <QTest>

#include <cmath>
#include <vector>

namespace {

constexpr int kRate = 44100;
constexpr double kPi = 3.14159265358979323846;

// A stereo sine at `dbfs` peak level, the same in both channels.
std::vector<float> sine(double hz, double dbfs, double seconds, double phase = 0.0)
{
    const std::size_t frames = std::size_t(seconds * kRate);
    const double amplitude = std::pow(10.0, dbfs / 20.0);
    std::vector<float> out(frames * 2);
    for (std::size_t f = 0; f < frames; ++f) {
        const float v = float(amplitude * std::sin(2.0 * kPi * hz * double(f) / kRate + phase));
        out[2 * f] = v;
        out[2 * f + 1] = v;
    }
    return out;
}

double measuredPeakDb(const std::vector<float>& x)
{
    CLoudnessMeter meter(2, kRate);
    meter.add(x.data(), x.size() / 2);
    return meter.truePeak();
}

} // namespace

class TestLoudnessMeter : public QObject
{
    Q_OBJECT

private slots:
    // EBU Tech 3341, case 1: 1 kHz at -23 dBFS in both channels reads -23.0 LUFS.
    void shouldReadTheReferenceSineAtMinus23()
    {
        const std::vector<float> x = sine(1000.0, -23.0, 20.0);
        CLoudnessMeter meter(2, kRate);
        QVERIFY(meter.isValid());
        meter.add(x.data(), x.size() / 2);
        QVERIFY2(std::fabs(meter.integrated() + 23.0) <= 0.1,
                 qPrintable(QString::number(meter.integrated())));
        QVERIFY(std::fabs(meter.truePeak() + 23.0) <= 0.1);
    }

    // EBU Tech 3341, case 2: at -33 dBFS it reads -33.0 LUFS; 16-bit input too.
    void shouldReadSixteenBitSamplesAlike()
    {
        const std::vector<float> x = sine(1000.0, -33.0, 20.0);
        std::vector<short> s(x.size());
        for (std::size_t i = 0; i < x.size(); ++i)
            s[i] = short(std::lround(x[i] * 32768.0f));
        CLoudnessMeter meter(2, kRate, false);
        meter.add(s.data(), s.size() / 2);
        QVERIFY2(std::fabs(meter.integrated() + 33.0) <= 0.1,
                 qPrintable(QString::number(meter.integrated())));
        QCOMPARE(meter.truePeak(), 0.0); // not followed without true peak
    }

    // A sine at a quarter of its rate sampled 45 degrees off its peaks: the
    // samples stand 3 dB under the true peak, which the meter finds.
    void shouldFindThePeakBetweenSamples()
    {
        const std::vector<float> x = sine(kRate / 4.0, -6.0, 2.0, kPi / 4.0);
        float highest = 0.0f;
        for (float v : x)
            highest = std::max(highest, std::fabs(v));
        QVERIFY(std::fabs(CLoudnessMeter::toDb(highest) + 9.0) < 0.1);
        QVERIFY2(std::fabs(measuredPeakDb(x) + 6.0) < 0.3,
                 qPrintable(QString::number(measuredPeakDb(x))));
    }

    void shouldCallSilenceSilent()
    {
        std::vector<float> x(kRate * 4, 0.0f);
        CLoudnessMeter meter(2, kRate);
        meter.add(x.data(), x.size() / 2);
        QVERIFY(std::isinf(meter.integrated()) && meter.integrated() < 0);
        QVERIFY(std::isinf(meter.truePeak()) && meter.truePeak() < 0);
        CLoudnessMeter empty(1, kRate);
        QVERIFY(std::isinf(empty.integrated()));
    }

    void shouldRefuseImpossibleLayouts()
    {
        QVERIFY(!CLoudnessMeter(0, kRate).isValid());
        QVERIFY(!CLoudnessMeter(2, 0).isValid());
        CLoudnessMeter broken(0, kRate);
        const float x[2] = {0.5f, 0.5f};
        broken.add(x, 1); // ignored, no crash
        QVERIFY(std::isinf(broken.integrated()));
    }

    void shouldConvertDecibels()
    {
        QCOMPARE(CLoudnessMeter::toDb(1.0), 0.0);
        QVERIFY(std::fabs(CLoudnessMeter::toDb(0.5) + 6.0206) < 1e-3);
        QVERIFY(std::isinf(CLoudnessMeter::toDb(0.0)));
        QVERIFY(std::fabs(CLoudnessMeter::fromDb(-20.0) - 0.1) < 1e-12);
    }

    // --- the limiter ---------------------------------------------------------

    void shouldLeaveASignalUnderTheCeilingAlone()
    {
        const std::vector<float> x = sine(440.0, -6.0, 1.0);
        CPeakLimiter limiter(2, kRate);
        limiter.analyse(x.data(), x.size() / 2);
        QVERIFY(std::fabs(CLoudnessMeter::toDb(limiter.peak()) + 6.0) < 0.05);
        std::vector<float> factors;
        QVERIFY(!limiter.envelope(1.5f, 1.0f, &factors)); // 3.5 dB up: still under 0 dB
        QCOMPARE(factors.size(), x.size() / 2);
        for (float f : factors)
            QCOMPARE(f, 1.0f);
    }

    void shouldHoldEveryPeakUnderTheCeiling()
    {
        // A quiet tone with a loud burst in the middle, raised by 12 dB.
        std::vector<float> x = sine(440.0, -20.0, 3.0);
        const std::vector<float> burst = sine(3000.0, -3.0, 0.2, 0.3);
        const std::size_t at = std::size_t(1.5 * kRate) * 2;
        for (std::size_t i = 0; i < burst.size(); ++i)
            x[at + i] += burst[i];
        const float gain = float(CLoudnessMeter::fromDb(12.0));
        const float ceiling = float(CLoudnessMeter::fromDb(-1.0));
        CPeakLimiter limiter(2, kRate);
        limiter.analyse(x.data(), x.size() / 2);
        std::vector<float> factors;
        QVERIFY(limiter.envelope(gain, ceiling, &factors));
        std::vector<float> y(x.size());
        for (std::size_t f = 0; f < factors.size(); ++f)
            for (int c = 0; c < 2; ++c)
                y[2 * f + c] = x[2 * f + c] * gain * factors[f];
        QVERIFY2(measuredPeakDb(y) <= -1.0 + 0.05, qPrintable(QString::number(measuredPeakDb(y))));
        // The quiet tone before the burst (minus the look-ahead) is untouched.
        const std::size_t burstFrame = at / 2;
        const std::size_t ahead = std::size_t(kLookAheadMs * kRate / 1000.0);
        for (std::size_t f = 0; f + ahead + 1 < burstFrame; ++f)
            QCOMPARE(factors[f], 1.0f);
        // The look-ahead: the gain is already falling before the burst.
        QVERIFY(factors[burstFrame - ahead / 2] < 1.0f);
        // Smoothly: no step larger than the ramp's own.
        float largest = 0.0f;
        for (std::size_t f = 1; f < factors.size(); ++f)
            largest = std::max(largest, std::fabs(factors[f] - factors[f - 1]));
        QVERIFY2(largest < 1.0f / float(ahead), qPrintable(QString::number(largest)));
        // And back: a second after the burst the tone has its level again.
        const std::size_t after = burstFrame + std::size_t(0.2 * kRate) + std::size_t(kRate);
        QVERIFY2(factors[after] > 0.99f, qPrintable(QString::number(factors[after])));
    }

    void shouldAnswerAnEmptySpan()
    {
        CPeakLimiter limiter(2, kRate);
        limiter.analyse(static_cast<const float*>(nullptr), 0);
        std::vector<float> factors{1.0f};
        QVERIFY(!limiter.envelope(4.0f, 0.5f, &factors));
        QVERIFY(factors.empty());
        QCOMPARE(limiter.peak(), 0.0f);
    }
};

TW_TEST_MAIN(TestLoudnessMeter)
#include "tst_loudnessmeter.moc"
