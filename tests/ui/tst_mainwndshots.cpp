// Pictures of the main window at each of its pages — the welcome pane, the
// editor with a song, the editor with a video, the progress pane — in
// English and in Japanese, drawn off screen with the program's skin and
// saved under the build directory (screenshots/main-<language>-<page>.png)
// for a person to look at. Besides the files, the checks are what a picture
// cannot tell by itself: the right page is in front, and the Japanese
// window carries other texts than the English one.

#include "app/language.h"
#include "editor/wavewnd.h"
#include "engine/previewwnd.h"
#include "engine/progressdlg.h"
#include "mediafixtures.h"
#include "testenv.h"
#include "ui/hellownd.h"
#include "ui/mainwnd.h"

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QFrame>
#include <QImage>
#include <QMenuBar>
#include <QTimer>

namespace {

QString shotDir()
{
    return QStringLiteral(TW_BINARY_DIR "/screenshots");
}

QImage save(QWidget& widget, const QString& language, const QString& page)
{
    const QImage image = widget.grab().toImage();
    image.save(shotDir() + QString("/main-%1-%2.png").arg(language, page));
    return image;
}

} // namespace

class TestMainWndShots : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(QDir().mkpath(shotDir()));
        QVERIFY(QDir::setCurrent(TW_BINARY_DIR));
        QFile skin("skin/default/default.css");
        QVERIFY(skin.open(QIODevice::ReadOnly));
        qApp->setStyleSheet(QString::fromUtf8(skin.readAll()));
        QVERIFY(!tw::mp3Fixture(60).isEmpty());
        QVERIFY(!tw::mp4AvFixture(10).isEmpty());
    }

    void cleanupTestCase() { CLanguage::instance()->translatorLan("en"); }

    void shouldDrawEveryPageInEnglishAndJapanese_data()
    {
        QTest::addColumn<QString>("language");
        QTest::newRow("English") << "en";
        QTest::newRow("Japanese") << "ja";
    }
    void shouldDrawEveryPageInEnglishAndJapanese()
    {
        QFETCH(QString, language);
        CLanguage::instance()->translatorLan(language);
        CMainWnd wnd;
        wnd.show();
        QVERIFY(QTest::qWaitForWindowExposed(&wnd));
        QTest::qWait(150); // the welcome animation shows its first frames
        auto* hello = wnd.findChild<CHelloWnd*>("helloWidget");
        QVERIFY(hello && hello->isVisible());
        save(wnd, language, "welcome");

        // The progress pane is in front while the song converts.
        auto* progress = wnd.findChild<CProgressDlg*>("progressWidget");
        bool progressShown = false;
        QTimer::singleShot(0, &wnd, [&] {
            progressShown = progress->isVisible();
            save(wnd, language, "progress");
        });
        wnd.importWave(tw::mp3Fixture(60));
        QVERIFY(progressShown);

        auto* frame = wnd.findChild<QFrame*>("mainFrame");
        QVERIFY(frame->isVisible());
        // Settings a user would have made: a fade in, the volume up.
        wnd.findChild<QCheckBox*>("fadeInCheckBox")->setChecked(true);
        wnd.waveWnd()->setVolume(160);
        QTest::qWait(50);
        save(wnd, language, "editor-song");

        wnd.importWave(tw::mp4AvFixture(10));
        QVERIFY(frame->isVisible());
        QTRY_VERIFY(wnd.findChild<CPreviewWnd*>("previewWnd")->isVisible());
        QTest::qWait(300); // the video's first picture
        save(wnd, language, "editor-video");

        for (const char* page : {"welcome", "progress", "editor-song", "editor-video"})
            QVERIFY(QFile::exists(shotDir() + QString("/main-%1-%2.png").arg(language, page)));
        const QString file = wnd.findChild<QMenuBar*>("menuBar")->actions().first()->text();
        if (language == "ja")
            QVERIFY2(file != "File", qPrintable(file));
        else
            QCOMPARE(file, QString("File"));
    }
};

TW_TEST_MAIN(TestMainWndShots)
#include "tst_mainwndshots.moc"
