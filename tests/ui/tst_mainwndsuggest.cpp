// "Suggest the best part" in the window: the button beside the play
// controls is disabled while the open song is analysed and enabled when the
// proposals are in (the song's waveform is shown before that); each click
// selects the next proposal through the time fields, best, second, third,
// best again, with the editor's signals; the File menu's command (Ctrl+B)
// does the same; another song starts over; the tool-tip is translated.

#include "core/language.h"
#include "editor/spansuggest.h"
#include "editor/wavemodel.h"
#include "editor/wavewnd.h"
#include "engine/timeconvert.h"
#include "mainwndfixture.h"
#include "mediafixtures.h"
#include "sectionsong.h"
#include "testenv.h"
#include "tests/library/libraryfixture.h"

#include <QAction>
#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTimeEdit>

class TestMainWndSuggest : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    std::unique_ptr<CMainWnd> m_wnd;
    QString m_song; // the section song, 3 minutes

    QPushButton* button() const { return m_wnd->findChild<QPushButton*>("suggestBtn"); }
    QAction* command() const { return m_wnd->findChild<QAction*>("suggestAct"); }
    CWaveWnd* editor() const { return m_wnd->waveWnd(); }
    long long field(const char* name) const
    {
        return CTimeConvert::timeToLong(m_wnd->findChild<QTimeEdit*>(name)->time());
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        lib::makeLibrary(m_dir);
        m_song = m_dir.filePath("sections.wav");
        QVERIFY(tw::writeSectionSong(m_song, 44100, 2));
        // The translations beside the program, as start-up finds them.
        QVERIFY(QDir::setCurrent(TW_BINARY_DIR));
    }

    void cleanupTestCase() { CLanguage::instance()->translatorLan("en"); }

    void init()
    {
        m_wnd = std::make_unique<CMainWnd>();
        m_wnd->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_wnd.get()));
    }

    void cleanup() { m_wnd.reset(); }

    void shouldWaitForTheProposalsWithoutHoldingTheSongBack()
    {
        QVERIFY(button());
        QVERIFY(command());
        QVERIFY(!button()->isEnabled()); // no song
        QVERIFY(!command()->isEnabled());
        QCOMPARE(button()->toolTip(), QString("Suggest the best part (Ctrl+B)"));

        // The state the moment the song is shown: its proposals can only
        // arrive through the event loop afterwards.
        bool enabledWhenOpened = true;
        bool readyWhenOpened = true;
        connect(editor(), &CWaveWnd::waveOpened, this, [&] {
            enabledWhenOpened = button()->isEnabled() || command()->isEnabled();
            readyWhenOpened = editor()->spanSuggest().isReady();
        });
        QSignalSpy ready(&editor()->spanSuggest(), &CSpanSuggest::ready);
        m_wnd->importWave(m_song);
        QCOMPARE(mw::mainPage(*m_wnd), 1);
        QVERIFY(!enabledWhenOpened);
        QVERIFY(!readyWhenOpened);
        QTRY_VERIFY_WITH_TIMEOUT(button()->isEnabled(), 20000);
        QVERIFY(command()->isEnabled());
        QCOMPARE(ready.count(), 1);
    }

    void shouldSelectTheProposalsInTurn()
    {
        m_wnd->importWave(m_song);
        QTRY_VERIFY_WITH_TIMEOUT(button()->isEnabled(), 20000);
        const std::vector<SpanProposal> all = editor()->spanSuggest().proposals();
        QCOMPARE(int(all.size()), 3);
        QSignalSpy selected(editor(), &CWaveWnd::selectChange);
        for (int i : {0, 1, 2, 0}) {
            selected.clear();
            QTest::mouseClick(button(), Qt::LeftButton);
            QVERIFY(!selected.isEmpty());
            const SpanProposal& p = all[std::size_t(i)];
            QCOMPARE(editor()->model().beginTime(), p.beginMs);
            QCOMPARE(editor()->model().endTime(), p.endMs);
            QCOMPARE(field("beginTime"), p.beginMs);
            QCOMPARE(field("endTime"), p.endMs);
            // The footer's length follows, as for typed times.
            QCOMPARE(m_wnd->findChild<QLabel*>("selectTimelenLabel")->text(),
                     QString("%1s").arg(p.endMs / 1000 - p.beginMs / 1000));
        }
        // The first lies in a chorus.
        bool inChorus = false;
        for (const tw::SongSection& c : tw::sectionSongChoruses())
            inChorus = inChorus || (all[0].beginMs >= c.begin * 1000 - 500 &&
                                    all[0].endMs <= c.end * 1000 + 500);
        QVERIFY(inChorus);
    }

    void shouldSelectThroughTheMenuCommandAndItsShortcut()
    {
        m_wnd->importWave(m_song);
        QTRY_VERIFY_WITH_TIMEOUT(command()->isEnabled(), 20000);
        const std::vector<SpanProposal> all = editor()->spanSuggest().proposals();
        command()->trigger();
        QCOMPARE(editor()->model().beginTime(), all[0].beginMs);
        QCOMPARE(command()->shortcut(), QKeySequence("Ctrl+B"));
        QTest::keyClick(m_wnd.get(), Qt::Key_B, Qt::ControlModifier);
        QCOMPARE(editor()->model().beginTime(), all[1].beginMs);
        QCOMPARE(editor()->model().endTime(), all[1].endMs);
    }

    void shouldStartOverWithAnotherSong()
    {
        m_wnd->importWave(m_song);
        QTRY_VERIFY_WITH_TIMEOUT(button()->isEnabled(), 20000);
        QTest::mouseClick(button(), Qt::LeftButton);
        // A 20-second song: one proposal, the whole song (its end a
        // millisecond short of the very end, which the end field refuses).
        const QString shortSong = tw::mp3Fixture(20);
        // Disabled the moment the new song shows (the proposals of the one
        // before are gone, the new ones come through the event loop).
        bool enabledWhenOpened = true;
        const auto watch = connect(editor(), &CWaveWnd::waveOpened, this,
                                   [&] { enabledWhenOpened = button()->isEnabled(); });
        m_wnd->importWave(shortSong);
        disconnect(watch);
        QVERIFY(!enabledWhenOpened);
        QTRY_VERIFY_WITH_TIMEOUT(button()->isEnabled(), 20000);
        QCOMPARE(int(editor()->spanSuggest().proposals().size()), 1);
        editor()->setBeginTime(QTime(0, 0, 5));
        editor()->setEndTime(QTime(0, 0, 12));
        QTest::mouseClick(button(), Qt::LeftButton);
        QCOMPARE(editor()->model().beginTime(), 0LL);
        const long long total = CTimeConvert::timeToLong(editor()->getMaxTime());
        QCOMPARE(editor()->model().endTime(), total - 1);
    }

    void shouldTranslateTheToolTipAndTheCommand()
    {
        CLanguage::instance()->translatorLan("fr");
        QTRY_COMPARE(button()->toolTip(), QString("Suggérer le meilleur passage (Ctrl+B)"));
        QCOMPARE(command()->text(), QString("Suggérer le &meilleur passage"));
        CLanguage::instance()->translatorLan("ja");
        QTRY_COMPARE(command()->text(), QString("いちばん良い部分を提案(&B)"));
        CLanguage::instance()->translatorLan("en");
        QTRY_COMPARE(button()->toolTip(), QString("Suggest the best part (Ctrl+B)"));
    }
};

TW_TEST_MAIN(TestMainWndSuggest)
#include "tst_mainwndsuggest.moc"
