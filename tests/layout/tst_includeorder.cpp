// The folders of the product include each other in one direction only:
// app and cli → ui → editor, library, update, crash → widgets, core →
// engine → audio → platform. A folder may include its own files and any
// folder below it; folders on one level may include each other as long as
// no two of them do so both ways; platform/ includes only platform/ and
// system headers. Every `#include "folder/..."` (or <folder/...>) of the
// product's sources is read and checked; a failure names the file and the
// include.

#include "testenv.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>

namespace {

// The level of each product folder: a file may include a folder of a
// higher number (lower down), its own folder, or one of its own level.
const QMap<QString, int>& levels()
{
    static const QMap<QString, int> map{
        {"app", 0},   {"cli", 0},     {"ui", 1},   {"editor", 2}, {"library", 2}, {"update", 2},
        {"crash", 2}, {"widgets", 3}, {"core", 3}, {"engine", 4}, {"audio", 5},   {"platform", 6}};
    return map;
}

struct Include
{
    QString file; // relative to the root
    int line;
    QString target; // what the include names
};

// One finding per include against the order, plus one per pair of folders
// of one level that include each other.
QStringList checkIncludes(const QString& root)
{
    static const QRegularExpression includeLine(
        QStringLiteral(R"(^\s*#\s*include\s*[<"]([^">]+)[">])"));
    QStringList findings;
    // folder → included folder → the first include that makes that edge
    QMap<QString, QMap<QString, Include>> sameLevel;

    for (auto it = levels().cbegin(); it != levels().cend(); ++it) {
        const QString folder = it.key();
        const int level = it.value();
        QDirIterator files(root + "/" + folder, {"*.h", "*.cpp", "*.c"}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString path = files.next();
            const QString relative = QDir(root).relativeFilePath(path);
            QFile file(path);
            if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
                findings << QString("%1: cannot be read").arg(relative);
                continue;
            }
            int lineNo = 0;
            while (!file.atEnd()) {
                const QString line = QString::fromUtf8(file.readLine());
                ++lineNo;
                const QRegularExpressionMatch m = includeLine.match(line);
                if (!m.hasMatch())
                    continue;
                const QString target = m.captured(1);
                const int slash = target.indexOf('/');
                if (slash < 0)
                    continue; // a header beside the file, or a system header
                const QString to = target.left(slash);
                if (!levels().contains(to) || to == folder)
                    continue;
                const Include inc{relative, lineNo, target};
                if (folder == "platform") {
                    findings << QString("%1:%2: includes \"%3\": platform/ includes only "
                                        "platform/ and system headers")
                                    .arg(relative)
                                    .arg(lineNo)
                                    .arg(target);
                } else if (levels().value(to) < level) {
                    findings << QString("%1:%2: includes \"%3\": %4/ is above %5/")
                                    .arg(relative)
                                    .arg(lineNo)
                                    .arg(target, to, folder);
                } else if (levels().value(to) == level && !sameLevel[folder].contains(to)) {
                    sameLevel[folder].insert(to, inc);
                }
            }
        }
    }

    for (auto from = sameLevel.cbegin(); from != sameLevel.cend(); ++from) {
        for (auto to = from.value().cbegin(); to != from.value().cend(); ++to) {
            // Each pair once: from the folder that sorts first.
            if (from.key() < to.key() && sameLevel.value(to.key()).contains(from.key())) {
                const Include there = to.value();
                const Include back = sameLevel.value(to.key()).value(from.key());
                findings << QString("%1:%2: includes \"%3\" while %4:%5 includes \"%6\": %7/ and "
                                    "%8/ include each other")
                                .arg(there.file)
                                .arg(there.line)
                                .arg(there.target, back.file)
                                .arg(back.line)
                                .arg(back.target, from.key(), to.key());
            }
        }
    }
    return findings;
}

bool writeFile(const QString& path, const QByteArray& text)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size();
}

} // namespace

class TestIncludeOrder : public QObject
{
    Q_OBJECT

private slots:
    void shouldFindNoIncludeAgainstTheOrderInTheProduct()
    {
        const QString root = QStringLiteral(TW_SOURCE_DIR);
        QVERIFY2(QFileInfo(root + "/engine").isDir(), qPrintable(root));
        const QStringList findings = checkIncludes(root);
        QVERIFY2(findings.isEmpty(), qPrintable("\n" + findings.join("\n")));
    }

    void shouldAllowIncludesDownwardsAndWithinAFolder()
    {
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        QVERIFY(writeFile(dir.filePath("app/main.cpp"),
                          "#include \"ui/mainwnd.h\"\n#include \"app/startup.h\"\n"));
        QVERIFY(writeFile(dir.filePath("ui/mainwnd.cpp"),
                          "#include \"editor/wavewnd.h\"\n#include \"widgets/popdlg.h\"\n"
                          "#include \"core/branding.h\"\n#include <QWidget>\n"));
        QVERIFY(writeFile(dir.filePath("editor/waveio.cpp"),
                          "#include \"library/ItunesWrap.h\"\n#include \"engine/x.h\"\n"
                          "#include <vexa.h>\n"));
        QVERIFY(writeFile(dir.filePath("engine/x.cpp"), "#include \"audio/wavehelper.h\"\n"));
        QVERIFY(writeFile(dir.filePath("platform/vexa/run.cpp"),
                          "#include \"job.h\"\n#include <libavcodec/avcodec.h>\n"));
        const QStringList findings = checkIncludes(dir.path());
        QVERIFY2(findings.isEmpty(), qPrintable(findings.join("\n")));
    }

    void shouldNameTheFileAndTheIncludeThatGoesUpwards_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("include");
        QTest::newRow("engine into ui") << "engine/convertwraper.cpp"
                                        << "ui/mainwnd.h";
        QTest::newRow("audio into editor") << "audio/wavehelper.h"
                                           << "editor/wavemodel.h";
        QTest::newRow("core into app") << "core/mpconfig.cpp"
                                       << "app/appdir.h";
        QTest::newRow("widgets into crash") << "widgets/popdlg.cpp"
                                            << "crash/crashhandler.h";
        QTest::newRow("editor into ui") << "editor/wavewnd.cpp"
                                        << "ui/mainwnd.h";
        QTest::newRow("ui into app") << "ui/mainwnd.cpp"
                                     << "app/branding.h";
        QTest::newRow("platform into engine") << "platform/vexa/player.cpp"
                                              << "engine/timeconvert.h";
        QTest::newRow("platform into audio, angle brackets") << "platform/videownd/videownd.cpp"
                                                             << "audio/wavehelper.h";
    }

    void shouldNameTheFileAndTheIncludeThatGoesUpwards()
    {
        QFETCH(QString, file);
        QFETCH(QString, include);
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        const QByteArray text = file.startsWith("platform/videownd")
                                    ? "#include <" + include.toUtf8() + ">\n"
                                    : "// a comment\n#include \"" + include.toUtf8() + "\"\n";
        QVERIFY(writeFile(dir.filePath(file), text));
        const QStringList findings = checkIncludes(dir.path());
        QCOMPARE(findings.size(), 1);
        QVERIFY2(findings.first().startsWith(file + ":"), qPrintable(findings.first()));
        QVERIFY2(findings.first().contains("\"" + include + "\""), qPrintable(findings.first()));
    }

    void shouldRefuseFoldersOfOneLevelThatIncludeEachOther()
    {
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        QVERIFY(
            writeFile(dir.filePath("editor/waveio.cpp"), "#include \"library/ItunesWrap.h\"\n"));
        QVERIFY(writeFile(dir.filePath("library/ringtonemodel.cpp"),
                          "#include \"library/x.h\"\n#include \"editor/wavemodel.h\"\n"));
        const QStringList findings = checkIncludes(dir.path());
        QCOMPARE(findings.size(), 1);
        QVERIFY2(findings.first().contains("editor/waveio.cpp:1") &&
                     findings.first().contains("library/ringtonemodel.cpp:2") &&
                     findings.first().contains("include each other"),
                 qPrintable(findings.first()));
    }
};

TW_TEST_MAIN(TestIncludeOrder)
#include "tst_includeorder.moc"
