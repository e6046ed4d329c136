#pragma once
// Shared set-up of the editor tests: make WAV files and load them the way
// the import step does (the temporary WAV's path, then initWave). The
// editor's state is read through its parts (model, playback, io).

#include "editor/waveio.h"
#include "editor/wavemodel.h"
#include "editor/waveplayback.h"
#include "editor/wavewnd.h"
#include "testenv.h"

#include <QElapsedTimer>
#include <QImage>
#include <QScrollBar>
#include <QString>
#include <QTemporaryDir>
#include <QTimer>
#include <QtGlobal>

#include <cmath>
#include <functional>

namespace twed {

// A sine of the given frequency at `level` of full scale on every channel.
inline std::function<int(qint64, int)> sine(int rate, int bits, double hz, double level)
{
    return [=](qint64 frame, int) {
        const double v = level * std::sin(2.0 * M_PI * hz * double(frame) / rate);
        return bits == 8 ? int(std::lround(128.0 + 127.0 * v)) : int(std::lround(32767.0 * v));
    };
}

// Writes `seconds` of a loud 220 Hz sine into dir/name and returns its path
// (empty on failure).
inline QString makeSine(const QTemporaryDir& dir, const QString& name, int rate, int channels,
                        int bits, double seconds, double level = 0.8)
{
    const QString path = dir.filePath(name);
    const qint64 frames = qint64(std::llround(seconds * rate));
    if (!tw::writeWav(path, rate, channels, bits, frames, sine(rate, bits, 220.0, level)))
        return QString();
    return path;
}

// Loads `path` as the editor's temporary WAV; returns initWave's result.
inline int load(CWaveWnd& w, const QString& path)
{
    w.io().setWavePath(path);
    return w.initWave();
}

// Whether an engine that started playing at `from` when `since` was started
// can have come as far as `pos` by now. SDL takes its first buffer at once
// and then one a buffer's time, never faster than real time: a busy machine
// only finds the position earlier, never past this bound, so the check
// cannot fail by chance.
constexpr long long kStartSlackMs = 100; // the first buffers, taken at once
inline bool withinRealTime(long long pos, long long from, const QElapsedTimer& since)
{
    return pos <= from + since.elapsed() + kStartSlackMs;
}

inline QString positionText(long long pos, const QElapsedTimer& since)
{
    return QString("position %1 after %2 ms").arg(pos).arg(since.elapsed());
}

inline bool isWaveGrey(QRgb p)
{
    return p == qRgb(80, 80, 80);
}

inline bool isWaveLight(QRgb p)
{
    return p == qRgb(222, 222, 222);
}

// Number of pixels of column x, rows [top, bottom), that satisfy `pred`.
inline int countInColumn(const QImage& img, int x, int top, int bottom,
                         const std::function<bool(QRgb)>& pred)
{
    int n = 0;
    for (int y = top; y < bottom && y < img.height(); ++y)
        n += pred(img.pixel(x, y)) ? 1 : 0;
    return n;
}

} // namespace twed
