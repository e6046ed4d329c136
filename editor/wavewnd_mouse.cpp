// CWaveWnd mouse handling: turns presses, moves and releases into the
// model's gestures (new selection, move the selection, begin edge, end edge,
// play cursor), and their answers into cursors, signals, scroll-bar steps
// and repaints; a click moves the play position, the double click plays or
// previews.

#include "editor/wavemodel.h"
#include "editor/waveplayback.h"
#include "editor/wavewnd.h"

#include <QMouseEvent>
#include <QScrollBar>

int CWaveWnd::getAction(int x, int y)
{
    return m_model->actionAt(x, y, height(), scrollBar->height());
}

void CWaveWnd::mousePressEvent(QMouseEvent* event)
{
    const QPoint pos = event->position().toPoint();
    // A press that grabs nothing is a click (the play position goes there)
    // or, once the pointer moves, a new selection; in the ruler it takes
    // the play cursor there at once.
    bool fromEmpty = false;
    // A mode set by a slot (select, move, adjust) takes this press wherever
    // it falls.
    if (m_model->mouseMode() == MM_NONE) {
        int action = getAction(pos.x(), pos.y());
        fromEmpty = action == MM_NONE && m_playback->isOpen() &&
                    pos.y() <= height() - scrollBar->height() - 4;
        if (fromEmpty)
            action = pos.y() <= kRulerBottom ? MM_PLAY_CURSOR : MM_SELECT;
        m_model->setMouseMode(action);
    }
    if (event->button() != Qt::LeftButton)
        return;
    setFocus(Qt::MouseFocusReason);
    m_model->pressAt(pos.x());
    m_clickPending = false;
    switch (m_model->mouseMode()) {
    case MM_SELECT:
        setMouseTracking(false);
        setCursor(Qt::OpenHandCursor);
        // From an empty zone the selection starts with the first move.
        m_clickPending = fromEmpty;
        if (!fromEmpty)
            m_model->startNewSelection(pos.x());
        break;
    case MM_MOVE:
        m_clickPending = true;
        setMouseTracking(false);
        setCursor(Qt::ClosedHandCursor);
        m_model->setDragX(pos.x());
        break;
    case MM_PLAY_CURSOR:
        setMouseTracking(false);
        setCursor(Qt::ClosedHandCursor);
        m_model->setDragX(pos.x());
        if (fromEmpty) {
            m_playback->seek(m_model->xToTime(pos.x()));
            update();
        }
        break;
    case MM_BEGIN_EDGE:
    case MM_END_EDGE:
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
    CWaveModel::Step step;
    switch (m_model->mouseMode()) {
    case MM_NONE: {
        const int action = getAction(x, y);
        if (action == MM_BEGIN_EDGE || action == MM_END_EDGE)
            setCursor(Qt::SizeHorCursor);
        else if (action == MM_MOVE || action == MM_PLAY_CURSOR)
            setCursor(Qt::OpenHandCursor);
        else
            setCursor(Qt::ArrowCursor);
        return;
    }
    case MM_SELECT:
        m_model->pointerAt(x);
        if (m_clickPending) {
            if (m_model->isClick())
                return;
            m_clickPending = false;
            m_model->startNewSelection(m_model->pressX());
        }
        // No signal while the new selection is being drawn.
        m_model->drawNewSelection(x);
        update();
        return;
    case MM_MOVE:
        m_model->pointerAt(x);
        step = m_model->moveSelection(x);
        break;
    case MM_BEGIN_EDGE:
        step = m_model->dragBeginEdge(x);
        break;
    case MM_END_EDGE:
        step = m_model->dragEndEdge(x);
        break;
    case MM_PLAY_CURSOR:
        // No signal while dragging; the play timer leaves the cursor alone.
        scrollBy(m_model->dragPlayCursor(x).scroll);
        update();
        return;
    default:
        return;
    }
    if (!step.changed)
        return;
    scrollBy(step.scroll);
    emitSelectChange();
    update();
}

void CWaveWnd::mouseReleaseEvent(QMouseEvent* event)
{
    const int x = event->position().toPoint().x();
    if (event->button() == Qt::LeftButton && m_clickPending && m_model->isClick()) {
        // A click: the play position goes there, the selection stays.
        m_clickPending = false;
        setCursor(Qt::OpenHandCursor);
        m_model->setMouseMode(MM_NONE);
        m_playback->seek(m_model->xToTime(x));
        setMouseTracking(true);
        update();
        return;
    }
    m_clickPending = false;
    const bool gesture = event->button() == Qt::LeftButton && m_model->mouseMode() != MM_NONE;
    if (event->button() == Qt::LeftButton) {
        switch (m_model->mouseMode()) {
        case MM_SELECT:
            setCursor(Qt::OpenHandCursor);
            m_model->finishNewSelection(x);
            emitSelectChange();
            update();
            break;
        case MM_MOVE:
            setCursor(Qt::OpenHandCursor);
            if (m_model->dropSelection(x)) {
                emitSelectChange();
                update();
            }
            break;
        case MM_BEGIN_EDGE:
        case MM_END_EDGE:
            setCursor(Qt::SizeHorCursor);
            // The times were set while moving.
            if (m_model->edgeReleaseCounts(x)) {
                emitSelectChange();
                update();
            }
            break;
        case MM_PLAY_CURSOR:
            setCursor(Qt::OpenHandCursor);
            if (m_model->dropPlayCursor(x)) {
                m_playback->cursorMoved();
                emit playPosChange(m_model->playPos());
                update();
            }
            break;
        default:
            break;
        }
    }
    setMouseTracking(true);
    m_model->setMouseMode(MM_NONE);
    if (gesture)
        emit gestureFinished();
}

void CWaveWnd::mouseDoubleClickEvent(QMouseEvent* event)
{
    // The click position does not move the play cursor.
    const int x = event->position().toPoint().x();
    if (m_model->timeToX(m_model->beginTime()) <= x && x <= m_model->timeToX(m_model->endTime()))
        preview();
    else
        play();
}
