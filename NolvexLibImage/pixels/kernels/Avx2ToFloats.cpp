// SPDX-License-Identifier: MIT
//
// Compiled for AVX2 and F16C. KernelTable.h says what must not be used here.
#include "NolvexLibImage/pixels/kernels/KernelTable.h"

#include <cstring>
#include <immintrin.h>

namespace Nolvex::Pixels::Detail {

namespace {

constexpr std::size_t ALIGNMENT = 32;

__m256 withOpaqueAlpha(__m256 colours)
{
    return _mm256_blend_ps(colours, _mm256_set1_ps(1.0f), 0x88);
}

const __m128i* asVector(const std::byte* in)
{
    return reinterpret_cast<const __m128i*>(in);
}

template<class Integer>
__m128i loadInteger(const std::byte* in)
{
    Integer bytes;
    std::memcpy(&bytes, in, sizeof bytes);
    return _mm_cvtsi32_si128(static_cast<int>(bytes));
}

// Readers of two pixels. BYTES is the size of a pixel. NEEDED is the number of pixels that must be left for a
// load of two pixels, which reads further than these.

__m256 fromUint8(__m128i bytes)
{
    return _mm256_mul_ps(_mm256_cvtepi32_ps(_mm256_cvtepu8_epi32(bytes)), _mm256_set1_ps(UINT8_SCALE));
}

struct Grey8
{
    static constexpr std::size_t BYTES = 1;
    static constexpr std::size_t NEEDED = 2;

    static __m256 two(const std::byte* in)
    {
        const __m128i order = _mm_setr_epi8(0, 0, 0, 0, 1, 1, 1, 1, -1, -1, -1, -1, -1, -1, -1, -1);
        const __m128i bytes = loadInteger<std::uint16_t>(in);
        return withOpaqueAlpha(fromUint8(_mm_shuffle_epi8(bytes, order)));
    }
};

template<bool SWAPS>
struct Rgb8
{
    static constexpr std::size_t BYTES = 3;
    static constexpr std::size_t NEEDED = 3;

    static __m256 two(const std::byte* in)
    {
        const __m128i order = SWAPS ? _mm_setr_epi8(2, 1, 0, -1, 5, 4, 3, -1, -1, -1, -1, -1, -1, -1, -1, -1)
                                    : _mm_setr_epi8(0, 1, 2, -1, 3, 4, 5, -1, -1, -1, -1, -1, -1, -1, -1, -1);
        return withOpaqueAlpha(fromUint8(_mm_shuffle_epi8(_mm_loadl_epi64(asVector(in)), order)));
    }
};

template<bool SWAPS>
struct Rgba8
{
    static constexpr std::size_t BYTES = 4;
    static constexpr std::size_t NEEDED = 2;

    static __m256 two(const std::byte* in)
    {
        const __m256 pixels = fromUint8(_mm_loadl_epi64(asVector(in)));
        if constexpr (SWAPS)
            return _mm256_permute_ps(pixels, _MM_SHUFFLE(3, 0, 1, 2));
        return pixels;
    }
};

struct Uint16
{
    static __m256 convert(__m128i words)
    {
        return _mm256_mul_ps(_mm256_cvtepi32_ps(_mm256_cvtepu16_epi32(words)), _mm256_set1_ps(UINT16_SCALE));
    }
};

struct Float16
{
    static __m256 convert(__m128i words) { return _mm256_cvtph_ps(words); }
};

template<class Number>
struct GreyWords
{
    static constexpr std::size_t BYTES = 2;
    static constexpr std::size_t NEEDED = 2;

    static __m256 two(const std::byte* in)
    {
        const __m128i order = _mm_setr_epi8(0, 1, 0, 1, 0, 1, 0, 1, 2, 3, 2, 3, 2, 3, 2, 3);
        const __m128i words = _mm_shuffle_epi8(loadInteger<std::uint32_t>(in), order);
        return withOpaqueAlpha(Number::convert(words));
    }
};

template<class Number>
struct RgbWords
{
    static constexpr std::size_t BYTES = 6;
    static constexpr std::size_t NEEDED = 3;

    static __m256 two(const std::byte* in)
    {
        const __m128i order = _mm_setr_epi8(0, 1, 2, 3, 4, 5, -1, -1, 6, 7, 8, 9, 10, 11, -1, -1);
        const __m128i words = _mm_shuffle_epi8(_mm_loadu_si128(asVector(in)), order);
        return withOpaqueAlpha(Number::convert(words));
    }
};

template<class Number>
struct RgbaWords
{
    static constexpr std::size_t BYTES = 8;
    static constexpr std::size_t NEEDED = 2;

    static __m256 two(const std::byte* in) { return Number::convert(_mm_loadu_si128(asVector(in))); }
};

struct GreyFloat
{
    static constexpr std::size_t BYTES = 4;
    static constexpr std::size_t NEEDED = 2;

    static __m256 two(const std::byte* in)
    {
        const __m256i both = _mm256_castsi128_si256(_mm_loadl_epi64(asVector(in)));
        const __m256i order = _mm256_setr_epi32(0, 0, 0, 0, 1, 1, 1, 1);
        return withOpaqueAlpha(_mm256_castsi256_ps(_mm256_permutevar8x32_epi32(both, order)));
    }
};

struct RgbFloat
{
    static constexpr std::size_t BYTES = 12;
    static constexpr std::size_t NEEDED = 3;

    static __m256 two(const std::byte* in)
    {
        const __m256i first = _mm256_castsi128_si256(_mm_loadu_si128(asVector(in)));
        const __m128i second = _mm_loadu_si128(asVector(in + BYTES));
        return withOpaqueAlpha(_mm256_castsi256_ps(_mm256_inserti128_si256(first, second, 1)));
    }
};

template<bool STREAMS>
void store(float* to, __m256 pixels)
{
    if constexpr (STREAMS)
        _mm256_stream_ps(to, pixels);
    else
        _mm256_storeu_ps(to, pixels);
}

/// Converts pairs of pixels as long as it can, and returns the number of pixels converted.
template<class Reader, bool STREAMS>
std::size_t convertPairs(const std::byte* source, Rgb* destination, std::size_t count)
{
    auto* out = reinterpret_cast<float*>(destination);
    std::size_t done = 0;
    for (; count - done >= Reader::NEEDED; done += 2)
        store<STREAMS>(out + 4 * done, Reader::two(source + done * Reader::BYTES));
    return done;
}

template<class Reader, bool STREAMS>
void convertFrom(ToFloatsKernels::ToRgb narrow, const std::byte* source, Rgb* destination, std::size_t count)
{
    const std::size_t done = convertPairs<Reader, STREAMS>(source, destination, count);
    narrow(source + done * Reader::BYTES, destination + done, count - done);
}

/// `narrow` converts the remaining pixels.
template<class Reader>
void convert(ToFloatsKernels::ToRgb narrow, const std::byte* source, Rgb* destination, std::size_t count)
{
    const std::size_t beyond = reinterpret_cast<std::uintptr_t>(destination) % ALIGNMENT;
    if (count < STREAMING_BYTES / sizeof(Rgb) || beyond % sizeof(Rgb) != 0)
        return convertFrom<Reader, false>(narrow, source, destination, count);

    const std::size_t head = beyond / sizeof(Rgb);
    narrow(source, destination, head);
    convertFrom<Reader, true>(narrow, source + head * Reader::BYTES, destination + head, count - head);
    _mm_sfence();
}

template<class Reader, PixelFormat FORMAT>
void toRgb(const std::byte* source, Rgb* destination, std::size_t count)
{
    convert<Reader>(SSE2_TO_FLOATS.toRgb[static_cast<int>(FORMAT)], source, destination, count);
}

void bgr8ToRgb(const std::byte* source, Rgb* destination, std::size_t count)
{
    convert<Rgb8<true>>(SSE2_TO_FLOATS.bgr8ToRgb, source, destination, count);
}

void bgra8ToRgb(const std::byte* source, Rgb* destination, std::size_t count)
{
    convert<Rgba8<true>>(SSE2_TO_FLOATS.bgra8ToRgb, source, destination, count);
}

void copy(const std::byte* source, Rgb* destination, std::size_t count)
{
    if (count > 0)
        std::memcpy(destination, source, count * sizeof(Rgb));
}

} // namespace

constinit const ToFloatsKernels AVX2_TO_FLOATS = {
    .toRgb =
        {
            toRgb<Grey8, PixelFormat::UINT8_GREY>,
            toRgb<Rgb8<false>, PixelFormat::UINT8_RGB>,
            toRgb<Rgba8<false>, PixelFormat::UINT8_RGBA>,
            toRgb<GreyWords<Uint16>, PixelFormat::UINT16_GREY>,
            toRgb<RgbWords<Uint16>, PixelFormat::UINT16_RGB>,
            toRgb<RgbaWords<Uint16>, PixelFormat::UINT16_RGBA>,
            toRgb<GreyWords<Float16>, PixelFormat::FLOAT16_GREY>,
            toRgb<RgbWords<Float16>, PixelFormat::FLOAT16_RGB>,
            toRgb<RgbaWords<Float16>, PixelFormat::FLOAT16_RGBA>,
            toRgb<GreyFloat, PixelFormat::FLOAT32_GREY>,
            toRgb<RgbFloat, PixelFormat::FLOAT32_RGB>,
            copy,
        },
    .bgr8ToRgb = bgr8ToRgb,
    .bgra8ToRgb = bgra8ToRgb,
};

} // namespace Nolvex::Pixels::Detail
