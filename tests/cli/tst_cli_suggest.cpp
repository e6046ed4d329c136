// tonewright-cli --suggest: the best-part proposals of each input, as text
// or one JSON line per input in a fixed shape, without writing anything;
// --length sets their length; --start auto makes the ringtone of the best
// one; bad combinations, missing inputs and sounds too short are refused
// with their exit codes.

#include "cli/exitcodes.h"
#include "clirun.h"
#include "mediafixtures.h"
#include "sectionsong.h"
#include "testenv.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

class TestCliSuggest : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QString m_song; // the section song, 3 minutes

    static QJsonObject parse(const QString& line)
    {
        QJsonParseError error;
        const QJsonDocument doc = QJsonDocument::fromJson(line.toUtf8(), &error);
        if (error.error != QJsonParseError::NoError || !doc.isObject())
            qWarning("not a JSON object: %s", qPrintable(line));
        return doc.object();
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        m_song = m_dir.filePath("sections.wav");
        QVERIFY(tw::writeSectionSong(m_song, 44100, 2));
    }

    void shouldPrintOneJsonLineInTheFixedShape()
    {
        const QByteArray before = tw::fileChecksum(m_song);
        const QStringList entriesBefore = QDir(m_dir.path()).entryList(QDir::Files | QDir::Hidden);
        // The input as given: a path relative to the working folder.
        const twcli::Run r = twcli::run({"--suggest", "--json", "sections.wav"}, m_dir.path());
        QVERIFY2(r.code == kExitOk, qPrintable(twcli::describe(r)));
        const QStringList lines = r.out.split('\n', Qt::SkipEmptyParts);
        QCOMPARE(lines.size(), 1);
        // The keys in this order, numbers in seconds.
        static const QRegularExpression shape(
            R"(^\{"input": "sections\.wav", "duration": \d+\.\d+, "start": \d+\.\d+, )"
            R"("end": \d+\.\d+, "alternatives": \[\[\d+\.\d+, \d+\.\d+\], \[\d+\.\d+, \d+\.\d+\]\]\}$)");
        QVERIFY2(shape.match(lines[0]).hasMatch(), qPrintable(lines[0]));
        const QJsonObject o = parse(lines[0]);
        QCOMPARE(o.value("input").toString(), QString("sections.wav"));
        QCOMPARE(o.value("duration").toDouble(), 180.0);
        const double start = o.value("start").toDouble();
        const double end = o.value("end").toDouble();
        QCOMPARE(end - start, 30.0);
        bool inChorus = false;
        for (const tw::SongSection& c : tw::sectionSongChoruses())
            inChorus = inChorus || (start >= c.begin - 0.5 && end <= c.end + 0.5);
        QVERIFY2(inChorus, qPrintable(lines[0]));
        const QJsonArray alternatives = o.value("alternatives").toArray();
        QCOMPARE(alternatives.size(), 2);
        for (const QJsonValue& a : alternatives) {
            const QJsonArray span = a.toArray();
            QCOMPARE(span.size(), 2);
            QCOMPARE(span[1].toDouble() - span[0].toDouble(), 30.0);
            QVERIFY(span[0].toDouble() >= 0 && span[1].toDouble() <= 180.0);
        }
        // Nothing written, nothing left behind, the input untouched.
        QCOMPARE(QDir(m_dir.path()).entryList(QDir::Files | QDir::Hidden), entriesBefore);
        QCOMPARE(tw::fileChecksum(m_song), before);
    }

    void shouldPrintTheProposalsAsTextOfTheLengthAskedFor()
    {
        const twcli::Run json = twcli::run({"--suggest", "--json", "--length", "20", m_song});
        QVERIFY2(json.code == kExitOk, qPrintable(twcli::describe(json)));
        const QJsonObject o = parse(json.out.trimmed());
        QCOMPARE(o.value("end").toDouble() - o.value("start").toDouble(), 20.0);

        const twcli::Run text = twcli::run({"--suggest", "--length", "0:20", m_song});
        QVERIFY2(text.code == kExitOk, qPrintable(twcli::describe(text)));
        // "path: m:ss.t to m:ss.t; also m:ss.t to m:ss.t, m:ss.t to m:ss.t"
        static const QRegularExpression line(
            R"(^(.*): (\d+:\d\d\.\d) to (\d+:\d\d\.\d); also \d+:\d\d\.\d to \d+:\d\d\.\d, )"
            R"(\d+:\d\d\.\d to \d+:\d\d\.\d$)");
        const QRegularExpressionMatch m = line.match(text.out.trimmed());
        QVERIFY2(m.hasMatch(), qPrintable(text.out));
        QCOMPARE(m.captured(1), m_song);
        const double start = o.value("start").toDouble();
        QCOMPARE(m.captured(2),
                 QString("%1:%2")
                     .arg(int(start) / 60)
                     .arg(QString::number(std::fmod(start, 60.0), 'f', 1).rightJustified(4, '0')));
    }

    void shouldProposeTheWholeOfAnInputShorterThanTheSpan()
    {
        const QString song = tw::mp3Fixture(20);
        const twcli::Run r = twcli::run({"--suggest", "--json", song});
        QVERIFY2(r.code == kExitOk, qPrintable(twcli::describe(r)));
        const QJsonObject o = parse(r.out.trimmed());
        QCOMPARE(o.value("start").toDouble(), 0.0);
        QCOMPARE(o.value("end").toDouble(), o.value("duration").toDouble());
        QVERIFY(std::fabs(o.value("duration").toDouble() - 20.0) < 0.2);
        QCOMPARE(o.value("alternatives").toArray().size(), 0);
    }

    void shouldAnswerEachOfSeveralInputs()
    {
        const QString missing = m_dir.filePath("missing.mp3");
        const twcli::Run r =
            twcli::run({"--suggest", "--json", m_song, missing, tw::mp3Fixture(60)});
        QCOMPARE(r.code, int(kExitBatchFailed));
        const QStringList lines = r.out.split('\n', Qt::SkipEmptyParts);
        QCOMPARE(lines.size(), 2);
        QCOMPARE(parse(lines[0]).value("input").toString(), m_song);
        QCOMPARE(parse(lines[1]).value("input").toString(), tw::mp3Fixture(60));
        QVERIFY2(r.err.contains(missing + ": no such file"), qPrintable(r.err));
    }

    void shouldRefuseWhatDoesNotGoWithIt_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("message");
        QTest::newRow("json alone") << QStringList{"--json", "x.mp3", "-o", "y.m4r"}
                                    << int(kExitUsage) << "--json goes with --suggest";
        QTest::newRow("an output") << QStringList{"--suggest", "x.mp3", "-o", "y.m4r"}
                                   << int(kExitUsage) << "--output does not go with it";
        QTest::newRow("a start") << QStringList{"--suggest", "x.mp3", "--start", "10"}
                                 << int(kExitUsage) << "--start does not go with it";
        QTest::newRow("a short span") << QStringList{"--suggest", "x.mp3", "--length", "3"}
                                      << int(kExitTooShort) << "the shortest is 5 s";
        QTest::newRow("auto with an end")
            << QStringList{"x.mp3", "-o", "y.m4r", "--start", "auto", "--end", "40"}
            << int(kExitUsage) << "--start auto goes with --length, not --end";
    }

    void shouldRefuseWhatDoesNotGoWithIt()
    {
        QFETCH(QStringList, args);
        QFETCH(int, code);
        QFETCH(QString, message);
        const twcli::Run r = twcli::run(args, m_dir.path());
        QCOMPARE(r.code, code);
        QVERIFY2(r.err.contains(message), qPrintable(r.err));
        QVERIFY(r.out.isEmpty());
    }

    void shouldRefuseASoundTooShortForARingtone()
    {
        const QString tiny = m_dir.filePath("tiny.wav");
        QVERIFY(tw::writeWav(tiny, 44100, 2, 16, 3 * 44100, [](qint64, int) { return 0; }));
        const twcli::Run r = twcli::run({"--suggest", tiny});
        QCOMPARE(r.code, int(kExitTooShort));
        QVERIFY(r.out.isEmpty());
    }

    void shouldMakeTheRingtoneOfTheBestPartWithStartAuto()
    {
        const twcli::Run suggested = twcli::run({"--suggest", "--json", "--length", "25", m_song});
        QVERIFY2(suggested.code == kExitOk, qPrintable(twcli::describe(suggested)));
        const QJsonObject o = parse(suggested.out.trimmed());
        const QString out = m_dir.filePath("auto.m4r");
        const twcli::Run made =
            twcli::run({m_song, "-o", out, "--start", "auto", "--length", "25", "--quiet"});
        QVERIFY2(made.code == kExitOk, qPrintable(twcli::describe(made)));
        // "OUT: m:ss.t to m:ss.t (25.0 s), ..." from the proposal's start.
        const double start = o.value("start").toDouble();
        const QString from =
            QString("%1:%2")
                .arg(int(start) / 60)
                .arg(QString::number(std::fmod(start, 60.0), 'f', 1).rightJustified(4, '0'));
        QVERIFY2(made.out.startsWith(out + ": " + from + " to "), qPrintable(made.out));
        QVERIFY2(made.out.contains("(25.0 s)"), qPrintable(made.out));
        const QString duration = tw::ffprobe(
            {"-v", "error", "-show_entries", "format=duration", "-of", "default=nw=1:nk=1", out});
        QVERIFY2(std::fabs(duration.trimmed().toDouble() - 25.0) < 0.1, qPrintable(duration));
    }

    void shouldPassStartAutoToTheBatchsChildren()
    {
        const QString single = m_dir.filePath("single.m4r");
        const twcli::Run one = twcli::run({m_song, "-o", single, "--start", "auto", "--quiet"});
        QVERIFY2(one.code == kExitOk, qPrintable(twcli::describe(one)));
        const QString folder = m_dir.filePath("batch");
        const twcli::Run r = twcli::run({m_song, "-d", folder, "--start", "auto", "--quiet"});
        QVERIFY2(r.code == kExitOk, qPrintable(twcli::describe(r)));
        // The child found the same best part: the same samples.
        const QByteArray batch = twcli::decodePcm(folder + "/sections.m4r");
        QVERIFY(!batch.isEmpty());
        QCOMPARE(batch, twcli::decodePcm(single));
    }
};

TW_TEST_MAIN(TestCliSuggest)
#include "tst_cli_suggest.moc"
