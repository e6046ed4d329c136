#pragma once
// The engine's in-place sample routines: 16-bit volume and the 8-bit and
// 16-bit stereo fades. Private to audio/ (the engine and its tests include
// this header). They allocate nothing and keep no state; the engine calls
// them on SDL's audio thread while playing and on the caller's thread when
// it writes the effects back into the file.
//
// Buffers hold interleaved frames, left sample first: 8-bit samples are
// unsigned with 128 as silence, 16-bit samples signed little-endian. Each
// fade takes (buffer, end, start, length) in frames: the buffer's first
// frame sits at position `start` within the fade, frames up to but not
// including `end` are processed, and `length` is the fade's length.

// Scales byteCount / 2 signed 16-bit samples by volume percent, clamped.
void VolumeChangeS16(unsigned char* buffer, int byteCount, int volume);

void FadeInS16Stereo(unsigned char* buffer, int end, int start, int length);
void FadeOutS16Stereo(unsigned char* buffer, int end, int start, int length);
void FadeInU8Mono(unsigned char* buffer, int end, int start, int length);
void FadeInU8Stereo(unsigned char* buffer, int end, int start, int length);
void FadeOutU8Mono(unsigned char* buffer, int end, int start, int length);
void FadeOutU8Stereo(unsigned char* buffer, int end, int start, int length);

namespace pcm {

// Gain in 1/256 steps: (percent << 8) / 100, so 110 % gives 281. Done on
// unsigned bits so that out-of-range percents wrap instead of overflowing.
inline int gainOf(int percent)
{
    return static_cast<int>(static_cast<unsigned>(percent) << 8) / 100;
}

// Sums and differences of the fades' 32-bit positions wrap as the machine's
// do, without the undefined behaviour of signed overflow (header values of
// a damaged file reach them).
inline int wrapAdd(int a, int b)
{
    return static_cast<int>(static_cast<unsigned>(a) + static_cast<unsigned>(b));
}

inline int wrapSub(int a, int b)
{
    return static_cast<int>(static_cast<unsigned>(a) - static_cast<unsigned>(b));
}

// Float to int by truncation toward zero. Values an int cannot hold (and
// NaN from a zero-length fade) give INT_MIN, what the x86 conversion
// instruction yields, without the undefined behaviour of a plain cast.
inline int truncate(float v)
{
    if (v >= -2147483648.0f && v < 2147483648.0f)
        return static_cast<int>(v);
    return -2147483647 - 1;
}

inline int loadS16(const unsigned char* p)
{
    return static_cast<short>(static_cast<unsigned short>(p[0] | (p[1] << 8)));
}

// Keeps the low 16 bits: results out of range wrap, as the fades expect.
inline void storeS16(unsigned char* p, int v)
{
    const unsigned u = static_cast<unsigned>(v);
    p[0] = static_cast<unsigned char>(u & 0xFF);
    p[1] = static_cast<unsigned char>((u >> 8) & 0xFF);
}

// 16-bit fade of one sample with factor n / length: multiplied first,
// divided second, in single precision.
inline int fadeS16(int s, int n, int length)
{
    return truncate(static_cast<float>(s) * static_cast<float>(n) / static_cast<float>(length));
}

// 8-bit fades scale the distance from the centre value 128 (unlike the
// 8-bit volume, which scales from 0); the low byte of the result is kept.
inline unsigned char fadeU8(int x, int n, int length)
{
    const float len = static_cast<float>(length);
    float y;
    if (x < 128)
        y = 128.0f - static_cast<float>(n) * static_cast<float>(128 - x) / len;
    else
        y = static_cast<float>(n) * static_cast<float>(x - 128) / len + 128.0f;
    return static_cast<unsigned char>(static_cast<unsigned>(truncate(y)) & 0xFF);
}

} // namespace pcm
