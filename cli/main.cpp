// tonewright-cli: ringtones from a terminal, made by the editor's own import
// and export. Prints results on standard output, progress and errors on
// standard error; the exit codes are in cli/exitcodes.h and --help.

#include "cli/batchrun.h"
#include "cli/clioptions.h"
#include "cli/consoleprogress.h"
#include "cli/exitcodes.h"
#include "cli/ringtonemaker.h"
#include "engine/platformfolders.h"

#include <QCoreApplication>
#include <QFileInfo>

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
    std::fprintf(stderr, "tonewright-cli: %s\n", text.toLocal8Bit().constData());
}

void printError(const QString& message)
{
    std::fprintf(stderr, "tonewright-cli: %s\n", message.toLocal8Bit().constData());
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
        std::printf("%s\n", maker.message().toLocal8Bit().constData());
        std::fflush(stdout);
    } else {
        printError(maker.message());
    }
    return code;
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

    const CliCommand command = parseCliArguments(QCoreApplication::arguments());
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

    g_verbose = command.options.verbose;
    qInstallMessageHandler(messageHandler);
    // The engine's lines, FFmpeg's among them, go to the log file; on the
    // terminal only with --verbose.
    KeloSetLogEcho(g_verbose ? 1 : 0);
    tellPlatformFolders();

    if (!command.options.directory.isEmpty())
        return CBatchRun(command.options).run();
    return makeOne(command.options);
}
