// The update dialogs: their forms, what is new shown as rich text, and
// "Download Now" handing the address to the desktop (caught here by a URL
// handler) before it closes the dialog.

#include "testenv.h"
#include "update/newestdlg.h"
#include "update/upgradedlg.h"

#include <QDesktopServices>
#include <QLabel>
#include <QPushButton>
#include <QTextDocument>
#include <QTextEdit>
#include <QUrl>

namespace {

class UrlCatcher : public QObject
{
    Q_OBJECT

public:
    QList<QUrl> urls;

public slots:
    void open(const QUrl& url) { urls << url; }
};

QString plain(const QString& html)
{
    QTextDocument doc;
    doc.setHtml(html);
    return doc.toPlainText();
}

} // namespace

class TestUpdateDialogs : public QObject
{
    Q_OBJECT

private slots:
    void shouldBuildTheNewVersionDialog()
    {
        CUpgradeDlg dialog;
        QCOMPARE(dialog.objectName(), QString("CUpgradeClass"));
        QCOMPARE(dialog.size(), QSize(491, 306));
        QCOMPARE(dialog.windowTitle(), QString(" "));
        auto* title = dialog.findChild<QLabel*>("labelNewAvaliable");
        QVERIFY(title);
        QCOMPARE(title->geometry(), QRect(40, 110, 381, 16));
        QVERIFY(!title->wordWrap());
        QCOMPARE(plain(title->text()), QString("A new version is avaliable now! "));
        QVERIFY(title->text().contains("font-weight:600"));
        auto* whatNew = dialog.findChild<QLabel*>("labelWhatNew");
        QCOMPARE(whatNew->geometry(), QRect(40, 130, 391, 16));
        QCOMPARE(whatNew->text(), QString("What's new for this version:"));
        QCOMPARE(dialog.findChild<QTextEdit*>("textEdit")->geometry(), QRect(40, 150, 371, 81));
        QCOMPARE(dialog.findChild<QPushButton*>("updateBtn")->geometry(), QRect(110, 250, 91, 23));
        QCOMPARE(dialog.findChild<QPushButton*>("updateBtn")->text(), QString("Download Now"));
        QCOMPARE(dialog.findChild<QPushButton*>("cancelBtn")->geometry(), QRect(270, 250, 75, 23));
        QCOMPARE(dialog.findChild<QPushButton*>("cancelBtn")->text(), QString("Cancel"));
    }

    void shouldShowWhatIsNewAndOpenTheDownload()
    {
        UrlCatcher catcher;
        QDesktopServices::setUrlHandler("http", &catcher, "open");
        CUpgradeDlg dialog;
        dialog.setNewInfo("<p>Faster <b>fades</b> &amp; a new look</p>");
        QCOMPARE(dialog.findChild<QTextEdit*>("textEdit")->toPlainText(),
                 QString("Faster fades & a new look"));
        dialog.setDownLoadUrl("http://downloads.example/tw.dmg?product=TW-01");
        QCOMPARE(dialog.downloadUrl(), QString("http://downloads.example/tw.dmg?product=TW-01"));
        dialog.show();
        dialog.findChild<QPushButton*>("updateBtn")->click();
        QCOMPARE(catcher.urls.size(), 1);
        QCOMPARE(catcher.urls[0].toString(),
                 QString("http://downloads.example/tw.dmg?product=TW-01"));
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        dialog.show();
        dialog.findChild<QPushButton*>("cancelBtn")->click();
        QCOMPARE(dialog.result(), int(QDialog::Rejected));
        QCOMPARE(catcher.urls.size(), 1);
        QDesktopServices::unsetUrlHandler("http");
    }

    void shouldBuildTheNewestDialog()
    {
        CNewestDlg dialog;
        QCOMPARE(dialog.objectName(), QString("CNewestDlgClass"));
        QCOMPARE(dialog.size(), QSize(491, 210));
        auto* label = dialog.findChild<QLabel*>("labelNewest");
        QCOMPARE(label->geometry(), QRect(100, 110, 291, 16));
        QCOMPARE(plain(label->text()), QString("You are using the newest version now!"));
        QVERIFY(label->text().contains("font-weight:600"));
        auto* ok = dialog.findChild<QPushButton*>("pushButton");
        QCOMPARE(ok->geometry(), QRect(200, 150, 75, 23));
        QCOMPARE(ok->text(), QString("OK"));
        dialog.show();
        ok->click();
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        dialog.setNote("changed");
        QCOMPARE(label->text(), QString("changed"));
        QEvent change(QEvent::LanguageChange);
        QCoreApplication::sendEvent(&dialog, &change);
        QCOMPARE(plain(label->text()), QString("You are using the newest version now!"));
    }
};

TW_TEST_MAIN(TestUpdateDialogs)
#include "tst_updatedialogs.moc"
