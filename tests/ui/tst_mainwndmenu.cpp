// The main window's menu bar and commands: the menus and their entries as
// retranslate() words them, shortcuts and roles, the stay-on-top toggle,
// the language group, the links handed to the desktop, closing, and the
// update check: the arguments it builds from the settings, what each answer
// of the service shows, and real exchanges with a local server and proxy.

#include "core/language.h"
#include "core/mpconfig.h"
#include "httpservers.h"
#include "mainwndfixture.h"
#include "modalanswer.h"
#include "testenv.h"
#include "tests/library/libraryfixture.h"
#include "update/update.h"
#include "urlcatcher.h"

#include <QAction>
#include <QActionGroup>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTextEdit>
#include <QToolButton>
#include <QTreeView>

namespace {

// The language menu: each language in its own words.
const QStringList kOwnNames = {"English", "Français", "日本語",     "Deutsch",
                               "Español", "Italiano", "Nederlands", "Português (Brasil)",
                               "简体中文"};

QByteArray reply(const QString& version, const QString& whatsNew)
{
    return QString("<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
                   "<upd:ProductInfo xmlns:upd=\"http://update.example/schema\">\n"
                   "  <upd:ProductCode>TW-42</upd:ProductCode>\n"
                   "  <upd:ProductDisplayName>Tonewright</upd:ProductDisplayName>\n"
                   "  <upd:ProductVer>%1</upd:ProductVer>\n"
                   "  <upd:DownloadURL>http://downloads.example/tonewright.dmg</upd:DownloadURL>\n"
                   "  <upd:WhatsNew><upd:Format>html</upd:Format>"
                   "<upd:Description>%2</upd:Description></upd:WhatsNew>\n"
                   "</upd:ProductInfo>\n")
        .arg(version, QString::fromLatin1(whatsNew.toUtf8().toBase64()))
        .toUtf8();
}

QStringList texts(const QList<QAction*>& actions)
{
    QStringList t;
    for (const QAction* a : actions)
        t << (a->isSeparator() ? QString("---") : a->text());
    return t;
}

// Reads a message box's title and text, then presses its OK.
tw::ModalAnswer::Answer readBox(QString* title, QString* text)
{
    return [title, text](QWidget* modal) {
        auto* box = qobject_cast<QMessageBox*>(modal);
        if (!box)
            return;
        *title = box->windowTitle();
        *text = box->text();
        box->button(QMessageBox::Ok)->click();
    };
}

} // namespace

class TestMainWndMenu : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<CMainWnd> m_wnd;
    tw::HttpServer m_server;
    QTemporaryDir m_dir;

    QMenuBar* menuBar() const { return m_wnd->findChild<QMenuBar*>("menuBar"); }
    // The first menus by their place among themselves (File, Windows,
    // Language, Help, Extras); the Edit and Play menus sit after File.
    QMenu* menu(int i) const
    {
        static const int kPlace[] = {0, 3, 4, 5, 6};
        return menuBar()->actions().at(kPlace[i])->menu();
    }
    QAction* entry(int menuIndex, int i) const { return menu(menuIndex)->actions().at(i); }
    void setProxy(bool on, const QString& host = QString(), int port = 0, int type = 0)
    {
        CMPConfig* config = CMPConfig::instance();
        config->reload();
        config->bUseProxy = on;
        config->strHost = host;
        config->nPort = port;
        config->nProxyType = type;
        config->strUserName = "user";
        config->strPassWord = "pass";
        config->save();
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_server.listen());
        QVERIFY(m_dir.isValid());
        lib::makeLibrary(m_dir);
        qputenv("TONEWRIGHT_UPDATE_URL",
                m_server.url("/update-product-info/update.php").toLatin1());
        // The translations beside the program, as start-up finds them.
        QVERIFY(QDir::setCurrent(TW_BINARY_DIR));
    }

    void init()
    {
        setProxy(false);
        m_wnd = std::make_unique<CMainWnd>();
        m_wnd->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_wnd.get()));
    }

    void cleanup()
    {
        m_wnd.reset();
        if (CLanguage::instance()->appTranslatorFile().endsWith("Tonewright_en.qm"))
            return;
        CLanguage::instance()->translatorLan("en");
        QCoreApplication::processEvents();
    }

    void cleanupTestCase() { CLanguage::instance()->translatorLan("en"); }

    void shouldOfferTheMenusInOrderWithRetranslatedTexts()
    {
        QCOMPARE(texts(menuBar()->actions()), QStringList({"&File", "&Edit", "&Play", "&Windows",
                                                           "&Language", "&Help", "E&xtras"}));
        QCOMPARE(texts(menu(0)->actions()),
                 QStringList({"Open", "Save As", "Suggest the &Best Part", "Close"}));
        QCOMPARE(texts(menu(1)->actions()), QStringList({"Minimize", "Bring All to Front"}));
        QCOMPARE(texts(menu(2)->actions()), kOwnNames);
        QCOMPARE(texts(menu(3)->actions()),
                 QStringList({"About", "Check &Upgrade", "Support", "Help Topic", "Option"}));
        QCOMPARE(menu(4)->actions().size(), 4);
        QCOMPARE(entry(4, 0)->text(), QString("Find us on &Facebook"));
        QCOMPARE(entry(4, 1)->text(), QString("Find us on &Twitter"));

        QCOMPARE(entry(0, 2)->shortcut(), QKeySequence("Ctrl+B"));
        QCOMPARE(entry(0, 0)->shortcut(), QKeySequence("Ctrl+O"));
        QCOMPARE(entry(0, 1)->shortcut(), QKeySequence("Ctrl+S"));
        QCOMPARE(entry(0, 3)->shortcut(), QKeySequence("Ctrl+Q"));
        QCOMPARE(entry(3, 3)->shortcut(), QKeySequence("F1"));
        QCOMPARE(entry(1, 0)->shortcut(), QKeySequence("Ctrl+M"));
        QCOMPARE(entry(1, 1)->shortcut(), QKeySequence("Ctrl+F"));
        QCOMPARE(entry(3, 0)->shortcut(), QKeySequence("Ctrl+A"));
        QCOMPARE(entry(0, 3)->menuRole(), QAction::QuitRole);
        QCOMPARE(entry(3, 0)->menuRole(), QAction::AboutRole);
        QCOMPARE(entry(3, 4)->menuRole(), QAction::PreferencesRole);
        QVERIFY(entry(1, 1)->isCheckable());

        const QStringList codes = {"en", "fr", "ja", "de", "es", "it", "nl", "pt", "zh"};
        for (int i = 0; i < codes.size(); ++i) {
            QCOMPARE(entry(2, i)->data().toString(), codes[i]);
            QVERIFY(entry(2, i)->isCheckable());
            QVERIFY(entry(2, i)->actionGroup() && entry(2, i)->actionGroup()->isExclusive());
        }

        // Tool-tips, the odd blanks kept.
        QCOMPARE(m_wnd->findChild<QToolButton*>("backBtn")->toolTip(), QString("Backward  "));
        QCOMPARE(m_wnd->findChild<QToolButton*>("forwardBtn")->toolTip(), QString("Frontward"));
        QCOMPARE(m_wnd->findChild<QToolButton*>("showVideoButton")->toolTip(),
                 QString("Show or Hide Music Cover, Video Preview Box"));
        QCOMPARE(m_wnd->findChild<QToolButton*>("openFileButton")->toolTip(),
                 QString("Open Files (Ctrl+O)"));
        QCOMPARE(m_wnd->findChild<QToolButton*>("volumeAdd")->toolTip(), QString("Voice Zoom In"));
        QCOMPARE(m_wnd->windowTitle(), QString("Tonewright"));
    }

    void shouldToggleStayingOnTop()
    {
        QAction* front = entry(1, 1);
        QVERIFY(!m_wnd->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        QVERIFY(!front->isChecked());
        front->trigger();
        QVERIFY(m_wnd->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        QVERIFY(front->isChecked());
        QVERIFY(m_wnd->isVisible());
        auto* about = m_wnd->findChild<QDialog*>("aboutDlg");
        QVERIFY(about->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        QCOMPARE(about->windowType(), Qt::Sheet);
        front->trigger();
        QVERIFY(!m_wnd->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        QVERIFY(!front->isChecked());
        QVERIFY(!about->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        QVERIFY(m_wnd->isVisible());
    }

    void shouldSwitchTheLanguageFromItsGroup()
    {
        QAction* french = entry(2, 1);
        french->trigger();
        QVERIFY(french->isChecked());
        for (int i = 0; i < 9; ++i)
            QCOMPARE(entry(2, i)->isChecked(), i == 1);
        QVERIFY2(CLanguage::instance()->appTranslatorFile().endsWith("Tonewright_fr.qm"),
                 qPrintable(CLanguage::instance()->appTranslatorFile()));
        // The window retranslates itself as soon as the event comes.
        QTRY_COMPARE(menuBar()->actions().first()->text(), QString("&Fichier"));
        QVERIFY(m_wnd->findChild<QToolButton*>("openFileButton")->toolTip() !=
                "Open Files (Ctrl+O)");
        entry(2, 0)->trigger();
        QTRY_COMPARE(menuBar()->actions().first()->text(), QString("&File"));
        QVERIFY(!CLanguage::instance()->hasQtTranslator());
    }

    void shouldNameEachLanguageInItsOwnWordsAndTickTheCurrentOne()
    {
        // English is installed by init(): ticked from the start.
        for (int i = 0; i < 9; ++i)
            QCOMPARE(entry(2, i)->isChecked(), i == 0);
        entry(2, 2)->trigger(); // 日本語
        QTRY_COMPARE(menuBar()->actions().first()->text(), QString("ファイル(&F)"));
        // Still each in its own words, whatever the language around them.
        QCOMPARE(texts(menu(2)->actions()), kOwnNames);
        QVERIFY(entry(2, 2)->isChecked());
        QCOMPARE(QSettings().value("Language").toString(), QString("ja"));

        // A window made later (the next start) ticks what is installed.
        m_wnd.reset();
        m_wnd = std::make_unique<CMainWnd>();
        for (int i = 0; i < 9; ++i)
            QCOMPARE(entry(2, i)->isChecked(), i == 2);
    }

    void shouldRememberTheLanguageForTheNextStart()
    {
        QSettings().remove("Language");
        entry(2, 3)->trigger(); // Deutsch
        QCOMPARE(QSettings().value("Language").toString(), QString("de"));
        // The next start: English first, then what was remembered.
        CLanguage::instance()->translatorLan("en");
        CLanguage::instance()->restore();
        QVERIFY2(CLanguage::instance()->appTranslatorFile().endsWith("Tonewright_de.qm"),
                 qPrintable(CLanguage::instance()->appTranslatorFile()));
        QCOMPARE(CLanguage::instance()->currentCode(), QString("de"));
        QTRY_COMPARE(menuBar()->actions().first()->text(), QString("&Datei"));
        QVERIFY(entry(2, 3)->isChecked());
        QSettings().remove("Language");
    }

    void shouldTranslateTheLibraryColumnAtOnce()
    {
        auto* tree = m_wnd->findChild<QTreeView*>("libraryTree");
        QTRY_VERIFY(mw::findRow(tree, "Library").isValid());
        QVERIFY(mw::findRow(tree, "PlayList").isValid());
        QVERIFY(mw::findRow(tree, "Music").isValid());
        QVERIFY(mw::findRow(tree, "Movies").isValid());
        QVERIFY(mw::findRow(tree, "Ringtones").isValid());
        QSignalSpy changed(tree->model(), &QAbstractItemModel::dataChanged);
        entry(2, 1)->trigger(); // Français
        QTRY_VERIFY(mw::findRow(tree, "Bibliothèque").isValid());
        QTRY_VERIFY(changed.count() > 0); // the view is told, so it repaints
        QVERIFY(mw::findRow(tree, "Listes de lecture").isValid());
        QVERIFY(mw::findRow(tree, "Musique").isValid());
        QVERIFY(mw::findRow(tree, "Films").isValid());
        QVERIFY(mw::findRow(tree, "Sonneries").isValid());
        QVERIFY(!mw::findRow(tree, "Music").isValid());
        // A playlist the user named keeps its name.
        QVERIFY(mw::findRow(tree, "Road Trip").isValid());
        entry(2, 0)->trigger();
        QTRY_VERIFY(mw::findRow(tree, "Music").isValid());
    }

    void shouldCloseThroughTheFileMenu()
    {
        QSignalSpy accepted(m_wnd.get(), &QDialog::accepted);
        entry(0, 3)->trigger();
        QCOMPARE(accepted.count(), 1);
        QVERIFY(!m_wnd->isVisible());
    }

    void shouldOpenTheLinksInTheDesktopsHandlers()
    {
        tw::UrlCatcher https("https");
        tw::UrlCatcher file("file");
        entry(3, 2)->trigger(); // Support
        entry(4, 0)->trigger(); // Facebook
        entry(4, 1)->trigger(); // Twitter
        entry(4, 2)->trigger();
        entry(4, 3)->trigger();
        QCOMPARE(https.urls.size(), 5);
        QCOMPARE(https.urls[0].toString(), QString("https://www.vandrel.example/support/"));
        QCOMPARE(https.urls[1].host(), QString("www.facebook.com"));
        QCOMPARE(https.urls[2].host(), QString("twitter.com"));
        QVERIFY(https.urls[3].path().contains("clipwell"));
        QVERIFY(https.urls[4].path().contains("discwell"));
        entry(3, 3)->trigger(); // Help Topic
        QCOMPARE(file.urls.size(), 1);
        QCOMPARE(file.urls.first().toLocalFile(), QDir::currentPath() + "/helptopic/overview.html");
        QVERIFY(QFile::exists(file.urls.first().toLocalFile()));
    }

    void shouldRunTheAboutAndOptionsDialogs()
    {
        tw::ModalAnswer answers;
        answers.then(tw::ModalAnswer::reject());
        answers.then(tw::ModalAnswer::reject());
        entry(3, 0)->trigger();
        entry(3, 4)->trigger();
        QCOMPARE(answers.seen, QStringList({"CAboutDlg", "COptionDlg"}));
    }

    void shouldBuildTheUpdateArgumentsWithoutAProxy()
    {
        const QStringList args = m_wnd->updateArguments(true);
        QCOMPARE(args.size(), 15);
        QCOMPARE(
            args,
            QStringList({"MainWnd", "-url", m_server.url("/update-product-info/update.php"), "-ver",
                         "1.4.0", "-product", "Vandrel Tonewright Mac", "-showerr", "true",
                         "-language", "en", "-showname", "Tonewright", "-auto", "false"}));
        QCOMPARE(m_wnd->updateArguments(false).at(8), QString("false"));
    }

    void shouldPutTheProxyRightAfterTheName()
    {
        setProxy(true, "proxy.example", 8080, 2);
        const QStringList args = m_wnd->updateArguments(true);
        QCOMPARE(args.size(), 21);
        QCOMPARE(args.mid(0, 8), QStringList({"MainWnd", "-setProxy", "proxy.example", "8080", "2",
                                              "user", "pass", "-url"}));
    }

    void shouldShowWhatEachAnswerMeans()
    {
        QString title;
        QString text;
        tw::ModalAnswer answers;
        answers.then(readBox(&title, &text));
        m_wnd->OnUInfo(UINFO_NET_FAIL, QString());
        QCOMPARE(title, QString("Tonewright"));
        QCOMPARE(text, QString("Network connection failure,<br>please check the validity of the "
                               "proxy."));
        answers.then(readBox(&title, &text));
        m_wnd->OnUInfo(UINFO_URL_INVALID, QString());
        QCOMPARE(text, QString("The url is invalid"));
        answers.then(readBox(&title, &text));
        m_wnd->OnUInfo(UINFO_NOT_FOUND, QString());
        QCOMPARE(text, QString("Sorry, the product information can't be found."));
        QCOMPARE(answers.seen, QStringList({"QMessageBox", "QMessageBox", "QMessageBox"}));

        // A broken reply and unknown codes stay quiet: nothing is shown,
        // and the calls return without waiting for anyone.
        m_wnd->OnUInfo(UINFO_BAD_REPLY, "<not xml");
        m_wnd->OnUInfo(12345, QString());
        QCOMPARE(answers.seen.size(), 3);

        QString info;
        answers.then([&info](QWidget* modal) {
            info = modal->findChild<QTextEdit*>("textEdit")->toPlainText();
            qobject_cast<QDialog*>(modal)->reject();
        });
        m_wnd->OnUInfo(UINFO_NEW_VERSION, "<b>Faster</b> exports");
        QCOMPARE(info, QString("Faster exports"));
        answers.then(tw::ModalAnswer::click("pushButton"));
        m_wnd->OnUInfo(UINFO_NEWEST, QString());
        QCOMPARE(answers.seen.mid(3), QStringList({"CUpgradeDlg", "CNewestDlg"}));
    }

    void shouldShowANewerVersionFromTheService()
    {
        m_server.setReply(reply("1.5.0", "<p>New <i>fades</i></p>"));
        tw::UrlCatcher http("http");
        tw::ModalAnswer answers;
        QString info;
        answers.then([&info](QWidget* modal) {
            info = modal->findChild<QTextEdit*>("textEdit")->toPlainText();
            modal->findChild<QPushButton*>("updateBtn")->click();
        });
        entry(3, 1)->trigger(); // Check Upgrade
        QTRY_COMPARE(answers.seen, QStringList({"CUpgradeDlg"}));
        QCOMPARE(info, QString("New fades"));
        QCOMPARE(http.urls.size(), 1);
        QCOMPARE(http.urls.first().toString(),
                 QString("http://downloads.example/tonewright.dmg?product=TW-42"));
        const QString request = m_server.requests.last();
        QVERIFY2(request.contains("action=getinfo"), qPrintable(request));
        QVERIFY(request.contains("versioncur=1.4.0"));
    }

    void shouldSayTheVersionIsNewestOnlyWhenAsked()
    {
        m_server.setReply(reply("1.4.0", "same"));
        const int before = m_server.requests.size();
        // Automatic: quiet.
        QSignalSpy outcome(m_wnd->updateClient(), &CUpdate::SendUInfo);
        m_wnd->upgrade(false);
        // The reply was read (its version taken) and nothing was said.
        QTRY_COMPARE(m_wnd->updateClient()->SzI(CUpdate::idxNewVersion), QString("1.4.0"));
        QCOMPARE(m_server.requests.size(), before + 1);
        QCOMPARE(outcome.count(), 0);
        // Manual: the newest-version dialog.
        tw::ModalAnswer answers;
        answers.then(tw::ModalAnswer::click("pushButton"));
        m_wnd->upgrade(true);
        QTRY_COMPARE(answers.seen, QStringList({"CNewestDlg"}));
        QCOMPARE(outcome.count(), 1);
        QCOMPARE(outcome.first().at(0).toInt(), int(UINFO_NEWEST));
    }

    void shouldKeepThePreviousChecksProxyUntilRestart()
    {
        tw::HttpProxy proxy;
        QVERIFY(proxy.listen());
        m_server.setReply(reply("1.4.0", "same"));
        setProxy(true, "127.0.0.1", proxy.port(), 0);
        tw::ModalAnswer answers;
        answers.then(tw::ModalAnswer::click("pushButton"));
        m_wnd->upgrade(true);
        QTRY_COMPARE(answers.seen, QStringList({"CNewestDlg"}));
        QCOMPARE(proxy.requests.size(), 1); // it went through the proxy

        // The proxy switched off: the client keeps its proxy flag with no
        // address, so the next check of this run fails.
        setProxy(false);
        QString title;
        QString text;
        answers.then(readBox(&title, &text));
        m_wnd->upgrade(true);
        QTRY_COMPARE(answers.seen.size(), 2);
        QCOMPARE(text, QString("Network connection failure,<br>please check the validity of the "
                               "proxy."));
    }
};

TW_TEST_MAIN(TestMainWndMenu)
#include "tst_mainwndmenu.moc"
