#pragma once
// The WAV engine's header reader: opens a file, checks its chunk id, reads
// the format from the fixed offsets of the canonical header and fills the
// caller's record up to the audio device (peak table, play stream, raw
// buffer). Private to audio/: only the engine's own files include this
// header. The streams and the peak table it opens belong to the record and
// are released by WaveHelperUninit. Runs on the thread that opens the
// record.
//
// The engine's file layout: a canonical 44-byte header, then sample data.
// Only the chunk id is checked; channel count, sample rate, bits per sample
// and data size are read from their fixed offsets.

#include "audio/wavehelper.h"

namespace wav {

constexpr long kDataOffset = 44;
constexpr unsigned kRiff = 0x46464952u; // "RIFF" read little-endian

unsigned readLe16(const unsigned char* p);
unsigned readLe32(const unsigned char* p);

// What the device is opened with, as the header gives it.
struct HeaderFormat
{
    unsigned channels = 0;
    unsigned bits = 0;
};

// Everything before the audio device: header, peak table, play stream and
// raw buffer. 0 with a peak table when the device may be opened, 0 without
// one for a format the engine does not play.
int loadWave(const char* path, tagWaveInfo* info, HeaderFormat* format);

} // namespace wav
