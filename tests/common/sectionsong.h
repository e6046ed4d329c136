#pragma once
// A song assembled from distinct sections in a known order, for the
// best-part suggestion's tests: intro, verse, chorus, verse, chorus,
// bridge, chorus, outro. Each section is its own tune (different notes,
// a piano-like tone with harmonics and a decay), the choruses the loudest,
// as in most pop songs. Deterministic; written as a canonical 16-bit WAV.

#include <QString>
#include <QtGlobal>

#include <vector>

namespace tw {

struct SongSection
{
    char kind;    // 'i' intro, 'v' verse, 'c' chorus, 'b' bridge, 'o' outro
    double begin; // seconds
    double end;
};

// The sections, in order; the song is 180 seconds long.
std::vector<SongSection> sectionSongLayout();
// The choruses alone.
std::vector<SongSection> sectionSongChoruses();

// The song's interleaved 16-bit samples at `rate` with `channels` (1 or 2).
std::vector<qint16> sectionSong(int rate, int channels);
// Writes the song to `path`; false when the file cannot be written.
bool writeSectionSong(const QString& path, int rate, int channels);

} // namespace tw
