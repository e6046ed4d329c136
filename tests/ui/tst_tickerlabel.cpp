// The scrolling title: one pixel a tick of 100 ms, only when the text does
// not fit, wrapping after as many steps as the text is wide, and paused
// while the pointer is over it. Ticks are sent to it directly, so nothing
// here waits on the clock but the check of the tick's length.

#include "testenv.h"
#include "ui/tickerlabel.h"

#include <QElapsedTimer>
#include <QEnterEvent>
#include <QImage>
#include <QTimerEvent>

namespace {

void tick(CTickerLabel& label, int times = 1)
{
    for (int i = 0; i < times; ++i) {
        QTimerEvent event(label.timerId());
        QCoreApplication::sendEvent(&label, &event);
    }
}

QImage shot(CTickerLabel& label)
{
    return label.grab().toImage();
}

} // namespace

class TestTickerLabel : public QObject
{
    Q_OBJECT

private slots:
    void shouldStartAtTheRightEdgeAndStepOnePixelATick()
    {
        CTickerLabel label;
        label.resize(120, 20);
        QVERIFY(label.isScrolling());
        QCOMPARE(label.offset(), 0);
        label.setText("A title");
        QCOMPARE(label.text(), QString("A title"));
        QCOMPARE(label.offset(), 120);
        tick(label, 3);
        QCOMPARE(label.offset(), 123);
        // Another timer's events are not ticks.
        QTimerEvent other(label.timerId() + 1000);
        QCoreApplication::sendEvent(&label, &other);
        QCOMPARE(label.offset(), 123);
    }

    void shouldTickEveryHundredMilliseconds()
    {
        CTickerLabel label;
        QElapsedTimer clock;
        clock.start();
        QTRY_VERIFY_WITH_TIMEOUT(label.offset() >= 3, 5000);
        // A lower bound only: a busy machine ticks later, never sooner
        // (Qt may fire a timer up to 5 % early).
        QVERIFY2(clock.elapsed() >= 3 * 95, qPrintable(QString::number(clock.elapsed())));
    }

    void shouldKeepATextThatFitsStill()
    {
        CTickerLabel label;
        label.resize(300, 24);
        label.setText("Short");
        const QImage first = shot(label);
        tick(label, 7);
        QCOMPARE(shot(label), first);
    }

    void shouldScrollAWideTextAndWrapAfterItsWidth()
    {
        CTickerLabel label;
        label.resize(60, 24);
        label.setText("A title much wider than its label");
        const int width = label.fontMetrics().horizontalAdvance(label.text());
        QVERIFY(width > 60);
        const QImage first = shot(label);
        tick(label);
        const QImage second = shot(label);
        QVERIFY(second != first);
        tick(label, width - 1);
        QCOMPARE(shot(label), first);
        QVERIFY(label.offset() < width); // kept within one turn
    }

    void shouldPauseWhileHovered()
    {
        CTickerLabel label;
        QVERIFY(label.isScrolling());
        QEnterEvent enter(QPointF(5, 5), QPointF(5, 5), QPointF(5, 5));
        QCoreApplication::sendEvent(&label, &enter);
        QVERIFY(!label.isScrolling());
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(&label, &leave);
        QVERIFY(label.isScrolling());
    }
};

TW_TEST_MAIN(TestTickerLabel)
#include "tst_tickerlabel.moc"
