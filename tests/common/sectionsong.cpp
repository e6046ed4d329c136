#include "sectionsong.h"

#include "testenv.h"

#include <algorithm>
#include <cmath>

namespace tw {

namespace {

// Notes of each tune, as MIDI numbers, one every half second, looped.
const std::vector<int> kVerse = {57, 60, 64, 62, 57, 60, 65, 64};  // A minor, low
const std::vector<int> kChorus = {72, 76, 79, 77, 74, 79, 71, 74}; // C major, high
const std::vector<int> kBridge = {61, 66, 68, 73, 70, 66};         // F# major
const std::vector<int> kIntro = {45, 52, 45, 52};                  // open fifths
constexpr double kNote = 0.5;

const std::vector<int>& tuneOf(char kind)
{
    switch (kind) {
    case 'v':
        return kVerse;
    case 'c':
        return kChorus;
    case 'b':
        return kBridge;
    default:
        return kIntro;
    }
}

double levelOf(char kind)
{
    switch (kind) {
    case 'c':
        return 0.45;
    case 'v':
        return 0.2;
    case 'b':
        return 0.25;
    default:
        return 0.12;
    }
}

} // namespace

std::vector<SongSection> sectionSongLayout()
{
    return {{'i', 0, 8},     {'v', 8, 40},    {'c', 40, 72},   {'v', 72, 104},
            {'c', 104, 136}, {'b', 136, 148}, {'c', 148, 176}, {'o', 176, 180}};
}

std::vector<SongSection> sectionSongChoruses()
{
    std::vector<SongSection> out;
    for (const SongSection& s : sectionSongLayout())
        if (s.kind == 'c')
            out.push_back(s);
    return out;
}

std::vector<qint16> sectionSong(int rate, int channels)
{
    const std::vector<SongSection> layout = sectionSongLayout();
    const double seconds = layout.back().end;
    const qint64 frames = qint64(seconds * rate);
    std::vector<qint16> mono(size_t(frames), 0);
    for (const SongSection& section : layout) {
        const std::vector<int>& tune = tuneOf(section.kind);
        const double level = levelOf(section.kind);
        const qint64 first = qint64(section.begin * rate);
        const qint64 last = qint64(section.end * rate);
        for (qint64 i = first; i < last; ++i) {
            const double t = double(i - first) / rate;
            const int note = int(t / kNote);
            const double inNote = t - note * kNote;
            const double hz = 440.0 * std::pow(2.0, (tune[size_t(note) % tune.size()] - 69) / 12.0);
            // A struck tone: fundamental and two harmonics, decaying.
            const double decay = std::exp(-inNote * 4.0) * std::min(1.0, inNote * 200.0);
            double v = 0.0;
            for (int h = 1; h <= 3; ++h)
                v += std::sin(2.0 * M_PI * hz * h * t) / h;
            // A soft bass under the verse and chorus keeps them apart further.
            if (section.kind == 'v' || section.kind == 'c') {
                const int root = section.kind == 'v' ? 45 : 48;
                v += 0.5 * std::sin(2.0 * M_PI * 440.0 * std::pow(2.0, (root - 69) / 12.0) * t);
            }
            mono[size_t(i)] =
                qint16(std::lround(std::clamp(level * decay * v * 0.6, -1.0, 1.0) * 32000));
        }
    }
    std::vector<qint16> out(mono.size() * size_t(channels));
    for (size_t i = 0; i < out.size(); ++i)
        out[i] = mono[i / size_t(channels)];
    return out;
}

bool writeSectionSong(const QString& path, int rate, int channels)
{
    const std::vector<qint16> song = sectionSong(rate, channels);
    return writeWav(
        path, rate, channels, 16, qint64(song.size()) / channels,
        [&](qint64 frame, int channel) { return int(song[size_t(frame * channels + channel)]); });
}

} // namespace tw
