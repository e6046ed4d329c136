// The command line's times and its option checks, without running anything:
// every form a time may take and every value that is refused, with the exit
// code each refusal carries.

#include "cli/clioptions.h"
#include "cli/exitcodes.h"
#include "cli/timearg.h"
#include "testenv.h"

class TestTimeArg : public QObject
{
    Q_OBJECT

private:
    static CliCommand parse(const QStringList& args)
    {
        return parseCliArguments(QStringList{"tonewright-cli"} + args);
    }

private slots:
    void shouldReadEachTimeForm_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<qint64>("ms");
        QTest::newRow("plain seconds") << "90" << qint64(90000);
        QTest::newRow("zero") << "0" << qint64(0);
        QTest::newRow("seconds with a fraction") << "12.25" << qint64(12250);
        QTest::newRow("one decimal") << "7.5" << qint64(7500);
        QTest::newRow("m:ss") << "0:30" << qint64(30000);
        QTest::newRow("m:s") << "1:5" << qint64(65000);
        QTest::newRow("m:ss.f") << "1:02.5" << qint64(62500);
        QTest::newRow("minutes past the hour") << "75:00" << qint64(4500000);
        QTest::newRow("h:mm:ss") << "1:00:00" << qint64(3600000);
        QTest::newRow("h:mm:ss.fff") << "2:03:04.005" << qint64(7384005);
        QTest::newRow("blanks around") << " 0:45 " << qint64(45000);
    }

    void shouldReadEachTimeForm()
    {
        QFETCH(QString, text);
        QFETCH(qint64, ms);
        long long value = -1;
        QVERIFY2(parseTimeArg(text, &value), qPrintable(text));
        QCOMPARE(value, ms);
    }

    void shouldRefuseWhatIsNoTime_data()
    {
        QTest::addColumn<QString>("text");
        for (const char* bad : {"", " ", "-5", "abc", "1:60", "1:60:00", "1:2:3:4", "1.2.3",
                                "1:", ":30", "0:30.1234", "1e3", "+5", "1:-5", "0x10", "3 s"})
            QTest::newRow(bad) << QString(bad);
    }

    void shouldRefuseWhatIsNoTime()
    {
        QFETCH(QString, text);
        long long value = 1234;
        QVERIFY2(!parseTimeArg(text, &value), qPrintable(text));
        QCOMPARE(value, 1234LL);
    }

    void shouldFormatTimesForMessages()
    {
        QCOMPARE(formatTimeArg(0), QString("0:00.0"));
        QCOMPARE(formatTimeArg(62500), QString("1:02.5"));
        QCOMPARE(formatTimeArg(3723400), QString("1:02:03.4"));
    }

    void shouldTakeEveryOption()
    {
        const CliCommand c =
            parse({"in.mp3", "-o", "out.m4r", "--start", "0:30", "--end", "1:00", "--fade-in", "2",
                   "--fade-out", "3", "--volume", "150", "--force", "--add-to-library", "-q"});
        QCOMPARE(c.action, CliCommand::Run);
        const CliOptions& o = c.options;
        QCOMPARE(o.inputs, QStringList{"in.mp3"});
        QCOMPARE(o.output, QString("out.m4r"));
        QCOMPARE(o.startMs, 30000LL);
        QCOMPARE(o.endMs, 60000LL);
        QCOMPARE(o.requestedEndMs(), 60000LL);
        QCOMPARE(o.fadeInSeconds, 2);
        QCOMPARE(o.fadeOutSeconds, 3);
        QCOMPARE(o.volume, 150);
        QVERIFY(o.force);
        QVERIFY(o.addToLibrary);
        QVERIFY(o.quiet);
        QVERIFY(!o.allowLong);

        const CliCommand b = parse({"a.mp3", "b.mp4", "-d", "out", "--length", "20", "-j", "3",
                                    "--allow-long", "--start", "100"});
        QCOMPARE(b.action, CliCommand::Run);
        QCOMPARE(b.options.inputs, QStringList({"a.mp3", "b.mp4"}));
        QCOMPARE(b.options.directory, QString("out"));
        QCOMPARE(b.options.jobs, 3);
        QCOMPARE(b.options.requestedEndMs(), 120000LL);
    }

    void shouldDefaultToThirtySecondsFromTheStart()
    {
        const CliCommand c = parse({"in.mp3", "-o", "x.m4r", "--start", "10"});
        QCOMPARE(c.action, CliCommand::Run);
        QCOMPARE(c.options.requestedEndMs(), 10000 + kCliDefaultLengthMs);
        QCOMPARE(c.options.volume, 100);
        QCOMPARE(c.options.fadeInSeconds, 0);
    }

    void shouldRefuseWithTheRightCode_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<int>("code");
        const QStringList io{"in.mp3", "-o", "x.m4r"};
        QTest::newRow("no input") << QStringList{"-o", "x.m4r"} << int(kExitUsage);
        QTest::newRow("no output") << QStringList{"in.mp3"} << int(kExitUsage);
        QTest::newRow("-o and -d") << (io + QStringList{"-d", "dir"}) << int(kExitUsage);
        QTest::newRow("two inputs, -o") << QStringList{"a", "b", "-o", "x.m4r"} << int(kExitUsage);
        QTest::newRow("unknown option") << (io + QStringList{"--louder"}) << int(kExitUsage);
        QTest::newRow("missing value") << QStringList{"in.mp3", "-o"} << int(kExitUsage);
        QTest::newRow("bad start") << (io + QStringList{"--start", "x"}) << int(kExitUsage);
        QTest::newRow("bad end") << (io + QStringList{"--end", "1:99"}) << int(kExitUsage);
        QTest::newRow("bad length") << (io + QStringList{"--length", "-3"}) << int(kExitUsage);
        QTest::newRow("zero length") << (io + QStringList{"--length", "0"}) << int(kExitUsage);
        QTest::newRow("end and length")
            << (io + QStringList{"--end", "20", "--length", "10"}) << int(kExitUsage);
        QTest::newRow("volume over 256")
            << (io + QStringList{"--volume", "257"}) << int(kExitUsage);
        QTest::newRow("negative volume") << (io + QStringList{"--volume", "-1"}) << int(kExitUsage);
        QTest::newRow("loudness and loud")
            << (io + QStringList{"--loudness", "-14", "--loud"}) << int(kExitUsage);
        QTest::newRow("loudness and volume")
            << (io + QStringList{"--loudness", "-14", "--volume", "120"}) << int(kExitUsage);
        QTest::newRow("loud and volume")
            << (io + QStringList{"--loud", "--volume", "100"}) << int(kExitUsage);
        QTest::newRow("loudness too high")
            << (io + QStringList{"--loudness", "-2"}) << int(kExitUsage);
        QTest::newRow("loudness too low")
            << (io + QStringList{"--loudness", "-70"}) << int(kExitUsage);
        QTest::newRow("loudness not a number")
            << (io + QStringList{"--loudness", "loud"}) << int(kExitUsage);
        QTest::newRow("volume not a number")
            << (io + QStringList{"--volume", "loud"}) << int(kExitUsage);
        QTest::newRow("fractional fade")
            << (io + QStringList{"--fade-in", "1.5"}) << int(kExitUsage);
        QTest::newRow("negative fade") << (io + QStringList{"--fade-out", "-2"}) << int(kExitUsage);
        QTest::newRow("fade longer than the span")
            << (io + QStringList{"--length", "10", "--fade-out", "11"}) << int(kExitUsage);
        QTest::newRow("jobs 0") << QStringList{"a", "-d", "dir", "-j", "0"} << int(kExitUsage);
        QTest::newRow("jobs without -d") << (io + QStringList{"-j", "2"}) << int(kExitUsage);
        QTest::newRow("empty output") << QStringList{"in.mp3", "-o", ""} << int(kExitUsage);
        QTest::newRow("start after end")
            << (io + QStringList{"--start", "1:00", "--end", "0:30"}) << int(kExitStartAfterEnd);
        QTest::newRow("start at end")
            << (io + QStringList{"--start", "30", "--end", "0:30"}) << int(kExitStartAfterEnd);
        QTest::newRow("4.999 s") << (io + QStringList{"--length", "4.999"}) << int(kExitTooShort);
        QTest::newRow("end 3 s after start")
            << (io + QStringList{"--start", "10", "--end", "13"}) << int(kExitTooShort);
        QTest::newRow("40.001 s") << (io + QStringList{"--length", "40.001"}) << int(kExitTooLong);
        QTest::newRow("alert tone 30.5 s")
            << (io + QStringList{"--format", "alert", "--length", "30.5"}) << int(kExitTooLong);
        QTest::newRow("unknown format") << (io + QStringList{"--format", "wma"}) << int(kExitUsage);
        QTest::newRow("an hour") << (io + QStringList{"--end", "1:00:00"}) << int(kExitTooLong);
    }

    void shouldRefuseWithTheRightCode()
    {
        QFETCH(QStringList, args);
        QFETCH(int, code);
        const CliCommand c = parse(args);
        QCOMPARE(c.action, CliCommand::Refuse);
        QCOMPARE(c.exitCode, code);
        QVERIFY(!c.text.isEmpty());
    }

    void shouldAcceptTheLimitsOfEachRange()
    {
        const QStringList io{"in.mp3", "-o", "x.m4r"};
        QCOMPARE(parse(io + QStringList{"--length", "5"}).action, CliCommand::Run);
        QCOMPARE(parse(io + QStringList{"--length", "39.999"}).action, CliCommand::Run);
        QCOMPARE(parse(io + QStringList{"--length", "40"}).action, CliCommand::Run);
        QCOMPARE(parse(io + QStringList{"--format", "alert", "--length", "30"}).action,
                 CliCommand::Run);
        QCOMPARE(parse(io + QStringList{"--length", "40", "--allow-long"}).action, CliCommand::Run);
        const QStringList fades{"--fade-in", "1", "--fade-out", "1"};
        QCOMPARE(parse(io + fades + QStringList{"--volume", "0"}).action, CliCommand::Run);
        QCOMPARE(parse(io + fades + QStringList{"--volume", "256"}).action, CliCommand::Run);
        QCOMPARE(parse(io + QStringList{"--volume", "100"}).action, CliCommand::Run);
        // The volume applies to the whole span, with fades or without.
        QCOMPARE(parse(io + QStringList{"--volume", "120"}).action, CliCommand::Run);
        QCOMPARE(parse(io + QStringList{"--volume", "60", "--fade-out", "2"}).action,
                 CliCommand::Run);
        QCOMPARE(parse(io + QStringList{"--length", "10", "--fade-in", "10"}).action,
                 CliCommand::Run);
        QCOMPARE(parse(io + QStringList{"--loudness", "-50"}).options.loudnessLufs, -50.0);
        QCOMPARE(parse(io + QStringList{"--loudness", "-5"}).options.loudnessLufs, -5.0);
        QCOMPARE(parse(io + QStringList{"--loudness", "-14.5"}).options.loudnessLufs, -14.5);
        QCOMPARE(parse(io + QStringList{"--loud"}).options.loudnessLufs, -11.0);
        QVERIFY(!parse(io).options.hasLoudness());
    }

    void shouldHandAChildRunTheLoudnessTarget()
    {
        const CliCommand c = parse({"x", "-d", "dir", "--loudness", "-16.25"});
        QCOMPARE(c.action, CliCommand::Run);
        const CliCommand child = parse(childArguments(c.options, "in.mp3", "dir/in.m4r"));
        QCOMPARE(child.action, CliCommand::Run);
        QCOMPARE(child.options.loudnessLufs, -16.25);
        // Without a target the child gets the volume and no target.
        const CliCommand plain = parse({"x", "-d", "dir", "--volume", "90"});
        const CliCommand plainChild = parse(childArguments(plain.options, "in.mp3", "dir/in.m4r"));
        QVERIFY(!plainChild.options.hasLoudness());
        QCOMPARE(plainChild.options.volume, 90);
    }

    void shouldTakeStartAutoAndHandItToAChildRun()
    {
        const CliCommand c = parse({"x", "-d", "dir", "--start", "auto", "--length", "25"});
        QCOMPARE(c.action, CliCommand::Run);
        QVERIFY(c.options.startAuto);
        QCOMPARE(c.options.lengthMs, 25000LL);
        const QStringList args = childArguments(c.options, "in.mp3", "dir/in.m4r");
        QCOMPARE(args.at(args.indexOf("--start") + 1), QString("auto"));
        const CliCommand child = parse(args);
        QVERIFY(child.options.startAuto);
        QCOMPARE(child.options.lengthMs, 25000LL);
        // A plain start is a start, and the word alone is no time.
        QVERIFY(!parse({"x", "-o", "y.m4r", "--start", "10"}).options.startAuto);
        QCOMPARE(parse({"x", "-o", "y.m4r", "--start", "automatic"}).exitCode, int(kExitUsage));
        // --suggest takes only a length and --json.
        const CliCommand s = parse({"x", "--suggest", "--json", "--length", "12.5"});
        QCOMPARE(s.action, CliCommand::Run);
        QVERIFY(s.options.suggest && s.options.json);
        QCOMPARE(s.options.lengthMs, 12500LL);
    }

    void shouldAnswerHelpAndVersionEvenBesideMistakes()
    {
        QCOMPARE(parse({"--help"}).action, CliCommand::ShowHelp);
        QCOMPARE(parse({"-h", "--loud"}).action, CliCommand::ShowHelp);
        QCOMPARE(parse({"--version"}).action, CliCommand::ShowVersion);
        QCOMPARE(parse({"-v"}).text, QString("tonewright-cli " TONEWRIGHT_VERSION "\n"));
        // The help names every option and every exit code.
        const QString help = cliHelpText();
        for (const char* option :
             {"--output", "--directory", "--jobs", "--force", "--add-to-library", "--start",
              "--end", "--length", "--allow-long", "--fade-in", "--fade-out", "--volume",
              "--loudness", "--loud", "--quiet", "--verbose", "--help", "--version"})
            QVERIFY2(help.contains(option), option);
        QVERIFY(help.contains("--format"));
        for (int code = kExitOk; code <= kExitNotMedia; ++code)
            QVERIFY2(help.contains(QString("\n  %1 ").arg(code)),
                     qPrintable(QString::number(code)));
    }

    void shouldTakeTheKindFromFormatOrTheExtension_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<int>("kind");
        QTest::newRow("default") << QStringList{"in.mp3", "-o", "x.m4r"}
                                 << int(RingtoneKind::IphoneRingtone);
        QTest::newRow(".ogg") << QStringList{"in.mp3", "-o", "x.ogg"}
                              << int(RingtoneKind::AndroidOgg);
        QTest::newRow(".MP3") << QStringList{"in.mp3", "-o", "x.MP3"}
                              << int(RingtoneKind::AndroidMp3);
        QTest::newRow(".m4a") << QStringList{"in.mp3", "-o", "x.m4a"}
                              << int(RingtoneKind::PlainAac);
        QTest::newRow("no extension")
            << QStringList{"in.mp3", "-o", "ring"} << int(RingtoneKind::IphoneRingtone);
        QTest::newRow("--format alert") << QStringList{"in.mp3", "-o", "x.m4r", "--format", "alert"}
                                        << int(RingtoneKind::IphoneAlert);
        QTest::newRow("--format wins") << QStringList{"in.mp3", "-o", "x.m4r", "--format", "OGG"}
                                       << int(RingtoneKind::AndroidOgg);
        QTest::newRow("-d with --format") << QStringList{"in.mp3", "-d", "out", "--format", "mp3"}
                                          << int(RingtoneKind::AndroidMp3);
    }

    void shouldTakeTheKindFromFormatOrTheExtension()
    {
        QFETCH(QStringList, args);
        QFETCH(int, kind);
        const CliCommand c = parse(args);
        QCOMPARE(c.action, CliCommand::Run);
        QCOMPARE(int(c.options.kind), kind);
        // A batch's child makes the same kind.
        const CliCommand child = parse(childArguments(c.options, "in.mp3", "out/in.x"));
        QCOMPARE(int(child.options.kind), kind);
    }

    void shouldHandAChildRunTheSameSettings()
    {
        const CliCommand c = parse({"x", "-d", "dir", "--start", "1:02.5", "--length", "20",
                                    "--fade-in", "2", "--fade-out", "3", "--volume", "80",
                                    "--allow-long", "--force", "--verbose", "--add-to-library"});
        QCOMPARE(c.action, CliCommand::Run);
        const QStringList args = childArguments(c.options, "-odd name.mp3", "dir/odd.m4r");
        // The input comes after "--", so a name that begins with "-" stays an input.
        QCOMPARE(args.mid(args.size() - 2), QStringList({"--", "-odd name.mp3"}));
        const CliCommand child = parse(args);
        QCOMPARE(child.action, CliCommand::Run);
        QCOMPARE(child.options.inputs, QStringList{"-odd name.mp3"});
        QCOMPARE(child.options.output, QString("dir/odd.m4r"));
        QCOMPARE(child.options.startMs, 62500LL);
        QCOMPARE(child.options.requestedEndMs(), 82500LL);
        QCOMPARE(child.options.fadeInSeconds, 2);
        QCOMPARE(child.options.fadeOutSeconds, 3);
        QCOMPARE(child.options.volume, 80);
        QVERIFY(child.options.allowLong);
        QVERIFY(child.options.force);
        QVERIFY(child.options.quiet);
        QVERIFY(child.options.verbose);
        // The library is written by the batch's own process only.
        QVERIFY(!child.options.addToLibrary);
    }
};

TW_TEST_MAIN(TestTimeArg)
#include "tst_timearg.moc"
