#include "engine/progressdlg.h"

#include "engine/gifsupported.h"

#include <QLabel>
#include <QMovie>
#include <QVBoxLayout>

CProgressDlg::CProgressDlg(QWidget* parent)
    : QWidget(parent), m_animationLabel(nullptr), m_movie(nullptr), m_percentLabel(nullptr)
{
    auto* layout = new QVBoxLayout;
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);

    m_animationLabel = new QLabel(this);
    m_animationLabel->setAlignment(Qt::AlignCenter);
    m_movie = new QMovie(CGifSupported::getSupportedGIF() ? ":/animations/progress"
                                                          : ":/animations/helloPNG");
    if (!m_movie->isValid()) {
        // Deliberately left half-built: no layout and no percent label; a
        // wait on it shows nothing.
        delete layout;
        return;
    }
    m_animationLabel->setMovie(m_movie);
    m_movie->start();
    layout->addWidget(m_animationLabel);
    setLayout(layout);

    // Outside the layout: it sits on top of the animation, centred as it is shown.
    m_percentLabel = new QLabel(this);
    m_percentLabel->setObjectName("percentLabel");
    m_percentLabel->setAlignment(Qt::AlignCenter);
    m_percentLabel->raise();
    setPercentReport([this](int percent) { showPercent(percent); });
}

CProgressDlg::~CProgressDlg()
{
    delete m_movie;
}

void CProgressDlg::showPercent(int percent)
{
    m_percentLabel->move(width() / 2 - m_percentLabel->width() / 2,
                         height() / 2 - m_percentLabel->height() / 2);
    m_percentLabel->raise();
    m_percentLabel->setText(QString("%1%").arg(percent));
}
