// The editor's import and export, end to end: any media file into a
// temporary WAV the engine opens, the selection with its effects out as an
// AAC ringtone that lands in the library, drag and drop, and every failure
// path. Real conversions, the real WAV engine (dummy audio driver), the real
// library agent.

#include "editor/wavewnd.h"
#include "engine/progressdlg.h"
#include "mediafixtures.h"
#include "testenv.h"
#include "wavewndfixture.h"

#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFile>
#include <QFileInfo>
#include <QMimeData>
#include <QProcess>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QUrl>

#include <itunesagent.h>

#include <cmath>
#include <memory>
#include <vector>

namespace {

const double kAacFrameMs = 1024.0 * 1000.0 / 44100.0;

QStringList tempWaves()
{
    QDir cache(QStandardPaths::writableLocation(QStandardPaths::CacheLocation));
    return cache.entryList(QStringList() << "wave_*.tmp", QDir::Files, QDir::Name);
}

QString ringtoneDir()
{
    char buffer[4096] = {};
    if (ItunesAgentGetRingtoneDir(buffer, sizeof buffer) < 0)
        return QString();
    return QString::fromLocal8Bit(buffer);
}

// Decodes a file to 44.1 kHz stereo s16 samples (interleaved) with ffmpeg.
std::vector<qint16> decode(const QString& path)
{
    QProcess p;
    p.start("ffmpeg", {"-nostdin", "-v", "error", "-i", path, "-f", "s16le", "-ac", "2", "-ar",
                       "44100", "-"});
    p.waitForFinished(120000);
    const QByteArray raw = p.readAllStandardOutput();
    std::vector<qint16> out(size_t(raw.size() / 2));
    std::memcpy(out.data(), raw.constData(), out.size() * 2);
    return out;
}

// RMS of the left channel over [fromMs, fromMs + lengthMs).
double rms(const std::vector<qint16>& s, double fromMs, double lengthMs)
{
    const size_t first = size_t(fromMs * 44.1);
    const size_t count = size_t(lengthMs * 44.1);
    double sum = 0;
    size_t n = 0;
    for (size_t i = first; i < first + count && 2 * i < s.size(); ++i, ++n)
        sum += double(s[2 * i]) * s[2 * i];
    return n ? std::sqrt(sum / double(n)) : 0.0;
}

double probeDuration(const QString& path)
{
    return tw::ffprobe({"-show_entries", "format=duration", "-of", "default=nw=1:nk=1", path})
        .trimmed()
        .toDouble();
}

QString probeStream(const QString& path, const QString& entry)
{
    return tw::ffprobe({"-select_streams", "a:0", "-show_entries", "stream=" + entry, "-of",
                        "default=nw=1:nk=1", path})
        .trimmed();
}

} // namespace

class TestWaveWndIo : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    std::unique_ptr<QWidget> m_host;
    CProgressDlg* m_progress = nullptr;
    CWaveWnd* m_wnd = nullptr;

    QString fixture(const QString& name, const QStringList& args)
    {
        const QString path = m_dir.filePath(name);
        if (!QFile::exists(path)) {
            QString err;
            if (!tw::ffmpeg(QStringList(args) << path, &err))
                qWarning("%s: %s", qPrintable(name), qPrintable(err));
        }
        return path;
    }

    // A steady 440 Hz tone at half scale: level checks after the export are easy.
    QString tone(const QString& name, int seconds, const QStringList& codec)
    {
        return fixture(name, QStringList{"-f", "lavfi", "-i",
                                         QString("sine=frequency=440:sample_rate=44100:"
                                                 "duration=%1,volume=-6.02dB")
                                             .arg(seconds),
                                         "-ac", "2"} +
                                 codec);
    }

    static CRingToneNode song(const QString& path)
    {
        CRingToneNode n;
        n.LoadFromFile(path);
        return n;
    }

    QString cachePath(const QString& name) const
    {
        return QStandardPaths::writableLocation(QStandardPaths::CacheLocation) + "/" + name;
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        m_host = std::make_unique<QWidget>();
        m_host->resize(897, 300);
        m_progress = new CProgressDlg(m_host.get());
        m_wnd = new CWaveWnd(m_host.get(), m_progress);
        m_wnd->resize(897, 300);
        m_host->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_host.get()));
        QDir().mkpath(QStandardPaths::writableLocation(QStandardPaths::CacheLocation));
        QVERIFY(!ringtoneDir().isEmpty());
    }

    void cleanupTestCase()
    {
        m_wnd->stop();
        m_host.reset();
    }

    // --- import -----------------------------------------------------------

    void shouldOpenAnyMediaThroughATemporaryWave_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<qint64>("expectedEnd");
        QTest::newRow("mp3, 60 s")
            << tone("song.mp3", 60, {"-c:a", "libmp3lame", "-b:a", "192k"}) << qint64(40000);
        QTest::newRow("mp4 video with sound")
            << fixture("clip.mp4",
                       {"-f", "lavfi", "-i", "testsrc=size=320x240:rate=25:duration=45", "-f",
                        "lavfi", "-i", "sine=frequency=330:duration=45", "-c:v", "libx264",
                        "-preset", "ultrafast", "-pix_fmt", "yuv420p", "-c:a", "aac", "-shortest"})
            << qint64(40000);
        QTest::newRow("flac, 20 s") << tone("short.flac", 20, {"-c:a", "flac"}) << qint64(20000);
        QTest::newRow("ogg vorbis, 50 s")
            << tone("song.ogg", 50, {"-c:a", "libvorbis"}) << qint64(40000);
        QTest::newRow("riff avi is converted, not copied")
            << fixture("movie.avi",
                       {"-f", "lavfi", "-i", "testsrc=size=160x120:rate=10:duration=30", "-f",
                        "lavfi", "-i", "sine=duration=30", "-c:v", "mjpeg", "-c:a", "pcm_s16le",
                        "-shortest"})
            << qint64(30000);
    }

    void shouldOpenAnyMediaThroughATemporaryWave()
    {
        QFETCH(QString, path);
        QFETCH(qint64, expectedEnd);
        QVERIFY(QFile::exists(path));
        const QByteArray before = tw::fileChecksum(path);
        const QStringList wavesBefore = tempWaves();
        QSignalSpy opened(m_wnd, &CWaveWnd::waveOpened);
        QSignalSpy selected(m_wnd, &CWaveWnd::selectChange);

        QCOMPARE(m_wnd->openFile(song(path)), 0);

        QCOMPARE(opened.count(), 1);
        QCOMPARE(opened.at(0).at(0).value<CRingToneNode>().strPath, path);
        QVERIFY(selected.count() >= 1);
        QCOMPARE(selected.last().at(0).toTime(), QTime(0, 0, 0, 0));
        const QTime end = selected.last().at(1).toTime();
        QVERIFY2(std::llabs(QTime(0, 0).msecsTo(end) - expectedEnd) <= 60,
                 qPrintable(end.toString("hh:mm:ss.zzz")));
        QVERIFY(m_wnd->playback().record().peakTable != nullptr);
        QCOMPARE(m_wnd->playback().record().formatKey, 18u);
        QCOMPARE(m_wnd->playback().record().sampleRate, 44100u);

        const QStringList wavesAfter = tempWaves();
        QCOMPARE(wavesAfter.size(), wavesBefore.size() + 1);
        const QString wave = m_wnd->io().getWavePath();
        QVERIFY(QFileInfo(wave).fileName().contains(QRegularExpression("^wave_\\d{9}\\.tmp$")));
        // A canonical 44-byte header: the data chunk starts right after "fmt ".
        QFile f(wave);
        QVERIFY(f.open(QIODevice::ReadOnly));
        const QByteArray head = f.read(44);
        QCOMPARE(head.mid(0, 4), QByteArray("RIFF"));
        QCOMPARE(head.mid(8, 4), QByteArray("WAVE"));
        QCOMPARE(head.mid(36, 4), QByteArray("data"));
        QCOMPARE(tw::fileChecksum(path), before);
    }

    void shouldCopyAWaveAsItStands()
    {
        const QString path = m_dir.filePath("plain.wav");
        QVERIFY(tw::writeWav(path, 44100, 2, 16, 44100 * 12, twed::sine(44100, 16, 300, 0.5)));
        const QStringList before = tempWaves();
        QSignalSpy opened(m_wnd, &CWaveWnd::waveOpened);
        QSignalSpy selected(m_wnd, &CWaveWnd::selectChange);
        QCOMPARE(m_wnd->openFile(song(path)), 0);
        QCOMPARE(opened.count(), 1);
        QVERIFY(m_wnd->playback().record().peakTable != nullptr);
        QCOMPARE(tw::fileChecksum(m_wnd->io().getWavePath()), tw::fileChecksum(path));
        QCOMPARE(selected.last().at(1).toTime(), QTime(0, 0, 12, 0));

        // One new temporary file in the cache, named by the time of day: the
        // copy whose checksum matched the source's above.
        QStringList added = tempWaves();
        for (const QString& name : before)
            added.removeAll(name);
        QCOMPARE(added.size(), 1);
        QVERIFY2(QRegularExpression("^wave_\\d{9}\\.tmp$").match(added.first()).hasMatch(),
                 qPrintable(added.first()));
        QCOMPARE(cachePath(added.first()), m_wnd->io().getWavePath());
    }

    void shouldTellAWaveOnlyByItsRiffWaveHeader()
    {
        const auto write = [this](const QString& name, const QByteArray& bytes) {
            const QString path = m_dir.filePath(name);
            QFile f(path);
            if (!f.open(QIODevice::WriteOnly) || f.write(bytes) != bytes.size())
                return QByteArray();
            return path.toLocal8Bit();
        };
        const QByteArray riffSize(4, '\0'); // the RIFF size is not looked at
        const QByteArray wave = write("header.wav", QByteArray("RIFF") + riffSize + "WAVE");
        const QByteArray avi = write("header.avi", QByteArray("RIFF") + riffSize + "AVI ");
        const QByteArray noForm = write("noform.wav", QByteArray("RIFF") + riffSize);
        const QByteArray tiny = write("tiny.wav", QByteArray("RIF"));
        QVERIFY(!wave.isEmpty() && !avi.isEmpty() && !noForm.isEmpty() && !tiny.isEmpty());
        QCOMPARE(QFileInfo(QString::fromLocal8Bit(wave)).size(), qint64(12));
        QCOMPARE(QFileInfo(QString::fromLocal8Bit(tiny)).size(), qint64(3));
        const QByteArray missing = m_dir.filePath("missing.wav").toLocal8Bit();
        QVERIFY(!QFile::exists(QString::fromLocal8Bit(missing)));

        QVERIFY(!m_wnd->isWaveFile(nullptr));
        QVERIFY(!m_wnd->isWaveFile(missing.constData()));
        QVERIFY(!m_wnd->isWaveFile(avi.constData()));
        QVERIFY(!m_wnd->isWaveFile(noForm.constData()));
        QVERIFY(!m_wnd->isWaveFile(tiny.constData()));
        QVERIFY(m_wnd->isWaveFile(wave.constData()));
    }

    void shouldRefuseTextFileWithoutCreatingAnything()
    {
        const QStringList before = tempWaves();
        QSignalSpy opened(m_wnd, &CWaveWnd::waveOpened);
        QCOMPARE(m_wnd->openFile(song(tw::textFixture())), -4);
        QCOMPARE(opened.count(), 0);
        QCOMPARE(tempWaves(), before);
    }

    void shouldReportAFileTheEngineCannotConvert()
    {
        // An audio stream FFmpeg can find but cannot decode.
        const QString path = m_dir.filePath("undecodable.mka");
        {
            QString err;
            QVERIFY2(tw::ffmpeg({"-f", "lavfi", "-i", "sine=duration=5", "-c:a", "pcm_s16le", path},
                                &err),
                     qPrintable(err));
            // Damage every byte after the header so no frame decodes.
            QFile f(path);
            QVERIFY(f.open(QIODevice::ReadWrite));
            QByteArray all = f.readAll();
            QVERIFY(all.size() > 4096);
            for (int i = 400; i < all.size(); ++i)
                all[i] = char(0xFF);
            f.seek(0);
            f.write(all);
        }
        const QByteArray before = tw::fileChecksum(path);
        QSignalSpy opened(m_wnd, &CWaveWnd::waveOpened);
        const int rc = m_wnd->openFile(song(path));
        QVERIFY2(rc < 0, qPrintable(QString::number(rc)));
        QCOMPARE(opened.count(), 0);
        QCOMPARE(tw::fileChecksum(path), before);
    }

    // --- export -----------------------------------------------------------

    void shouldExportSelectionWithFadesAndVolumeIntoTheLibrary()
    {
        const QString src = tone("export.flac", 60, {"-c:a", "flac"});
        const QByteArray before = tw::fileChecksum(src);
        QCOMPARE(m_wnd->openFile(song(src)), 0);
        const QString firstWave = m_wnd->io().getWavePath();
        const QByteArray firstWaveSum = tw::fileChecksum(firstWave);

        m_wnd->setBeginTime(10000LL);
        m_wnd->setEndTime(50000LL);
        m_wnd->enableFadeIn(true);
        m_wnd->fadeIn(3);
        m_wnd->enableFadeOut(true);
        m_wnd->fadeOut(5);
        m_wnd->setVolume(150);

        const QString ring = cachePath(QString::fromUtf8("My Ring é.m4r"));
        const int rc = m_wnd->convertToM4r(ring);
        QVERIFY2(rc >= 0, qPrintable(QString::number(rc)));

        // The ringtone: AAC, 44.1 kHz stereo, 40 s within one AAC frame, brand M4A.
        QVERIFY(QFile::exists(ring));
        QCOMPARE(probeStream(ring, "codec_name"), QString("aac"));
        QCOMPARE(probeStream(ring, "sample_rate"), QString("44100"));
        QCOMPARE(probeStream(ring, "channels"), QString("2"));
        const double seconds = probeDuration(ring);
        QVERIFY2(std::fabs(seconds * 1000.0 - 40000.0) <= kAacFrameMs,
                 qPrintable(QString::number(seconds)));
        QFile f(ring);
        QVERIFY(f.open(QIODevice::ReadOnly));
        QCOMPARE(f.read(12).mid(8, 4), QByteArray("M4A "));
        f.close();

        // Decoded back: faded in, faded out, 150 % in the middle.
        const std::vector<qint16> pcm = decode(ring);
        const double head = rms(pcm, 0, 100);
        const double middle = rms(pcm, 15000, 1000);
        const double tail = rms(pcm, 39900, 100);
        // The same second of the source, 10 s earlier in the file.
        const double sourceRms = rms(decode(src), 25000, 1000);
        QVERIFY(sourceRms > 500);
        QVERIFY2(std::fabs(middle / sourceRms - 1.5) < 0.08,
                 qPrintable(QString("middle %1 source %2").arg(middle).arg(sourceRms)));
        QVERIFY2(head < middle * 0.1,
                 qPrintable(QString("head %1 middle %2").arg(head).arg(middle)));
        QVERIFY2(tail < middle * 0.3,
                 qPrintable(QString("tail %1 middle %2").arg(tail).arg(middle)));
        // Half way through the fade-in the level is about half.
        const double halfIn = rms(pcm, 1450, 100);
        QVERIFY2(halfIn > middle * 0.35 && halfIn < middle * 0.65,
                 qPrintable(QString::number(halfIn / middle)));

        // In the library's ringtones place, the source untouched.
        const QString placed = ringtoneDir() + QString::fromUtf8("/My Ring é.m4r");
        QVERIFY2(QFile::exists(placed), qPrintable(placed));
        QCOMPARE(tw::fileChecksum(placed), tw::fileChecksum(ring));
        QCOMPARE(tw::fileChecksum(src), before);

        // The editor opened the same temporary WAV again, untouched (no
        // second decode), and kept its selection.
        const QString secondWave = m_wnd->io().getWavePath();
        QCOMPARE(secondWave, firstWave);
        QCOMPARE(tw::fileChecksum(secondWave), firstWaveSum);
        QVERIFY(QFile::exists(secondWave));
        QVERIFY(m_wnd->playback().record().peakTable != nullptr);
        QCOMPARE(m_wnd->model().beginTime(), 10000LL);
        QCOMPARE(m_wnd->model().endTime(), 50000LL);
        // The engine's effects are back to their defaults until set again.
        QCOMPARE(m_wnd->playback().record().volume, 100);

        // And it can export again at once.
        const QString again = cachePath("Again.m4r");
        QVERIFY(m_wnd->convertToM4r(again) >= 0);
        QVERIFY(QFile::exists(again));
        QVERIFY(std::fabs(probeDuration(again) * 1000.0 - 40000.0) <= kAacFrameMs);
        QCOMPARE(m_wnd->io().getWavePath(), secondWave);
        QCOMPARE(tw::fileChecksum(secondWave), firstWaveSum);
        QVERIFY(QFile::exists(ringtoneDir() + "/Again.m4r"));
    }

    void shouldSignalPauseOnceTheWaveIsClosedForExport()
    {
        const QString src = m_dir.filePath("paused.wav");
        QVERIFY(tw::writeWav(src, 44100, 2, 16, 44100 * 12, twed::sine(44100, 16, 440, 0.5)));
        QCOMPARE(m_wnd->openFile(song(src)), 0);
        QVERIFY(m_wnd->playback().record().peakTable != nullptr);
        QVERIFY(!m_wnd->playback().isPreview());
        const QString ring = cachePath("Paused.m4r");
        QFile::remove(ring);

        QSignalSpy paused(m_wnd, &CWaveWnd::onPause);
        // What the editor looks like at the moment it reports the pause.
        bool closed = false;
        bool ringWritten = true;
        const QMetaObject::Connection seen = connect(m_wnd, &CWaveWnd::onPause, this, [&] {
            closed = m_wnd->playback().record().peakTable == nullptr &&
                     m_wnd->playback().record().scanFile == nullptr &&
                     m_wnd->playback().record().playFile == nullptr;
            ringWritten = QFile::exists(ring);
        });
        const int rc = m_wnd->convertToM4r(ring);
        QObject::disconnect(seen);
        QVERIFY2(rc >= 0, qPrintable(QString::number(rc)));

        QCOMPARE(paused.count(), 1);
        QCOMPARE(paused.at(0).at(0).toBool(), false);
        QVERIFY(closed);       // the engine had written its effects and let go
        QVERIFY(!ringWritten); // before the ringtone was made
        QVERIFY(QFile::exists(ring));
        QVERIFY(m_wnd->playback().record().peakTable != nullptr); // reloaded afterwards
    }

    void shouldReplaceAnExistingRingtoneOfTheSameName()
    {
        QCOMPARE(m_wnd->openFile(song(tone("again.mp3", 30, {"-c:a", "libmp3lame"}))), 0);
        const QString ring = cachePath("Same.m4r");
        QVERIFY(m_wnd->convertToM4r(ring) >= 0);
        m_wnd->setBeginTime(0LL);
        m_wnd->setEndTime(10000LL);
        QVERIFY(m_wnd->convertToM4r(ring) >= 0);
        QVERIFY(std::fabs(probeDuration(ring) * 1000.0 - 10000.0) <= kAacFrameMs);
        QVERIFY(std::fabs(probeDuration(ringtoneDir() + "/Same.m4r") * 1000.0 - 10000.0) <=
                kAacFrameMs);
    }

    void shouldRefuseAnEmptyDestination()
    {
        QCOMPARE(m_wnd->openFile(song(tone("song.mp3", 60, {"-c:a", "libmp3lame"}))), 0);
        const QString wave = m_wnd->io().getWavePath();
        QCOMPARE(m_wnd->convertToM4r(QString()), -1);
        // Nothing happened: the wave is still open and unchanged.
        QCOMPARE(m_wnd->io().getWavePath(), wave);
        QVERIFY(m_wnd->playback().record().peakTable != nullptr);
    }

    void shouldFailOnAnUnwritableDestinationAndStayUsable()
    {
        const QString src = tone("song.mp3", 60, {"-c:a", "libmp3lame"});
        const QByteArray before = tw::fileChecksum(src);
        QCOMPARE(m_wnd->openFile(song(src)), 0);
        const QString blocker = m_dir.filePath("a-file");
        {
            QFile f(blocker);
            QVERIFY(f.open(QIODevice::WriteOnly));
            f.write("not a directory");
        }
        const QString bad = blocker + "/ring.m4r";
        const int rc = m_wnd->convertToM4r(bad);
        QVERIFY2(rc < 0, qPrintable(QString::number(rc)));
        QVERIFY(!QFile::exists(bad));
        QVERIFY(!QFile::exists(ringtoneDir() + "/ring.m4r"));
        QCOMPARE(tw::fileChecksum(src), before);

        // A new openFile brings the editor back, and exporting works again.
        QCOMPARE(m_wnd->openFile(song(src)), 0);
        const QString good = cachePath("Recovered.m4r");
        QVERIFY(m_wnd->convertToM4r(good) >= 0);
        QVERIFY(QFile::exists(good));
    }

    // --- drag and drop ----------------------------------------------------

    void shouldOpenOnlyTheFirstOfSeveralDroppedFiles()
    {
        const QString first = tone("song.mp3", 60, {"-c:a", "libmp3lame"});
        const QString second = tone("short.flac", 20, {"-c:a", "flac"});
        QMimeData mime;
        mime.setUrls({QUrl::fromLocalFile(first), QUrl::fromLocalFile(second)});
        QDragEnterEvent enter(QPoint(10, 100), Qt::CopyAction, &mime, Qt::LeftButton,
                              Qt::NoModifier);
        QApplication::sendEvent(m_wnd, &enter);
        QVERIFY(enter.isAccepted());

        QSignalSpy open(m_wnd, &CWaveWnd::openWave);
        QDropEvent drop(QPointF(10, 100), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(m_wnd, &drop);
        QVERIFY(drop.isAccepted());
        QCOMPARE(open.count(), 1);
        QCOMPARE(open.at(0).at(0).toString(), first);
    }

    void shouldRefuseADroppedFileWithoutAudio()
    {
        QMimeData mime;
        mime.setUrls({QUrl::fromLocalFile(tw::textFixture())});
        QSignalSpy open(m_wnd, &CWaveWnd::openWave);
        QDropEvent drop(QPointF(10, 100), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        drop.setAccepted(false);
        QApplication::sendEvent(m_wnd, &drop);
        QVERIFY(!drop.isAccepted());
        QCOMPARE(open.count(), 0);
    }

    void shouldIgnoreADragThatCarriesNoFiles()
    {
        QMimeData mime;
        mime.setText("just some words");
        QDragEnterEvent enter(QPoint(10, 100), Qt::CopyAction, &mime, Qt::LeftButton,
                              Qt::NoModifier);
        enter.setAccepted(true);
        QApplication::sendEvent(m_wnd, &enter);
        QVERIFY(!enter.isAccepted());
    }

    // --- real music -------------------------------------------------------

    void shouldImportAndExportRealSongs_data()
    {
        QTest::addColumn<QString>("path");
        const QString dir = "/usr/share/games/frozen-bubble/snd";
        QTest::newRow("main theme, one player") << dir + "/frozen-mainzik-1p.ogg";
        QTest::newRow("main theme, two players") << dir + "/frozen-mainzik-2p.ogg";
        QTest::newRow("introduction") << dir + "/introzik.ogg";
    }

    void shouldImportAndExportRealSongs()
    {
        QFETCH(QString, path);
        QVERIFY2(QFile::exists(path), "frozen-bubble-data is installed by scripts/install-deps.sh");
        const QByteArray before = tw::fileChecksum(path);
        QSignalSpy opened(m_wnd, &CWaveWnd::waveOpened);
        QCOMPARE(m_wnd->openFile(song(path)), 0);
        QCOMPARE(opened.count(), 1);
        const float duration = m_wnd->model().maxTime();
        QVERIFY(duration > 20000);
        const long long expected = std::min<long long>(40000, std::llround(duration));
        QCOMPARE(m_wnd->model().endTime(), expected);

        // A picture of the editor on real music, at zoom 1 with a selection.
        if (QTest::currentDataTag() == QLatin1String("main theme, one player")) {
            m_wnd->setBeginTime(12000LL);
            m_wnd->setEndTime(52000LL);
            const QString shot =
                QCoreApplication::applicationDirPath() + "/editor-screenshot-real-song.png";
            const QImage image = m_wnd->grab().toImage();
            QVERIFY(image.save(shot));
            m_wnd->setBeginTime(0LL);
            m_wnd->setEndTime(expected);
        }

        m_wnd->enableFadeIn(true);
        m_wnd->fadeIn(2);
        m_wnd->enableFadeOut(true);
        m_wnd->fadeOut(3);
        const QString ring = cachePath(QFileInfo(path).completeBaseName() + ".m4r");
        QVERIFY(m_wnd->convertToM4r(ring) >= 0);
        QCOMPARE(probeStream(ring, "codec_name"), QString("aac"));
        QVERIFY(std::fabs(probeDuration(ring) * 1000.0 - double(expected)) <= kAacFrameMs);
        const std::vector<qint16> pcm = decode(ring);
        QVERIFY(rms(pcm, 0, 50) < rms(pcm, 10000, 2000));
        QVERIFY(QFile::exists(ringtoneDir() + "/" + QFileInfo(ring).fileName()));
        QCOMPARE(tw::fileChecksum(path), before);
    }
};

TW_TEST_MAIN(TestWaveWndIo)
#include "tst_wavewnd_io.moc"
