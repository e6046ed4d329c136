#pragma once
// Internal to the audio engine, reachable by its tests and fuzz targets so
// that they can check what it reads and writes without a sound device.

// Fills `stream` with the next `length` bytes of the record's playFile, with
// volume and fades applied. Runs on SDL's audio thread; userdata is the
// tagWaveInfo record.
void AudioPlayCallbackFunc(void* userdata, unsigned char* stream, int length);

// Frames in each buffer SDL asks the callback for: 1024, halved (down to 16)
// while that would last longer than 128 ms. A file with an odd low rate
// would otherwise make every pause and close wait seconds for SDL's audio
// thread, which sleeps a whole buffer at a time.
unsigned short WaveHelperCallbackFrames(unsigned int rate);

// WaveHelperInit without the audio device: reads the header, builds the
// peak table and opens the play stream. Its results are WaveHelperInit's up
// to the device; volume and fades keep what the record held.
int WaveHelperLoad(const char* path, tagWaveInfo* info);
