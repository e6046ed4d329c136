#pragma once
// CSpanFinder: the span of a song a person would most likely pick as a
// ringtone: the chorus, or whatever is repeated most and sounds fullest.
// Works on CSpanFeatures' frames: a self-similarity matrix of the chroma
// (the best of the 12 key shifts, so a chorus sung a step higher still
// matches), then for every window of the wanted length the strength of its
// best repeats elsewhere in the song, plus a smaller share of its level; a
// window starting in the song's first fifth (the intro and first verse)
// pays a penalty. Widget-free and stateless between calls: any thread.

#include "editor/spanfeatures.h"

#include <atomic>
#include <vector>

// The span proposed when none is asked for, in ms.
constexpr long long kSuggestionLengthMs = 30000;
// The shortest span that may be proposed (the selection's minimum).
constexpr long long kSuggestionMinMs = 5000;
// How many proposals a song gets at most.
constexpr int kSuggestionCount = 3;

struct SpanProposal
{
    long long beginMs = 0;
    long long endMs = 0;
    double score = 0.0;
};

class CSpanFinder
{
public:
    // The weights of the score; the defaults are those measured best.
    struct Tuning
    {
        double keepShare = 0.2;    // the share of the matrix counted as a match
        double mismatch = -0.4;    // what a cell below the share adds to a repeat
        int repeats = 2;           // the best non-overlapping repeats counted
        double secondRepeat = 0.5; // the weight of each repeat after the first
        double minLagShare = 0.5;  // a repeat lies at least this share of the window away
        double levelWeight = 2.0;  // per 10 dB above the song's mean level
        double introPenalty = 0.3; // for a start in the first fifth of the song
        double introShare = 0.2;
    };

    CSpanFinder() = default;
    explicit CSpanFinder(const Tuning& tuning) : m_tuning(tuning) {}

    // Up to kSuggestionCount proposals, best first, each `lengthMs` long
    // (held to 5 s .. the song's length) and none overlapping another by
    // more than half. One covering the whole song when the song is no longer
    // than the span; none when it is shorter than 5 s.
    // `frameMs` is the length of one frame (CSpanFeatures::frameMs()). When
    // `cancel` is set on the way, the answer is empty.
    std::vector<SpanProposal> propose(const std::vector<SpanFeatureFrame>& frames, double frameMs,
                                      long long durationMs, long long lengthMs,
                                      const std::atomic<bool>* cancel = nullptr) const;

    // The length a request of `lengthMs` gets in a song of `durationMs`:
    // 5 s at least, the song's length at most; 0 when the song is shorter
    // than 5 s.
    static long long heldLength(long long lengthMs, long long durationMs);

private:
    Tuning m_tuning;
};
