// KeloDecodePcm: a source's sound into the caller's hands, block by block,
// through the same reader the renders use.

#include "pcmsource.h"

#include "vexa.h"

#include <cstdint>

extern "C" int KeloDecodePcm(const char* path, int64_t startMs, int64_t endMs, int32_t sampleRate,
                             int32_t channels, KeloPcmProc proc, void* user)
{
    if (!path || !proc || sampleRate < 1000 || sampleRate > 192000 || channels < 1 || channels > 2)
        return KELO_E_ARGUMENT;
    vexa::PcmSource source(sampleRate, channels);
    const int rc = source.open(path, startMs, endMs);
    if (rc < 0)
        return rc;
    return source.readAll([proc, user](const int16_t* samples, int frames) {
        return proc(samples, frames, user) ? KELO_OK : KELO_E_CANCELLED;
    });
}
