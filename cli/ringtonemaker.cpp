#include "cli/ringtonemaker.h"

#include "cli/exitcodes.h"
#include "cli/localpath.h"
#include "cli/pathalias.h"
#include "cli/timearg.h"
#include "editor/ringtoneexport.h"
#include "editor/spansuggest.h"
#include "editor/waveio.h"
#include "editor/wavemodel.h"
#include "editor/waveplayback.h"
#include "engine/platformfolders.h"
#include "engine/progresswait.h"
#include "engine/ringtonenode.h"
#include "engine/stalefiles.h"
#include "engine/temporarymark.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>

namespace {

// Any width works: the model needs one for its zoom arithmetic only.
constexpr int kViewWidth = 1000;
// Decoded past a span's end, so that the WAV never ends a rounding short of it.
constexpr long long kSpanTailMs = 1000;

QString seconds(long long ms)
{
    return QString::number(ms / 1000.0, 'f', 1) + " s";
}

bool isFolder(const QString& path)
{
    struct stat st;
    return ::stat(localpath::encode(path).constData(), &st) == 0 && S_ISDIR(st.st_mode);
}

// mkdir -p, by the name's own bytes.
bool makeFolder(const QString& path)
{
    const QByteArray local = localpath::encode(path);
    for (int slash = local.indexOf('/', 1); slash > 0; slash = local.indexOf('/', slash + 1))
        ::mkdir(local.left(slash).constData(), 0777);
    ::mkdir(local.constData(), 0777);
    return isFolder(path);
}

// A pipe or a device has no length to seek in, and may never end.
QString notAFile(const QString& input)
{
    return QString("%1: is not a regular file (a pipe or a device); only files can be read")
        .arg(input);
}

// Why the scratch space would not take the temporary WAV; empty when it
// takes a megabyte.
QString scratchProblem()
{
    const QString dir = programCacheDir();
    if (!QDir().mkpath(dir))
        return QString("the scratch folder %1 cannot be made").arg(dir);
    QTemporaryFile probe(dir + "/.space-XXXXXX");
    if (!probe.open())
        return QString("the scratch folder %1 takes no files (%2)").arg(dir, probe.errorString());
    const QByteArray block(1 << 20, '\0');
    for (qsizetype done = 0; done < block.size();) {
        const ssize_t wrote = ::write(probe.handle(), block.constData() + done,
                                      static_cast<std::size_t>(block.size() - done));
        if (wrote <= 0)
            return QString("the scratch folder %1 takes no more (%2)")
                .arg(dir, QString::fromLocal8Bit(std::strerror(wrote < 0 ? errno : ENOSPC)));
        done += wrote;
    }
    return QString();
}

QString loudnessText(double lufs)
{
    return std::isfinite(lufs) ? QString::number(lufs, 'f', 1) + " LUFS" : QString("silent");
}

QString peakText(double dbtp)
{
    return std::isfinite(dbtp) ? QString::number(dbtp, 'f', 1) + " dBTP" : QString("no peak");
}

// The editor's parts, as the editor wires them, without a progress pane;
// the run's temporary WAV is removed with them, whatever became of the run.
struct EditorParts
{
    CWaveModel model;
    CWavePlayback playback{model};
    CProgressWait wait;
    CWaveIo io{playback, &wait};

    EditorParts() { model.setViewWidth(kViewWidth); }
    ~EditorParts()
    {
        if (!io.getWavePath().isEmpty())
            QFile::remove(io.getWavePath());
    }
    EditorParts(const EditorParts&) = delete;
    EditorParts& operator=(const EditorParts&) = delete;
};

} // namespace

CRingtoneMaker::CRingtoneMaker(const CliOptions& options) : m_options(options) {}

int CRingtoneMaker::checkInput(const QString& input, QString* message)
{
    // stat(2) first: it never waits, where opening a pipe waits for a writer
    // that may never come, and it says why a path cannot be used.
    const QByteArray local = localpath::encode(input);
    struct stat st;
    if (::stat(local.constData(), &st) != 0) {
        const int error = errno;
        if (error == ENOENT)
            *message = QString("%1: no such file").arg(input);
        else if (error == ENAMETOOLONG)
            *message = QString("%1: the path is too long for the file system (%2 bytes)")
                           .arg(input)
                           .arg(local.size());
        else
            *message = QString("%1: cannot be read (%2)").arg(input, strerror(error));
        return kExitInputUnreadable;
    }
    if (S_ISDIR(st.st_mode)) {
        *message = QString("%1: is a folder, not a media file").arg(input);
        return kExitInputUnreadable;
    }
    // A socket fails to open at once, below, as it always did.
    if (!S_ISREG(st.st_mode) && !S_ISSOCK(st.st_mode)) {
        *message = notAFile(input);
        return kExitInputUnreadable;
    }
    const int fd = ::open(local.constData(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        *message = QString("%1: cannot be read (%2)").arg(input, strerror(errno));
        return kExitInputUnreadable;
    }
    ::close(fd);
    return kExitOk;
}

int CRingtoneMaker::checkOutput(const QString& output, const QString& input, bool force,
                                QString* message)
{
    struct stat out;
    const bool exists = ::stat(localpath::encode(output).constData(), &out) == 0;
    struct stat in;
    if (exists && ::stat(localpath::encode(input).constData(), &in) == 0 &&
        out.st_dev == in.st_dev && out.st_ino == in.st_ino) {
        *message = QString("%1: the output would replace the input").arg(output);
        return kExitUsage;
    }
    if (exists && S_ISDIR(out.st_mode)) {
        *message = QString("%1: is a folder; name the ringtone file").arg(output);
        return kExitOutputUnwritable;
    }
    if (exists && !force) {
        *message = QString("%1: exists (--force replaces it)").arg(output);
        return kExitOutputExists;
    }
    const QString folder = localpath::folderOf(output);
    const CPathAlias folderAlias(folder);
    const QFileInfo folderInfo(folderAlias.path());
    if (!folderInfo.isDir()) {
        *message = QString("%1: the folder %2 does not exist").arg(output, folder);
        return kExitOutputUnwritable;
    }
    if (!folderInfo.isWritable()) {
        *message = QString("%1: the folder %2 cannot be written").arg(output, folder);
        return kExitOutputUnwritable;
    }
    return kExitOk;
}

int CRingtoneMaker::resolveSpan(long long startMs, long long endMs, long long durationMs,
                                long long* begin, long long* end)
{
    *begin = startMs;
    *end = std::min(endMs, durationMs);
    if (*begin >= durationMs) {
        m_message = QString("the start (%1) is at or after the input's end (%2)")
                        .arg(formatTimeArg(*begin), formatTimeArg(durationMs));
        return kExitStartAfterEnd;
    }
    if (*end - *begin < kMinSelection) {
        m_message = QString("only %1 of the input is left from the start (%2); the shortest "
                            "ringtone is %3")
                        .arg(seconds(*end - *begin), formatTimeArg(*begin), seconds(kMinSelection));
        return kExitTooShort;
    }
    return kExitOk;
}

int CRingtoneMaker::check(const QString& input, long long* audioMs)
{
    int channels = 0;
    switch (CWaveIo::checkSource(m_source, audioMs, &channels)) {
    case SourceProblem::None:
    case SourceProblem::TooLong: // only the span is decoded: no whole-song WAV
        // A header that says the sound has no channels is what fails.
        if (channels <= 0) {
            m_message = QString("%1: its header says the sound has %2 channels; it cannot be "
                                "decoded")
                            .arg(input)
                            .arg(channels);
            return kExitConversionFailed;
        }
        break;
    case SourceProblem::NotAFile:
        m_message = notAFile(input);
        return kExitInputUnreadable;
    case SourceProblem::Unreadable:
        m_message = QString("%1: cannot be read").arg(input);
        return kExitInputUnreadable;
    case SourceProblem::NotMedia:
        m_message = QString("%1: not a media file").arg(input);
        return kExitNotMedia;
    case SourceProblem::NoSound:
        m_message = QString("%1: no sound in it (no audio stream)").arg(input);
        return kExitNoAudio;
    case SourceProblem::TooShort:
        m_message = QString("%1: too short (%2); the shortest ringtone is %3")
                        .arg(input, seconds(*audioMs), seconds(kMinSelection));
        return kExitTooShort;
    }
    return kExitOk;
}

int CRingtoneMaker::decode(const QString& input, CWaveIo& io, CWavePlayback& playback,
                           long long fromMs, long long toMs)
{
    CRingToneNode song;
    song.strPath = m_source;
    io.setNode(song);
    const int decoded = io.convertToWave(m_source, fromMs, toMs);
    if (decoded == -4) {
        m_message = QString("%1: no audio stream").arg(input);
        return kExitNoAudio;
    }
    if (decoded < 0 || playback.open(io.getWavePath()) != 0) {
        playback.release();
        // A scratch space that takes no WAV is no fault of the input's.
        const QString scratch = scratchProblem();
        m_message =
            scratch.isEmpty()
                ? QString("%1: could not be decoded").arg(input)
                : QString("%1: the temporary WAV could not be written: %2").arg(input, scratch);
        return kExitConversionFailed;
    }
    return kExitOk;
}

int CRingtoneMaker::suggest(const QString& input, long long lengthMs,
                            std::vector<SpanProposal>* proposals, long long* durationMs)
{
    m_message.clear();
    proposals->clear();
    int code = checkInput(input, &m_message);
    if (code != kExitOk)
        return code;
    const CPathAlias source(input);
    m_source = source.path();
    long long audioMs = 0;
    code = check(input, &audioMs);
    if (code != kExitOk)
        return code;
    *proposals = CSpanSuggest::analyseSource(m_source, lengthMs, durationMs);
    if (!proposals->empty())
        return kExitOk;
    if (*durationMs == 0) {
        m_message = QString("%1: could not be decoded").arg(input);
        return kExitConversionFailed;
    }
    if (*durationMs < kMinSelection) {
        m_message = QString("%1: too short (%2); the shortest ringtone is %3")
                        .arg(input, seconds(*durationMs), seconds(kMinSelection));
        return kExitTooShort;
    }
    m_message = QString("%1: could not be analysed").arg(input);
    return kExitConversionFailed;
}

int CRingtoneMaker::make(const QString& input, const QString& output,
                         const std::function<void(int)>& progress)
{
    m_message.clear();
    int code = checkInput(input, &m_message);
    if (code != kExitOk)
        return code;
    const CPathAlias source(input);
    m_source = source.path();
    // A missing folder is made, as -d makes its folder.
    const QString folder = localpath::folderOf(output);
    if (!isFolder(folder) && !makeFolder(folder)) {
        m_message = QString("%1: the folder %2 cannot be made").arg(output, folder);
        return kExitOutputUnwritable;
    }
    code = checkOutput(output, input, m_options.force, &m_message);
    if (code != kExitOk)
        return code;
    // The folder by a name that Qt can open, whatever its bytes.
    const CPathAlias outputFolder(folder);
    // What an interrupted run left beside the output.
    removeStaleFiles(outputFolder.path());
    EditorParts parts;
    CWaveModel& model = parts.model;
    CWavePlayback& playback = parts.playback;
    CWaveIo& io = parts.io;
    CRingtoneExport ringtone(model, playback, io);
    ringtone.setExportOnly(true);
    ringtone.setKind(m_options.kind);
    // The ringtone's own name is its title.
    ringtone.setTags(QFileInfo(localpath::readable(output)).completeBaseName(), QString());

    long long audioMs = 0;
    code = check(input, &audioMs);
    if (code != kExitOk)
        return code;
    long long start = m_options.startMs;
    long long requestedEnd = m_options.requestedEndMs();
    if (m_options.startAuto) {
        // The best proposal of the length asked for (--end does not go with it).
        const long long length = requestedEnd - start;
        const std::vector<SpanProposal> proposals = CSpanSuggest::analyseSource(m_source, length);
        start = proposals.empty() ? 0 : proposals.front().beginMs;
        requestedEnd = start + length;
    }

    // Only the span is decoded, from the whole second at or before its
    // begin: the fades sit on whole seconds of the song, and whole seconds
    // keep every frame where the whole song's WAV has it. The tail past the
    // end keeps the WAV from ending a rounding short of it. A length the
    // probe did not know, or a span it puts past the end, decodes the whole
    // input, whose own length then decides.
    long long offset = 0;
    long long until = 0;
    long long begin = 0;
    long long end = 0;
    if (audioMs > 0 && resolveSpan(start, requestedEnd, audioMs, &begin, &end) == kExitOk) {
        offset = begin / 1000 * 1000;
        until = requestedEnd + kSpanTailMs;
    }
    m_message.clear();

    // Decoding is the first half of the work, encoding the second (the
    // export's phase reports 0..50).
    parts.wait.setPercentReport([&progress](int percent) { progress(percent / 2); });
    code = decode(input, io, playback, offset, until);
    if (code != kExitOk && offset + until != 0) {
        // A span the probe misjudged: the whole input tells.
        QFile::remove(io.getWavePath());
        offset = until = 0;
        code = decode(input, io, playback, 0, 0);
    }
    if (code != kExitOk)
        return code;
    model.load(playback.record().frameCount, playback.record().sampleRate);

    code = resolveSpan(start, requestedEnd, offset + static_cast<long long>(model.maxTime()),
                       &begin, &end);
    if (code != kExitOk) {
        m_message = input + ": " + m_message;
        playback.release();
        return code;
    }
    // The input's end may have shortened the span below a fade asked for.
    if (m_options.fadeInSeconds * 1000LL > end - begin ||
        m_options.fadeOutSeconds * 1000LL > end - begin) {
        m_message = QString("%1: a fade is longer than the ringtone (%2 s, from %3 to the "
                            "input's end)")
                        .arg(input)
                        .arg((end - begin) / 1000.0)
                        .arg(formatTimeArg(begin));
        playback.release();
        return kExitUsage;
    }
    model.setSelection(begin - offset, end - offset);
    playback.enableFadeIn(m_options.fadeInSeconds > 0);
    playback.setFadeInLength(m_options.fadeInSeconds);
    playback.enableFadeOut(m_options.fadeOutSeconds > 0);
    playback.setFadeOutLength(m_options.fadeOutSeconds);
    playback.setVolume(m_options.volume);
    playback.setLoudnessTarget(m_options.loudnessLufs);
    // The summary tells the ringtone's loudness, measured on the file.
    ringtone.setMeasure(true);

    // A hidden name in the output's folder: the rename that ends the run is
    // then one step on one file system, and a failure leaves only this.
    QTemporaryFile staging(outputFolder.path() + "/.tonewright-XXXXXX" +
                           QLatin1String(CRingtoneExport::format(m_options.kind).extension));
    if (!staging.open()) {
        playback.release();
        m_message = QString("%1: the folder %2 cannot be written (%3)")
                        .arg(output, folder, staging.errorString());
        return kExitOutputUnwritable;
    }
    staging.close();
    // An interrupted run removes it (and the engine its own half-written file).
    const CTemporaryMark stagingMark(staging.fileName());

    parts.wait.setPercentReport([&progress](int percent) { progress(50 + percent); });
    if (ringtone.exportTo(staging.fileName()) < 0) {
        m_message = QString("%1: the ringtone could not be encoded into %2").arg(input, folder);
        return kExitConversionFailed;
    }
    struct stat st;
    if (!m_options.force && ::stat(localpath::encode(output).constData(), &st) == 0) {
        m_message = QString("%1: appeared while converting (--force replaces it)").arg(output);
        return kExitOutputExists;
    }
    // rename(2) replaces an existing ringtone in one step.
    if (std::rename(QFile::encodeName(staging.fileName()).constData(),
                    localpath::encode(output).constData()) != 0) {
        m_message = QString("%1: could not be written").arg(output);
        return kExitOutputUnwritable;
    }
    staging.setAutoRemove(false);
    progress(100);

    m_message = QString("%1: %2 to %3 (%4)")
                    .arg(output, formatTimeArg(begin), formatTimeArg(end), seconds(end - begin));
    const CRingtoneExport::WrittenLevels& levels = ringtone.writtenLevels();
    if (levels.measured)
        m_message += QString(", %1, %2").arg(loudnessText(levels.lufs), peakText(levels.truePeak));
    // The library copies the ringtone under the name it is given.
    if (m_options.addToLibrary &&
        CRingtoneExport::addToLibrary(CPathAlias(localpath::absolute(output)).path()) != 0) {
        m_message = QString("%1: written, but the library did not take it").arg(output);
        return kExitLibraryFailed;
    }
    return kExitOk;
}
