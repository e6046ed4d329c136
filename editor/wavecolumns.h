#pragma once
// CWaveColumns: where the editor draws the wave and what it draws, without a
// widget. It tells the wave's geometry from the size of the drawing, and
// reduces frames (or the engine's peak pairs) to a (min, max) pair of points
// per pixel column. It keeps no state and owns nothing: the points go into a
// buffer the caller owns and the samples stay the caller's. Any thread; the
// editor calls it on the GUI thread while painting.

#include <QPoint>

class CWaveColumns
{
public:
    // Two points per pixel column: the widest wave ever drawn is 2048 columns.
    static constexpr int kPointCount = 4096;
    static constexpr int kMaxColumns = kPointCount / 2;

    // Where the wave lies in a drawing.
    struct Layout
    {
        int centreY;         // the row of sample value 0
        int amplitudeHeight; // rows of a full-scale swing (its even part scales)
        int columns;         // columns the wave shows: within the view, up to kMaxColumns
    };

    CWaveColumns() = delete;

    // The wave's layout in a drawing `width` x `height` pixels (the area
    // above the scroll bar, ruler included) of a wave `totalWidth` pixels
    // wide scrolled by `scrollX`. Columns may come out zero or negative when
    // nothing of the wave is in view.
    static Layout layout(int width, int height, int totalWidth, int scrollX);

    // The row a sample value is drawn at. 8-bit values are used as stored
    // (0..255), not centred on 128, so an 8-bit wave lies above the centre
    // line.
    template <typename T> static int rowOf(T value, int centreY, int amplitudeHeight)
    {
        const float range = sizeof(T) == 1 ? 256.0f : 65535.0f;
        const float scale = (amplitudeHeight / 2 * 2) / range;
        return static_cast<int>(centreY - value * scale);
    }

    // First peak-table entry of a view scrolled by startX at fpp frames a
    // pixel; the reduction and the clip that keeps it inside the table must
    // agree on it.
    static int firstPeakBlock(int startX, float fpp);

    // Reduces frames (fpp below kWavePeakBlockFrames: interleaved samples
    // of `channels` channels, the first one counting) or the peak table's
    // (min, max) pairs (from the view's first block on) to a min/max pair
    // per pixel column: writes 2 x columns points into `pts` (never more
    // than kPointCount) and returns their number; 0 for other than 1 or 2
    // channels and for fewer than 2 frames a pixel. T is qint16 or quint8.
    template <typename T>
    static int reduce(QPoint* pts, int startX, float fpp, int centreY, unsigned int columns,
                      int amplitudeHeight, void* samples, int channels);
};
