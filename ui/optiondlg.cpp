#include "ui/optiondlg.h"

#include "core/mpconfig.h"
#include "ui/ioptionpage.h"
#include "ui/optionpages.h"
#include "ui_optiondlg.h"

#include <QEvent>

COptionDlg::COptionDlg(QWidget* parent)
    : CPopDlg(parent), ui(std::make_unique<Ui::COptionDlgClass>())
{
    ui->setupUi(this);
    ui->tabWidget->setCurrentIndex(0);
    connect(ui->okBtn, &QPushButton::clicked, this, &COptionDlg::onOk);
    connect(ui->cancelBtn, &QPushButton::clicked, this, &QDialog::reject);
}

COptionDlg::~COptionDlg() = default;

void COptionDlg::onOk()
{
    // In tab order: the update page first, then the proxy page.
    for (int i = 0; i < ui->tabWidget->count(); ++i) {
        if (auto* page = dynamic_cast<IOptionPage*>(ui->tabWidget->widget(i)))
            page->save();
    }
    accept();
}

void COptionDlg::showEvent(QShowEvent* event)
{
    for (int i = 0; i < ui->tabWidget->count(); ++i) {
        if (auto* page = dynamic_cast<IOptionPage*>(ui->tabWidget->widget(i)))
            page->load();
    }
    CPopDlg::showEvent(event);
}

void COptionDlg::done(int result)
{
    // The pages write some choices into the configuration as they are made:
    // a cancelled dialog leaves it as saved.
    if (result != QDialog::Accepted)
        CMPConfig::instance()->reload();
    CPopDlg::done(result);
}

void COptionDlg::retranslate()
{
    ui->retranslateUi(this);
}

void COptionDlg::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        return;
    }
    CPopDlg::changeEvent(event);
}
