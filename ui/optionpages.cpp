#include "ui/optionpages.h"

#include "core/mpconfig.h"

#include <QEvent>

namespace {

// The spin box's top is 356 days, deliberately not a year's length.
constexpr int kMaxIntervalDays = 356;
constexpr int kDay = 1;
constexpr int kWeek = 7;
constexpr int kMonth = 30;

} // namespace

// --- update page -------------------------------------------------------------

CUpdateOptionWidget::CUpdateOptionWidget(QWidget* parent) : QWidget(parent)
{
    setupUi(this);
    spinBox->setRange(1, kMaxIntervalDays);
    // Loaded before the slots are connected: nothing is written here.
    load();
    connect(checkBox, &QCheckBox::stateChanged, this, &CUpdateOptionWidget::autoUpdateChanged);
    connect(numRBtn, &QRadioButton::clicked, this, &CUpdateOptionWidget::enableNum);
    connect(dayRBtn, &QRadioButton::clicked, this, &CUpdateOptionWidget::setDayUpdate);
    connect(weekRBtn, &QRadioButton::clicked, this, &CUpdateOptionWidget::setWeekUpdate);
    connect(monthRBtn, &QRadioButton::clicked, this, &CUpdateOptionWidget::setMonthUpdate);
    connect(spinBox, &QSpinBox::valueChanged, this, &CUpdateOptionWidget::setNumUpdate);
}

void CUpdateOptionWidget::load()
{
    CMPConfig* config = CMPConfig::instance();
    config->reload();
    checkBox->setChecked(config->bAutoUpdate);
    groupBox->setEnabled(config->bAutoUpdate);
    spinBox->setValue(config->nInterval);
    spinBox->setEnabled(false);
    // A radio button's click writes the interval it stands for, which is
    // the one just read.
    switch (config->nInterval) {
    case kWeek:
        weekRBtn->click();
        break;
    case kMonth:
        monthRBtn->click();
        break;
    case kDay:
        dayRBtn->click();
        break;
    default:
        numRBtn->click();
        spinBox->setEnabled(true);
        break;
    }
}

void CUpdateOptionWidget::autoUpdateChanged(int state)
{
    // The box only enables the schedule: "Update/AutoUpdate" is never
    // written from here, on purpose.
    groupBox->setEnabled(state == Qt::Checked);
}

void CUpdateOptionWidget::enableNum()
{
    spinBox->setEnabled(true);
}

void CUpdateOptionWidget::setDayUpdate()
{
    spinBox->setEnabled(false);
    CMPConfig::instance()->nInterval = kDay;
}

void CUpdateOptionWidget::setWeekUpdate()
{
    spinBox->setEnabled(false);
    CMPConfig::instance()->nInterval = kWeek;
}

void CUpdateOptionWidget::setMonthUpdate()
{
    spinBox->setEnabled(false);
    CMPConfig::instance()->nInterval = kMonth;
}

void CUpdateOptionWidget::setNumUpdate(int days)
{
    CMPConfig::instance()->nInterval = days;
}

void CUpdateOptionWidget::save()
{
    // The interval is in the configuration already.
    CMPConfig::instance()->save();
}

void CUpdateOptionWidget::retranslate()
{
    retranslateUi(this);
}

void CUpdateOptionWidget::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        return;
    }
    QWidget::changeEvent(event);
}

// --- proxy page --------------------------------------------------------------

CProxyOptionWidget::CProxyOptionWidget(QWidget* parent) : QWidget(parent)
{
    setupUi(this);
    fillProxyTypes();
    load();
    connect(checkBox, &QCheckBox::stateChanged, this, &CProxyOptionWidget::useProxyChanged);
}

void CProxyOptionWidget::load()
{
    CMPConfig* config = CMPConfig::instance();
    config->reload();
    hostEdit->setText(config->strHost);
    portEdit->setText(QString::number(config->nPort));
    userNameEdit->setText(config->strUserName);
    // Shown as typed: the password is kept in clear text anyway.
    PasswordEdit->setText(config->strPassWord);
    // The type is a row, not looked up by the entries' data.
    proxyTypecomboBox->setCurrentIndex(config->nProxyType);
    checkBox->setChecked(config->bUseProxy);
    groupBox->setEnabled(config->bUseProxy);
}

void CProxyOptionWidget::fillProxyTypes()
{
    const int current = proxyTypecomboBox->currentIndex();
    proxyTypecomboBox->clear();
    proxyTypecomboBox->addItem(tr("Http"), 0);
    proxyTypecomboBox->addItem(tr("Socks5"), 1);
    proxyTypecomboBox->addItem(tr("HttpCaching"), 2);
    proxyTypecomboBox->addItem(tr("FtpCaching"), 3);
    proxyTypecomboBox->setCurrentIndex(current);
}

void CProxyOptionWidget::useProxyChanged(int state)
{
    // Partly checked counts as off.
    groupBox->setEnabled(state == Qt::Checked);
}

void CProxyOptionWidget::save()
{
    CMPConfig* config = CMPConfig::instance();
    config->strHost = hostEdit->text();
    config->nPort = portEdit->text().toInt(nullptr, 10); // "80a" is 0: nothing is refused
    config->nProxyType = proxyTypecomboBox->currentData().toInt();
    config->bUseProxy = checkBox->checkState() != Qt::Unchecked;
    config->strUserName = userNameEdit->text();
    config->strPassWord = PasswordEdit->text();
    config->save();
}

void CProxyOptionWidget::retranslate()
{
    retranslateUi(this);
    fillProxyTypes();
}

void CProxyOptionWidget::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        return;
    }
    QWidget::changeEvent(event);
}
