#include "ui/tryagaindlg.h"

#include <QEvent>
#include <QLabel>
#include <QPushButton>

namespace {
constexpr int kWidth = 520;
constexpr int kHeight = 240;
} // namespace

CTryAgainDlg::CTryAgainDlg(QWidget* parent)
    : CPopDlg(parent), m_message(new QLabel(this)), m_okBtn(new QPushButton(this)),
      m_cancelBtn(new QPushButton(this))
{
    setObjectName("tryAgainDlg");
    resize(kWidth, kHeight);
    m_message->setObjectName("messageLabel");
    m_message->setGeometry(30, 100, 450, 81);
    m_message->setWordWrap(true);
    m_message->setOpenExternalLinks(true);
    m_okBtn->setObjectName("okBtn");
    m_okBtn->setGeometry(160, 200, 75, 23);
    m_okBtn->setDefault(true);
    m_cancelBtn->setObjectName("cancelBtn");
    m_cancelBtn->setGeometry(290, 200, 75, 23);
    connect(m_okBtn, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_cancelBtn, &QPushButton::clicked, this, &QDialog::reject);
    retranslate();
}

void CTryAgainDlg::setFileName(const QString& name)
{
    m_fileName = name;
    retranslate();
}

void CTryAgainDlg::retranslate()
{
    m_message->setText(
        QObject::tr("<html><body>"
                    "<p style=\"margin:0px;\">Sorry, the file &quot;%1&quot; is not converted "
                    "correctly.</p>"
                    "<p style=\"margin:0px;\">Something wrong happened.</p>"
                    "<p style=\"margin:0px;\">Please try again or import another file.</p>"
                    "</body></html>")
            .arg(m_fileName.toHtmlEscaped()));
    m_okBtn->setText(tr("Try again"));
    m_cancelBtn->setText(tr("Cancel"));
}

void CTryAgainDlg::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        return;
    }
    CPopDlg::changeEvent(event);
}
