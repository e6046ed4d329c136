#include "editor/wavecolumns.h"

#include "audio/wavehelper.h"

#include <QtGlobal>

#include <algorithm>
#include <cmath>

namespace {

// The wave's band runs from row 28 (below the ruler and the short line at
// x = 0) to 2 rows above the drawing's bottom edge; a full-scale swing keeps
// 4 rows clear of either end of it.
constexpr int kWaveTop = 28;
constexpr int kBottomGap = 2;
constexpr int kSwingGap = 4;

} // namespace

CWaveColumns::Layout CWaveColumns::layout(int width, int height, int totalWidth, int scrollX)
{
    const int waveHeight = height - kBottomGap;
    Layout l;
    l.centreY = (waveHeight - kWaveTop) / 2 + kWaveTop;
    l.amplitudeHeight = waveHeight - kWaveTop - 2 * kSwingGap;

    int columns = totalWidth;
    if (width < totalWidth)
        columns = totalWidth < width + scrollX ? totalWidth - scrollX : width;
    // The point buffer holds 2048 columns; wider drawings are drawn that far.
    l.columns = std::min(columns, kMaxColumns);
    return l;
}

int CWaveColumns::firstPeakBlock(int startX, float fpp)
{
    return static_cast<int>(startX * fpp / kWavePeakBlockFrames);
}

template <typename T>
int CWaveColumns::reduce(QPoint* pts, int startX, float fpp, int centreY, unsigned int columns,
                         int amplitudeHeight, void* samples, int channels)
{
    if (channels != 1 && channels != 2)
        return 0;
    if (fpp < 2.0f)
        return 0;
    columns = std::min(columns, static_cast<unsigned int>(kMaxColumns));

    // Column k ends at the first unit (a frame, or a 512-frame peak pair)
    // whose count reaches (k + 1) x fpp frames; the next unit restarts min
    // and max. Kept in double: summed in float the column ends drift by
    // whole peak blocks over a wide view.
    const bool raw = fpp < kWavePeakBlockFrames;
    const int stride = raw ? channels : 2; // only the first channel counts
    const int hiOffset = raw ? 0 : 1;      // a pair is (min, max)
    const double unitFrames = raw ? 1.0 : double(kWavePeakBlockFrames);
    const T* p = static_cast<const T*>(samples);
    if (!raw)
        p += 2 * firstPeakBlock(startX, fpp);

    T lo = p[0];
    T hi = p[hiOffset];
    long long counter = 1; // units taken so far, the first included
    int n = 0;
    for (unsigned int column = 0; column < columns; ++column) {
        if (column > 0) {
            p += stride;
            lo = p[0];
            hi = p[hiOffset];
            ++counter;
        }
        // The first column always takes a second unit; later ones may end on
        // the unit that restarted them.
        const double threshold = double(fpp) * (column + 1);
        const long long least = column == 0 ? 2 : counter;
        const long long end =
            std::max(least, static_cast<long long>(std::ceil(threshold / unitFrames)));
        for (; counter < end; ++counter) {
            p += stride;
            lo = std::min(lo, p[0]);
            hi = std::max(hi, p[hiOffset]);
        }
        pts[n++] = QPoint(static_cast<int>(column), rowOf(lo, centreY, amplitudeHeight));
        pts[n++] = QPoint(static_cast<int>(column), rowOf(hi, centreY, amplitudeHeight));
    }
    return n;
}

template int CWaveColumns::reduce<qint16>(QPoint*, int, float, int, unsigned int, int, void*, int);
template int CWaveColumns::reduce<quint8>(QPoint*, int, float, int, unsigned int, int, void*, int);
