#include "cli/clioptions.h"

#include "cli/exitcodes.h"
#include "cli/timearg.h"
#include "editor/ringtoneexport.h"
#include "editor/ringtonename.h"
#include "editor/wavemodel.h"

#include <QCommandLineParser>

namespace {

// The editor's volume range.
constexpr int kMaxVolume = 256;
// The loudness targets the command line takes, in LUFS.
constexpr double kLowestTarget = -50.0;
constexpr double kHighestTarget = -5.0;

const char kHelp[] =
    "Usage: tonewright-cli INPUT -o OUTPUT.m4r [options]\n"
    "       tonewright-cli INPUT... -d DIR [options]\n"
    "       tonewright-cli --suggest [--length TIME] [--json] INPUT...\n"
    "Makes a ringtone (an iPhone .m4r unless told otherwise) from a span of a song\n"
    "or a video, the same way the Tonewright editor exports it.\n"
    "\n"
    "Output:\n"
    "  -o, --output FILE     The ringtone of the one INPUT.\n"
    "  -d, --directory DIR   One ringtone per INPUT in DIR, named after the input;\n"
    "                        several inputs are converted at once.\n"
    "  -j, --jobs N          With -d: at most N conversions at once (default: one\n"
    "                        per core).\n"
    "  --format KIND         iphone (AAC .m4r, the default), alert (an iPhone alert\n"
    "                        tone, .m4r), ogg (Android, Ogg Vorbis), mp3 (Android,\n"
    "                        MP3) or m4a (plain AAC). Without it, the -o file's\n"
    "                        extension (.m4r, .ogg, .mp3, .m4a) tells.\n"
    "  --force               Replace an existing ringtone.\n"
    "  --add-to-library      Also add the ringtone to the media library.\n"
    "\n"
    "Span (TIME is m:ss, h:mm:ss or seconds, with an optional fraction):\n"
    "  --start TIME          Where the ringtone begins (default 0); \"auto\" begins\n"
    "                        it at the best part of the input (see --suggest).\n"
    "  --end TIME            Where it ends, or\n"
    "  --length TIME         how long it is (default 30 s, or up to the input's end).\n"
    "  --allow-long          Allow more than 40 seconds (30 for alert tones), which\n"
    "                        phones refuse.\n"
    "\n"
    "Best part:\n"
    "  --suggest             Prints the three spans most worth a ringtone of each\n"
    "                        INPUT (the chorus or the most repeated section), best\n"
    "                        first, and writes nothing; --length sets their length.\n"
    "  --json                With --suggest: one line of JSON per input, {\"input\",\n"
    "                        \"duration\", \"start\", \"end\", \"alternatives\"} in seconds.\n"
    "\n"
    "Effects:\n"
    "  --fade-in SECONDS     Fade in over whole seconds (default 0, none).\n"
    "  --fade-out SECONDS    Fade out over whole seconds (default 0, none).\n"
    "  --volume V            0..256, 100 leaves the level as it is (default 100).\n"
    "                        Above 100 a limiter keeps the peaks from clipping.\n"
    "  --loudness LUFS       Bring the ringtone to this loudness (for example -14),\n"
    "                        limited to -1 dBTP; instead of --volume.\n"
    "  --loud                The same as --loudness -11.\n"
    "\n"
    "Other:\n"
    "  -q, --quiet           No progress output.\n"
    "  --verbose             The engine's log lines on standard error.\n"
    "  -h, --help            Shows this help.\n"
    "  -v, --version         Shows the version.\n"
    "\n"
    "The input is only read. A failed run leaves no output file.\n"
    "\n"
    "Exit codes:\n"
    "  0   the ringtone (every ringtone, with -d) was made\n"
    "  1   the input could not be decoded or the ringtone not encoded\n"
    "  2   bad option, bad value or bad combination of options\n"
    "  3   an input does not exist, is a folder or cannot be read\n"
    "  4   the input has no audio stream\n"
    "  5   the start lies at or after the end (or after the input's end)\n"
    "  6   the span (or the input's sound) is shorter than 5 seconds\n"
    "  7   the span is longer than 40 seconds, 30 for alert tones (see --allow-long)\n"
    "  8   the output exists (see --force)\n"
    "  9   the output's folder cannot be made or cannot be written\n"
    "  10  the ringtone was made but the library did not take it\n"
    "  11  with -d: at least one input failed (each is reported)\n"
    "  12  the input is not a media file\n";

CliCommand refuse(int code, const QString& message)
{
    CliCommand command;
    command.action = CliCommand::Refuse;
    command.exitCode = code;
    command.text = message;
    return command;
}

bool parseInt(const QString& text, int low, int high, int* value)
{
    bool ok = false;
    const int v = text.trimmed().toInt(&ok);
    if (!ok || v < low || v > high)
        return false;
    *value = v;
    return true;
}

} // namespace

long long CliOptions::requestedEndMs() const
{
    if (endMs >= 0)
        return endMs;
    return startMs + (lengthMs >= 0 ? lengthMs : kCliDefaultLengthMs);
}

QString cliHelpText()
{
    return QString::fromLatin1(kHelp);
}

QString cliVersionText()
{
    return QStringLiteral("tonewright-cli " TONEWRIGHT_VERSION "\n");
}

CliCommand parseCliArguments(const QStringList& arguments)
{
    QCommandLineParser parser;
    const QCommandLineOption output({"o", "output"}, "", "FILE");
    const QCommandLineOption directory({"d", "directory"}, "", "DIR");
    const QCommandLineOption jobs({"j", "jobs"}, "", "N");
    const QCommandLineOption format("format", "", "KIND");
    const QCommandLineOption start("start", "", "TIME");
    const QCommandLineOption end("end", "", "TIME");
    const QCommandLineOption length("length", "", "TIME");
    const QCommandLineOption fadeIn("fade-in", "", "SECONDS");
    const QCommandLineOption fadeOut("fade-out", "", "SECONDS");
    const QCommandLineOption volume("volume", "", "V");
    const QCommandLineOption loudness("loudness", "", "LUFS");
    const QCommandLineOption loud("loud");
    const QCommandLineOption allowLong("allow-long");
    const QCommandLineOption force("force");
    const QCommandLineOption addToLibrary("add-to-library");
    const QCommandLineOption quiet(QStringList{"q", "quiet"});
    const QCommandLineOption verbose("verbose");
    const QCommandLineOption suggest("suggest");
    const QCommandLineOption json("json");
    const QCommandLineOption help(QStringList{"h", "help"});
    const QCommandLineOption version(QStringList{"v", "version"});
    parser.addOptions({output,       directory, jobs,    format,   start, end,       length,
                       fadeIn,       fadeOut,   volume,  loudness, loud,  allowLong, force,
                       addToLibrary, quiet,     verbose, suggest,  json,  help,      version});
    // --help and --version are answered even beside a mistake.
    const bool parsed = parser.parse(arguments);
    if (!parsed && !parser.isSet(help) && !parser.isSet(version)) {
        // The parser names an unknown option without its dashes; say it as typed.
        const QStringList unknown = parser.unknownOptionNames();
        if (!unknown.isEmpty()) {
            const QString name = unknown.first();
            return refuse(
                kExitUsage,
                QString("Unknown option '%1%2'.").arg(name.size() == 1 ? "-" : "--", name));
        }
        return refuse(kExitUsage, parser.errorText());
    }

    CliCommand command;
    if (parser.isSet(help)) {
        command.action = CliCommand::ShowHelp;
        command.text = cliHelpText();
        return command;
    }
    if (parser.isSet(version)) {
        command.action = CliCommand::ShowVersion;
        command.text = cliVersionText();
        return command;
    }

    CliOptions& o = command.options;
    o.inputs = parser.positionalArguments();
    o.output = parser.value(output);
    o.directory = parser.value(directory);
    o.allowLong = parser.isSet(allowLong);
    o.force = parser.isSet(force);
    o.addToLibrary = parser.isSet(addToLibrary);
    o.quiet = parser.isSet(quiet);
    o.verbose = parser.isSet(verbose);
    o.suggest = parser.isSet(suggest);
    o.json = parser.isSet(json);

    if (o.inputs.isEmpty())
        return refuse(kExitUsage, "no input file named");
    if (o.json && !o.suggest)
        return refuse(kExitUsage, "--json goes with --suggest");
    if (o.suggest) {
        // Only the length of the proposals may be asked for.
        for (const QCommandLineOption* other :
             {&output, &directory, &jobs, &format, &start, &end, &fadeIn, &fadeOut, &volume,
              &loudness, &loud, &allowLong, &force, &addToLibrary}) {
            if (parser.isSet(*other))
                return refuse(kExitUsage, QString("--suggest writes no ringtone; --%1 does not go "
                                                  "with it")
                                              .arg(other->names().last()));
        }
        if (parser.isSet(length) && !parseTimeArg(parser.value(length), &o.lengthMs))
            return refuse(kExitUsage, QString("bad --length value '%1' (m:ss, h:mm:ss or seconds)")
                                          .arg(parser.value(length)));
        if (o.lengthMs >= 0 && o.lengthMs < kMinSelection)
            return refuse(kExitTooShort,
                          QString("the span would be %1 s long; the shortest is %2 s")
                              .arg(o.lengthMs / 1000.0)
                              .arg(kMinSelection / 1000));
        return command;
    }
    if (parser.isSet(output) == parser.isSet(directory))
        return refuse(kExitUsage, "name either the output file (-o) or a folder for the "
                                  "ringtones (-d)");
    if (parser.isSet(output) && o.output.isEmpty())
        return refuse(kExitUsage, "the output file name is empty");
    if (parser.isSet(directory) && o.directory.isEmpty())
        return refuse(kExitUsage, "the output folder name is empty");
    if (parser.isSet(output) && o.inputs.size() > 1)
        return refuse(kExitUsage, QString("-o names one ringtone, but %1 inputs were given; use "
                                          "-d DIR for several")
                                      .arg(o.inputs.size()));
    if (parser.isSet(jobs) && (!parseInt(parser.value(jobs), 1, 1024, &o.jobs)))
        return refuse(kExitUsage,
                      QString("bad --jobs value '%1' (a number from 1)").arg(parser.value(jobs)));
    if (parser.isSet(jobs) && !parser.isSet(directory))
        return refuse(kExitUsage, "--jobs goes with -d");
    if (parser.isSet(format)) {
        if (!CRingtoneExport::kindOfKey(parser.value(format), &o.kind))
            return refuse(kExitUsage, QString("bad --format value '%1' (iphone, alert, ogg, mp3 "
                                              "or m4a)")
                                          .arg(parser.value(format)));
    } else if (!o.output.isEmpty()) {
        CRingtoneExport::kindOfFile(o.output, &o.kind);
    }

    const auto time = [&](const QCommandLineOption& option, long long* ms) {
        return !parser.isSet(option) || parseTimeArg(parser.value(option), ms);
    };
    const auto badTime = [&](const QCommandLineOption& option) {
        return refuse(kExitUsage, QString("bad --%1 value '%2' (m:ss, h:mm:ss or seconds)")
                                      .arg(option.names().first(), parser.value(option)));
    };
    // "auto": the best part, found once the input is decoded.
    o.startAuto = parser.isSet(start) && parser.value(start).trimmed() == QLatin1String("auto");
    if (!o.startAuto && !time(start, &o.startMs))
        return badTime(start);
    if (o.startAuto && parser.isSet(end))
        return refuse(kExitUsage, "--start auto goes with --length, not --end");
    if (!time(end, &o.endMs))
        return badTime(end);
    if (!time(length, &o.lengthMs))
        return badTime(length);
    if (parser.isSet(end) && parser.isSet(length))
        return refuse(kExitUsage, "give --end or --length, not both");
    if (parser.isSet(length) && o.lengthMs == 0)
        return refuse(kExitUsage, "--length must be more than 0");

    if (parser.isSet(fadeIn) && !parseInt(parser.value(fadeIn), 0, 3600, &o.fadeInSeconds))
        return refuse(
            kExitUsage,
            QString("bad --fade-in value '%1' (whole seconds from 0)").arg(parser.value(fadeIn)));
    if (parser.isSet(fadeOut) && !parseInt(parser.value(fadeOut), 0, 3600, &o.fadeOutSeconds))
        return refuse(
            kExitUsage,
            QString("bad --fade-out value '%1' (whole seconds from 0)").arg(parser.value(fadeOut)));
    if (parser.isSet(volume) && !parseInt(parser.value(volume), 0, kMaxVolume, &o.volume))
        return refuse(kExitUsage, QString("bad --volume value '%1' (0..%2, 100 = unchanged)")
                                      .arg(parser.value(volume))
                                      .arg(kMaxVolume));

    if (parser.isSet(loudness) && parser.isSet(loud))
        return refuse(kExitUsage, "give --loudness or --loud, not both");
    if (parser.isSet(loudness)) {
        bool ok = false;
        o.loudnessLufs = parser.value(loudness).toDouble(&ok);
        if (!ok || !(o.loudnessLufs >= kLowestTarget && o.loudnessLufs <= kHighestTarget))
            return refuse(kExitUsage, QString("bad --loudness value '%1' (LUFS from %2 to %3)")
                                          .arg(parser.value(loudness))
                                          .arg(kLowestTarget)
                                          .arg(kHighestTarget));
    }
    if (parser.isSet(loud))
        o.loudnessLufs = kLoudLufs;
    if (o.hasLoudness() && parser.isSet(volume))
        return refuse(kExitUsage,
                      "--volume and --loudness (or --loud) both set the level; give one");

    // What the options alone decide about the span; the input's length may
    // shorten it later.
    const long long span = o.requestedEndMs() - o.startMs;
    if (span <= 0)
        return refuse(kExitStartAfterEnd,
                      QString("the start (%1) is not before the end (%2)")
                          .arg(formatTimeArg(o.startMs), formatTimeArg(o.requestedEndMs())));
    if (span < kMinSelection)
        return refuse(kExitTooShort, QString("the ringtone would be %1 s long; the shortest is "
                                             "%2 s")
                                         .arg(span / 1000.0)
                                         .arg(kMinSelection / 1000));
    if (CRingtoneExport::isTooLong(span, o.kind) && !o.allowLong)
        return refuse(kExitTooLong,
                      QString("the ringtone would be %1 s long; phones refuse more than %2 s "
                              "(--allow-long makes it all the same)")
                          .arg(span / 1000.0)
                          .arg(CRingtoneExport::format(o.kind).lengthLimitMs / 1000));
    if (o.fadeInSeconds * 1000LL > span || o.fadeOutSeconds * 1000LL > span)
        return refuse(kExitUsage,
                      QString("a fade is longer than the ringtone (%1 s)").arg(span / 1000.0));
    return command;
}

QStringList childArguments(const CliOptions& options, const QString& input, const QString& output)
{
    QStringList args;
    args << "-o" << output << "--quiet";
    args << "--format" << QString::fromLatin1(CRingtoneExport::format(options.kind).key);
    args << "--start"
         << (options.startAuto ? QString("auto")
                               : QString::number(options.startMs / 1000.0, 'f', 3));
    if (options.endMs >= 0)
        args << "--end" << QString::number(options.endMs / 1000.0, 'f', 3);
    if (options.lengthMs >= 0)
        args << "--length" << QString::number(options.lengthMs / 1000.0, 'f', 3);
    args << "--fade-in" << QString::number(options.fadeInSeconds);
    args << "--fade-out" << QString::number(options.fadeOutSeconds);
    if (options.hasLoudness())
        args << "--loudness" << QString::number(options.loudnessLufs, 'f', 2);
    else
        args << "--volume" << QString::number(options.volume);
    if (options.allowLong)
        args << "--allow-long";
    if (options.force)
        args << "--force";
    if (options.verbose)
        args << "--verbose";
    // An input whose name begins with "-" is still an input.
    args << "--" << input;
    return args;
}
