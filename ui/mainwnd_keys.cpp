// CMainWnd: the keyboard. The Edit and Play menus and the keys behind them,
// undo and redo of the editor's settings, the focus order, what screen
// readers hear of each control, Escape and closing while a ringtone is
// being written.

#include "ui/mainwnd.h"

#include "editor/edithistory.h"
#include "editor/wavemodel.h"
#include "editor/wavewnd.h"
#include "engine/previewwnd.h"
#include "library/filteredit.h"
#include "library/ringtonesortproxymodel.h"
#include "ui/tickerlabel.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QAction>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollBar>
#include <QSlider>
#include <QSpinBox>
#include <QTimeEdit>
#include <QToolButton>
#include <QTreeView>

namespace {

// Keyboard steps of the play position and of the selection's edges, in ms.
constexpr long long kSeekStep = 1000;
constexpr long long kFineSeekStep = 100;
constexpr long long kEdgeStep = 100;
constexpr long long kCoarseEdgeStep = 1000;

// A tool-tip with its key, as menus show it.
QString withKey(const QString& tip, const QAction* act)
{
    if (!act || act->shortcut().isEmpty())
        return tip;
    return QStringLiteral("%1 (%2)").arg(tip, act->shortcut().toString(QKeySequence::NativeText));
}

bool isKey(const QKeyEvent* e, Qt::Key key, Qt::KeyboardModifiers mods = Qt::NoModifier)
{
    return e->key() == key && (e->modifiers() & ~Qt::KeypadModifier) == mods;
}

// Whether a focused control uses this key itself: the editor's keys then
// leave it alone (Space clicks a button, arrows move a slider).
bool controlOwnsKey(const QObject* control, const QKeyEvent* e)
{
    const bool space = isKey(e, Qt::Key_Space);
    if (qobject_cast<const QAbstractButton*>(control))
        return space;
    if (qobject_cast<const QAbstractSlider*>(control))
        return isKey(e, Qt::Key_Left) || isKey(e, Qt::Key_Right) || isKey(e, Qt::Key_Home) ||
               isKey(e, Qt::Key_End) || isKey(e, Qt::Key_PageUp) || isKey(e, Qt::Key_PageDown);
    if (qobject_cast<const QComboBox*>(control))
        return space || isKey(e, Qt::Key_Home) || isKey(e, Qt::Key_End);
    return false;
}

} // namespace

void CMainWnd::createKeyActions()
{
    m_history = std::make_unique<CEditHistory>();
    // The editor's keys work while the focus is in the editor (the wave or
    // a control around it); the library's lists keep their own keys.
    auto editorAction = [this](QMenu* menu, const char* name, const QKeySequence& key, auto slot) {
        auto* act = new QAction(this);
        act->setObjectName(name);
        act->setShortcut(key);
        act->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        m_mainFrame->addAction(act);
        if (menu)
            menu->addAction(act);
        connect(act, &QAction::triggered, this, slot);
        return act;
    };
    CWaveWnd* wave = m_waveWnd;

    m_editMenu = new QMenu(m_menuBar);
    m_editMenu->setObjectName("editMenu");
    m_undoAct = new QAction(this);
    m_undoAct->setObjectName("undoAct");
    m_undoAct->setShortcut(QKeySequence::Undo);
    connect(m_undoAct, &QAction::triggered, this, &CMainWnd::undo);
    m_redoAct = new QAction(this);
    m_redoAct->setObjectName("redoAct");
    m_redoAct->setShortcuts(
        {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)});
    connect(m_redoAct, &QAction::triggered, this, &CMainWnd::redo);
    m_editMenu->addAction(m_undoAct);
    m_editMenu->addAction(m_redoAct);
    m_editMenu->addSeparator();
    m_setBeginAct = editorAction(m_editMenu, "setBeginAct", QKeySequence(Qt::Key_I), [this] {
        m_waveWnd->setBeginTime();
        commitEdit();
    });
    m_setEndAct = editorAction(m_editMenu, "setEndAct", QKeySequence(Qt::Key_O), [this] {
        m_waveWnd->setEndTime();
        commitEdit();
    });
    auto nudge = [this](bool begin, long long ms) {
        return [this, begin, ms] {
            if (begin)
                m_waveWnd->nudgeBegin(ms);
            else
                m_waveWnd->nudgeEnd(ms);
            commitEdit();
        };
    };
    m_beginEarlierAct = editorAction(m_editMenu, "beginEarlierAct",
                                     QKeySequence(Qt::ALT | Qt::Key_Left), nudge(true, -kEdgeStep));
    m_beginLaterAct = editorAction(m_editMenu, "beginLaterAct",
                                   QKeySequence(Qt::ALT | Qt::Key_Right), nudge(true, kEdgeStep));
    m_endEarlierAct = editorAction(m_editMenu, "endEarlierAct",
                                   QKeySequence(Qt::CTRL | Qt::Key_Left), nudge(false, -kEdgeStep));
    m_endLaterAct = editorAction(m_editMenu, "endLaterAct", QKeySequence(Qt::CTRL | Qt::Key_Right),
                                 nudge(false, kEdgeStep));
    // The coarse steps with Shift: keys only, beside the menu's fine ones.
    editorAction(nullptr, "beginEarlierCoarseAct", QKeySequence(Qt::ALT | Qt::SHIFT | Qt::Key_Left),
                 nudge(true, -kCoarseEdgeStep));
    editorAction(nullptr, "beginLaterCoarseAct", QKeySequence(Qt::ALT | Qt::SHIFT | Qt::Key_Right),
                 nudge(true, kCoarseEdgeStep));
    editorAction(nullptr, "endEarlierCoarseAct", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Left),
                 nudge(false, -kCoarseEdgeStep));
    editorAction(nullptr, "endLaterCoarseAct", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Right),
                 nudge(false, kCoarseEdgeStep));

    m_playMenu = new QMenu(m_menuBar);
    m_playMenu->setObjectName("playMenu");
    m_playAct = editorAction(m_playMenu, "playAct", QKeySequence(Qt::Key_Space),
                             [wave] { wave->togglePlay(); });
    m_previewAct = editorAction(m_playMenu, "previewAct", QKeySequence(Qt::SHIFT | Qt::Key_Space),
                                [wave] { wave->togglePreview(); });
    m_loopAct = editorAction(m_playMenu, "loopAct", QKeySequence(Qt::Key_L),
                             [this] { m_waveWnd->setLooping(m_loopAct->isChecked()); });
    m_loopAct->setCheckable(true);
    m_playMenu->addSeparator();
    m_backAct = editorAction(m_playMenu, "seekBackAct", QKeySequence(Qt::Key_Left),
                             [wave] { wave->seekBy(-kSeekStep); });
    m_forwardAct = editorAction(m_playMenu, "seekForwardAct", QKeySequence(Qt::Key_Right),
                                [wave] { wave->seekBy(kSeekStep); });
    editorAction(nullptr, "seekBackFineAct", QKeySequence(Qt::SHIFT | Qt::Key_Left),
                 [wave] { wave->seekBy(-kFineSeekStep); });
    editorAction(nullptr, "seekForwardFineAct", QKeySequence(Qt::SHIFT | Qt::Key_Right),
                 [wave] { wave->seekBy(kFineSeekStep); });
    m_toBeginAct = editorAction(m_playMenu, "toBeginAct", QKeySequence(Qt::Key_Home),
                                [wave] { wave->toBegin(); });
    m_toEndAct =
        editorAction(m_playMenu, "toEndAct", QKeySequence(Qt::Key_End), [wave] { wave->toEnd(); });
    m_playMenu->addSeparator();
    m_zoomInAct = editorAction(m_playMenu, "zoomInAct", QKeySequence(Qt::Key_Plus),
                               [wave] { wave->zoomIn(); });
    // "=" is "+" without Shift on many keyboards.
    m_zoomInAct->setShortcuts({QKeySequence(Qt::Key_Plus), QKeySequence(Qt::Key_Equal)});
    m_zoomOutAct = editorAction(m_playMenu, "zoomOutAct", QKeySequence(Qt::Key_Minus),
                                [wave] { wave->zoomOut(); });

    // The window's commands.
    m_openAct->setShortcut(QKeySequence::Open);
    m_saveAsAct->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_S));
    m_closeAct->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    updateUndoActions();
}

void CMainWnd::setupKeyboard()
{
    // A sensible order: the library, its navigation, then the editor from
    // top to bottom, left to right.
    const QList<QWidget*> order = {
        m_filterEdit,   m_libraryTree,    m_songList,        m_backBtn,      m_forwardBtn,
        m_showVideoBtn, m_openFileBtn,    m_closeBtn,        m_waveWnd,      m_zoomOutBtn,
        m_zoomSlider,   m_zoomInBtn,      m_setBeginBtn,     m_playBtn,      m_previewBtn,
        m_setEndBtn,    m_suggestBtn,     m_volumeReduceBtn, m_volumeSlider, m_volumeAddBtn,
        m_fadeInCheck,  m_fadeInSpin,     m_beginTime,       m_fadeOutCheck, m_fadeOutSpin,
        m_endTime,      m_normalizeCombo, m_startBtn,        m_kindCombo,    m_twitterBtn,
        m_facebookBtn};
    for (QWidget* w : order) {
        // The search field and the wave take the focus of themselves.
        if (w == m_filterEdit || w == m_waveWnd)
            continue;
        // Every other control takes the focus from Tab and from a click.
        w->setFocusPolicy(Qt::StrongFocus);
        w->installEventFilter(this);
        // In a dialog a focused push button would take Return from the
        // fields: only Space clicks them.
        if (auto* push = qobject_cast<QPushButton*>(w))
            push->setAutoDefault(false);
    }
    for (int i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);
    m_beginLabel->setBuddy(m_beginTime);
    m_endLabel->setBuddy(m_endTime);

    // A gesture's end is one step of undo.
    connect(m_waveWnd, &CWaveWnd::gestureFinished, this, &CMainWnd::commitEdit);
    connect(m_fadeInSpin, &QSpinBox::valueChanged, this, &CMainWnd::commitEdit);
    connect(m_fadeOutSpin, &QSpinBox::valueChanged, this, &CMainWnd::commitEdit);
    connect(m_volumeSlider, &QSlider::valueChanged, this, [this] {
        // A drag of the slider is one step, taken when it is let go.
        if (!m_volumeSlider->isSliderDown())
            commitEdit();
        showVolumeTip();
    });
    connect(m_volumeSlider, &QSlider::sliderReleased, this, &CMainWnd::commitEdit);
    connect(m_volumeAddBtn, &QToolButton::clicked, this, &CMainWnd::commitEdit);
    connect(m_volumeReduceBtn, &QToolButton::clicked, this, &CMainWnd::commitEdit);
    connect(m_normalizeCombo, &QComboBox::currentIndexChanged, this, &CMainWnd::commitEdit);
    connect(m_kindCombo, &QComboBox::currentIndexChanged, this, &CMainWnd::commitEdit);
    connect(m_setBeginBtn, &QPushButton::clicked, this, &CMainWnd::commitEdit);
    connect(m_setEndBtn, &QPushButton::clicked, this, &CMainWnd::commitEdit);
}

void CMainWnd::retranslateKeys()
{
    m_editMenu->setTitle(tr("&Edit"));
    m_undoAct->setText(tr("Undo"));
    m_redoAct->setText(tr("Redo"));
    m_setBeginAct->setText(tr("Set Start at the Play Position"));
    m_setEndAct->setText(tr("Set End at the Play Position"));
    m_beginEarlierAct->setText(tr("Move the Start Earlier"));
    m_beginLaterAct->setText(tr("Move the Start Later"));
    m_endEarlierAct->setText(tr("Move the End Earlier"));
    m_endLaterAct->setText(tr("Move the End Later"));
    m_playMenu->setTitle(tr("&Play"));
    m_playAct->setText(tr("Play or Pause"));
    m_previewAct->setText(tr("Preview the Selection"));
    m_loopAct->setText(tr("Loop the Preview"));
    m_backAct->setText(tr("Back One Second"));
    m_forwardAct->setText(tr("Forward One Second"));
    m_toBeginAct->setText(tr("Go to the Start of the Selection"));
    m_toEndAct->setText(tr("Go to the End of the Selection"));
    m_zoomInAct->setText(tr("Zoom In"));
    m_zoomOutAct->setText(tr("Zoom Out"));

    // Tool-tips name their keys.
    m_zoomOutBtn->setToolTip(withKey(tr("Timeline Zoom Out"), m_zoomOutAct));
    m_zoomInBtn->setToolTip(withKey(tr("Timeline Zoom In"), m_zoomInAct));
    m_setBeginBtn->setToolTip(withKey(tr("Set as Start Time"), m_setBeginAct));
    m_setEndBtn->setToolTip(withKey(tr("Set as End Time"), m_setEndAct));
    m_suggestBtn->setToolTip(withKey(tr("Suggest the best part"), m_suggestAct));
    m_startBtn->setToolTip(withKey(tr("Start to Create"), m_saveAsAct));
    m_openFileBtn->setToolTip(withKey(tr("Open Files"), m_openAct));
    showVolumeTip();

    // What a screen reader says of each control.
    const std::pair<QWidget*, QString> names[] = {
        {m_filterEdit, tr("Search the library")},
        {m_libraryTree, tr("Library")},
        {m_songList, tr("Songs")},
        {m_backBtn, tr("Back")},
        {m_forwardBtn, tr("Forward")},
        {m_showVideoBtn, tr("Show or Hide Music Cover, Video Preview Box")},
        {m_openFileBtn, tr("Open Files")},
        {m_closeBtn, tr("Quit Editing")},
        {m_zoomOutBtn, tr("Timeline Zoom Out")},
        {m_zoomSlider, tr("Zoom")},
        {m_zoomInBtn, tr("Timeline Zoom In")},
        {m_setBeginBtn, tr("Set as Start Time")},
        {m_setEndBtn, tr("Set as End Time")},
        {m_suggestBtn, tr("Suggest the best part")},
        {m_volumeReduceBtn, tr("Volume Down")},
        {m_volumeSlider, tr("Volume")},
        {m_volumeAddBtn, tr("Volume Up")},
        {m_fadeInSpin, tr("Fade-in length in seconds")},
        {m_fadeOutSpin, tr("Fade-out length in seconds")},
        {m_startBtn, tr("Start to Create")},
        {m_kindCombo, tr("Kind of ringtone")},
        {m_twitterBtn, tr("Tweet Your Ringtone")},
        {m_facebookBtn, tr("Find us on Facebook")},
        {m_waveWnd->scrollBarWidget(), tr("Scroll the waveform")},
        {m_titleLabel, tr("Song")},
    };
    for (const auto& [widget, name] : names)
        widget->setAccessibleName(name);
    if (auto* previewPlay = m_previewWnd->findChild<QToolButton*>("playPreview"))
        previewPlay->setAccessibleName(tr("Play or Pause the Preview"));
    m_fadeInCheck->setAccessibleName(tr("Fade in"));
    m_fadeOutCheck->setAccessibleName(tr("Fade out"));
    m_beginTime->setAccessibleName(tr("Start Time"));
    m_endTime->setAccessibleName(tr("End Time"));
    m_normalizeCombo->setAccessibleName(tr("Normalize"));
    m_volumeSlider->setAccessibleDescription(
        tr("Changes the volume of the ringtone; Normalize replaces it"));
    m_startBtn->setAccessibleDescription(tr("Writes the selection as a ringtone"));
    changeToolTip();
}

void CMainWnd::changeToolTip()
{
    m_playBtn->setToolTip(withKey(m_playBtn->isChecked() ? tr("Pause") : tr("Play"), m_playAct));
    m_previewBtn->setToolTip(
        withKey(m_previewBtn->isChecked() ? tr("Pause") : tr("Preview Selected"), m_previewAct));
    m_playBtn->setAccessibleName(m_playBtn->isChecked() ? tr("Pause") : tr("Play"));
    m_previewBtn->setAccessibleName(m_previewBtn->isChecked() ? tr("Pause")
                                                              : tr("Preview Selected"));
}

void CMainWnd::showVolumeTip()
{
    m_volumeSlider->setToolTip(tr("Volume: %1%").arg(m_volumeSlider->value()));
}

// --- undo and redo ----------------------------------------------------------

EditState CMainWnd::currentEdit() const
{
    EditState s;
    s.beginMs = m_waveWnd->model().beginTime();
    s.endMs = m_waveWnd->model().endTime();
    s.fadeInOn = m_fadeInCheck->isChecked();
    s.fadeInSeconds = m_fadeInSpin->value();
    s.fadeOutOn = m_fadeOutCheck->isChecked();
    s.fadeOutSeconds = m_fadeOutSpin->value();
    s.volume = m_volumeSlider->value();
    s.normalize = m_normalizeCombo->currentIndex();
    s.kind = m_kindCombo->currentIndex();
    return s;
}

void CMainWnd::commitEdit()
{
    // Steps are taken at a gesture's end, never half-way through one.
    if (!m_history || m_restoring > 0 || m_batch > 0 || m_waveWnd->model().mouseMode() != MM_NONE ||
        m_current.strPath.isEmpty())
        return;
    if (m_history->commit(currentEdit()))
        updateUndoActions();
}

void CMainWnd::resetHistory()
{
    if (!m_history)
        return;
    m_history->reset(currentEdit());
    updateUndoActions();
}

void CMainWnd::undo()
{
    EditState state;
    if (m_history && m_history->undo(&state))
        applyEdit(state);
}

void CMainWnd::redo()
{
    EditState state;
    if (m_history && m_history->redo(&state))
        applyEdit(state);
}

void CMainWnd::applyEdit(const EditState& state)
{
    ++m_restoring;
    // The controls' own signals take each value to the editor.
    m_fadeInCheck->setChecked(state.fadeInOn);
    m_fadeInSpin->setValue(state.fadeInSeconds);
    m_fadeOutCheck->setChecked(state.fadeOutOn);
    m_fadeOutSpin->setValue(state.fadeOutSeconds);
    m_normalizeCombo->setCurrentIndex(state.normalize);
    m_kindCombo->setCurrentIndex(state.kind);
    m_volumeSlider->setValue(state.volume);
    m_waveWnd->setSelection(state.beginMs, state.endMs);
    --m_restoring;
    updateUndoActions();
}

void CMainWnd::updateUndoActions()
{
    m_undoAct->setEnabled(m_history->canUndo());
    m_redoAct->setEnabled(m_history->canRedo());
}

// --- keys the window answers itself -------------------------------------------

bool CMainWnd::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        // The control's own use of a key wins over the editor's.
        auto* key = static_cast<QKeyEvent*>(event);
        if (controlOwnsKey(watched, key)) {
            key->accept();
            return true;
        }
    } else if (event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        const bool enter = isKey(key, Qt::Key_Return) || isKey(key, Qt::Key_Enter);
        if (enter && watched == m_songList && m_songList->currentIndex().isValid()) {
            // Return opens the song; the keys then go to its wave.
            on_inportFromITunes(m_songList->currentIndex());
            if (m_waveWnd->isVisible())
                m_waveWnd->setFocus(Qt::OtherFocusReason);
            return true;
        }
        if (enter && watched == m_libraryTree && m_libraryTree->currentIndex().isValid()) {
            on_clickedLibrary(m_libraryTree->currentIndex());
            if (m_songList->isVisible()) {
                m_songList->setFocus(Qt::OtherFocusReason);
                if (!m_songList->currentIndex().isValid() && m_proxy->rowCount() > 0)
                    m_songList->setCurrentIndex(m_proxy->index(0, 0));
            }
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void CMainWnd::keyPressEvent(QKeyEvent* event)
{
    // Escape stops what plays; it no longer closes the window (open pop-ups
    // take their Escape before it comes here).
    if (isKey(event, Qt::Key_Escape)) {
        m_waveWnd->pausePlaying();
        event->accept();
        return;
    }
    QDialog::keyPressEvent(event);
}

void CMainWnd::closeEvent(QCloseEvent* event)
{
    if (m_writing > 0) {
        // Never half a ringtone: the window closes when it is written.
        event->ignore();
        if (QMessageBox::question(this, QObject::tr("Tonewright"),
                                  tr("A ringtone is being written. Close Tonewright when it is "
                                     "done?"),
                                  QMessageBox::Yes | QMessageBox::No,
                                  QMessageBox::No) == QMessageBox::Yes)
            m_closeWhenWritten = true;
        return;
    }
    QDialog::closeEvent(event);
}
