// CWaveWnd drawing: the ruler, the selection panel, the wave as a one-pixel
// polyline, the fades as ramps, the play cursor and the focus frame, all drawn into one off-screen
// image per paint that is then copied to the widget in one go.

#include "editor/wavecolumns.h"
#include "editor/wavemodel.h"
#include "editor/waveplayback.h"
#include "editor/wavewnd.h"

#include <QImage>
#include <QLinearGradient>
#include <QPaintEvent>
#include <QPainter>
#include <QPixmap>
#include <QPolygonF>
#include <QScrollBar>
#include <QVarLengthArray>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

constexpr int kRulerBaseline = kRulerBottom + 1;
constexpr int kPeakBlock = kWavePeakBlockFrames;

const QRgb kWaveColour = qRgb(80, 80, 80);
const QRgb kWaveSelectedColour = qRgb(222, 222, 222);

} // namespace

void CWaveWnd::paintEvent(QPaintEvent* /*event*/)
{
    const int w = width();
    const int h = drawHeight();
    if (w <= 0 || h <= 0)
        return;

    // Drawn at the screen's density: sharp lines and ruler text on a 2x
    // screen, in the same logical coordinates.
    const qreal dpr = devicePixelRatioF();
    QImage image(QSize(w, h) * dpr, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(dpr);
    image.fill(0);
    {
        QPainter painter(&image);
        painter.setFont(font());
        painter.setPen(palette().color(foregroundRole()));
        painter.setBackground(palette().brush(backgroundRole()));

        QLinearGradient gradient(0, kRulerBaseline, 0, (h + kRulerBaseline) / 2);
        gradient.setColorAt(0, QColor(119, 187, 207));
        gradient.setColorAt(1, QColor(36, 94, 172));
        gradient.setSpread(QGradient::PadSpread);

        // While a new selection is drawn leftwards the end lies before the
        // begin; the panel then spans from the end to the begin.
        const CWaveModel& m = *m_model;
        const long long first = std::min(m.beginTime(), m.endTime());
        const long long last = std::max(m.beginTime(), m.endTime());
        const int left = static_cast<int>(first / m.msPerPixel() - m.scrollX());
        const int right = left - 1 + static_cast<int>((last - first) / m.msPerPixel());
        const QRect panel(QPoint(left, kRulerBaseline + 1), QPoint(right, h));
        painter.setRenderHint(QPainter::Antialiasing, true);
        painter.fillPath(roundRectPath(panel), gradient);
        painter.setRenderHint(QPainter::Antialiasing, false);

        drawWave(&painter, w, h);
        highLightSelectArea(&image);
        drawFades(&painter, panel);
        drawTimeScale(&painter, w, h);
        drawPlay(&painter, w, h);
        if (hasFocus()) {
            // The keyboard's focus: a ring inside the edge, as the controls'.
            painter.setPen(QPen(QColor(50, 160, 251), 2));
            painter.drawRect(QRectF(1, 1, w - 2, h - 2));
        }
    }

    QPainter widgetPainter(this);
    widgetPainter.drawImage(0, 0, image);
}

QPainterPath CWaveWnd::roundRectPath(const QRect& rect)
{
    const int left = rect.left();
    const int top = rect.top();
    const int right = rect.right();
    const int bottom = rect.bottom();
    const int shortSide = std::min(rect.width(), rect.height());
    const int half = shortSide / 2;
    const int d = half / 4;

    // The lines aim at half the short side while the corner arcs use squares
    // of side d; the resulting outline, back-stroke included, is the look.
    QPainterPath path;
    path.moveTo(right, top + half);
    path.arcTo(right - d, top, d, d, 0.0, 90.0);
    path.lineTo(left + half, top);
    path.arcTo(left, top, d, d, 90.0, 90.0);
    path.lineTo(left, bottom - half);
    path.arcTo(left, bottom - d, d, d, 180.0, 90.0);
    path.lineTo(left + half, bottom);
    path.arcTo(right - d, bottom - d, d, d, 270.0, 90.0);
    path.closeSubpath();
    return path;
}

void CWaveWnd::drawWave(QPainter* painter, int width, int height)
{
    tagWaveInfo& wave = m_playback->record();
    if (!wave.peakTable)
        return;
    const int scrollX = m_model->scrollX();
    const float framesPerPixel = m_model->framesPerPixel();
    const CWaveColumns::Layout layout =
        CWaveColumns::layout(width, height, m_model->totalWidth(), scrollX);
    const int centreY = layout.centreY;
    const int amplitudeHeight = layout.amplitudeHeight;

    int columns = layout.columns;
    if (columns <= 0 || framesPerPixel <= 0.0f)
        return;

    void* samples = nullptr;
    if (framesPerPixel < kPeakBlock) {
        // Keeps the raw read (plus the frame the reduction may look ahead)
        // inside the engine's 4 MiB buffer.
        const long long bufferFrames =
            static_cast<long long>(kWaveRawBufferBytes) / std::max<int>(1, wave.frameBytes);
        const long long fit =
            static_cast<long long>(std::floor(bufferFrames / double(framesPerPixel))) - 1;
        columns = static_cast<int>(std::min<long long>(columns, fit));
        if (columns <= 0)
            return;
        samples = WaveHelperGetRawData(&wave, static_cast<int>(scrollX * framesPerPixel),
                                       static_cast<int>(columns * framesPerPixel));
    } else {
        // Never walks past the last entry of the peak table.
        // (The walk reads at least two pairs.)
        const long long available =
            wave.peakCount - CWaveColumns::firstPeakBlock(scrollX, framesPerPixel);
        const long long fit = available < 2
                                  ? 0
                                  : static_cast<long long>(std::floor(
                                        double(available) * kPeakBlock / double(framesPerPixel)));
        columns = static_cast<int>(std::min<long long>(columns, fit));
        if (columns <= 0)
            return;
        samples = wave.peakTable;
    }
    if (!samples)
        return;

    QPoint* pts = points.get();
    const unsigned int cols = static_cast<unsigned int>(columns);
    int count = 0;
    switch (wave.formatKey) {
    case WAVE_U8_MONO:
        // 8-bit mono is reduced but deliberately never drawn.
        CWaveColumns::reduce<quint8>(pts, scrollX, framesPerPixel, centreY, cols, amplitudeHeight,
                                     samples, 1);
        return;
    case WAVE_U8_STEREO:
        count = CWaveColumns::reduce<quint8>(pts, scrollX, framesPerPixel, centreY, cols,
                                             amplitudeHeight, samples, 2);
        break;
    case WAVE_S16_MONO:
        count = CWaveColumns::reduce<qint16>(pts, scrollX, framesPerPixel, centreY, cols,
                                             amplitudeHeight, samples, 1);
        break;
    case WAVE_S16_STEREO:
        count = CWaveColumns::reduce<qint16>(pts, scrollX, framesPerPixel, centreY, cols,
                                             amplitudeHeight, samples, 2);
        break;
    default:
        return;
    }
    if (count <= 0)
        return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, false);
    painter->setPen(QPen(QColor(kWaveColour), 1));
    painter->drawPolyline(pts, count);
    painter->restore();
}

void CWaveWnd::highLightSelectArea(QImage* image)
{
    const CWaveModel& m = *m_model;
    int a = static_cast<int>(m.beginTime() / m.msPerPixel() - m.scrollX());
    int b = static_cast<int>(m.endTime() / m.msPerPixel() - m.scrollX());
    if (a > b)
        std::swap(a, b);
    // The image may hold several device pixels per logical one.
    const qreal dpr = image->devicePixelRatio();
    b = std::min(b, static_cast<int>(image->width() / dpr));
    const int from = a < 0 ? 0 : a + 1;
    if (from >= b)
        return;
    const int fromX = static_cast<int>(from * dpr);
    const int toX = std::min(static_cast<int>(b * dpr), image->width());
    // Only opaque wave-grey pixels change: the wave inside the selection.
    for (int y = static_cast<int>(kRulerBaseline * dpr); y < image->height(); ++y) {
        QRgb* line = reinterpret_cast<QRgb*>(image->scanLine(y));
        for (int x = fromX; x < toX; ++x) {
            if (line[x] == kWaveColour)
                line[x] = kWaveSelectedColour;
        }
    }
}

void CWaveWnd::drawFades(QPainter* painter, const QRect& panel)
{
    if (!m_playback->isOpen() || panel.width() <= 0)
        return;
    const CWaveModel& m = *m_model;
    // Where the engine puts the fades: whole seconds, the fade-out one
    // second past the selection's last second.
    struct Ramp
    {
        long long from;
        long long to;
        bool rising;
    };
    QVarLengthArray<Ramp, 2> ramps;
    const long long second = 1000;
    if (m_playback->isFadeInOn() && m_playback->getFadeInLength() > 0) {
        const long long from = m.beginTime() / second * second;
        ramps.append({from, from + m_playback->getFadeInLength() * second, true});
    }
    if (m_playback->isFadeOutOn() && m_playback->getFadeOutLength() > 0) {
        const long long from = (m.endTime() / second - m_playback->getFadeOutLength()) * second;
        ramps.append({from, from + (m_playback->getFadeOutLength() + 1) * second, false});
    }
    if (ramps.isEmpty())
        return;
    painter->save();
    painter->setClipRect(panel);
    painter->setRenderHint(QPainter::Antialiasing, true);
    const qreal top = panel.top();
    const qreal bottom = panel.bottom();
    for (const Ramp& r : ramps) {
        const qreal x0 = r.from / m.msPerPixel() - m.scrollX();
        const qreal x1 = r.to / m.msPerPixel() - m.scrollX();
        // The part the fade takes away is veiled; the ramp is the gain.
        QPolygonF veil;
        if (r.rising)
            veil << QPointF(x0, top) << QPointF(x1, top) << QPointF(x0, bottom);
        else
            veil << QPointF(x0, top) << QPointF(x1, top) << QPointF(x1, bottom);
        painter->setPen(Qt::NoPen);
        painter->setBrush(QColor(255, 255, 255, 120));
        painter->drawPolygon(veil);
        painter->setPen(QPen(QColor(255, 255, 255, 230), 1.5));
        painter->drawLine(r.rising ? QLineF(x0, bottom, x1, top) : QLineF(x0, top, x1, bottom));
    }
    painter->restore();
}

namespace {

// The ruler's steps: a label every `label` ms, a tick every `tick` ms.
struct RulerStep
{
    long long label;
    long long tick;
};
constexpr RulerStep kRulerSteps[] = {{5000, 1000},      {10000, 2000},      {15000, 5000},
                                     {30000, 10000},    {60000, 10000},     {300000, 60000},
                                     {600000, 120000},  {900000, 300000},   {1800000, 600000},
                                     {3600000, 600000}, {7200000, 1800000}, {18000000, 3600000}};
// Labels stand at least this far apart, ticks at least this far.
constexpr double kMinLabelSpacing = 90.0;
constexpr double kMinTickSpacing = 6.0;

} // namespace

void CWaveWnd::drawTimeScale(QPainter* painter, int width, int height)
{
    const int scrollX = m_model->scrollX();
    const double msPerPixel = m_model->msPerPixel();
    painter->setPen(QPen(QColor(86, 86, 86), 1));
    QFont rulerFont = font();
    rulerFont.setPixelSize(9);
    painter->setFont(rulerFont);

    // Labels fall on round times (every 5, 10, 15 or 30 seconds or minutes,
    // as the zoom allows), so they keep their times while scrolling.
    RulerStep step = kRulerSteps[std::size(kRulerSteps) - 1];
    for (const RulerStep& candidate : kRulerSteps) {
        if (candidate.label / msPerPixel >= kMinLabelSpacing) {
            step = candidate;
            break;
        }
    }
    long long tick = step.tick;
    while (tick / msPerPixel < kMinTickSpacing && tick < step.label)
        tick = step.label;

    // The faint grid lines go down in one batch after the ticks: they only
    // meet a tick on the baseline row, which the baseline covers anyway.
    // Each is drawn in pieces of at most 80 rows: the raster engine hands a
    // translucent fill of 96 rows or more to its thread pool, and on a small
    // machine that hand-over costs ten times the fill (same pixels either way).
    QVarLengthArray<QLine, 1024> grid;
    auto addGridLine = [&grid, height](int gx) {
        for (int y = kRulerBaseline; y <= height; y += 80)
            grid.append(QLine(gx, y, gx, std::min(y + 79, height)));
    };
    const long long leftMs = static_cast<long long>(scrollX * msPerPixel);
    const long long rightMs = static_cast<long long>((scrollX + width + 1) * msPerPixel);
    for (long long t = leftMs / tick * tick; t <= rightMs; t += tick) {
        const int x = static_cast<int>(std::lround(t / msPerPixel)) - scrollX;
        if (x < 0 || x > width)
            continue;
        int top = 16;
        const bool labelled = t % step.label == 0;
        if (labelled) {
            const long long hours = t / 3600000;
            const long long minutes = t / 60000 - 60 * hours;
            const long long seconds = t / 1000 - 3600 * hours - 60 * minutes;
            const QString text =
                QString::asprintf("%02d:%02d:%02d", int(hours), int(minutes), int(seconds));
            painter->drawText(x == 0 ? 2 : x - 20, 10, text);
            top = 13;
        }
        painter->drawLine(x, top, x, kRulerBaseline);
        // The faint grid marks the labelled times only.
        if (labelled && x > 0)
            addGridLine(x);
    }
    // The start of the song has a short line below the ruler.
    if (scrollX / 5 == 0)
        painter->drawLine(0, kRulerBaseline, 0, 28);
    painter->save();
    painter->setPen(QPen(QColor(37, 37, 37), 1));
    painter->setOpacity(0.05);
    painter->drawLines(grid.constData(), int(grid.size()));
    painter->restore();
    painter->drawLine(0, kRulerBaseline, width, kRulerBaseline);
}

void CWaveWnd::drawPlay(QPainter* painter, int /*width*/, int /*height*/)
{
    // Without a wave there is nothing to play: no cursor.
    if (!m_playback->isOpen())
        return;
    // QPixmap keeps decoded resources in its cache: no decoding per paint.
    const QPixmap marker(":/wave/drag");
    const float x = m_model->playPos() / m_model->msPerPixel() - m_model->scrollX();
    painter->drawPixmap(static_cast<int>(x - marker.width() / 2), 1, marker);
}
