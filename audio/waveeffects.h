#pragma once
// A record's volume and fades applied to its bytes: to each buffer SDL's
// callback plays, and into the file when the record is closed, so that the
// file ends up exactly as it sounded. This decides which effect applies
// where; the per-sample routines are pcmeffects'. Private to audio/: only
// the engine's own files include this header. Buffers are the caller's; the
// record is only read, except for scanFile's position. applyEffects runs on
// SDL's audio thread under SDL's audio lock while playing;
// writeBackEffects runs on the thread that closes the record, once the
// device is paused.

#include "audio/wavehelper.h"

namespace wav {

// The low 32 bits of a value, as a signed int.
int wrap32(long long v);

// Applies volume, then the fade the buffer's start lies in, then the
// preview gain where it covers the buffer (the volume stays off there), to
// `length` bytes read from file offset `pos`.
void applyEffects(const tagWaveInfo* info, unsigned char* buffer, int length, long pos);

// Byte offset in the file of a time in whole seconds, kept to 32 bits.
int secondsToOffset(const tagWaveInfo* info, long long seconds);

// Writes volume and fades into the file through scanFile, one chunk at a
// time, starting at the first fade (or wherever the last read stopped).
void writeBackEffects(tagWaveInfo* info);

// WaveHelperReadFaded.
long long readFaded(const tagWaveInfo* info, const char* path, long long firstFrame,
                    long long frames, unsigned char* out);

} // namespace wav
