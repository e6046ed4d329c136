// The WAV engine's reader over any bytes: the header, the peak scan, raw
// data for drawing, positions, what the audio callback plays with effects,
// and the effects written back on close. The audio device is left out:
// opening and closing it costs SDL a wait of two buffers each run.

#include "audio/wavehelper.h"
#include "audio/wavehelper_p.h"
#include "fuzzfile.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static fuzz::FuzzFile file;
    static std::vector<unsigned char> stream(8192);
    const std::string& path = file.write("wave.wav", data, size);
    tagWaveInfo wave;
    std::memset(&wave, 0, sizeof wave);
    if (WaveHelperLoad(path.c_str(), &wave) == 0 && wave.peakTable) {
        // Frames at both ends and past them, as the editor asks while drawing.
        WaveHelperGetRawData(&wave, 0, 4096);
        WaveHelperGetRawData(&wave, static_cast<int>(wave.frameCount / 2), 1024);
        WaveHelperGetRawData(&wave, static_cast<int>(wave.frameCount), 16);
        WaveHelperChangeVolume(&wave, 150);
        WaveHelperFadeIn(&wave, 0, 1);
        WaveHelperFadeOut(&wave, 1, 1);
        // Buffers from the start, inside the fades and at the end of data.
        const int length = static_cast<int>(1024 * wave.frameBytes);
        for (long long ms : {0LL, 500LL, 1500LL, WaveHelperGetPos(&wave) + 100000LL}) {
            WaveHelperSetPos(&wave, ms);
            AudioPlayCallbackFunc(&wave, stream.data(), length);
        }
    }
    WaveHelperUninit(&wave);
    return 0;
}
