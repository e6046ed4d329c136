// CMainWnd: the menu bar, retranslate(), the link commands, the language,
// update checks and problem reports.

#include "ui/mainwnd.h"

#include "core/branding.h"
#include "core/language.h"
#include "core/mpconfig.h"
#include "crash/crashreportdlg.h"
#include "editor/ringtoneexport.h"
#include "library/filteredit.h"
#include "library/librarymodel.h"
#include "ui/aboutdlg.h"
#include "ui/optiondlg.h"
#include "update/newestdlg.h"
#include "update/update.h"
#include "update/upgradedlg.h"

#include <QAction>
#include <QActionGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDebug>
#include <QDesktopServices>
#include <QDir>
#include <QEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QToolButton>
#include <QUrl>

namespace {

// The language menu: each language in its own name (never translated) and
// its code.
struct Language
{
    const char* name; // UTF-8
    const char* code;
};
const Language kLanguages[] = {
    {"English", "en"}, {"Français", "fr"}, {"日本語", "ja"},     {"Deutsch", "de"},
    {"Español", "es"}, {"Italiano", "it"}, {"Nederlands", "nl"}, {"Português (Brasil)", "pt"},
    {"简体中文", "zh"}};

void openInBrowser(const QString& address)
{
    QDesktopServices::openUrl(QUrl(address, QUrl::TolerantMode));
}

} // namespace

void CMainWnd::createMenuBar()
{
    m_menuBar = new QMenuBar(this);
    m_menuBar->setObjectName("menuBar");
    auto action = [this](QMenu* menu, const QString& caption, void (CMainWnd::*slot)()) {
        auto* act = new QAction(caption, this);
        connect(act, &QAction::triggered, this, slot);
        if (menu)
            menu->addAction(act);
        return act;
    };

    m_fileMenu = m_menuBar->addMenu(tr("File"));
    m_openAct = action(m_fileMenu, "&Open", &CMainWnd::openWave);
    m_saveAsAct = action(m_fileMenu, "&Save As", &CMainWnd::convert);
    m_suggestAct = action(m_fileMenu, "Suggest the &Best Part", &CMainWnd::suggest);
    m_suggestAct->setObjectName("suggestAct");
    m_suggestAct->setShortcut(QKeySequence(tr("Ctrl+B")));
    m_suggestAct->setEnabled(false);
    m_closeAct = new QAction("&Close", this);
    m_closeAct->setMenuRole(QAction::QuitRole);
    connect(m_closeAct, &QAction::triggered, this, &QDialog::accept);
    m_fileMenu->addAction(m_closeAct);

    createKeyActions();
    m_menuBar->addMenu(m_editMenu);
    m_menuBar->addMenu(m_playMenu);

    m_windowsMenu = m_menuBar->addMenu(tr("Windows"));
    m_minimizeAct = new QAction("&Minimize", this);
    m_minimizeAct->setShortcut(QKeySequence(tr("Ctrl+M")));
    connect(m_minimizeAct, &QAction::triggered, this, &QWidget::showMinimized);
    m_windowsMenu->addAction(m_minimizeAct);
    m_frontAct = action(m_windowsMenu, "&Bring All to Front", &CMainWnd::front);
    m_frontAct->setShortcut(QKeySequence(tr("Ctrl+F")));
    m_frontAct->setCheckable(true);

    m_languageMenu = m_menuBar->addMenu(tr("Language"));
    m_languageGroup = new QActionGroup(this);
    m_languageGroup->setExclusive(true);
    for (const Language& language : kLanguages) {
        auto* act = new QAction(QString::fromUtf8(language.name), this);
        act->setCheckable(true);
        act->setData(QString::fromLatin1(language.code));
        m_languageGroup->addAction(act);
        m_languageMenu->addAction(act);
        m_languageActs << act;
    }
    // The language start-up installed shows as checked.
    checkCurrentLanguage();
    connect(m_languageGroup, &QActionGroup::triggered, this,
            qOverload<QAction*>(&CMainWnd::translatorLan));

    m_helpMenu = m_menuBar->addMenu(tr("Help"));
    m_aboutAct = action(m_helpMenu, "&About", &CMainWnd::about);
    m_aboutAct->setShortcut(QKeySequence(tr("Ctrl+A")));
    m_aboutAct->setMenuRole(QAction::AboutRole);
    m_upgradeAct = new QAction("Check &Upgrade", this);
    connect(m_upgradeAct, &QAction::triggered, this, [this] { upgrade(); });
    m_helpMenu->addAction(m_upgradeAct);
    m_supportAct = action(m_helpMenu, "&Support", &CMainWnd::support);
    m_helpTopicAct = action(m_helpMenu, "&Help Topic", &CMainWnd::guide);
    m_helpTopicAct->setShortcut(QKeySequence::HelpContents);
    m_optionAct = action(m_helpMenu, "&Option", &CMainWnd::option);
    m_optionAct->setMenuRole(QAction::PreferencesRole);

    m_extrasMenu = m_menuBar->addMenu(tr("Extras"));
    m_facebookAct = action(m_extrasMenu, "Find us on &Facebook", &CMainWnd::jFacebook);
    m_twitterAct = action(m_extrasMenu, "Find us on &Twitter", &CMainWnd::jTwitter);
    m_clipwellAct = action(m_extrasMenu, "Vandrel &Clipwell", &CMainWnd::jClipwell);
    m_discwellAct = action(m_extrasMenu, "Vandrel &Discwell", &CMainWnd::jDiscwell);

    // Reachable from code only (start-up after a crash): on no menu, on purpose.
    m_crashReportAct = new QAction("Crash Report", this);
    m_crashReportAct->setObjectName("crashReportAct");
    connect(m_crashReportAct, &QAction::triggered, this, [this] { bugReport(); });
}

void CMainWnd::retranslate()
{
    m_forwardBtn->setToolTip(tr("Frontward"));
    m_backBtn->setToolTip(tr("Backward  ")); // two trailing blanks, kept
    m_showVideoBtn->setToolTip(tr("Show or Hide Music Cover, Video Preview Box"));

    m_volumeReduceBtn->setToolTip(tr("Voice Zoom Out"));
    m_volumeAddBtn->setToolTip(tr("Voice Zoom In"));
    m_closeBtn->setToolTip(tr("Quit Editing"));

    m_fadeOutCheck->setText(tr("Fade out"));
    m_fadeInCheck->setText(tr("Fade  in"));
    m_beginLabel->setText(tr("Start Time"));
    m_endLabel->setText(tr("End  Time"));
    m_twitterBtn->setToolTip(tr("Tweet Your Ringtone"));
    m_facebookBtn->setToolTip(tr("Find us on Facebook"));

    // The menu items lose most mnemonics here, while "Check &Upgrade" and
    // the Extras keep theirs: these are the translation keys. The titles
    // have theirs (Alt+F opens File).
    m_fileMenu->setTitle(tr("&File"));
    m_saveAsAct->setText(tr("Save As"));
    m_suggestAct->setText(tr("Suggest the &Best Part"));
    m_closeAct->setText(tr("Close"));
    m_windowsMenu->setTitle(tr("&Windows"));
    m_openAct->setText(tr("Open"));
    m_minimizeAct->setText(tr("Minimize"));
    m_frontAct->setText(tr("Bring All to Front"));
    m_languageMenu->setTitle(tr("&Language"));
    checkCurrentLanguage();
    if (m_kindCombo) {
        int kinds = 0;
        const RingtoneFormat* formats = CRingtoneExport::formats(&kinds);
        for (int i = 0; i < kinds && i < m_kindCombo->count(); ++i)
            m_kindCombo->setItemText(
                i, QCoreApplication::translate("CRingtoneExport", formats[i].label));
    }
    if (m_normalizeCombo) {
        m_normalizeLabel->setText(tr("&Normalize"));
        m_normalizeCombo->setItemText(0, tr("Off"));
        m_normalizeCombo->setItemText(1, tr("Standard (−14 LUFS)"));
        m_normalizeCombo->setItemText(2, tr("Loud (−11 LUFS)"));
        m_normalizeCombo->setToolTip(
            tr("Sets the gain so that the ringtone plays at a chosen loudness, without clipping"));
        showLoudness();
    }
    if (m_libraryModel)
        m_libraryModel->retranslate();
    m_helpMenu->setTitle(tr("&Help"));
    m_aboutAct->setText(tr("About"));
    m_supportAct->setText(tr("Support"));
    m_helpTopicAct->setText(tr("Help Topic"));
    m_crashReportAct->setText(tr("Crash Report"));
    m_extrasMenu->setTitle(tr("E&xtras"));
    m_facebookAct->setText(tr("Find us on &Facebook"));
    m_twitterAct->setText(tr("Find us on &Twitter"));
    m_clipwellAct->setText(tr("Vandrel &Clipwell"));
    m_discwellAct->setText(tr("Vandrel &Discwell"));
    m_upgradeAct->setText(tr("Check &Upgrade"));
    m_optionAct->setText(tr("Option"));

    setWindowTitle(tr("Tonewright"));
    // The editor's tool-tips with their keys, and the accessible names.
    retranslateKeys();
}

void CMainWnd::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        return;
    }
    QDialog::changeEvent(event);
}

void CMainWnd::front()
{
    const bool wasVisible = isVisible();
    const Qt::WindowFlags flags = windowFlags() ^ Qt::WindowStaysOnTopHint;
    setWindowFlags(flags);
    const Qt::WindowFlags dialogFlags = (flags & ~Qt::WindowFlags(Qt::WindowType_Mask)) | Qt::Sheet;
    for (QDialog* dlg : {static_cast<QDialog*>(m_aboutDlg), static_cast<QDialog*>(m_upgradeDlg),
                         static_cast<QDialog*>(m_newestDlg), static_cast<QDialog*>(m_optionDlg)})
        dlg->setWindowFlags(dialogFlags);
    m_frontAct->setChecked(flags.testFlag(Qt::WindowStaysOnTopHint));
    // New flags hide a window: show it again. The call the constructor makes
    // leaves a window that was never shown to start-up, which shows it last.
    if (wasVisible)
        show();
}

void CMainWnd::guide()
{
    const QString address = "file://" + QDir::currentPath() + "/helptopic/overview.html";
    qDebug().noquote() << "helpfile:" << address;
    openInBrowser(address);
}

void CMainWnd::support()
{
    openInBrowser(branding::supportPage());
}

void CMainWnd::jFacebook()
{
    openInBrowser(branding::facebookPage());
}

void CMainWnd::jTwitter()
{
    openInBrowser(branding::twitterPage());
}

void CMainWnd::jClipwell()
{
    openInBrowser(branding::clipwellPage());
}

void CMainWnd::jDiscwell()
{
    openInBrowser(branding::discwellPage());
}

void CMainWnd::translatorLan(QAction* action)
{
    if (action)
        CLanguage::instance()->choose(action->data().toString());
    else
        CLanguage::instance()->translatorLan(QLocale::system().name());
}

void CMainWnd::checkCurrentLanguage()
{
    const QString current = CLanguage::instance()->currentCode();
    for (QAction* act : std::as_const(m_languageActs))
        act->setChecked(act->data().toString() == current);
}

// --- update checks ----------------------------------------------------------

QStringList CMainWnd::updateArguments(bool bShowNewest)
{
    QStringList args;
    args << objectName();
    CMPConfig* config = CMPConfig::instance();
    config->reload();
    if (config->bUseProxy)
        args << "-setProxy" << config->strHost << QString::number(config->nPort)
             << QString::number(config->nProxyType) << config->strUserName << config->strPassWord;
    args << "-url" << branding::updateScript();
    args << "-ver" << branding::version();
    args << "-product" << branding::updateProduct();
    args << "-showerr" << (bShowNewest ? "true" : "false");
    // The service is always asked in English, whatever the window shows.
    args << "-language"
         << "en";
    args << "-showname" << tr("Tonewright");
    args << "-auto"
         << "false";
    return args;
}

void CMainWnd::upgrade(bool bShowNewest)
{
    const QStringList args = updateArguments(bShowNewest);
    if (m_update->InitUpdate(args.size(), args))
        m_update->TestUrl();
}

void CMainWnd::OnUInfo(int id, QString strInfo)
{
    switch (id) {
    case UINFO_NET_FAIL:
        QMessageBox::critical(nullptr, QObject::tr("Tonewright"),
                              tr("Network connection failure,<br>please check the validity of "
                                 "the proxy."),
                              QMessageBox::Ok);
        break;
    case UINFO_URL_INVALID:
        QMessageBox::critical(nullptr, QObject::tr("Tonewright"), tr("The url is invalid"),
                              QMessageBox::Ok);
        break;
    case UINFO_NOT_FOUND:
        QMessageBox::information(nullptr, QObject::tr("Tonewright"),
                                 tr("Sorry, the product information can't be found."),
                                 QMessageBox::Ok);
        break;
    case UINFO_NEW_VERSION:
        m_upgradeDlg->setNewInfo(strInfo);
        m_upgradeDlg->setDownLoadUrl(m_update->SzI(CUpdate::idxDownloadUrl));
        m_upgradeDlg->exec();
        break;
    case UINFO_NEWEST:
        m_newestDlg->exec();
        break;
    default:
        // A reply that is not XML (30058) and anything else stay quiet.
        break;
    }
}

// --- problem reports --------------------------------------------------------

void CMainWnd::bugReport(bool bManual)
{
    CCrashReportDlg dlg(this, bManual);
    dlg.exec();
}
