#include "ui/tryagaindlg.h"

#include "editor/wavemodel.h"

#include <QEvent>
#include <QLabel>
#include <QPushButton>

namespace {
constexpr int kWidth = 520;
constexpr int kHeight = 240;
constexpr int kButtonY = 200;
constexpr int kCancelX = 290;
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
    m_okBtn->setGeometry(160, kButtonY, 75, 23);
    m_okBtn->setDefault(true);
    m_cancelBtn->setObjectName("cancelBtn");
    m_cancelBtn->setGeometry(kCancelX, kButtonY, 75, 23);
    connect(m_okBtn, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_cancelBtn, &QPushButton::clicked, this, &QDialog::reject);
    retranslate();
}

void CTryAgainDlg::setFileName(const QString& name)
{
    m_fileName = name;
    retranslate();
}

void CTryAgainDlg::setProblem(SourceProblem problem)
{
    m_problem = problem;
    const bool again = canTryAgain(problem);
    m_okBtn->setVisible(again);
    m_okBtn->setDefault(again);
    m_cancelBtn->setDefault(!again);
    // The one button sits where the two would be centred.
    m_cancelBtn->move(again ? kCancelX : (kWidth - m_cancelBtn->width()) / 2, kButtonY);
    retranslate();
}

bool CTryAgainDlg::canTryAgain(SourceProblem problem)
{
    return problem == SourceProblem::None || problem == SourceProblem::Unreadable;
}

void CTryAgainDlg::retranslate()
{
    const QString name = m_fileName.toHtmlEscaped();
    auto paragraphs = [](const QString& first, const QString& second) {
        return "<html><body><p style=\"margin:0px;\">" + first + "</p><p style=\"margin:0px;\">" +
               second + "</p></body></html>";
    };
    switch (m_problem) {
    case SourceProblem::None:
        m_message->setText(
            QObject::tr("<html><body>"
                        "<p style=\"margin:0px;\">Sorry, the file &quot;%1&quot; is not converted "
                        "correctly.</p>"
                        "<p style=\"margin:0px;\">Something wrong happened.</p>"
                        "<p style=\"margin:0px;\">Please try again or import another file.</p>"
                        "</body></html>")
                .arg(name));
        break;
    case SourceProblem::Unreadable:
        m_message->setText(
            paragraphs(tr("Sorry, the file &quot;%1&quot; could not be read.").arg(name),
                       tr("Check that it is still there, then try again.")));
        break;
    case SourceProblem::NotMedia:
        m_message->setText(paragraphs(tr("&quot;%1&quot; is not a media file.").arg(name),
                                      tr("Choose a song or a video.")));
        break;
    case SourceProblem::NoSound:
        m_message->setText(paragraphs(tr("&quot;%1&quot; has no sound in it.").arg(name),
                                      tr("Choose a song or a video with sound.")));
        break;
    case SourceProblem::TooShort:
        m_message->setText(
            paragraphs(tr("&quot;%1&quot; is too short.").arg(name),
                       tr("The shortest ringtone is %1 seconds.").arg(kMinSelection / 1000)));
        break;
    case SourceProblem::TooLong:
        m_message->setText(paragraphs(tr("&quot;%1&quot; is too long.").arg(name),
                                      tr("The editor opens up to %1 hours %2 minutes of sound.")
                                          .arg(kEditorMaxSoundMs / 3600000)
                                          .arg(kEditorMaxSoundMs / 60000 % 60)));
        break;
    case SourceProblem::NotAFile:
        m_message->setText(paragraphs(tr("&quot;%1&quot; is not a file.").arg(name),
                                      tr("Pipes and devices cannot be opened. Choose a song or "
                                         "a video.")));
        break;
    }
    m_okBtn->setText(tr("Try again"));
    m_cancelBtn->setText(canTryAgain(m_problem) ? tr("Cancel") : tr("OK"));
}

void CTryAgainDlg::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        return;
    }
    CPopDlg::changeEvent(event);
}
