// The whole job, as a user does it in the real window: a library file with
// a song and a video, a playlist click, a song click, a fade in and out and
// the volume set through the controls, "Start to Create" with a typed name;
// then the ringtone is checked with ffprobe (AAC, 44 100 Hz, two channels,
// the selected length), its sound against the source, and it is found in
// the library's ringtones playlist. The same for a video dropped on the
// welcome pane.

#include "editor/wavewnd.h"
#include "library/ItunesWrap.h"
#include "mainwndfixture.h"
#include "modalanswer.h"
#include "testenv.h"
#include "tests/itunesagent/agentfixtures.h"
#include "ui/hellownd.h"

#include <QCheckBox>
#include <QDropEvent>
#include <QLineEdit>
#include <QListView>
#include <QMimeData>
#include <QProcess>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTimeEdit>
#include <QToolButton>
#include <QTreeView>

#include <cmath>

namespace {

// Decodes a file's sound to 44.1 kHz stereo 16-bit samples.
QVector<qint16> decode(const QString& path)
{
    QProcess ffmpeg;
    ffmpeg.start("ffmpeg",
                 {"-v", "error", "-i", path, "-f", "s16le", "-ac", "2", "-ar", "44100", "-"});
    ffmpeg.waitForFinished(60000);
    const QByteArray bytes = ffmpeg.readAllStandardOutput();
    QVector<qint16> samples(int(bytes.size() / 2));
    memcpy(samples.data(), bytes.constData(), size_t(samples.size()) * 2);
    return samples;
}

// Root mean square of the left channel over [from, to) seconds.
double rms(const QVector<qint16>& stereo, double from, double to)
{
    const int a = int(from * 44100) * 2;
    const int b = qMin(int(to * 44100) * 2, int(stereo.size()));
    double sum = 0;
    int n = 0;
    for (int i = a; i < b; i += 2, ++n)
        sum += double(stereo[i]) * stereo[i];
    return n ? std::sqrt(sum / n) : 0;
}

QString probe(const QString& path, const QString& entries)
{
    return tw::ffprobe({"-select_streams", "a:0", "-show_entries", entries, "-of", "csv=p=0", path})
        .trimmed();
}

} // namespace

class TestEndToEnd : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QString m_song;  // 90 s, a steady tone
    QString m_video; // 20 s, picture and sound
    QByteArray m_songHash;
    QByteArray m_videoHash;

    template <typename T> T* get(CMainWnd& wnd, const char* name)
    {
        T* w = wnd.findChild<T*>(name);
        if (!w)
            qFatal("no %s", name);
        return w;
    }

    // Finds a ringtone by title in the library's "Ringtones" playlist, as
    // the user would: a click on the playlist in the tree.
    bool inRingtonesPlaylist(CMainWnd& wnd, const QString& title)
    {
        auto* tree = get<QTreeView>(wnd, "libraryTree");
        get<QToolButton>(wnd, "backBtn")->click();
        if (!mw::clickRow(tree, "Ringtones"))
            return false;
        return mw::rows(get<QListView>(wnd, "ringtongList")).contains(title);
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        const QString media = m_dir.filePath("Media");
        QVERIFY(QDir().mkpath(media + "/Music"));
        m_song = media + "/Music/Morning Light.mp3";
        QVERIFY(tw::ffmpeg({"-f", "lavfi", "-i", "sine=frequency=330:duration=90", "-ac", "2",
                            "-c:a", "libmp3lame", "-b:a", "192k", m_song}));
        m_video = media + "/Clips/Harbour Walk.mp4";
        QVERIFY(QDir().mkpath(media + "/Clips"));
        QVERIFY(tw::ffmpeg({"-f", "lavfi", "-i", "testsrc=size=320x240:rate=25:duration=20", "-f",
                            "lavfi", "-i", "sine=frequency=550:duration=20", "-c:v", "libx264",
                            "-pix_fmt", "yuv420p", "-c:a", "aac", "-shortest", m_video}));
        fx::XmlTrack song;
        song.id = 1;
        song.name = "Morning Light";
        song.artist = "The Testers";
        song.album = "Sunrise";
        song.path = m_song;
        fx::XmlTrack clip;
        clip.id = 2;
        clip.name = "Harbour Walk";
        clip.path = m_video;
        clip.video = true;
        fx::XmlPlaylist all;
        all.name = "Library";
        all.master = true;
        all.items = {1, 2};
        fx::XmlPlaylist music;
        music.name = "Music";
        music.kind = 4;
        music.items = {1};
        fx::XmlPlaylist mine;
        mine.name = "Favourites";
        mine.items = {1, 2};
        const QString xml = m_dir.filePath("library.xml");
        QVERIFY(fx::writeFile(xml, fx::libraryXml(media, {song, clip}, {all, music, mine})));
        fx::useXmlLibrary(xml);
        m_songHash = fx::sha1(m_song);
        m_videoHash = fx::sha1(m_video);
    }

    void shouldMakeARingtoneFromALibrarySong()
    {
        CMainWnd wnd;
        wnd.show();
        QVERIFY(QTest::qWaitForWindowExposed(&wnd));
        QVERIFY(mw::clickRow(get<QTreeView>(wnd, "libraryTree"), "Favourites"));
        QVERIFY(mw::clickRow(get<QListView>(wnd, "ringtongList"), "Morning Light"));
        QCOMPARE(mw::mainPage(wnd), 1);

        // 0:20 to 0:50, a 3 s fade in, a 4 s fade out, the volume at 150.
        get<QTimeEdit>(wnd, "endTime")->setTime(QTime(0, 0, 50));
        get<QTimeEdit>(wnd, "beginTime")->setTime(QTime(0, 0, 20));
        QCOMPARE(wnd.waveWnd()->getBeginTime(), QTime(0, 0, 20));
        get<QTimeEdit>(wnd, "endTime")->setTime(QTime(0, 0, 50));
        QCOMPARE(wnd.waveWnd()->getEndTime(), QTime(0, 0, 50));
        get<QCheckBox>(wnd, "fadeInCheckBox")->click();
        get<QSpinBox>(wnd, "fadeInSpinBox")->setValue(3);
        get<QCheckBox>(wnd, "fadeOutCheckBox")->click();
        get<QSpinBox>(wnd, "fadeOutSpinBox")->setValue(4);
        get<QSlider>(wnd, "volumeSlider")->setValue(150);

        tw::ModalAnswer answers;
        answers.then(mw::typeName("Wake Up"));
        get<QPushButton>(wnd, "startbtn")->click();
        QCOMPARE(answers.seen, QStringList({"CNameDlg"}));
        QCOMPARE(mw::mainPage(wnd), 1);

        const QString ringtone = CItunesWraper::instance()->ringtoneDir() + "/Wake Up.m4r";
        QVERIFY2(QFile::exists(ringtone), qPrintable(ringtone));
        QCOMPARE(probe(ringtone, "stream=codec_name"), QString("aac"));
        QCOMPARE(probe(ringtone, "stream=sample_rate"), QString("44100"));
        QCOMPARE(probe(ringtone, "stream=channels"), QString("2"));
        const double length =
            tw::ffprobe({"-show_entries", "format=duration", "-of", "csv=p=0", ringtone})
                .toDouble();
        QVERIFY2(qAbs(length - 30.0) < 0.05, qPrintable(QString::number(length)));

        // The fades and the volume are in the sound: silent at the start,
        // rising, level and louder than the source in the middle, falling.
        const QVector<qint16> out = decode(ringtone);
        const QVector<qint16> in = decode(m_song);
        const double source = rms(in, 30, 40);
        QVERIFY(rms(out, 0, 0.1) < 0.1 * source);
        QVERIFY(rms(out, 1.0, 1.5) < rms(out, 2.4, 2.9));
        QVERIFY2(qAbs(rms(out, 10, 20) / source - 1.5) < 0.1,
                 qPrintable(QString::number(rms(out, 10, 20) / source)));
        // The fade out runs one second past the end of the selection (the
        // engine's rule): over the last half second the level is near a
        // quarter of the middle's (1.25 of 5 s left), having fallen steadily.
        const double middle = rms(out, 10, 20);
        QVERIFY(rms(out, 26.5, 27) < 0.95 * middle);
        QVERIFY(rms(out, 28, 28.5) < rms(out, 26.5, 27));
        QVERIFY(rms(out, 29.5, 30) < rms(out, 28, 28.5));
        QVERIFY2(qAbs(rms(out, 29.5, 30) / middle - 0.25) < 0.05,
                 qPrintable(QString::number(rms(out, 29.5, 30) / middle)));

        // The source stays as it was, and the ringtone is in the library.
        QCOMPARE(fx::sha1(m_song), m_songHash);
        QVERIFY(inRingtonesPlaylist(wnd, "Wake Up"));
    }

    void shouldMakeARingtoneFromADroppedVideo()
    {
        CMainWnd wnd;
        wnd.show();
        QVERIFY(QTest::qWaitForWindowExposed(&wnd));
        auto* hello = get<CHelloWnd>(wnd, "helloWidget");
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(m_video)});
        QDragEnterEvent enter(QPoint(300, 200), Qt::CopyAction, &data, Qt::LeftButton,
                              Qt::NoModifier);
        QCoreApplication::sendEvent(hello, &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent drop(QPointF(300, 200), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(hello, &drop);
        QVERIFY(drop.isAccepted());
        QCOMPARE(mw::mainPage(wnd), 1);
        QCOMPARE(wnd.currentSong().strPath, m_video);
        QVERIFY(wnd.findChild<QWidget*>("previewWnd")->isVisible());

        // A 12 s span from 0:04.
        get<QTimeEdit>(wnd, "endTime")->setTime(QTime(0, 0, 16));
        get<QTimeEdit>(wnd, "beginTime")->setTime(QTime(0, 0, 4));
        get<QTimeEdit>(wnd, "endTime")->setTime(QTime(0, 0, 16));
        QCOMPARE(wnd.waveWnd()->getBeginTime(), QTime(0, 0, 4));
        QCOMPARE(wnd.waveWnd()->getEndTime(), QTime(0, 0, 16));

        tw::ModalAnswer answers;
        answers.then(mw::typeName("Harbour"));
        get<QPushButton>(wnd, "startbtn")->click();
        QCOMPARE(answers.seen, QStringList({"CNameDlg"}));
        const QString ringtone = CItunesWraper::instance()->ringtoneDir() + "/Harbour.m4r";
        QVERIFY2(QFile::exists(ringtone), qPrintable(ringtone));
        QCOMPARE(probe(ringtone, "stream=codec_name"), QString("aac"));
        QCOMPARE(probe(ringtone, "stream=sample_rate"), QString("44100"));
        QCOMPARE(probe(ringtone, "stream=channels"), QString("2"));
        // Sound only: the picture stays behind.
        QCOMPARE(tw::ffprobe({"-select_streams", "v", "-show_entries", "stream=index", "-of",
                              "csv=p=0", ringtone})
                     .trimmed(),
                 QString());
        const double length =
            tw::ffprobe({"-show_entries", "format=duration", "-of", "csv=p=0", ringtone})
                .toDouble();
        QVERIFY2(qAbs(length - 12.0) < 0.05, qPrintable(QString::number(length)));
        QCOMPARE(fx::sha1(m_video), m_videoHash);
        QVERIFY(inRingtonesPlaylist(wnd, "Harbour"));
    }
};

TW_TEST_MAIN(TestEndToEnd)
#include "tst_endtoend.moc"
