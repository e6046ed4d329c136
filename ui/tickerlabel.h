#pragma once
// CTickerLabel: a one-line label whose text scrolls when it does not fit: one
// pixel every 100 ms, wrapping as many steps later as the text is wide, and
// paused while the pointer is over it. GUI thread.

#include <QBasicTimer>
#include <QString>
#include <QWidget>

class CTickerLabel : public QWidget
{
    Q_OBJECT

public:
    explicit CTickerLabel(QWidget* parent = nullptr);
    ~CTickerLabel() override;

    void setText(const QString& text);
    QString text() const { return m_text; }
    // How far the text has moved, in pixels.
    int offset() const { return m_offset; }
    bool isScrolling() const { return m_timer.isActive(); }
    // The timer whose events move the text.
    int timerId() const { return m_timer.timerId(); }

protected:
    void timerEvent(QTimerEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_text;
    QBasicTimer m_timer;
    int m_offset = 0;
};
