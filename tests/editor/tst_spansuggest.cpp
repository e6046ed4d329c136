// The editor's best-part proposals off the GUI thread: the worker reads the
// temporary WAV and delivers what the analysis finds on the spot; the
// proposals cycle best, second, third, best; a newer song's start drops an
// older one's result; clearing leaves nothing to take; a sound too short for
// a ringtone gets none; a source decoded straight into the analysis (no
// WAV) gives the WAV's best part and its length.

#include "editor/spansuggest.h"
#include "editor/wavemodel.h"
#include "editor/waveplayback.h"
#include "sectionsong.h"
#include "testenv.h"

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <atomic>
#include <cmath>
#include <cstdlib>

namespace {

// A WAV's layout as the engine reads it when the editor opens its temporary
// WAV; the engine is closed again (it holds one record at a time).
struct OpenWave
{
    tagWaveInfo layout{};
    bool open(const QString& path)
    {
        CWaveModel model;
        CWavePlayback playback{model};
        if (playback.open(path) != 0)
            return false;
        layout = playback.record();
        playback.release();
        return layout.frameCount > 0;
    }
};

bool writeTone(const QString& path, double seconds)
{
    return tw::writeWav(path, 44100, 2, 16, qint64(seconds * 44100), [](qint64 f, int) {
        return int(std::lround(8000.0 * std::sin(2.0 * M_PI * 440.0 * double(f) / 44100.0)));
    });
}

bool sameSpans(const std::vector<SpanProposal>& a, const std::vector<SpanProposal>& b)
{
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (a[i].beginMs != b[i].beginMs || a[i].endMs != b[i].endMs)
            return false;
    return true;
}

} // namespace

class TestSpanSuggest : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QString m_song;  // the section song, 3 minutes
    QString m_tone;  // 50 s of one tone
    QString m_short; // 4 s

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        m_song = m_dir.filePath("sections.wav");
        m_tone = m_dir.filePath("tone.wav");
        m_short = m_dir.filePath("short.wav");
        QVERIFY(tw::writeSectionSong(m_song, 44100, 2));
        QVERIFY(writeTone(m_tone, 50.0));
        QVERIFY(writeTone(m_short, 4.0));
    }

    void shouldDeliverWhatTheAnalysisFinds()
    {
        OpenWave wave;
        QVERIFY(wave.open(m_song));
        const std::vector<SpanProposal> expected =
            CSpanSuggest::analyse(m_song, wave.layout, kSuggestionLengthMs);
        QCOMPARE(int(expected.size()), kSuggestionCount);

        CSpanSuggest suggest;
        QSignalSpy ready(&suggest, &CSpanSuggest::ready);
        suggest.start(m_song, wave.layout, kSuggestionLengthMs);
        QVERIFY(!suggest.isReady()); // the answer comes through the event loop
        QTRY_COMPARE_WITH_TIMEOUT(ready.count(), 1, 20000);
        QVERIFY(suggest.isReady());
        QVERIFY(sameSpans(suggest.proposals(), expected));
        // The first lies in a chorus of the song.
        bool inChorus = false;
        for (const tw::SongSection& c : tw::sectionSongChoruses())
            inChorus = inChorus || (expected.front().beginMs >= c.begin * 1000 - 500 &&
                                    expected.front().endMs <= c.end * 1000 + 500);
        QVERIFY(inChorus);
    }

    void shouldCycleThroughTheProposals()
    {
        OpenWave wave;
        QVERIFY(wave.open(m_song));
        CSpanSuggest suggest;
        SpanProposal p;
        QVERIFY(!suggest.next(&p)); // nothing yet
        QSignalSpy ready(&suggest, &CSpanSuggest::ready);
        suggest.start(m_song, wave.layout, kSuggestionLengthMs);
        QTRY_COMPARE_WITH_TIMEOUT(ready.count(), 1, 20000);
        const std::vector<SpanProposal> all = suggest.proposals();
        QCOMPARE(int(all.size()), 3);
        for (int i : {0, 1, 2, 0, 1}) {
            QVERIFY(suggest.next(&p));
            QCOMPARE(p.beginMs, all[std::size_t(i)].beginMs);
            QCOMPARE(p.endMs, all[std::size_t(i)].endMs);
        }
    }

    void shouldDropTheResultOfAnOlderStart()
    {
        OpenWave song;
        OpenWave tone;
        QVERIFY(song.open(m_song));
        QVERIFY(tone.open(m_tone));
        CSpanSuggest suggest;
        QSignalSpy ready(&suggest, &CSpanSuggest::ready);
        suggest.start(m_song, song.layout, kSuggestionLengthMs);
        suggest.start(m_tone, tone.layout, 20000);
        QTRY_COMPARE_WITH_TIMEOUT(ready.count(), 1, 20000);
        // The older worker was joined before the newer began, so whatever it
        // posted came first and was dropped: the one signal is the tone's.
        QVERIFY(!suggest.proposals().empty());
        for (const SpanProposal& p : suggest.proposals()) {
            QCOMPARE(p.endMs - p.beginMs, 20000LL);
            QVERIFY(p.endMs <= 50000);
        }
    }

    void shouldLeaveNothingOnceCleared()
    {
        OpenWave wave;
        QVERIFY(wave.open(m_song));
        CSpanSuggest suggest;
        QSignalSpy ready(&suggest, &CSpanSuggest::ready);
        suggest.start(m_song, wave.layout, kSuggestionLengthMs);
        QTRY_COMPARE_WITH_TIMEOUT(ready.count(), 1, 20000);
        suggest.clear();
        QVERIFY(!suggest.isReady());
        QVERIFY(suggest.proposals().empty());
        SpanProposal p;
        QVERIFY(!suggest.next(&p));
        // Clearing while the worker runs returns and nothing is delivered for
        // it afterwards: a new start is answered with its own result.
        OpenWave tone;
        QVERIFY(tone.open(m_tone));
        suggest.start(m_song, wave.layout, kSuggestionLengthMs);
        suggest.clear();
        suggest.start(m_tone, tone.layout, kSuggestionLengthMs);
        QTRY_COMPARE_WITH_TIMEOUT(ready.count(), 2, 20000);
        QVERIFY(!suggest.proposals().empty());
        for (const SpanProposal& one : suggest.proposals())
            QVERIFY(one.endMs <= 50000); // the tone's, not the song's
    }

    void shouldFindNoneForASoundTooShort()
    {
        OpenWave wave;
        QVERIFY(wave.open(m_short));
        CSpanSuggest suggest;
        QSignalSpy ready(&suggest, &CSpanSuggest::ready);
        suggest.start(m_short, wave.layout, kSuggestionLengthMs);
        QTRY_COMPARE_WITH_TIMEOUT(ready.count(), 1, 20000);
        QVERIFY(suggest.isReady());
        QVERIFY(suggest.proposals().empty());
        SpanProposal p;
        QVERIFY(!suggest.next(&p));
    }

    void shouldFindTheBestPartDecodingASourceStraightIntoTheAnalysis()
    {
        // The song as an MP3, decoded at the analysis rate with no WAV: the
        // same chorus as the WAV's analysis, within a feature frame or two
        // (the decoder's resampler low-passes where the WAV's reading
        // averages), and the song's length.
        OpenWave wave;
        QVERIFY(wave.open(m_song));
        const std::vector<SpanProposal> fromWave =
            CSpanSuggest::analyse(m_song, wave.layout, kSuggestionLengthMs);
        QVERIFY(!fromWave.empty());
        const QString mp3 = m_dir.filePath("sections.mp3");
        QVERIFY(tw::ffmpeg({"-i", m_song, "-c:a", "libmp3lame", "-b:a", "192k", mp3}));
        const QStringList before = QDir(m_dir.path()).entryList(QDir::Files);
        long long durationMs = 0;
        const std::vector<SpanProposal> fromSource =
            CSpanSuggest::analyseSource(mp3, kSuggestionLengthMs, &durationMs);
        QCOMPARE(QDir(m_dir.path()).entryList(QDir::Files), before);
        QCOMPARE(int(fromSource.size()), kSuggestionCount);
        QVERIFY2(std::abs(durationMs - 180000) < 100, qPrintable(QString::number(durationMs)));
        const long long apart = std::abs(fromSource.front().beginMs - fromWave.front().beginMs);
        QVERIFY2(apart <= 1000, qPrintable(QString("%1 ms against %2 ms")
                                               .arg(fromSource.front().beginMs)
                                               .arg(fromWave.front().beginMs)));
        QCOMPARE(fromSource.front().endMs - fromSource.front().beginMs, kSuggestionLengthMs);
    }

    void shouldFindNothingInASourceThatCannotBeDecoded()
    {
        long long durationMs = -1;
        QVERIFY(CSpanSuggest::analyseSource(m_dir.filePath("gone.mp3"), kSuggestionLengthMs,
                                            &durationMs)
                    .empty());
        QCOMPARE(durationMs, 0LL);
        std::atomic<bool> cancel{true};
        QVERIFY(CSpanSuggest::analyseSource(m_song, kSuggestionLengthMs, nullptr, &cancel).empty());
    }

    void shouldFindNothingInAFileThatCannotBeRead()
    {
        OpenWave wave;
        QVERIFY(wave.open(m_tone));
        QVERIFY(CSpanSuggest::analyse(m_dir.filePath("gone.wav"), wave.layout, kSuggestionLengthMs)
                    .empty());
    }
};

TW_TEST_MAIN(TestSpanSuggest)
#include "tst_spansuggest.moc"
