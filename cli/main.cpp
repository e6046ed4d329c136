// tonewright-cli: ringtones from a terminal, made by the editor's own import
// and export. Prints results on standard output, progress and errors on
// standard error; the exit codes are in cli/exitcodes.h and --help.

#include "cli/batchrun.h"
#include "cli/clioptions.h"
#include "cli/consoleprogress.h"
#include "cli/exitcodes.h"
#include "cli/interruptcleanup.h"
#include "cli/localpath.h"
#include "cli/ringtonemaker.h"
#include "cli/timearg.h"
#include "engine/platformfolders.h"
#include "engine/stalefiles.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

#include <vexa.h>

#include <cstdio>

namespace {

bool g_verbose = false;

// Debug lines (the engine's and the editor's) only with --verbose; warnings
// always, so that nothing that went wrong is hidden.
void messageHandler(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if ((type == QtDebugMsg || type == QtInfoMsg) && !g_verbose)
        return;
    std::fprintf(stderr, "tonewright-cli: %s\n", localpath::encode(text).constData());
}

void printError(const QString& message)
{
    std::fprintf(stderr, "tonewright-cli: %s\n", localpath::encode(message).constData());
}

int makeOne(const CliOptions& options)
{
    const QString input = options.inputs.first();
    CConsoleProgress progress(CConsoleProgress::modeFor(options.quiet),
                              QFileInfo(input).fileName());
    CRingtoneMaker maker(options);
    const int code = maker.make(input, options.output, [&progress](int p) { progress.update(p); });
    progress.finish();
    if (code == kExitOk) {
        std::printf("%s\n", localpath::encode(maker.message()).constData());
        std::fflush(stdout);
    } else {
        printError(maker.message());
    }
    return code;
}

QString jsonSeconds(long long ms)
{
    // Up to milliseconds, without trailing zeros, but always a decimal.
    QString text = QString::number(ms / 1000.0, 'f', 3);
    while (text.endsWith('0') && !text.endsWith(".0"))
        text.chop(1);
    return text;
}

// A JSON string, escaped by Qt's own writer.
QString jsonString(const QString& text)
{
    const QByteArray array = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(array.mid(1, array.size() - 2)); // without the brackets
}

// --suggest: each input's proposals on standard output, one line each;
// the first failure's code (with several inputs, kExitBatchFailed).
int suggestAll(const CliOptions& options)
{
    const long long length = options.lengthMs >= 0 ? options.lengthMs : kCliDefaultLengthMs;
    int failed = kExitOk;
    int failures = 0;
    for (const QString& input : options.inputs) {
        CRingtoneMaker maker(options);
        std::vector<SpanProposal> proposals;
        long long durationMs = 0;
        const int code = maker.suggest(input, length, &proposals, &durationMs);
        if (code != kExitOk) {
            printError(maker.message());
            failed = failed == kExitOk ? code : failed;
            ++failures;
            continue;
        }
        const SpanProposal& best = proposals.front();
        QString line;
        if (options.json) {
            QStringList alternatives;
            for (std::size_t i = 1; i < proposals.size(); ++i)
                alternatives << QString("[%1, %2]")
                                    .arg(jsonSeconds(proposals[i].beginMs),
                                         jsonSeconds(proposals[i].endMs));
            line = QString("{\"input\": %1, \"duration\": %2, \"start\": %3, \"end\": %4, "
                           "\"alternatives\": [%5]}")
                       .arg(jsonString(input), jsonSeconds(durationMs), jsonSeconds(best.beginMs),
                            jsonSeconds(best.endMs), alternatives.join(", "));
        } else {
            QStringList others;
            for (std::size_t i = 1; i < proposals.size(); ++i)
                others << QString("%1 to %2")
                              .arg(formatTimeArg(proposals[i].beginMs),
                                   formatTimeArg(proposals[i].endMs));
            line = QString("%1: %2 to %3")
                       .arg(input, formatTimeArg(best.beginMs), formatTimeArg(best.endMs));
            if (!others.isEmpty())
                line += "; also " + others.join(", ");
        }
        std::printf("%s\n", localpath::encode(line).constData());
        std::fflush(stdout);
    }
    if (failures > 0 && options.inputs.size() > 1)
        return kExitBatchFailed;
    return failed;
}

} // namespace

int main(int argc, char* argv[])
{
    // The command line never plays: SDL's silent drivers, with or without a
    // desktop, for the editor's WAV engine.
    qputenv("SDL_AUDIODRIVER", "dummy");
    qputenv("SDL_VIDEODRIVER", "dummy");
    QCoreApplication app(argc, argv);
    QCoreApplication::setOrganizationName("vandrel");
    QCoreApplication::setOrganizationDomain(TONEWRIGHT_DOMAIN);
    QCoreApplication::setApplicationName("tonewright");
    QCoreApplication::setApplicationVersion(TONEWRIGHT_VERSION);

    // Names as the file system has them, whatever their bytes.
    const CliCommand command = parseCliArguments(localpath::arguments(argc, argv));
    switch (command.action) {
    case CliCommand::ShowHelp:
    case CliCommand::ShowVersion:
        std::fputs(command.text.toLocal8Bit().constData(), stdout);
        return kExitOk;
    case CliCommand::Refuse:
        printError(command.text);
        if (command.exitCode == kExitUsage)
            std::fputs("Try 'tonewright-cli --help'.\n", stderr);
        return command.exitCode;
    case CliCommand::Run:
        break;
    }

    interruptcleanup::install();
    g_verbose = command.options.verbose;
    qInstallMessageHandler(messageHandler);
    // What an interrupted run left in the scratch space.
    removeStaleFiles(programCacheDir());
    // The engine's lines, FFmpeg's among them, go to the log file; on the
    // terminal only with --verbose.
    KeloSetLogEcho(g_verbose ? 1 : 0);
    tellPlatformFolders();

    if (command.options.suggest)
        return suggestAll(command.options);
    if (!command.options.directory.isEmpty())
        return CBatchRun(command.options).run();
    return makeOne(command.options);
}
