// Pictures of the dialogs (About, name, try again, the two update answers,
// options with each of its pages, the problem report, a question box) and
// the welcome pane,
// in English and in Japanese,
// drawn off screen with the program's skin and saved under the build
// directory (screenshots/dialog-<language>-<name>.png) for a person to look
// at. The checks here are what a picture cannot tell by itself: the files
// are written, and the Japanese ones carry other texts than the English.

#include "core/language.h"
#include "crash/crashreportdlg.h"
#include "shotsupport.h"
#include "testenv.h"
#include "ui/aboutdlg.h"
#include "ui/hellownd.h"
#include "ui/namedlg.h"
#include "ui/optiondlg.h"
#include "ui/tryagaindlg.h"
#include "update/newestdlg.h"
#include "update/upgradedlg.h"

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QMessageBox>
#include <QPushButton>
#include <QTabWidget>

namespace {

// Shows the widget, lets it paint, saves its picture; the picture.
QImage save(QWidget& widget, const QString& language, const QString& name)
{
    widget.show();
    if (!QTest::qWaitForWindowExposed(&widget))
        return QImage();
    QTest::qWait(150); // the welcome animation shows its first frames
    const QImage image = widget.grab().toImage();
    image.save(shots::dir() + QString("/dialog-%1-%2.png").arg(language, name));
    widget.hide();
    return image;
}

} // namespace

class TestDialogShots : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(shots::useProgramSkin()); }

    void cleanupTestCase() { CLanguage::instance()->translatorLan("en"); }

    void shouldDrawEveryDialogInEnglishAndJapanese_data()
    {
        QTest::addColumn<QString>("language");
        QTest::newRow("English") << "en";
        QTest::newRow("Japanese") << "ja";
    }
    void shouldDrawEveryDialogInEnglishAndJapanese()
    {
        QFETCH(QString, language);
        CLanguage::instance()->translatorLan(language);
        CAboutDlg about;
        about.setObjectName("aboutDlg"); // as the main window names it
        CNameDlg name;
        name.setObjectName("nameDlg"); // as the convert flow names it
        name.setName("Morning Light");
        CTryAgainDlg tryAgain;
        tryAgain.setFileName("Morning Light.mp3");
        CHelloWnd hello;
        hello.setObjectName("helloWidget");
        hello.resize(677, 420);
        CUpgradeDlg upgrade;
        upgrade.setObjectName("upgradeDlg"); // as the main window names them
        upgrade.setNewInfo("<ul><li>Ringtones up to the phones' limit</li>"
                           "<li>Faster waveforms for long songs</li></ul>");
        CNewestDlg newest;
        newest.setObjectName("newestDlg");
        COptionDlg options;
        options.setObjectName("optionDlg");
        COptionDlg proxyOptions; // the same dialog on its second page
        proxyOptions.setObjectName("optionDlg");
        auto* tabs = proxyOptions.findChild<QTabWidget*>();
        tabs->setCurrentIndex(1);
        tabs->widget(1)->findChild<QCheckBox*>()->setChecked(true); // its fields in use
        CCrashReportDlg report(nullptr, false);
        // As the convert flow asks before a ringtone phones would refuse.
        QMessageBox question(QMessageBox::Warning, "Tonewright",
                             "The selection is 45 seconds long. Phones refuse ringtones of 40 "
                             "seconds or more.<br>Create it anyway?",
                             QMessageBox::Yes | QMessageBox::No);
        question.setDefaultButton(QMessageBox::No);

        for (auto [widget, tag] : {std::pair<QWidget*, const char*>{&about, "about"},
                                   {&name, "name"},
                                   {&tryAgain, "tryagain"},
                                   {&hello, "hello"},
                                   {&upgrade, "upgrade"},
                                   {&newest, "newest"},
                                   {&options, "options"},
                                   {&proxyOptions, "options-proxy"},
                                   {&report, "crashreport"},
                                   {&question, "messagebox"}}) {
            const QImage image = save(*widget, language, tag);
            QVERIFY2(!image.isNull(), tag);
            QVERIFY(QFile::exists(shots::dir() + QString("/dialog-%1-%2.png").arg(language, tag)));
        }
        const QString tryText = tryAgain.findChild<QPushButton*>("okBtn")->text();
        if (language == "ja")
            QVERIFY2(tryText != "Try again", qPrintable(tryText));
        else
            QCOMPARE(tryText, QString("Try again"));
    }
};

TW_TEST_MAIN(TestDialogShots)
#include "tst_dialogshots.moc"
