#pragma once
// CWaveModel: the editor's times without a widget. Holds the selection (the
// span that becomes the ringtone), the play position, the zoom and the
// horizontal scroll of one loaded wave, the time <-> pixel arithmetic, the
// rules of the selection setters and of every mouse gesture. It sends no
// signals and paints nothing: the editor widget turns its answers into
// signals, cursors, scroll-bar steps and repaints. A plain value owned by
// the editor; GUI thread.

// What the next press grabs or what a mouse drag is doing.
enum MouseMode
{
    MM_NONE = 0,
    MM_SELECT = 1,     // draw a new selection (armed by the select() slot)
    MM_MOVE = 2,       // move the whole selection
    MM_BEGIN_EDGE = 3, // drag the selection's begin
    MM_END_EDGE = 4,   // drag the selection's end
    MM_PLAY_CURSOR = 5 // drag the play cursor
};

#include <functional>

// The shortest selection the setters and edge drags allow, in ms.
constexpr long long kMinSelection = 5000;
// The longest one (40 hours); also where the end rests before a wave loads.
constexpr long long kMaxSelection = 144000000;
// What a freshly loaded song has selected: its first 40 seconds.
constexpr long long kDefaultSelection = 40000;
// Zoom 1 shows 100 ms a pixel; zoom 5 is the closest view.
constexpr float kMsPerPixelAtZoom1 = 100.0f;
constexpr float kMaxZoom = 5.0f;
constexpr float kZoomStep = 0.5f;
// Pixels at either side of the view where a drag scrolls along.
constexpr int kEdgeZone = 10;
// Pixels on either side of a selection edge that grab it.
constexpr int kEdgeGrab = 6;
// The ruler band above the wave area (pixel rows 0..17).
constexpr int kRulerBottom = 17;

class CWaveModel
{
public:
    // A mouse move's outcome: whether the times changed (the editor signals
    // and repaints), and how far to move the scroll bar.
    struct Step
    {
        bool changed = false;
        int scroll = 0;
    };

    CWaveModel();

    // --- loading ---------------------------------------------------------
    // Before a load: times zero, 100 ms a pixel, nothing loaded.
    void reset();
    // A wave of frameCount frames at sampleRate: the first 40 seconds (or
    // the whole of a shorter song) selected, zoom 1, scrolled to the start.
    void load(unsigned int frameCount, unsigned int sampleRate);
    // The width of the view in pixels (a page): a fixed number, or asked of
    // the view each time it is needed (a widget may be resized while hidden,
    // when it gets no resize event).
    void setViewWidth(int width);
    void setViewWidthSource(std::function<int()> source);
    int viewWidth() const { return m_widthSource ? m_widthSource() : m_viewWidth; }

    // --- selection and play position --------------------------------------
    // Moving the begin right drags the end along (up to the song's end);
    // the selection then keeps 5 s by moving the begin, even below zero.
    void setBeginTime(long long t);
    // The end moves the begin only when it passes it, keeping the old
    // length (not below zero); then keeps 5 s by moving the end, even past
    // the song's end.
    void setEndTime(long long t);
    // As given, without the rules (a state restored from elsewhere).
    void setSelection(long long begin, long long end);
    void setPlayPos(long long t) { m_playPos = t; }
    long long beginTime() const { return m_beginTime; }
    long long endTime() const { return m_endTime; }
    long long playPos() const { return m_playPos; }

    // Keyboard edge moves: one edge by ms, held to the 5 s minimum, the
    // 40 h maximum and the song; the other edge stays. Whether it moved.
    bool nudgeBeginEdge(long long ms);
    bool nudgeEndEdge(long long ms);

    // --- zoom and scroll ---------------------------------------------------
    // The zoom at which the whole wave fits the view, but never above 1.
    float minZoom() const;
    // Sets a zoom clamped to minZoom()..5, keeping the time at the left edge
    // in view; returns the zoom set.
    float zoom(float factor);
    // The zooms that zoomIn() and zoomOut() ask for; zoomOut gives a
    // negative value when already at the fit (nothing to do).
    float zoomInTarget() const;
    float zoomOutTarget() const;
    void setScrollX(int x) { m_scrollX = x; }
    int scrollX() const { return m_scrollX; }
    // The scroll bar's range end: the whole wave less one page.
    int scrollRange() const { return m_totalWidth - viewWidth(); }

    // --- time <-> pixel ---------------------------------------------------
    // The view column of a time and the time of a view column.
    int timeToX(long long t) const;
    long long xToTime(int x) const;

    // --- mouse -----------------------------------------------------------
    // What a press at (x, y) grabs, in a view of the given height whose
    // bottom `barHeight` rows hold the scroll bar.
    int actionAt(int x, int y, int viewHeight, int barHeight) const;
    int mouseMode() const { return m_mouseMode; }
    void setMouseMode(int mode) { m_mouseMode = mode; }
    int dragX() const { return m_dragX; }
    void setDragX(int x) { m_dragX = x; }
    // A new selection: its begin at the press, its end defined by the drag.
    void startNewSelection(int x);
    void drawNewSelection(int x);
    // The release: the end at x, the two swapped when drawn leftwards. Not
    // held to the 5 s minimum; a click without movement selects nothing.
    void finishNewSelection(int x);
    // Moves the whole selection with the pointer, within the song.
    Step moveSelection(int x);
    bool dropSelection(int x);
    // Edge drags hold the 5 s minimum and the 40 h maximum.
    Step dragBeginEdge(int x);
    Step dragEndEdge(int x);
    // Whether an edge released at x still reports the selection.
    bool edgeReleaseCounts(int x) const;
    // A press that is a click unless the pointer moves before the release
    // (a click moves the play position, a drag selects or moves).
    void pressAt(int x);
    void pointerAt(int x);
    bool isClick() const { return !m_moved; }
    int pressX() const { return m_pressX; }
    // The play cursor follows the pointer within the song; no signal until
    // the release, which answers whether the cursor moved.
    Step dragPlayCursor(int x);
    bool dropPlayCursor(int x);

    // --- the loaded wave ----------------------------------------------------
    int totalWidth() const { return m_totalWidth; }
    float msPerPixel() const { return m_msPerPixel; }
    float framesPerPixel() const { return m_framesPerPixel; }
    float msPerFrame() const { return m_msPerFrame; }
    float maxTime() const { return m_maxTime; }
    float fitMsPerPixel() const { return m_fitMsPerPixel; }
    float maxZoomValue() const { return m_maxZoomValue; }
    float zoomFactor() const { return m_zoomFactor; }
    // Frames of the wave the engine holds open (0 while it is closed); the
    // zoom's fit is taken from it.
    unsigned int frameCount() const { return m_frameCount; }
    void setFrameCount(unsigned int frames) { m_frameCount = frames; }

private:
    // The time an edge dragged to view column x lands on; false past the
    // wave's end, where the drag does nothing.
    bool edgeTimeAt(int x, long long* t) const;
    // Shifts both times by dx pixels.
    void shiftSelection(int dx);

    long long m_playPos = 0;
    int m_totalWidth = 0;
    int m_scrollX = 0;
    int m_mouseMode = MM_NONE;
    long long m_endTime = kMaxSelection;
    long long m_beginTime = 0;
    int m_dragX = 0;
    int m_pressX = 0;
    bool m_moved = false;
    float m_msPerPixel = kMsPerPixelAtZoom1;
    float m_maxZoomValue = kMaxZoom;
    float m_fitMsPerPixel = 0.0f;
    float m_msPerFrame = 0.0f;
    float m_framesPerPixel = 0.0f;
    float m_maxTime = 0.0f;
    float m_zoomFactor = 1.0f;
    unsigned int m_frameCount = 0;
    int m_viewWidth = 0;
    std::function<int()> m_widthSource;
};
