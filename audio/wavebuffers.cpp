#include "audio/wavebuffers.h"

#include "audio/wavehelper.h"

#include <new>

namespace wav {

namespace {

constexpr std::align_val_t kAlignment{64};

} // namespace

unsigned char* allocAligned(std::size_t bytes)
{
    return static_cast<unsigned char*>(::operator new(bytes, kAlignment, std::nothrow));
}

void freeAligned(unsigned char* p)
{
    ::operator delete(p, kAlignment);
}

unsigned char* sharedRawBuffer()
{
    static unsigned char* buffer = allocAligned(kWaveRawBufferBytes);
    return buffer;
}

} // namespace wav
