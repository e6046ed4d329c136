#pragma once
// CMainWnd: the program's one window. The media library on the left (search
// box, category tree, song list, preview pane), a three-page stack on the
// right (welcome pane, editor, progress pane), the navigation bar below, the
// menu bar; it owns the dialogs and the update client and is the hub through
// which every user action reaches the waveform editor. Owns every child
// through Qt parents (the update client by unique_ptr). GUI thread.
// The code is split: assembly, navigation and imports here (mainwnd.cpp),
// the editing controls and the convert flow in mainwnd_controls.cpp, the
// menu bar, links, language, updates and problem reports in mainwnd_menu.cpp,
// the keyboard, undo and what screen readers hear in mainwnd_keys.cpp.

#include "engine/ringtonenode.h"
#include "library/librarytypes.h"

#include <QDialog>
#include <QModelIndex>
#include <QString>
#include <QStringList>
#include <QTime>

#include <memory>

class CAboutDlg;
class CEditHistory;
struct EditState;
class CFilterEdit;
class CHelloWnd;
class CLibraryModel;
class CNewestDlg;
class COptionDlg;
class CPreviewWnd;
class CProgressDlg;
class CRingtoneNotice;
class QComboBox;
enum class SourceProblem;
enum class RingtoneKind;
class CRingToneModel;
class CRingToneSortProxyModel;
class CTickerLabel;
class CUpdate;
class CUpgradeDlg;
class CWaveWnd;
class QAction;
class QActionGroup;
class QCheckBox;
class QCloseEvent;
class QFrame;
class QLabel;
class QListView;
class QMenu;
class QMenuBar;
class QPushButton;
class QSlider;
class QSpinBox;
class QStackedLayout;
class QTimeEdit;
class QToolButton;
class QTreeView;

class CMainWnd : public QDialog
{
    Q_OBJECT

public:
    explicit CMainWnd(QWidget* parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags());
    ~CMainWnd() override;

    void retranslate();
    // The play and preview buttons' tool-tips and names, with their keys.
    void changeToolTip();
    // What upgrade() hands the update client: the window's name, the proxy
    // when one is on, then the service, version, product and switches.
    QStringList updateArguments(bool bShowNewest);
    // The song open in the editor (or being opened); empty when none.
    const CRingToneNode& currentSong() const { return m_current; }
    CWaveWnd* waveWnd() const { return m_waveWnd; }
    CUpdate* updateClient() const { return m_update.get(); }

public slots:
    void on_forward();
    void on_back();
    void showvideo();
    void closeWave();
    void selectchange(QTime begintime, QTime endtime);
    void openWave();
    void importWave(CRingToneNode ringtone);
    void importWave(QString fileName);
    void setBegin(QTime time);
    void setEnd(QTime time);
    void waveOpened(CRingToneNode Ringtong);
    void on_inportFromITunes(QModelIndex index);
    void on_clickedLibrary(QModelIndex index);
    void preview();
    void fadeOutChecked(int state);
    void fadeInChecked(int state);
    void volumeChanged(int n);
    void zoomChanged(float fv);
    void zoom(int value);
    void twitter();
    void playPosChanged(long long lPos);
    void onPlay(long long lPos, bool bPreview);
    void onPause(bool bPreview);
    void onStop();
    void convert();
    void upgrade(bool bShowNewest = true);
    void translatorLan(QAction* action = nullptr);
    void bugReport(bool bManual = true);
    void front();
    void about();
    void support();
    void guide();
    void jFacebook();
    void jTwitter();
    void jClipwell();
    void jDiscwell();
    void option();
    void filter(QString strFilter, FilterType type);
    void OnUInfo(int id, QString strInfo);
    // A failed import or export: offers to import the song again.
    void notityConvertFailed(int page);
    // Says why `song` could not be used; true when the user asks to try again.
    bool askTryAgain(const CRingToneNode& song, SourceProblem problem);
    // The kind of ringtone chosen beside the create button.
    RingtoneKind chosenKind() const;
    // The "Normalize" choice changed: the editor's target and the volume
    // controls (which the target replaces) follow; remembered.
    void normalizeChosen();
    // The editor's figures for the selection (NaN while they are worked out).
    void loudnessChanged(double lufs, double truePeak);
    // Shows the last figures in the current language.
    void showLoudness();
    // Ticks the language whose texts are installed.
    void checkCurrentLanguage();
    // Selects the editor's next best-part proposal, as if its times were
    // typed into the time fields.
    void suggest();
    // The proposals are in, or gone: the button and the menu command follow.
    void suggestionsChanged();
    // Undo and redo of the editor's settings (selection, fades, volume,
    // normalize, kind), one step a gesture; cleared when a song opens.
    void undo();
    void redo();
    // A gesture ended: its settings become one step of undo.
    void commitEdit();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* createITunesWidget();
    QWidget* createMainWdiget();
    QWidget* createHelloWidget();
    QWidget* createNavigationWidget(QWidget* parent);
    QWidget* createMsgWidget(QWidget* parent);
    QWidget* creatrPlayWidget(QWidget* parent);
    QWidget* CreateSetingWidget(QWidget* parent);
    void createMenuBar();
    // The Edit and Play menus and the editor's keys (mainwnd_keys.cpp).
    void createKeyActions();
    // Focus policies and order, buddies, and the undo steps' sources.
    void setupKeyboard();
    // The texts of the keys' commands, tool-tips with keys, accessible names.
    void retranslateKeys();
    // The volume slider's tool-tip says its value.
    void showVolumeTip();
    EditState currentEdit() const;
    void applyEdit(const EditState& state);
    void resetHistory();
    void updateUndoActions();
    // Where a written ringtone goes: in `dir`, the name made safe for a
    // file; asks before replacing a ringtone of that name in the library.
    // Empty when the user would rather not.
    QString ringtonePathFor(const QString& dir, const QString& name);

    CRingToneNode m_current;
    int m_treePage = 1; // 1 while the category tree is the page on the left

    // Models.
    CRingToneModel* m_songModel = nullptr;
    CRingToneSortProxyModel* m_proxy = nullptr;
    CLibraryModel* m_libraryModel = nullptr;
    std::unique_ptr<CUpdate> m_update;

    // Dialogs, made once and reused.
    CAboutDlg* m_aboutDlg = nullptr;
    CUpgradeDlg* m_upgradeDlg = nullptr;
    CNewestDlg* m_newestDlg = nullptr;
    COptionDlg* m_optionDlg = nullptr;

    // The left side.
    CFilterEdit* m_filterEdit = nullptr;
    QStackedLayout* m_libraryStack = nullptr;
    QTreeView* m_libraryTree = nullptr;
    QListView* m_songList = nullptr;
    CPreviewWnd* m_previewWnd = nullptr;

    // The right side.
    QStackedLayout* m_mainStack = nullptr;
    CHelloWnd* m_helloWnd = nullptr;
    QFrame* m_mainFrame = nullptr;
    CProgressDlg* m_progressDlg = nullptr;
    CWaveWnd* m_waveWnd = nullptr;

    // The navigation bar.
    QToolButton* m_backBtn = nullptr;
    QToolButton* m_forwardBtn = nullptr;
    QToolButton* m_showVideoBtn = nullptr;
    QToolButton* m_openFileBtn = nullptr;

    // The message pane.
    QLabel* m_picLabel = nullptr;
    CTickerLabel* m_titleLabel = nullptr;
    QLabel* m_playTimeLabel = nullptr;
    QLabel* m_selectTimeLenLabel = nullptr;
    QPushButton* m_closeBtn = nullptr;

    // The play bar.
    QToolButton* m_zoomOutBtn = nullptr;
    QSlider* m_zoomSlider = nullptr;
    QToolButton* m_zoomInBtn = nullptr;
    QPushButton* m_setBeginBtn = nullptr;
    QPushButton* m_playBtn = nullptr;
    QPushButton* m_previewBtn = nullptr;
    QPushButton* m_setEndBtn = nullptr;
    QPushButton* m_suggestBtn = nullptr;
    QToolButton* m_volumeReduceBtn = nullptr;
    QSlider* m_volumeSlider = nullptr;
    QToolButton* m_volumeAddBtn = nullptr;

    // The settings bar.
    QCheckBox* m_fadeInCheck = nullptr;
    QSpinBox* m_fadeInSpin = nullptr;
    QLabel* m_beginLabel = nullptr;
    QTimeEdit* m_beginTime = nullptr;
    QCheckBox* m_fadeOutCheck = nullptr;
    QSpinBox* m_fadeOutSpin = nullptr;
    QLabel* m_endLabel = nullptr;
    QTimeEdit* m_endTime = nullptr;
    QPushButton* m_startBtn = nullptr;
    QComboBox* m_kindCombo = nullptr;
    QLabel* m_normalizeLabel = nullptr;
    QComboBox* m_normalizeCombo = nullptr;
    QLabel* m_loudnessLabel = nullptr;
    double m_lufs = 0.0; // the figures shown, NaN while measuring
    double m_truePeak = 0.0;
    bool m_haveLoudness = false; // a song is open
    CRingtoneNotice* m_notice = nullptr;
    QToolButton* m_twitterBtn = nullptr;
    QToolButton* m_facebookBtn = nullptr;

    // Undo and redo.
    std::unique_ptr<CEditHistory> m_history;
    int m_restoring = 0; // an undo step is being put back: no new steps
    int m_batch = 0;     // several changes that make one step
    int m_writing = 0;   // a ringtone is being written
    bool m_closeWhenWritten = false;

    // The menu bar.
    QMenuBar* m_menuBar = nullptr;
    QMenu* m_fileMenu = nullptr;
    QMenu* m_windowsMenu = nullptr;
    QMenu* m_languageMenu = nullptr;
    QMenu* m_helpMenu = nullptr;
    QMenu* m_extrasMenu = nullptr;
    QAction* m_openAct = nullptr;
    QAction* m_saveAsAct = nullptr;
    QAction* m_closeAct = nullptr;
    QAction* m_minimizeAct = nullptr;
    QAction* m_frontAct = nullptr;
    QActionGroup* m_languageGroup = nullptr;
    QList<QAction*> m_languageActs;
    QAction* m_aboutAct = nullptr;
    QAction* m_upgradeAct = nullptr;
    QAction* m_supportAct = nullptr;
    QAction* m_helpTopicAct = nullptr;
    QAction* m_optionAct = nullptr;
    QAction* m_suggestAct = nullptr;
    QAction* m_facebookAct = nullptr;
    QAction* m_twitterAct = nullptr;
    QAction* m_clipwellAct = nullptr;
    QAction* m_discwellAct = nullptr;
    QAction* m_crashReportAct = nullptr;
    // The Edit and Play menus.
    QMenu* m_editMenu = nullptr;
    QMenu* m_playMenu = nullptr;
    QAction* m_undoAct = nullptr;
    QAction* m_redoAct = nullptr;
    QAction* m_setBeginAct = nullptr;
    QAction* m_setEndAct = nullptr;
    QAction* m_beginEarlierAct = nullptr;
    QAction* m_beginLaterAct = nullptr;
    QAction* m_endEarlierAct = nullptr;
    QAction* m_endLaterAct = nullptr;
    QAction* m_playAct = nullptr;
    QAction* m_previewAct = nullptr;
    QAction* m_loopAct = nullptr;
    QAction* m_backAct = nullptr;
    QAction* m_forwardAct = nullptr;
    QAction* m_toBeginAct = nullptr;
    QAction* m_toEndAct = nullptr;
    QAction* m_zoomInAct = nullptr;
    QAction* m_zoomOutAct = nullptr;
};
