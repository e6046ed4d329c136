#include "editor/spanfinder.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

// Longer songs are looked at more coarsely: the matrix stays under
// kMaxFrames squared (a 12-minute song at full detail).
constexpr std::size_t kMaxFrames = 1600;

// Averages each `group` neighbouring frames into one.
std::vector<SpanFeatureFrame> coarsened(const std::vector<SpanFeatureFrame>& in, std::size_t group)
{
    std::vector<SpanFeatureFrame> out;
    for (std::size_t first = 0; first < in.size(); first += group) {
        const std::size_t last = std::min(in.size(), first + group);
        SpanFeatureFrame f;
        double power = 0.0;
        double norm = 0.0;
        for (std::size_t i = first; i < last; ++i) {
            power += std::pow(10.0, in[i].levelDb / 10.0);
            for (int pc = 0; pc < 12; ++pc)
                f.chroma[pc] += in[i].chroma[pc];
        }
        for (float c : f.chroma)
            norm += double(c) * c;
        norm = std::sqrt(norm);
        for (float& c : f.chroma)
            c = norm > 0.0 ? float(c / norm) : 0.0f;
        f.levelDb = float(10.0 * std::log10(std::max(power / double(last - first), 1e-12)));
        out.push_back(f);
    }
    return out;
}

// The chroma similarity of every pair of frames, the best of the 12 key
// shifts; n x n, row-major. Empty when `cancel` is set on the way.
std::vector<float> similarity(const std::vector<SpanFeatureFrame>& frames,
                              const std::atomic<bool>* cancel)
{
    const std::size_t n = frames.size();
    std::vector<float> s(n * n, 0.0f);
    for (std::size_t i = 0; i < n; ++i) {
        if (i % 64 == 0 && cancel && *cancel)
            return {};
        const auto& a = frames[i].chroma;
        for (std::size_t j = i; j < n; ++j) {
            const auto& b = frames[j].chroma;
            float best = 0.0f;
            for (int shift = 0; shift < 12; ++shift) {
                float dot = 0.0f;
                for (int pc = 0; pc < 12; ++pc)
                    dot += a[pc] * b[(pc + shift) % 12];
                best = std::max(best, dot);
            }
            s[i * n + j] = best;
            s[j * n + i] = best;
        }
    }
    return s;
}

} // namespace

long long CSpanFinder::heldLength(long long lengthMs, long long durationMs)
{
    if (durationMs < kSuggestionMinMs)
        return 0;
    return std::clamp(lengthMs, kSuggestionMinMs, durationMs);
}

std::vector<SpanProposal> CSpanFinder::propose(const std::vector<SpanFeatureFrame>& input,
                                               double frameMs, long long durationMs,
                                               long long lengthMs,
                                               const std::atomic<bool>* cancel) const
{
    const auto cancelled = [cancel] { return cancel && cancel->load(); };
    const long long length = heldLength(lengthMs, durationMs);
    if (length == 0)
        return {};
    if (length >= durationMs || frameMs <= 0.0)
        return {SpanProposal{0, length, 0.0}};
    // A long song's frames are merged in groups; a song of ordinary length
    // is used as it is.
    const std::size_t group =
        std::max<std::size_t>(1, (input.size() + kMaxFrames - 1) / kMaxFrames);
    const std::vector<SpanFeatureFrame> merged =
        group > 1 ? coarsened(input, group) : std::vector<SpanFeatureFrame>();
    const std::vector<SpanFeatureFrame>& frames = group > 1 ? merged : input;
    const double stepMs = frameMs * double(group);
    const long long n = static_cast<long long>(frames.size());
    const long long w = std::max(1LL, std::llround(double(length) / stepMs));
    if (length >= durationMs || n <= w)
        return {SpanProposal{0, length, 0.0}};

    // Cells above the kept share's threshold count as a match, scaled to
    // 0..1; the rest count against a repeat.
    std::vector<float> s = similarity(frames, cancel);
    if (cancelled())
        return {};
    std::vector<float> offDiagonal;
    offDiagonal.reserve(std::size_t(n * (n - 1) / 2));
    for (long long i = 0; i < n; ++i)
        for (long long j = i + 1; j < n; ++j)
            offDiagonal.push_back(s[std::size_t(i * n + j)]);
    double threshold = 1.0;
    if (!offDiagonal.empty()) {
        const std::size_t at =
            std::size_t(double(offDiagonal.size() - 1) * (1.0 - m_tuning.keepShare));
        std::nth_element(offDiagonal.begin(), offDiagonal.begin() + std::ptrdiff_t(at),
                         offDiagonal.end());
        threshold = offDiagonal[at];
    }
    const float top = float(std::max(1e-6, 1.0 - threshold));
    for (float& v : s)
        v = v > threshold ? (v - float(threshold)) / top : float(m_tuning.mismatch);

    // Running sums along each diagonal: diag[lag][i] = sum of s(k, k + lag)
    // for k < i.
    std::vector<std::vector<float>> diag(static_cast<std::size_t>(n));
    for (long long lag = 1; lag < n; ++lag) {
        auto& d = diag[std::size_t(lag)];
        d.resize(std::size_t(n - lag + 1));
        d[0] = 0.0f;
        for (long long k = 0; k + lag < n; ++k)
            d[std::size_t(k + 1)] = d[std::size_t(k)] + s[std::size_t(k * n + k + lag)];
    }

    double meanLevel = 0.0;
    for (const auto& f : frames)
        meanLevel += f.levelDb;
    meanLevel /= double(n);
    std::vector<double> levelSum(std::size_t(n + 1), 0.0);
    for (long long i = 0; i < n; ++i)
        levelSum[std::size_t(i + 1)] = levelSum[std::size_t(i)] + frames[std::size_t(i)].levelDb;

    const long long minLag = std::max(1LL, std::llround(double(w) * m_tuning.minLagShare));
    const long long starts = n - w + 1;
    std::vector<double> score(std::size_t(starts), 0.0);
    // The match of the window with the one `lag` frames away (negative:
    // before it), by lag + n; lags that do not fit stay at the mismatch.
    std::vector<float> match(std::size_t(2 * n));
    for (long long t = 0; t < starts; ++t) {
        if (t % 64 == 0 && cancelled())
            return {};
        std::fill(match.begin(), match.end(), -1e9f);
        // A repeat after the window: s(i, i + lag) for i in the window.
        for (long long lag = minLag; t + w - 1 + lag < n; ++lag) {
            const auto& d = diag[std::size_t(lag)];
            match[std::size_t(n + lag)] = (d[std::size_t(t + w)] - d[std::size_t(t)]) / float(w);
        }
        // A repeat before it: s(i - lag, i), read off the same diagonal.
        for (long long lag = minLag; t - lag >= 0; ++lag) {
            const auto& d = diag[std::size_t(lag)];
            match[std::size_t(n - lag)] =
                (d[std::size_t(t - lag + w)] - d[std::size_t(t - lag)]) / float(w);
        }
        // The best repeats, each at least a window away from those taken.
        double rep = 0.0;
        double weight = 1.0;
        std::vector<long long> taken;
        for (int r = 0; r < m_tuning.repeats; ++r) {
            long long best = -1;
            for (long long k = 0; k < 2 * n; ++k) {
                if (match[std::size_t(k)] <= 0.0f ||
                    (best >= 0 && match[std::size_t(k)] <= match[std::size_t(best)]))
                    continue;
                const bool near = std::any_of(taken.begin(), taken.end(), [&](long long other) {
                    return std::llabs(other - k) < w;
                });
                if (!near)
                    best = k;
            }
            if (best < 0)
                break;
            taken.push_back(best);
            rep += weight * match[std::size_t(best)];
            weight = m_tuning.secondRepeat;
        }
        const double level =
            (levelSum[std::size_t(t + w)] - levelSum[std::size_t(t)]) / double(w) - meanLevel;
        double total = rep + m_tuning.levelWeight * level / 10.0;
        if (double(t) < m_tuning.introShare * double(n))
            total -= m_tuning.introPenalty;
        score[std::size_t(t)] = total;
    }

    // The best windows, none overlapping a better one by more than half.
    std::vector<long long> order(static_cast<std::size_t>(starts));
    std::iota(order.begin(), order.end(), 0LL);
    std::stable_sort(order.begin(), order.end(), [&](long long a, long long b) {
        return score[std::size_t(a)] > score[std::size_t(b)];
    });
    std::vector<SpanProposal> proposals;
    for (long long t : order) {
        if (int(proposals.size()) == kSuggestionCount)
            break;
        const long long begin = std::llround(double(t) * stepMs);
        const bool overlaps = std::any_of(proposals.begin(), proposals.end(), [&](const auto& p) {
            return std::llabs(p.beginMs - begin) < length / 2;
        });
        if (overlaps)
            continue;
        const long long start = std::clamp(begin, 0LL, durationMs - length);
        proposals.push_back(SpanProposal{start, start + length, score[std::size_t(t)]});
    }
    return proposals;
}
