// KeloBugReport: each call makes a fresh pack directory with a summary of
// the system and the program, the newest day logs and the settings without
// their passwords.

#include "testenv.h"

#include <vexa.h>

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace {

bool write(const QString& path, const QByteArray& bytes, const QDateTime& modified = {})
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly) || f.write(bytes) != bytes.size())
        return false;
    f.close();
    if (modified.isValid() && f.open(QIODevice::ReadWrite)) {
        f.setFileTime(modified, QFileDevice::FileModificationTime);
        f.close();
    }
    return true;
}

QByteArray read(const QString& path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

} // namespace

class TestKeloBugReport : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_data;

private slots:
    void initTestCase()
    {
        QVERIFY(m_data.isValid());
        KeloSetDataDirectory(QFile::encodeName(m_data.path()).constData());
        KeloAddReportDetail("Tonewright", "1.4.0");
        KeloAddReportDetail("Qt", qVersion());
    }

    void shouldMakeAFreshDirectoryEachTime()
    {
        const QString first = QString::fromLocal8Bit(KeloBugReport("com.example.app", "app", 0, 0));
        const QString second =
            QString::fromLocal8Bit(KeloBugReport("com.example.app", "app", 0, 0));
        QVERIFY(!first.isEmpty());
        QVERIFY(!second.isEmpty());
        QVERIFY(first != second);
        QVERIFY(QDir(first).exists());
        QVERIFY(QDir(second).exists());
        QVERIFY(first.startsWith(m_data.path() + "/reports/"));
    }

    void shouldDescribeTheSystemAndTheProgram()
    {
        const QString pack =
            QString::fromLocal8Bit(KeloBugReport("com.vandrel.tonewright", "tonewright", 0, 0));
        const QString summary = QString::fromUtf8(read(pack + "/summary.txt"));
        QVERIFY2(summary.contains("tonewright (com.vandrel.tonewright)"), qPrintable(summary));
        for (const char* line :
             {"\nOS: ", "\nCPU: ", "\nMemory: ", "\nFFmpeg: ", "\nTonewright: 1.4.0", "\nQt: "})
            QVERIFY2(summary.contains(line), line);
        QVERIFY(summary.contains(QString("Qt: ") + qVersion()));
    }

    void shouldCarryTheThreeNewestLogs()
    {
        const QString logs = m_data.path() + "/log";
        const QDateTime now = QDateTime::currentDateTime();
        QVERIFY(write(logs + "/01.01.2026.log", "oldest\n", now.addDays(-30)));
        QVERIFY(write(logs + "/02.01.2026.log", "older\n", now.addDays(-20)));
        QVERIFY(write(logs + "/03.01.2026.log", "newer\n", now.addDays(-10)));
        QVERIFY(write(logs + "/04.01.2026.log", "newest\n", now.addDays(-1)));
        QVERIFY(write(logs + "/notes.txt", "not a log\n", now));
        const QString pack = QString::fromLocal8Bit(KeloBugReport("com.example.app", "app", 0, 0));
        QStringList carried = QDir(pack).entryList(QStringList() << "*.log", QDir::Files);
        carried.sort();
        QCOMPARE(carried, QStringList({"02.01.2026.log", "03.01.2026.log", "04.01.2026.log"}));
        QCOMPARE(read(pack + "/04.01.2026.log"), QByteArray("newest\n"));
        QVERIFY(!QFile::exists(pack + "/notes.txt"));
    }

    void shouldCopyTheSettingsWithoutPasswords()
    {
        const QString settings = m_data.path() + "/tonewright.conf";
        QVERIFY(write(settings, "[General]\ncrashFlag=true\n\n[Proxy]\nHost=proxy.example\n"
                                "PassWord=s3cret-pass\nUserName=me\nport=8080\n"
                                "SmtpPassword=another-secret\n"));
        KeloSetReportSettingsFile(QFile::encodeName(settings).constData());
        const QString pack = QString::fromLocal8Bit(KeloBugReport("com.example.app", "app", 0, 0));
        const QByteArray copy = read(pack + "/tonewright.conf");
        QVERIFY2(copy.contains("Host=proxy.example"), copy.constData());
        QVERIFY(copy.contains("UserName=me"));
        QVERIFY(copy.contains("crashFlag=true"));
        QVERIFY2(!copy.contains("s3cret-pass"), copy.constData());
        QVERIFY(!copy.contains("another-secret"));
        KeloSetReportSettingsFile(nullptr);
    }

    void shouldPackIntoTheTemporaryFolderWithoutADataFolder()
    {
        KeloSetDataDirectory("");
        const QString pack = QString::fromLocal8Bit(KeloBugReport("com.example.app", "app", 0, 0));
        KeloSetDataDirectory(QFile::encodeName(m_data.path()).constData());
        QVERIFY(!pack.isEmpty());
        QVERIFY(QFile::exists(pack + "/summary.txt"));
        QDir(pack).removeRecursively();
    }
};

TW_TEST_MAIN(TestKeloBugReport)
#include "tst_kelobugreport.moc"
