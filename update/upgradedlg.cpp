#include "update/upgradedlg.h"

#include "ui_upgradedlg.h"

#include <QDesktopServices>
#include <QEvent>
#include <QUrl>

CUpgradeDlg::CUpgradeDlg(QWidget* parent)
    : CPopDlg(parent), ui(std::make_unique<Ui::CUpgradeClass>())
{
    ui->setupUi(this);
    connect(ui->updateBtn, &QPushButton::clicked, this, &CUpgradeDlg::download);
    connect(ui->cancelBtn, &QPushButton::clicked, this, &QDialog::reject);
    retranslate();
}

CUpgradeDlg::~CUpgradeDlg() = default;

void CUpgradeDlg::retranslate()
{
    ui->retranslateUi(this);
    // "avaliable" is spelt so on purpose, in the text and in the label's name.
    ui->labelNewAvaliable->setText(
        tr("<html><body><p style=\"margin-top:12px; margin-bottom:12px;\"><span "
           "style=\"font-weight:600;\">A new version is avaliable now! </span></p></body></html>"));
    ui->labelWhatNew->setText(tr("What's new for this version:"));
}

void CUpgradeDlg::setNewInfo(QString info)
{
    ui->textEdit->setHtml(info);
}

void CUpgradeDlg::setDownLoadUrl(const QString& url)
{
    m_downloadUrl = url;
}

void CUpgradeDlg::download()
{
    QDesktopServices::openUrl(QUrl(m_downloadUrl, QUrl::TolerantMode));
    accept();
}

void CUpgradeDlg::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        return;
    }
    CPopDlg::changeEvent(event);
}
