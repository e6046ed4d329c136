#pragma once
// Checks of an installed tree (a `cmake --install` prefix or an unpacked
// package): the files in their places, the installed programs' --version
// run with a clean environment, and the desktop entry and AppStream file
// through their validators.

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTest>
#include <algorithm>

namespace twdist {

struct Tool
{
    int code = -1;
    QString output;
};

// Runs a program with the environment given; the exit code (-1 when it
// did not start or finish, -2 when it crashed) and its combined output.
inline Tool runTool(const QString& program, const QStringList& args,
                    const QProcessEnvironment& env = QProcessEnvironment::systemEnvironment())
{
    QProcess p;
    p.setProcessEnvironment(env);
    p.setProcessChannelMode(QProcess::MergedChannels);
    p.start(program, args);
    Tool t;
    if (!p.waitForStarted(10000)) {
        t.output = program + ": " + p.errorString();
        return t;
    }
    if (!p.waitForFinished(120000)) {
        p.kill();
        p.waitForFinished();
        return t;
    }
    t.code = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -2;
    t.output = QString::fromLocal8Bit(p.readAll());
    return t;
}

// The reverse-DNS id the build made from its maker's domain.
inline QString appId()
{
    QStringList parts = QString(TONEWRIGHT_DOMAIN).split('.');
    std::reverse(parts.begin(), parts.end());
    return parts.join('.') + ".tonewright";
}

// The run of an installed program: no library path of the build's, the
// offscreen platform, nothing else of the test's own.
inline QProcessEnvironment cleanEnvironment()
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.remove("LD_LIBRARY_PATH");
    env.remove("DISPLAY");
    env.remove("WAYLAND_DISPLAY");
    env.insert("QT_QPA_PLATFORM", "offscreen");
    return env;
}

// Every check of the tree whose prefix is `prefix` (holding bin/ and share/).
inline void checkInstalledTree(const QString& prefix)
{
    const QString share = prefix + "/share";
    for (const QString& file :
         {QString("bin/tonewright"), QString("bin/tonewright-cli"),
          QString("share/tonewright/skin/default/default.css"),
          QString("share/tonewright/helptopic/overview.html"),
          QString("share/tonewright/Tonewright_fr.qm"), QString("share/tonewright/qt_fr.qm"),
          QString("share/applications/tonewright.desktop"),
          QString("share/metainfo/") + appId() + ".metainfo.xml",
          QString("share/icons/hicolor/scalable/apps/tonewright.svg")})
        QVERIFY2(QFileInfo::exists(prefix + "/" + file), qPrintable(file));
    for (const char* size :
         {"16x16", "22x22", "24x24", "32x32", "48x48", "64x64", "128x128", "256x256", "512x512"})
        QVERIFY2(QFileInfo::exists(share + "/icons/hicolor/" + size + "/apps/tonewright.png"),
                 size);
    // Every translation the build placed beside the program is installed.
    const QDir built(TW_BINARY_DIR);
    const QStringList qm = built.entryList({"*.qm"}, QDir::Files);
    QVERIFY(qm.size() >= 9);
    for (const QString& name : qm)
        QVERIFY2(QFileInfo::exists(share + "/tonewright/" + name), qPrintable(name));

    for (const char* program : {"tonewright", "tonewright-cli"}) {
        const Tool version = runTool(prefix + "/bin/" + program, {"--version"}, cleanEnvironment());
        QVERIFY2(version.code == 0, qPrintable(version.output));
        QCOMPARE(version.output, QString("%1 " TONEWRIGHT_VERSION "\n").arg(program));
    }

    const Tool desktop =
        runTool("desktop-file-validate", {share + "/applications/tonewright.desktop"});
    QVERIFY2(desktop.code == 0 && desktop.output.trimmed().isEmpty(), qPrintable(desktop.output));
    const Tool appstream = runTool(
        "appstreamcli", {"validate", "--no-net", share + "/metainfo/" + appId() + ".metainfo.xml"});
    QVERIFY2(appstream.code == 0, qPrintable(appstream.output));
    QVERIFY2(!appstream.output.contains("E: ") && !appstream.output.contains("W: "),
             qPrintable(appstream.output));

    // The entry opens a file with the program, which shows its icon.
    QFile entry(share + "/applications/tonewright.desktop");
    QVERIFY(entry.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(entry.readAll());
    QVERIFY(text.contains("\nExec=tonewright %f\n"));
    QVERIFY(text.contains("\nIcon=tonewright\n"));
    for (const char* type :
         {"audio/mpeg;", "audio/flac;", "audio/x-wav;", "video/mp4;", "video/x-matroska;"})
        QVERIFY2(text.contains(type), type);
}

} // namespace twdist
