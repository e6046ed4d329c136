// The main window's assembly and navigation, driven through its widgets:
// the pages at start, clicks in the library tree and the song list, back and
// forward, searches on the tree page and on the list page, imports that work
// and imports that fail (with the try-again dialog), the preview pane's
// button, and Escape.

#include "editor/waveplayback.h"
#include "editor/wavewnd.h"
#include "engine/previewwnd.h"
#include "engine/timeconvert.h"
#include "library/filteredit.h"
#include "mainwndfixture.h"
#include "mediafixtures.h"
#include "modalanswer.h"
#include "piperescue.h"
#include "testenv.h"
#include "tests/library/libraryfixture.h"
#include "ui/tickerlabel.h"

#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QSignalSpy>
#include <QTextDocumentFragment>
#include <QTimeEdit>
#include <QToolButton>
#include <QTreeView>

#include <algorithm>

class TestMainWnd : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    lib::Library m_library;
    std::unique_ptr<CMainWnd> m_wnd;

    QTreeView* tree() const { return m_wnd->findChild<QTreeView*>("libraryTree"); }
    QListView* list() const { return m_wnd->findChild<QListView*>("ringtongList"); }
    QToolButton* button(const char* name) const { return m_wnd->findChild<QToolButton*>(name); }
    // Types into the search box and waits for the search it sends.
    void search(const QString& text)
    {
        auto* box = m_wnd->findChild<CFilterEdit*>("filterEdit");
        QSignalSpy sent(box, &CFilterEdit::search);
        box->setFocus();
        box->selectAll();
        if (text.isEmpty())
            QTest::keyClick(box, Qt::Key_Backspace);
        else
            QTest::keyClicks(box, text);
        QVERIFY(sent.wait(5000));
        QCOMPARE(sent.last().at(0).toString(), text);
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        m_library = lib::makeLibrary(m_dir);
        // Long enough for the editor (the library's own is half a second).
        QVERIFY(tw::ffmpeg({"-f", "lavfi", "-i", "sine=frequency=440:duration=6", "-c:a",
                            "libmp3lame", "-b:a", "64k", m_library.coveredSong}));
        QVERIFY(fx::addPicture(m_library.coveredSong, m_library.cover, "image/jpeg"));
    }

    void init()
    {
        m_wnd = std::make_unique<CMainWnd>();
        m_wnd->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_wnd.get()));
    }

    void cleanup()
    {
        m_wnd.reset();
        // A test that served a library of its own leaves the usual one.
        fx::useXmlLibrary(m_library.xml);
    }

    void shouldStartOnTheWelcomeAndTreePages()
    {
        CMainWnd& wnd = *m_wnd;
        QCOMPARE(wnd.objectName(), QString("MainWnd"));
        for (const char* name :
             {"itunes", "filterEdit", "libraryTree", "ringtongList", "previewWnd", "helloWidget",
              "mainFrame", "progressWidget", "waveWnd", "itunestool", "navigationSpacer",
              "navigation", "backBtn", "forwardBtn", "showVideoButton", "openFileButton"})
            QVERIFY2(wnd.findChild<QWidget*>(name), name);
        QCOMPARE(mw::mainPage(wnd), 0);
        QVERIFY(tree()->isVisible());
        QVERIFY(!list()->isVisible());
        QVERIFY(!button("backBtn")->isEnabled());
        QVERIFY(!button("forwardBtn")->isEnabled());
        QVERIFY(!wnd.findChild<CPreviewWnd*>("previewWnd")->isVisible());
        QVERIFY(button("showVideoButton")->isCheckable());
        QVERIFY(!button("showVideoButton")->isChecked());
        QVERIFY(button("openFileButton")->isEnabled());
        QCOMPARE(wnd.minimumSize(), QSize(897, 477));
        QCOMPARE(wnd.maximumSize(), QSize(897, 477));
        QCOMPARE(wnd.size(), QSize(897, 477));
        QVERIFY(!wnd.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        QCOMPARE(wnd.focusPolicy(), Qt::ClickFocus);
        for (const char* name : {"aboutDlg", "upgradeDlg", "newestDlg", "optionDlg"}) {
            auto* dlg = wnd.findChild<QDialog*>(name);
            QVERIFY2(dlg, name);
            QVERIFY(!dlg->isVisible());
            QCOMPARE(dlg->parentWidget(), &wnd);
        }
        // The tree: groups open, reachable by the keyboard, nothing to fold.
        QCOMPARE(mw::rows(tree()), QStringList({"Library", "PlayList"}));
        QVERIFY(tree()->isExpanded(mw::findRow(tree(), "Library")));
        QVERIFY(tree()->isExpanded(mw::findRow(tree(), "PlayList")));
        QVERIFY(!tree()->rootIsDecorated());
        QCOMPARE(tree()->focusPolicy(), Qt::StrongFocus);
        QCOMPARE(list()->focusPolicy(), Qt::StrongFocus);
        QCOMPARE(tree()->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QVERIFY(mw::findRow(tree(), "Music").isValid());
        QVERIFY(mw::findRow(tree(), "Road Trip").isValid());
    }

    void shouldIgnoreAClickOnAGroupCaption()
    {
        QVERIFY(mw::clickRow(tree(), "Library"));
        QVERIFY(tree()->isVisible());
        QVERIFY(!list()->isVisible());
        QVERIFY(!button("backBtn")->isEnabled());
        QVERIFY(!button("forwardBtn")->isEnabled());
        QCOMPARE(list()->model()->rowCount(), 0);
    }

    void shouldShowAPlaylistsSongsWhenClicked()
    {
        QVERIFY(mw::clickRow(tree(), "Music"));
        QVERIFY(list()->isVisible());
        QVERIFY(!tree()->isVisible());
        QVERIFY(button("backBtn")->isEnabled());
        QVERIFY(!button("forwardBtn")->isEnabled());
        // Sorted by title, case-insensitively.
        QCOMPARE(mw::rows(list()), QStringList({"Beat It", "Here Comes the Sun", "No Artist",
                                                "Something", "Yesterday"}));
    }

    void shouldShowALongPlaylistFromItsFirstRowToItsLast()
    {
        // Enough songs for the list's layout to matter.
        const int tracks = 25000;
        const QString xml = m_dir.filePath("long.xml");
        QVERIFY(fx::writeFile(xml, lib::musicLibraryXml(tracks)));
        m_wnd.reset();
        fx::useXmlLibrary(xml);
        m_wnd = std::make_unique<CMainWnd>();
        m_wnd->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_wnd.get()));
        QVERIFY(mw::clickRow(tree(), "Music"));
        QListView* songs = list();
        QCOMPARE(songs->model()->rowCount(), tracks);
        // Sorted as QString compares without regard to case, equal titles in
        // playlist order.
        QStringList sorted;
        for (int track = 1; track <= tracks; ++track)
            sorted << lib::musicTitle(track, tracks);
        std::stable_sort(sorted.begin(), sorted.end(), [](const QString& a, const QString& b) {
            return QString::compare(a, b, Qt::CaseInsensitive) < 0;
        });
        // The first paint shows the smallest title on top.
        songs->grab();
        QCOMPARE(songs->indexAt(QPoint(5, 5)).data().toString(), sorted.first());
        // The last row can be scrolled to and shows the largest title.
        const QModelIndex last = songs->model()->index(tracks - 1, 0);
        songs->scrollToBottom();
        QVERIFY(songs->viewport()->rect().intersects(songs->visualRect(last)));
        QCOMPARE(last.data().toString(), sorted.last());
        QCOMPARE(songs->indexAt(songs->visualRect(last).center()), last);
    }

    void shouldGoBackAndForwardBetweenTreeAndList()
    {
        QVERIFY(mw::clickRow(tree(), "Road Trip"));
        button("backBtn")->click();
        QVERIFY(tree()->isVisible());
        QVERIFY(!button("backBtn")->isEnabled());
        // The tree's current node is a playlist: forward leads back to it.
        QVERIFY(button("forwardBtn")->isEnabled());
        button("forwardBtn")->click();
        QVERIFY(list()->isVisible());
        QCOMPARE(mw::rows(list()), QStringList({"Beat It", "Yesterday"}));
        QVERIFY(button("backBtn")->isEnabled());
        QVERIFY(!button("forwardBtn")->isEnabled());

        // Back and forward leave the tree page flag set: a search now runs
        // over the whole library, not just the list.
        search("Clip");
        QVERIFY(list()->isVisible());
        QCOMPARE(mw::rows(list()), QStringList({"Clip"}));
    }

    void shouldSearchTheWholeLibraryFromTheTreePage()
    {
        search("abbey");
        QVERIFY(list()->isVisible());
        QVERIFY(button("backBtn")->isEnabled());
        QCOMPARE(mw::rows(list()), QStringList({"Here Comes the Sun", "Something"}));
        // Clearing the text on the tree page returns to the tree.
        search(QString());
        QVERIFY(tree()->isVisible());
        QVERIFY(!list()->isVisible());
    }

    void shouldOnlyFilterTheListAfterAPlaylistClick()
    {
        QVERIFY(mw::clickRow(tree(), "Music"));
        search("thriller");
        QCOMPARE(mw::rows(list()), QStringList({"Beat It"}));
        // Not in this playlist: no library-wide search from the list page.
        search("Clip");
        QVERIFY(list()->isVisible());
        QCOMPARE(mw::rows(list()), QStringList());
        // Clearing keeps the list and lifts the filter.
        search(QString());
        QVERIFY(list()->isVisible());
        QCOMPARE(list()->model()->rowCount(), 5);
    }

    void shouldOfferToTryAgainAndRepeatTheImportWithTheSameRecord()
    {
        QVERIFY(mw::clickRow(tree(), "Music"));
        tw::ModalAnswer answers;
        QStringList messages;
        auto readAndThen = [&messages](tw::ModalAnswer::Answer next) {
            return [&messages, next](QWidget* modal) {
                const auto labels = modal->findChildren<QLabel*>();
                for (QLabel* label : labels)
                    if (label->text().contains("could not be read"))
                        messages << QTextDocumentFragment::fromHtml(label->text()).toPlainText();
                next(modal);
            };
        };
        answers.then(readAndThen(tw::ModalAnswer::click("okBtn")));     // try again
        answers.then(readAndThen(tw::ModalAnswer::click("cancelBtn"))); // give up
        // Its file is not on disk: it cannot be read, and trying again may help.
        QVERIFY(mw::clickRow(list(), "Something"));
        QCOMPARE(answers.seen, QStringList({"CTryAgainDlg", "CTryAgainDlg"}));
        QCOMPARE(messages.size(), 2);
        for (const QString& m : messages)
            QVERIFY2(m.startsWith("Sorry, the file \"Something\" could not be read."),
                     qPrintable(m));
        // Nothing was opened or closed on the way: no song, the page as it was.
        QCOMPARE(m_wnd->currentSong().strPath, QString());
        QCOMPARE(mw::mainPage(*m_wnd), 0);
    }

    void shouldSayWhyAFileCannotBeUsed_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("says");
        const QString tiny = m_dir.filePath("blip.wav");
        QVERIFY(tw::ffmpeg(
            {"-f", "lavfi", "-i", "sine=duration=0.14", "-ac", "2", "-c:a", "pcm_s16le", tiny}));
        const QString second = m_dir.filePath("one second.mp3");
        QVERIFY(tw::ffmpeg({"-f", "lavfi", "-i", "sine=duration=1", "-c:a", "libmp3lame", second}));
        QTest::newRow("a text file") << tw::textFixture() << "\"notes\" is not a media file.";
        QTest::newRow("a 0.14-s sound")
            << tiny << "\"blip\" is too short.\nThe shortest ringtone is 5 seconds.";
        QTest::newRow("a 1-s MP3")
            << second << "\"one second\" is too short.\nThe shortest ringtone is 5 seconds.";
        QTest::newRow("a video without sound")
            << tw::silentVideoFixture(2) << "\"silent 2s\" has no sound in it.";
        const QString pipe = m_dir.filePath("pipe.mp3");
        QFile::remove(pipe);
        QVERIFY(mkfifo(QFile::encodeName(pipe).constData(), 0600) == 0);
        QTest::newRow("a named pipe") << pipe << "\"pipe\" is not a file.";
        // Three and a half hours of silence in a sparse WAV.
        const QString hours = m_dir.filePath("hours.wav");
        QVERIFY(tw::writeWav(hours, 44100, 2, 16, 44100, [](qint64, int) { return 0; }));
        QFile wav(hours);
        const quint32 bytes = 44100u * 4 * 60 * 210;
        QByteArray size;
        for (int i = 0; i < 4; ++i)
            size.append(char(bytes >> (8 * i) & 0xFF));
        QVERIFY(wav.open(QIODevice::ReadWrite) && wav.seek(40) && wav.write(size) == 4 &&
                wav.resize(44 + qint64(bytes)));
        QTest::newRow("a 3.5-hour sound")
            << hours
            << "\"hours\" is too long.\nThe editor opens up to 3 hours 18 minutes of sound.";
    }

    void shouldSayWhyAFileCannotBeUsed()
    {
        QFETCH(QString, file);
        QFETCH(QString, says);
        // A pipe the window waited on would come free after ten seconds, and
        // the test then fails.
        std::unique_ptr<tw::PipeRescue> rescue;
        if (QFileInfo(file).exists() && !QFileInfo(file).isFile())
            rescue = std::make_unique<tw::PipeRescue>(file, 10000);
        tw::ModalAnswer answers;
        QString message;
        bool offersTryAgain = true;
        QString button;
        bool isDefault = false;
        answers.then([&](QWidget* modal) {
            message =
                QTextDocumentFragment::fromHtml(modal->findChild<QLabel*>("messageLabel")->text())
                    .toPlainText();
            offersTryAgain = modal->findChild<QPushButton*>("okBtn")->isVisible();
            auto* only = modal->findChild<QPushButton*>("cancelBtn");
            button = only->text();
            isDefault = only->isDefault();
            only->click();
        });
        m_wnd->importWave(file);
        QVERIFY2(!rescue || !rescue->finish(), "the window waited for a writer");
        QCOMPARE(answers.seen, QStringList({"CTryAgainDlg"}));
        QVERIFY2(message.startsWith(says), qPrintable(message));
        QVERIFY(!offersTryAgain); // trying again cannot help
        QCOMPARE(button, QString("OK"));
        QVERIFY(isDefault);
        QCOMPARE(mw::mainPage(*m_wnd), 0);
        QCOMPARE(m_wnd->currentSong().strPath, QString());
    }

    void shouldKeepTheOpenSongWhenAnotherCannotBeUsed()
    {
        const QString video = tw::mp4AvFixture(8);
        m_wnd->importWave(video);
        QCOMPARE(mw::mainPage(*m_wnd), 1);
        m_wnd->waveWnd()->setBeginTime(QTime(0, 0, 1));
        m_wnd->waveWnd()->setEndTime(QTime(0, 0, 7));
        auto* preview = m_wnd->findChild<CPreviewWnd*>("previewWnd");
        QVERIFY(preview->isVisible());

        tw::ModalAnswer answers;
        answers.then(tw::ModalAnswer::click("cancelBtn"));
        m_wnd->importWave(tw::textFixture());
        QCOMPARE(answers.seen, QStringList({"CTryAgainDlg"}));
        // Everything of the video stays, in step.
        QCOMPARE(mw::mainPage(*m_wnd), 1);
        QCOMPARE(m_wnd->currentSong().strPath, video);
        QCOMPARE(m_wnd->findChild<CTickerLabel*>("titleLabel")->text(), QString("clip 8s"));
        QCOMPARE(preview->node().strPath, video);
        QVERIFY(preview->isVisible());
        QVERIFY(m_wnd->waveWnd()->playback().isOpen());
        QCOMPARE(m_wnd->findChild<QTimeEdit*>("beginTime")->time(), QTime(0, 0, 1));
        QCOMPARE(m_wnd->findChild<QTimeEdit*>("endTime")->time(), QTime(0, 0, 7));
        QCOMPARE(m_wnd->waveWnd()->getBeginTime(), QTime(0, 0, 1));
    }

    void shouldLeaveNothingOfTheOldSongWhenAnImportFailsHalfWay()
    {
        const QString video = tw::mp4AvFixture(8);
        m_wnd->importWave(video);
        QCOMPARE(mw::mainPage(*m_wnd), 1);
        auto* preview = m_wnd->findChild<CPreviewWnd*>("previewWnd");
        QVERIFY(preview->isVisible());

        // A FLAC that probes as sound but does not decode.
        const QString damaged = m_dir.filePath("damaged.flac");
        QFile::remove(damaged);
        QVERIFY(QFile::copy(tw::flacFixture(20), damaged));
        QFile f(damaged);
        QVERIFY(f.open(QIODevice::ReadWrite));
        QByteArray all = f.readAll();
        for (int i = 9000; i < all.size(); i += 7)
            all[i] = '\0';
        f.seek(0);
        QCOMPARE(f.write(all), qint64(all.size()));
        f.close();

        tw::ModalAnswer answers;
        answers.then(tw::ModalAnswer::click("cancelBtn"));
        m_wnd->importWave(damaged);
        QCOMPARE(answers.seen, QStringList({"CTryAgainDlg"}));
        QCOMPARE(mw::mainPage(*m_wnd), 0);
        QVERIFY(!m_wnd->waveWnd()->playback().isOpen());
        QCOMPARE(preview->node().strPath, QString());
        QVERIFY(!preview->isVisible());
        QVERIFY(!button("showVideoButton")->isChecked());
    }

    void shouldOpenASongClickedInTheList()
    {
        // In "Road Trip" the list's order is the playlist's own.
        QVERIFY(mw::clickRow(tree(), "Road Trip"));
        QVERIFY(mw::clickRow(list(), "Yesterday"));
        QCOMPARE(mw::mainPage(*m_wnd), 1);
        QCOMPARE(m_wnd->currentSong().strPath, m_library.coveredSong);
        QCOMPARE(m_wnd->findChild<CTickerLabel*>("titleLabel")->text(), QString("Yesterday"));
        // The album picture was asked for on the way.
        const CRingToneNode& shown = m_wnd->findChild<CPreviewWnd*>("previewWnd")->node();
        QVERIFY(!shown.pixAlbum.isNull());
        QCOMPARE(shown.pixAlbum.size(), QSize(40, 30));
    }

    void shouldAskForThePictureAtTheRowTheListShows()
    {
        // Sorted by title, "Yesterday" is the fifth row of "Music", whose
        // fifth song in the playlist's own order has no picture: the row is
        // passed as the list shows it, not mapped back.
        QVERIFY(mw::clickRow(tree(), "Music"));
        QVERIFY(mw::clickRow(list(), "Yesterday"));
        QCOMPARE(mw::mainPage(*m_wnd), 1);
        QCOMPARE(m_wnd->currentSong().strPath, m_library.coveredSong);
        QVERIFY(m_wnd->findChild<CPreviewWnd*>("previewWnd")->node().pixAlbum.isNull());
    }

    void shouldOpenAFileAsADropOrTheOpenDialogWould()
    {
        const QString song = tw::mp3Fixture(12);
        QVERIFY(!song.isEmpty());
        m_wnd->importWave(song);
        QCOMPARE(mw::mainPage(*m_wnd), 1);
        QCOMPARE(m_wnd->currentSong().strPath, song);
        QCOMPARE(m_wnd->currentSong().bLocalFile, 1);
        QVERIFY(m_wnd->currentSong().pixAlbum.isNull());
        QVERIFY(!m_wnd->findChild<CPreviewWnd*>("previewWnd")->isVisible());

        // A video brings the preview pane out.
        const QString video = tw::mp4AvFixture(6);
        m_wnd->importWave(video);
        QCOMPARE(mw::mainPage(*m_wnd), 1);
        QVERIFY(m_wnd->findChild<CPreviewWnd*>("previewWnd")->isVisible());
        QVERIFY(button("showVideoButton")->isChecked());
    }

    void shouldOpenAWaveFromARecorder()
    {
        // 48 kHz mono 24-bit with a LIST chunk, as a field recorder writes it.
        const QString memo = m_dir.filePath("memo 48k.wav");
        QVERIFY(tw::ffmpeg({"-f", "lavfi", "-i", "sine=frequency=440:duration=8", "-ac", "1", "-ar",
                            "48000", "-c:a", "pcm_s24le", "-metadata", "title=Memo", memo}));
        tw::ModalAnswer answers;
        answers.then(tw::ModalAnswer::reject()); // a failure would ask to try again
        m_wnd->importWave(memo);
        QCOMPARE(answers.seen, QStringList());
        QCOMPARE(mw::mainPage(*m_wnd), 1);
        QCOMPARE(m_wnd->currentSong().strPath, memo);
        const long long length = CTimeConvert::timeToLong(m_wnd->waveWnd()->getMaxTime());
        QVERIFY2(qAbs(length - 8000) <= 50, qPrintable(QString::number(length)));
    }

    void shouldToggleThePreviewPaneWithItsButton()
    {
        auto* pane = m_wnd->findChild<CPreviewWnd*>("previewWnd");
        button("showVideoButton")->click();
        QVERIFY(pane->isVisible());
        QVERIFY(button("showVideoButton")->isChecked());
        button("showVideoButton")->click();
        QVERIFY(!pane->isVisible());
        QVERIFY(!button("showVideoButton")->isChecked());
    }

    void shouldStayOpenOnEscape()
    {
        QSignalSpy rejected(m_wnd.get(), &QDialog::rejected);
        QTest::keyClick(m_wnd.get(), Qt::Key_Escape);
        QCOMPARE(rejected.count(), 0);
        QVERIFY(m_wnd->isVisible());
    }
};

TW_TEST_MAIN(TestMainWnd)
#include "tst_mainwnd.moc"
