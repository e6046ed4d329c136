// The best-part analysis without a window: CSpanFeatures hears pitch and
// level at any rate and channel count, and CSpanFinder proposes a chorus of
// a song assembled from known sections, holds the length to the song and
// the 5-second minimum, keeps its proposals apart, and copes with silence
// and sounds too short for a window.

#include "editor/spanfeatures.h"
#include "editor/spanfinder.h"
#include "sectionsong.h"
#include "testenv.h"

#include <QTest>

#include <algorithm>
#include <cmath>

namespace {

struct Analysis
{
    std::vector<SpanFeatureFrame> frames;
    double frameMs = 0.0;
    long long durationMs = 0;
};

Analysis analyse(const std::vector<qint16>& samples, int rate, int channels)
{
    CSpanFeatures features(rate, channels);
    // In uneven blocks, as a reader hands them over.
    const std::size_t frames = samples.size() / std::size_t(channels);
    std::size_t done = 0;
    std::size_t block = 1000;
    while (done < frames) {
        const std::size_t n = std::min(block, frames - done);
        features.addFrames(samples.data() + done * std::size_t(channels), n);
        done += n;
        block = block * 3 % 70001 + 17;
    }
    features.finish();
    return {features.frames(), features.frameMs(), features.durationMs()};
}

std::vector<qint16> tone(int rate, int channels, double seconds, double hz, double level)
{
    std::vector<qint16> out(std::size_t(seconds * rate) * std::size_t(channels));
    for (std::size_t i = 0; i < out.size(); ++i) {
        const double t = double(i / std::size_t(channels)) / rate;
        out[i] = qint16(std::lround(level * 32767.0 * std::sin(2.0 * M_PI * hz * t)));
    }
    return out;
}

// Whether [begin, end) (ms) lies within a chorus of the section song, give
// or take `slackMs` at either end.
bool insideAChorus(const SpanProposal& p, long long slackMs)
{
    for (const tw::SongSection& c : tw::sectionSongChoruses()) {
        if (p.beginMs >= (long long)(c.begin * 1000) - slackMs &&
            p.endMs <= (long long)(c.end * 1000) + slackMs)
            return true;
    }
    return false;
}

} // namespace

class TestSpanFinder : public QObject
{
    Q_OBJECT

private slots:
    void featuresShouldHearThePitchClassOfATone()
    {
        // A4 = 440 Hz: pitch class 9 (C = 0).
        const Analysis a = analyse(tone(44100, 2, 10.0, 440.0, 0.3), 44100, 2);
        QVERIFY(a.frames.size() > 15);
        const SpanFeatureFrame& f = a.frames[a.frames.size() / 2];
        const auto loudest = std::max_element(f.chroma.begin(), f.chroma.end());
        QCOMPARE(int(loudest - f.chroma.begin()), 9);
        QVERIFY2(*loudest > 0.6f, qPrintable(QString::number(*loudest)));
        // A sine at 0.3 of full scale: mean power 0.045, -13.5 dB.
        QVERIFY2(std::fabs(f.levelDb - (-13.5f)) < 0.5f, qPrintable(QString::number(f.levelDb)));
        QCOMPARE(a.durationMs, 10000LL);
    }

    void featuresShouldMeasureFramesAtTheAnalysisRateOfAnyInput()
    {
        // 48 kHz is analysed at 12 kHz, mono as it is: 5 hops of 1024
        // samples make a frame of 426.7 ms.
        const Analysis a = analyse(tone(48000, 1, 12.0, 261.63, 0.3), 48000, 1);
        QCOMPARE(a.durationMs, 12000LL);
        QVERIFY(std::fabs(a.frameMs - 426.67) < 0.01);
        QVERIFY(std::fabs(double(a.frames.size()) - 12000.0 / a.frameMs) <= 2.0);
        const SpanFeatureFrame& f = a.frames[a.frames.size() / 2];
        QCOMPARE(int(std::max_element(f.chroma.begin(), f.chroma.end()) - f.chroma.begin()), 0);
    }

    void featuresShouldGiveSilenceNoChroma()
    {
        const Analysis a = analyse(std::vector<qint16>(44100 * 2 * 8, 0), 44100, 2);
        QVERIFY(!a.frames.empty());
        for (const SpanFeatureFrame& f : a.frames) {
            QCOMPARE(f.levelDb, -120.0f);
            for (float c : f.chroma)
                QCOMPARE(c, 0.0f);
        }
    }

    void featuresShouldRefuseAFormatTheyCannotMix()
    {
        QVERIFY(!CSpanFeatures(44100, 6).isValid());
        QVERIFY(!CSpanFeatures(0, 2).isValid());
        CSpanFeatures none(0, 2);
        const qint16 samples[4] = {};
        none.addFrames(samples, 2);
        none.finish();
        QVERIFY(none.frames().empty());
    }

    void shouldProposeAChorusOfASongOfKnownSections_data()
    {
        QTest::addColumn<int>("rate");
        QTest::addColumn<int>("channels");
        QTest::newRow("44.1 kHz stereo") << 44100 << 2;
        QTest::newRow("48 kHz stereo") << 48000 << 2;
        QTest::newRow("44.1 kHz mono") << 44100 << 1;
        QTest::newRow("22.05 kHz mono") << 22050 << 1;
    }

    void shouldProposeAChorusOfASongOfKnownSections()
    {
        QFETCH(int, rate);
        QFETCH(int, channels);
        const Analysis a = analyse(tw::sectionSong(rate, channels), rate, channels);
        QCOMPARE(a.durationMs, 180000LL);
        const std::vector<SpanProposal> p =
            CSpanFinder().propose(a.frames, a.frameMs, a.durationMs, kSuggestionLengthMs);
        QCOMPARE(int(p.size()), kSuggestionCount);
        // Within a chorus, give or take a frame.
        QVERIFY2(
            insideAChorus(p.front(), 500),
            qPrintable(
                QString("first proposal %1..%2 ms").arg(p.front().beginMs).arg(p.front().endMs)));
        for (const SpanProposal& one : p)
            QCOMPARE(one.endMs - one.beginMs, kSuggestionLengthMs);
        QVERIFY(p[0].score >= p[1].score && p[1].score >= p[2].score);
    }

    void shouldKeepTheProposalsApartAndWithinTheSong()
    {
        const Analysis a = analyse(tw::sectionSong(44100, 2), 44100, 2);
        for (long long length : {10000LL, 30000LL, 45000LL}) {
            const std::vector<SpanProposal> p =
                CSpanFinder().propose(a.frames, a.frameMs, a.durationMs, length);
            QCOMPARE(int(p.size()), kSuggestionCount);
            for (std::size_t i = 0; i < p.size(); ++i) {
                QCOMPARE(p[i].endMs - p[i].beginMs, length);
                QVERIFY(p[i].beginMs >= 0 && p[i].endMs <= a.durationMs);
                for (std::size_t j = 0; j < i; ++j)
                    QVERIFY2(std::llabs(p[i].beginMs - p[j].beginMs) >= length / 2,
                             "two proposals overlap by more than half");
            }
        }
    }

    void shouldHoldTheLengthToTheMinimumAndTheSong()
    {
        QCOMPARE(CSpanFinder::heldLength(3000, 60000), kSuggestionMinMs);
        QCOMPARE(CSpanFinder::heldLength(30000, 60000), 30000LL);
        QCOMPARE(CSpanFinder::heldLength(30000, 20000), 20000LL);
        QCOMPARE(CSpanFinder::heldLength(30000, 4999), 0LL);
        const Analysis a = analyse(tw::sectionSong(44100, 2), 44100, 2);
        const std::vector<SpanProposal> p =
            CSpanFinder().propose(a.frames, a.frameMs, a.durationMs, 2000);
        QVERIFY(!p.empty());
        QCOMPARE(p.front().endMs - p.front().beginMs, kSuggestionMinMs);
    }

    void shouldProposeTheWholeOfASongShorterThanTheWindow()
    {
        const Analysis a = analyse(tone(44100, 2, 20.0, 330.0, 0.2), 44100, 2);
        const std::vector<SpanProposal> p =
            CSpanFinder().propose(a.frames, a.frameMs, a.durationMs, kSuggestionLengthMs);
        QCOMPARE(int(p.size()), 1);
        QCOMPARE(p.front().beginMs, 0LL);
        QCOMPARE(p.front().endMs, 20000LL);
    }

    void shouldProposeTheWholeOfASixSecondSound()
    {
        const Analysis a = analyse(tone(48000, 1, 6.0, 500.0, 0.2), 48000, 1);
        const std::vector<SpanProposal> p =
            CSpanFinder().propose(a.frames, a.frameMs, a.durationMs, kSuggestionLengthMs);
        QCOMPARE(int(p.size()), 1);
        QCOMPARE(p.front().beginMs, 0LL);
        QCOMPARE(p.front().endMs, 6000LL);
    }

    void shouldProposeNothingForASoundShorterThanFiveSeconds()
    {
        const Analysis a = analyse(tone(44100, 2, 4.0, 500.0, 0.2), 44100, 2);
        QVERIFY(
            CSpanFinder().propose(a.frames, a.frameMs, a.durationMs, kSuggestionLengthMs).empty());
    }

    void shouldProposeValidSpansOfASilentFile()
    {
        const Analysis a = analyse(std::vector<qint16>(44100 * 2 * 120, 0), 44100, 2);
        const std::vector<SpanProposal> p =
            CSpanFinder().propose(a.frames, a.frameMs, a.durationMs, kSuggestionLengthMs);
        QCOMPARE(int(p.size()), kSuggestionCount);
        for (const SpanProposal& one : p) {
            QCOMPARE(one.endMs - one.beginMs, kSuggestionLengthMs);
            QVERIFY(one.beginMs >= 0 && one.endMs <= 120000);
        }
        // The same answer each time.
        const std::vector<SpanProposal> again =
            CSpanFinder().propose(a.frames, a.frameMs, a.durationMs, kSuggestionLengthMs);
        QCOMPARE(again.front().beginMs, p.front().beginMs);
    }

    void shouldLookAtAVeryLongSongMoreCoarsely()
    {
        // Two hours of frames: the answer still comes, within the song.
        const Analysis song = analyse(tw::sectionSong(22050, 1), 22050, 1);
        std::vector<SpanFeatureFrame> frames;
        while (frames.size() * song.frameMs < 2 * 3600 * 1000.0)
            frames.insert(frames.end(), song.frames.begin(), song.frames.end());
        const long long duration = (long long)(frames.size() * song.frameMs);
        const std::vector<SpanProposal> p =
            CSpanFinder().propose(frames, song.frameMs, duration, kSuggestionLengthMs);
        QCOMPARE(int(p.size()), kSuggestionCount);
        QVERIFY(p.front().endMs <= duration);
    }

    void shouldAnswerNothingOnceCancelled()
    {
        const Analysis a = analyse(tw::sectionSong(44100, 2), 44100, 2);
        const std::atomic<bool> cancel{true};
        QVERIFY(CSpanFinder()
                    .propose(a.frames, a.frameMs, a.durationMs, kSuggestionLengthMs, &cancel)
                    .empty());
    }
};

TW_TEST_MAIN(TestSpanFinder)
#include "tst_spanfinder.moc"
