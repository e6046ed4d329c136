// The window by keyboard alone: every key below goes to the widget that has
// the focus, as a keyboard sends it. A song is found in the library with the
// arrow keys and opened with Return, the span set with I, O and the edge
// keys, a fade switched on, two steps undone and one redone, and the
// ringtone made with Ctrl+S and Return in the name dialog; the file is then
// checked. Around that: Tab reaches every control, Escape stops playback and
// no longer closes the window, undo keeps at least 50 steps and forgets
// them for another song, a drag is one step, the loop preview, closing
// while a ringtone is written asks first, and what screen readers are told.

#include "core/language.h"
#include "editor/edithistory.h"
#include "editor/spanrender.h"
#include "editor/wavemodel.h"
#include "editor/waveplayback.h"
#include "editor/wavewnd.h"
#include "library/ItunesWrap.h"
#include "mainwndfixture.h"
#include "modalanswer.h"
#include "testenv.h"
#include "tests/itunesagent/agentfixtures.h"

#include <QAccessible>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QSet>
#include <QSignalSpy>
#include <QSlider>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTimeEdit>
#include <QTimer>
#include <QToolButton>
#include <QTreeView>

namespace {

// Presses a key on the widget that has the focus, as the keyboard does.
void key(Qt::Key k, Qt::KeyboardModifiers mods = Qt::NoModifier)
{
    QWidget* target = QApplication::focusWidget();
    QVERIFY2(target, "nothing has the keyboard focus");
    QTest::keyClick(target, k, mods);
}

QString probeDuration(const QString& path)
{
    return tw::ffprobe({"-show_entries", "format=duration", "-of", "csv=p=0", path}).trimmed();
}

} // namespace

class TestMainWndKeys : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QString m_song;  // 90 s
    QString m_other; // 60 s
    std::unique_ptr<CMainWnd> m_wnd;

    template <typename T> T* get(const char* name)
    {
        T* w = m_wnd->findChild<T*>(name);
        if (!w)
            qFatal("no %s", name);
        return w;
    }
    CWaveWnd* wave() { return m_wnd->waveWnd(); }
    QAction* action(const char* name) { return get<QAction>(name); }

    // Tab until `target` has the focus; false when it never comes.
    bool tabTo(QWidget* target)
    {
        for (int i = 0; i < 80; ++i) {
            if (QApplication::focusWidget() == target ||
                (target->focusProxy() && QApplication::focusWidget() == target->focusProxy()))
                return true;
            QWidget* focus = QApplication::focusWidget();
            QTest::keyClick(focus ? focus : m_wnd.get(), Qt::Key_Tab);
        }
        return false;
    }

    void openSong(const QString& path)
    {
        m_wnd->importWave(path);
        QCOMPARE(mw::mainPage(*m_wnd), 1);
        wave()->setFocus(Qt::TabFocusReason);
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        // The translations beside the program, as start-up finds them.
        QVERIFY(QDir::setCurrent(TW_BINARY_DIR));
        const QString media = m_dir.filePath("Media/Music");
        QVERIFY(QDir().mkpath(media));
        m_song = media + "/Morning Light.mp3";
        QVERIFY(tw::ffmpeg({"-f", "lavfi", "-i", "sine=frequency=330:duration=90", "-ac", "2",
                            "-c:a", "libmp3lame", "-b:a", "128k", m_song}));
        m_other = media + "/Evening.mp3";
        QVERIFY(tw::ffmpeg({"-f", "lavfi", "-i", "sine=frequency=440:duration=60", "-ac", "2",
                            "-c:a", "libmp3lame", "-b:a", "128k", m_other}));
        fx::XmlTrack song;
        song.id = 1;
        song.name = "Morning Light";
        song.artist = "The Testers";
        song.path = m_song;
        fx::XmlTrack other;
        other.id = 2;
        other.name = "Evening";
        other.path = m_other;
        fx::XmlPlaylist all;
        all.name = "Library";
        all.master = true;
        all.items = {1, 2};
        fx::XmlPlaylist mine;
        mine.name = "Favourites";
        mine.items = {1};
        const QString xml = m_dir.filePath("library.xml");
        QVERIFY(fx::writeFile(xml,
                              fx::libraryXml(m_dir.filePath("Media"), {song, other}, {all, mine})));
        fx::useXmlLibrary(xml);
    }

    void init()
    {
        m_wnd = std::make_unique<CMainWnd>();
        m_wnd->show();
        m_wnd->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_wnd.get()));
    }

    void cleanup()
    {
        if (m_wnd)
            m_wnd->waveWnd()->pausePlaying();
        m_wnd.reset();
    }

    void shouldMakeARingtoneWithTheKeyboardAlone()
    {
        // The library: Tab to the tree, arrows to the playlist, Return.
        auto* tree = get<QTreeView>("libraryTree");
        QVERIFY(tabTo(tree));
        for (int i = 0; i < 10 && tree->currentIndex().data().toString() != "Favourites"; ++i)
            key(Qt::Key_Down);
        QCOMPARE(tree->currentIndex().data().toString(), QString("Favourites"));
        key(Qt::Key_Return);
        auto* list = get<QListView>("ringtongList");
        QVERIFY(list->isVisible());
        QCOMPARE(QApplication::focusWidget(), list);
        QCOMPARE(list->currentIndex().data().toString(), QString("Morning Light"));
        // Return opens the song; the keys then go to its wave.
        key(Qt::Key_Return);
        QCOMPARE(mw::mainPage(*m_wnd), 1);
        QCOMPARE(m_wnd->currentSong().strPath, m_song);
        QCOMPARE(QApplication::focusWidget(), wave());
        QCOMPARE(wave()->model().beginTime(), 0LL);
        QCOMPARE(wave()->model().endTime(), 40000LL);

        // A fade in: Tab to its box, Space, then back to the wave.
        auto* fadeIn = get<QCheckBox>("fadeInCheckBox");
        QVERIFY(tabTo(fadeIn));
        key(Qt::Key_Space);
        QVERIFY(fadeIn->isChecked());
        QVERIFY(wave()->playback().isFadeInOn());
        QVERIFY(tabTo(wave()));

        // The span: 5 s on with Right, I; 20 s more, O; the begin 0.3 s
        // later with Alt+Right; the end a second later with Ctrl+Shift+Right.
        for (int i = 0; i < 5; ++i)
            key(Qt::Key_Right);
        QCOMPARE(wave()->model().playPos(), 5000LL);
        key(Qt::Key_I);
        QCOMPARE(wave()->model().beginTime(), 5000LL);
        QCOMPARE(wave()->model().endTime(), 45000LL); // the end comes along
        for (int i = 0; i < 20; ++i)
            key(Qt::Key_Right);
        key(Qt::Key_O);
        QCOMPARE(wave()->model().endTime(), 25000LL);
        for (int i = 0; i < 3; ++i)
            key(Qt::Key_Right, Qt::AltModifier);
        QCOMPARE(wave()->model().beginTime(), 5300LL);
        key(Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(wave()->model().endTime(), 26000LL);
        // The fields follow.
        QCOMPARE(get<QTimeEdit>("endTime")->time(), QTime(0, 0, 26));

        // Undo twice (the end, then the last begin step), redo once.
        key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(wave()->model().endTime(), 25000LL);
        key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(wave()->model().beginTime(), 5200LL);
        key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(wave()->model().beginTime(), 5300LL);
        QCOMPARE(wave()->model().endTime(), 25000LL);
        QVERIFY(fadeIn->isChecked());

        // Ctrl+S, and Return in the name dialog.
        tw::ModalAnswer answers;
        bool returned = false;
        answers.then([&returned](QWidget* modal) {
            // The keys go where the dialog puts the focus once it is active.
            if (!QTest::qWaitForWindowActive(modal))
                qWarning("the name dialog did not become active");
            QWidget* field = modal->focusWidget();
            // Where the dialog puts the focus, should its activation not
            // have reached it yet (slow runs, the offscreen platform).
            if (!field)
                field = modal->findChild<QLineEdit*>("lineEdit");
            if (!field) {
                modal->close(); // fails below rather than waiting for ever
                return;
            }
            returned = true;
            QTest::keyClick(field, Qt::Key_Return);
        });
        key(Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(answers.seen, QStringList({"CNameDlg"}));
        QVERIFY(returned);
        QCOMPARE(mw::mainPage(*m_wnd), 1);
        const QString ringtone = CItunesWraper::instance()->ringtoneDir() + "/Morning Light.m4r";
        QVERIFY2(QFile::exists(ringtone), qPrintable(ringtone));
        const double length = probeDuration(ringtone).toDouble();
        QVERIFY2(qAbs(length - 19.7) < 0.05, qPrintable(QString::number(length)));
    }

    void shouldReachEveryControlWithTab()
    {
        openSong(m_song);
        QSet<QString> reached;
        for (int i = 0; i < 60; ++i) {
            QWidget* focus = QApplication::focusWidget();
            QVERIFY(focus);
            reached << focus->objectName();
            if (focus->parentWidget() && focus->parentWidget()->objectName() == "filterEdit")
                reached << "filterEdit";
            key(Qt::Key_Tab);
        }
        for (const char* name :
             {"filterEdit",     "libraryTree",  "openFileButton",    "showVideoButton",
              "closeBtn",       "waveWnd",      "zoomOutBtn",        "zoomSlider",
              "zoomInBtn",      "setBeginbtn",  "playBtn",           "previewBtn",
              "setEndBtn",      "volumeReduce", "volumeSlider",      "volumeAdd",
              "fadeInCheckBox", "beginTime",    "fadeOutCheckBox",   "endTime",
              "normalizeCombo", "startbtn",     "ringtoneKindCombo", "twitter",
              "facebook"})
            QVERIFY2(reached.contains(name) || (QString(name).endsWith("Time") &&
                                                reached.contains("qt_spinbox_lineedit")),
                     name);
        // In the order of the window: the wave before the play bar, the play
        // bar before the settings.
        QWidget* w = wave();
        QCOMPARE(w->nextInFocusChain()->objectName(), QString("zoomOutBtn"));
    }

    void shouldLeaveTheirOwnKeysToTheControls()
    {
        openSong(m_song);
        // Space on a focused button clicks it; arrows move a focused slider.
        auto* setEnd = get<QPushButton>("setEndBtn");
        QVERIFY(tabTo(setEnd));
        QSignalSpy clicked(setEnd, &QPushButton::clicked);
        key(Qt::Key_Space);
        QCOMPARE(clicked.count(), 1);
        QVERIFY(wave()->playback().engineState() != int(WAVE_PLAYING)); // nothing plays
        auto* volume = get<QSlider>("volumeSlider");
        QVERIFY(tabTo(volume));
        const int before = volume->value();
        const long long pos = wave()->model().playPos();
        key(Qt::Key_Right);
        QVERIFY(volume->value() > before);
        QCOMPARE(wave()->model().playPos(), pos);
        // The slider's tool-tip says its value.
        QCOMPARE(volume->toolTip(), QString("Volume: %1%").arg(volume->value()));
    }

    void shouldPlayWithSpaceAndStopWithEscapeWithoutClosing()
    {
        openSong(m_song);
        QSignalSpy rejected(m_wnd.get(), &QDialog::rejected);
        key(Qt::Key_Space);
        QCOMPARE(wave()->playback().engineState(), int(WAVE_PLAYING));
        QVERIFY(get<QPushButton>("playBtn")->isChecked());
        key(Qt::Key_Escape);
        QVERIFY(wave()->playback().engineState() != int(WAVE_PLAYING));
        QVERIFY(!get<QPushButton>("playBtn")->isChecked());
        key(Qt::Key_Escape);
        QVERIFY(m_wnd->isVisible());
        QCOMPARE(rejected.count(), 0);
        QCOMPARE(mw::mainPage(*m_wnd), 1);
        // Shift+Space previews the selection, from its begin.
        key(Qt::Key_Space, Qt::ShiftModifier);
        QVERIFY(wave()->playback().isPreview());
        QCOMPARE(wave()->playback().engineState(), int(WAVE_PLAYING));
        QVERIFY(get<QPushButton>("previewBtn")->isChecked());
        key(Qt::Key_Space, Qt::ShiftModifier);
        QVERIFY(wave()->playback().engineState() != int(WAVE_PLAYING));
    }

    void shouldMoveThePlayPositionAndZoomWithKeys()
    {
        openSong(m_song);
        wave()->model().setSelection(10000, 30000);
        key(Qt::Key_End);
        QCOMPARE(wave()->model().playPos(), 30000LL);
        key(Qt::Key_Left, Qt::ShiftModifier);
        QCOMPARE(wave()->model().playPos(), 29900LL);
        key(Qt::Key_Home);
        QCOMPARE(wave()->model().playPos(), 10000LL);
        key(Qt::Key_Left);
        QCOMPARE(wave()->model().playPos(), 9000LL);
        for (int i = 0; i < 20; ++i)
            key(Qt::Key_Left);
        QCOMPARE(wave()->model().playPos(), 0LL); // held to the song
        const float zoom = wave()->model().zoomFactor();
        key(Qt::Key_Plus);
        QCOMPARE(wave()->model().zoomFactor(), zoom + kZoomStep);
        key(Qt::Key_Minus);
        QCOMPARE(wave()->model().zoomFactor(), zoom);
        // The edges keep five seconds between them.
        for (int i = 0; i < 30; ++i)
            key(Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(wave()->model().endTime(), 15000LL);
    }

    void shouldKeepFiftyStepsAndForgetThemForAnotherSong()
    {
        openSong(m_song);
        QVERIFY(!action("undoAct")->isEnabled());
        for (int i = 0; i < 120; ++i)
            key(Qt::Key_Right, Qt::AltModifier);
        QCOMPARE(wave()->model().beginTime(), 12000LL);
        int undone = 0;
        while (action("undoAct")->isEnabled() && undone < 200) {
            key(Qt::Key_Z, Qt::ControlModifier);
            ++undone;
        }
        QCOMPARE(undone, CEditHistory::kDepth);
        QVERIFY(undone >= 50);
        QCOMPARE(wave()->model().beginTime(), 2000LL);
        QVERIFY(action("redoAct")->isEnabled());
        // Another song: nothing to undo or redo.
        openSong(m_other);
        QVERIFY(!action("undoAct")->isEnabled());
        QVERIFY(!action("redoAct")->isEnabled());
        QCOMPARE(wave()->model().beginTime(), 0LL);
    }

    void shouldUndoADragAsOneStepAndTheSettingsToo()
    {
        openSong(m_song);
        // The end edge dragged over many pixels: one step.
        CWaveWnd* w = wave();
        const int endX = w->model().timeToX(w->model().endTime());
        const int y = w->height() / 2;
        QTest::mousePress(w, Qt::LeftButton, {}, QPoint(endX, y));
        for (int x = endX; x <= endX + 60; x += 5) {
            QMouseEvent move(QEvent::MouseMove, QPointF(x, y), w->mapToGlobal(QPointF(x, y)),
                             Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(w, &move);
        }
        QTest::mouseRelease(w, Qt::LeftButton, {}, QPoint(endX + 60, y));
        QVERIFY(w->model().endTime() > 45000);
        // The volume and the kind, through their controls.
        get<QSlider>("volumeSlider")->setValue(150);
        get<QComboBox>("ringtoneKindCombo")->setCurrentIndex(1);
        get<QCheckBox>("fadeOutCheckBox")->click();
        QVERIFY(action("undoAct")->isEnabled());
        action("undoAct")->trigger();
        QVERIFY(!get<QCheckBox>("fadeOutCheckBox")->isChecked());
        QVERIFY(!w->playback().isFadeOutOn());
        action("undoAct")->trigger();
        QCOMPARE(get<QComboBox>("ringtoneKindCombo")->currentIndex(), 0);
        action("undoAct")->trigger();
        QCOMPARE(get<QSlider>("volumeSlider")->value(), 100);
        QCOMPARE(w->playback().volume(), 100);
        action("undoAct")->trigger();
        QCOMPARE(w->model().endTime(), 40000LL);
        QCOMPARE(get<QTimeEdit>("endTime")->time(), QTime(0, 0, 40));
        QVERIFY(!action("undoAct")->isEnabled());
        action("redoAct")->trigger();
        QVERIFY(w->model().endTime() > 45000);
    }

    void shouldLoopThePreviewAsItWillBeWritten()
    {
        openSong(m_song);
        wave()->model().setSelection(10000, 15000);
        QVERIFY(!action("loopAct")->isChecked());
        key(Qt::Key_L);
        QVERIFY(action("loopAct")->isChecked());
        QVERIFY(wave()->playback().isLooping());
        key(Qt::Key_Space, Qt::ShiftModifier);
        const tagWaveInfo& record = wave()->playback().record();
        const unsigned rate = record.sampleRate;
        QCOMPARE(record.loopStart, long(spanFrameAt(10000, rate) * record.frameBytes + 44));
        QCOMPARE(record.loopEnd, long(spanFrameAt(15000, rate) * record.frameBytes + 44));
        // The engine goes round: the position comes back to the begin while
        // the preview still plays (sampled, never assumed).
        long long last = 0;
        bool wrapped = false;
        QTRY_VERIFY_WITH_TIMEOUT(
            [&] {
                const long long pos = wave()->playback().enginePos();
                wrapped = wrapped || (pos < last && pos >= 10000);
                last = pos;
                return wrapped;
            }(),
            20000);
        QCOMPARE(wave()->playback().engineState(), int(WAVE_PLAYING));
        QVERIFY(wave()->playback().isPreview());
        // Off again: the loop leaves the engine.
        key(Qt::Key_L);
        QCOMPARE(record.loopEnd, 0L);
    }

    void shouldAskBeforeClosingWhileWriting_data()
    {
        QTest::addColumn<bool>("close");
        QTest::newRow("close when written") << true;
        QTest::newRow("stay") << false;
    }
    void shouldAskBeforeClosingWhileWriting()
    {
        QFETCH(bool, close);
        openSong(m_song);
        tw::ModalAnswer answers;
        answers.then(mw::typeName(close ? "Closing" : "Staying"));
        answers.then([close](QWidget* modal) {
            auto* box = qobject_cast<QMessageBox*>(modal);
            QVERIFY(box);
            QVERIFY(box->text().contains("being written"));
            box->button(close ? QMessageBox::Yes : QMessageBox::No)->click();
        });
        // The window's close button, pressed while the progress pane shows.
        QTimer closer;
        closer.setInterval(1);
        bool asked = false;
        connect(&closer, &QTimer::timeout, this, [&] {
            if (!asked && mw::mainPage(*m_wnd) == 2) {
                asked = true;
                m_wnd->close();
            }
        });
        closer.start();
        get<QPushButton>("startbtn")->click();
        closer.stop();
        QVERIFY(asked);
        QCOMPARE(answers.seen, QStringList({"CNameDlg", "QMessageBox"}));
        const QString ringtone =
            CItunesWraper::instance()->ringtoneDir() + (close ? "/Closing.m4r" : "/Staying.m4r");
        // Written whole either way.
        QVERIFY2(QFile::exists(ringtone), qPrintable(ringtone));
        QVERIFY2(qAbs(probeDuration(ringtone).toDouble() - 40.0) < 0.05,
                 qPrintable(probeDuration(ringtone)));
        QCOMPARE(m_wnd->isVisible(), !close);
    }

    void shouldTellScreenReadersWhatEachControlIs()
    {
        openSong(m_song);
        QAccessibleInterface* window = QAccessible::queryAccessibleInterface(m_wnd.get());
        QVERIFY(window);
        QCOMPARE(window->role(), QAccessible::Window);
        QAccessibleInterface* waveIface = QAccessible::queryAccessibleInterface(wave());
        QVERIFY(waveIface);
        QVERIFY(waveIface->state().focusable);
        QCOMPARE(waveIface->text(QAccessible::Name), QString("Selection 0:00 to 0:40 of 1:30"));
        wave()->setFocus();
        key(Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(waveIface->text(QAccessible::Name), QString("Selection 0:00 to 0:41 of 1:30"));
        QVERIFY(!waveIface->text(QAccessible::Description).isEmpty());
        // Every control the keyboard reaches has a name.
        int named = 0;
        for (QWidget* w : m_wnd->findChildren<QWidget*>()) {
            if (!w->isVisible() || w->focusPolicy() == Qt::NoFocus || w->isWindow())
                continue;
            QAccessibleInterface* iface = QAccessible::queryAccessibleInterface(w);
            QVERIFY(iface);
            QVERIFY2(!iface->text(QAccessible::Name).trimmed().isEmpty() ||
                         w->objectName() == "qt_spinbox_lineedit",
                     qPrintable(w->objectName()));
            ++named;
        }
        QVERIFY(named >= 25);
        // Translated with the window.
        CLanguage::instance()->translatorLan("fr");
        QTRY_COMPARE(waveIface->text(QAccessible::Name),
                     QString("Sélection de 0:00 à 0:41 sur 1:30"));
        QCOMPARE(get<QSlider>("volumeSlider")->accessibleName(), QString("Volume"));
        QCOMPARE(action("undoAct")->text(), QString("Annuler"));
        CLanguage::instance()->translatorLan("en");
        QTRY_COMPARE(action("undoAct")->text(), QString("Undo"));
    }

    void shouldShowTheKeysInTheMenus()
    {
        const std::pair<const char*, QKeySequence> keys[] = {
            {"playAct", QKeySequence(Qt::Key_Space)},
            {"previewAct", QKeySequence(Qt::SHIFT | Qt::Key_Space)},
            {"loopAct", QKeySequence(Qt::Key_L)},
            {"setBeginAct", QKeySequence(Qt::Key_I)},
            {"setEndAct", QKeySequence(Qt::Key_O)},
            {"undoAct", QKeySequence(Qt::CTRL | Qt::Key_Z)},
            {"redoAct", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)},
            {"zoomInAct", QKeySequence(Qt::Key_Plus)},
            {"zoomOutAct", QKeySequence(Qt::Key_Minus)},
            {"toBeginAct", QKeySequence(Qt::Key_Home)},
            {"toEndAct", QKeySequence(Qt::Key_End)},
        };
        for (const auto& [name, seq] : keys) {
            QAction* act = action(name);
            QCOMPARE(act->shortcut(), seq);
            // Each is on a menu of the bar.
            bool onMenu = false;
            for (QObject* o : act->associatedObjects())
                onMenu = onMenu || qobject_cast<QMenu*>(o);
            QVERIFY2(onMenu, name);
        }
        QCOMPARE(get<QPushButton>("setBeginbtn")->toolTip(), QString("Set as Start Time (I)"));
    }
};

TW_TEST_MAIN(TestMainWndKeys)
#include "tst_mainwndkeys.moc"
