// The command line and the editor make the same ringtone: for the same
// input, span, fades and volume, tonewright-cli's file and the editor's
// export decode to the same samples, byte for byte. The editor side is the
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

#include <memory>

class TestCliEditor : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    std::unique_ptr<QWidget> m_host;
    CWaveWnd* m_wnd = nullptr;

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
        QTest::newRow("mp3, fades, louder")
            << tw::mp3Fixture(60) << qint64(10000) << qint64(40000) << 2 << 3 << 150;
        QTest::newRow("mp3, as it is")
            << tw::mp3Fixture(60) << qint64(0) << qint64(30000) << 0 << 0 << 100;
        QTest::newRow("video, both fades, quieter")
            << tw::mp4AvFixture(45) << qint64(5500) << qint64(25750) << 1 << 4 << 80;
        QTest::newRow("flac, fade-in only")
            << tw::flacFixture(20) << qint64(2000) << qint64(14000) << 5 << 0 << 100;
        QTest::newRow("video, fade-out only")
            << tw::mp4AvFixture(45) << qint64(12000) << qint64(30000) << 0 << 6 << 100;
        QTest::newRow("mp3, silenced")
            << tw::mp3Fixture(60) << qint64(20000) << qint64(26000) << 2 << 2 << 0;
    }

    void shouldWriteTheSameAudioAsTheEditor()
    {
        QFETCH(QString, input);
        QFETCH(qint64, begin);
        QFETCH(qint64, end);
        QFETCH(int, fadeIn);
        QFETCH(int, fadeOut);
        QFETCH(int, volume);
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
        QVERIFY2(cliPcm == editorPcm, "the decoded samples differ");
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
