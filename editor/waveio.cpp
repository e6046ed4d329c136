#include "editor/waveio.h"

#include "editor/wavemodel.h"
#include "editor/waveplayback.h"
#include "engine/convertwraper.h"
#include "engine/platformfolders.h"
#include "engine/progressdlg.h"
#include "engine/timelinehelper.h"
#include "library/ItunesWrap.h"

#include <QCoreApplication>
#include <QDebug>
#include <QDir>
#include <QFile>
#include <QThread>
#include <QTime>
#include <QTimer>

#include <vexa.h>

#include <atomic>
#include <cstdio>
#include <cstring>

namespace {

// Stands in for the progress pane when the editor has none (a bare editor):
// waits the same way, without showing anything.
class SilentProgress : public IProgress
{
public:
    void setProgress(int value, int state) override
    {
        progress.store(value, std::memory_order_relaxed);
        status.store(state, std::memory_order_relaxed);
    }
    void finish() override {}
    // `report`, when set, hears the percentage the pane would show, reckoned
    // the pane's way from the phase's weight and offset.
    int start(float weight, float offset, bool wait, const std::function<void(int)>& report)
    {
        if (!wait)
            return 1;
        progress.store(0);
        // Sleeps until the engine's next progress call (posted to this
        // thread) or the timer's tick, instead of spinning: several of these
        // waits run side by side in a command-line batch.
        QTimer tick;
        tick.start(25);
        for (;;) {
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents |
                                            QEventLoop::WaitForMoreEvents);
            const int current = progress.load(std::memory_order_relaxed);
            if (report)
                report(static_cast<int>(current / 100.0 * weight + offset * 100.0));
            if (current >= KELO_PROGRESS_DONE)
                break;
            if (status.load(std::memory_order_relaxed) < 0)
                return -2;
        }
        status.store(KELO_PROGRESS_DONE);
        return 1;
    }

private:
    std::atomic<int> progress{0};
    std::atomic<int> status{KELO_PROGRESS_DONE};
};

SilentProgress& silentProgress()
{
    static SilentProgress progress;
    return progress;
}

// Removes a leftover of the same name before a conversion writes there.
void removeIfExists(const QString& path)
{
    if (QFile::exists(path))
        QFile::remove(path);
}

// Copies src over the claimed file dest, which stays in place throughout.
bool copyInto(const QString& src, const QString& dest)
{
    QFile in(src);
    QFile out(dest);
    if (!in.open(QIODevice::ReadOnly) || !out.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return false;
    constexpr qint64 kChunk = 1 << 20;
    while (!in.atEnd()) {
        const QByteArray chunk = in.read(kChunk);
        if (chunk.isEmpty() || out.write(chunk) != chunk.size())
            return false;
    }
    return true;
}

} // namespace

CWaveIo::CWaveIo(CWaveModel& model, CWavePlayback& playback, CProgressDlg* dlg)
    : m_model(model), m_playback(playback), progressDlg(dlg)
{
}

QString CWaveIo::newTempWavePath()
{
    const QString dir = programCacheDir();
    QDir().mkpath(dir);
    // The name is claimed by creating the file: another process converting
    // in the same millisecond (the command line runs several at once) takes
    // a later one. Conversions replace the claimed file; copies fill it.
    for (;;) {
        const QString path = dir + "/wave_" + QTime::currentTime().toString("hhmmsszzz") + ".tmp";
        QFile claim(path);
        if (claim.open(QIODevice::WriteOnly | QIODevice::NewOnly) || !claim.exists())
            return path; // a folder that takes no files fails the conversion itself
        QThread::msleep(1);
    }
}

IProgress* CWaveIo::progressSink() const
{
    return progressDlg ? static_cast<IProgress*>(progressDlg) : &silentProgress();
}

int CWaveIo::waitPhase(float weight, float offset, bool wait)
{
    return progressDlg ? progressDlg->start(weight, offset, wait)
                       : silentProgress().start(weight, offset, wait, progressReport);
}

int CWaveIo::convertToWave(const QString& src)
{
    const QByteArray local = src.toLocal8Bit();
    if (!CTimeLineHelper::haveAudio(local.constData()))
        return -4;

    wavePath = newTempWavePath();
    qDebug().noquote() << "convert to temp:" << wavePath;

    if (!isWaveFile(local.constData())) {
        const QByteArray dest = wavePath.toLocal8Bit();
        if (CConvertWraper::instance()->convertTo(local.constData(), dest.constData(), "wav",
                                                  KELO_CODEC_PCM_S16LE, kEditorBitRate,
                                                  progressSink()) < 0)
            return -2;
        // A failure reported by the pane still answers 1: the engine then refuses the file.
        return waitPhase(1.0f, 0.0f, true) != 0 ? 1 : -2;
    }

    // A WAV is used as it stands; the engine decides whether it can play it.
    copyInto(src, wavePath);
    return waitPhase(1.0f, 0.0f, false) != 0 ? 1 : -3;
}

bool CWaveIo::isWaveFile(const char* path)
{
    if (!path)
        return false;
    FILE* f = std::fopen(path, "r");
    if (!f)
        return false;
    char riff[4] = {};
    char size[4] = {};
    char wave4[4] = {};
    const bool ok = std::fread(riff, 1, 4, f) == 4 && std::memcmp(riff, "RIFF", 4) == 0 &&
                    std::fread(size, 1, 4, f) == 4 && std::fread(wave4, 1, 4, f) == 4 &&
                    std::memcmp(wave4, "WAVE", 4) == 0;
    std::fclose(f);
    return ok;
}

int CWaveIo::reload()
{
    wavePath = newTempWavePath();
    qDebug().noquote() << "reload:" << wavePath;

    const QByteArray src = node.strPath.toLocal8Bit();
    const QByteArray dest = wavePath.toLocal8Bit();
    int rc = 1;
    if (!isWaveFile(src.constData())) {
        if (CConvertWraper::instance()->convertTo(src.constData(), dest.constData(), "wav",
                                                  KELO_CODEC_PCM_S16LE, kEditorBitRate,
                                                  progressSink()) < 0)
            return -2;
        rc = waitPhase(0.5f, 0.5f, true);
    } else {
        copyInto(node.strPath, wavePath);
        rc = waitPhase(0.5f, 0.5f, false);
    }
    if (rc < 0)
        return -3;
    // Selection, zoom and scroll stay as they are, so the user can export again at once.
    return m_playback.open(wavePath);
}

int CWaveIo::convertToM4r(const QString& m4rPath)
{
    if (m4rPath.isEmpty())
        return -1;
    qDebug().noquote() << "convert m4r:" << m4rPath;
    m_playback.applyEffect(true);
    removeIfExists(m4rPath);

    if (m_playback.isOpen()) {
        // Closing the engine writes the volume and the fades into the temporary WAV.
        m_playback.closeForExport();
    }

    const QByteArray src = wavePath.toLocal8Bit();
    const QByteArray dest = m4rPath.toLocal8Bit();
    int rc = CConvertWraper::instance()->convertTo(src.constData(), dest.constData(), "mp4",
                                                   KELO_CODEC_AAC, kEditorBitRate, progressSink(),
                                                   m_model.beginTime(), m_model.endTime());
    if (rc < 0)
        return rc;
    rc = waitPhase(0.5f, 0.0f, true);
    if (rc < 0)
        return rc;
    if (exportOnly)
        return 0;
    CItunesWraper::instance()->AddToItunes(m4rPath);
    return reload();
}
