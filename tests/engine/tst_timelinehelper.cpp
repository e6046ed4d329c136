// Probing files for audio and video streams through the engine timeline.

#include "engine/timelinehelper.h"
#include "mediafixtures.h"
#include "testenv.h"

#include <QDir>
#include <QFile>

#include <vexa.h>

class TestTimeLineHelper : public QObject
{
    Q_OBJECT

private slots:
    void shouldCreateOneTimelineForTheProcess()
    {
        const int t = CTimeLineHelper::getTimeline();
        QVERIFY(t > 0);
        QCOMPARE(CTimeLineHelper::getTimeline(), t);
    }

    void shouldTellAudioAndVideo_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<bool>("audio");
        QTest::addColumn<bool>("video");
        QTest::newRow("mp3, audio only") << tw::mp3Fixture() << true << false;
        QTest::newRow("mp4 with h264 and aac") << tw::mp4AvFixture() << true << true;
        QTest::newRow("silent video") << tw::silentVideoFixture() << false << true;
        QTest::newRow("flac") << tw::flacFixture() << true << false;
        QTest::newRow("wav") << tw::wavFixture() << true << false;
        QTest::newRow("mp3 with cover art is no video")
            << tw::mp3WithCoverFixture() << true << false;
        QTest::newRow("text file") << tw::textFixture() << false << false;
        QTest::newRow("empty file") << tw::emptyFixture() << false << false;
        QTest::newRow("missing file") << tw::fixtureDir() + "/no such file.mp3" << false << false;
    }

    void shouldTellAudioAndVideo()
    {
        QFETCH(QString, path);
        QFETCH(bool, audio);
        QFETCH(bool, video);
        QVERIFY(!path.isEmpty());
        const QByteArray local = path.toLocal8Bit();
        QCOMPARE(CTimeLineHelper::haveAudio(local.constData()), audio);
        QCOMPARE(CTimeLineHelper::haveVideo(local.constData()), video);
    }

    void shouldProbePathsWithSpacesAndNonAsciiLetters()
    {
        const QString dir = tw::fixtureDir() + QString::fromUtf8("/Ünïcødé Musik/Мелодия 歌");
        QVERIFY(QDir().mkpath(dir));
        const QString song = dir + QString::fromUtf8("/Café del Mar — Été.mp3");
        QVERIFY(QFile::copy(tw::mp3Fixture(), song));
        const QString clip = dir + QString::fromUtf8("/Vidéo ☀.mp4");
        QVERIFY(QFile::copy(tw::mp4AvFixture(), clip));
        QVERIFY(CTimeLineHelper::haveAudio(song.toLocal8Bit().constData()));
        QVERIFY(!CTimeLineHelper::haveVideo(song.toLocal8Bit().constData()));
        QVERIFY(CTimeLineHelper::haveAudio(clip.toLocal8Bit().constData()));
        QVERIFY(CTimeLineHelper::haveVideo(clip.toLocal8Bit().constData()));
    }

    void shouldRefuseNullPath()
    {
        QVERIFY(!CTimeLineHelper::haveAudio(nullptr));
        QVERIFY(!CTimeLineHelper::haveVideo(nullptr));
    }

    void shouldKeepProbedItemsOnTheTimeline()
    {
        // Probes are never removed: each adds one item, and the next gets a new identifier.
        const int t = CTimeLineHelper::getTimeline();
        tagKeloMediaSrc src{};
        const QByteArray path = tw::wavFixture().toLocal8Bit();
        src.pszPath = path.constData();
        const int before = KeloAddMedia2(t, &src, 0, 0);
        QVERIFY(before >= 0);
        QVERIFY(CTimeLineHelper::haveAudio(path.constData()));
        const int after = KeloAddMedia2(t, &src, 0, 0);
        QCOMPARE(after, before + 2);
        void* info = nullptr;
        QVERIFY(KeloGetMediaInfo(t, before + 1, &info) >= 1);
    }
};

TW_TEST_MAIN(TestTimeLineHelper)
#include "tst_timelinehelper.moc"
