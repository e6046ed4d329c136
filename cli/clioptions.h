#pragma once
// What tonewright-cli is asked to do, read from its arguments: the inputs,
// where the ringtones go, the span, the fades and the volume. Checks every
// value and the spans that follow from the options alone; what depends on
// an input's length is checked when it is decoded.

#include "editor/ringtoneexport.h"

#include <QString>
#include <QStringList>

// The span made when neither --end nor --length is given, in ms.
constexpr long long kCliDefaultLengthMs = 30000;

struct CliOptions
{
    QStringList inputs;
    QString output;         // -o: the ringtone of the single input
    QString directory;      // -d: one ringtone per input, named after it
    bool suggest = false;   // --suggest: the best-part proposals of each input, no ringtone
    bool json = false;      // --json: with --suggest, one JSON line per input
    bool startAuto = false; // --start auto: the span begins at the best-part proposal
    long long startMs = 0;
    long long endMs = -1;    // --end; -1 when not given
    long long lengthMs = -1; // --length; -1 when not given
    int fadeInSeconds = 0;   // 0: no fade
    int fadeOutSeconds = 0;
    int volume = 100; // 0..256, 100 = unchanged, as in the editor
    // --loudness or --loud: the LUFS the ringtone is brought to; NaN for none.
    double loudnessLufs = normalizeTarget(Normalize::Off);
    bool allowLong = false;
    bool force = false;
    bool addToLibrary = false;
    bool quiet = false;   // no progress output
    bool verbose = false; // the engine's and editor's debug lines on standard error
    int jobs = 0;         // -d: inputs converted at once; 0 = one per core
    // --format, or the kind the -o file's extension names; iPhone otherwise.
    RingtoneKind kind = RingtoneKind::IphoneRingtone;

    bool hasLoudness() const { return loudnessLufs == loudnessLufs; }
    // The end asked for: --end, or the start plus --length or the default.
    long long requestedEndMs() const;
};

struct CliCommand
{
    enum Action
    {
        Run,
        ShowVersion,
        ShowHelp,
        Refuse // `exitCode` and `text` (the message) say why
    };
    Action action = Run;
    int exitCode = 0;
    QString text;
    CliOptions options;
};

// `arguments` with the program first, as QCoreApplication::arguments().
CliCommand parseCliArguments(const QStringList& arguments);

QString cliHelpText();
QString cliVersionText();

// The arguments of a run of this program that makes one input's ringtone
// at `output` with these options (a batch's child run; quiet, no library).
QStringList childArguments(const CliOptions& options, const QString& input, const QString& output);
