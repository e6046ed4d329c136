#include "editor/ringtoneexport.h"

#include "editor/ringtonename.h"
#include "editor/waveio.h"
#include "editor/wavemodel.h"
#include "editor/waveplayback.h"
#include "engine/convertwraper.h"
#include "engine/progresswait.h"
#include "library/ItunesWrap.h"

#include <QDebug>
#include <QFile>

#include <vexa.h>

namespace {

// Every ringtone: AAC-LC in an MPEG-4 file, as phones take it.
constexpr RingtoneFormat kIphoneRingtone{"mp4", KELO_CODEC_AAC, 128000, ".m4r"};

} // namespace

CRingtoneExport::CRingtoneExport(CWaveModel& model, CWavePlayback& playback, CWaveIo& io)
    : m_model(model), m_playback(playback), m_io(io)
{
}

const RingtoneFormat& CRingtoneExport::format()
{
    return kIphoneRingtone;
}

QString CRingtoneExport::fileName(const QString& name)
{
    return safeRingtoneName(name) + QLatin1String(format().extension);
}

bool CRingtoneExport::isTooLong(long long lengthMs)
{
    return lengthMs >= kRingtoneLimitMs;
}

QString CRingtoneExport::replacedInLibrary(const QString& name)
{
    const QString inLibrary = CItunesWraper::instance()->ringtoneDir();
    if (inLibrary.isEmpty())
        return QString();
    const QString path = inLibrary + "/" + fileName(name);
    return QFile::exists(path) ? path : QString();
}

int CRingtoneExport::addToLibrary(const QString& path)
{
    return CItunesWraper::instance()->AddToItunes(path);
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

    const RingtoneFormat& kind = format();
    const QByteArray src = m_io.getWavePath().toLocal8Bit();
    const QByteArray dest = path.toLocal8Bit();
    int rc = CConvertWraper::instance()->convertTo(
        src.constData(), dest.constData(), kind.container, kind.codec, kind.bitRate,
        &m_io.progressWait(), m_model.beginTime(), m_model.endTime());
    if (rc < 0)
        return rc;
    rc = m_io.waitPhase(0.5f, 0.0f, true);
    if (rc < 0)
        return rc;
    if (m_exportOnly)
        return 0;
    addToLibrary(path);
    return m_io.reload();
}
