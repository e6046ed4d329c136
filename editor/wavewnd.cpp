// CWaveWnd state and slots: forwards times, zoom and playback to the
// editor's parts and turns their changes into signals, scroll-bar moves and
// repaints. Drawing is in wavewnd_paint.cpp, the mouse in wavewnd_mouse.cpp,
// import and export in wavewnd_io.cpp.

#include "editor/wavewnd.h"

#include "editor/ringtoneexport.h"
#include "editor/selectionlevels.h"
#include "editor/spansuggest.h"
#include "editor/wavecolumns.h"
#include "editor/waveio.h"
#include "editor/wavemodel.h"
#include "editor/waveplayback.h"
#include "engine/timeconvert.h"

#include <QDebug>
#include <QResizeEvent>
#include <QScrollBar>
#include <QShowEvent>

#include <algorithm>
#include <limits>

namespace {

// Times travel as 32-bit milliseconds into the clock-time conversion.
QTime toTime(long long ms)
{
    return CTimeConvert::longToTime(static_cast<long>(static_cast<qint32>(ms)));
}

// What no wave's page length is.
constexpr int kEmptyPageLength = 100;

// A time as a listener says it: 3:25, or 1:02:03 past an hour.
QString spoken(long long ms)
{
    const long long s = std::max(0LL, ms) / 1000;
    if (s >= 3600)
        return QString::asprintf("%lld:%02lld:%02lld", s / 3600, s / 60 % 60, s % 60);
    return QString::asprintf("%lld:%02lld", s / 60, s % 60);
}

} // namespace

CWaveWnd::CWaveWnd(QWidget* parent, CProgressWait* progressWait)
    : QWidget(parent), scrollBar(nullptr), reservedConst(11),
      m_model(std::make_unique<CWaveModel>()),
      m_playback(std::make_unique<CWavePlayback>(*m_model)),
      m_io(std::make_unique<CWaveIo>(*m_playback, progressWait)),
      m_export(std::make_unique<CRingtoneExport>(*m_model, *m_playback, *m_io)),
      m_levels(std::make_unique<CSelectionLevels>()), m_suggest(std::make_unique<CSpanSuggest>()),
      points(new QPoint[CWaveColumns::kPointCount]())
{
    m_model->setViewWidthSource([this] { return width(); });
    setContentsMargins(0, 0, 0, 0);
    setFocusPolicy(Qt::StrongFocus);
    describeKeys();
    describeSelection();
    initScrollBar();
    setAcceptDrops(true);

    CWavePlayback* p = m_playback.get();
    connect(p, &CWavePlayback::onPlay, this, &CWaveWnd::onPlay);
    connect(p, &CWavePlayback::onPause, this, &CWaveWnd::onPause);
    connect(p, &CWavePlayback::onStop, this, &CWaveWnd::onStop);
    connect(p, &CWavePlayback::playPosChange, this, &CWaveWnd::playPosChange);
    connect(p, &CWavePlayback::volumeChange, this, &CWaveWnd::volumeChange);
    connect(p, &CWavePlayback::scrolled, this, [this](int x) { scrollBar->setValue(x); });
    connect(p, &CWavePlayback::changed, this, qOverload<>(&QWidget::update));
    connect(p, &CWavePlayback::volumeChange, this, &CWaveWnd::refreshLevels);
    connect(m_levels.get(), &CSelectionLevels::measuring, this, [this] {
        const double unknown = std::numeric_limits<double>::quiet_NaN();
        emit loudnessChange(unknown, unknown);
    });
    connect(m_levels.get(), &CSelectionLevels::measured, this, &CWaveWnd::levelsMeasured);
}

// The parts go first (the engine is closed then), without signals while dying.
CWaveWnd::~CWaveWnd() = default;

// --- small helpers ---------------------------------------------------------

int CWaveWnd::drawHeight() const
{
    return height() - scrollBar->height() - 2;
}

void CWaveWnd::emitSelectChange()
{
    m_playback->selectionChanged();
    describeSelection();
    emit selectChange(toTime(m_model->beginTime()), toTime(m_model->endTime()));
    refreshLevels();
}

void CWaveWnd::describeKeys()
{
    setAccessibleDescription(
        tr("Space plays, Shift+Space previews the selection, I and O set its start and end, Alt "
           "and Ctrl with the arrow keys move its edges"));
}

void CWaveWnd::describeSelection()
{
    if (!m_playback->isOpen()) {
        setAccessibleName(tr("Waveform, no song open"));
        return;
    }
    setAccessibleName(tr("Selection %1 to %2 of %3")
                          .arg(spoken(m_model->beginTime()), spoken(m_model->endTime()),
                               spoken(static_cast<long long>(m_model->maxTime()))));
}

void CWaveWnd::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        describeKeys();
        describeSelection();
    }
    QWidget::changeEvent(event);
}

void CWaveWnd::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    update(); // the focus frame
}

void CWaveWnd::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    update();
}

void CWaveWnd::showTime(long long ms)
{
    const int x = m_model->timeToX(ms);
    if (x < 0 || x >= width())
        scrollBar->setValue(std::clamp(static_cast<int>(ms / m_model->msPerPixel()) - width() / 2,
                                       0, std::max(0, m_model->scrollRange())));
}

void CWaveWnd::scrollBy(int step)
{
    if (step != 0)
        scrollBar->setValue(scrollBar->value() + step);
}

// --- selection ---------------------------------------------------------------

void CWaveWnd::setBeginTime(long long t)
{
    m_model->setBeginTime(t);
    emitSelectChange();
    update();
}

void CWaveWnd::setEndTime(long long t)
{
    m_model->setEndTime(t);
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
    setBeginTime(m_model->playPos());
}

void CWaveWnd::setEndTime()
{
    setEndTime(m_model->playPos());
}

QTime CWaveWnd::getBeginTime()
{
    return toTime(m_model->beginTime());
}

QTime CWaveWnd::getEndTime()
{
    return toTime(m_model->endTime());
}

QTime CWaveWnd::getMaxTime()
{
    return toTime(static_cast<long long>(m_model->maxTime()));
}

int CWaveWnd::getLength()
{
    return m_model->totalWidth();
}

int CWaveWnd::getPageLength()
{
    return m_playback->isOpen() ? width() : kEmptyPageLength;
}

// --- effects and volume ------------------------------------------------------

void CWaveWnd::fadeIn(int n)
{
    m_playback->setFadeInLength(n);
    refreshLevels();
}

void CWaveWnd::fadeOut(int n)
{
    m_playback->setFadeOutLength(n);
    refreshLevels();
}

void CWaveWnd::enableFadeIn(bool on)
{
    m_playback->enableFadeIn(on);
    refreshLevels();
}

void CWaveWnd::enableFadeOut(bool on)
{
    m_playback->enableFadeOut(on);
    refreshLevels();
}

void CWaveWnd::applyEffect(bool on)
{
    m_playback->applyEffect(on);
}

void CWaveWnd::setVolume(int volume)
{
    m_playback->setVolume(volume);
    refreshLevels();
}

void CWaveWnd::setLoudnessTarget(double lufs)
{
    m_playback->setLoudnessTarget(lufs);
    refreshLevels();
}

void CWaveWnd::refreshLevels()
{
    if (!m_playback->isOpen()) {
        m_levels->clear();
        return;
    }
    LevelsRequest request;
    request.path = m_io->getWavePath();
    request.wave = m_playback->exportLayout();
    request.beginMs = m_model->beginTime();
    request.endMs = m_model->endTime();
    request.settings = m_playback->loudnessSettings();
    m_levels->request(request);
}

void CWaveWnd::levelsMeasured()
{
    const std::shared_ptr<const SpanLevels> levels = m_levels->current();
    if (!levels)
        return;
    // Preview plays the selection as the export will write it.
    m_playback->setPreviewLevels(levels);
    emit loudnessChange(levels->lufs, levels->truePeak);
}

void CWaveWnd::volumeAdd()
{
    m_playback->volumeAdd();
}

void CWaveWnd::volumeReduce()
{
    m_playback->volumeReduce();
}

// --- mouse modes set from outside ------------------------------------------

void CWaveWnd::select()
{
    m_model->setMouseMode(MM_SELECT);
}

void CWaveWnd::move()
{
    setMouseTracking(false);
    m_model->setMouseMode(MM_MOVE);
}

void CWaveWnd::adjust()
{
    m_model->setMouseMode(MM_END_EDGE);
}

// --- zoom and scrolling ------------------------------------------------------

float CWaveWnd::getMaxZoom()
{
    return kMaxZoom;
}

float CWaveWnd::getMinZoom()
{
    return m_model->minZoom();
}

void CWaveWnd::zoom(float factor)
{
    const float z = m_model->zoom(factor);
    emit zoomChange(z);
    updateScrollbar();
    update();
}

void CWaveWnd::zoomIn()
{
    const float target = m_model->zoomInTarget();
    if (target >= 0.0f)
        zoom(target);
}

void CWaveWnd::zoomOut()
{
    const float target = m_model->zoomOutTarget();
    if (target >= 0.0f)
        zoom(target);
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
    if (m_model->totalWidth() < 1)
        return;
    const int barHeight = scrollBar->height();
    scrollBar->setGeometry(0, height() - barHeight, width(), barHeight);
    // setRange may clamp the old value and report it; the new one wins.
    const int value = m_model->scrollX();
    scrollBar->setRange(0, m_model->scrollRange());
    scrollBar->setPageStep(width());
    scrollBar->setSingleStep(1);
    scrollBar->setValue(value);
}

void CWaveWnd::moveRequest(int value)
{
    m_model->setScrollX(value);
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
    m_model->reset();
    m_playback->endPreview();
    closeWave();

    const int result = m_playback->open(m_io->getWavePath());
    if (result < 0) {
        closeWave();
        qDebug().noquote() << "WaveHelperInit failed";
        update();
        return result;
    }

    const tagWaveInfo& wave = m_playback->record();
    m_model->load(wave.frameCount, wave.sampleRate);
    m_suggest->start(m_io->getWavePath(), wave, kSuggestionLengthMs);
    scrollBar->show();
    updateScrollbar();
    emit waveOpened(m_io->getNode());
    emitSelectChange();
    emit playPosChange(0);
    update();
    return result;
}

void CWaveWnd::closeWave()
{
    m_playback->close();
    m_levels->clear();
    m_suggest->clear();
    m_playback->setPreviewLevels(nullptr);
    describeSelection();
}

// --- playback ----------------------------------------------------------------

void CWaveWnd::do_play()
{
    m_playback->do_play();
}

void CWaveWnd::play()
{
    m_playback->play();
}

void CWaveWnd::preview()
{
    m_playback->preview();
}

void CWaveWnd::pause()
{
    m_playback->pause();
}

void CWaveWnd::stop()
{
    m_playback->stop();
}

void CWaveWnd::timerEvent()
{
    m_playback->tick();
}

// --- keyboard ------------------------------------------------------------------

void CWaveWnd::togglePlay()
{
    if (!m_playback->isOpen())
        return;
    if (m_playback->engineState() == WAVE_PLAYING)
        pause();
    else
        play();
}

void CWaveWnd::togglePreview()
{
    if (!m_playback->isOpen())
        return;
    // A preview that plays pauses; anything else previews from the begin.
    preview();
}

void CWaveWnd::pausePlaying()
{
    if (m_playback->isOpen() && m_playback->engineState() == WAVE_PLAYING)
        pause();
}

void CWaveWnd::setLooping(bool on)
{
    m_playback->setLooping(on);
}

void CWaveWnd::seekTo(long long ms)
{
    if (!m_playback->isOpen())
        return;
    m_playback->seek(ms);
    showTime(m_model->playPos());
}

void CWaveWnd::seekBy(long long ms)
{
    seekTo(m_model->playPos() + ms);
}

void CWaveWnd::toBegin()
{
    seekTo(m_model->beginTime());
}

void CWaveWnd::toEnd()
{
    seekTo(m_model->endTime());
}

void CWaveWnd::nudgeBegin(long long ms)
{
    if (!m_playback->isOpen() || !m_model->nudgeBeginEdge(ms))
        return;
    showTime(m_model->beginTime());
    emitSelectChange();
    update();
}

void CWaveWnd::nudgeEnd(long long ms)
{
    if (!m_playback->isOpen() || !m_model->nudgeEndEdge(ms))
        return;
    showTime(m_model->endTime());
    emitSelectChange();
    update();
}

void CWaveWnd::setSelection(long long begin, long long end)
{
    m_model->setSelection(begin, end);
    emitSelectChange();
    update();
}
