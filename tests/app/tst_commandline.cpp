// The window program's command line: --version and --help answered before
// anything starts (no display needed), the file to open, and where start-up
// finds the program's files in a build tree and in an installed one.
//
// The directory checks run this executable again from scratch layouts:
// started with --print-data-dir it prints applicationDataDirectory().

#include "app/appdir.h"
#include "app/commandline.h"
#include "testenv.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>
#include <cstring>

namespace {

struct Run
{
    int code = -1;
    QString out;
    QString err;
};

// A run without any display: no X, no Wayland, no platform chosen.
Run runWithoutDisplay(const QString& program, const QStringList& args)
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.remove("DISPLAY");
    env.remove("WAYLAND_DISPLAY");
    env.remove("QT_QPA_PLATFORM");
    QProcess p;
    p.setProcessEnvironment(env);
    p.start(program, args);
    Run r;
    if (!p.waitForFinished(30000)) {
        p.kill();
        p.waitForFinished();
        return r;
    }
    r.code = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -2;
    r.out = QString::fromLocal8Bit(p.readAllStandardOutput());
    r.err = QString::fromLocal8Bit(p.readAllStandardError());
    return r;
}

QString program()
{
    const QString configured = qEnvironmentVariable("TONEWRIGHT_BINARY");
    return configured.isEmpty() ? QCoreApplication::applicationDirPath() + "/tonewright"
                                : configured;
}

bool touch(const QString& path)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile f(path);
    return f.open(QIODevice::WriteOnly) && f.write("x") == 1;
}

} // namespace

class TestCommandLine : public QObject
{
    Q_OBJECT

private:
    // This executable copied into `bin` and run there; what it prints.
    static QString dataDirFrom(const QString& bin)
    {
        QDir().mkpath(bin);
        const QString copy = bin + "/tst_commandline";
        if (!QFile::exists(copy) && !QFile::copy(QCoreApplication::applicationFilePath(), copy))
            return "copy failed";
        QProcess p;
        p.start(copy, {"--print-data-dir"});
        if (!p.waitForFinished(30000))
            return "did not finish";
        return QString::fromLocal8Bit(p.readAllStandardOutput()).trimmed();
    }

private slots:
    void shouldReadTheFileToOpen()
    {
        CommandLine line = parseCommandLine({"tonewright"});
        QCOMPARE(line.action, CommandLine::Run);
        QCOMPARE(line.file, QString());
        line = parseCommandLine({"tonewright", "/music/a song.mp3"});
        QCOMPARE(line.action, CommandLine::Run);
        QCOMPARE(line.file, QString("/music/a song.mp3"));
        // Options it does not know are QApplication's business.
        line = parseCommandLine({"tonewright", "--qmljsdebugger=1", "clip.mp4"});
        QCOMPARE(line.action, CommandLine::Run);
        QCOMPARE(line.file, QString("clip.mp4"));
        line = parseCommandLine({"tonewright", "a.mp3", "b.mp3"});
        QCOMPARE(line.action, CommandLine::Refuse);
        QVERIFY(line.text.contains("one file at a time"));
    }

    void shouldAnswerVersionAndHelp()
    {
        CommandLine line = parseCommandLine({"tonewright", "--version"});
        QCOMPARE(line.action, CommandLine::ShowVersion);
        QCOMPARE(line.text, QString("tonewright " TONEWRIGHT_VERSION "\n"));
        QCOMPARE(parseCommandLine({"tonewright", "-v"}).action, CommandLine::ShowVersion);
        line = parseCommandLine({"tonewright", "--help", "x.mp3"});
        QCOMPARE(line.action, CommandLine::ShowHelp);
        QVERIFY(line.text.startsWith("Usage: tonewright [options] [FILE]"));
        QCOMPARE(parseCommandLine({"tonewright", "-h"}).action, CommandLine::ShowHelp);
    }

    void shouldExitEarlyOnlyForVersionAndHelp()
    {
        char name[] = "tonewright";
        char other[] = "song.mp3";
        char* plain[] = {name, other};
        QCOMPARE(commandLineEarlyExit(2, plain), -1);
        // Qt's options keep their values in argv until QApplication takes them.
        char platform[] = "-platform";
        char offscreen[] = "offscreen";
        char* qt[] = {name, platform, offscreen};
        QCOMPARE(commandLineEarlyExit(3, qt), -1);
        // Words of Qt's options that hold the letters v and h are no -v or -h.
        char reverse[] = "-reverse";
        char stylesheet[] = "-stylesheet";
        char css[] = "dark.css";
        char platformtheme[] = "-platformtheme";
        char gtk[] = "gtk3";
        char* words[] = {name, reverse, stylesheet, css, platformtheme, gtk};
        QCOMPARE(commandLineEarlyExit(6, words), -1);
        QCOMPARE(parseCommandLine({"tonewright", "-reverse", "song.mp3"}).file,
                 QString("song.mp3"));
    }

    void shouldPrintTheVersionWithoutADisplay()
    {
        const Run version = runWithoutDisplay(program(), {"--version"});
        QCOMPARE(version.code, 0);
        QCOMPARE(version.out, QString("tonewright " TONEWRIGHT_VERSION "\n"));
        QCOMPARE(version.err, QString());
        const Run help = runWithoutDisplay(program(), {"--help"});
        QCOMPARE(help.code, 0);
        QVERIFY(help.out.contains("--version"));
        QVERIFY(help.out.contains("FILE"));
        QCOMPARE(help.err, QString());
    }

    void shouldFindTheFilesBesideABuiltProgram()
    {
        QTemporaryDir root;
        QVERIFY(touch(root.filePath("build/skin/default/default.css")));
        // An installed tree next to it does not win over the build tree.
        QVERIFY(QDir().mkpath(root.filePath("share/tonewright")));
        QCOMPARE(dataDirFrom(root.filePath("build")), root.filePath("build"));
    }

    void shouldFindTheFilesOfAnInstalledProgram()
    {
        QTemporaryDir root;
        QVERIFY(touch(root.filePath("usr/share/tonewright/skin/default/default.css")));
        QCOMPARE(dataDirFrom(root.filePath("usr/bin")), root.filePath("usr/share/tonewright"));
    }

    void shouldFallBackToTheProgramsFolder()
    {
        QTemporaryDir root;
        QCOMPARE(dataDirFrom(root.filePath("lonely/bin")), root.filePath("lonely/bin"));
    }
};

int main(int argc, char* argv[])
{
    if (argc == 2 && std::strcmp(argv[1], "--print-data-dir") == 0) {
        QCoreApplication app(argc, argv);
        std::printf("%s\n", qPrintable(applicationDataDirectory()));
        return 0;
    }
    tw::isolateEnvironment();
    QApplication app(argc, argv);
    tw::setIdentity();
    TestCommandLine tc;
    return QTest::qExec(&tc, argc, argv);
}

#include "tst_commandline.moc"
