#include "editor/ringtoneexport.h"

#include "editor/ringtonename.h"
#include "editor/waveio.h"
#include "editor/wavemodel.h"
#include "editor/waveplayback.h"
#include "engine/convertwraper.h"
#include "engine/progresswait.h"
#include "engine/timelinehelper.h"
#include "library/ItunesWrap.h"

#include <QDebug>
#include <QFile>

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
    m_playback.applyEffect(true);
    // A leftover of the same name goes before the engine writes there.
    if (QFile::exists(path))
        QFile::remove(path);

    if (m_playback.isOpen()) {
        // Closing the engine writes the volume and the fades into the temporary WAV.
        m_playback.closeForExport();
    }

    const RingtoneFormat& kind = format(m_kind);
    const QByteArray src = m_io.getWavePath().toLocal8Bit();
    const QByteArray dest = path.toLocal8Bit();
    m_handedOver = false;
    // The song's own artist when none was given (the render reads the
    // temporary WAV, which has no tags).
    QString artist = m_artist;
    if (artist.isEmpty()) {
        MediaStreams song;
        if (CTimeLineHelper::probe(m_io.getNode().strPath.toLocal8Bit().constData(), &song))
            artist = song.artist;
    }
    int rc = CConvertWraper::instance()->convertTo(
        src.constData(), dest.constData(), kind.container, kind.codec, kind.bitRate,
        &m_io.progressWait(), m_model.beginTime(), m_model.endTime(),
        ConvertTags{m_title.toUtf8(), artist.toUtf8()});
    if (rc < 0)
        return rc;
    rc = m_io.waitPhase(0.5f, 0.0f, true);
    if (rc < 0)
        return rc;
    if (m_exportOnly)
        return 0;
    m_handedOver = addToLibrary(path) == 0;
    return m_io.reload();
}
