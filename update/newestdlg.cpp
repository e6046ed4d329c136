#include "update/newestdlg.h"

#include "ui_newestdlg.h"

#include <QEvent>

CNewestDlg::CNewestDlg(QWidget* parent)
    : CPopDlg(parent), ui(std::make_unique<Ui::CNewestDlgClass>())
{
    ui->setupUi(this);
    connect(ui->pushButton, &QPushButton::clicked, this, &QDialog::accept);
    retranslate();
}

CNewestDlg::~CNewestDlg() = default;

void CNewestDlg::retranslate()
{
    ui->retranslateUi(this);
    ui->labelNewest->setText(
        QObject::tr("<html><body><p style=\"margin:0px;\"><span style=\"font-weight:600;\">You "
                    "are using the newest version now!</span></p></body></html>"));
}

void CNewestDlg::setNote(const QString& note)
{
    ui->labelNewest->setText(note);
}

void CNewestDlg::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        return;
    }
    CPopDlg::changeEvent(event);
}
