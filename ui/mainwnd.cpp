// CMainWnd: assembly of the window, library navigation and imports.

#include "ui/mainwnd.h"

#include "editor/edithistory.h"
#include "editor/waveio.h"
#include "editor/wavewnd.h"
#include "engine/previewwnd.h"
#include "engine/progressdlg.h"
#include "library/ItunesWrap.h"
#include "library/filteredit.h"
#include "library/librarymodel.h"
#include "library/librarynode.h"
#include "library/ringtonemodel.h"
#include "library/ringtonesortproxymodel.h"
#include "library/songlistview.h"
#include "ui/aboutdlg.h"
#include "ui/accessiblefactory.h"
#include "ui/hellownd.h"
#include "ui/optiondlg.h"
#include "ui/ringtonenotice.h"
#include "update/newestdlg.h"
#include "update/update.h"
#include "update/upgradedlg.h"

#include <QDebug>
#include <QFileDialog>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QListView>
#include <QMenuBar>
#include <QStackedLayout>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>

namespace {

// The window's one size; its panes are laid out for it.
constexpr int kWindowWidth = 897;
constexpr int kWindowHeight = 477;

// A dialog the window owns for its whole life: named, hidden.
template <typename Dialog> Dialog* makeOwnedDialog(QWidget* parent, const char* name)
{
    auto* dlg = new Dialog(parent);
    dlg->setObjectName(name);
    dlg->hide();
    return dlg;
}

} // namespace

CMainWnd::CMainWnd(QWidget* parent, Qt::WindowFlags flags) : QDialog(parent, flags)
{
    installAccessibleFactory();
    auto* top = new QVBoxLayout(this);
    top->setContentsMargins(0, 0, 0, 0);
    top->setSpacing(0);
    setObjectName("MainWnd");

    auto* row = new QHBoxLayout;
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    m_mainStack = new QStackedLayout;
    row->addWidget(createITunesWidget());

    m_progressDlg = new CProgressDlg(this);
    m_progressDlg->setObjectName("progressWidget");
    QWidget* hello = createHelloWidget();
    QWidget* editor = createMainWdiget();

    m_mainStack->setContentsMargins(0, 0, 0, 0);
    m_mainStack->setSpacing(0);
    m_mainStack->setStackingMode(QStackedLayout::StackOne);
    m_mainStack->addWidget(hello);
    m_mainStack->addWidget(editor);
    m_mainStack->addWidget(m_progressDlg);
    row->addLayout(m_mainStack);

    top->addLayout(row);
    top->addWidget(createNavigationWidget(this));

    setFocusPolicy(Qt::ClickFocus);
    createMenuBar();
    // Off a desktop-wide menu bar, the window's own sits above its panes.
    top->setMenuBar(m_menuBar);
    setWindowFlags(Qt::WindowCloseButtonHint | Qt::CustomizeWindowHint | Qt::WindowStaysOnTopHint |
                   Qt::WindowMinimizeButtonHint);

    m_aboutDlg = makeOwnedDialog<CAboutDlg>(this, "aboutDlg");
    m_upgradeDlg = makeOwnedDialog<CUpgradeDlg>(this, "upgradeDlg");
    m_newestDlg = makeOwnedDialog<CNewestDlg>(this, "newestDlg");
    m_optionDlg = makeOwnedDialog<COptionDlg>(this, "optionDlg");

    m_update = std::make_unique<CUpdate>();
    connect(m_update.get(), &CUpdate::SendUInfo, this, &CMainWnd::OnUInfo);

    setupKeyboard();
    retranslate();
    setFixedSize(kWindowWidth, kWindowHeight);
    // The flags above ask to stay on top; this first call takes that back.
    front();
    setFocus();
}

CMainWnd::~CMainWnd() = default;

QWidget* CMainWnd::createITunesWidget()
{
    auto* itunes = new QWidget(this);
    itunes->setObjectName("itunes");
    auto* column = new QVBoxLayout(itunes);
    column->setSpacing(0);
    column->setContentsMargins(0, 0, 0, 0);

    m_filterEdit = new CFilterEdit(itunes);
    m_filterEdit->setObjectName("filterEdit");
    connect(m_filterEdit, &CFilterEdit::search, this, &CMainWnd::filter);
    column->addWidget(m_filterEdit);

    m_libraryModel = new CLibraryModel(this);
    m_songModel = new CRingToneModel(this);
    m_proxy = new CRingToneSortProxyModel(this);

    m_libraryStack = new QStackedLayout;
    m_libraryStack->setContentsMargins(0, 0, 0, 0);

    qDebug("load library:");
    m_libraryModel->loadLibrary();
    qDebug("library loaded:");
    m_libraryTree = new QTreeView(itunes);
    m_libraryTree->setObjectName("libraryTree");
    m_libraryTree->setModel(m_libraryModel);
    m_libraryTree->header()->hide();
    m_libraryTree->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_libraryTree->setRootIsDecorated(false);
    m_libraryTree->setFocusPolicy(Qt::NoFocus);
    m_libraryTree->setExpandsOnDoubleClick(false);
    m_libraryTree->setItemsExpandable(false);
    m_libraryTree->expandAll();
    // A library that loaded beside the window arrives as a new tree.
    connect(m_libraryModel, &QAbstractItemModel::modelReset, m_libraryTree, &QTreeView::expandAll);
    connect(m_libraryTree, &QTreeView::clicked, this, &CMainWnd::on_clickedLibrary);
    m_libraryStack->addWidget(m_libraryTree);

    m_proxy->setSourceModel(m_songModel);
    m_proxy->setDynamicSortFilter(true);
    m_proxy->sort(0, Qt::AscendingOrder);
    m_proxy->setSortCaseSensitivity(Qt::CaseInsensitive);
    m_songList = new QListView(itunes);
    m_songList->setObjectName("ringtongList");
    m_songList->setModel(m_proxy);
    setUpSongListView(m_songList);
    m_songList->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_songList->setFocusPolicy(Qt::NoFocus);
    connect(m_songList, &QListView::clicked, this, &CMainWnd::on_inportFromITunes);
    m_libraryStack->addWidget(m_songList);
    column->addLayout(m_libraryStack);

    m_previewWnd = new CPreviewWnd(itunes);
    m_previewWnd->setObjectName("previewWnd");
    m_previewWnd->hide();
    column->addWidget(m_previewWnd);
    return itunes;
}

QWidget* CMainWnd::createMainWdiget()
{
    m_mainFrame = new QFrame(this);
    m_mainFrame->setObjectName("mainFrame");
    auto* column = new QVBoxLayout(m_mainFrame);
    column->setContentsMargins(0, 0, 0, 0);

    column->addWidget(createMsgWidget(m_mainFrame));
    m_waveWnd = new CWaveWnd(m_mainFrame, m_progressDlg);
    m_waveWnd->setObjectName("waveWnd");
    column->addWidget(m_waveWnd);
    column->addWidget(creatrPlayWidget(m_mainFrame));
    column->addSpacing(20);
    column->addWidget(CreateSetingWidget(m_mainFrame));
    m_notice = new CRingtoneNotice(m_mainFrame);
    column->addWidget(m_notice);

    connect(m_waveWnd, &CWaveWnd::openWave, this, qOverload<QString>(&CMainWnd::importWave));
    connect(m_waveWnd, &CWaveWnd::selectChange, this, &CMainWnd::selectchange);
    connect(m_waveWnd, &CWaveWnd::waveOpened, this, &CMainWnd::waveOpened);
    connect(m_waveWnd, &CWaveWnd::waveOpened, m_previewWnd, &CPreviewWnd::waveOpened);
    connect(m_waveWnd, &CWaveWnd::volumeChange, this, &CMainWnd::volumeChanged);
    connect(m_waveWnd, &CWaveWnd::zoomChange, this, &CMainWnd::zoomChanged);
    connect(m_waveWnd, &CWaveWnd::playPosChange, this, &CMainWnd::playPosChanged);
    connect(m_waveWnd, &CWaveWnd::playPosChange, m_previewWnd, &CPreviewWnd::playPosChanged);
    connect(m_waveWnd, &CWaveWnd::onPlay, this, &CMainWnd::onPlay);
    connect(m_waveWnd, &CWaveWnd::onPlay, m_previewWnd, &CPreviewWnd::play);
    connect(m_waveWnd, &CWaveWnd::onPause, this, &CMainWnd::onPause);
    connect(m_waveWnd, &CWaveWnd::onPause, m_previewWnd, &CPreviewWnd::pause);
    connect(m_waveWnd, &CWaveWnd::onStop, this, &CMainWnd::onStop);
    connect(m_waveWnd, &CWaveWnd::onStop, m_previewWnd, &CPreviewWnd::stop);
    // The editor's do_play() is private: reached by name.
    connect(m_previewWnd, SIGNAL(do_play()), m_waveWnd, SLOT(do_play()));
    return m_mainFrame;
}

QWidget* CMainWnd::createHelloWidget()
{
    m_helloWnd = new CHelloWnd(this);
    m_helloWnd->setObjectName("helloWidget");
    connect(m_helloWnd, &CHelloWnd::openWave, this, qOverload<QString>(&CMainWnd::importWave));
    return m_helloWnd;
}

QWidget* CMainWnd::createNavigationWidget(QWidget* parent)
{
    auto* bar = new QWidget(parent);
    bar->setObjectName("itunestool");
    auto* row = new QHBoxLayout(bar);
    row->setSpacing(0);
    row->setContentsMargins(0, 0, 0, 0);

    auto* spacer = new QWidget(bar);
    spacer->setObjectName("navigationSpacer");
    row->addWidget(spacer);

    auto* navigation = new QWidget(bar);
    navigation->setObjectName("navigation");
    auto* grid = new QGridLayout(navigation);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    auto button = [navigation, grid](const char* name, int column) {
        auto* btn = new QToolButton(navigation);
        btn->setObjectName(name);
        btn->setFocusPolicy(Qt::NoFocus);
        grid->addWidget(btn, 0, column);
        return btn;
    };
    m_backBtn = button("backBtn", 0);
    m_forwardBtn = button("forwardBtn", 1);
    m_forwardBtn->setEnabled(false);
    m_showVideoBtn = button("showVideoButton", 2);
    m_showVideoBtn->setCheckable(true);
    m_openFileBtn = button("openFileButton", 4); // column 3 stays empty
    connect(m_backBtn, &QToolButton::clicked, this, &CMainWnd::on_back);
    connect(m_forwardBtn, &QToolButton::clicked, this, &CMainWnd::on_forward);
    connect(m_showVideoBtn, &QToolButton::clicked, this, &CMainWnd::showvideo);
    connect(m_openFileBtn, &QToolButton::clicked, this, &CMainWnd::openWave);
    row->addWidget(navigation, 0, Qt::AlignLeft);

    on_back();
    return bar;
}

void CMainWnd::on_back()
{
    m_libraryStack->setCurrentIndex(0);
    m_forwardBtn->setEnabled(false);
    m_backBtn->setEnabled(false);
    m_treePage = 1;
    const CLibraryNode* node = m_libraryModel->nodeFromIndex(m_libraryTree->currentIndex());
    if (node && node->type == LT_PLAYLIST)
        m_forwardBtn->setEnabled(true);
}

void CMainWnd::on_forward()
{
    // The tree page flag stays as it is: after back and forward a search
    // still runs over the whole library.
    m_libraryStack->setCurrentIndex(1);
    m_backBtn->setEnabled(true);
    m_forwardBtn->setEnabled(false);
}

void CMainWnd::on_clickedLibrary(QModelIndex index)
{
    const CLibraryNode* node = m_libraryModel->nodeFromIndex(index);
    if (!node || node->type != LT_PLAYLIST || !node->parent)
        return;
    qDebug("load playlist");
    m_songModel->load(node->parent->type, node->position);
    qDebug("playlist loaded");
    m_treePage = 0;
    on_forward();
}

void CMainWnd::filter(QString strFilter, FilterType type)
{
    if (!strFilter.isEmpty()) {
        m_proxy->filter(strFilter, type);
        if (m_treePage == 1) {
            m_songModel->Search(strFilter, type);
            on_forward();
        }
        return;
    }
    m_libraryStack->setCurrentIndex(m_treePage == 1 ? 0 : 1);
    m_proxy->filter(QString(), type);
}

void CMainWnd::on_inportFromITunes(QModelIndex index)
{
    CRingToneNode song = m_songModel->nodeFromIndex(m_proxy->mapToSource(index));
    if (song.strPath.isEmpty())
        return;
    const CLibraryNode* node = m_libraryModel->nodeFromIndex(m_libraryTree->currentIndex());
    if (node && node->parent && song.pixAlbum.isNull()) {
        // The row as the list shows it, not mapped to the model: kept so.
        song.pixAlbum =
            CItunesWraper::instance()->getAlbumPic(node->parent->type, node->position, index.row());
    }
    importWave(song);
}

void CMainWnd::importWave(CRingToneNode ringtone)
{
    // Checked before anything is closed: a file the editor cannot take
    // leaves the song that is open as it was.
    const SourceProblem problem = CWaveIo::checkSource(ringtone.strPath);
    if (problem != SourceProblem::None) {
        if (askTryAgain(ringtone, problem))
            importWave(ringtone);
        return;
    }
    m_current = ringtone;
    const int page = m_mainStack->currentIndex();
    m_mainStack->setCurrentIndex(2);
    if (m_waveWnd->openFile(ringtone) < 0) {
        // Failed half-way, after the song before was let go: none of it
        // stays (editor, fields, preview). The try-again dialog names, and
        // tries, this one.
        m_waveWnd->stop();
        m_previewWnd->hide();
        m_showVideoBtn->setChecked(false);
        m_current = ringtone;
        notityConvertFailed(page);
    }
}

void CMainWnd::importWave(QString fileName)
{
    // A fresh record: nothing of the song opened before stays with the file.
    CRingToneNode song;
    song.LoadFromFile(fileName);
    importWave(song);
}

void CMainWnd::openWave()
{
    const QString name = QFileDialog::getOpenFileName(this, tr("Open File"), QDir::homePath(),
                                                      tr("Media Files (*.*)"));
    if (!name.isEmpty())
        importWave(name);
}

void CMainWnd::showvideo()
{
    // The button's own toggle is overridden by the pane's state.
    const bool show = m_previewWnd->isHidden();
    m_showVideoBtn->setChecked(show);
    m_previewWnd->setVisible(show);
}

void CMainWnd::preview() {}

void CMainWnd::about()
{
    m_aboutDlg->exec();
}

void CMainWnd::option()
{
    m_optionDlg->exec();
}
