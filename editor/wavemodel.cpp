#include "editor/wavemodel.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

CWaveModel::CWaveModel() = default;

void CWaveModel::setViewWidth(int width)
{
    m_widthSource = nullptr;
    m_viewWidth = width;
}

void CWaveModel::setViewWidthSource(std::function<int()> source)
{
    m_widthSource = std::move(source);
}

// --- loading -----------------------------------------------------------------

void CWaveModel::reset()
{
    m_playPos = 0;
    m_scrollX = 0;
    m_beginTime = 0;
    m_endTime = 0;
    m_dragX = 0;
    m_maxTime = 0.0f;
    m_framesPerPixel = 0.0f;
    m_msPerPixel = kMsPerPixelAtZoom1;
}

void CWaveModel::load(unsigned int frameCount, unsigned int sampleRate)
{
    m_frameCount = frameCount;
    m_msPerFrame = 1000.0f / sampleRate;
    m_maxTime = frameCount * m_msPerFrame;
    m_beginTime = 0;
    // A new song starts with its first 40 seconds selected.
    m_endTime = m_maxTime > kDefaultSelection ? kDefaultSelection : std::llround(m_maxTime);
    m_maxZoomValue = kMaxZoom;
    m_zoomFactor = 1.0f;
    m_msPerPixel = kMsPerPixelAtZoom1;
    m_fitMsPerPixel = m_maxTime / viewWidth();
    m_framesPerPixel = kMsPerPixelAtZoom1 / m_msPerFrame;
    m_totalWidth = static_cast<int>(frameCount / m_framesPerPixel);
}

// --- selection -----------------------------------------------------------------

void CWaveModel::setBeginTime(long long t)
{
    const long long oldBegin = m_beginTime;
    long long end = m_endTime;
    m_beginTime = t;
    // Moving the begin to the right drags the end along by the same amount.
    if (t >= oldBegin) {
        end = end - oldBegin + t;
        if (!(end < m_maxTime))
            end = static_cast<long long>(m_maxTime);
        m_endTime = end;
    }
    // No lower limit here: a begin near zero may go negative.
    if (end - t < kMinSelection)
        m_beginTime = end - kMinSelection;
}

void CWaveModel::setEndTime(long long t)
{
    const long long oldEnd = m_endTime;
    m_endTime = t;
    // The begin only moves when the end passes it, keeping the old length.
    if (t < m_beginTime) {
        const long long begin = t - (oldEnd - m_beginTime);
        m_beginTime = begin < 0 ? 0 : begin;
    }
    // No upper limit here: the end may pass the song's end.
    if (m_endTime - m_beginTime < kMinSelection)
        m_endTime = m_beginTime + kMinSelection;
}

void CWaveModel::setSelection(long long begin, long long end)
{
    m_beginTime = begin;
    m_endTime = end;
}

bool CWaveModel::nudgeBeginEdge(long long ms)
{
    const long long lowest = std::max(0LL, m_endTime - kMaxSelection);
    const long long highest = m_endTime - kMinSelection;
    if (highest < lowest)
        return false;
    const long long begin = std::clamp(m_beginTime + ms, lowest, highest);
    if (begin == m_beginTime)
        return false;
    m_beginTime = begin;
    return true;
}

bool CWaveModel::nudgeEndEdge(long long ms)
{
    const long long lowest = m_beginTime + kMinSelection;
    const long long highest =
        std::min(static_cast<long long>(m_maxTime), m_beginTime + kMaxSelection);
    if (highest < lowest)
        return false;
    const long long end = std::clamp(m_endTime + ms, lowest, highest);
    if (end == m_endTime)
        return false;
    m_endTime = end;
    return true;
}

// --- zoom ----------------------------------------------------------------------

float CWaveModel::minZoom() const
{
    return std::min(1.0f, kMsPerPixelAtZoom1 / (m_msPerFrame * m_frameCount / viewWidth()));
}

float CWaveModel::zoom(float factor)
{
    const float z = std::max(minZoom(), std::min(factor, kMaxZoom));
    m_zoomFactor = z;
    // Keeps the time at the left edge where it was.
    const float leftMs = m_scrollX * m_msPerPixel;
    m_msPerPixel = kMsPerPixelAtZoom1 / z;
    m_framesPerPixel = m_msPerPixel / m_msPerFrame;
    m_totalWidth = static_cast<int>(m_frameCount / m_framesPerPixel);
    m_scrollX = static_cast<int>(static_cast<int>(leftMs) / m_msPerPixel);
    return z;
}

float CWaveModel::zoomInTarget() const
{
    // 5.0 still steps to 5.5; zoom() clamps it back.
    return m_zoomFactor <= kMaxZoom ? m_zoomFactor + kZoomStep : -1.0f;
}

float CWaveModel::zoomOutTarget() const
{
    return minZoom() > m_zoomFactor ? -1.0f : m_zoomFactor - kZoomStep;
}

// --- pixels ----------------------------------------------------------------------

int CWaveModel::timeToX(long long t) const
{
    return static_cast<int>(t / m_msPerPixel - m_scrollX);
}

long long CWaveModel::xToTime(int x) const
{
    return std::llround((x + m_scrollX) * m_msPerPixel);
}

// --- mouse -------------------------------------------------------------------------

int CWaveModel::actionAt(int x, int y, int viewHeight, int barHeight) const
{
    const int p = timeToX(m_playPos);
    // The cursor's marker in the ruler is wider than its line below.
    if (y <= kRulerBottom)
        return (p - 2 < x && x < p + 10) ? MM_PLAY_CURSOR : MM_NONE;
    if (y > viewHeight - barHeight - 4)
        return MM_NONE;
    const int b = timeToX(m_beginTime);
    const int e = timeToX(m_endTime);
    // The nearer edge within its grab zone (the begin on a tie), then the
    // inside, then the play cursor.
    const int toBegin = std::abs(x - b);
    const int toEnd = std::abs(x - e);
    if (toBegin <= kEdgeGrab || toEnd <= kEdgeGrab)
        return toBegin <= toEnd ? MM_BEGIN_EDGE : MM_END_EDGE;
    if (b < x && x < e)
        return MM_MOVE;
    if (p - 2 < x && x < p + 2)
        return MM_PLAY_CURSOR;
    return MM_NONE;
}

void CWaveModel::pressAt(int x)
{
    m_pressX = x;
    m_moved = false;
}

void CWaveModel::pointerAt(int x)
{
    if (x != m_pressX)
        m_moved = true;
}

void CWaveModel::startNewSelection(int x)
{
    m_beginTime = xToTime(x);
    m_endTime = 0; // defined by the drag
}

void CWaveModel::drawNewSelection(int x)
{
    m_endTime = xToTime(x);
}

void CWaveModel::finishNewSelection(int x)
{
    m_endTime = xToTime(x);
    if (m_endTime < m_beginTime)
        std::swap(m_beginTime, m_endTime);
}

void CWaveModel::shiftSelection(int dx)
{
    m_beginTime = std::llround(m_msPerPixel * dx + m_beginTime);
    m_endTime = std::llround(dx * m_msPerPixel + m_endTime);
}

CWaveModel::Step CWaveModel::moveSelection(int x)
{
    Step step;
    int dx = x - m_dragX;
    if (m_beginTime + dx * m_msPerPixel < 0)
        dx = static_cast<int>(-m_beginTime / m_msPerPixel);
    else if (m_endTime + dx * m_msPerPixel > m_maxTime)
        dx = static_cast<int>(m_maxTime / m_msPerPixel - m_endTime / m_msPerPixel);
    if (m_beginTime / m_msPerPixel + dx < 0 || m_endTime / m_msPerPixel + dx > m_totalWidth)
        return step;
    shiftSelection(dx);
    m_dragX = x;
    const int width = viewWidth();
    if ((timeToX(m_endTime) > width - kEdgeZone && width + m_scrollX < m_totalWidth && dx > 0) ||
        (timeToX(m_beginTime) < kEdgeZone && m_totalWidth > 0 && dx < 0))
        step.scroll = dx;
    step.changed = true;
    return step;
}

bool CWaveModel::dropSelection(int x)
{
    const int dx = x - m_dragX;
    if (m_beginTime / m_msPerPixel + dx <= 0 || m_endTime / m_msPerPixel + dx >= m_totalWidth)
        return false;
    shiftSelection(dx);
    m_dragX = x;
    return true;
}

bool CWaveModel::edgeTimeAt(int x, long long* t) const
{
    const int p = m_scrollX + x;
    if (p >= m_totalWidth)
        return false;
    *t = std::llround(p * m_msPerPixel);
    return true;
}

CWaveModel::Step CWaveModel::dragBeginEdge(int x)
{
    Step step;
    long long t = 0;
    if (!edgeTimeAt(x, &t))
        return step;
    if (m_endTime < t + kMinSelection)
        m_beginTime = m_endTime - kMinSelection;
    else if (m_endTime - t > kMaxSelection)
        m_beginTime = m_endTime - kMaxSelection;
    else
        m_beginTime = t;
    if (m_beginTime < 0)
        m_beginTime = 0;
    if (x < kEdgeZone && m_totalWidth > 0)
        step.scroll = -kEdgeZone;
    step.changed = true;
    return step;
}

CWaveModel::Step CWaveModel::dragEndEdge(int x)
{
    Step step;
    long long t = 0;
    if (!edgeTimeAt(x, &t))
        return step;
    if (t - kMinSelection < m_beginTime)
        m_endTime = m_beginTime + kMinSelection;
    else if (t - m_beginTime > kMaxSelection)
        m_endTime = m_beginTime + kMaxSelection;
    else
        m_endTime = t;
    m_endTime = std::llround(std::min(static_cast<float>(m_endTime), m_maxTime));
    const int width = viewWidth();
    if (x > width - kEdgeZone && width + m_scrollX < m_totalWidth)
        step.scroll = kEdgeZone;
    step.changed = true;
    return step;
}

bool CWaveModel::edgeReleaseCounts(int x) const
{
    return x >= 1 && x + m_scrollX < m_totalWidth;
}

CWaveModel::Step CWaveModel::dragPlayCursor(int x)
{
    Step step;
    int dx = x - m_dragX;
    if (m_playPos + dx * m_msPerPixel < 0)
        dx = static_cast<int>(-m_playPos / m_msPerPixel);
    else if (m_playPos + dx * m_msPerPixel > m_maxTime)
        dx = static_cast<int>(m_totalWidth - m_playPos / m_msPerPixel);
    const float target = m_playPos / m_msPerPixel + dx;
    if (0 < target && target < m_totalWidth) {
        m_playPos = std::llround(m_msPerPixel * dx + m_playPos);
        m_dragX = x;
        // Judged one step ahead of the new place.
        const float ahead = m_playPos / m_msPerPixel + dx;
        if ((ahead - m_scrollX > viewWidth() && ahead < m_totalWidth) ||
            (ahead - m_scrollX < 0 && ahead > 0))
            step.scroll = dx;
        step.changed = true;
    }
    return step;
}

bool CWaveModel::dropPlayCursor(int x)
{
    const int dx = x - m_dragX;
    const float target = m_playPos / m_msPerPixel + dx;
    if (target <= 0 || target >= m_totalWidth)
        return false;
    m_playPos = std::llround(dx * m_msPerPixel + m_playPos);
    return true;
}
