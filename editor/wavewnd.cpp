// CWaveWnd state, slots and the play timer: times, selection, zoom, scroll
// bar, loading and playback. Drawing is in wavewnd_paint.cpp, the mouse in
// wavewnd_mouse.cpp.

#include "editor/wavewnd.h"

#include "engine/timeconvert.h"

#include <QDebug>
#include <QResizeEvent>
#include <QScrollBar>
#include <QShowEvent>
#include <QTimer>

#include <algorithm>
#include <cmath>

namespace {

constexpr long long kMinSelection = 5000;
constexpr long long kDefaultSelection = 40000;
constexpr float kMaxZoom = 5.0f;

// Times travel as 32-bit milliseconds into the clock-time conversion.
QTime toTime(long long ms)
{
    return CTimeConvert::longToTime(static_cast<long>(static_cast<qint32>(ms)));
}

} // namespace

CWaveWnd::CWaveWnd(QWidget* parent, CProgressDlg* dlg)
    : QWidget(parent), scrollBar(nullptr), reservedConst(11), playTimer(nullptr), playPos(0),
      totalWidth(0), scrollX(0), mouseMode(0), endTime(144000000), beginTime(0), dragX(0),
      msPerPixel(100.0f), maxZoomValue(kMaxZoom), fitMsPerPixel(0.0f), msPerFrame(0.0f),
      framesPerPixel(0.0f), maxTime(0.0f), points(new QPoint[kPointCount]()), wave(),
      bPreview(false), progressDlg(dlg), fadeOutOn(false), fadeInOn(false), fadeInLength(5),
      fadeOutLength(5), zoomFactor(1.0f)
{
    setContentsMargins(0, 0, 0, 0);
    initScrollBar();
    setAcceptDrops(true);
    playTimer = new QTimer(this);
    playTimer->setInterval(50);
    connect(playTimer, &QTimer::timeout, this, qOverload<>(&CWaveWnd::timerEvent));
}

CWaveWnd::~CWaveWnd()
{
    // Frees the audio device and the engine's files; no signals while dying.
    WaveHelperUninit(&wave);
}

// --- small helpers ---------------------------------------------------------

int CWaveWnd::timeToX(long long t) const
{
    return static_cast<int>(t / msPerPixel - scrollX);
}

long long CWaveWnd::xToTime(int x) const
{
    return std::llround((x + scrollX) * msPerPixel);
}

int CWaveWnd::drawHeight() const
{
    return height() - scrollBar->height() - 2;
}

void CWaveWnd::emitSelectChange()
{
    emit selectChange(toTime(beginTime), toTime(endTime));
}

// --- selection ---------------------------------------------------------------

void CWaveWnd::setBeginTime(long long t)
{
    const long long oldBegin = beginTime;
    long long end = endTime;
    beginTime = t;
    // Moving the begin to the right drags the end along by the same amount.
    if (t >= oldBegin) {
        end = end - oldBegin + t;
        if (!(end < maxTime))
            end = static_cast<long long>(maxTime);
        endTime = end;
    }
    // No lower limit here: a begin near zero may go negative.
    if (end - t < kMinSelection)
        beginTime = end - kMinSelection;
    emitSelectChange();
    update();
}

void CWaveWnd::setEndTime(long long t)
{
    const long long oldEnd = endTime;
    endTime = t;
    // The begin only moves when the end passes it, keeping the old length.
    if (t < beginTime) {
        const long long begin = t - (oldEnd - beginTime);
        beginTime = begin < 0 ? 0 : begin;
    }
    // No upper limit here: the end may pass the song's end.
    if (endTime - beginTime < kMinSelection)
        endTime = beginTime + kMinSelection;
    emitSelectChange();
    update();
}

void CWaveWnd::setBeginTime(QTime t)
{
    setBeginTime(static_cast<long long>(CTimeConvert::timeToLong(t)));
}

void CWaveWnd::setEndTime(QTime t)
{
    setEndTime(static_cast<long long>(CTimeConvert::timeToLong(t)));
}

void CWaveWnd::setBeginTime()
{
    setBeginTime(playPos);
}

void CWaveWnd::setEndTime()
{
    setEndTime(playPos);
}

QTime CWaveWnd::getBeginTime()
{
    return toTime(beginTime);
}

QTime CWaveWnd::getEndTime()
{
    return toTime(endTime);
}

QTime CWaveWnd::getMaxTime()
{
    return toTime(static_cast<long long>(maxTime));
}

int CWaveWnd::getLength()
{
    return totalWidth;
}

int CWaveWnd::getPageLength()
{
    return wave.peakTable ? width() : 100;
}

// --- effects and volume ------------------------------------------------------

void CWaveWnd::fadeIn(int n)
{
    fadeInLength = n;
}

void CWaveWnd::fadeOut(int n)
{
    fadeOutLength = n;
}

void CWaveWnd::enableFadeIn(bool on)
{
    fadeInOn = on;
}

void CWaveWnd::enableFadeOut(bool on)
{
    fadeOutOn = on;
}

void CWaveWnd::applyEffect(bool on)
{
    // Whole seconds: the engine places fades at second boundaries.
    if (on && fadeInOn)
        WaveHelperFadeIn(&wave, static_cast<int>(beginTime / 1000), fadeInLength);
    else
        WaveHelperFadeIn(&wave, -1, 0);
    if (on && fadeOutOn)
        WaveHelperFadeOut(&wave, static_cast<int>(endTime / 1000 - fadeOutLength), fadeOutLength);
    else
        WaveHelperFadeOut(&wave, -1, 0);
}

void CWaveWnd::setVolume(int volume)
{
    WaveHelperChangeVolume(&wave, std::clamp(volume, 0, 256));
}

void CWaveWnd::volumeAdd()
{
    // The last step up lands on 256 from anywhere in 246..255.
    WaveHelperChangeVolume(&wave, wave.volume < 246 ? wave.volume + 10 : 256);
    emit volumeChange(wave.volume);
}

void CWaveWnd::volumeReduce()
{
    // The last step down lands on 0 from anywhere in 1..10.
    WaveHelperChangeVolume(&wave, wave.volume >= 11 ? wave.volume - 10 : 0);
    emit volumeChange(wave.volume);
}

// --- mouse modes set from outside ------------------------------------------

void CWaveWnd::select()
{
    mouseMode = 1;
}

void CWaveWnd::move()
{
    setMouseTracking(false);
    mouseMode = 2;
}

void CWaveWnd::adjust()
{
    mouseMode = 4;
}

// --- zoom and scrolling ------------------------------------------------------

float CWaveWnd::getMaxZoom()
{
    return kMaxZoom;
}

float CWaveWnd::getMinZoom()
{
    // The zoom at which the whole wave fits the widget, but never above 1.
    return std::min(1.0f, 100.0f / (msPerFrame * wave.frameCount / width()));
}

void CWaveWnd::zoom(float factor)
{
    const float z = std::max(getMinZoom(), std::min(factor, kMaxZoom));
    zoomFactor = z;
    // Keeps the time at the left edge where it was.
    const float leftMs = scrollX * msPerPixel;
    msPerPixel = 100.0f / z;
    framesPerPixel = msPerPixel / msPerFrame;
    totalWidth = static_cast<int>(wave.frameCount / framesPerPixel);
    scrollX = static_cast<int>(static_cast<int>(leftMs) / msPerPixel);
    emit zoomChange(z);
    updateScrollbar();
    update();
}

void CWaveWnd::zoomIn()
{
    // 5.0 still steps to 5.5; zoom() clamps it back.
    if (zoomFactor <= kMaxZoom)
        zoom(zoomFactor + 0.5f);
}

void CWaveWnd::zoomOut()
{
    if (getMinZoom() > zoomFactor)
        return;
    zoom(zoomFactor - 0.5f);
}

void CWaveWnd::initScrollBar()
{
    scrollBar = new QScrollBar(Qt::Horizontal, this);
    scrollBar->resize(scrollBar->sizeHint());
    scrollBar->hide();
    connect(scrollBar, &QScrollBar::valueChanged, this, &CWaveWnd::moveRequest);
}

void CWaveWnd::updateScrollbar()
{
    if (totalWidth < 1)
        return;
    const int barHeight = scrollBar->height();
    scrollBar->setGeometry(0, height() - barHeight, width(), barHeight);
    // setRange may clamp the old value and report it; the new one wins.
    const int value = scrollX;
    scrollBar->setRange(0, totalWidth - width());
    scrollBar->setPageStep(width());
    scrollBar->setSingleStep(1);
    scrollBar->setValue(value);
}

void CWaveWnd::moveRequest(int value)
{
    scrollX = value;
    update();
}

void CWaveWnd::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    updateScrollbar();
}

void CWaveWnd::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    // Hover cursors need move events without a pressed button.
    setMouseTracking(true);
}

// --- loading -----------------------------------------------------------------

int CWaveWnd::initWave()
{
    playPos = 0;
    scrollX = 0;
    beginTime = 0;
    endTime = 0;
    dragX = 0;
    maxTime = 0.0f;
    framesPerPixel = 0.0f;
    msPerPixel = 100.0f;
    bPreview = false;
    closeWave();

    const int result = WaveHelperInit(wavePath.toLocal8Bit().constData(), &wave);
    if (result < 0) {
        closeWave();
        qDebug().noquote() << "WaveHelperInit failed";
        update();
        return result;
    }

    msPerFrame = 1000.0f / wave.sampleRate;
    maxTime = wave.frameCount * msPerFrame;
    beginTime = 0;
    // A new song starts with its first 40 seconds selected.
    endTime = maxTime > kDefaultSelection ? kDefaultSelection : std::llround(maxTime);
    maxZoomValue = kMaxZoom;
    zoomFactor = 1.0f;
    msPerPixel = 100.0f;
    fitMsPerPixel = maxTime / width();
    framesPerPixel = 100.0f / msPerFrame;
    totalWidth = static_cast<int>(wave.frameCount / framesPerPixel);

    scrollBar->show();
    updateScrollbar();
    emit waveOpened(node);
    emitSelectChange();
    emit playPosChange(0);
    update();
    return result;
}

void CWaveWnd::closeWave()
{
    WaveHelperUninit(&wave);
    emit onStop();
}

// --- playback ----------------------------------------------------------------

void CWaveWnd::do_play()
{
    applyEffect(bPreview);
    if (WaveHelperPlay(&wave) == 0) {
        // It was playing: the engine toggled to pause.
        pause();
        return;
    }
    playTimer->start();
    emit onPlay(playPos, bPreview);
}

void CWaveWnd::play()
{
    if (bPreview) {
        // Leaving preview restarts the song from its beginning.
        bPreview = false;
        WaveHelperPause(&wave);
        WaveHelperSetPos(&wave, 0);
    } else {
        WaveHelperSetPos(&wave, playPos);
    }
    do_play();
}

void CWaveWnd::preview()
{
    if (bPreview && beginTime <= playPos && playPos < endTime) {
        do_play();
        return;
    }
    WaveHelperStop(&wave);
    WaveHelperSetPos(&wave, beginTime);
    bPreview = true;
    do_play();
}

void CWaveWnd::pause()
{
    playTimer->stop();
    WaveHelperPause(&wave);
    update();
    emit onPause(bPreview);
}

void CWaveWnd::stop()
{
    playTimer->stop();
    WaveHelperStop(&wave);
    WaveHelperUninit(&wave);
    emit onStop();
}

void CWaveWnd::timerEvent()
{
    // The user is dragging the play cursor: the engine's position must not
    // pull it back.
    if (mouseMode == 5)
        return;
    const long long pos = WaveHelperGetPos(&wave);
    if (bPreview && pos > endTime) {
        pause();
        playPos = endTime;
        bPreview = false;
        WaveHelperSetPos(&wave, playPos);
        update();
        return;
    }
    // Judged on the previous position: within 100 ms of the end rewinds.
    if (playPos + 100 >= maxTime) {
        pause();
        playPos = 0;
        WaveHelperSetPos(&wave, 0);
        update();
        return;
    }
    if (static_cast<int>(pos / msPerPixel) - scrollX > width()) {
        scrollX += width();
        scrollBar->setValue(scrollX);
    }
    playPos = pos;
    emit playPosChange(pos);
    update();
}
