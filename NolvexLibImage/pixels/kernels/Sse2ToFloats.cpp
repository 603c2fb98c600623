// SPDX-License-Identifier: MIT
#include "NolvexLibImage/pixels/kernels/KernelTable.h"

#include <cstring>
#include <emmintrin.h>

namespace Nolvex::Pixels::Detail {

namespace {

constexpr std::size_t ALIGNMENT = 16;

__m128 withOpaqueAlpha(__m128 colour)
{
    const __m128 rgb = _mm_castsi128_ps(_mm_set_epi32(0, -1, -1, -1));
    return _mm_or_ps(_mm_and_ps(colour, rgb), _mm_set_ps(1.0f, 0.0f, 0.0f, 0.0f));
}

__m128 swapped(__m128 pixel)
{
    return _mm_shuffle_ps(pixel, pixel, _MM_SHUFFLE(3, 0, 1, 2));
}

/// Loads CHANNELS numbers of two bytes into the lower words.
template<std::size_t CHANNELS>
__m128i loadWords(const std::byte* pixel)
{
    std::uint64_t words = 0;
    std::memcpy(&words, pixel, CHANNELS * 2);
    return _mm_cvtsi64_si128(static_cast<long long>(words));
}

// Readers. BYTES is the size of a pixel. channels() returns the channels of a pixel in the lower floats.

template<std::size_t CHANNELS>
struct Uint8Reader
{
    static constexpr std::size_t BYTES = CHANNELS;

    static __m128 channels(const std::byte* pixel)
    {
        std::int32_t bytes = 0;
        std::memcpy(&bytes, pixel, BYTES);
        const __m128i zero = _mm_setzero_si128();
        const __m128i words = _mm_unpacklo_epi8(_mm_cvtsi32_si128(bytes), zero);
        return _mm_mul_ps(_mm_cvtepi32_ps(_mm_unpacklo_epi16(words, zero)), _mm_set1_ps(UINT8_SCALE));
    }
};

template<std::size_t CHANNELS>
struct Uint16Reader
{
    static constexpr std::size_t BYTES = CHANNELS * 2;

    static __m128 channels(const std::byte* pixel)
    {
        const __m128i dwords = _mm_unpacklo_epi16(loadWords<CHANNELS>(pixel), _mm_setzero_si128());
        return _mm_mul_ps(_mm_cvtepi32_ps(dwords), _mm_set1_ps(UINT16_SCALE));
    }
};

template<std::size_t CHANNELS>
struct Float16Reader
{
    static constexpr std::size_t BYTES = CHANNELS * 2;

    static __m128 channels(const std::byte* pixel)
    {
        const __m128i dwords = _mm_unpacklo_epi16(loadWords<CHANNELS>(pixel), _mm_setzero_si128());
        const __m128i sign = _mm_slli_epi32(_mm_and_si128(dwords, _mm_set1_epi32(0x8000)), 16);
        return _mm_castsi128_ps(_mm_or_si128(sign, magnitude(_mm_and_si128(dwords, _mm_set1_epi32(0x7fff)))));
    }

private:
    /// The exponents of the two formats differ by 112, and the lengths of the fractions by 13 bits.
    /// Multiplying, instead of adding to the exponent, normalises the denormal halves too.
    static __m128i magnitude(__m128i half)
    {
        const __m128 shifted = _mm_castsi128_ps(_mm_slli_epi32(half, 13));
        const __m128i finite = _mm_castps_si128(_mm_mul_ps(shifted, _mm_set1_ps(0x1p112f)));
        return _mm_or_si128(finite, notFinite(half));
    }

    /// The additional bits of infinities and NaNs: the highest exponent, and the bit of a quiet NaN.
    static __m128i notFinite(__m128i half)
    {
        const __m128i infiniteOrNan = _mm_cmpgt_epi32(half, _mm_set1_epi32(0x7bff));
        const __m128i nan = _mm_cmpgt_epi32(half, _mm_set1_epi32(0x7c00));
        return _mm_or_si128(_mm_and_si128(infiniteOrNan, _mm_set1_epi32(0x7f80'0000)),
                            _mm_and_si128(nan, _mm_set1_epi32(0x0040'0000)));
    }
};

template<std::size_t CHANNELS>
struct Float32Reader
{
    static constexpr std::size_t BYTES = CHANNELS * 4;

    static __m128 channels(const std::byte* pixel)
    {
        alignas(ALIGNMENT) float values[4] = {};
        std::memcpy(values, pixel, BYTES);
        return _mm_load_ps(values);
    }
};

// Makers of pixels from one, three and four channels, and from three and four channels with red and blue
// swapped.

template<class Reader>
struct Grey : Reader
{
    static __m128 pixel(const std::byte* in)
    {
        const __m128 grey = Reader::channels(in);
        return withOpaqueAlpha(_mm_shuffle_ps(grey, grey, _MM_SHUFFLE(0, 0, 0, 0)));
    }
};

template<class Reader>
struct Opaque : Reader
{
    static __m128 pixel(const std::byte* in) { return withOpaqueAlpha(Reader::channels(in)); }
};

template<class Reader>
struct Complete : Reader
{
    static __m128 pixel(const std::byte* in) { return Reader::channels(in); }
};

template<class Pixel>
struct Swapped : Pixel
{
    static __m128 pixel(const std::byte* in) { return swapped(Pixel::pixel(in)); }
};

template<class Pixel>
void convert(const std::byte* source, Rgb* destination, std::size_t count)
{
    auto* out = reinterpret_cast<float*>(destination);
    const bool aligned = reinterpret_cast<std::uintptr_t>(out) % ALIGNMENT == 0;
    if (count < STREAMING_BYTES / sizeof(Rgb) || !aligned) {
        for (; count > 0; --count, source += Pixel::BYTES, out += 4)
            _mm_storeu_ps(out, Pixel::pixel(source));
        return;
    }
    for (; count > 0; --count, source += Pixel::BYTES, out += 4)
        _mm_stream_ps(out, Pixel::pixel(source));
    _mm_sfence();
}

void copy(const std::byte* source, Rgb* destination, std::size_t count)
{
    if (count > 0)
        std::memcpy(destination, source, count * sizeof(Rgb));
}

} // namespace

constinit const ToFloatsKernels SSE2_TO_FLOATS = {
    .toRgb =
        {
            convert<Grey<Uint8Reader<1>>>,
            convert<Opaque<Uint8Reader<3>>>,
            convert<Complete<Uint8Reader<4>>>,
            convert<Grey<Uint16Reader<1>>>,
            convert<Opaque<Uint16Reader<3>>>,
            convert<Complete<Uint16Reader<4>>>,
            convert<Grey<Float16Reader<1>>>,
            convert<Opaque<Float16Reader<3>>>,
            convert<Complete<Float16Reader<4>>>,
            convert<Grey<Float32Reader<1>>>,
            convert<Opaque<Float32Reader<3>>>,
            copy,
        },
    .bgr8ToRgb = convert<Swapped<Opaque<Uint8Reader<3>>>>,
    .bgra8ToRgb = convert<Swapped<Complete<Uint8Reader<4>>>>,
};

} // namespace Nolvex::Pixels::Detail
