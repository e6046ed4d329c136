// The song record: defaults, copies, and LoadFromFile's title rules and its
// video flag from real media files.

#include "engine/ringtonenode.h"
#include "piperescue.h"
#include "tests/itunesagent/agentfixtures.h"

#include <QTemporaryDir>
#include <QTest>

class TestRingToneNode : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void shouldStartEmpty();
    void shouldCopyEveryField();
    void shouldAssignEveryFieldAndSurviveSelfAssignment();
    void shouldTakeTheTitleFromTheFileName_data();
    void shouldTakeTheTitleFromTheFileName();
    void shouldMarkTheRecordAsALocalFileAndKeepTheRest();
    void shouldTellVideoFromAudio_data();
    void shouldTellVideoFromAudio();
    void shouldNeverWaitForAPipe();

private:
    static CRingToneNode fullNode();

    QTemporaryDir m_dir;
    QString m_video;
    QString m_audio;
};

CRingToneNode TestRingToneNode::fullNode()
{
    CRingToneNode node;
    node.strPath = "/music/a.mp3";
    node.strTitle = "A";
    node.strArtist = "Artist";
    node.strAlbum = "Album";
    node.nReserved = 42;
    node.bVideo = 1;
    QPixmap pixmap(8, 6);
    pixmap.fill(Qt::red);
    node.pixAlbum = pixmap;
    node.bLocalFile = 1;
    return node;
}

void TestRingToneNode::initTestCase()
{
    QVERIFY(m_dir.isValid());
    m_video = m_dir.filePath(QString::fromUtf8("Vidéo clip.mp4"));
    m_audio = m_dir.filePath("song.mp3");
    QVERIFY(fx::makeVideo(m_video));
    QVERIFY(fx::makeAudio(m_audio, {"-c:a", "libmp3lame"}));
}

void TestRingToneNode::shouldStartEmpty()
{
    const CRingToneNode node;
    QVERIFY(node.strPath.isEmpty());
    QVERIFY(node.strTitle.isEmpty());
    QVERIFY(node.strArtist.isEmpty());
    QVERIFY(node.strAlbum.isEmpty());
    QCOMPARE(node.nReserved, 0);
    QCOMPARE(node.bVideo, 0);
    QVERIFY(node.pixAlbum.isNull());
    QCOMPARE(node.bLocalFile, 0);
}

void TestRingToneNode::shouldCopyEveryField()
{
    const CRingToneNode source = fullNode();
    const CRingToneNode copy(source);
    QCOMPARE(copy.strPath, source.strPath);
    QCOMPARE(copy.strTitle, source.strTitle);
    QCOMPARE(copy.strArtist, source.strArtist);
    QCOMPARE(copy.strAlbum, source.strAlbum);
    QCOMPARE(copy.nReserved, 42);
    QCOMPARE(copy.bVideo, 1);
    QCOMPARE(copy.pixAlbum.size(), QSize(8, 6));
    QCOMPARE(copy.bLocalFile, 1);
}

void TestRingToneNode::shouldAssignEveryFieldAndSurviveSelfAssignment()
{
    CRingToneNode node;
    node = fullNode();
    QCOMPARE(node.strPath, QString("/music/a.mp3"));
    QCOMPARE(node.strTitle, QString("A"));
    QCOMPARE(node.strArtist, QString("Artist"));
    QCOMPARE(node.strAlbum, QString("Album"));
    QCOMPARE(node.nReserved, 42);
    QCOMPARE(node.bVideo, 1);
    QCOMPARE(node.pixAlbum.toImage().pixelColor(0, 0), QColor(Qt::red));
    QCOMPARE(node.bLocalFile, 1);

    CRingToneNode& same = node;
    node = same;
    QCOMPARE(node.strTitle, QString("A"));
    QCOMPARE(node.pixAlbum.size(), QSize(8, 6));
}

void TestRingToneNode::shouldTakeTheTitleFromTheFileName_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("title");
    QTest::newRow("no separator") << "song.mp3"
                                  << "song";
    QTest::newRow("backslashes") << "C:\\music\\a.b.mp3"
                                 << "a.b";
    QTest::newRow("separator at position 0") << "/x.mp3"
                                             << "/x";
    QTest::newRow("slashes") << "/home/me/Music/Track 01.flac"
                             << "Track 01";
    QTest::newRow("the later separator wins") << "a\\b/c\\d.mp3"
                                              << "d";
    QTest::newRow("slash after backslash") << "C:\\x\\y/z.m4a"
                                           << "z";
    QTest::newRow("no dot") << "/music/README"
                            << "README";
    QTest::newRow("only a leading dot") << "/music/.ringtone"
                                        << ".ringtone";
    QTest::newRow("leading dot and extension") << "/music/.hidden.mp3"
                                               << ".hidden";
    QTest::newRow("dot in a folder only") << "/music/v1.2/track"
                                          << "track";
    QTest::newRow("non-ASCII") << QString::fromUtf8("/musique/Été à Paris.ogg")
                               << QString::fromUtf8("Été à Paris");
    QTest::newRow("empty") << ""
                           << "";
}

void TestRingToneNode::shouldTakeTheTitleFromTheFileName()
{
    QFETCH(QString, path);
    QFETCH(QString, title);
    CRingToneNode node;
    node.LoadFromFile(path);
    QCOMPARE(node.strTitle, title);
    QCOMPARE(node.strPath, path);
}

void TestRingToneNode::shouldMarkTheRecordAsALocalFileAndKeepTheRest()
{
    CRingToneNode node = fullNode();
    node.LoadFromFile(m_audio);
    QCOMPARE(node.bLocalFile, 1);
    QCOMPARE(node.strPath, m_audio);
    QCOMPARE(node.strTitle, QString("song"));
    QCOMPARE(node.strArtist, QString("Artist"));
    QCOMPARE(node.strAlbum, QString("Album"));
    QCOMPARE(node.pixAlbum.size(), QSize(8, 6));
    QCOMPARE(node.nReserved, 42);
}

void TestRingToneNode::shouldTellVideoFromAudio_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("video");
    QTest::newRow("video, non-ASCII name") << m_video << 1;
    QTest::newRow("audio") << m_audio << 0;
    QTest::newRow("missing file") << m_dir.filePath("absent.mp4") << 0;
}

void TestRingToneNode::shouldTellVideoFromAudio()
{
    QFETCH(QString, path);
    QFETCH(int, video);
    CRingToneNode node = fullNode();
    node.LoadFromFile(path);
    QCOMPARE(node.bVideo, video);
}

void TestRingToneNode::shouldNeverWaitForAPipe()
{
    // The window takes a dropped file, or one named at start, this way.
    const QString path = m_dir.filePath("pipe.mp4");
    tw::PipeRescue pipe(path, 10000);
    QVERIFY(pipe.made());
    CRingToneNode node;
    node.LoadFromFile(path);
    QVERIFY2(!pipe.finish(), "the media engine waited for a writer");
    QCOMPARE(node.bVideo, 0);
    QCOMPARE(node.strTitle, QString("pipe"));
}

TW_TEST_MAIN(TestRingToneNode)
#include "tst_ringtonenode.moc"
