// CRingtoneExport: the kind of file written, the file name, the length and
// replace rules, the hand-over to the library, and a real export of a span
// with and without the hand-over.

#include "testenv.h"

#include "editor/ringtoneexport.h"
#include "editor/waveio.h"
#include "editor/wavemodel.h"
#include "editor/waveplayback.h"
#include "mediafixtures.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <itunesagent.h>
#include <vexa.h>

#include <cmath>

namespace {

const double kAacFrameMs = 1024.0 * 1000.0 / KELO_OUTPUT_SAMPLE_RATE;

QString libraryRingtoneDir()
{
    char buffer[4096] = {};
    if (ItunesAgentGetRingtoneDir(buffer, sizeof buffer) < 0)
        return QString();
    return QString::fromLocal8Bit(buffer);
}

QString probe(const QString& path, const QString& entries)
{
    return tw::ffprobe({"-show_entries", entries, "-of", "default=nw=1:nk=1", path}).trimmed();
}

// A 12-second song opened as the editor opens one.
bool openSong(CWaveModel& model, CWavePlayback& playback, CWaveIo& io)
{
    model.setViewWidth(400);
    CRingToneNode song;
    song.LoadFromFile(tw::mp3Fixture(12));
    io.setNode(song);
    if (io.convertToWave(song.strPath) != 1 || playback.open(io.getWavePath()) != 0)
        return false;
    model.load(playback.record().frameCount, playback.record().sampleRate);
    return true;
}

} // namespace

class TestRingtoneExport : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        QVERIFY(!libraryRingtoneDir().isEmpty());
    }

    void shouldWriteAacInAnMpeg4RingtoneFile()
    {
        const RingtoneFormat& kind = CRingtoneExport::format();
        QCOMPARE(QString(kind.container), QString("mp4"));
        QCOMPARE(kind.codec, int(KELO_CODEC_AAC));
        QCOMPARE(kind.bitRate, 128000);
        QCOMPARE(QString(kind.extension), QString(".m4r"));
    }

    void shouldNameTheFileAfterTheSafeName_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("file");
        QTest::newRow("plain") << "Bell"
                               << "Bell.m4r";
        QTest::newRow("separators") << "AC/DC\\Live"
                                    << "AC-DC-Live.m4r";
        QTest::newRow("hidden") << "..secret"
                                << "secret.m4r";
        QTest::newRow("nothing left") << "  "
                                      << "Ringtone.m4r";
        QTest::newRow("not ASCII") << "Été 日本"
                                   << "Été 日本.m4r";
    }

    void shouldNameTheFileAfterTheSafeName()
    {
        QFETCH(QString, name);
        QFETCH(QString, file);
        QCOMPARE(CRingtoneExport::fileName(name), file);
    }

    void shouldCallOnlyWhatIsLongerThanTheLimitTooLong()
    {
        QVERIFY(!CRingtoneExport::isTooLong(5000));
        QVERIFY(!CRingtoneExport::isTooLong(39999));
        QVERIFY(!CRingtoneExport::isTooLong(40000)); // the default selection is fine
        QVERIFY(CRingtoneExport::isTooLong(40001));
        QVERIFY(CRingtoneExport::isTooLong(300000));
        QVERIFY(!CRingtoneExport::isTooLong(30000, RingtoneKind::IphoneAlert));
        QVERIFY(CRingtoneExport::isTooLong(30500, RingtoneKind::IphoneAlert));
        QVERIFY(!CRingtoneExport::isTooLong(40000, RingtoneKind::AndroidOgg));
        QVERIFY(CRingtoneExport::isTooLong(40500, RingtoneKind::AndroidMp3));
    }

    void shouldKnowEveryKind()
    {
        int count = 0;
        const RingtoneFormat* formats = CRingtoneExport::formats(&count);
        QCOMPARE(count, 5);
        const QStringList keys{"iphone", "alert", "ogg", "mp3", "m4a"};
        const QStringList extensions{".m4r", ".m4r", ".ogg", ".mp3", ".m4a"};
        const QList<int> codecs{KELO_CODEC_AAC, KELO_CODEC_AAC, KELO_CODEC_VORBIS, KELO_CODEC_MP3,
                                KELO_CODEC_AAC};
        const QList<long long> limits{40000, 30000, 40000, 40000, 40000};
        for (int i = 0; i < count; ++i) {
            QCOMPARE(int(formats[i].kind), i); // in RingtoneKind's order
            QCOMPARE(QString(formats[i].key), keys[i]);
            QCOMPARE(QString(formats[i].extension), extensions[i]);
            QCOMPARE(formats[i].codec, codecs[i]);
            QCOMPARE(formats[i].lengthLimitMs, limits[i]);
            QVERIFY(QString(formats[i].label).size() > 3);
            RingtoneKind byKey = RingtoneKind::PlainAac;
            QVERIFY(CRingtoneExport::kindOfKey(keys[i].toUpper(), &byKey));
            QCOMPARE(int(byKey), i);
        }
        RingtoneKind kind = RingtoneKind::PlainAac;
        QVERIFY(CRingtoneExport::kindOfFile("a/b.OGG", &kind));
        QCOMPARE(kind, RingtoneKind::AndroidOgg);
        QVERIFY(CRingtoneExport::kindOfFile("x.m4r", &kind));
        QCOMPARE(kind, RingtoneKind::IphoneRingtone); // the first kind of that extension
        QVERIFY(!CRingtoneExport::kindOfFile("x.wav", &kind));
        QVERIFY(!CRingtoneExport::kindOfKey("wma", &kind));
        QCOMPARE(CRingtoneExport::fileName("Bell", RingtoneKind::AndroidMp3), QString("Bell.mp3"));
        QCOMPARE(&CRingtoneExport::format(), &formats[0]);
    }

    void shouldFindTheLibrarysRingtoneOfTheSameFileName()
    {
        const QString dir = libraryRingtoneDir();
        QVERIFY(QDir().mkpath(dir));
        QVERIFY(CRingtoneExport::replacedInLibrary("Not There Yet").isEmpty());
        QFile existing(dir + "/Already Here.m4r");
        QVERIFY(existing.open(QIODevice::WriteOnly));
        existing.close();
        QCOMPARE(CRingtoneExport::replacedInLibrary("Already Here"), dir + "/Already Here.m4r");
        // The name is made safe first, as the file would be.
        QCOMPARE(CRingtoneExport::replacedInLibrary(" .Already Here "), dir + "/Already Here.m4r");
        QVERIFY(existing.remove());
        QVERIFY(CRingtoneExport::replacedInLibrary("Already Here").isEmpty());
    }

    void shouldRefuseAnEmptyPath()
    {
        CWaveModel model;
        CWavePlayback playback(model);
        CWaveIo io(playback, nullptr);
        CRingtoneExport ringtone(model, playback, io);
        QCOMPARE(ringtone.exportTo(QString()), -1);
    }

    void shouldWriteTheSpanOnlyWhenExportOnly()
    {
        CWaveModel model;
        CWavePlayback playback(model);
        CWaveIo io(playback, nullptr);
        QVERIFY(openSong(model, playback, io));
        model.setSelection(1000, 7000);
        const QString wave = io.getWavePath();

        CRingtoneExport ringtone(model, playback, io);
        ringtone.setExportOnly(true);
        const QString path = m_dir.filePath("Only Here.m4r");
        QCOMPARE(ringtone.exportTo(path), 0);
        QVERIFY(QFile::exists(path));
        QCOMPARE(probe(path, "stream=codec_name"), QString("aac"));
        QVERIFY(std::fabs(probe(path, "format=duration").toDouble() * 1000.0 - 6000.0) <=
                kAacFrameMs);
        // Not handed over, and the temporary WAV not rebuilt.
        QVERIFY(!QFile::exists(libraryRingtoneDir() + "/Only Here.m4r"));
        QCOMPARE(io.getWavePath(), wave);
        QVERIFY(!playback.isOpen());
        QFile::remove(wave);
    }

    void shouldHandAWrittenRingtoneToTheLibrary()
    {
        CWaveModel model;
        CWavePlayback playback(model);
        CWaveIo io(playback, nullptr);
        QVERIFY(openSong(model, playback, io));
        model.setSelection(0, 6000);

        // Fades and volume on: the export renders them without writing them
        // into the temporary WAV.
        playback.enableFadeIn(true);
        playback.setFadeInLength(2);
        playback.enableFadeOut(true);
        playback.setFadeOutLength(2);
        playback.setVolume(180);
        const QString wave = io.getWavePath();
        const QByteArray before = tw::fileChecksum(wave);

        CRingtoneExport ringtone(model, playback, io);
        const QString path = m_dir.filePath("Handed Over.m4r");
        QCOMPARE(ringtone.exportTo(path), 0); // the same WAV opened again
        QVERIFY(QFile::exists(libraryRingtoneDir() + "/Handed Over.m4r"));
        QVERIFY(playback.isOpen());
        QCOMPARE(model.endTime(), 6000LL);
        // No second decode: the same file, as it was decoded.
        QCOMPARE(io.getWavePath(), wave);
        QCOMPARE(tw::fileChecksum(wave), before);
        QCOMPARE(int(playback.record().frameCount), int(model.frameCount()));
    }

    void shouldSayWhenTheLibraryRefusesAFile()
    {
        // Not a ringtone file at all: the library refuses it.
        const QString text = m_dir.filePath("notes.txt");
        QFile file(text);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("not a ringtone");
        file.close();
        QVERIFY(CRingtoneExport::addToLibrary(text) < 0);
        QVERIFY(CRingtoneExport::addToLibrary(m_dir.filePath("missing.m4r")) < 0);
    }
};

TW_TEST_MAIN(TestRingtoneExport)
#include "tst_ringtoneexport.moc"
