// The options dialog: its form, the update page writing intervals into the
// configuration at once, the proxy page writing on OK, and what is stored.

#include "core/mpconfig.h"
#include "testenv.h"
#include "ui/optiondlg.h"
#include "ui/optionpages.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QSpinBox>
#include <QTabWidget>

namespace {

void store(const QString& key, const QVariant& value)
{
    QSettings settings;
    settings.setValue(key, value);
}

QVariant stored(const QString& key)
{
    QSettings settings;
    return settings.value(key);
}

template <typename T> T* child(QWidget& parent, const char* name)
{
    return parent.findChild<T*>(name);
}

} // namespace

class TestOptionDlg : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        QSettings().clear();
        CMPConfig::instance()->reload();
    }

    void shouldBuildTheFormWithTheUpdatePageFirst()
    {
        COptionDlg dialog;
        QCOMPARE(dialog.size(), QSize(491, 310));
        QCOMPARE(dialog.windowTitle(), QString(" "));
        QCOMPARE(child<QPushButton>(dialog, "okBtn")->geometry(), QRect(160, 280, 75, 23));
        QCOMPARE(child<QPushButton>(dialog, "okBtn")->text(), QString("Ok"));
        QCOMPARE(child<QPushButton>(dialog, "cancelBtn")->geometry(), QRect(290, 280, 75, 23));
        QCOMPARE(child<QPushButton>(dialog, "cancelBtn")->text(), QString("Cancel"));
        QCOMPARE(child<QWidget>(dialog, "horizontalLayoutWidget")->geometry(),
                 QRect(30, 90, 421, 181));
        auto* tabs = child<QTabWidget>(dialog, "tabWidget");
        QCOMPARE(tabs->count(), 2);
        QCOMPARE(tabs->currentIndex(), 0);
        QCOMPARE(tabs->tabText(0), QString("Update"));
        QCOMPARE(tabs->tabText(1), QString("Proxy"));
        QVERIFY(qobject_cast<CUpdateOptionWidget*>(tabs->widget(0)));
        QCOMPARE(tabs->widget(0)->objectName(), QString("tab"));
        QVERIFY(qobject_cast<CProxyOptionWidget*>(tabs->widget(1)));
        QCOMPARE(tabs->widget(1)->objectName(), QString("tab_2"));
        auto* proxy = qobject_cast<CProxyOptionWidget*>(tabs->widget(1));
        QStringList types;
        QList<int> data;
        for (int i = 0; i < proxy->proxyTypecomboBox->count(); ++i) {
            types << proxy->proxyTypecomboBox->itemText(i);
            data << proxy->proxyTypecomboBox->itemData(i).toInt();
        }
        QCOMPARE(types, QStringList({"Http", "Socks5", "HttpCaching", "FtpCaching"}));
        QCOMPARE(data, QList<int>({0, 1, 2, 3}));
        QCOMPARE(proxy->PasswordEdit->echoMode(), QLineEdit::Normal);
    }

    void shouldStoreTheChosenInterval_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<int>("typed");
        QTest::addColumn<int>("interval");
        QTest::newRow("every month") << "monthRBtn" << -1 << 30;
        QTest::newRow("every day") << "dayRBtn" << -1 << 1;
        QTest::newRow("every week") << "weekRBtn" << -1 << 7;
        QTest::newRow("12 days") << "numRBtn" << 12 << 12;
    }
    void shouldStoreTheChosenInterval()
    {
        QFETCH(QString, button);
        QFETCH(int, typed);
        QFETCH(int, interval);
        store("Update/Interval", 5);
        CMPConfig::instance()->reload();
        COptionDlg dialog;
        auto* page = dialog.findChild<CUpdateOptionWidget*>();
        page->findChild<QRadioButton*>(button)->click();
        if (typed > 0) {
            QVERIFY(page->spinBox->isEnabled());
            page->spinBox->setValue(typed);
        }
        child<QPushButton>(dialog, "okBtn")->click();
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QCOMPARE(stored("Update/Interval").toInt(), interval);
    }

    void shouldKeepTheWeekWhenNumberOfDaysIsOnlyClicked()
    {
        COptionDlg dialog; // a fresh account: every week
        auto* page = dialog.findChild<CUpdateOptionWidget*>();
        QVERIFY(page->weekRBtn->isChecked());
        QVERIFY(!page->spinBox->isEnabled());
        page->numRBtn->click();
        QVERIFY(page->spinBox->isEnabled());
        QCOMPARE(CMPConfig::instance()->nInterval, 7);
        page->spinBox->setValue(9);
        QCOMPARE(CMPConfig::instance()->nInterval, 9);
    }

    void shouldOpenOnAStoredNumberOfDays_data()
    {
        QTest::addColumn<int>("stored");
        QTest::addColumn<int>("shown");
        QTest::newRow("14") << 14 << 14;
        QTest::newRow("400 shows the 356 top") << 400 << 356;
    }
    void shouldOpenOnAStoredNumberOfDays()
    {
        QFETCH(int, stored);
        QFETCH(int, shown);
        store("Update/Interval", stored);
        CMPConfig::instance()->reload();
        COptionDlg dialog;
        auto* page = dialog.findChild<CUpdateOptionWidget*>();
        QVERIFY(page->numRBtn->isChecked());
        QVERIFY(page->spinBox->isEnabled());
        QCOMPARE(page->spinBox->value(), shown);
        QCOMPARE(page->spinBox->maximum(), 356);
        // Built without writing: the configuration keeps what was stored.
        QCOMPARE(CMPConfig::instance()->nInterval, stored);
    }

    void shouldForgetACancelledInterval()
    {
        COptionDlg dialog;
        dialog.show();
        auto* page = dialog.findChild<CUpdateOptionWidget*>();
        page->monthRBtn->click();
        QCOMPARE(CMPConfig::instance()->nInterval, 30); // chosen, in memory
        child<QPushButton>(dialog, "cancelBtn")->click();
        QCOMPARE(dialog.result(), int(QDialog::Rejected));
        QCOMPARE(CMPConfig::instance()->nInterval, 7);
        QVERIFY(!stored("Update/Interval").isValid());
        // Opened again, it shows the week; a later OK saves the week.
        dialog.show();
        QVERIFY(page->weekRBtn->isChecked());
        child<QPushButton>(dialog, "okBtn")->click();
        QCOMPARE(stored("Update/Interval").toInt(), 7);
    }

    void shouldShowTheSavedProxyEveryTimeItOpens()
    {
        COptionDlg dialog;
        dialog.show();
        auto* page = dialog.findChild<CProxyOptionWidget*>();
        QVERIFY(!page->checkBox->isChecked());
        page->checkBox->setChecked(true);
        page->hostEdit->setText("typed.local");
        page->portEdit->setText("3128");
        child<QPushButton>(dialog, "cancelBtn")->click();
        QVERIFY(!stored("Proxy/useProxy").isValid());

        dialog.show();
        QVERIFY(!page->checkBox->isChecked());
        QVERIFY(!page->groupBox->isEnabled());
        QCOMPARE(page->hostEdit->text(), QString());
        QCOMPARE(page->portEdit->text(), QString("80"));
        // A later OK saves what is shown, not what was cancelled.
        child<QPushButton>(dialog, "okBtn")->click();
        QCOMPARE(stored("Proxy/useProxy").toBool(), false);
        QCOMPARE(stored("Proxy/Host").toString(), QString());
        QCOMPARE(stored("Proxy/Port").toInt(), 80);

        // What was saved meanwhile is what the next opening shows.
        store("Proxy/Host", "saved.local");
        dialog.show();
        QCOMPARE(page->hostEdit->text(), QString("saved.local"));
        dialog.reject();
    }

    void shouldNeverWriteTheAutomaticSwitch()
    {
        COptionDlg dialog;
        auto* page = dialog.findChild<CUpdateOptionWidget*>();
        QVERIFY(page->checkBox->isChecked());
        QVERIFY(page->groupBox->isEnabled());
        page->checkBox->setChecked(false);
        QVERIFY(!page->groupBox->isEnabled());
        child<QPushButton>(dialog, "okBtn")->click();
        QCOMPARE(stored("Update/AutoUpdate").toBool(), true);
    }

    void shouldSaveTheProxyAsShown()
    {
        store("Proxy/useProxy", true);
        store("Proxy/Host", "proxy.local");
        store("Proxy/Port", 8080);
        store("Proxy/Type", 2);
        store("Proxy/UserName", "me");
        store("Proxy/PassWord", "secret");
        COptionDlg dialog;
        auto* page = dialog.findChild<CProxyOptionWidget*>();
        QCOMPARE(page->hostEdit->text(), QString("proxy.local"));
        QCOMPARE(page->portEdit->text(), QString("8080"));
        QCOMPARE(page->proxyTypecomboBox->currentIndex(), 2);
        QCOMPARE(page->userNameEdit->text(), QString("me"));
        QCOMPARE(page->PasswordEdit->text(), QString("secret"));
        QVERIFY(page->checkBox->isChecked());
        QVERIFY(page->groupBox->isEnabled());
        // Switched off: the rest is kept as shown.
        page->checkBox->setChecked(false);
        QVERIFY(!page->groupBox->isEnabled());
        child<QPushButton>(dialog, "okBtn")->click();
        QCOMPARE(stored("Proxy/useProxy").toBool(), false);
        QCOMPARE(stored("Proxy/Host").toString(), QString("proxy.local"));
        QCOMPARE(stored("Proxy/Port").toInt(), 8080);
        QCOMPARE(stored("Proxy/Type").toInt(), 2);
        QCOMPARE(stored("Proxy/UserName").toString(), QString("me"));
        QCOMPARE(stored("Proxy/PassWord").toString(), QString("secret"));
    }

    void shouldSaveAPortThatIsNotANumberAsZero()
    {
        COptionDlg dialog;
        auto* page = dialog.findChild<CProxyOptionWidget*>();
        page->checkBox->setCheckState(Qt::PartiallyChecked);
        QVERIFY(!page->groupBox->isEnabled()); // partly on is off for the fields
        page->portEdit->setText("80a");
        page->hostEdit->clear();
        page->proxyTypecomboBox->setCurrentIndex(1);
        child<QPushButton>(dialog, "okBtn")->click();
        QCOMPARE(stored("Proxy/Port").toInt(), 0);
        QCOMPARE(stored("Proxy/Host").toString(), QString());
        QCOMPARE(stored("Proxy/Type").toInt(), 1);
        QCOMPARE(stored("Proxy/useProxy").toBool(), true); // not unchecked
    }

    void shouldRetranslateItsPages()
    {
        COptionDlg dialog;
        auto* page = dialog.findChild<CUpdateOptionWidget*>();
        page->dayRBtn->setText("x");
        QEvent change(QEvent::LanguageChange);
        QCoreApplication::sendEvent(page, &change);
        QCOMPARE(page->dayRBtn->text(), QString("Update every day"));
        auto* tabs = child<QTabWidget>(dialog, "tabWidget");
        tabs->setTabText(0, "y");
        QCoreApplication::sendEvent(&dialog, &change);
        QCOMPARE(tabs->tabText(0), QString("Update"));
    }
};

TW_TEST_MAIN(TestOptionDlg)
#include "tst_optiondlg.moc"
