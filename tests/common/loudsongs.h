#pragma once
// Songs at a known loudness for the loudness tests, and ffmpeg's own
// reading of a file's loudness (its ebur128 filter): the independent meter
// the tests hold the program's figures against. The songs are the synthetic
// pop song of the editor's tests (drums, bass, pad, lead), levelled by
// ffmpeg; made once per test run in the fixture folder.

#include <QString>

namespace tw {

struct LoudnessReading
{
    bool ok = false;
    double lufs = 0.0;     // integrated loudness
    double truePeak = 0.0; // dBTP
};

// ffmpeg -i path -af ebur128=peak=true -f null -, its summary parsed; of
// `seconds` from `start` when they are given.
LoudnessReading ffmpegLoudness(const QString& path, double start = -1, double seconds = -1);

// A 60-second 16-bit stereo WAV of the song brought to about `lufs`: a
// gain for a quiet one; for a loud one a gain and ffmpeg's limiter, as
// loud masters are made. Empty when ffmpeg fails.
QString songAtLoudness(double lufs);

// The song at -30 LUFS with a click at 0 dBFS every 2 seconds: its peaks
// stand far above its loudness, so no gain alone brings it to a high
// target under the ceiling.
QString spikySong();

} // namespace tw
