// Render jobs that succeed: any source to the canonical WAV, spans cut to
// the sample (resampled ones too), AAC ringtones with the right brand,
// length and timing, and the progress calls that come with them; and
// decoded sound handed to a caller at the rate it asks for.

#include "mediafixtures.h"
#include "renderwatch.h"
#include "testenv.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <deque>

#include <vexa.h>
#include <vexanotify.h>

namespace {

// Posted progress calls, run by hand.
std::mutex g_queueMutex;
std::deque<std::pair<KeloTaskProc, void*>> g_queue;

void queueTask(KeloTaskProc task, void* arg)
{
    std::lock_guard<std::mutex> lock(g_queueMutex);
    g_queue.emplace_back(task, arg);
}

size_t queuedCount()
{
    std::lock_guard<std::mutex> lock(g_queueMutex);
    return g_queue.size();
}

int runQueuedTasks()
{
    std::deque<std::pair<KeloTaskProc, void*>> tasks;
    {
        std::lock_guard<std::mutex> lock(g_queueMutex);
        tasks.swap(g_queue);
    }
    for (const auto& t : tasks)
        t.first(t.second);
    return static_cast<int>(tasks.size());
}

constexpr int kRate = 44100;
constexpr int kAacFrame = 1024;

// The output frame where a millisecond falls, rounded to the nearest.
qint64 frameAt(qint64 ms)
{
    return (ms * 441 + 5) / 10;
}

} // namespace

class TestKeloRun : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir{QDir::tempPath() + "/tw-kelorun-XXXXXX"};
    int m_timeline = 0;
    QString m_mp3, m_flac, m_ogg, m_m4a, m_mp4, m_u8, m_surround, m_unicode;
    QString m_long;   // 60 s of a sine, 44.1 kHz stereo
    QString m_marker; // 20 s of silence with a burst at 12.000 s

    QString make(const QString& name, const QStringList& args)
    {
        const QString path = m_dir.path() + "/" + name;
        QString err;
        if (!tw::ffmpeg(QStringList(args) << path, &err))
            qWarning("fixture %s: %s", qPrintable(name), qPrintable(err));
        return path;
    }

    QString out(const QString& name) const { return m_dir.path() + "/out/" + name; }

    // A ringtone as phones take it: M4A brand, an edit list hiding the
    // priming, AAC-LC 44.1 kHz stereo, as long as asked to within one AAC
    // frame plus `slackMs`.
    static void verifyRingtone(const QString& dest, double expectedMs, double slackMs = 0.0)
    {
        QFile f(dest);
        QVERIFY(f.open(QIODevice::ReadOnly));
        const QByteArray bytes = f.readAll();
        QCOMPARE(bytes.mid(4, 4), QByteArray("ftyp"));
        QCOMPARE(bytes.mid(8, 4), QByteArray("M4A "));
        QVERIFY(bytes.contains("elst")); // the edit list that hides the priming

        const auto stream =
            tw::probeAudio(dest, "stream=codec_name,profile,sample_rate,channels,duration");
        QCOMPARE(stream.value("codec_name"), QString("aac"));
        QCOMPARE(stream.value("profile"), QString("LC"));
        QCOMPARE(stream.value("sample_rate"), QString("44100"));
        QCOMPARE(stream.value("channels"), QString("2"));
        const double ms = stream.value("duration").toDouble() * 1000.0;
        const double frameMs = kAacFrame * 1000.0 / kRate;
        QVERIFY2(std::abs(ms - expectedMs) <= frameMs + slackMs,
                 qPrintable(QString("%1 ms, expected %2 ms").arg(ms).arg(expectedMs)));
        QCOMPARE(tw::probeAudio(dest, "format_tags=major_brand").value("TAG:major_brand"),
                 QString("M4A "));
    }

    // Runs one job to its end and checks that it ended well.
    bool render(const tw::RenderRequest& r, tw::RenderWatch* watch)
    {
        const int rc = tw::startRender(m_timeline, r, watch);
        if (rc != KELO_OK) {
            qWarning("KeloRun refused: %d", rc);
            return false;
        }
        if (!watch->waitEnd()) {
            qWarning("no last call");
            return false;
        }
        const tw::ProgressCall last = watch->last();
        if (last.progress != 10000 || last.status != KELO_OK) {
            qWarning("ended with %d / %d", last.progress, last.status);
            return false;
        }
        return true;
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        QVERIFY(QDir().mkpath(m_dir.path() + "/out"));
        m_timeline = CreateTimelineEx("com.vandrel.tonewright", -1);
        QVERIFY(m_timeline > 0);

        const QString sine = "sine=frequency=440:sample_rate=44100:duration=3";
        m_mp3 = tw::mp3Fixture(5); // with title, artist and album tags
        m_flac = tw::flacFixture(3);
        m_mp4 = tw::mp4AvFixture(3);
        m_ogg = make("tone.ogg", {"-f", "lavfi", "-i", sine, "-ac", "2", "-c:a", "libvorbis"});
        m_m4a = make("tone.m4a",
                     {"-f", "lavfi", "-i", sine, "-ac", "2", "-c:a", "aac", "-b:a", "128k"});
        m_u8 = make("mono 8-bit 22050.wav",
                    {"-f", "lavfi", "-i", "sine=frequency=330:sample_rate=22050:duration=2", "-ac",
                     "1", "-c:a", "pcm_u8"});
        m_surround = make("surround 5.1 48k.wav",
                          {"-f", "lavfi", "-i", "anoisesrc=d=2:r=48000:a=0.3", "-af",
                           "pan=5.1|c0=c0|c1=0.5*c0|c2=0.3*c0|c3=0.1*c0|c4=0.2*c0|c5=0.4*c0",
                           "-c:a", "pcm_s16le"});
        QVERIFY(QDir().mkpath(m_dir.path() + "/Klingeltöne ř"));
        m_unicode = m_dir.path() + "/Klingeltöne ř/Lied für dich.flac";
        QVERIFY(QFile::copy(m_flac, m_unicode));

        m_long = m_dir.path() + "/long 60s.wav";
        QVERIFY(tw::writeWav(m_long, kRate, 2, 16, 60LL * kRate, [](qint64 i, int c) {
            return int(12000 * std::sin(2 * M_PI * (c ? 660 : 440) * double(i) / kRate));
        }));
        m_marker = m_dir.path() + "/marker.wav";
        QVERIFY(tw::writeWav(m_marker, kRate, 2, 16, 20LL * kRate, [](qint64 i, int) {
            const qint64 at = i - 12LL * kRate;
            if (at < 0 || at >= kRate / 10)
                return 0;
            return (at / 20) % 2 ? 16000 : -16000; // a 1102.5 Hz square burst
        }));
        for (const QString& f : {m_mp3, m_flac, m_mp4, m_ogg, m_m4a, m_u8, m_surround})
            QVERIFY2(QFile::exists(f), qPrintable(f));
    }

    void cleanupTestCase() { DestroyTimeline(m_timeline); }

    void shouldConvertAnySourceToCanonicalWav_data()
    {
        QTest::addColumn<QString>("source");
        QTest::addColumn<double>("expectedMs"); // as the fixture was made
        QTest::newRow("mp3 with tags") << m_mp3 << 5000.0;
        QTest::newRow("flac") << m_flac << 3000.0;
        QTest::newRow("ogg vorbis") << m_ogg << 3000.0;
        QTest::newRow("aac in m4a") << m_m4a << 3000.0;
        QTest::newRow("mp4 video with sound") << m_mp4 << 3000.0;
        QTest::newRow("8-bit mono 22050 Hz wav") << m_u8 << 2000.0;
        QTest::newRow("48 kHz 5.1 wav") << m_surround << 2000.0;
        QTest::newRow("non-ascii path") << m_unicode << 3000.0;
    }

    void shouldConvertAnySourceToCanonicalWav()
    {
        QFETCH(QString, source);
        QFETCH(double, expectedMs);
        const QString dest = out(QFileInfo(source).completeBaseName() + " converted.wav");
        tw::RenderWatch watch;
        QVERIFY(render({source, dest}, &watch));

        const QString problem = tw::canonicalWavProblem(dest);
        QVERIFY2(problem.isEmpty(), qPrintable(problem));
        const auto stream = tw::probeAudio(dest, "stream=codec_name,sample_rate,channels");
        QCOMPARE(stream.value("codec_name"), QString("pcm_s16le"));
        QCOMPARE(stream.value("sample_rate"), QString("44100"));
        QCOMPARE(stream.value("channels"), QString("2"));

        const QByteArray pcm = tw::wavData(dest);
        const double ms = pcm.size() / 4 * 1000.0 / kRate;
        QVERIFY2(std::abs(ms - expectedMs) <= 10.0,
                 qPrintable(QString("%1 ms for a %2 ms source").arg(ms).arg(expectedMs)));

        // The same samples as ffmpeg's own decoding and mixing to stereo
        // (ffmpeg keeps the AAC encoder's padding at the end; we cut it).
        const QByteArray reference = tw::decodedPcm(source);
        QVERIFY(pcm.size() <= reference.size());
        QVERIFY(pcm == reference.left(pcm.size()));
        QVERIFY(tw::firstFrameAbove(pcm, 1000) >= 0); // real sound, not silence
    }

    void shouldReportRisingProgressEndingAt10000()
    {
        tw::RenderWatch watch;
        int media = -1;
        const QString dest = out("progress.wav");
        QCOMPARE(tw::startRender(m_timeline, {m_long, dest}, &watch, &media), int(KELO_OK));
        QVERIFY(watch.waitEnd());
        const auto calls = watch.calls();
        QVERIFY(calls.size() > 10);
        QCOMPARE(calls.front().progress, 0);
        QCOMPARE(calls.back().progress, 10000);
        int previous = -1;
        for (const auto& c : calls) {
            QVERIFY(c.progress >= previous);
            QVERIFY(c.progress <= 10000);
            QVERIFY(c.status >= 0);
            QCOMPARE(c.timeline, m_timeline);
            QCOMPARE(c.media, media);
            // Without a dispatcher the calls come from the engine's thread.
            QVERIFY(c.thread != std::this_thread::get_id());
            previous = c.progress;
        }
        // Only the very last call says 10000.
        QVERIFY(calls[calls.size() - 2].progress < 10000);
    }

    void shouldCutWavSpanToTheSample_data()
    {
        QTest::addColumn<qint64>("start");
        QTest::addColumn<qint64>("end");
        QTest::addColumn<qint64>("firstFrame");
        QTest::addColumn<qint64>("frames");
        QTest::newRow("middle") << qint64(10000) << qint64(15000) << 10LL * kRate << 5LL * kRate;
        QTest::newRow("from the start") << qint64(0) << qint64(5000) << 0LL << 5LL * kRate;
        QTest::newRow("odd milliseconds")
            << qint64(11999) << qint64(12101) << frameAt(11999) << frameAt(12101) - frameAt(11999);
        QTest::newRow("open end") << qint64(12500) << qint64(0) << frameAt(12500)
                                  << 20LL * kRate - frameAt(12500);
        QTest::newRow("past the end")
            << qint64(15000) << qint64(25000) << 15LL * kRate << 5LL * kRate;
    }

    void shouldCutWavSpanToTheSample()
    {
        QFETCH(qint64, start);
        QFETCH(qint64, end);
        QFETCH(qint64, firstFrame);
        QFETCH(qint64, frames);
        const QString dest = out(QString("span %1-%2.wav").arg(start).arg(end));
        tw::RenderWatch watch;
        QVERIFY(render({m_marker, dest, "wav", KELO_CODEC_PCM_S16LE, 128000, start, end}, &watch));
        QVERIFY(tw::canonicalWavProblem(dest).isEmpty());
        const QByteArray pcm = tw::wavData(dest);
        QCOMPARE(qint64(pcm.size() / 4), frames);
        QVERIFY(pcm == tw::wavData(m_marker).mid(int(firstFrame * 4), int(frames * 4)));
    }

    void shouldCutCompressedSpansAsTheWholeFileDecodes_data()
    {
        QTest::addColumn<QString>("source");
        QTest::newRow("mp3") << m_mp3;
        QTest::newRow("aac in m4a") << m_m4a;
        QTest::newRow("ogg vorbis") << m_ogg;
        QTest::newRow("flac") << m_flac;
    }

    void shouldCutCompressedSpansAsTheWholeFileDecodes()
    {
        // Seeking lands before the span and decodes into it, so the span
        // holds the very samples that decoding from the top gives there.
        QFETCH(QString, source);
        const QString base = out(QFileInfo(source).suffix());
        tw::RenderWatch whole, span;
        QVERIFY(render({source, base + " whole.wav"}, &whole));
        QVERIFY(render(
            {source, base + " span.wav", "wav", KELO_CODEC_PCM_S16LE, 128000, 1000, 2500}, &span));
        const QByteArray all = tw::wavData(base + " whole.wav");
        const QByteArray cut = tw::wavData(base + " span.wav");
        QCOMPARE(qint64(cut.size() / 4), frameAt(2500) - frameAt(1000));
        const auto* a = reinterpret_cast<const qint16*>(cut.constData());
        const auto* b = reinterpret_cast<const qint16*>(all.constData() + frameAt(1000) * 4);
        int worst = 0;
        for (int i = 0; i < cut.size() / 2; ++i)
            worst = qMax(worst, qAbs(int(a[i]) - int(b[i])));
        QVERIFY2(worst <= 2, qPrintable(QString::number(worst))); // AAC may round differently
    }

    void shouldCutSpansOfOtherRatesOnTheWholeFilesGrid_data()
    {
        QTest::addColumn<QString>("codec");
        QTest::addColumn<int>("rate");
        QTest::newRow("mp3 at 48 kHz") << "libmp3lame" << 48000;
        QTest::newRow("ogg vorbis at 48 kHz") << "libvorbis" << 48000;
        QTest::newRow("mp3 at 22.05 kHz") << "libmp3lame" << 22050;
    }

    void shouldCutSpansOfOtherRatesOnTheWholeFilesGrid()
    {
        // A seek lands anywhere; the span's resampler starts where the whole
        // file's grid of input and output samples meets itself, so even
        // resampled the span holds the very samples of the whole decode.
        QFETCH(QString, codec);
        QFETCH(int, rate);
        const QString name = QString("noise %1 %2").arg(rate).arg(codec);
        const QString source = make(
            name + (codec == "libvorbis" ? ".ogg" : ".mp3"),
            {"-f", "lavfi", "-i",
             QString("anoisesrc=color=pink:duration=20:amplitude=0.3:sample_rate=%1").arg(rate),
             "-ac", "2", "-c:a", codec});
        QVERIFY(!source.isEmpty());
        tw::RenderWatch whole, span;
        QVERIFY(render({source, out(name + " whole.wav")}, &whole));
        QVERIFY(render(
            {source, out(name + " span.wav"), "wav", KELO_CODEC_PCM_S16LE, 128000, 7321, 15000},
            &span));
        const QByteArray all = tw::wavData(out(name + " whole.wav"));
        const QByteArray cut = tw::wavData(out(name + " span.wav"));
        QCOMPARE(qint64(cut.size() / 4), frameAt(15000) - frameAt(7321));
        QVERIFY(cut.count('\0') < cut.size() / 2);
        QVERIFY(cut == all.mid(int(frameAt(7321) * 4), cut.size()));
    }

    void shouldHandDecodedSoundToTheCallerAtTheRateAskedFor()
    {
        // The 60-second sine, at a quarter of its rate in mono: no file is
        // written, the length holds and the level is the sine's.
        struct Heard
        {
            qint64 frames = 0;
            int peak = 0;
            int calls = 0;
        } heard;
        const auto proc = [](const int16_t* samples, int32_t frames, void* user) {
            auto* h = static_cast<Heard*>(user);
            h->frames += frames;
            ++h->calls;
            for (int i = 0; i < frames; ++i)
                h->peak = std::max(h->peak, std::abs(int(samples[i])));
            return true;
        };
        const QStringList before = QDir(m_dir.path()).entryList(QDir::Files);
        const QByteArray path = QFile::encodeName(m_long);
        QCOMPARE(KeloDecodePcm(path.constData(), 0, 0, 11025, 1, proc, &heard), int(KELO_OK));
        QVERIFY2(std::abs(heard.frames - 60 * 11025) <= 64,
                 qPrintable(QString::number(heard.frames)));
        QVERIFY(heard.calls > 1);
        // Left 12000 at 440 Hz and right 12000 at 660 Hz, mixed down to one.
        QVERIFY2(heard.peak > 9000 && heard.peak <= 12100, qPrintable(QString::number(heard.peak)));
        QCOMPARE(QDir(m_dir.path()).entryList(QDir::Files), before);

        // A span, stereo at the render rate.
        Heard span;
        QCOMPARE(KeloDecodePcm(path.constData(), 10000, 12500, kRate, 2, proc, &span),
                 int(KELO_OK));
        QCOMPARE(span.frames, frameAt(12500) - frameAt(10000));
    }

    void shouldStopDecodingWhenTheCallerSaysSo()
    {
        int calls = 0;
        const auto stop = [](const int16_t*, int32_t, void* user) {
            return ++*static_cast<int*>(user) < 2;
        };
        const QByteArray path = QFile::encodeName(m_long);
        QCOMPARE(KeloDecodePcm(path.constData(), 0, 0, kRate, 2, stop, &calls),
                 int(KELO_E_CANCELLED));
        QCOMPARE(calls, 2);
    }

    void shouldRefuseADecodeItCannotDo()
    {
        const auto none = [](const int16_t*, int32_t, void*) { return true; };
        const QByteArray path = QFile::encodeName(m_long);
        QCOMPARE(KeloDecodePcm(nullptr, 0, 0, kRate, 2, none, nullptr), int(KELO_E_ARGUMENT));
        QCOMPARE(KeloDecodePcm(path.constData(), 0, 0, kRate, 2, nullptr, nullptr),
                 int(KELO_E_ARGUMENT));
        QCOMPARE(KeloDecodePcm(path.constData(), 0, 0, 999, 2, none, nullptr),
                 int(KELO_E_ARGUMENT));
        QCOMPARE(KeloDecodePcm(path.constData(), 0, 0, kRate, 3, none, nullptr),
                 int(KELO_E_ARGUMENT));
        const QByteArray text = QFile::encodeName(tw::textFixture());
        QCOMPARE(KeloDecodePcm(text.constData(), 0, 0, kRate, 2, none, nullptr), int(KELO_E_OPEN));
        const QByteArray missing = QFile::encodeName(m_dir.path() + "/missing.mp3");
        QVERIFY(KeloDecodePcm(missing.constData(), 0, 0, kRate, 2, none, nullptr) < 0);
    }

    void shouldEndSixtySecondFileSpanAtItsEnd()
    {
        const QString dest = out("30000-70000.wav");
        tw::RenderWatch watch;
        QVERIFY(render({m_long, dest, "wav", KELO_CODEC_PCM_S16LE, 128000, 30000, 70000}, &watch));
        const QByteArray pcm = tw::wavData(dest);
        QCOMPARE(pcm.size(), 30 * kRate * 4);
        QVERIFY(pcm == tw::wavData(m_long).mid(30 * kRate * 4));
    }

    void shouldExportAacRingtone_data()
    {
        QTest::addColumn<qint64>("start");
        QTest::addColumn<qint64>("end");
        QTest::addColumn<int>("bitRate");
        QTest::addColumn<double>("expectedMs");
        QTest::newRow("10 s at 128k") << qint64(20000) << qint64(30000) << 128000 << 10000.0;
        QTest::newRow("10 s at 64k") << qint64(20000) << qint64(30000) << 64000 << 10000.0;
        QTest::newRow("30000-70000 of 60 s") << qint64(30000) << qint64(70000) << 128000 << 30000.0;
    }

    void shouldExportAacRingtone()
    {
        QFETCH(qint64, start);
        QFETCH(qint64, end);
        QFETCH(int, bitRate);
        QFETCH(double, expectedMs);
        const QString dest = out(QString("ringtone %1 %2.m4r").arg(start).arg(bitRate));
        tw::RenderWatch watch;
        QVERIFY(render({m_long, dest, "mp4", KELO_CODEC_AAC, bitRate, start, end}, &watch));
        verifyRingtone(dest, expectedMs);
        if (QTest::currentTestFailed())
            return;
        const double rate = tw::probeAudio(dest, "stream=bit_rate").value("bit_rate").toDouble();
        QVERIFY2(rate > bitRate * 0.85 && rate < bitRate * 1.15, qPrintable(QString::number(rate)));
    }

    void shouldExportAacRingtoneFromAnySource_data()
    {
        QTest::addColumn<QString>("source");
        QTest::addColumn<qint64>("start");
        QTest::addColumn<qint64>("end");
        QTest::addColumn<double>("expectedMs");
        QTest::addColumn<double>("slackMs"); // beyond one AAC frame
        QTest::newRow("mp3 1000-4000") << m_mp3 << qint64(1000) << qint64(4000) << 3000.0 << 0.0;
        QTest::newRow("ogg vorbis 1000-2500")
            << m_ogg << qint64(1000) << qint64(2500) << 1500.0 << 0.0;
        QTest::newRow("48 kHz 5.1 wav 500-1500")
            << m_surround << qint64(500) << qint64(1500) << 1000.0 << 0.0;
        QTest::newRow("mp4 video with sound 1000-2500")
            << m_mp4 << qint64(1000) << qint64(2500) << 1500.0 << 0.0;
        QTest::newRow("8-bit mono 22050 Hz wav 500-1500")
            << m_u8 << qint64(500) << qint64(1500) << 1000.0 << 0.0;
        // The whole file: as long as the source, which decodes to within
        // 10 ms of the length it was made with.
        QTest::newRow("mp3 whole file") << m_mp3 << qint64(0) << qint64(0) << 5000.0 << 10.0;
    }

    void shouldExportAacRingtoneFromAnySource()
    {
        QFETCH(QString, source);
        QFETCH(qint64, start);
        QFETCH(qint64, end);
        QFETCH(double, expectedMs);
        QFETCH(double, slackMs);
        const QString dest = out(
            QString("%1 %2-%3.m4r").arg(QFileInfo(source).completeBaseName()).arg(start).arg(end));
        tw::RenderWatch watch;
        QVERIFY(render({source, dest, "mp4", KELO_CODEC_AAC, 128000, start, end}, &watch));
        verifyRingtone(dest, expectedMs, slackMs);
        if (QTest::currentTestFailed())
            return;
        // Real sound came through, not silence.
        QVERIFY(tw::firstFrameAbove(tw::decodedPcm(dest), 1000) >= 0);
    }

    void shouldWriteEachEncodedKindWithItsTags_data()
    {
        QTest::addColumn<QByteArray>("format");
        QTest::addColumn<int>("codec");
        QTest::addColumn<QString>("extension");
        QTest::addColumn<QString>("codecName");
        QTest::addColumn<QString>("container");
        QTest::addColumn<int>("frame"); // samples in one of the codec's frames
        QTest::newRow("AAC in MPEG-4") << QByteArray("mp4") << int(KELO_CODEC_AAC) << "m4a"
                                       << "aac"
                                       << "mov,mp4,m4a,3gp,3g2,mj2" << 1024;
        QTest::newRow("Vorbis in Ogg") << QByteArray("ogg") << int(KELO_CODEC_VORBIS) << "ogg"
                                       << "vorbis"
                                       << "ogg" << 2048;
        QTest::newRow("MP3") << QByteArray("mp3") << int(KELO_CODEC_MP3) << "mp3"
                             << "mp3"
                             << "mp3" << 1152;
    }

    void shouldWriteEachEncodedKindWithItsTags()
    {
        QFETCH(QByteArray, format);
        QFETCH(int, codec);
        QFETCH(QString, extension);
        QFETCH(QString, codecName);
        QFETCH(QString, container);
        QFETCH(int, frame);
        const QString dest = out("tagged." + extension);
        tw::RenderWatch watch;
        tw::RenderRequest request{m_long, dest, format, codec, 128000, 20000, 30000};
        request.title = QString::fromUtf8("Glöckchen ♪").toUtf8();
        request.artist = "Tonewright Tests";
        QVERIFY(render(request, &watch));
        const auto stream = tw::probeAudio(dest, "stream=codec_name,sample_rate,channels");
        QCOMPARE(stream.value("codec_name"), codecName);
        QCOMPARE(stream.value("sample_rate"), QString("44100"));
        QCOMPARE(stream.value("channels"), QString("2"));
        QCOMPARE(tw::probeAudio(dest, "format=format_name").value("format_name"), container);
        // The decoded sound is the span, to within one of the codec's frames.
        const QByteArray pcm = tw::decodedPcm(dest);
        const double ms = pcm.size() / 4 * 1000.0 / kRate;
        QVERIFY2(std::abs(ms - 10000.0) <= frame * 1000.0 / kRate, qPrintable(QString::number(ms)));
        QVERIFY(tw::firstFrameAbove(pcm, 1000) >= 0);
        // The tags, wherever the container keeps them.
        const QString tags =
            tw::ffprobe({"-show_entries", "format_tags=title,artist:stream_tags=title,artist",
                         "-of", "default=nw=1", dest});
        QVERIFY2(tags.contains(QString::fromUtf8("title=Glöckchen ♪")), qPrintable(tags));
        QVERIFY2(tags.contains("artist=Tonewright Tests"), qPrintable(tags));
    }

    void shouldTakeTheSourcesArtistWhenNoneIsGiven()
    {
        const QString dest = out("own artist.ogg");
        tw::RenderWatch watch;
        tw::RenderRequest request{m_mp3, dest, "ogg", KELO_CODEC_VORBIS, 128000, 1000, 4000};
        request.title = "Just A Title";
        QVERIFY(render(request, &watch));
        const QString tags =
            tw::ffprobe({"-show_entries", "format_tags=title,artist:stream_tags=title,artist",
                         "-of", "default=nw=1", dest});
        QVERIFY2(tags.contains("title=Just A Title"), qPrintable(tags));
        QVERIFY2(tags.contains("artist=Tonewright"), qPrintable(tags)); // the mp3's own
    }

    void shouldRefuseACodecTheContainerDoesNotTake()
    {
        tw::RenderWatch watch;
        QCOMPARE(
            tw::startRender(m_timeline, {m_flac, out("wrong.ogg"), "ogg", KELO_CODEC_MP3}, &watch),
            int(KELO_E_CODEC));
        QCOMPARE(
            tw::startRender(m_timeline, {m_flac, out("wrong.mp3"), "mp3", KELO_CODEC_AAC}, &watch),
            int(KELO_E_CODEC));
        QCOMPARE(
            tw::startRender(m_timeline, {m_flac, out("wrong.xyz"), "xyz", KELO_CODEC_AAC}, &watch),
            int(KELO_E_CODEC));
        QVERIFY(!QFile::exists(out("wrong.ogg")));
        QCOMPARE(KeloSetMediaTags(m_timeline, 99999, "t", "a"), int(KELO_E_HANDLE));
        QCOMPARE(KeloSetMediaTags(-5, 0, "t", "a"), int(KELO_E_HANDLE));
    }

    void shouldStartRingtoneOnTime()
    {
        // The burst is at 12.000 s; a span from 10.000 s must have it at 2.000 s.
        const QString dest = out("marker.m4r");
        tw::RenderWatch watch;
        QVERIFY(render({m_marker, dest, "mp4", KELO_CODEC_AAC, 128000, 10000, 20000}, &watch));
        const QByteArray pcm = tw::decodedPcm(dest);
        const qint64 onset = tw::firstFrameAbove(pcm, 8000);
        QVERIFY2(std::abs(onset - 2LL * kRate) <= kAacFrame, qPrintable(QString::number(onset)));
        QVERIFY(pcm.size() / 4 >= 10LL * kRate - kAacFrame);
    }

    void shouldHandProgressCallsToTheDispatcher()
    {
        KeloSetNotifyDispatcher(&queueTask);
        tw::RenderWatch watch;
        const QString dest = out("dispatched.wav");
        const int rc = tw::startRender(m_timeline, {m_flac, dest}, &watch);
        KeloSetNotifyDispatcher(nullptr);
        QCOMPARE(rc, int(KELO_OK));
        // The job ends without calling anybody: its calls wait in the queue.
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(dest), 30000);
        QTest::qWait(50);
        QCOMPARE(watch.count(), 0);
        QVERIFY(runQueuedTasks() >= 2);
        const auto calls = watch.calls();
        QCOMPARE(calls.front().progress, 0);
        QCOMPARE(calls.back().progress, 10000);
        for (const auto& c : calls)
            QVERIFY(c.thread == std::this_thread::get_id());
    }

    void shouldFreePostedCallsThatNeverRun()
    {
        const int timeline = CreateTimelineEx("discard", -1);
        KeloSetNotifyDispatcher(&queueTask);
        tw::RenderWatch watch;
        const QString dest = out("discarded.wav");
        const int rc = tw::startRender(timeline, {m_flac, dest}, &watch);
        KeloSetNotifyDispatcher(nullptr);
        QCOMPARE(rc, int(KELO_OK));
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(dest), 30000);
        // Once the timeline is gone, its job posts nothing more.
        QCOMPARE(DestroyTimeline(timeline), int(KELO_OK));
        // A loop that ends with the calls still waiting hands them back:
        // nobody is called, and (as the sanitizer build's leak checker sees)
        // nothing stays allocated.
        std::deque<std::pair<KeloTaskProc, void*>> tasks;
        {
            std::lock_guard<std::mutex> lock(g_queueMutex);
            tasks.swap(g_queue);
        }
        QVERIFY(!tasks.empty());
        for (const auto& t : tasks)
            KeloDiscardTask(t.first, t.second);
        QCOMPARE(watch.count(), 0);
    }

    void shouldDropPostedCallsOfACancelledJob()
    {
        const int timeline = CreateTimelineEx("cancel", -1);
        KeloSetNotifyDispatcher(&queueTask);
        tw::RenderWatch watch;
        const QString dest = out("cancelled.m4r");
        const int rc =
            tw::startRender(timeline, {m_long, dest, "mp4", KELO_CODEC_AAC, 128000}, &watch);
        KeloSetNotifyDispatcher(nullptr);
        QCOMPARE(rc, int(KELO_OK));
        QTRY_VERIFY_WITH_TIMEOUT(queuedCount() >= 2, 30000);
        QCOMPARE(DestroyTimeline(timeline), int(KELO_OK));
        runQueuedTasks();
        QCOMPARE(watch.count(), 0);
        QVERIFY(!QFile::exists(dest));
    }
};

TW_TEST_MAIN(TestKeloRun)
#include "tst_kelorun.moc"
