// The command line and the editor make the same ringtone: for the same
// input, span, fades and volume, tonewright-cli's file (decoded from a seek
// near the span) and the editor's export (from the whole song's WAV) decode
// to the same samples, byte for byte, but for AAC sources, whose decoder's
// substituted noise depends on where decoding began. The editor side is the
// real widget with its progress pane, exporting as "Start to Create" does.

#include "cli/exitcodes.h"
#include "clirun.h"
#include "editor/wavemodel.h"
#include "editor/wavewnd.h"
#include "engine/progressdlg.h"
#include "engine/ringtonenode.h"
#include "mediafixtures.h"
#include "testenv.h"

#include <QTemporaryDir>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>

namespace {

// How far under the sound the difference of an AAC source's two ringtones
// must lie: less than the encoder's own error, which on the fixture's tone
// at 128 kbit/s lies about 36 dB under it (the pair measured 45 dB).
constexpr double kToleranceDb = 40.0;

// The power of the difference of two 16-bit PCM streams under the power of
// the first, in dB.
double differenceBelowSignalDb(const QByteArray& a, const QByteArray& b)
{
    const auto* x = reinterpret_cast<const qint16*>(a.constData());
    const auto* y = reinterpret_cast<const qint16*>(b.constData());
    const qsizetype n = std::min(a.size(), b.size()) / 2;
    double signal = 0.0;
    double difference = 0.0;
    for (qsizetype i = 0; i < n; ++i) {
        signal += double(x[i]) * x[i];
        difference += double(x[i] - y[i]) * (x[i] - y[i]);
    }
    if (difference == 0.0)
        return std::numeric_limits<double>::infinity();
    return 10.0 * std::log10(signal / difference);
}

} // namespace

class TestCliEditor : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    std::unique_ptr<QWidget> m_host;
    CWaveWnd* m_wnd = nullptr;
    QString m_mp3At48;
    QString m_oggAt48;

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        m_host = std::make_unique<QWidget>();
        m_host->resize(897, 300);
        auto* progress = new CProgressDlg(m_host.get());
        m_wnd = new CWaveWnd(m_host.get(), progress);
        m_wnd->resize(897, 300);
        m_host->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_host.get()));
        // 48 kHz sources: the resampler to 44.1 kHz must land on the same
        // samples after a seek as from the start.
        m_mp3At48 = m_dir.filePath("tone 48k.mp3");
        m_oggAt48 = m_dir.filePath("noise 48k.ogg");
        const QStringList tone{
            "-f", "lavfi", "-i", "sine=frequency=523:sample_rate=48000:duration=50", "-ac", "2"};
        QVERIFY(tw::ffmpeg(tone + QStringList{"-c:a", "libmp3lame", "-b:a", "160k", m_mp3At48}));
        QVERIFY(tw::ffmpeg({"-f", "lavfi", "-i",
                            "anoisesrc=color=pink:duration=50:amplitude=0.3:sample_rate=48000",
                            "-ac", "2", "-c:a", "libvorbis", m_oggAt48}));
    }

    void cleanupTestCase()
    {
        m_wnd->stop();
        m_host.reset();
    }

    void shouldWriteTheSameAudioAsTheEditor_data()
    {
        QTest::addColumn<QString>("input");
        QTest::addColumn<qint64>("begin");
        QTest::addColumn<qint64>("end");
        QTest::addColumn<int>("fadeIn");
        QTest::addColumn<int>("fadeOut");
        QTest::addColumn<int>("volume");
        // An AAC source's decoder draws the noise it substitutes for some
        // bands from a generator that runs from the file's start, so after
        // the command line's seek those bands differ by a unit or so; every
        // other decoder and the resampler give the very same samples.
        QTest::addColumn<bool>("exact");
        QTest::newRow("mp3, fades, louder")
            << tw::mp3Fixture(60) << qint64(10000) << qint64(40000) << 2 << 3 << 150 << true;
        QTest::newRow("mp3, as it is")
            << tw::mp3Fixture(60) << qint64(0) << qint64(30000) << 0 << 0 << 100 << true;
        QTest::newRow("video, both fades, quieter")
            << tw::mp4AvFixture(45) << qint64(5500) << qint64(25750) << 1 << 4 << 80 << false;
        QTest::newRow("flac, fade-in only")
            << tw::flacFixture(20) << qint64(2000) << qint64(14000) << 5 << 0 << 100 << true;
        QTest::newRow("video, fade-out only")
            << tw::mp4AvFixture(45) << qint64(12000) << qint64(30000) << 0 << 6 << 100 << false;
        QTest::newRow("mp3, silenced")
            << tw::mp3Fixture(60) << qint64(20000) << qint64(26000) << 2 << 2 << 0 << true;
        QTest::newRow("mp3 at 48 kHz, off the second")
            << m_mp3At48 << qint64(12345) << qint64(41900) << 3 << 2 << 120 << true;
        QTest::newRow("ogg at 48 kHz, fades")
            << m_oggAt48 << qint64(7700) << qint64(29000) << 2 << 3 << 100 << true;
    }

    void shouldWriteTheSameAudioAsTheEditor()
    {
        QFETCH(QString, input);
        QFETCH(qint64, begin);
        QFETCH(qint64, end);
        QFETCH(int, fadeIn);
        QFETCH(int, fadeOut);
        QFETCH(int, volume);
        QFETCH(bool, exact);
        QVERIFY(!input.isEmpty());
        const QString tag = QString::fromLatin1(QTest::currentDataTag()).replace(' ', '_');

        // The editor, as the window drives it.
        CRingToneNode song;
        song.LoadFromFile(input);
        QCOMPARE(m_wnd->openFile(song), 0);
        m_wnd->setBeginTime(begin);
        m_wnd->setEndTime(end);
        QCOMPARE(m_wnd->model().beginTime(), begin);
        QCOMPARE(m_wnd->model().endTime(), end);
        m_wnd->enableFadeIn(fadeIn > 0);
        m_wnd->fadeIn(fadeIn);
        m_wnd->enableFadeOut(fadeOut > 0);
        m_wnd->fadeOut(fadeOut);
        m_wnd->setVolume(volume);
        const QString editorRing = m_dir.filePath("editor-" + tag + ".m4r");
        const int rc = m_wnd->convertToM4r(editorRing);
        QVERIFY2(rc >= 0, qPrintable(QString::number(rc)));

        // The command line with the same settings.
        const QString cliRing = m_dir.filePath("cli-" + tag + ".m4r");
        const twcli::Run r = twcli::run(
            {input, "-o", cliRing, "--start", QString::number(begin / 1000.0, 'f', 3), "--end",
             QString::number(end / 1000.0, 'f', 3), "--fade-in", QString::number(fadeIn),
             "--fade-out", QString::number(fadeOut), "--volume", QString::number(volume), "-q"});
        QVERIFY2(r.code == kExitOk, qPrintable(twcli::describe(r)));

        const QByteArray editorPcm = twcli::decodePcm(editorRing);
        const QByteArray cliPcm = twcli::decodePcm(cliRing);
        // About the span's length of 44.1 kHz stereo 16-bit samples.
        const double expectedBytes = (end - begin) / 1000.0 * 44100 * 4;
        QVERIFY2(std::abs(editorPcm.size() - expectedBytes) < 4096 * 4,
                 qPrintable(QString::number(editorPcm.size())));
        QCOMPARE(cliPcm.size(), editorPcm.size());
        if (exact) {
            QVERIFY2(cliPcm == editorPcm, "the decoded samples differ");
        } else {
            const double below = differenceBelowSignalDb(editorPcm, cliPcm);
            qInfo("the difference lies %.1f dB under the sound", below);
            QVERIFY2(below >= kToleranceDb, qPrintable(QString::number(below)));
        }
        // Not a silent pair of files that would match anyway (but for the
        // row whose volume is 0).
        if (volume > 0)
            QVERIFY(cliPcm.count('\0') < cliPcm.size() / 2);
        QCOMPARE(twcli::probeAudio(cliRing, "codec_name"),
                 twcli::probeAudio(editorRing, "codec_name"));
        QCOMPARE(twcli::probeAudio(cliRing, "bit_rate").isEmpty(), false);
    }
};

TW_TEST_MAIN(TestCliEditor)
#include "tst_cli_editor.moc"
