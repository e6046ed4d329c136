#include "videownd.h"

#include <QPaintEvent>
#include <QPainter>

CVideoWnd::CVideoWnd(QWidget* parent) : QWidget(parent)
{
    m_surface.base.pfnTargetSize = &CVideoWnd::targetSize;
    m_surface.base.pfnShowFrame = &CVideoWnd::showFrame;
    m_surface.owner = this;
    setAttribute(Qt::WA_OpaquePaintEvent);
    updateTargetSize();
}

CVideoWnd::~CVideoWnd()
{
    // After this no player calls the surface any more.
    VexaRemoveEnvironment(surface());
}

QImage CVideoWnd::frame() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_frame;
}

qint64 CVideoWnd::framePosition() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_position;
}

void CVideoWnd::targetSize(tagVexaSurface* surface, int32_t* width, int32_t* height)
{
    const CVideoWnd* self = reinterpret_cast<Surface*>(surface)->owner;
    *width = self->m_targetWidth.load();
    *height = self->m_targetHeight.load();
}

void CVideoWnd::showFrame(tagVexaSurface* surface, const uint8_t* pixels, int32_t width,
                          int32_t height, int32_t stride, int64_t position)
{
    CVideoWnd* self = reinterpret_cast<Surface*>(surface)->owner;
    // The one copy of a picture, made here on the player's thread.
    QImage image = QImage(pixels, width, height, stride, QImage::Format_RGB32).copy();
    {
        std::lock_guard<std::mutex> lock(self->m_mutex);
        self->m_frame = std::move(image);
        self->m_position = position;
    }
    self->m_frames.fetch_add(1);
    // One repaint asked for at a time; it paints whatever picture is newest.
    if (!self->m_updatePending.exchange(true))
        QMetaObject::invokeMethod(self, qOverload<>(&QWidget::update), Qt::QueuedConnection);
}

void CVideoWnd::updateTargetSize()
{
    const qreal ratio = devicePixelRatioF();
    m_targetWidth.store(qRound(width() * ratio));
    m_targetHeight.store(qRound(height() * ratio));
}

void CVideoWnd::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    updateTargetSize();
}

void CVideoWnd::paintEvent(QPaintEvent*)
{
    m_updatePending.store(false);
    const QImage picture = frame(); // shared, not copied
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    if (picture.isNull())
        return;
    // Fitted with its shape kept, centred.
    const qreal ratio = devicePixelRatioF();
    QSizeF size = QSizeF(picture.size()) / ratio;
    size.scale(QSizeF(this->size()), Qt::KeepAspectRatio);
    const QRectF target((width() - size.width()) / 2, (height() - size.height()) / 2, size.width(),
                        size.height());
    painter.setRenderHint(QPainter::SmoothPixmapTransform, true);
    painter.drawImage(target, picture);
}
