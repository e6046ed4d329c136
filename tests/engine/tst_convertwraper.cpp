// CConvertWraper: one item on the timeline at a time, the codes it returns,
// the progress path to an IProgress, and real conversions through it.

#include "mediafixtures.h"
#include "testenv.h"

#include "engine/convertwraper.h"
#include "engine/timelinehelper.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSet>
#include <QTemporaryDir>
#include <QThread>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include <vexa.h>

namespace {

// Records what the engine hands over, and on which thread.
class ProgressRecorder : public IProgress
{
public:
    void setProgress(int progress, int status) override
    {
        calls.push_back({progress, status});
        onGuiThread = onGuiThread && QThread::currentThread() == qApp->thread();
    }
    void finish() override { ++finishes; }

    bool ended() const
    {
        return !calls.empty() && (calls.back().first >= 10000 || calls.back().second < 0);
    }

    std::vector<std::pair<int, int>> calls;
    bool onGuiThread = true;
    int finishes = 0;
};

// The items on the timeline, found by asking for each identifier.
QSet<int> aliveItems()
{
    QSet<int> alive;
    const int timeline = CTimeLineHelper::getTimeline();
    for (int id = 0; id < 1024; ++id) {
        void* info = nullptr;
        if (KeloGetMediaInfo(timeline, id, &info) >= 0)
            alive.insert(id);
    }
    return alive;
}

} // namespace

class TestConvertWraper : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir{QDir::tempPath() + "/tw-convert-XXXXXX"};
    QString m_flac;
    QString m_wav20; // 20 s, 44.1 kHz stereo
    QString m_wav60; // long enough to be stopped half-way

    QByteArray out(const QString& name) const { return (m_dir.path() + "/" + name).toLocal8Bit(); }

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        m_flac = tw::flacFixture(3);
        QVERIFY(!m_flac.isEmpty());
        m_wav20 = m_dir.path() + "/twenty.wav";
        QVERIFY(tw::writeWav(m_wav20, 44100, 2, 16, 20LL * 44100,
                             [](qint64 i, int c) { return int((i * (c + 3)) % 16000) - 8000; }));
        m_wav60 = m_dir.path() + "/sixty.wav";
        QVERIFY(tw::writeWav(m_wav60, 44100, 2, 16, 60LL * 44100,
                             [](qint64 i, int c) { return int((i * (c + 5)) % 16000) - 8000; }));
    }

    void shouldHandProgressAndStatusToTheGivenObject()
    {
        ProgressRecorder recorder;
        tagKeloProgInfo info;
        std::memset(&info, 0, sizeof info);
        info.nProgress = 1234;
        info.nStatus = -7;
        QVERIFY(CConvertWraper::notifyProc(&info, static_cast<IProgress*>(&recorder)));
        QCOMPARE(recorder.calls.size(), size_t(1));
        QCOMPARE(recorder.calls[0], std::make_pair(1234, -7));
        QCOMPARE(recorder.finishes, 0);
    }

    void shouldReportFalseWithoutAProgressObject()
    {
        tagKeloProgInfo info;
        std::memset(&info, 0, sizeof info);
        info.nProgress = 5000;
        QVERIFY(!CConvertWraper::notifyProc(&info, nullptr));
    }

    void shouldConvertWholeFileToWav()
    {
        ProgressRecorder recorder;
        const QByteArray src = m_flac.toLocal8Bit();
        const QByteArray dest = out("whole.wav");
        QCOMPARE(CConvertWraper::instance()->convertTo(src.constData(), dest.constData(), "wav",
                                                       KELO_CODEC_PCM_S16LE, 128000, &recorder),
                 1);
        QTRY_VERIFY_WITH_TIMEOUT(recorder.ended(), 30000);
        QCOMPARE(recorder.calls.back(), std::make_pair(10000, 0));
        // The engine's calls were posted to this thread's event loop.
        QVERIFY(recorder.onGuiThread);
        QFile f(QString::fromLocal8Bit(dest));
        QVERIFY(f.open(QIODevice::ReadOnly));
        QCOMPARE(f.size(), qint64(44 + 3 * 44100 * 4));
        QCOMPARE(f.read(4), QByteArray("RIFF"));
    }

    void shouldConvertSpanToRingtone()
    {
        ProgressRecorder recorder;
        const QByteArray src = m_wav20.toLocal8Bit();
        const QByteArray dest = out("span.m4r");
        QCOMPARE(CConvertWraper::instance()->convertTo(src.constData(), dest.constData(), "mp4",
                                                       KELO_CODEC_AAC, 128000, &recorder, 5000,
                                                       12000),
                 1);
        QTRY_VERIFY_WITH_TIMEOUT(recorder.ended(), 30000);
        QCOMPARE(recorder.calls.back(), std::make_pair(10000, 0));
        const QString probe = tw::ffprobe({"-show_entries", "stream=codec_name,duration", "-of",
                                           "default=nw=1", QString::fromLocal8Bit(dest)});
        QVERIFY2(probe.contains("codec_name=aac"), qPrintable(probe));
        const double seconds = probe.section("duration=", 1).section('\n', 0, 0).toDouble();
        QVERIFY2(qAbs(seconds - 7.0) <= 1024.0 / 44100, qPrintable(probe));
    }

    void shouldKeepOnlyOneItemOnTheTimeline()
    {
        ProgressRecorder first, second;
        const QByteArray src = m_flac.toLocal8Bit();
        const QSet<int> before = aliveItems();
        QCOMPARE(CConvertWraper::instance()->convertTo(src.constData(), out("one.wav").constData(),
                                                       "wav", KELO_CODEC_PCM_S16LE, 128000, &first),
                 1);
        const QSet<int> afterFirst = aliveItems();
        QTRY_VERIFY_WITH_TIMEOUT(first.ended(), 30000);
        QCOMPARE(CConvertWraper::instance()->convertTo(src.constData(), out("two.wav").constData(),
                                                       "wav", KELO_CODEC_PCM_S16LE, 128000,
                                                       &second),
                 1);
        const QSet<int> afterSecond = aliveItems();
        QTRY_VERIFY_WITH_TIMEOUT(second.ended(), 30000);

        // The first conversion's item went when the second's came.
        const QSet<int> firstItem = afterFirst - before;
        QCOMPARE(firstItem.size(), 1);
        QVERIFY(!afterSecond.contains(*firstItem.begin()));
        QCOMPARE((afterSecond - afterFirst).size(), 1);
        QCOMPARE(afterSecond.size(), afterFirst.size());
    }

    void shouldRefuseASourceTheEngineCannotOpen()
    {
        const QByteArray good = m_flac.toLocal8Bit();
        const QByteArray bad = tw::textFixture().toLocal8Bit();
        ProgressRecorder recorder;
        QCOMPARE(CConvertWraper::instance()->convertTo(good.constData(), out("a.wav").constData(),
                                                       "wav", KELO_CODEC_PCM_S16LE, 128000,
                                                       &recorder),
                 1);
        QTRY_VERIFY_WITH_TIMEOUT(recorder.ended(), 30000);
        const QSet<int> withGood = aliveItems();

        ProgressRecorder refused;
        QCOMPARE(CConvertWraper::instance()->convertTo(bad.constData(), out("b.wav").constData(),
                                                       "wav", KELO_CODEC_PCM_S16LE, 128000,
                                                       &refused),
                 -1);
        // The good item went before the bad one was tried; nothing came in.
        const QSet<int> afterBad = aliveItems();
        QCOMPARE(afterBad.size(), withGood.size() - 1);
        QTest::qWait(50);
        QVERIFY(refused.calls.empty());
        QVERIFY(!QFile::exists(QString::fromLocal8Bit(out("b.wav"))));

        // A probe adds its own item; the next conversion must leave it alone.
        QVERIFY(CTimeLineHelper::haveAudio(good.constData()));
        const QSet<int> probed = aliveItems() - afterBad;
        QCOMPARE(probed.size(), 1);
        ProgressRecorder again;
        QCOMPARE(CConvertWraper::instance()->convertTo(good.constData(), out("c.wav").constData(),
                                                       "wav", KELO_CODEC_PCM_S16LE, 128000, &again),
                 1);
        QTRY_VERIFY_WITH_TIMEOUT(again.ended(), 30000);
        QVERIFY(aliveItems().contains(*probed.begin()));
    }

    void shouldReturnMinus2WhenTheEngineRefusesToRun_data()
    {
        QTest::addColumn<QByteArray>("format");
        QTest::addColumn<int>("codec");
        QTest::newRow("unknown container") << QByteArray("avi") << int(KELO_CODEC_PCM_S16LE);
        QTest::newRow("wav with aac") << QByteArray("wav") << int(KELO_CODEC_AAC);
        QTest::newRow("mp4 with pcm") << QByteArray("mp4") << int(KELO_CODEC_PCM_S16LE);
    }

    void shouldReturnMinus2WhenTheEngineRefusesToRun()
    {
        QFETCH(QByteArray, format);
        QFETCH(int, codec);
        ProgressRecorder recorder;
        const QByteArray src = m_flac.toLocal8Bit();
        const QSet<int> before = aliveItems();
        QCOMPARE(CConvertWraper::instance()->convertTo(src.constData(), out("no.out").constData(),
                                                       format.constData(), codec, 128000,
                                                       &recorder),
                 -2);
        // The item stays until the next conversion replaces it.
        QCOMPARE(aliveItems().size(), before.size());
        QTest::qWait(50);
        QVERIFY(recorder.calls.empty());
    }

    void shouldConvertWithoutAProgressObject()
    {
        const QByteArray src = m_flac.toLocal8Bit();
        const QString dest = QString::fromLocal8Bit(out("silent.wav"));
        QCOMPARE(CConvertWraper::instance()->convertTo(src.constData(),
                                                       dest.toLocal8Bit().constData(), "wav",
                                                       KELO_CODEC_PCM_S16LE, 128000, nullptr),
                 1);
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(dest), 30000);
        QTRY_COMPARE_WITH_TIMEOUT(QFile(dest).size(), qint64(44 + 3 * 44100 * 4), 30000);
    }

    void shouldEndCleanlyWhenTheProgramExitsDuringAConversion()
    {
        // Run as a child: a long conversion is left running and the process
        // exits; the static objects' destructors must stop it and leave no
        // partial file.
        const QString dir = m_dir.path() + "/exit";
        QVERIFY(QDir().mkpath(dir));
        QProcess child;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert("TW_EXIT_CHILD_DIR", dir);
        env.insert("TW_EXIT_CHILD_SOURCE", m_wav60);
        child.setProcessEnvironment(env);
        child.start(QCoreApplication::applicationFilePath(), {"exitDuringConversion"});
        QVERIFY(child.waitForFinished(60000));
        QCOMPARE(child.exitStatus(), QProcess::NormalExit);
        QCOMPARE(child.exitCode(), 0);
        QVERIFY(child.readAllStandardOutput().contains("conversion started"));
        QCOMPARE(QDir(dir).entryList(QDir::Files | QDir::Hidden), QStringList());
    }

    // Only does something in the child of the test above.
    void exitDuringConversion()
    {
        const QString dir = qEnvironmentVariable("TW_EXIT_CHILD_DIR");
        if (dir.isEmpty())
            QSKIP("runs only as the child of shouldEndCleanlyWhenTheProgramExitsDuringAConversion");
        ProgressRecorder recorder;
        const QByteArray src = qEnvironmentVariable("TW_EXIT_CHILD_SOURCE").toLocal8Bit();
        const QByteArray dest = (dir + "/left.m4r").toLocal8Bit();
        QCOMPARE(CConvertWraper::instance()->convertTo(src.constData(), dest.constData(), "mp4",
                                                       KELO_CODEC_AAC, 128000, &recorder),
                 1);
        QTRY_VERIFY_WITH_TIMEOUT(!recorder.calls.empty() && recorder.calls.back().first > 0, 30000);
        QVERIFY(!recorder.ended());
        std::printf("conversion started\n");
        std::fflush(stdout);
        std::exit(0);
    }
};

TW_TEST_MAIN(TestConvertWraper)
#include "tst_convertwraper.moc"
