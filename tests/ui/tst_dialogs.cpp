// The dialog frame and the small dialogs: geometry, object names, texts and
// their translation contexts, the name dialog keeping what was typed, the
// try-again message naming the file, and the buttons' answers.

#include "core/branding.h"
#include "testenv.h"
#include "ui/aboutdlg.h"
#include "ui/namedlg.h"
#include "ui/tryagaindlg.h"
#include "widgets/popdlg.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTextDocument>
#include <QTimer>

namespace {

template <typename T> T* child(QWidget& parent, const char* name)
{
    return parent.findChild<T*>(name);
}

QString plain(const QString& richText)
{
    QTextDocument doc;
    doc.setHtml(richText);
    return doc.toPlainText();
}

} // namespace

class TestDialogs : public QObject
{
    Q_OBJECT

private slots:
    void shouldGiveEveryPopUpABlankTitleAndAlmostFullOpacity()
    {
        CPopDlg dialog;
        QCOMPARE(dialog.windowTitle(), QString(" "));
        // Kept in eight bits: 0.99 reads back as 252 / 255.
        QVERIFY2(qAbs(dialog.windowOpacity() - 0.99) < 1.0 / 255,
                 qPrintable(QString::number(dialog.windowOpacity())));
        QVERIFY(dialog.metaObject()->methodCount() == QDialog::staticMetaObject.methodCount());
    }

    void shouldLayOutTheAboutBox_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QRect>("geometry");
        QTest::addColumn<bool>("wrap");
        QTest::newRow("copyright") << "labelCopyright" << QRect(30, 140, 401, 31) << false;
        QTest::newRow("support") << "labelSupport" << QRect(30, 170, 361, 16) << true;
        QTest::newRow("home page") << "labelHomePage" << QRect(30, 190, 361, 16) << true;
        QTest::newRow("version") << "labelVersion" << QRect(330, 68, 131, 16) << false;
    }
    void shouldLayOutTheAboutBox()
    {
        QFETCH(QString, name);
        QFETCH(QRect, geometry);
        QFETCH(bool, wrap);
        CAboutDlg about;
        QCOMPARE(about.objectName(), QString("CAboutClass"));
        QCOMPARE(about.size(), QSize(491, 241));
        QCOMPARE(about.windowTitle(), QString(" "));
        auto* label = about.findChild<QLabel*>(name);
        QVERIFY(label);
        QCOMPARE(label->geometry(), geometry);
        QCOMPARE(label->wordWrap(), wrap);
        QVERIFY(!label->text().isEmpty());
    }

    void shouldLinkTheSupportAndHomePages()
    {
        CAboutDlg about;
        auto* support = child<QLabel>(about, "labelSupport");
        auto* home = child<QLabel>(about, "labelHomePage");
        QVERIFY(support->openExternalLinks());
        QVERIFY(home->openExternalLinks());
        QCOMPARE(support->textFormat(), Qt::RichText);
        QVERIFY(support->text().contains("href=\"" + branding::supportPage() + "\""));
        QVERIFY(support->text().contains("color:#32A0FB"));
        QVERIFY(support->text().contains("text-decoration:underline"));
        // The page reads "/surport"; it links to "/support/".
        QCOMPARE(plain(support->text()), "Support: www." + branding::domain() + "/surport");
        QVERIFY(home->text().contains("href=\"" + branding::homePage() + "\""));
        QCOMPARE(plain(home->text()), "Home Page: www." + branding::domain());
        QCOMPARE(child<QLabel>(about, "labelVersion")->text(), QString("Version: 1.4.0"));
        QVERIFY(child<QLabel>(about, "labelCopyright")->text().contains("Vandrel"));
    }

    void shouldBuildTheNameDialogFromItsForm()
    {
        CNameDlg dialog;
        QCOMPARE(dialog.objectName(), QString("CNameDlgClass"));
        QCOMPARE(dialog.size(), QSize(479, 211));
        QCOMPARE(dialog.windowTitle(), QString()); // the form replaces the blank
        QCOMPARE(child<QLabel>(dialog, "label")->geometry(), QRect(40, 130, 54, 16));
        QCOMPARE(child<QLabel>(dialog, "label")->text(), QString("Save as"));
        QCOMPARE(child<QLineEdit>(dialog, "lineEdit")->geometry(), QRect(100, 130, 271, 20));
        QCOMPARE(child<QPushButton>(dialog, "okBtn")->geometry(), QRect(120, 170, 75, 23));
        QCOMPARE(child<QPushButton>(dialog, "okBtn")->text(), QString("Ok"));
        QCOMPARE(child<QPushButton>(dialog, "cancelBtn")->geometry(), QRect(280, 170, 75, 23));
        QCOMPARE(child<QPushButton>(dialog, "cancelBtn")->text(), QString("Cancel"));
    }

    void shouldKeepTheNameAsTyped()
    {
        CNameDlg dialog;
        dialog.setName("  My Tone  ");
        QCOMPARE(dialog.getName(), QString("  My Tone  "));
        QCOMPARE(child<QLineEdit>(dialog, "lineEdit")->text(), QString("  My Tone  "));
        auto* edit = child<QLineEdit>(dialog, "lineEdit");
        edit->clear();
        dialog.show();
        QTest::keyClicks(edit, " a/b. ");
        QCOMPARE(dialog.getName(), QString(" a/b. "));
    }

    void shouldAnswerWithItsButtons_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<int>("result");
        QTest::newRow("ok") << "okBtn" << int(QDialog::Accepted);
        QTest::newRow("cancel") << "cancelBtn" << int(QDialog::Rejected);
    }
    void shouldAnswerWithItsButtons()
    {
        QFETCH(QString, button);
        QFETCH(int, result);
        CNameDlg name;
        QTimer::singleShot(0, &name, [&] { name.findChild<QPushButton*>(button)->click(); });
        QCOMPARE(name.exec(), result);
        CTryAgainDlg tryAgain;
        QTimer::singleShot(0, &tryAgain,
                           [&] { tryAgain.findChild<QPushButton*>(button)->click(); });
        QCOMPARE(tryAgain.exec(), result);
    }

    void shouldNameTheFileInQuotesInTheTryAgainMessage()
    {
        CTryAgainDlg dialog;
        auto* message = child<QLabel>(dialog, "messageLabel");
        QVERIFY(message);
        QCOMPARE(message->geometry(), QRect(30, 100, 450, 81));
        QVERIFY(message->wordWrap());
        QVERIFY(message->openExternalLinks());
        QCOMPARE(child<QPushButton>(dialog, "okBtn")->geometry(), QRect(160, 200, 75, 23));
        QCOMPARE(child<QPushButton>(dialog, "okBtn")->text(), QString("Try again"));
        QCOMPARE(child<QPushButton>(dialog, "cancelBtn")->geometry(), QRect(290, 200, 75, 23));
        QCOMPARE(child<QPushButton>(dialog, "cancelBtn")->text(), QString("Cancel"));
        dialog.setFileName("song");
        QCOMPARE(
            plain(message->text()).split('\n'),
            QStringList({"Sorry, the file \"song\" is not converted correctly.",
                         "Something wrong happened.", "Please try again or import another file."}));
        // A name with markup stays a name.
        dialog.setFileName("<b>x</b> & y");
        QVERIFY(plain(message->text()).startsWith("Sorry, the file \"<b>x</b> & y\""));
    }
};

TW_TEST_MAIN(TestDialogs)
#include "tst_dialogs.moc"
