#pragma once
// One input into one ringtone, through the editor's own import and export
// (CWaveIo and CRingtoneExport over a CWaveModel and a CWavePlayback): the
// span of the input becomes the editor's temporary WAV (decoded from a seek
// near its start, not the whole song), the span, fades and volume are set
// as the editor sets them, and the export renders the span. The ringtone is
// written under a hidden name beside the output and renamed into place when
// complete; the temporary WAV is removed. It also finds an input's best-part
// proposals the editor's way, decoding the input straight into the
// analysis. Needs the application object; one at a time.

#include "cli/clioptions.h"
#include "editor/spanfinder.h"

#include <QString>

#include <functional>
#include <vector>

class CWaveIo;
class CWavePlayback;

class CRingtoneMaker
{
public:
    explicit CRingtoneMaker(const CliOptions& options);

    // A CliExitCode; message() says what was made or what went wrong. The
    // output's folder is made when it is missing.
    // `progress` hears 0..100.
    int make(const QString& input, const QString& output, const std::function<void(int)>& progress);
    const QString& message() const { return m_message; }

    // The best-part proposals of `input` for spans of `lengthMs`, best
    // first, and the input's length; writes nothing. A CliExitCode; message() says what went wrong.
    int suggest(const QString& input, long long lengthMs, std::vector<SpanProposal>* proposals,
                long long* durationMs);

    // The checks made before any work, shared with a batch: the input can be
    // read; the output may be written (its folder exists and takes files, it
    // is not the input, and it is new unless `force`). kExitOk or the code.
    static int checkInput(const QString& input, QString* message);
    static int checkOutput(const QString& output, const QString& input, bool force,
                           QString* message);

private:
    // Checks that the input (m_source; `input` names it in messages) is media with sound; `audioMs`
    // gets the probe's length of its sound (0 when unknown). kExitOk or the code.
    int check(const QString& input, long long* audioMs);
    // Decodes the input (m_source; `input` names it in messages) (from `fromMs` to `toMs`, or whole
    // with 0..0) into the editor's temporary WAV, open in `playback`. kExitOk or the code.
    int decode(const QString& input, CWaveIo& io, CWavePlayback& playback, long long fromMs = 0,
               long long toMs = 0);
    // The span from `startMs` to `endMs` within an input of `durationMs`:
    // the end held to the input's end, then the length rules again.
    // kExitOk or the code.
    int resolveSpan(long long startMs, long long endMs, long long durationMs, long long* begin,
                    long long* end);

    CliOptions m_options;
    QString m_message;
    // What is opened for the input: its alias when its name is not UTF-8.
    QString m_source;
};
