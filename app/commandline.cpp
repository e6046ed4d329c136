#include "app/commandline.h"

#include <QCommandLineParser>
#include <QFile>

#include <cstdio>

namespace {

const char kUsage[] = "Usage: tonewright [options] [FILE]\n"
                      "Turns a song or a video into a phone ringtone.\n"
                      "\n"
                      "Options:\n"
                      "  -h, --help     Shows this help and exits.\n"
                      "  -v, --version  Shows the version and exits.\n"
                      "\n"
                      "Arguments:\n"
                      "  FILE           A music or video file to open in the editor.\n"
                      "\n"
                      "To make ringtones from a terminal, see tonewright-cli --help.\n";

} // namespace

CommandLine parseCommandLine(const QStringList& arguments)
{
    QCommandLineParser parser;
    // Qt's own options are single-dash words (-reverse, -stylesheet): read
    // as words they are unknown, not a run of letters holding -v or -h.
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    const QCommandLineOption help(QStringList{"h", "help"}, "Shows this help.");
    const QCommandLineOption version(QStringList{"v", "version"}, "Shows the version.");
    parser.addOption(help);
    parser.addOption(version);
    parser.addPositionalArgument("FILE", "A music or video file to open.", "[FILE]");
    // Unknown options belong to QApplication: the result of parse() is not
    // an error here.
    parser.parse(arguments);

    CommandLine line;
    if (parser.isSet(help)) {
        line.action = CommandLine::ShowHelp;
        line.text = QString::fromLatin1(kUsage);
        return line;
    }
    if (parser.isSet(version)) {
        line.action = CommandLine::ShowVersion;
        line.text = QStringLiteral("tonewright " TONEWRIGHT_VERSION "\n");
        return line;
    }
    const QStringList files = parser.positionalArguments();
    if (files.size() > 1) {
        line.action = CommandLine::Refuse;
        line.text = QStringLiteral("tonewright: one file at a time, %1 were named\n"
                                   "Try 'tonewright --help'.\n")
                        .arg(files.size());
        return line;
    }
    if (!files.isEmpty())
        line.file = files.first();
    return line;
}

int commandLineEarlyExit(int argc, char* argv[])
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QFile::decodeName(argv[i]);
    const CommandLine line = parseCommandLine(arguments);
    // Qt's options are still in argv here, with values that would read as
    // files: only the two answers are given now.
    if (line.action != CommandLine::ShowVersion && line.action != CommandLine::ShowHelp)
        return -1;
    std::fputs(line.text.toLocal8Bit().constData(), stdout);
    return 0;
}
