#include "editor/waveplayback.h"

#include "editor/wavemodel.h"

#include <QTimer>

#include <algorithm>
#include <cstring>

namespace {

constexpr int kMaxVolume = 256;
constexpr int kVolumeStep = 10;
// The previous position within this much of the song's end rewinds.
constexpr long long kEndMargin = 100;

} // namespace

CWavePlayback::CWavePlayback(CWaveModel& model, QObject* parent)
    : QObject(parent), m_model(model), playTimer(new QTimer(this)), bPreview(false),
      fadeOutOn(false), fadeInOn(false), fadeInLength(5), fadeOutLength(5)
{
    std::memset(&wave, 0, sizeof wave);
    playTimer->setInterval(kPlayTimerInterval);
    connect(playTimer, &QTimer::timeout, this, &CWavePlayback::tick);
}

CWavePlayback::~CWavePlayback()
{
    // Frees the audio device and the engine's files; no signals while dying.
    WaveHelperUninit(&wave);
}

// --- the engine record ---------------------------------------------------------

int CWavePlayback::open(const QString& wavePath)
{
    const int rc = WaveHelperInit(wavePath.toLocal8Bit().constData(), &wave);
    m_model.setFrameCount(wave.frameCount);
    return rc;
}

void CWavePlayback::release()
{
    WaveHelperUninit(&wave);
    m_model.setFrameCount(0);
}

void CWavePlayback::close()
{
    release();
    emit onStop();
}

void CWavePlayback::closeForExport()
{
    // The temporary WAV stays as it was decoded: with the gain, the fades
    // and the volume off the record, closing writes nothing back, and the
    // same file opens again after the export.
    WaveHelperSetGain(&wave, nullptr);
    putFades(&wave, false);
    WaveHelperChangeVolume(&wave, 100);
    release();
    emit onPause(bPreview);
}

int CWavePlayback::engineState()
{
    return WaveHelperGetState(&wave);
}

long long CWavePlayback::enginePos()
{
    return WaveHelperGetPos(&wave);
}

// --- effects and volume ----------------------------------------------------------

void CWavePlayback::applyEffect(bool on)
{
    putFades(&wave, on);
}

tagWaveInfo CWavePlayback::exportLayout() const
{
    tagWaveInfo layout = spanLayout(wave);
    putFades(&layout, true);
    return layout;
}

void CWavePlayback::putFades(tagWaveInfo* record, bool on) const
{
    // Whole seconds: the engine places fades at second boundaries.
    if (on && fadeInOn)
        WaveHelperFadeIn(record, static_cast<int>(m_model.beginTime() / 1000), fadeInLength);
    else
        WaveHelperFadeIn(record, -1, 0);
    if (on && fadeOutOn)
        WaveHelperFadeOut(record, static_cast<int>(m_model.endTime() / 1000 - fadeOutLength),
                          fadeOutLength);
    else
        WaveHelperFadeOut(record, -1, 0);
}

LoudnessSettings CWavePlayback::loudnessSettings() const
{
    LoudnessSettings settings;
    settings.volume = wave.volume;
    settings.targetLufs = m_target;
    return settings;
}

void CWavePlayback::setPreviewLevels(std::shared_ptr<const SpanLevels> levels)
{
    // Off the engine before the old levels may go.
    WaveHelperSetGain(&wave, nullptr);
    m_levels = std::move(levels);
    installGain();
}

void CWavePlayback::installGain()
{
    const bool use = bPreview && m_levels && !m_levels->isIdentity() && wave.frameBytes != 0;
    if (use) {
        m_gain.firstFrame = m_levels->firstFrame;
        m_gain.frames = m_levels->frames;
        m_gain.gain = m_levels->gain;
        m_gain.envelope = m_levels->envelope.empty() ? nullptr : m_levels->envelope.data();
    }
    WaveHelperSetGain(&wave, use ? &m_gain : nullptr);
}

void CWavePlayback::setVolume(int volume)
{
    WaveHelperChangeVolume(&wave, std::clamp(volume, 0, kMaxVolume));
}

void CWavePlayback::volumeAdd()
{
    // The last step up lands on 256 from anywhere in 246..255.
    WaveHelperChangeVolume(&wave, wave.volume < kMaxVolume - kVolumeStep ? wave.volume + kVolumeStep
                                                                         : kMaxVolume);
    emit volumeChange(wave.volume);
}

void CWavePlayback::volumeReduce()
{
    // The last step down lands on 0 from anywhere in 1..10.
    WaveHelperChangeVolume(&wave, wave.volume > kVolumeStep ? wave.volume - kVolumeStep : 0);
    emit volumeChange(wave.volume);
}

// --- playing -----------------------------------------------------------------------

bool CWavePlayback::isTimerActive() const
{
    return playTimer->isActive();
}

void CWavePlayback::do_play()
{
    applyEffect(bPreview);
    installGain();
    installLoop();
    if (WaveHelperPlay(&wave) == 0) {
        // It was playing: the engine toggled to pause.
        pause();
        return;
    }
    playTimer->start();
    emit onPlay(m_model.playPos(), bPreview);
}

void CWavePlayback::play()
{
    if (bPreview) {
        // Leaving preview restarts the song from its beginning.
        bPreview = false;
        WaveHelperPause(&wave);
        WaveHelperSetPos(&wave, 0);
    } else {
        WaveHelperSetPos(&wave, m_model.playPos());
    }
    do_play();
}

void CWavePlayback::preview()
{
    const long long playPos = m_model.playPos();
    if (bPreview && m_model.beginTime() <= playPos && playPos < m_model.endTime()) {
        do_play();
        return;
    }
    WaveHelperStop(&wave);
    WaveHelperSetPos(&wave, m_model.beginTime());
    bPreview = true;
    do_play();
}

void CWavePlayback::pause()
{
    playTimer->stop();
    WaveHelperPause(&wave);
    emit changed();
    emit onPause(bPreview);
}

void CWavePlayback::stop()
{
    playTimer->stop();
    WaveHelperStop(&wave);
    release();
    emit onStop();
}

void CWavePlayback::tick()
{
    // The user is dragging the play cursor: the engine's position must not
    // pull it back.
    if (m_model.mouseMode() == MM_PLAY_CURSOR)
        return;
    const long long pos = WaveHelperGetPos(&wave);
    if (bPreview && pos > m_model.endTime() && !m_looping) {
        pause();
        m_model.setPlayPos(m_model.endTime());
        bPreview = false;
        WaveHelperSetPos(&wave, m_model.playPos());
        emit changed();
        return;
    }
    // Judged on the previous position: within 100 ms of the end rewinds.
    if (m_model.playPos() + kEndMargin >= m_model.maxTime()) {
        pause();
        m_model.setPlayPos(0);
        WaveHelperSetPos(&wave, 0);
        emit changed();
        return;
    }
    if (static_cast<int>(pos / m_model.msPerPixel()) - m_model.scrollX() > m_model.viewWidth()) {
        m_model.setScrollX(m_model.scrollX() + m_model.viewWidth());
        emit scrolled(m_model.scrollX());
    }
    m_model.setPlayPos(pos);
    emit playPosChange(pos);
    emit changed();
}

void CWavePlayback::setLooping(bool on)
{
    m_looping = on;
    installLoop();
}

void CWavePlayback::selectionChanged()
{
    installLoop();
}

void CWavePlayback::installLoop()
{
    if (bPreview && m_looping && isOpen())
        WaveHelperSetLoop(&wave, spanFrameAt(m_model.beginTime(), wave.sampleRate),
                          spanFrameAt(m_model.endTime(), wave.sampleRate));
    else
        WaveHelperSetLoop(&wave, 0, 0);
}

void CWavePlayback::seek(long long ms)
{
    if (!isOpen())
        return;
    const long long to = std::clamp<long long>(ms, 0, static_cast<long long>(m_model.maxTime()));
    m_model.setPlayPos(to);
    if (WaveHelperGetState(&wave) == WAVE_PLAYING)
        cursorMoved();
    else
        WaveHelperSetPos(&wave, to);
    emit playPosChange(to);
    emit changed();
}

void CWavePlayback::cursorMoved()
{
    if (WaveHelperGetState(&wave) != WAVE_PLAYING)
        return;
    // Playback goes on from the new place.
    WaveHelperPause(&wave);
    WaveHelperSetPos(&wave, m_model.playPos());
    do_play();
}
