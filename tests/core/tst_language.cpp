// The language switcher: which translators it installs for each choice and
// fallback, the log line, and open dialogs retranslating themselves at once.
// It looks up its files in the current directory; each test runs in a folder
// of its own holding copies of the compiled files it should find there.

#include "core/language.h"
#include "testenv.h"
#include "ui/aboutdlg.h"
#include "ui/tryagaindlg.h"

#include <QCoreApplication>
#include <QDir>
#include <QEvent>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>

namespace {

QStringList* g_log = nullptr;

void capture(QtMsgType, const QMessageLogContext&, const QString& text)
{
    if (g_log)
        g_log->append(text);
}

// Counts the language-change events a widget receives.
class LanguageWatcher : public QObject
{
public:
    int changes = 0;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::LanguageChange)
            ++changes;
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

class TestLanguage : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> m_dir;
    QString m_previous;

    // A current directory holding copies of these files from beside the program.
    bool useFolderWith(const QStringList& files)
    {
        m_dir = std::make_unique<QTemporaryDir>();
        if (!m_dir->isValid())
            return false;
        for (const QString& name : files)
            if (!QFile::copy(QStringLiteral(TW_BINARY_DIR "/") + name, m_dir->filePath(name)))
                return false;
        return QDir::setCurrent(m_dir->path());
    }

    static QString fileName(const QString& path) { return QFileInfo(path).fileName(); }

    static QStringList everyFile()
    {
        QStringList files;
        for (const char* code : {"en", "fr", "ja", "de", "es", "it", "nl", "pt", "zh"}) {
            files << QString("Tonewright_%1.qm").arg(code) << QString("qt_%1.qm").arg(code);
        }
        // What each qt_<code>.qm loads with it.
        for (const char* code : {"en", "fr", "ja", "de", "es", "it", "nl", "pt_BR", "zh_CN"})
            files << QString("qtbase_%1.qm").arg(code) << QString("qtmultimedia_%1.qm").arg(code);
        return files;
    }

private slots:
    void initTestCase() { m_previous = QDir::currentPath(); }

    void cleanupTestCase()
    {
        CLanguage::instance()->translatorLan("en");
        QDir::setCurrent(m_previous);
    }

    void shouldInstallFrenchAndRetranslateOpenDialogsAtOnce()
    {
        QVERIFY(useFolderWith(everyFile()));
        CLanguage::instance()->translatorLan("en");
        CTryAgainDlg tryAgain;
        tryAgain.setFileName("song");
        CAboutDlg about;
        tryAgain.show();
        about.show();
        auto* ok = tryAgain.findChild<QPushButton*>("okBtn");
        auto* version = about.findChild<QLabel*>("labelVersion");
        QCOMPARE(ok->text(), QString("Try again"));
        QVERIFY(version->text().startsWith("Version: "));

        QStringList log;
        g_log = &log;
        const QtMessageHandler previous = qInstallMessageHandler(capture);
        CLanguage::instance()->translatorLan("fr");
        qInstallMessageHandler(previous);
        g_log = nullptr;
        QCOMPARE(log, QStringList({"change language: fr"}));
        QCOMPARE(fileName(CLanguage::instance()->appTranslatorFile()), QString("Tonewright_fr.qm"));
        QCOMPARE(fileName(CLanguage::instance()->qtTranslatorFile()), QString("qt_fr.qm"));
        // The events are posted: the dialogs change when they are delivered.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LanguageChange);
        QCOMPARE(ok->text(), QCoreApplication::translate("CTryAgainDlg", "Try again"));
        QVERIFY(ok->text() != "Try again");
        QVERIFY(!version->text().startsWith("Version: "));
        QVERIFY(version->text().endsWith("1.4.0"));
        // The toolkit's own texts are French too.
        QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"), QString("Annuler"));
    }

    void shouldFallBackToEnglishWhenTheLanguagesFileIsMissing()
    {
        QStringList files = everyFile();
        files.removeAll("Tonewright_nl.qm");
        QVERIFY(useFolderWith(files));
        CLanguage::instance()->translatorLan("nl");
        QCOMPARE(fileName(CLanguage::instance()->appTranslatorFile()), QString("Tonewright_en.qm"));
        // The toolkit's Dutch is there, and still installed.
        QCOMPARE(fileName(CLanguage::instance()->qtTranslatorFile()), QString("qt_nl.qm"));
    }

    void shouldRunOnBuiltInTextsWithoutAnyFile()
    {
        QVERIFY(useFolderWith({}));
        CLanguage::instance()->translatorLan("de");
        QVERIFY(!CLanguage::instance()->hasAppTranslator());
        QVERIFY(!CLanguage::instance()->hasQtTranslator());
        CTryAgainDlg tryAgain;
        QCOMPARE(tryAgain.findChild<QPushButton*>("okBtn")->text(), QString("Try again"));
    }

    void shouldInstallOnlyTheProgramsEnglishForEnglish()
    {
        QVERIFY(useFolderWith(everyFile()));
        CLanguage::instance()->translatorLan("ja");
        QVERIFY(CLanguage::instance()->hasQtTranslator());
        CLanguage::instance()->translatorLan("en");
        QCOMPARE(fileName(CLanguage::instance()->appTranslatorFile()), QString("Tonewright_en.qm"));
        QVERIFY(!CLanguage::instance()->hasQtTranslator());
    }

    void shouldResolveARegionalCodeToTheLanguagesFile()
    {
        // Only the English files: en_US is not "en", and the lookup shortens
        // Tonewright_en_US to Tonewright_en and qt_en_US to qt_en.
        QVERIFY(useFolderWith({"Tonewright_en.qm", "qt_en.qm"}));
        CLanguage::instance()->translatorLan("en_US");
        QCOMPARE(fileName(CLanguage::instance()->appTranslatorFile()), QString("Tonewright_en.qm"));
        QCOMPARE(fileName(CLanguage::instance()->qtTranslatorFile()), QString("qt_en.qm"));
    }

    void shouldTakeTheSystemLocaleForAnEmptyCode()
    {
        QVERIFY(useFolderWith(everyFile()));
        QStringList log;
        g_log = &log;
        const QtMessageHandler previous = qInstallMessageHandler(capture);
        CLanguage::instance()->translatorLan(QString());
        qInstallMessageHandler(previous);
        g_log = nullptr;
        QCOMPARE(log, QStringList({"change language: " + QLocale::system().name()}));
    }

    void shouldRebuildAndRetranslateWhenTheSameLanguageIsChosenAgain()
    {
        QVERIFY(useFolderWith(everyFile()));
        CLanguage::instance()->translatorLan("it");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LanguageChange);
        CTryAgainDlg dialog;
        LanguageWatcher watcher;
        dialog.installEventFilter(&watcher);
        auto* ok = dialog.findChild<QPushButton*>("okBtn");
        ok->setText("changed by hand");
        CLanguage::instance()->translatorLan("it");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LanguageChange);
        QVERIFY(watcher.changes >= 1);
        QCOMPARE(ok->text(), QCoreApplication::translate("CTryAgainDlg", "Try again"));
        QCOMPARE(fileName(CLanguage::instance()->appTranslatorFile()), QString("Tonewright_it.qm"));
    }
};

TW_TEST_MAIN(TestLanguage)
#include "tst_language.moc"
