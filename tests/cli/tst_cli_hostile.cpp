// tonewright-cli against hostile input, run as a child process: what never
// ends (a pipe, /dev/zero, a WAV at 1 Hz) ends within ten seconds, an
// interrupted run leaves nothing behind, a header that claims more than the
// file holds gets the real length, and each failure names what failed.

#include "cli/exitcodes.h"
#include "clirun.h"
#include "mediafixtures.h"
#include "testenv.h"

#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <cmath>

namespace {

// What never ends is given this long; a refusal takes a fraction of it.
constexpr int kLimitMs = 10000;

QString cacheDir()
{
    return tw::testHome() + "/.cache/vandrel/tonewright";
}

twcli::Run runLimited(const QStringList& args)
{
    return twcli::run(args, QString(), kLimitMs);
}

// A canonical WAV of a 440 Hz tone whose header says `claimedSeconds`
// while the file holds `seconds`.
bool writeClaimingWav(const QString& path, int rate, int seconds, int claimedSeconds)
{
    if (!tw::writeWav(path, rate, 2, 16, qint64(rate) * seconds, [rate](qint64 frame, int) {
            return int(8000 * std::sin(2 * M_PI * 440 * double(frame) / rate));
        }))
        return false;
    QFile f(path);
    if (!f.open(QIODevice::ReadWrite))
        return false;
    const quint32 claimed = quint32(rate) * 4 * quint32(claimedSeconds);
    const auto le32 = [](quint32 v) {
        QByteArray bytes;
        for (int i = 0; i < 4; ++i)
            bytes.append(char(v >> (8 * i) & 0xFF));
        return bytes;
    };
    return f.seek(4) && f.write(le32(36 + claimed)) == 4 && f.seek(40) &&
           f.write(le32(claimed)) == 4;
}

// Files whose names start with `prefix` in `dir`, hidden ones included.
QStringList filesStarting(const QString& dir, const QString& prefix)
{
    QStringList found;
    for (const QString& name : QDir(dir).entryList(QDir::Files | QDir::Hidden))
        if (name.startsWith(prefix))
            found << name;
    return found;
}

} // namespace

class TestCliHostile : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QString m_song; // 60 s, MP3

    QString out(const QString& name) const { return m_dir.filePath(name); }

    void expectRefusal(const QStringList& args, int code, const QString& says)
    {
        const twcli::Run r = runLimited(args);
        QVERIFY2(r.code == code, qPrintable(twcli::describe(r)));
        QVERIFY2(r.err.contains(says), qPrintable(twcli::describe(r)));
        QVERIFY2(r.out.isEmpty(), qPrintable(twcli::describe(r)));
        // FFmpeg's own lines only with --verbose.
        QVERIFY2(!r.err.contains("ffmpeg") && !r.err.contains(" @ 0x"),
                 qPrintable(twcli::describe(r)));
        QCOMPARE(twcli::leftoverWaves(), QStringList());
        QCOMPARE(twcli::hiddenFiles(m_dir.path()), QStringList());
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        m_song = tw::mp3Fixture(60);
        QVERIFY(!m_song.isEmpty());
    }

    void shouldEndEveryEndlessInputWithinTheLimit_data()
    {
        QTest::addColumn<QString>("input");
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("says");
        const QString pipe = out("pipe.mp3");
        QVERIFY(mkfifo(QFile::encodeName(pipe).constData(), 0600) == 0);
        const QString slow = out("one hertz.wav");
        QVERIFY(tw::writeWav(slow, 1, 2, 16, 400, [](qint64 f, int) { return int(f % 64) * 100; }));
        QTest::newRow("a named pipe") << pipe << int(kExitInputUnreadable)
                                      << "pipe.mp3: is not a regular file (a pipe or a device)";
        QTest::newRow("/dev/zero")
            << "/dev/zero" << int(kExitInputUnreadable) << "/dev/zero: is not a regular file";
        // FFmpeg resamples what the editor's engine would refuse.
        QTest::newRow("a WAV at 1 Hz") << slow << -100 << "";
    }

    void shouldEndEveryEndlessInputWithinTheLimit()
    {
        QFETCH(QString, input);
        QFETCH(int, code);
        QFETCH(QString, says);
        const QString ring = out("endless.m4r");
        QFile::remove(ring);
        const twcli::Run r = runLimited({input, "-o", ring, "--force"});
        QVERIFY2(r.code >= 0, qPrintable(twcli::describe(r)));
        if (code != -100) {
            QVERIFY2(r.code == code, qPrintable(twcli::describe(r)));
            QVERIFY2(r.err.contains(says), qPrintable(twcli::describe(r)));
            QVERIFY(!QFile::exists(ring));
        }
        QCOMPARE(twcli::leftoverWaves(), QStringList());
        QCOMPARE(twcli::hiddenFiles(m_dir.path()), QStringList());
    }

    void shouldLeaveNothingWhenInterrupted_data()
    {
        QTest::addColumn<int>("sig");
        QTest::addColumn<bool>("whileEncoding");
        QTest::newRow("SIGTERM while decoding") << int(SIGTERM) << false;
        QTest::newRow("SIGINT while decoding") << int(SIGINT) << false;
        QTest::newRow("SIGTERM while encoding") << int(SIGTERM) << true;
        QTest::newRow("SIGINT while encoding") << int(SIGINT) << true;
    }

    void shouldLeaveNothingWhenInterrupted()
    {
        QFETCH(int, sig);
        QFETCH(bool, whileEncoding);
        // Fifteen minutes of sound, a fourteen-minute ringtone: seconds of
        // work in each phase, time enough to be caught in it.
        static const QString longSong = [] {
            const QString path = tw::fixtureDir() + "/long 15 min.mp3";
            if (!QFile::exists(path))
                tw::ffmpeg({"-f", "lavfi", "-i", "sine=frequency=440:duration=900", "-ac", "2",
                            "-c:a", "libmp3lame", "-b:a", "64k", path});
            return path;
        }();
        QVERIFY(QFile::exists(longSong));
        const QByteArray before = tw::fileChecksum(longSong);
        QTemporaryDir folder;
        QVERIFY(folder.isValid());
        const QString ring = folder.filePath("interrupted.m4r");

        QProcess p;
        p.start(twcli::program(), {longSong, "-o", ring, "--end", "14:00", "--allow-long", "-q"});
        QVERIFY(p.waitForStarted());
        // The phase's own half-written file shows that the run is in it.
        const QString watched = whileEncoding ? folder.path() : cacheDir();
        const QString prefix = whileEncoding ? "..tonewright-" : ".wave_";
        QElapsedTimer waited;
        waited.start();
        while (filesStarting(watched, prefix).isEmpty() && p.state() == QProcess::Running &&
               waited.elapsed() < 120000)
            QTest::qWait(20);
        QVERIFY2(p.state() == QProcess::Running, "the run ended before the phase was seen");
        QVERIFY2(!filesStarting(watched, prefix).isEmpty(), "the phase never began");
        ::kill(pid_t(p.processId()), sig);
        QVERIFY(p.waitForFinished(kLimitMs));
        QCOMPARE(p.exitStatus(), QProcess::CrashExit); // ended by the signal, as ever

        QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList());
        QCOMPARE(QDir(cacheDir()).entryList(QDir::Files | QDir::Hidden), QStringList());
        QCOMPARE(tw::fileChecksum(longSong), before);
    }

    void shouldRemoveWhatAnEarlierInterruptedRunLeft()
    {
        QTemporaryDir folder;
        QVERIFY(folder.isValid());
        QDir().mkpath(cacheDir());
        const QStringList leftInCache{".wave_101010101.tmp.d51aed202b-0.part"};
        const QStringList leftBeside{"..tonewright-AbCdEf.m4r.d68dac7c50-1.part",
                                     ".tonewright-AbCdEf.m4r"};
        const QString freshPart = cacheDir() + "/.wave_202020202.tmp.aa-0.part";
        const QDateTime old = QDateTime::currentDateTime().addSecs(-3600);
        auto makeOld = [&old](const QString& path) {
            QFile f(path);
            return f.open(QIODevice::WriteOnly) && f.write("half") == 4 && f.flush() &&
                   f.setFileTime(old, QFileDevice::FileModificationTime);
        };
        for (const QString& name : leftInCache)
            QVERIFY(makeOld(cacheDir() + "/" + name));
        for (const QString& name : leftBeside)
            QVERIFY(makeOld(folder.filePath(name)));
        // Written just now: another run's, still going.
        QFile fresh(freshPart);
        QVERIFY(fresh.open(QIODevice::WriteOnly));
        fresh.close();

        const QString ring = folder.filePath("after.m4r");
        const twcli::Run r = twcli::run({m_song, "-o", ring, "--length", "6", "-q"});
        QVERIFY2(r.code == kExitOk, qPrintable(twcli::describe(r)));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden),
                 QStringList{"after.m4r"});
        QCOMPARE(QDir(cacheDir()).entryList(QDir::Files | QDir::Hidden),
                 QStringList{QFileInfo(freshPart).fileName()});
        QVERIFY(QFile::remove(freshPart));
    }

    void shouldGoByWhatTheFileHoldsNotWhatItsHeaderClaims()
    {
        // The header claims 30 s; the file holds 20 s.
        const QString wav = out("claims thirty.wav");
        QVERIFY(writeClaimingWav(wav, 44100, 20, 30));
        const QByteArray before = tw::fileChecksum(wav);
        const QString ring = out("claims.m4r");
        expectRefusal({wav, "-o", ring, "--start", "18"}, kExitTooShort,
                      "only 2.0 s of the input is left from the start (0:18.0)");
        QVERIFY(!QFile::exists(ring));
        // A fade that the span shortened by the end no longer fits.
        expectRefusal({wav, "-o", ring, "--start", "12", "--fade-out", "10"}, kExitUsage,
                      "a fade is longer than the ringtone (8 s");
        QVERIFY(!QFile::exists(ring));

        const twcli::Run r = twcli::run({wav, "-o", ring, "--start", "10"});
        QVERIFY2(r.code == kExitOk, qPrintable(twcli::describe(r)));
        QVERIFY2(r.out.contains("0:10.0 to 0:20.0 (10.0 s)"), qPrintable(twcli::describe(r)));
        const double seconds = twcli::probeDuration(ring);
        QVERIFY2(std::fabs(seconds - 10.0) < 0.1, qPrintable(QString::number(seconds)));
        QCOMPARE(tw::fileChecksum(wav), before);
    }

    void shouldMakeARingtoneFromASourceLongerThanTheEditorsWave()
    {
        // Three and a half hours in a sparse WAV (its sound: silence, then a
        // tone at 3:20:00): only the span is decoded, so no WAV of the whole
        // is written, and nothing is refused for the length.
        const QString wav = out("hours.wav");
        QVERIFY(tw::writeWav(wav, 44100, 2, 16, 44100, [](qint64, int) { return 0; }));
        const qint64 bytes = 44100LL * 4 * 60 * 210;
        QFile file(wav);
        QByteArray size;
        for (int i = 0; i < 4; ++i)
            size.append(char(quint32(bytes) >> (8 * i) & 0xFF));
        QVERIFY(file.open(QIODevice::ReadWrite) && file.seek(40) && file.write(size) == 4 &&
                file.resize(44 + bytes));
        QByteArray tone;
        for (int i = 0; i < 44100 * 40; ++i) {
            const qint16 s = qint16(6000 * std::sin(2 * M_PI * 440 * i / 44100.0));
            for (int c = 0; c < 2; ++c)
                tone.append(char(s & 0xFF)).append(char(s >> 8 & 0xFF));
        }
        QVERIFY(file.seek(44 + 44100LL * 4 * 12000) && file.write(tone) == tone.size());
        file.close();

        const QString ring = out("hours.m4r");
        const twcli::Run r = twcli::run({wav, "-o", ring, "--start", "3:20:05", "-q"});
        QVERIFY2(r.code == kExitOk, qPrintable(twcli::describe(r)));
        QVERIFY2(r.out.contains("3:20:05.0 to 3:20:35.0 (30.0 s)"), qPrintable(r.out));
        const double seconds = twcli::probeDuration(ring);
        QVERIFY2(std::fabs(seconds - 30.0) < 0.1, qPrintable(QString::number(seconds)));
        // The tone, not the silence around it.
        QVERIFY(twcli::rms(twcli::decodePcm(ring), 5000, 25000) > 1000.0);
        QCOMPARE(twcli::leftoverWaves(), QStringList());
        QVERIFY(QFile::remove(wav));
    }

    void shouldSayThatAPathIsTooLong()
    {
        QString path = m_dir.path();
        while (QFile::encodeName(path).size() <= 4096)
            path += "/" + QString(200, QChar('a'));
        path += ".mp3";
        expectRefusal({path, "-o", out("long-path.m4r")}, kExitInputUnreadable,
                      QString("the path is too long for the file system (%1 bytes)")
                          .arg(QFile::encodeName(path).size()));
    }

    void shouldBlameAScratchFolderThatTakesNoFiles()
    {
        // The scratch folder's place taken by a plain file: nothing can be
        // made in it, whoever asks.
        QDir().mkpath(cacheDir());
        const QString away = cacheDir() + ".away";
        QVERIFY(QDir().rename(cacheDir(), away));
        QFile block(cacheDir());
        QVERIFY(block.open(QIODevice::WriteOnly));
        block.close();
        const twcli::Run r = runLimited({m_song, "-o", out("scratch.m4r")});
        QVERIFY(QFile::remove(cacheDir()));
        QVERIFY(QDir().rename(away, cacheDir()));
        QVERIFY2(r.code == kExitConversionFailed, qPrintable(twcli::describe(r)));
        QVERIFY2(r.err.contains("the temporary WAV could not be written: the scratch folder " +
                                cacheDir() + " cannot be made"),
                 qPrintable(twcli::describe(r)));
        QVERIFY2(!r.err.contains("could not be decoded"), qPrintable(twcli::describe(r)));
        QVERIFY(!QFile::exists(out("scratch.m4r")));
    }

    void shouldBlameAFullScratchFolder()
    {
        // Files of at most 512 KiB: the temporary WAV of a 30-s span does
        // not fit, as on a full disk.
        QProcess p;
        p.setChildProcessModifier([] {
            const struct rlimit limit = {512 * 1024, 512 * 1024};
            setrlimit(RLIMIT_FSIZE, &limit);
            signal(SIGXFSZ, SIG_IGN); // a write past it fails instead of killing
        });
        p.start(twcli::program(), {m_song, "-o", out("full.m4r"), "-q"});
        QVERIFY(p.waitForFinished(120000));
        const QString err = QString::fromLocal8Bit(p.readAllStandardError());
        QCOMPARE(p.exitCode(), int(kExitConversionFailed));
        QVERIFY2(err.contains("the temporary WAV could not be written: the scratch folder " +
                              cacheDir() + " takes no more (File too large)"),
                 qPrintable(err));
        QVERIFY(!QFile::exists(out("full.m4r")));
        QCOMPARE(twcli::leftoverWaves(), QStringList());
    }

    void shouldReadAndWriteNamesThatAreNotUtf8()
    {
        // Latin-1 names, as another locale writes them: "café.mp3" and
        // "réveil.m4r" in a folder "chansons é", with 0xE9 for the é.
        QTemporaryDir folder;
        QVERIFY(folder.isValid());
        const QByteArray base = QFile::encodeName(folder.path());
        const QByteArray song = base + "/caf\xe9.mp3";
        const QByteArray ring = base + "/chansons \xe9/r\xe9veil.m4r";
        QVERIFY(::link(QFile::encodeName(m_song).constData(), song.constData()) == 0);
        const QByteArray before = tw::fileChecksum(m_song);
        // The names reach the program byte for byte through the shell.
        QProcess p;
        p.setProcessChannelMode(QProcess::SeparateChannels);
        p.start("/bin/sh", {"-c",
                            "exec \"$0\" \"$1/$(printf 'caf\\351.mp3')\" -o \"$1/$(printf "
                            "'chansons \\351/r\\351veil.m4r')\" --length 8 -q --add-to-library",
                            twcli::program(), folder.path()});
        QVERIFY(p.waitForFinished(120000));
        const QByteArray out = p.readAllStandardOutput();
        const QByteArray err = p.readAllStandardError();
        QVERIFY2(p.exitCode() == kExitOk, err.constData());
        struct stat written;
        QVERIFY2(::stat(ring.constData(), &written) == 0 && written.st_size > 10000,
                 out.constData());
        QVERIFY2(out.startsWith(ring + ": 0:00.0 to 0:08.0"), out.constData());
        // Its copy in the library shows what can be shown of its name.
        QVERIFY(QFileInfo::exists(tw::testHome() + "/Music/Ringtones/r\uFFFDveil.m4r"));
        QCOMPARE(tw::fileChecksum(m_song), before);
        QCOMPARE(QDir(cacheDir()).entryList({".alias-*"}, QDir::AllEntries | QDir::Hidden),
                 QStringList());

        // A name that is not there is told as it was given.
        p.start("/bin/sh", {"-c", "exec \"$0\" \"$1/$(printf 'absent\\351.mp3')\" -o x.m4r",
                            twcli::program(), folder.path()});
        QVERIFY(p.waitForFinished(120000));
        QCOMPARE(p.exitCode(), int(kExitInputUnreadable));
        QVERIFY(p.readAllStandardError().contains(base + "/absent\xe9.mp3: no such file"));
    }

    void shouldBlameAHeaderWithoutChannels()
    {
        const QString wav = out("no channels.wav");
        QVERIFY(tw::writeWav(wav, 44100, 2, 16, 44100 * 20,
                             [](qint64 f, int) { return int(f % 200); }));
        QFile f(wav);
        QVERIFY(f.open(QIODevice::ReadWrite) && f.seek(22) && f.write(QByteArray(2, '\0')) == 2);
        f.close();
        expectRefusal({wav, "-o", out("no-channels.m4r")}, kExitConversionFailed,
                      "no channels.wav: its header says the sound has 0 channels");
    }
};

TW_TEST_MAIN(TestCliHostile)
#include "tst_cli_hostile.moc"
