#include "ui/aboutdlg.h"

#include "core/branding.h"
#include "ui_aboutdlg.h"
#include "widgets/linktext.h"

#include <QEvent>

CAboutDlg::CAboutDlg(QWidget* parent) : CPopDlg(parent), ui(std::make_unique<Ui::CAboutClass>())
{
    ui->setupUi(this);
    retranslate();
    ui->labelSupport->setOpenExternalLinks(true);
    ui->labelHomePage->setOpenExternalLinks(true);
}

CAboutDlg::~CAboutDlg() = default;

void CAboutDlg::retranslate()
{
    ui->labelCopyright->setText(
        QObject::tr("Copyright \u00a9 2010-2026 Vandrel Software. All rights reserved."));
    const QString site = QStringLiteral("www.") + branding::domain();
    // The support link reads "/surport": the page has always been named so on it.
    ui->labelSupport->setText(QObject::tr("<p>Support: %1</p>")
                                  .arg(linkText(branding::supportPage(), site + "/surport")));
    ui->labelHomePage->setText(
        QObject::tr("<p>Home Page: %1</p>").arg(linkText(branding::homePage(), site)));
    ui->labelVersion->setText(tr("Version: ") + branding::version());
}

void CAboutDlg::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        return;
    }
    CPopDlg::changeEvent(event);
}
