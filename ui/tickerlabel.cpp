#include "ui/tickerlabel.h"

#include <QEnterEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <QTimerEvent>

namespace {
constexpr int kTickMs = 100;
} // namespace

CTickerLabel::CTickerLabel(QWidget* parent) : QWidget(parent)
{
    m_timer.start(kTickMs, this);
}

CTickerLabel::~CTickerLabel()
{
    if (m_timer.isActive())
        m_timer.stop();
}

void CTickerLabel::setText(const QString& text)
{
    m_text = text;
    // Starts from the right edge; the next tick repaints.
    m_offset = width();
}

void CTickerLabel::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_timer.timerId()) {
        QWidget::timerEvent(event);
        return;
    }
    ++m_offset;
    update();
}

void CTickerLabel::enterEvent(QEnterEvent* event)
{
    m_timer.stop();
    QWidget::enterEvent(event);
}

void CTickerLabel::leaveEvent(QEvent* event)
{
    m_timer.start(kTickMs, this);
    QWidget::leaveEvent(event);
}

void CTickerLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    QStyleOption option;
    option.initFrom(this);
    QRect rect = option.rect;
    const int w = fontMetrics().horizontalAdvance(m_text);
    if (w > rect.width()) {
        // Slides in from the left and wraps every w steps.
        m_offset %= w;
        rect.setLeft(m_offset - w + 1);
        rect.setRight(m_offset);
    }
    style()->drawItemText(&painter, rect, Qt::AlignLeft | Qt::AlignVCenter, option.palette, true,
                          m_text, QPalette::NoRole);
}
