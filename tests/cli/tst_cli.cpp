// tonewright-cli on one input, run as a child process on generated media:
// the ringtone it writes, every option, and every failure with its exit
// code, its message, no output left behind and the input untouched.

#include "cli/exitcodes.h"
#include "clirun.h"
#include "library/ItunesWrap.h"
#include "mediafixtures.h"
#include "testenv.h"

#include <QFileInfo>
#include <QLocalServer>
#include <QTemporaryDir>

#include <unistd.h>

#include <cmath>

namespace {

const double kAacFrameMs = 1024.0 * 1000.0 / 44100.0;

bool lastsMs(const QString& path, double ms)
{
    return std::fabs(twcli::probeDuration(path) * 1000.0 - ms) <= kAacFrameMs;
}

} // namespace

class TestCli : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QString m_song;   // 60 s stereo sine, MP3
    QString m_short;  // 3 s
    QString m_video;  // 45 s, H.264 and AAC
    QString m_silent; // H.264 only
    QString m_damaged;

    QString out(const QString& name) const { return m_dir.filePath(name); }

    // Runs and checks a failure: its code, its message, no output and no
    // staged files left, the input unchanged.
    void expectFailure(const QString& input, const QStringList& args, int code,
                       const QString& message, const QString& output)
    {
        const QByteArray before = tw::fileChecksum(input);
        const bool existed = QFile::exists(output);
        const QByteArray outputBefore = tw::fileChecksum(output);
        const twcli::Run r = twcli::run(args);
        QVERIFY2(r.code == code, qPrintable(twcli::describe(r)));
        QVERIFY2(r.err.contains(message), qPrintable(twcli::describe(r)));
        QVERIFY2(r.out.isEmpty(), qPrintable(twcli::describe(r)));
        QCOMPARE(QFile::exists(output), existed);
        QCOMPARE(tw::fileChecksum(output), outputBefore);
        QCOMPARE(twcli::hiddenFiles(QFileInfo(output).absolutePath()), QStringList());
        QCOMPARE(twcli::leftoverWaves(), QStringList());
        QCOMPARE(tw::fileChecksum(input), before);
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        m_song = tw::mp3Fixture(60);
        m_short = tw::mp3Fixture(3);
        m_video = tw::mp4AvFixture(45);
        m_silent = tw::silentVideoFixture(2);
        QVERIFY(!m_song.isEmpty() && !m_short.isEmpty() && !m_video.isEmpty() &&
                !m_silent.isEmpty());
        // A FLAC whose frames are damaged past its header: found, not decodable.
        m_damaged = out("damaged.flac");
        QVERIFY(QFile::copy(tw::flacFixture(20), m_damaged));
        QFile f(m_damaged);
        QVERIFY(f.open(QIODevice::ReadWrite));
        QByteArray all = f.readAll();
        QVERIFY(all.size() > 20000);
        for (int i = 9000; i < all.size(); i += 7)
            all[i] = '\0';
        f.seek(0);
        QCOMPARE(f.write(all), qint64(all.size()));
    }

    // --- what it makes ------------------------------------------------------

    void shouldMakeARingtoneOfTheSpan()
    {
        const QByteArray before = tw::fileChecksum(m_song);
        const QString ring = out("span.m4r");
        const twcli::Run r = twcli::run({m_song, "-o", ring, "--start", "0:10", "--end", "0:40"});
        QVERIFY2(r.code == kExitOk, qPrintable(twcli::describe(r)));
        QVERIFY2(r.out.contains(ring) && r.out.contains("0:10.0 to 0:40.0 (30.0 s)"),
                 qPrintable(r.out));
        QCOMPARE(twcli::probeAudio(ring, "codec_name"), QString("aac"));
        QCOMPARE(twcli::probeAudio(ring, "sample_rate"), QString("44100"));
        QCOMPARE(twcli::probeAudio(ring, "channels"), QString("2"));
        QCOMPARE(twcli::brand(ring), QByteArray("M4A "));
        QVERIFY(lastsMs(ring, 30000));
        QCOMPARE(tw::fileChecksum(m_song), before);
        // The editor's temporary WAV is gone, nothing is staged beside the ringtone.
        QCOMPARE(twcli::leftoverWaves(), QStringList());
        QCOMPARE(twcli::hiddenFiles(m_dir.path()), QStringList());
    }

    void shouldTakeEachTimeFormAndTheDefaultLength_data()
    {
        QTest::addColumn<QStringList>("span");
        QTest::addColumn<double>("ms");
        QTest::newRow("default: 30 s from the start") << QStringList() << 30000.0;
        QTest::newRow("plain seconds") << QStringList{"--start", "5", "--end", "17.5"} << 12500.0;
        QTest::newRow("h:mm:ss and a length")
            << QStringList{"--start", "0:00:20", "--length", "0:15"} << 15000.0;
        QTest::newRow("held to the input's end")
            << QStringList{"--start", "50", "--length", "20"} << 10000.0;
        QTest::newRow("40 s and more with --allow-long")
            << QStringList{"--length", "45", "--allow-long"} << 45000.0;
        QTest::newRow("shortest: the last 5 s")
            << QStringList{"--start", "0:55", "--length", "5"} << 5000.0;
    }

    void shouldTakeEachTimeFormAndTheDefaultLength()
    {
        QFETCH(QStringList, span);
        QFETCH(double, ms);
        const QString ring = out(QString("times-%1.m4r").arg(QTest::currentDataTag()));
        const twcli::Run r = twcli::run(QStringList{m_song, "-o", ring} + span);
        QVERIFY2(r.code == kExitOk, qPrintable(twcli::describe(r)));
        QVERIFY2(lastsMs(ring, ms), qPrintable(QString::number(twcli::probeDuration(ring))));
    }

    void shouldMakeARingtoneFromAVideosSound()
    {
        const QString ring = out("from-video.m4r");
        const twcli::Run r = twcli::run({m_video, "-o", ring, "--start", "5", "--length", "20"});
        QVERIFY2(r.code == kExitOk, qPrintable(twcli::describe(r)));
        QVERIFY(lastsMs(ring, 20000));
        // Sound only: the ringtone has no video stream.
        QCOMPARE(tw::ffprobe({"-select_streams", "v", "-show_entries", "stream=index", "-of",
                              "default=nw=1:nk=1", ring})
                     .trimmed(),
                 QString());
    }

    void shouldSetTheVolume()
    {
        // Fades of a second at either end; the volume covers the span between.
        const QStringList fades{"--fade-in", "1", "--fade-out", "1", "-q"};
        const QString loud = out("vol-150.m4r");
        const QString mute = out("vol-0.m4r");
        const QString plain = out("vol-100.m4r");
        for (const auto& [path, volume] : {std::pair{loud, "150"}, {mute, "0"}, {plain, "100"}}) {
            const twcli::Run r =
                twcli::run(QStringList{m_song, "-o", path, "--volume", volume} + fades);
            QVERIFY2(r.code == kExitOk, qPrintable(twcli::describe(r)));
        }
        const auto rms = [](const QString& path) {
            const QByteArray pcm = twcli::decodePcm(path);
            const auto* s = reinterpret_cast<const qint16*>(pcm.constData());
            // Seconds 10..20, left channel.
            double sum = 0;
            int n = 0;
            for (qsizetype i = 441000; i < 882000 && 2 * i < pcm.size() / 2; ++i, ++n)
                sum += double(s[2 * i]) * s[2 * i];
            return n ? std::sqrt(sum / n) : -1.0;
        };
        const double base = rms(plain);
        QVERIFY(base > 500);
        QVERIFY2(std::fabs(rms(loud) / base - 1.5) < 0.08,
                 qPrintable(QString("%1 against %2").arg(rms(loud)).arg(base)));
        QCOMPARE(rms(mute), 0.0);
        // Without fades, or with one, the volume reaches the whole span all the same.
        const QString alone = out("vol-alone.m4r");
        const QString oneFade = out("vol-one-fade.m4r");
        twcli::Run r = twcli::run({m_song, "-o", alone, "--volume", "150", "-q"});
        QVERIFY2(r.code == kExitOk, qPrintable(twcli::describe(r)));
        r = twcli::run({m_song, "-o", oneFade, "--volume", "80", "--fade-in", "2", "-q"});
        QVERIFY2(r.code == kExitOk, qPrintable(twcli::describe(r)));
        QVERIFY2(std::fabs(rms(alone) / base - 1.5) < 0.08,
                 qPrintable(QString("%1 against %2").arg(rms(alone)).arg(base)));
        QVERIFY2(std::fabs(rms(oneFade) / base - 0.8) < 0.05,
                 qPrintable(QString("%1 against %2").arg(rms(oneFade)).arg(base)));
    }

    void shouldFadeInAndOut()
    {
        const QString ring = out("fades.m4r");
        const twcli::Run r =
            twcli::run({m_song, "-o", ring, "--length", "20", "--fade-in", "4", "--fade-out", "4"});
        QVERIFY2(r.code == kExitOk, qPrintable(twcli::describe(r)));
        const QByteArray pcm = twcli::decodePcm(ring);
        const auto* s = reinterpret_cast<const qint16*>(pcm.constData());
        const auto level = [&](double fromMs) {
            double sum = 0;
            const qsizetype first = qsizetype(fromMs * 44.1);
            for (qsizetype i = first; i < first + 4410; ++i)
                sum += double(s[2 * i]) * s[2 * i];
            return std::sqrt(sum / 4410);
        };
        const double middle = level(10000);
        QVERIFY(middle > 500);
        QVERIFY2(level(0) < middle * 0.1, qPrintable(QString::number(level(0) / middle)));
        // The fade-in rises over its 4 s; the fade-out falls over its 4 s and
        // one more past the end, as the editor's does: about 0.6 at 18 s and
        // 0.23 at 19.85 s.
        QVERIFY2(std::fabs(level(1950) / middle - 0.5) < 0.1,
                 qPrintable(QString::number(level(1950) / middle)));
        QVERIFY2(std::fabs(level(17950) / middle - 0.61) < 0.1,
                 qPrintable(QString::number(level(17950) / middle)));
        QVERIFY2(level(19850) < middle * 0.3, qPrintable(QString::number(level(19850) / middle)));
    }

    void shouldReplaceOnlyWithForce()
    {
        const QString ring = out("replace.m4r");
        QVERIFY(twcli::run({m_song, "-o", ring, "--length", "10", "-q"}).code == kExitOk);
        const QByteArray first = tw::fileChecksum(ring);
        expectFailure(m_song, {m_song, "-o", ring, "--length", "20"}, kExitOutputExists,
                      "exists (--force replaces it)", ring);
        const twcli::Run r = twcli::run({m_song, "-o", ring, "--length", "20", "--force"});
        QVERIFY2(r.code == kExitOk, qPrintable(twcli::describe(r)));
        QVERIFY(tw::fileChecksum(ring) != first);
        QVERIFY(lastsMs(ring, 20000));
    }

    void shouldAddToTheLibraryWhenAsked()
    {
        const QString library = CItunesWraper::instance()->ringtoneDir();
        QVERIFY(!library.isEmpty());
        const QString plainRing = out("Not In Library.m4r");
        QVERIFY(twcli::run({m_song, "-o", plainRing, "-q"}).code == kExitOk);
        QVERIFY(!QFile::exists(library + "/Not In Library.m4r"));

        const QString ring = out("Library Tune.m4r");
        const twcli::Run r = twcli::run({m_song, "-o", ring, "--add-to-library"});
        QVERIFY2(r.code == kExitOk, qPrintable(twcli::describe(r)));
        QVERIFY2(QFile::exists(library + "/Library Tune.m4r"), qPrintable(library));
        QCOMPARE(tw::fileChecksum(library + "/Library Tune.m4r"), tw::fileChecksum(ring));
    }

    // --- progress, help, version ------------------------------------------------

    void shouldPrintProgressLinesOffATerminal()
    {
        const twcli::Run r = twcli::run({m_song, "-o", out("lines.m4r")});
        QVERIFY2(r.code == kExitOk, qPrintable(twcli::describe(r)));
        const QString name = QFileInfo(m_song).fileName();
        QStringList lines = r.err.split('\n', Qt::SkipEmptyParts);
        QVERIFY2(!lines.isEmpty(), qPrintable(r.err));
        int last = -1;
        for (const QString& line : lines) {
            QVERIFY2(line.startsWith(name + ": ") && line.endsWith('%'), qPrintable(line));
            const int percent = line.mid(name.size() + 2).chopped(1).toInt();
            QVERIFY2(percent > last && percent % 10 == 0, qPrintable(r.err));
            last = percent;
        }
        QCOMPARE(lines.first(), name + ": 0%");
        QCOMPARE(lines.last(), name + ": 100%");
        QVERIFY(!r.err.contains('\r'));

        const twcli::Run quiet = twcli::run({m_song, "-o", out("quiet.m4r"), "--quiet"});
        QCOMPARE(quiet.code, int(kExitOk));
        QCOMPARE(quiet.err, QString());
    }

    void shouldDrawABarOnATerminal()
    {
        // script(1) gives the program a terminal of its own.
        QProcess p;
        const QString command =
            QString("'%1' '%2' -o '%3'").arg(twcli::program(), m_song, out("bar.m4r"));
        p.start("script", {"-qec", command, "/dev/null"});
        if (!p.waitForStarted())
            QSKIP("script(1) is not installed");
        QVERIFY(p.waitForFinished(240000));
        QCOMPARE(p.exitCode(), int(kExitOk));
        const QString screen = QString::fromLocal8Bit(p.readAllStandardOutput());
        QVERIFY2(screen.contains("\r[") && screen.contains("] 100%"), qPrintable(screen));
        QVERIFY2(screen.contains("[##############################] 100%"), qPrintable(screen));
        QVERIFY(!screen.contains(QFileInfo(m_song).fileName() + ": 10%"));
        QVERIFY(QFile::exists(out("bar.m4r")));
    }

    void shouldShowHelpAndVersion()
    {
        const twcli::Run version = twcli::run({"--version"});
        QCOMPARE(version.code, 0);
        QCOMPARE(version.out, QString("tonewright-cli " TONEWRIGHT_VERSION "\n"));
        QCOMPARE(version.err, QString());
        const twcli::Run help = twcli::run({"--help"});
        QCOMPARE(help.code, 0);
        QVERIFY(help.out.startsWith("Usage: tonewright-cli INPUT -o OUTPUT.m4r"));
        QVERIFY(help.out.contains("Exit codes:"));
        QCOMPARE(help.err, QString());
    }

    // --- failures ---------------------------------------------------------------

    void shouldRefuseAMissingOrUnreadableInput()
    {
        const QString ring = out("never.m4r");
        expectFailure(m_song, {out("missing.mp3"), "-o", ring}, kExitInputUnreadable,
                      "missing.mp3: no such file", ring);
        expectFailure(m_song, {m_dir.path(), "-o", ring}, kExitInputUnreadable, "is a folder",
                      ring);
        const QString dangling = out("dangling.mp3");
        QVERIFY(QFile::link(out("nowhere.mp3"), dangling));
        expectFailure(m_song, {dangling, "-o", ring}, kExitInputUnreadable, "no such file", ring);
    }

    void shouldRefuseAnInputThatOpensAsNoFile()
    {
        // A socket is there, but opening it fails whoever asks.
        QLocalServer server;
        const QString socket = out("socket.mp3");
        QVERIFY(server.listen(socket));
        expectFailure(m_song, {socket, "-o", out("socket.m4r")}, kExitInputUnreadable,
                      "socket.mp3: cannot be read", out("socket.m4r"));
    }

    void shouldRefuseAnInputItCannotOpen()
    {
        if (geteuid() == 0)
            QSKIP("running as root: file permissions do not keep root from reading");
        const QString locked = out("locked.mp3");
        QVERIFY(QFile::copy(m_song, locked));
        QVERIFY(QFile::setPermissions(locked, QFileDevice::Permissions()));
        expectFailure(locked, {locked, "-o", out("locked.m4r")}, kExitInputUnreadable,
                      "cannot be read", out("locked.m4r"));
    }

    void shouldRefuseAnInputWithoutSound()
    {
        expectFailure(m_silent, {m_silent, "-o", out("silent.m4r")}, kExitNoAudio,
                      "no audio stream", out("silent.m4r"));
        expectFailure(tw::textFixture(), {tw::textFixture(), "-o", out("text.m4r")}, kExitNotMedia,
                      "notes.txt: not a media file", out("text.m4r"));
    }

    void shouldMakeEveryKind_data()
    {
        QTest::addColumn<QStringList>("choose");
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("codec");
        QTest::addColumn<QString>("container");
        QTest::addColumn<double>("frameMs");
        const double aac = 1024 * 1000.0 / 44100;
        QTest::newRow("iPhone ringtone") << QStringList() << "kind.m4r"
                                         << "aac"
                                         << "mov,mp4,m4a,3gp,3g2,mj2" << aac;
        QTest::newRow("iPhone alert tone") << QStringList{"--format", "alert"} << "alert.m4r"
                                           << "aac"
                                           << "mov,mp4,m4a,3gp,3g2,mj2" << aac;
        QTest::newRow("Android Ogg, by extension") << QStringList() << "kind.ogg"
                                                   << "vorbis"
                                                   << "ogg" << 2048 * 1000.0 / 44100;
        QTest::newRow("Android MP3, by --format") << QStringList{"--format", "mp3"} << "kind-mp3"
                                                  << "mp3"
                                                  << "mp3" << 1152 * 1000.0 / 44100;
        QTest::newRow("plain AAC") << QStringList() << "kind.m4a"
                                   << "aac"
                                   << "mov,mp4,m4a,3gp,3g2,mj2" << aac;
    }

    void shouldMakeEveryKind()
    {
        QFETCH(QStringList, choose);
        QFETCH(QString, file);
        QFETCH(QString, codec);
        QFETCH(QString, container);
        QFETCH(double, frameMs);
        const QString ring = out(file);
        const QStringList span{"--start", "0:10", "--length", "20", "--fade-in", "3", "-q"};
        const twcli::Run r = twcli::run(QStringList{m_song, "-o", ring} + span + choose);
        QVERIFY2(r.code == kExitOk, qPrintable(twcli::describe(r)));
        QCOMPARE(twcli::probeAudio(ring, "codec_name"), codec);
        QCOMPARE(twcli::probeAudio(ring, "sample_rate"), QString("44100"));
        QCOMPARE(
            tw::ffprobe({"-show_entries", "format=format_name", "-of", "default=nw=1:nk=1", ring})
                .trimmed(),
            container);
        // Decoded back: the span to within one of the codec's frames.
        const QByteArray pcm = twcli::decodePcm(ring);
        const double ms = pcm.size() / 4 * 1000.0 / 44100;
        QVERIFY2(std::fabs(ms - 20000.0) <= frameMs, qPrintable(QString::number(ms)));
        // The fade-in: the first half second far quieter than a second at 5 s.
        const auto rms = [&pcm](int fromMs, int toMs) { return twcli::rms(pcm, fromMs, toMs); };
        QVERIFY2(rms(0, 500) * 4 < rms(5000, 6000),
                 qPrintable(QString("%1 %2").arg(rms(0, 500)).arg(rms(5000, 6000))));
        // As loud as the .m4r of the same span, within 1 LU.
        const QString reference = out("reference " + file + ".m4r");
        QFile::remove(reference);
        QVERIFY(twcli::run(QStringList{m_song, "-o", reference} + span).code == kExitOk);
        const double lufs = twcli::integratedLoudness(ring);
        const double referenceLufs = twcli::integratedLoudness(reference);
        QVERIFY2(lufs > -70.0 && lufs < 0.0, qPrintable(QString::number(lufs))); // measured
        QVERIFY2(std::fabs(lufs - referenceLufs) <= 1.0,
                 qPrintable(QString("%1 against %2 LUFS").arg(lufs).arg(referenceLufs)));
        // The ringtone's own name is its title.
        const QString tags = tw::ffprobe(
            {"-show_entries", "format_tags=title:stream_tags=title", "-of", "default=nw=1", ring});
        QVERIFY2(tags.contains("title=" + QFileInfo(ring).completeBaseName()), qPrintable(tags));
        const QString artist =
            tw::ffprobe({"-show_entries", "format_tags=artist:stream_tags=artist", "-of",
                         "default=nw=1", ring});
        QVERIFY2(artist.contains("artist=Tonewright"), qPrintable(artist)); // the song's
    }

    void shouldSayWhyAnInputCannotBeUsed_data()
    {
        QTest::addColumn<QString>("input");
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("says");
        const QString tiny = out("blip.wav");
        QVERIFY(tw::ffmpeg(
            {"-f", "lavfi", "-i", "sine=duration=0.14", "-ac", "2", "-c:a", "pcm_s16le", tiny}));
        const QString second = out("one second.mp3");
        QVERIFY(tw::ffmpeg({"-f", "lavfi", "-i", "sine=duration=1", "-c:a", "libmp3lame", second}));
        QTest::newRow("a text file")
            << tw::textFixture() << int(kExitNotMedia) << "notes.txt: not a media file";
        QTest::newRow("a 0.14-s sound")
            << tiny << int(kExitTooShort)
            << "blip.wav: too short (0.1 s); the shortest ringtone is 5.0 s";
        QTest::newRow("a 1-s MP3")
            << second << int(kExitTooShort)
            << "one second.mp3: too short (1.0 s); the shortest ringtone is 5.0 s";
        QTest::newRow("a video without sound")
            << m_silent << int(kExitNoAudio) << "silent 2s.mp4: no sound in it";
    }

    void shouldSayWhyAnInputCannotBeUsed()
    {
        QFETCH(QString, input);
        QFETCH(int, code);
        QFETCH(QString, says);
        expectFailure(input, {input, "-o", out("cannot.m4r")}, code, says, out("cannot.m4r"));
    }

    void shouldReportAnInputThatDoesNotDecode()
    {
        expectFailure(m_damaged, {m_damaged, "-o", out("damaged.m4r")}, kExitConversionFailed,
                      "could not be decoded", out("damaged.m4r"));
    }

    void shouldGoByTheRealEndOfASongCutShort()
    {
        // The first half of the 60-second MP3: its header still says 60 s,
        // so the span is decoded where the header puts it and the sound
        // itself tells where it ends.
        QFile song(m_song);
        QVERIFY(song.open(QIODevice::ReadOnly));
        const QString cut = out("cut short.mp3");
        QFile file(cut);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(file.write(song.read(song.size() / 2)) > 0);
        file.close();

        const QString ring = out("cut-short.m4r");
        expectFailure(cut, {cut, "-o", ring, "--start", "0:40"}, kExitStartAfterEnd,
                      "at or after the input's end (0:", ring);
        const twcli::Run r =
            twcli::run({cut, "-o", ring, "--start", "0:20", "--length", "30", "-q"});
        QVERIFY2(r.code == kExitOk, qPrintable(twcli::describe(r)));
        const double seconds = twcli::probeDuration(ring);
        QVERIFY2(seconds > 9.0 && seconds < 10.5, qPrintable(QString::number(seconds)));
        QCOMPARE(twcli::leftoverWaves(), QStringList());
    }

    void shouldRefuseBadSpans()
    {
        const QString ring = out("span-refused.m4r");
        expectFailure(m_song, {m_song, "-o", ring, "--start", "1:10"}, kExitStartAfterEnd,
                      "at or after the input's end (1:00.0)", ring);
        expectFailure(m_song, {m_song, "-o", ring, "--start", "0:40", "--end", "0:30"},
                      kExitStartAfterEnd, "is not before the end", ring);
        expectFailure(m_short, {m_short, "-o", ring}, kExitTooShort,
                      "too short (3.0 s); the shortest ringtone is 5.0 s", ring);
        expectFailure(m_song, {m_song, "-o", ring, "--start", "57"}, kExitTooShort,
                      "the shortest ringtone is 5.0 s", ring);
        expectFailure(m_song, {m_song, "-o", ring, "--length", "4"}, kExitTooShort,
                      "the shortest is 5 s", ring);
        expectFailure(m_song, {m_song, "-o", ring, "--length", "40.5"}, kExitTooLong,
                      "phones refuse more than 40 s", ring);
        expectFailure(m_song, {m_song, "-o", ring, "--start", "10", "--end", "0:55"}, kExitTooLong,
                      "--allow-long", ring);
    }

    void shouldRefuseBadValues()
    {
        const QString ring = out("value-refused.m4r");
        expectFailure(m_song, {m_song, "-o", ring, "--volume", "300"}, kExitUsage,
                      "bad --volume value '300'", ring);
        expectFailure(m_song, {m_song, "-o", ring, "--start", "1:75"}, kExitUsage,
                      "bad --start value '1:75'", ring);
        expectFailure(m_song, {m_song, "-o", ring, "--fade-in", "soft"}, kExitUsage,
                      "bad --fade-in value", ring);
        expectFailure(m_song, {m_song, "-o", ring, "--whisper"}, kExitUsage,
                      "Unknown option '--whisper'.", ring);
        expectFailure(m_song, {m_song, "-o", ring, "-w"}, kExitUsage, "Unknown option '-w'.", ring);
        expectFailure(m_song, {m_song}, kExitUsage, "either the output file (-o)", ring);
    }

    void shouldMakeARingtoneFromARecordersWave()
    {
        // 48 kHz mono 24-bit with a LIST chunk, as a field recorder writes it.
        const QString memo = out("memo.wav");
        QVERIFY(tw::ffmpeg({"-f", "lavfi", "-i", "sine=frequency=440:duration=8", "-ac", "1", "-ar",
                            "48000", "-c:a", "pcm_s24le", "-metadata", "title=Memo", memo}));
        const QByteArray before = tw::fileChecksum(memo);
        const QString ring = out("memo.m4r");
        const twcli::Run r = twcli::run({memo, "-o", ring, "--length", "6", "-q"});
        QVERIFY2(r.code == kExitOk, qPrintable(twcli::describe(r)));
        QCOMPARE(twcli::probeAudio(ring, "sample_rate"), QString("44100"));
        QCOMPARE(twcli::probeAudio(ring, "channels"), QString("2"));
        QVERIFY(lastsMs(ring, 6000));
        QCOMPARE(tw::fileChecksum(memo), before);
    }

    void shouldKeepFfmpegsOwnLinesForVerbose()
    {
        // A song with its second half broken: the decoder complains, the ringtone is made.
        QFile song(m_song);
        QVERIFY(song.open(QIODevice::ReadOnly));
        QByteArray bytes = song.read(song.size() / 2);
        for (int i = 0; i < 400; ++i)
            bytes += "garbage!";
        const QString broken = out("broken end.mp3");
        QFile file(broken);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), qint64(bytes.size()));
        file.close();

        const QString quiet = out("broken-quiet.m4r");
        const twcli::Run q = twcli::run({broken, "-o", quiet, "--length", "6", "-q"});
        QVERIFY2(q.code == kExitOk, qPrintable(twcli::describe(q)));
        QVERIFY2(q.err.isEmpty(), qPrintable(twcli::describe(q)));
        const twcli::Run plain =
            twcli::run({broken, "-o", out("broken-plain.m4r"), "--length", "6"});
        QVERIFY2(plain.code == kExitOk, qPrintable(twcli::describe(plain)));
        QVERIFY2(!plain.err.contains(" @ 0x"), qPrintable(twcli::describe(plain)));

        // Only the span is decoded: a span in the whole half never meets
        // the broken one, a span that runs into it does.
        const twcli::Run clean =
            twcli::run({broken, "-o", out("broken-clean.m4r"), "--length", "6", "--verbose"});
        QVERIFY2(clean.code == kExitOk, qPrintable(twcli::describe(clean)));
        QVERIFY2(!clean.err.contains("ffmpeg: ["), qPrintable(twcli::describe(clean)));
        const twcli::Run loud = twcli::run({broken, "-o", out("broken-verbose.m4r"), "--start",
                                            "24", "--length", "6", "--verbose"});
        QVERIFY2(loud.code == kExitOk, qPrintable(twcli::describe(loud)));
        QVERIFY2(loud.err.contains("ffmpeg: ["), qPrintable(twcli::describe(loud)));
    }

    void shouldNeverWriteOverTheInput()
    {
        const QString copy = out("own.m4a");
        QVERIFY(QFile::copy(m_song, copy));
        expectFailure(copy, {copy, "-o", copy, "--force"}, kExitUsage,
                      "the output would replace the input", copy);
    }

    void shouldRefuseAnUnwritableOutput()
    {
        // A missing folder is made (as -d makes its own); a file in its place is not.
        const QString deep = out("no-such-folder/deeper/ring.m4r");
        const twcli::Run made = twcli::run({m_song, "-o", deep, "--length", "6", "-q"});
        QVERIFY2(made.code == kExitOk, qPrintable(twcli::describe(made)));
        QCOMPARE(twcli::probeAudio(deep, "codec_name"), QString("aac"));
        const QString folder = out("a-folder.m4r");
        QVERIFY(QDir().mkpath(folder));
        const twcli::Run r = twcli::run({m_song, "-o", folder, "--force"});
        QVERIFY2(r.code == kExitOutputUnwritable && r.err.contains("is a folder"),
                 qPrintable(twcli::describe(r)));
        QVERIFY(QFileInfo(folder).isDir());
        const QString plainFile = out("plain-file");
        QVERIFY(QFile::copy(m_short, plainFile));
        expectFailure(m_song, {m_song, "-o", plainFile + "/ring.m4r"}, kExitOutputUnwritable,
                      "cannot be made", plainFile + "/ring.m4r");
    }

    void shouldRefuseAFolderThatTakesNoFiles()
    {
        // sysfs takes no new files, not even root's.
        if (!QFileInfo(QStringLiteral("/sys")).isDir())
            QSKIP("no /sys on this machine");
        const twcli::Run r = twcli::run({m_song, "-o", "/sys/ring.m4r", "-q"});
        QVERIFY2(r.code == kExitOutputUnwritable &&
                     r.err.contains("the folder /sys cannot be written"),
                 qPrintable(twcli::describe(r)));
        QVERIFY(!QFileInfo::exists("/sys/ring.m4r"));
    }

    void shouldRefuseAReadOnlyFolder()
    {
        if (geteuid() == 0)
            QSKIP("running as root: file permissions do not keep root from writing");
        const QString folder = out("read-only");
        QVERIFY(QDir().mkpath(folder));
        QVERIFY(QFile::setPermissions(folder, QFileDevice::ReadOwner | QFileDevice::ExeOwner));
        expectFailure(m_song, {m_song, "-o", folder + "/ring.m4r"}, kExitOutputUnwritable,
                      "cannot be written", folder + "/ring.m4r");
    }
};

TW_TEST_MAIN(TestCli)
#include "tst_cli.moc"
