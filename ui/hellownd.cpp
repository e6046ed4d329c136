#include "ui/hellownd.h"

#include "core/branding.h"
#include "engine/gifsupported.h"
#include "engine/timelinehelper.h"

#include <QDesktopServices>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QEvent>
#include <QLabel>
#include <QMimeData>
#include <QMovie>
#include <QPushButton>
#include <QResizeEvent>
#include <QUrl>

namespace {

// The animation is drawn at twice its size on screen, sharp on high-density
// screens and smoothly reduced on others.
constexpr qreal kAnimationScale = 2.0;
constexpr int kStripHeight = 66;
const QRect kHintGeometry(260, 225, 400, 50);

} // namespace

CHelloWnd::CHelloWnd(QWidget* parent) : QWidget(parent), m_animationLabel(new QLabel(this))
{
    setAcceptDrops(true);
    m_animationLabel->setObjectName("helloAnimation");
    m_animationLabel->setAlignment(Qt::AlignCenter);
    m_movie = new QMovie(CGifSupported::getSupportedGIF() ? ":/animations/hello"
                                                          : ":/animations/helloPNG",
                         QByteArray(), this);
    // Without its animation the pane stays a bare drop target, deliberately.
    if (!m_movie->isValid())
        return;
    connect(m_movie, &QMovie::frameChanged, this, &CHelloWnd::showFrame);
    m_movie->start();

    m_hintLabel = new QLabel(this);
    m_hintLabel->setObjectName("helloHint");
    m_hintLabel->setGeometry(kHintGeometry);
    m_advertisement = new QWidget(this);
    m_advertisement->setObjectName("advertisement");
    m_advertisementBtn = new QPushButton(this);
    m_advertisementBtn->setObjectName("advertisementBtn");
    m_advertisementBtn->setCursor(Qt::PointingHandCursor);
    connect(m_advertisementBtn, &QPushButton::clicked, this, &CHelloWnd::learnMore);
    m_advertisement->hide();
    m_advertisementBtn->hide();
    retranslate();
}

void CHelloWnd::showFrame()
{
    QPixmap frame = m_movie->currentPixmap();
    const qreal screen = devicePixelRatioF();
    if (screen != kAnimationScale) {
        const QSize target = (QSizeF(frame.size()) * (screen / kAnimationScale)).toSize();
        frame = frame.scaled(target, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }
    frame.setDevicePixelRatio(screen);
    m_animationLabel->setPixmap(frame);
}

void CHelloWnd::retranslate()
{
    if (m_advertisementBtn)
        m_advertisementBtn->setText(tr("Learn More"));
    if (m_hintLabel)
        m_hintLabel->setText(QObject::tr(
            "<html><head><style type=\"text/css\">body { font-family: Arial; font-size: 12px; "
            "color: #333; }</style></head><body><p align=\"left\" style=\"font-family: Verdana, "
            "Geneva, sans-serif; font-weight: bold; color: #626567; text-shadow: 1px 1px 2px "
            "#fff;\">Please select file in the left list,<br />Or drag a song or movie file into "
            "the window.</p></body></html>"));
}

void CHelloWnd::learnMore()
{
    QDesktopServices::openUrl(QUrl(branding::storePage()));
}

void CHelloWnd::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    // The animation is centred in the band above the hint.
    m_animationLabel->setGeometry(0, 0, width(), kHintGeometry.top());
    if (m_advertisement)
        m_advertisement->setGeometry(0, height() - kStripHeight, width(), kStripHeight);
    if (m_advertisementBtn)
        m_advertisementBtn->move(width() - 150, height() - 40);
    if (m_hintLabel)
        m_hintLabel->setGeometry(kHintGeometry);
}

void CHelloWnd::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        return;
    }
    QWidget::changeEvent(event);
}

void CHelloWnd::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasFormat("text/uri-list"))
        event->acceptProposedAction();
}

void CHelloWnd::dropEvent(QDropEvent* event)
{
    const QList<QUrl> urls = event->mimeData()->urls();
    if (urls.isEmpty())
        return;
    // Only the first of several dropped files is opened.
    const QString path = urls.first().toLocalFile();
    if (path.isEmpty() || !CTimeLineHelper::haveAudio(path.toLocal8Bit().constData()))
        return;
    event->acceptProposedAction();
    emit openWave(path);
}
