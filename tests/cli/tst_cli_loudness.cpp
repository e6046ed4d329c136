// tonewright-cli's loudness: --loudness and --loud bring a ringtone to a
// target, the limiter keeps every gain under -1 dBTP, and the summary line
// says what the file measures. Each file is measured again by ffmpeg's
// ebur128 filter, a meter independent of the program's own.

#include "cli/exitcodes.h"
#include "clirun.h"
#include "loudsongs.h"
#include "testenv.h"

#include <QRegularExpression>
#include <QTemporaryDir>

#include <cmath>

namespace {

// The written file's true-peak ceiling and how close a target must be met.
constexpr double kCeiling = -1.0;
constexpr double kTolerance = 0.5;

} // namespace

class TestCliLoudness : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QString m_quiet; // -30 LUFS
    QString m_loud;  // -8 LUFS, limited to full scale

    QString out(const QString& name) const { return m_dir.filePath(name); }

    // Makes a ringtone of seconds 10..30 with these options and reads it back.
    tw::LoudnessReading make(const QString& song, const QString& name, const QStringList& options,
                             QString* summary = nullptr)
    {
        const QString ring = out(name);
        const twcli::Run r = twcli::run(
            QStringList{song, "-o", ring, "--start", "10", "--length", "20", "--force"} + options);
        if (r.code != kExitOk) {
            qWarning("%s", qPrintable(twcli::describe(r)));
            return {};
        }
        if (summary)
            *summary = r.out.trimmed();
        return tw::ffmpegLoudness(ring);
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        m_quiet = tw::songAtLoudness(-30.0);
        m_loud = tw::songAtLoudness(-8.0);
        QVERIFY(!m_quiet.isEmpty() && !m_loud.isEmpty());
        const tw::LoudnessReading quiet = tw::ffmpegLoudness(m_quiet);
        const tw::LoudnessReading loud = tw::ffmpegLoudness(m_loud);
        QVERIFY(quiet.ok && loud.ok);
        QVERIFY2(std::fabs(quiet.lufs + 30.0) < 0.5, qPrintable(QString::number(quiet.lufs)));
        QVERIFY2(std::fabs(loud.lufs + 8.0) < 0.5, qPrintable(QString::number(loud.lufs)));
        qInfo("songs: quiet %.1f LUFS, %.1f dBTP; loud %.1f LUFS, %.1f dBTP", quiet.lufs,
              quiet.truePeak, loud.lufs, loud.truePeak);
    }

    void shouldLandOnTheTargetUnderTheCeiling_data()
    {
        QTest::addColumn<QString>("which");
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<double>("target");
        QTest::newRow("quiet, -14") << "quiet" << QStringList{"--loudness", "-14"} << -14.0;
        QTest::newRow("quiet, --loud") << "quiet" << QStringList{"--loud"} << -11.0;
        QTest::newRow("loud, -14") << "loud" << QStringList{"--loudness", "-14"} << -14.0;
        QTest::newRow("loud, --loud") << "loud" << QStringList{"--loud"} << -11.0;
    }

    void shouldLandOnTheTargetUnderTheCeiling()
    {
        QFETCH(QString, which);
        QFETCH(QStringList, options);
        QFETCH(double, target);
        QString summary;
        const tw::LoudnessReading r =
            make(which == "quiet" ? m_quiet : m_loud, QString("%1 %2.m4r").arg(which).arg(target),
                 options, &summary);
        QVERIFY(r.ok);
        qInfo("%s song to %.0f LUFS: ffmpeg reads %.2f LUFS, %.2f dBTP", qPrintable(which), target,
              r.lufs, r.truePeak);
        QVERIFY2(std::fabs(r.lufs - target) <= kTolerance, qPrintable(QString::number(r.lufs)));
        QVERIFY2(r.truePeak <= kCeiling, qPrintable(QString::number(r.truePeak)));
        // The summary's figures are the file's, to a tenth of a unit or two.
        static const QRegularExpression figures(R"(, (-?\d+\.\d) LUFS, (-?\d+\.\d) dBTP$)");
        const QRegularExpressionMatch m = figures.match(summary);
        QVERIFY2(m.hasMatch(), qPrintable(summary));
        QVERIFY(std::fabs(m.captured(1).toDouble() - r.lufs) <= 0.2);
        QVERIFY(std::fabs(m.captured(2).toDouble() - r.truePeak) <= 0.3);
    }

    void shouldReachATargetBeyondTheCeilingByLimiting()
    {
        // Clicks at full scale over a -30 LUFS song: 19 dB of gain would put
        // them 18 dB over full scale.
        const QString spiky = tw::spikySong();
        QVERIFY(!spiky.isEmpty());
        const tw::LoudnessReading source = tw::ffmpegLoudness(spiky);
        QVERIFY(source.ok);
        QVERIFY(source.lufs - (-11.0) < source.truePeak - kCeiling - 10.0);
        const tw::LoudnessReading r = make(spiky, "spiky.m4r", {"--loud"});
        QVERIFY(r.ok);
        qInfo("spiky song (%.1f LUFS, %.1f dBTP) to -11: %.2f LUFS, %.2f dBTP", source.lufs,
              source.truePeak, r.lufs, r.truePeak);
        QVERIFY2(std::fabs(r.lufs + 11.0) <= kTolerance, qPrintable(QString::number(r.lufs)));
        QVERIFY2(r.truePeak <= kCeiling, qPrintable(QString::number(r.truePeak)));
        // Limited, not clipped: no run of full-scale samples in the file.
        const QByteArray pcm = twcli::decodePcm(out("spiky.m4r"));
        const auto* s = reinterpret_cast<const qint16*>(pcm.constData());
        int highest = 0;
        for (qsizetype i = 0; i < pcm.size() / 2; ++i)
            highest = std::max(highest, std::abs(int(s[i])));
        QVERIFY2(highest < 32767 * 0.92, qPrintable(QString::number(highest)));
    }

    void shouldNotClipAtFullVolume()
    {
        const tw::LoudnessReading before = make(m_loud, "loud 100.m4r", {});
        const tw::LoudnessReading r = make(m_loud, "loud 256.m4r", {"--volume", "256"});
        QVERIFY(before.ok && r.ok);
        qInfo("loud song at 256 %%: %.2f LUFS, %.2f dBTP (at 100 %%: %.2f LUFS)", r.lufs,
              r.truePeak, before.lufs);
        QVERIFY2(r.truePeak <= kCeiling, qPrintable(QString::number(r.truePeak)));
        // The song's peaks were over full scale already: under the ceiling
        // the limiter still leaves it louder than the plain ringtone turned
        // down until its peaks fit.
        const double turnedDown = before.lufs - (before.truePeak - kCeiling);
        QVERIFY2(r.lufs > turnedDown,
                 qPrintable(QString("%1 against %2").arg(r.lufs).arg(turnedDown)));
    }

    void shouldStillFadeWhenNormalising()
    {
        const QString ring = out("faded.m4r");
        const twcli::Run r = twcli::run({m_quiet, "-o", ring, "--start", "10", "--length", "20",
                                         "--loud", "--fade-in", "3", "--fade-out", "3", "-q"});
        QVERIFY2(r.code == kExitOk, qPrintable(twcli::describe(r)));
        // Against the same ringtone without fades: the fade-in starts from
        // silence; the fade-out ends a second past the span, so its last
        // 300 ms keep about a quarter of the level.
        const QString plain = out("unfaded.m4r");
        const twcli::Run p = twcli::run(
            {m_quiet, "-o", plain, "--start", "10", "--length", "20", "--loud", "-q", "--force"});
        QVERIFY2(p.code == kExitOk, qPrintable(twcli::describe(p)));
        const QByteArray faded = twcli::decodePcm(ring);
        const QByteArray unfaded = twcli::decodePcm(plain);
        const double first = twcli::rms(faded, 0, 300) / twcli::rms(unfaded, 0, 300);
        const double middle = twcli::rms(faded, 5000, 15000) / twcli::rms(unfaded, 5000, 15000);
        const double last = twcli::rms(faded, 19700, 20000) / twcli::rms(unfaded, 19700, 20000);
        QVERIFY2(first < 0.15, qPrintable(QString::number(first)));
        QVERIFY2(last < 0.45, qPrintable(QString::number(last)));
        QVERIFY2(middle > 0.9 && middle < 1.25, qPrintable(QString::number(middle)));
        const tw::LoudnessReading level = tw::ffmpegLoudness(ring);
        QVERIFY(level.ok && level.truePeak <= kCeiling);
    }

    void shouldPrintTheLoudnessOfEveryRingtone()
    {
        QString summary;
        const tw::LoudnessReading r = make(m_quiet, "plain.m4r", {"-q"}, &summary);
        QVERIFY(r.ok);
        static const QRegularExpression figures(
            R"(\(20\.0 s\), (-?\d+\.\d) LUFS, (-?\d+\.\d) dBTP$)");
        const QRegularExpressionMatch m = figures.match(summary);
        QVERIFY2(m.hasMatch(), qPrintable(summary));
        QVERIFY(std::fabs(m.captured(1).toDouble() - r.lufs) <= 0.2);
        QVERIFY(std::fabs(m.captured(2).toDouble() - r.truePeak) <= 0.3);
        // Without a gain the span keeps its own level.
        const tw::LoudnessReading span = tw::ffmpegLoudness(m_quiet, 10, 20);
        QVERIFY(span.ok);
        QVERIFY2(std::fabs(r.lufs - span.lufs) < 0.3,
                 qPrintable(QString("%1 against %2").arg(r.lufs).arg(span.lufs)));
    }
};

TW_TEST_MAIN(TestCliLoudness)
#include "tst_cli_loudness.moc"
