#pragma once
// The WAV engine's peak table: the (min, max) of the first channel over
// every kWavePeakBlockFrames frames, read once from the record's scanFile
// when a record is opened, so that a whole-song view is drawn without
// reading the file again. Private to audio/: only the engine's own files
// include this header. The table is malloc'ed into the record (peakTable)
// and freed by WaveHelperUninit; scan buffers are the caller's or local.
// Runs on the thread that opens the record.

#include "audio/wavehelper.h"

#include <cstdio>
#include <cstring>

namespace wav {

// One sample of type T from an unaligned place in a buffer.
template <typename T> T loadSample(const unsigned char* p)
{
    T v;
    std::memcpy(&v, p, sizeof v);
    return v;
}

// Reads `bytes` of interleaved frames from `file` through `buffer`
// (kChunkBytes, 64-byte aligned) and writes their (min, max) pairs into
// `table`. For stereo the second channel's pair of the last partial block
// follows the last pair. Instantiated for the engine's four formats:
// unsigned char or short, 1 or 2 channels.
template <typename T, int Channels>
void scanPeaks(FILE* file, unsigned long long bytes, unsigned char* table, unsigned char* buffer);

// Builds info->peakTable from scanFile; false when memory runs out.
bool buildPeakTable(tagWaveInfo* info);

} // namespace wav
