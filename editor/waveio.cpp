#include "editor/waveio.h"

#include "editor/wavemodel.h"
#include "editor/waveplayback.h"
#include "engine/convertwraper.h"
#include "engine/platformfolders.h"
#include "engine/progresswait.h"
#include "engine/temporarymark.h"
#include "engine/timelinehelper.h"

#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QThread>
#include <QTime>

#include <vexa.h>

#include <cstdio>
#include <cstring>

namespace {

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

CWaveIo::CWaveIo(CWavePlayback& playback, CProgressWait* progressWait)
    : m_playback(playback), m_ownWait(progressWait ? nullptr : std::make_unique<CProgressWait>()),
      m_wait(progressWait ? progressWait : m_ownWait.get())
{
}

CWaveIo::~CWaveIo() = default;

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

int CWaveIo::waitPhase(float weight, float offset, bool wait)
{
    return m_wait->start(weight, offset, wait);
}

SourceProblem CWaveIo::checkSource(const QString& path, long long* audioMs, int* audioChannels)
{
    if (audioMs)
        *audioMs = 0;
    if (audioChannels)
        *audioChannels = 0;
    const QFileInfo info(path);
    // Asked before opening: opening a pipe waits for a writer.
    if (info.exists() && !info.isDir() && !info.isFile())
        return SourceProblem::NotAFile;
    QFile file(path);
    if (!info.isFile() || !file.open(QIODevice::ReadOnly))
        return SourceProblem::Unreadable;
    file.close();
    MediaStreams streams;
    if (!CTimeLineHelper::probe(path.toLocal8Bit().constData(), &streams))
        return SourceProblem::NotMedia;
    if (!streams.audio)
        return SourceProblem::NoSound;
    if (audioMs)
        *audioMs = streams.audioMs;
    if (audioChannels)
        *audioChannels = streams.audioChannels;
    // An unknown length is left to the conversion to find out.
    if (streams.audioMs > 0 && streams.audioMs < kMinSelection)
        return SourceProblem::TooShort;
    // Refused before a byte of the WAV is written.
    if (streams.audioMs > kEditorMaxSoundMs)
        return SourceProblem::TooLong;
    return SourceProblem::None;
}

int CWaveIo::convertToWave(const QString& src, long long startMs, long long endMs)
{
    const QByteArray local = src.toLocal8Bit();
    if (!CTimeLineHelper::haveAudio(local.constData()))
        return -4;

    wavePath = newTempWavePath();
    // The WAV is only ever a copy: an interrupted command line removes it.
    m_waveMark = std::make_unique<CTemporaryMark>(wavePath);
    qDebug().noquote() << "convert to temp:" << wavePath;

    const bool span = startMs != 0 || endMs != 0;
    if (span || !isCanonicalWave(local.constData())) {
        const QByteArray dest = wavePath.toLocal8Bit();
        if (CConvertWraper::instance()->convertTo(local.constData(), dest.constData(), "wav",
                                                  KELO_CODEC_PCM_S16LE, kEditorBitRate, m_wait,
                                                  startMs, endMs) < 0)
            return -2;
        // A failure reported by the pane still answers 1: the engine then refuses the file.
        return waitPhase(1.0f, 0.0f, true) != 0 ? 1 : -2;
    }

    // A WAV of the engine's own form is used as it stands.
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

bool CWaveIo::isCanonicalWave(const char* path)
{
    if (!path)
        return false;
    QFile file(QFile::decodeName(path));
    if (!file.open(QIODevice::ReadOnly))
        return false;
    constexpr int kHeaderBytes = 44;
    const QByteArray h = file.read(kHeaderBytes);
    if (h.size() != kHeaderBytes)
        return false;
    auto le16 = [&h](int at) { return unsigned(quint8(h[at])) | unsigned(quint8(h[at + 1])) << 8; };
    auto le32 = [&h, &le16](int at) { return le16(at) | le16(at + 2) << 16; };
    constexpr unsigned kPcm = 1;
    constexpr unsigned kChannels = 2;
    constexpr unsigned kBits = 16;
    constexpr unsigned kFrameBytes = kChannels * kBits / 8;
    return h.startsWith("RIFF") && h.mid(8, 8) == "WAVEfmt " && le32(16) == 16 &&
           le16(20) == kPcm && le16(22) == kChannels && le32(24) == KELO_OUTPUT_SAMPLE_RATE &&
           le32(28) == KELO_OUTPUT_SAMPLE_RATE * kFrameBytes && le16(32) == kFrameBytes &&
           le16(34) == kBits && h.mid(36, 4) == "data";
}

int CWaveIo::reopen()
{
    qDebug().noquote() << "reopen:" << wavePath;
    // The second half of the export's progress, shown as done.
    if (waitPhase(0.5f, 0.5f, false) < 0)
        return -3;
    return m_playback.open(wavePath);
}
