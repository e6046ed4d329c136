// Pictures of the main window at each of its pages — the welcome pane, a
// playlist's songs, a search, the editor with a song (also with its buttons
// in other states, and with the picture pane open), the editor with a
// video, the progress pane — and of its pop-ups (the search box's fields,
// a menu, a tool tip), in English and in Japanese, drawn off screen
// with the program's skin over a small media library and saved under the
// build directory (screenshots/main-<language>-<page>.png) for a person to
// look at. Besides the files, the checks are what a picture cannot tell by
// itself: the right page is in front, and the Japanese window carries other
// texts than the English one.

#include "core/language.h"
#include "editor/wavewnd.h"
#include "engine/previewwnd.h"
#include "engine/progressdlg.h"
#include "library/filteredit.h"
#include "mediafixtures.h"
#include "shotsupport.h"
#include "testenv.h"
#include "tests/library/libraryfixture.h"
#include "ui/hellownd.h"
#include "ui/mainwnd.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QFrame>
#include <QImage>
#include <QLabel>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>
#include <QToolTip>
#include <QTreeView>

namespace {

QImage save(QWidget& widget, const QString& language, const QString& page)
{
    const QImage image = widget.grab().toImage();
    image.save(shots::dir() + QString("/main-%1-%2.png").arg(language, page));
    return image;
}

// The tool tip on screen, if one is.
QWidget* visibleToolTip()
{
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (widget->inherits("QTipLabel") && widget->isVisible())
            return widget;
    return nullptr;
}

} // namespace

class TestMainWndShots : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(shots::useProgramSkin());
        QVERIFY(!tw::mp3Fixture(60).isEmpty());
        QVERIFY(!tw::mp4AvFixture(10).isEmpty());
        // A library with playlists of both groups, for the column on the left.
        QVERIFY(m_dir.isValid());
        m_library = lib::makeLibrary(m_dir);
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

        // A playlist's songs, one of them chosen; then a search in them.
        auto* tree = wnd.findChild<QTreeView*>("libraryTree");
        // The first playlist of the library group: its music.
        const QModelIndex music = tree->model()->index(0, 0, tree->model()->index(0, 0));
        QVERIFY(music.isValid());
        tree->setCurrentIndex(music);
        emit tree->clicked(music);
        auto* songs = wnd.findChild<QListView*>("ringtongList");
        QTRY_VERIFY(songs->isVisible() && songs->model()->rowCount() > 2);
        songs->setCurrentIndex(songs->model()->index(1, 0));
        save(wnd, language, "library");
        auto* filter = wnd.findChild<CFilterEdit*>("filterEdit");
        filter->setFocus();
        filter->setText("Be");
        emit filter->textEdited("Be");
        QTest::qWait(700); // the search waits for the typing to pause
        save(wnd, language, "search");

        // The progress pane is in front while the song converts.
        auto* progress = wnd.findChild<CProgressDlg*>("progressWidget");
        bool progressShown = false;
        QTimer::singleShot(0, &wnd, [&] {
            progressShown = progress->isVisible();
            // The pane's first turn has no figure yet: one is shown for the
            // picture, as the next turn writes it.
            progress->findChild<QLabel*>("percentLabel")->setText("42%");
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

        // The editor's buttons in their other states: playing (checked),
        // pressed, disabled, under the pointer.
        auto button = [&wnd](const char* name) { return wnd.findChild<QAbstractButton*>(name); };
        button("playBtn")->setChecked(true);
        button("startbtn")->setDown(true);
        button("closeBtn")->setDown(true);
        for (const char* name : {"zoomOutBtn", "setBeginbtn", "facebook"})
            button(name)->setEnabled(false);
        QTest::mouseMove(button("setEndBtn"));
        QTest::qWait(50);
        save(wnd, language, "editor-states");
        button("playBtn")->setChecked(false);
        button("previewBtn")->setChecked(true);
        button("startbtn")->setDown(false);
        button("closeBtn")->setDown(false);
        button("startbtn")->setEnabled(false);
        QTest::mouseMove(button("volumeAdd"));
        QTest::qWait(50);
        save(wnd, language, "editor-states2");
        button("previewBtn")->setChecked(false);
        for (const char* name : {"zoomOutBtn", "setBeginbtn", "facebook", "startbtn"})
            button(name)->setEnabled(true);

        // The pop-ups: the search box's list of fields, the language menu
        // with an entry under the pointer, a tool tip.
        filter->findChild<QToolButton*>("filerTypeBtn")->click();
        auto* fields = filter->findChild<QListView*>("filterListView");
        QTRY_VERIFY(fields->isVisible());
        save(*fields, language, "fields");
        fields->hide();
        QMenu* languages = wnd.findChild<QMenuBar*>("menuBar")->actions().at(2)->menu();
        languages->actions().at(0)->setChecked(true); // shows its mark; nothing is switched
        languages->popup(wnd.mapToGlobal(QPoint(110, 24)));
        QTRY_VERIFY(languages->isVisible());
        languages->setActiveAction(languages->actions().at(3));
        save(*languages, language, "menu");
        languages->hide();
        QToolTip::showText(wnd.mapToGlobal(QPoint(530, 300)),
                           wnd.findChild<QPushButton*>("playBtn")->toolTip(), &wnd);
        QWidget* tip = nullptr;
        QTRY_VERIFY((tip = visibleToolTip()) != nullptr);
        save(*tip, language, "tooltip");
        QToolTip::hideText();

        wnd.importWave(tw::mp4AvFixture(10));
        QVERIFY(frame->isVisible());
        QTRY_VERIFY(wnd.findChild<CPreviewWnd*>("previewWnd")->isVisible());
        QTest::qWait(300); // the video's first picture
        save(wnd, language, "editor-video");

        // A song again, the picture pane still open: the default album picture.
        wnd.importWave(tw::mp3Fixture(60));
        QTest::qWait(50);
        save(wnd, language, "editor-song-picture");

        for (const char* page :
             {"welcome", "library", "search", "progress", "editor-song", "editor-states",
              "editor-states2", "fields", "menu", "tooltip", "editor-video", "editor-song-picture"})
            QVERIFY(QFile::exists(shots::dir() + QString("/main-%1-%2.png").arg(language, page)));
        const QString file = wnd.findChild<QMenuBar*>("menuBar")->actions().first()->text();
        if (language == "ja")
            QVERIFY2(file != "&File", qPrintable(file));
        else
            QCOMPARE(file, QString("&File"));
    }

private:
    QTemporaryDir m_dir;
    lib::Library m_library;
};

TW_TEST_MAIN(TestMainWndShots)
#include "tst_mainwndshots.moc"
