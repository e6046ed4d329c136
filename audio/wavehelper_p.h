#pragma once
// Internal to the audio engine: the SDL callback, reachable by the engine's
// tests so that they can check what it writes without a sound device.

// Fills `stream` with the next `length` bytes of the record's playFile, with
// volume and fades applied. Runs on SDL's audio thread; userdata is the
// tagWaveInfo record.
void AudioPlayCallbackFunc(void* userdata, unsigned char* stream, int length);
