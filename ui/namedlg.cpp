#include "ui/namedlg.h"

#include "ui_namedlg.h"

#include <QEvent>

CNameDlg::CNameDlg(QWidget* parent) : CPopDlg(parent), ui(std::make_unique<Ui::CNameDlgClass>())
{
    ui->setupUi(this);
    connect(ui->okBtn, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui->cancelBtn, &QPushButton::clicked, this, &QDialog::reject);
}

CNameDlg::~CNameDlg() = default;

void CNameDlg::setName(const QString& name)
{
    ui->lineEdit->setText(name);
}

void CNameDlg::selectName()
{
    ui->lineEdit->selectAll();
    ui->lineEdit->setFocus();
}

QString CNameDlg::getName() const
{
    return ui->lineEdit->text();
}

void CNameDlg::retranslate()
{
    // Empty on purpose: the form set its texts once, when it was built.
}

void CNameDlg::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        return;
    }
    CPopDlg::changeEvent(event);
}
