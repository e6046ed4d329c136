// CWaveWnd mouse handling: hover cursors, the five drag modes (new selection,
// move the selection, begin edge, end edge, play cursor), scrolling along at
// the edges and the double click that plays or previews.

#include "editor/wavewnd.h"

#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr long long kMinSelection = 5000;
constexpr long long kMaxSelection = 144000000; // 40 hours
constexpr int kEdgeZone = 10;                  // pixels that scroll along at the sides

} // namespace

int CWaveWnd::getAction(int x, int y)
{
    const int p = timeToX(playPos);
    // The cursor's marker in the ruler is wider than its line below.
    if (y <= 17)
        return (p - 2 < x && x < p + 10) ? 5 : 0;
    if (y > height() - scrollBar->height() - 4)
        return 0;
    const int b = timeToX(beginTime);
    const int e = timeToX(endTime);
    // The begin edge wins over the end edge, both over the play cursor.
    if (b - 2 < x && x < b + 2)
        return 3;
    if (e - 2 < x && x < e + 2)
        return 4;
    if (b + 2 < x && x < e - 2)
        return 2;
    if (p - 2 < x && x < p + 2)
        return 5;
    return 0;
}

void CWaveWnd::mousePressEvent(QMouseEvent* event)
{
    const QPoint pos = event->position().toPoint();
    // A mode set by a slot (select, move, adjust) takes this press wherever
    // it falls.
    if (mouseMode == 0)
        mouseMode = getAction(pos.x(), pos.y());
    if (event->button() != Qt::LeftButton)
        return;
    switch (mouseMode) {
    case 1:
        setMouseTracking(false);
        setCursor(Qt::OpenHandCursor);
        beginTime = xToTime(pos.x());
        endTime = 0; // defined by the drag
        break;
    case 2:
    case 5:
        setMouseTracking(false);
        setCursor(Qt::ClosedHandCursor);
        dragX = pos.x();
        break;
    case 3:
    case 4:
        setMouseTracking(false);
        break;
    default:
        break;
    }
}

void CWaveWnd::mouseMoveEvent(QMouseEvent* event)
{
    const int x = event->position().toPoint().x();
    const int y = event->position().toPoint().y();
    switch (mouseMode) {
    case 0: {
        const int action = getAction(x, y);
        if (action == 3 || action == 4)
            setCursor(Qt::SizeHorCursor);
        else if (action == 2 || action == 5)
            setCursor(Qt::OpenHandCursor);
        else
            setCursor(Qt::ArrowCursor);
        break;
    }
    case 1:
        // No signal while the new selection is being drawn.
        endTime = xToTime(x);
        update();
        break;
    case 2: {
        int dx = x - dragX;
        if (beginTime + dx * msPerPixel < 0)
            dx = static_cast<int>(-beginTime / msPerPixel);
        else if (endTime + dx * msPerPixel > maxTime)
            dx = static_cast<int>(maxTime / msPerPixel - endTime / msPerPixel);
        if (beginTime / msPerPixel + dx < 0 || endTime / msPerPixel + dx > totalWidth)
            return;
        beginTime = std::llround(msPerPixel * dx + beginTime);
        endTime = std::llround(dx * msPerPixel + endTime);
        dragX = x;
        if ((timeToX(endTime) > width() - kEdgeZone && width() + scrollX < totalWidth && dx > 0) ||
            (timeToX(beginTime) < kEdgeZone && totalWidth > 0 && dx < 0))
            scrollBar->setValue(scrollBar->value() + dx);
        emitSelectChange();
        update();
        break;
    }
    case 3: {
        const int p = scrollX + x;
        if (p >= totalWidth)
            return;
        const long long t = std::llround(p * msPerPixel);
        if (endTime < t + kMinSelection)
            beginTime = endTime - kMinSelection;
        else if (endTime - t > kMaxSelection)
            beginTime = endTime - kMaxSelection;
        else
            beginTime = t;
        if (beginTime < 0)
            beginTime = 0;
        if (x < kEdgeZone && totalWidth > 0)
            scrollBar->setValue(scrollBar->value() - kEdgeZone);
        emitSelectChange();
        update();
        break;
    }
    case 4: {
        const int p = scrollX + x;
        if (p >= totalWidth)
            return;
        const long long t = std::llround(p * msPerPixel);
        if (t - kMinSelection < beginTime)
            endTime = beginTime + kMinSelection;
        else if (t - beginTime > kMaxSelection)
            endTime = beginTime + kMaxSelection;
        else
            endTime = t;
        endTime = std::llround(std::min(static_cast<float>(endTime), maxTime));
        if (x > width() - kEdgeZone && width() + scrollX < totalWidth)
            scrollBar->setValue(scrollBar->value() + kEdgeZone);
        emitSelectChange();
        update();
        break;
    }
    case 5: {
        int dx = x - dragX;
        if (playPos + dx * msPerPixel < 0)
            dx = static_cast<int>(-playPos / msPerPixel);
        else if (playPos + dx * msPerPixel > maxTime)
            dx = static_cast<int>(totalWidth - playPos / msPerPixel);
        const float target = playPos / msPerPixel + dx;
        if (0 < target && target < totalWidth) {
            playPos = std::llround(msPerPixel * dx + playPos);
            dragX = x;
            // Judged one step ahead of the new place.
            const float ahead = playPos / msPerPixel + dx;
            if ((ahead - scrollX > width() && ahead < totalWidth) ||
                (ahead - scrollX < 0 && ahead > 0))
                scrollBar->setValue(scrollBar->value() + dx);
        }
        // No signal while dragging; the play timer leaves the cursor alone.
        update();
        break;
    }
    default:
        break;
    }
}

void CWaveWnd::mouseReleaseEvent(QMouseEvent* event)
{
    const int x = event->position().toPoint().x();
    if (event->button() == Qt::LeftButton) {
        switch (mouseMode) {
        case 1:
            setCursor(Qt::OpenHandCursor);
            endTime = xToTime(x);
            if (endTime < beginTime)
                std::swap(beginTime, endTime);
            // A drawn selection is not held to the 5 s minimum; a click
            // without movement leaves an empty one.
            emitSelectChange();
            update();
            break;
        case 2: {
            setCursor(Qt::OpenHandCursor);
            const int dx = x - dragX;
            if (!(beginTime / msPerPixel + dx <= 0 || endTime / msPerPixel + dx >= totalWidth)) {
                beginTime = std::llround(msPerPixel * dx + beginTime);
                endTime = std::llround(dx * msPerPixel + endTime);
                dragX = x;
                emitSelectChange();
                update();
            }
            break;
        }
        case 3:
        case 4:
            setCursor(Qt::SizeHorCursor);
            // The times were set while moving.
            if (x >= 1 && x + scrollX < totalWidth) {
                emitSelectChange();
                update();
            }
            break;
        case 5: {
            setCursor(Qt::OpenHandCursor);
            const int dx = x - dragX;
            const float target = playPos / msPerPixel + dx;
            if (!(target <= 0 || target >= totalWidth)) {
                playPos = std::llround(dx * msPerPixel + playPos);
                if (WaveHelperGetState(&wave) == 1) {
                    // Playback goes on from the new place.
                    WaveHelperPause(&wave);
                    WaveHelperSetPos(&wave, playPos);
                    do_play();
                }
                emit playPosChange(playPos);
                update();
            }
            break;
        }
        default:
            break;
        }
    }
    setMouseTracking(true);
    mouseMode = 0;
}

void CWaveWnd::mouseDoubleClickEvent(QMouseEvent* event)
{
    // The click position does not move the play cursor.
    const int x = event->position().toPoint().x();
    if (timeToX(beginTime) <= x && x <= timeToX(endTime))
        preview();
    else
        play();
}
