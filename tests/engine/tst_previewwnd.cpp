// The preview pane: artwork for songs, the picture of a video at one second
// and paused, the play button's states and visibility, the 100 ms rule that
// keeps the picture with the sound, and a stop. Real video files, the real
// player, the real video widget.

#include "engine/previewwnd.h"
#include "engine/videonotify.h"
#include "engine/videoplayerwraper.h"
#include "mediafixtures.h"
#include "testenv.h"

#include <videownd.h>

#include <QEnterEvent>
#include <QIcon>
#include <QLabel>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QStackedLayout>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>

namespace {

QImage imageOf(const QPixmap& pixmap)
{
    return pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
}

QString colourAt(const QImage& image)
{
    const QColor c = image.pixelColor(image.width() / 2, image.height() / 2);
    if (c.red() > 150 && c.green() < 100 && c.blue() < 100)
        return "red";
    if (c.green() > 150 && c.red() < 100 && c.blue() < 100)
        return "green";
    if (c.blue() > 150 && c.red() < 100 && c.green() < 100)
        return "blue";
    return c.name();
}

void hover(QWidget* w, QEvent::Type type)
{
    if (type == QEvent::Enter) {
        QEnterEvent e(QPointF(10, 10), QPointF(10, 10), QPointF(10, 10));
        QCoreApplication::sendEvent(w, &e);
    } else if (type == QEvent::Leave) {
        QEvent e(QEvent::Leave);
        QCoreApplication::sendEvent(w, &e);
    } else {
        QMouseEvent e(QEvent::MouseMove, QPointF(12, 12), QPointF(12, 12), Qt::NoButton,
                      Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(w, &e);
    }
}

} // namespace

class TestPreviewWnd : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QString m_video;
    std::unique_ptr<CPreviewWnd> m_pane;

    QToolButton* button() const { return m_pane->findChild<QToolButton*>("playPreview"); }
    QLabel* artwork() const { return m_pane->findChild<QLabel*>("audioLabel"); }
    CVideoWnd* video() const { return m_pane->findChild<CVideoWnd*>("videoWnd"); }
    int page() const { return m_pane->findChild<QStackedLayout*>()->currentIndex(); }

    CRingToneNode videoNode() const
    {
        CRingToneNode node;
        node.strPath = m_video;
        node.strTitle = "Colours";
        node.bVideo = 1;
        return node;
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        // Red, green and blue seconds, with sound.
        m_video = m_dir.filePath("colours.mp4");
        QString error;
        QVERIFY2(tw::ffmpeg({"-f",
                             "lavfi",
                             "-i",
                             "color=c=red:s=96x72:r=10:d=1",
                             "-f",
                             "lavfi",
                             "-i",
                             "color=c=0x00ff00:s=96x72:r=10:d=1",
                             "-f",
                             "lavfi",
                             "-i",
                             "color=c=blue:s=96x72:r=10:d=1",
                             "-f",
                             "lavfi",
                             "-i",
                             "sine=frequency=440:duration=3",
                             "-filter_complex",
                             "[0][1][2]concat=n=3:v=1:a=0,format=yuv420p[v]",
                             "-map",
                             "[v]",
                             "-map",
                             "3",
                             "-c:v",
                             "libx264",
                             "-g",
                             "7",
                             "-c:a",
                             "aac",
                             m_video},
                            &error),
                 qPrintable(error));
    }

    void init()
    {
        m_pane = std::make_unique<CPreviewWnd>();
        m_pane->resize(240, 180);
        m_pane->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_pane.get()));
    }

    void cleanup() { m_pane.reset(); }

    void shouldBuildItsPartsWithArtworkFirst()
    {
        QVERIFY(video());
        QVERIFY(video()->hasMouseTracking());
        QVERIFY(artwork());
        QVERIFY(artwork()->hasMouseTracking());
        QCOMPARE(artwork()->alignment(), Qt::AlignCenter);
        QCOMPARE(page(), 0);
        QVERIFY(m_pane->hasMouseTracking());
        QToolButton* play = button();
        QVERIFY(play);
        QVERIFY(play->isCheckable());
        QCOMPARE(play->focusPolicy(), Qt::NoFocus);
        QCOMPARE(play->styleSheet(),
                 QString("QToolButton {min-width:73px; max-width:73px; min-height: 73px; "
                         "max-height:73px;background-image: url(:/player/play);}QToolButton:hover{ "
                         "background-image: url(:/player/play_on);}QToolButton:pressed:hover{ "
                         "background-image: url(:/player/play_down);}QToolButton:checked{ "
                         "background-image: url(:/player/pause);}QToolButton:checked:hover{ "
                         "background-image: url(:/player/pause_on);}"
                         "QToolButton:checked:pressed:hover{ background-image: "
                         "url(:/player/pause_down);}"));
        QVERIFY(m_pane->isPaused());
        // Nothing open: the button hides when the pane shows.
        QVERIFY(!play->isVisible());
        QCOMPARE(play->geometry().center(), m_pane->rect().center() + QPoint(0, 0));
    }

    void shouldShowTheArtworkOrTheDefaultPicture()
    {
        CRingToneNode song;
        song.strPath = tw::mp3Fixture(3);
        m_pane->waveOpened(song);
        QCOMPARE(page(), 0);
        const QPixmap album =
            QIcon(":/player/album").pixmap(QSize(180, 135), m_pane->devicePixelRatioF());
        QVERIFY(!album.isNull());
        QCOMPARE(imageOf(artwork()->pixmap()), imageOf(album));
        QVERIFY(button()->isVisible());
        QVERIFY(!button()->isChecked());

        QPixmap cover(40, 30);
        cover.fill(Qt::magenta);
        song.pixAlbum = cover;
        m_pane->waveOpened(song);
        QCOMPARE(imageOf(artwork()->pixmap()), imageOf(cover));
    }

    void shouldOpenAVideoAtOneSecondPaused()
    {
        QSignalSpy clicked(m_pane.get(), &CPreviewWnd::do_play);
        m_pane->waveOpened(videoNode());
        QCOMPARE(page(), 1);
        QTRY_COMPARE_WITH_TIMEOUT(video()->framePosition(), 1000LL, 10000);
        QTRY_VERIFY(!video()->frame().isNull());
        QCOMPARE(colourAt(video()->frame()), QString("green"));
        QVERIFY(m_pane->isPaused());
        QVERIFY(button()->isVisible());
        QVERIFY(!button()->isChecked());
        button()->click();
        QCOMPARE(clicked.count(), 1);
    }

    void shouldPlayAndPauseWithTheEditor()
    {
        m_pane->waveOpened(videoNode());
        QTRY_COMPARE_WITH_TIMEOUT(video()->framePosition(), 1000LL, 10000);
        // The editor's sound runs from one second, reported every 50 ms.
        QElapsedTimer sound;
        sound.start();
        QTimer clock;
        connect(&clock, &QTimer::timeout, this,
                [&] { m_pane->playPosChanged(1000 + sound.elapsed()); });
        m_pane->playPosChanged(1000);
        clock.start(50);
        m_pane->play(1000, false);
        QVERIFY(!m_pane->isPaused());
        QVERIFY(button()->isChecked());
        QVERIFY(!button()->isVisible());
        // The picture moves on by itself while playing.
        QTRY_VERIFY_WITH_TIMEOUT(video()->framePosition() > 1000, 10000);
        // While playing, the mouse shows and hides the button.
        hover(m_pane.get(), QEvent::Enter);
        QVERIFY(button()->isVisible());
        hover(m_pane.get(), QEvent::Leave);
        QVERIFY(!button()->isVisible());
        hover(m_pane.get(), QEvent::MouseMove);
        QVERIFY(button()->isVisible());
        m_pane->pause(false);
        QVERIFY(m_pane->isPaused());
        QVERIFY(!button()->isChecked());
        QVERIFY(button()->isVisible());
        // Paused, leaving keeps it shown.
        hover(m_pane.get(), QEvent::Leave);
        QVERIFY(button()->isVisible());
    }

    void shouldTellWhenThePictureIsOutOfStep_data()
    {
        QTest::addColumn<qint64>("video");
        QTest::addColumn<qint64>("audio");
        QTest::addColumn<bool>("outOfStep");
        QTest::newRow("150 ms behind") << 1850LL << 2000LL << true;
        QTest::newRow("150 ms ahead") << 2150LL << 2000LL << true;
        QTest::newRow("100 ms behind") << 1900LL << 2000LL << false;
        QTest::newRow("100 ms ahead") << 2100LL << 2000LL << false;
        QTest::newRow("in step") << 2000LL << 2000LL << false;
        // Only the low 32 bits count.
        QTest::newRow("a whole 2^32 apart") << (1LL << 32) + 2000 << 2000LL << false;
    }
    void shouldTellWhenThePictureIsOutOfStep()
    {
        QFETCH(qint64, video);
        QFETCH(qint64, audio);
        QFETCH(bool, outOfStep);
        QCOMPARE(CPreviewWnd::isOutOfStep(video, audio), outOfStep);
    }

    void shouldMoveThePictureBackToTheSound()
    {
        m_pane->waveOpened(videoNode());
        QTRY_COMPARE_WITH_TIMEOUT(video()->framePosition(), 1000LL, 10000);
        m_pane->playPosChanged(2500);
        QCOMPARE(m_pane->audioPosition(), 2500LL);
        // The player says it is at 1 s: far from the sound, so it seeks.
        m_pane->viedoNotify(1000, 0);
        QTRY_COMPARE_WITH_TIMEOUT(video()->framePosition(), 2500LL, 10000);
        QCOMPARE(colourAt(video()->frame()), QString("blue"));
    }

    void shouldOnlyLogAFailure()
    {
        m_pane->waveOpened(videoNode());
        QTRY_COMPARE_WITH_TIMEOUT(video()->framePosition(), 1000LL, 10000);
        m_pane->playPosChanged(2500);
        QTest::ignoreMessage(QtDebugMsg, "play erro");
        m_pane->viedoNotify(0, -1);
        // A seek of our own follows; had the failure seeked, 2500 would show first.
        m_pane->seek(1500);
        QTRY_COMPARE_WITH_TIMEOUT(video()->framePosition(), 1500LL, 10000);
    }

    void shouldForgetTheRecordOnStop()
    {
        m_pane->waveOpened(videoNode());
        QTRY_COMPARE_WITH_TIMEOUT(video()->framePosition(), 1000LL, 10000);
        m_pane->play(0, false);
        m_pane->stop();
        QVERIFY(m_pane->isPaused());
        QVERIFY(!button()->isChecked());
        QVERIFY(!button()->isVisible());
        QVERIFY(m_pane->node().strPath.isEmpty());
        QVERIFY(!CVideoPlayerWraper::instance()->hasPlayer());
        // Hovering shows nothing now, and showing the pane hides the button.
        hover(m_pane.get(), QEvent::Enter);
        hover(m_pane.get(), QEvent::MouseMove);
        QVERIFY(!button()->isVisible());
        button()->show();
        m_pane->hide();
        m_pane->show();
        QVERIFY(!button()->isVisible());
        // Nothing to seek, play or pause.
        QCOMPARE(CVideoPlayerWraper::instance()->play(), -1);
        QCOMPARE(CVideoPlayerWraper::instance()->pause(), -1);
        QCOMPARE(CVideoPlayerWraper::instance()->seekPos(10), -1);
    }

    void shouldForwardOnlyGoodEventsToTheRelay()
    {
        tagKeloEvent event{1, KELO_EVENT_PROGRESS, 10};
        QCOMPARE(CVideoPlayerWraper::callbackVexaEvent(&event, nullptr), -1);
        event.nReserved = 0;
        QCOMPARE(CVideoPlayerWraper::callbackVexaEvent(&event, nullptr), -2);
        CVideoNotify relay;
        QSignalSpy spy(&relay, &CVideoNotify::viedoNotify);
        QCOMPARE(CVideoPlayerWraper::callbackVexaEvent(&event, &relay), 0);
        event.nKind = KELO_EVENT_DECODE_FAILED;
        event.nPosition = -1; // widened without its sign
        CVideoPlayerWraper::callbackVexaEvent(&event, &relay);
        event.nKind = KELO_EVENT_OPEN_FAILED;
        CVideoPlayerWraper::callbackVexaEvent(&event, &relay);
        QCOMPARE(spy.count(), 3);
        QCOMPARE(spy[0][0].toLongLong(), 10LL);
        QCOMPARE(spy[0][1].toInt(), 0);
        QCOMPARE(spy[1][0].toLongLong(), 4294967295LL);
        QCOMPARE(spy[1][1].toInt(), -1);
        QCOMPARE(spy[2][1].toInt(), -1);
    }
};

TW_TEST_MAIN(TestPreviewWnd)
#include "tst_previewwnd.moc"
