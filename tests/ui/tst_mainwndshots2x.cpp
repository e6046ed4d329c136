// Pictures of the main window and the About box on a 2x screen (the whole
// program scaled by two), saved under the build directory as
// screenshots/main-en-<page>@2x.png and dialog-en-about@2x.png for a person
// to look at: every image of the skin must be as sharp as the text beside
// it. The checks are what a picture cannot tell by itself: the window is
// drawn at twice its size, and the skin's images come in at twice theirs.

#include "core/language.h"
#include "editor/wavewnd.h"
#include "engine/previewwnd.h"
#include "mediafixtures.h"
#include "shotsupport.h"
#include "testenv.h"
#include "ui/aboutdlg.h"
#include "ui/mainwnd.h"

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QFrame>
#include <QIcon>
#include <QImage>
#include <QPixmap>

namespace {

QImage save(QWidget& widget, const QString& name)
{
    const QImage image = widget.grab().toImage();
    image.save(shots::dir() + "/" + name + "@2x.png");
    return image;
}

} // namespace

class TestMainWndShots2x : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCOMPARE(qApp->devicePixelRatio(), 2.0);
        QVERIFY(shots::useProgramSkin());
        QVERIFY(!tw::mp3Fixture(60).isEmpty());
        QVERIFY(!tw::mp4AvFixture(10).isEmpty());
        CLanguage::instance()->translatorLan("en");
    }

    void shouldFindTheTwiceSizedTwinOfEverySkinImage_data()
    {
        QTest::addColumn<QString>("path");
        for (const char* path :
             {":/bar/play", ":/bar/zoom_in", ":/bar/create", ":/bar/back", ":/msg/close",
              ":/ui/check", ":/ui/search", ":/about/banner", ":/about/header", ":/player/play"})
            QTest::newRow(path) << QString::fromLatin1(path);
    }
    void shouldFindTheTwiceSizedTwinOfEverySkinImage()
    {
        // As the style sheet loads a url(): the @2x file beside it, when there is one.
        QFETCH(QString, path);
        const QPixmap normal(path);
        const QPixmap twin(path + "@2x");
        QVERIFY2(!normal.isNull() && !twin.isNull(), qPrintable(path));
        QCOMPARE(twin.size(), normal.size() * 2);
        const QIcon icon(path);
        QCOMPARE(icon.pixmap(normal.size(), 2.0).size(), normal.size() * 2);
    }

    void shouldDrawTheEditorAndTheAboutBoxAtTwiceTheSize()
    {
        CMainWnd wnd;
        wnd.show();
        QVERIFY(QTest::qWaitForWindowExposed(&wnd));
        QTest::qWait(150);
        QCOMPARE(save(wnd, "main-en-welcome").size(), wnd.size() * 2);

        wnd.importWave(tw::mp3Fixture(60));
        QVERIFY(wnd.findChild<QFrame*>("mainFrame")->isVisible());
        wnd.findChild<QCheckBox*>("fadeInCheckBox")->setChecked(true);
        wnd.waveWnd()->setVolume(160);
        QTest::qWait(50);
        QCOMPARE(save(wnd, "main-en-editor-song").size(), wnd.size() * 2);

        wnd.importWave(tw::mp4AvFixture(10));
        QTRY_VERIFY(wnd.findChild<CPreviewWnd*>("previewWnd")->isVisible());
        QTest::qWait(300); // the video's first picture
        QCOMPARE(save(wnd, "main-en-editor-video").size(), wnd.size() * 2);

        CAboutDlg about;
        about.setObjectName("aboutDlg");
        about.show();
        QVERIFY(QTest::qWaitForWindowExposed(&about));
        QCOMPARE(save(about, "dialog-en-about").size(), about.size() * 2);

        for (const char* name :
             {"main-en-welcome", "main-en-editor-song", "main-en-editor-video", "dialog-en-about"})
            QVERIFY(QFile::exists(shots::dir() + "/" + name + "@2x.png"));
    }
};

// As TW_TEST_MAIN, with the whole program scaled by two before it starts.
int main(int argc, char* argv[])
{
    qputenv("QT_SCALE_FACTOR", "2");
    tw::isolateEnvironment();
    QApplication app(argc, argv);
    tw::setIdentity();
    TestMainWndShots2x tc;
    return QTest::qExec(&tc, argc, argv);
}

#include "tst_mainwndshots2x.moc"
