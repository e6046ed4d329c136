// CWaveWnd import and export: every source becomes a temporary PCM WAV in the
// cache directory that the engine then opens; the export renders the selected
// span of that WAV into an AAC ".m4r" file, hands it to the library and
// rebuilds the temporary WAV. Runs on the GUI thread; the progress pane keeps
// the event loop turning while the engine converts.

#include "editor/wavewnd.h"

#include "engine/convertwraper.h"
#include "engine/progressdlg.h"
#include "engine/timelinehelper.h"
#include "library/ItunesWrap.h"

#include <QDateTime>
#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFile>
#include <QMimeData>
#include <QStandardPaths>
#include <QUrl>

#include <QCoreApplication>

#include <atomic>
#include <cstdio>
#include <cstring>

namespace {

const int kCodecPcmS16 = 65536;
const int kCodecAac = 86018;
const int kBitRate = 128000;

// "<cache>/wave_hhmmsszzz.tmp": a new name for every conversion.
QString newTempWavePath()
{
    const QString dir = QStandardPaths::writableLocation(QStandardPaths::CacheLocation);
    QDir().mkpath(dir);
    return dir + "/wave_" + QTime::currentTime().toString("hhmmsszzz") + ".tmp";
}

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
    int start(bool wait)
    {
        if (!wait)
            return 1;
        progress.store(0);
        for (;;) {
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 25);
            if (progress.load(std::memory_order_relaxed) >= 10000)
                break;
            if (status.load(std::memory_order_relaxed) < 0)
                return -2;
        }
        status.store(10000);
        return 1;
    }

private:
    std::atomic<int> progress{0};
    std::atomic<int> status{10000};
};

SilentProgress& silentProgress()
{
    static SilentProgress progress;
    return progress;
}

} // namespace

IProgress* CWaveWnd::progressSink() const
{
    return progressDlg ? static_cast<IProgress*>(progressDlg) : &silentProgress();
}

int CWaveWnd::waitPhase(float weight, float offset, bool wait)
{
    return progressDlg ? progressDlg->start(weight, offset, wait) : silentProgress().start(wait);
}

int CWaveWnd::openFile(const CRingToneNode& song)
{
    node = song;
    const int rc = convertToWave(node.strPath);
    if (rc < 0)
        return rc;
    return initWave();
}

int CWaveWnd::convertToWave(QString src)
{
    const QByteArray local = src.toLocal8Bit();
    if (!CTimeLineHelper::haveAudio(local.constData()))
        return -4;

    wavePath = newTempWavePath();
    if (QFile::exists(wavePath))
        QFile::remove(wavePath);
    qDebug().noquote() << "convert to temp:" << wavePath;

    if (!isWaveFile(local.constData())) {
        const QByteArray dest = wavePath.toLocal8Bit();
        if (CConvertWraper::instance()->convertTo(local.constData(), dest.constData(), "wav",
                                                  kCodecPcmS16, kBitRate, progressSink()) < 0)
            return -2;
        // A failure reported by the pane still answers 1: the engine then refuses the file.
        return waitPhase(1.0f, 0.0f, true) != 0 ? 1 : -2;
    }

    // A WAV is used as it stands; the engine decides whether it can play it.
    if (QFile::exists(wavePath))
        QFile::remove(wavePath);
    QFile::copy(src, wavePath);
    return waitPhase(1.0f, 0.0f, false) != 0 ? 1 : -3;
}

bool CWaveWnd::isWaveFile(const char* path)
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

int CWaveWnd::reload()
{
    wavePath = newTempWavePath();
    if (QFile::exists(wavePath))
        QFile::remove(wavePath);
    qDebug().noquote() << "reload:" << wavePath;

    const QByteArray src = node.strPath.toLocal8Bit();
    const QByteArray dest = wavePath.toLocal8Bit();
    int rc = 1;
    if (!isWaveFile(src.constData())) {
        if (CConvertWraper::instance()->convertTo(src.constData(), dest.constData(), "wav",
                                                  kCodecPcmS16, kBitRate, progressSink()) < 0)
            return -2;
        rc = waitPhase(0.5f, 0.5f, true);
    } else {
        QFile::copy(node.strPath, wavePath);
        rc = waitPhase(0.5f, 0.5f, false);
    }
    if (rc < 0)
        return -3;
    // Selection, zoom and scroll stay as they are, so the user can export again at once.
    return WaveHelperInit(dest.constData(), &wave);
}

int CWaveWnd::convertToM4r(QString m4rPath)
{
    if (m4rPath.isEmpty())
        return -1;
    qDebug().noquote() << "convert m4r:" << m4rPath;
    applyEffect(true);
    if (QFile::exists(m4rPath))
        QFile::remove(m4rPath);

    if (wave.peakTable) {
        // Closing the engine writes the volume and the fades into the temporary WAV.
        WaveHelperUninit(&wave);
        emit onPause(bPreview);
    }

    const QByteArray src = wavePath.toLocal8Bit();
    const QByteArray dest = m4rPath.toLocal8Bit();
    int rc =
        CConvertWraper::instance()->convertTo(src.constData(), dest.constData(), "mp4", kCodecAac,
                                              kBitRate, progressSink(), beginTime, endTime);
    if (rc < 0)
        return rc;
    rc = waitPhase(0.5f, 0.0f, true);
    if (rc < 0)
        return rc;
    CItunesWraper::instance()->AddToItunes(m4rPath);
    rc = reload();
    update();
    return rc;
}

void CWaveWnd::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasFormat("text/uri-list"))
        event->acceptProposedAction();
    else
        event->ignore();
}

void CWaveWnd::dropEvent(QDropEvent* event)
{
    const QList<QUrl> urls = event->mimeData()->urls();
    if (urls.isEmpty())
        return;
    // Only the first of several dropped files is opened.
    const QString path = urls.first().toLocalFile();
    if (path.isEmpty())
        return;
    if (CTimeLineHelper::haveAudio(path.toLocal8Bit().constData())) {
        event->acceptProposedAction();
        emit openWave(path);
    }
}
