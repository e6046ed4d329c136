#include "editor/ringtoneexport.h"

#include "audio/loudnessmeter.h"
#include "editor/ringtonename.h"
#include "editor/spanrender.h"
#include "editor/waveio.h"
#include "editor/wavemodel.h"
#include "editor/waveplayback.h"
#include "engine/convertwraper.h"
#include "engine/progresswait.h"
#include "engine/temporarymark.h"
#include "engine/timelinehelper.h"
#include "library/ItunesWrap.h"

#include <QDebug>
#include <QFile>

#include <cmath>

#include <vexa.h>

namespace {

// Every kind; AAC-LC in an MPEG-4 file is what iPhones take as a ringtone.
constexpr RingtoneFormat kFormats[] = {
    {RingtoneKind::IphoneRingtone, "iphone",
     QT_TRANSLATE_NOOP("CRingtoneExport", "iPhone ringtone"), "mp4", KELO_CODEC_AAC, 128000, ".m4r",
     kRingtoneLimitMs},
    {RingtoneKind::IphoneAlert, "alert", QT_TRANSLATE_NOOP("CRingtoneExport", "iPhone alert tone"),
     "mp4", KELO_CODEC_AAC, 128000, ".m4r", kAlertLimitMs},
    {RingtoneKind::AndroidOgg, "ogg", QT_TRANSLATE_NOOP("CRingtoneExport", "Android (Ogg)"), "ogg",
     KELO_CODEC_VORBIS, 128000, ".ogg", kRingtoneLimitMs},
    {RingtoneKind::AndroidMp3, "mp3", QT_TRANSLATE_NOOP("CRingtoneExport", "Android (MP3)"), "mp3",
     KELO_CODEC_MP3, 128000, ".mp3", kRingtoneLimitMs},
    {RingtoneKind::PlainAac, "m4a", QT_TRANSLATE_NOOP("CRingtoneExport", "AAC audio (.m4a)"), "mp4",
     KELO_CODEC_AAC, 128000, ".m4a", kRingtoneLimitMs}};

} // namespace

CRingtoneExport::CRingtoneExport(CWaveModel& model, CWavePlayback& playback, CWaveIo& io)
    : m_model(model), m_playback(playback), m_io(io)
{
}

const RingtoneFormat* CRingtoneExport::formats(int* count)
{
    *count = int(sizeof kFormats / sizeof kFormats[0]);
    return kFormats;
}

const RingtoneFormat& CRingtoneExport::format(RingtoneKind kind)
{
    for (const RingtoneFormat& f : kFormats)
        if (f.kind == kind)
            return f;
    return kFormats[0];
}

bool CRingtoneExport::kindOfKey(const QString& key, RingtoneKind* kind)
{
    for (const RingtoneFormat& f : kFormats) {
        if (key.compare(QLatin1String(f.key), Qt::CaseInsensitive) == 0) {
            *kind = f.kind;
            return true;
        }
    }
    return false;
}

bool CRingtoneExport::kindOfFile(const QString& path, RingtoneKind* kind)
{
    for (const RingtoneFormat& f : kFormats) {
        if (path.endsWith(QLatin1String(f.extension), Qt::CaseInsensitive)) {
            *kind = f.kind;
            return true;
        }
    }
    return false;
}

QString CRingtoneExport::fileName(const QString& name, RingtoneKind kind)
{
    return safeRingtoneName(name) + QLatin1String(format(kind).extension);
}

bool CRingtoneExport::isTooLong(long long lengthMs, RingtoneKind kind)
{
    // Longer than the limit: a span of exactly the limit is fine.
    return lengthMs > format(kind).lengthLimitMs;
}

QString CRingtoneExport::libraryPath(const QString& name, RingtoneKind kind)
{
    const QString inLibrary = CItunesWraper::instance()->ringtoneDir();
    return inLibrary.isEmpty() ? QString() : inLibrary + "/" + fileName(name, kind);
}

QString CRingtoneExport::replacedInLibrary(const QString& name, RingtoneKind kind)
{
    const QString path = libraryPath(name, kind);
    return !path.isEmpty() && QFile::exists(path) ? path : QString();
}

int CRingtoneExport::addToLibrary(const QString& path)
{
    return CItunesWraper::instance()->AddToItunes(path);
}

void CRingtoneExport::setTags(const QString& title, const QString& artist)
{
    m_title = title;
    m_artist = artist;
}

int CRingtoneExport::exportTo(const QString& path)
{
    if (path.isEmpty())
        return -1;
    qDebug().noquote() << "convert m4r:" << path;
    // A leftover of the same name goes before the engine writes there.
    if (QFile::exists(path))
        QFile::remove(path);

    // The selection with its fades, read while the engine still knows the
    // file's layout; the render only reads the temporary WAV.
    CSpanRender span;
    // The written file is what gets measured, when anything is.
    span.setMeasureResult(false);
    const bool haveSpan = span.read(m_playback.exportLayout(), m_io.getWavePath(),
                                    m_model.beginTime(), m_model.endTime());
    const LoudnessSettings settings = m_playback.loudnessSettings();
    if (m_playback.isOpen())
        m_playback.closeForExport();
    m_handedOver = false;
    m_written = WrittenLevels();
    if (!haveSpan) {
        qWarning().noquote() << "convert m4r: the selection could not be read from"
                             << m_io.getWavePath();
        return -2;
    }

    // The song's own artist when none was given (the temporary WAV has no tags).
    QString artist = m_artist;
    if (artist.isEmpty()) {
        MediaStreams song;
        if (CTimeLineHelper::probe(m_io.getNode().strPath.toLocal8Bit().constData(), &song))
            artist = song.artist;
    }
    const int rc = render(span, settings, path, ConvertTags{m_title.toUtf8(), artist.toUtf8()});
    if (rc < 0)
        return rc;
    if (m_exportOnly)
        return 0;
    m_handedOver = addToLibrary(path) == 0;
    // The temporary WAV was left as it was decoded: opened again, not
    // decoded again from the song.
    return m_io.reopen();
}

int CRingtoneExport::render(const CSpanRender& span, LoudnessSettings settings, const QString& path,
                            const ConvertTags& tags)
{
    const RingtoneFormat& kind = format(m_kind);
    const double target = settings.targetLufs;
    SpanLevels levels = span.levels(settings);
    // Gain only ever comes with the limiter; without it the samples are the
    // song's own and need no check.
    const bool gained = !levels.isIdentity() && (levels.gain > 1.0f || settings.hasTarget());
    double lastLufs = -std::numeric_limits<double>::infinity();
    for (int attempt = 1;; ++attempt) {
        const int rc = encode(span, levels, path, tags);
        if (rc < 0 || (!gained && !m_measure))
            return rc;
        m_written = measure(path);
        if (!gained || !m_written.measured)
            return rc;
        const double over = m_written.truePeak - (kTruePeakCeilingDbtp - kMeterMarginDb);
        const double off = settings.hasTarget() ? target - m_written.lufs : 0.0;
        // A target the limiter cannot reach stops the chase once it no longer gains.
        const bool chase = std::fabs(off) > kLoudnessRetryLu && attempt + 1 < kRenderAttempts &&
                           std::fabs(m_written.lufs - lastLufs) > kLoudnessRetryLu;
        lastLufs = m_written.lufs;
        if ((over <= 0.0 && !chase) || attempt > kRenderAttempts)
            return rc;
        qDebug().noquote() << "convert m4r: the" << kind.key << "file measured" << m_written.lufs
                           << "LUFS," << m_written.truePeak << "dBTP; rendering again";
        if (over > 0.0 && attempt >= kRenderAttempts) {
            // The last resort: the whole result goes down by what the peaks
            // stand over (gain and ceiling together scale it exactly).
            const double down = over + kMeterMarginDb;
            settings.ceilingDbtp -= down;
            levels = span.levelsAt(levels.gain * static_cast<float>(CLoudnessMeter::fromDb(-down)),
                                   settings.ceilingDbtp);
        } else if (over > 0.0) {
            // The encoder's own peaks: the limiter holds them lower, at the
            // same loudness.
            settings.ceilingDbtp -= over + kMeterMarginDb;
            levels = settings.hasTarget() ? span.levels(settings)
                                          : span.levelsAt(levels.gain, settings.ceilingDbtp);
        } else {
            // The encoder moved the loudness: aim past the target by as much.
            settings.targetLufs += off;
            levels = span.levels(settings);
        }
    }
}

int CRingtoneExport::encode(const CSpanRender& span, const SpanLevels& levels, const QString& path,
                            const ConvertTags& tags)
{
    const RingtoneFormat& kind = format(m_kind);
    // The rendered selection goes to the encoder as a WAV of its own.
    const QString spanWave = CWaveIo::newTempWavePath();
    const CTemporaryMark spanMark(spanWave);
    if (!span.writeWave(spanWave, levels)) {
        QFile::remove(spanWave);
        qWarning().noquote() << "convert m4r: cannot write" << spanWave;
        return -2;
    }
    const QByteArray src = spanWave.toLocal8Bit();
    const QByteArray dest = path.toLocal8Bit();
    int rc = CConvertWraper::instance()->convertTo(src.constData(), dest.constData(),
                                                   kind.container, kind.codec, kind.bitRate,
                                                   &m_io.progressWait(), 0, 0, tags);
    if (rc >= 0)
        rc = m_io.waitPhase(0.5f, 0.0f, true);
    QFile::remove(spanWave);
    return rc;
}

CRingtoneExport::WrittenLevels CRingtoneExport::measure(const QString& path)
{
    // The file decoded again straight into the meter, as a phone plays it.
    WrittenLevels levels;
    CLoudnessMeter meter(2, KELO_OUTPUT_SAMPLE_RATE);
    std::size_t frames = 0;
    const int rc =
        CConvertWraper::decodePcm(QFile::encodeName(path).constData(), KELO_OUTPUT_SAMPLE_RATE, 2,
                                  [&meter, &frames](const short* samples, int count) {
                                      meter.add(samples, std::size_t(count));
                                      frames += std::size_t(count);
                                      return true;
                                  });
    if (rc >= 0 && frames > 0) {
        levels.lufs = meter.integrated();
        levels.truePeak = meter.truePeak();
        levels.measured = true;
    }
    return levels;
}
