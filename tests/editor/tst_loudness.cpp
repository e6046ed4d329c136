// The editor's loudness: the export writes the selection through one
// render (fades as the engine writes them, then the gain and the limiter),
// which leaves a plain export's audio exactly as it was; the volume reaches
// the whole span with or without fades; the selection's figures are worked
// out off the GUI thread, stale ones dropped; preview plays the gain the
// export writes.

#include "audio/loudnessmeter.h"
#include "audio/wavehelper.h"
#include "audio/wavehelper_p.h"
#include "editor/ringtoneexport.h"
#include "editor/selectionlevels.h"
#include "editor/spanrender.h"
#include "editor/waveio.h"
#include "editor/wavemodel.h"
#include "editor/waveplayback.h"
#include "editor/wavewnd.h"
#include "engine/convertwraper.h"
#include "engine/progresswait.h"
#include "loudsongs.h"
#include "mediafixtures.h"
#include "tests/audio/audiotestsupport.h"
#include "tests/cli/clirun.h"
#include "wavewndfixture.h"

#include <QFile>
#include <QSignalSpy>
#include <QTest>

#include <cmath>
#include <cstring>

namespace {

// The editor's parts wired as the window wires them, on one song, exporting
// only (no library, no reload).
struct Editor
{
    CWaveModel model;
    CWavePlayback playback{model};
    CWaveIo io{playback, nullptr};
    CRingtoneExport ringtone{model, playback, io};

    bool open(const QString& song)
    {
        model.setViewWidth(400);
        CRingToneNode node;
        node.strPath = song;
        io.setNode(node);
        if (io.convertToWave(song) != 1 || playback.open(io.getWavePath()) != 0)
            return false;
        model.load(playback.record().frameCount, playback.record().sampleRate);
        ringtone.setExportOnly(true);
        return true;
    }
    ~Editor() { QFile::remove(io.getWavePath()); }
};

} // namespace

class TestLoudness : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QString m_song; // the synthetic song at -20 LUFS

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        m_song = tw::songAtLoudness(-20.0);
        QVERIFY(!m_song.isEmpty());
    }

    // The export as it was: the engine writes the fades into the temporary
    // WAV when it closes, and the span of that WAV is encoded. The one
    // render must give the encoder the very same samples.
    void shouldWriteAPlainExportExactlyAsBefore()
    {
        Editor e;
        QVERIFY(e.open(m_song));
        e.model.setSelection(12300, 41700);
        e.playback.enableFadeIn(true);
        e.playback.setFadeInLength(3);
        e.playback.enableFadeOut(true);
        e.playback.setFadeOutLength(4);

        // The old way, on a copy of the temporary WAV taken before the
        // export (closing the engine writes the fades into its own).
        const QString copy = m_dir.filePath("old way.wav");
        QVERIFY(QFile::copy(e.io.getWavePath(), copy));
        const QString now = m_dir.filePath("now.m4r");
        QCOMPARE(e.ringtone.exportTo(now), 0);
        QVERIFY(!e.playback.isOpen());
        {
            audiotest::WaveGuard old;
            QCOMPARE(WaveHelperInit(QFile::encodeName(copy).constData(), &old.w), 0);
            WaveHelperFadeIn(&old.w, 12, 3);
            WaveHelperFadeOut(&old.w, 41 - 4, 4);
            WaveHelperUninit(&old.w);
        }
        const QString before = m_dir.filePath("before.m4r");
        CProgressWait wait;
        QVERIFY(CConvertWraper::instance()->convertTo(
                    QFile::encodeName(copy).constData(), QFile::encodeName(before).constData(),
                    "mp4", KELO_CODEC_AAC, 128000, &wait, 12300, 41700) >= 0);
        QCOMPARE(wait.start(1.0f, 0.0f, true), 1);

        const QByteArray a = twcli::decodePcm(before);
        const QByteArray b = twcli::decodePcm(now);
        QVERIFY(a.size() > 44100 * 4 * 25);
        QCOMPARE(b.size(), a.size());
        QVERIFY(a == b);
        // No gain: nothing was measured, nothing rendered twice.
        QVERIFY(!e.ringtone.writtenLevels().measured);
    }

    void shouldApplyTheVolumeToTheWholeSpanWithoutFades()
    {
        Editor plain;
        QVERIFY(plain.open(m_song));
        plain.model.setSelection(10000, 30000);
        const QString ref = m_dir.filePath("volume 100.m4r");
        QCOMPARE(plain.ringtone.exportTo(ref), 0);

        Editor quieter;
        QVERIFY(quieter.open(m_song));
        quieter.model.setSelection(10000, 30000);
        quieter.playback.setVolume(50);
        const QString half = m_dir.filePath("volume 50.m4r");
        QCOMPARE(quieter.ringtone.exportTo(half), 0);

        const QByteArray a = twcli::decodePcm(ref);
        const QByteArray b = twcli::decodePcm(half);
        // Everywhere in the span, the first second and the last as well.
        for (const auto& [from, to] : {std::pair{0, 1000}, {9000, 11000}, {19000, 19900}}) {
            const double ratio = twcli::rms(b, from, to) / twcli::rms(a, from, to);
            QVERIFY2(std::fabs(ratio - 0.5) < 0.02,
                     qPrintable(QString("%1..%2 ms: %3").arg(from).arg(to).arg(ratio)));
        }
    }

    void shouldBringTheSelectionToTheTargetBeforeEncoding_data()
    {
        QTest::addColumn<double>("target");
        QTest::newRow("standard") << normalizeTarget(Normalize::Standard);
        QTest::newRow("loud") << normalizeTarget(Normalize::Loud);
    }

    void shouldBringTheSelectionToTheTargetBeforeEncoding()
    {
        QFETCH(double, target);
        Editor e;
        QVERIFY(e.open(tw::songAtLoudness(-30.0)));
        e.model.setSelection(5000, 35000);
        CSpanRender span;
        QVERIFY(span.read(spanLayout(e.playback.record()), e.io.getWavePath(), 5000, 35000));
        QCOMPARE(span.frames(), 30LL * 44100);
        QCOMPARE(span.firstFrame(), 5LL * 44100);
        LoudnessSettings settings;
        settings.targetLufs = target;
        const SpanLevels levels = span.levels(settings);
        QVERIFY2(std::fabs(levels.lufs - target) < 0.1, qPrintable(QString::number(levels.lufs)));
        QVERIFY2(levels.truePeak <= kLimiterCeilingDbtp + 0.05,
                 qPrintable(QString::number(levels.truePeak)));
        QVERIFY(levels.gain > 1.0f);
        // The written WAV holds exactly the rendered samples.
        const QString wav = m_dir.filePath("rendered.wav");
        QVERIFY(span.writeWave(wav, levels));
        const std::vector<short> rendered = span.rendered(levels);
        QFile f(wav);
        QVERIFY(f.open(QIODevice::ReadOnly));
        const QByteArray bytes = f.readAll();
        QCOMPARE(bytes.size(), qsizetype(44 + rendered.size() * 2));
        QVERIFY(std::memcmp(bytes.constData() + 44, rendered.data(), rendered.size() * 2) == 0);
        QCOMPARE(tw::ffprobe({"-show_entries", "stream=sample_rate,channels", "-of",
                              "default=nw=1:nk=1", wav})
                     .split('\n', Qt::SkipEmptyParts),
                 QStringList({"44100", "2"}));
    }

    void shouldKeepASilentSelectionAsItIs()
    {
        const QString silence = m_dir.filePath("silence.wav");
        QVERIFY(tw::writeWav(silence, 44100, 2, 16, 44100 * 10, [](qint64, int) { return 0; }));
        Editor e;
        QVERIFY(e.open(silence));
        CSpanRender span;
        QVERIFY(span.read(spanLayout(e.playback.record()), e.io.getWavePath(), 0, 8000));
        LoudnessSettings settings;
        settings.targetLufs = kLoudLufs;
        const SpanLevels levels = span.levels(settings);
        QVERIFY(levels.isIdentity());
        QVERIFY(std::isinf(levels.lufs));
    }

    void shouldReadMonoAndOtherRates()
    {
        // A mono 48 kHz record (the engine plays any such WAV).
        const QString mono = twed::makeSine(m_dir, "mono48.wav", 48000, 1, 16, 8.0, 0.1);
        audiotest::WaveGuard g;
        QCOMPARE(WaveHelperInit(QFile::encodeName(mono).constData(), &g.w), 0);
        CSpanRender span;
        QVERIFY(span.read(spanLayout(g.w), mono, 1000, 7000));
        QCOMPARE(span.channels(), 1);
        QCOMPARE(span.sampleRate(), 48000);
        QCOMPARE(span.frames(), 6LL * 48000);
        LoudnessSettings settings;
        settings.volume = 200;
        const SpanLevels levels = span.levels(settings);
        // A sine at 0.1 of full scale, doubled: about -14 dBFS peak, no limiting.
        QVERIFY(levels.envelope.empty());
        QCOMPARE(levels.gain, 2.0f);
        QVERIFY(std::fabs(levels.truePeak - CLoudnessMeter::toDb(0.2)) < 0.1);
        // Nothing to read: an empty span, or one past the end.
        QVERIFY(!span.read(spanLayout(g.w), mono, 3000, 3000));
        QVERIFY(!span.read(spanLayout(g.w), mono, 9000, 12000));
        QCOMPARE(span.frames(), 0LL);
    }

    void shouldDropStaleResults()
    {
        Editor e;
        QVERIFY(e.open(m_song));
        CSelectionLevels levels;
        QSignalSpy measuring(&levels, &CSelectionLevels::measuring);
        QSignalSpy measured(&levels, &CSelectionLevels::measured);
        LevelsRequest request;
        request.path = e.io.getWavePath();
        request.wave = e.playback.exportLayout();
        request.beginMs = 0;
        request.endMs = 30000;
        request.settings.volume = 50;
        levels.request(request);
        QVERIFY(levels.isBusy());
        QVERIFY(!levels.current());
        request.settings.volume = 25;
        levels.request(request); // before the first could be delivered
        QCOMPARE(measuring.count(), 2);
        QTRY_COMPARE_WITH_TIMEOUT(measured.count(), 1, 20000);
        // Only the latest request's figures ever arrive.
        QVERIFY(!levels.isBusy());
        QVERIFY(levels.current());
        QCOMPARE(levels.current()->gain, 0.25f);
        // The same request again is not worked out again.
        levels.request(request);
        QCOMPARE(measuring.count(), 2);
        QVERIFY(levels.current());
        // Cleared: no figures.
        levels.clear();
        QVERIFY(!levels.current());
    }

    void shouldShowTheFiguresOfTheSettingsAndPreviewWhatIsWritten()
    {
        CWaveWnd w;
        w.resize(600, 200);
        Editor source;
        QVERIFY(source.open(m_song));
        QCOMPARE(twed::load(w, source.io.getWavePath()), 0);
        QSignalSpy figures(&w, &CWaveWnd::loudnessChange);
        w.setBeginTime(10000LL);
        w.setEndTime(30000LL);
        w.setLoudnessTarget(kLoudLufs);
        // NaN first (stale figures go), then the figures of the latest settings.
        QVERIFY(figures.count() >= 1);
        QVERIFY(std::isnan(figures.first().at(0).toDouble()));
        QTRY_VERIFY_WITH_TIMEOUT(!std::isnan(figures.last().at(0).toDouble()), 20000);
        const double lufs = figures.last().at(0).toDouble();
        QVERIFY2(std::fabs(lufs - kLoudLufs) < 0.1, qPrintable(QString::number(lufs)));
        QVERIFY2(figures.last().at(1).toDouble() <= kLimiterCeilingDbtp + 0.05,
                 qPrintable(QString::number(figures.last().at(1).toDouble())));

        // Preview plays the selection with the export's gain: the engine's
        // callback gives exactly the samples the render writes.
        const SpanLevels* levels = w.playback().previewLevels();
        QVERIFY(levels && !levels->isIdentity());
        w.preview();
        QVERIFY(w.playback().record().gain != nullptr);
        w.pause();
        CSpanRender span;
        QVERIFY(span.read(w.playback().exportLayout(), source.io.getWavePath(), 10000, 30000));
        const std::vector<short> written = span.rendered(*levels);
        QCOMPARE(WaveHelperSetPos(&w.playback().record(), 10000), 0);
        // SetPos lands a little early (44 frames a ms): read from there.
        const long long first = (std::ftell(w.playback().record().playFile) - 44) / 4;
        std::vector<unsigned char> heard(4096 * 4);
        AudioPlayCallbackFunc(&w.playback().record(), heard.data(), int(heard.size()));
        const long long offset = span.firstFrame() - first;
        QVERIFY(offset >= 0 && offset < 4096);
        for (long long f = offset; f < 4096; ++f) {
            for (int c = 0; c < 2; ++c) {
                const std::size_t i = std::size_t(f * 2 + c);
                const short played = short(heard[2 * i] | (heard[2 * i + 1] << 8));
                if (played != written[std::size_t((f - offset) * 2 + c)])
                    QFAIL(qPrintable(QString("frame %1 differs").arg(f)));
            }
        }
        // Normal play plays the song as it is, with the volume only.
        w.play();
        QVERIFY(w.playback().record().gain == nullptr);
        w.stop();
        // A closed editor has no figures.
        w.closeWave();
        QVERIFY(!w.selectionLevels().current());
    }
};

TW_TEST_MAIN(TestLoudness)
#include "tst_loudness.moc"
