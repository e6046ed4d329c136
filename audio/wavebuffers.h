#pragma once
// The WAV engine's scratch blocks: the 64-byte aligned chunks that the peak
// scan and the effect write-back read through, and the one raw-data block
// that every record shares. Private to audio/: only the engine's own files
// include this header. An AlignedBuffer owns its block and frees it when it
// goes out of scope; the shared raw-data block belongs to the process and is
// never freed. Used on the thread that opens and closes a record.

#include <cstddef>

namespace wav {

// Bytes the peak scan and the effect write-back move per read.
constexpr std::size_t kChunkBytes = 32768;

// 64-byte aligned blocks: whole cache lines for the kernel's copy of file
// data and for the packed loads of the peak scan. nullptr when memory runs
// out; freeAligned takes nullptr too.
unsigned char* allocAligned(std::size_t bytes);
void freeAligned(unsigned char* p);

struct AlignedBuffer
{
    explicit AlignedBuffer(std::size_t bytes) : data(allocAligned(bytes)) {}
    ~AlignedBuffer() { freeAligned(data); }
    AlignedBuffer(const AlignedBuffer&) = delete;
    AlignedBuffer& operator=(const AlignedBuffer&) = delete;
    unsigned char* data;
};

// One raw-data block of kWaveRawBufferBytes for the whole process, handed to
// every record. Uninit deliberately never frees a record's rawBuffer;
// sharing the block (only one record is open at a time) keeps that rule
// without leaking 4 MiB per open.
unsigned char* sharedRawBuffer();

} // namespace wav
