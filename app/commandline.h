#pragma once
// The window program's command line: --version, --help and at most one
// media file to open. --version and --help are answered before the
// application object exists, so they need no display; the file is read
// from QCoreApplication::arguments(), from which QApplication has taken its
// own options (-platform, -style, ...) and their values.

#include <QString>
#include <QStringList>

struct CommandLine
{
    enum Action
    {
        Run,         // start the window (with `file`, when given)
        ShowVersion, // print `text` to standard output, exit 0
        ShowHelp,    // print `text` to standard output, exit 0
        Refuse       // print `text` to standard error, exit 2
    };
    Action action = Run;
    // The file to open in the editor; empty when none was named.
    QString file;
    QString text;
};

// `arguments` as QCoreApplication::arguments() gives them: the program
// first. Unknown options are ignored.
CommandLine parseCommandLine(const QStringList& arguments);

// For main(), before anything starts: prints the answer to --version or
// --help and gives the exit code (0); -1 when the program is to start. The
// rest of the command line waits for parseCommandLine().
int commandLineEarlyExit(int argc, char* argv[]);
