// SPDX-License-Identifier: MIT
#include "NolvexLibImage/pixels/kernels/KernelTable.h"

#include <cstring>
#include <emmintrin.h>

namespace Nolvex::Pixels::Detail {

namespace {

constexpr std::size_t ALIGNMENT = 16;

/// The destination of a conversion: one plane, or one plane for the colours and one for alpha.
struct Planes
{
    std::uint8_t* colour;
    std::uint8_t* alpha = nullptr;
};

std::uint32_t lowDword(__m128i bytes)
{
    return static_cast<std::uint32_t>(_mm_cvtsi128_si32(bytes));
}

// Readers. four() makes 16 bytes of four pixels, and one() makes four bytes of one pixel.

/// Applies the colour rule. On demand applies the alpha rule to alpha, and swaps red and blue.
template<bool TRUNCATES_ALPHA, bool SWAPS>
struct LinearReader
{
    static __m128 scaled(const float* pixel)
    {
        __m128 values = _mm_loadu_ps(pixel);
        if constexpr (SWAPS)
            values = _mm_shuffle_ps(values, values, _MM_SHUFFLE(3, 0, 1, 2));
        // This order of the operands keeps NaN. NaN becomes the smallest integer, and packing makes 0 of all
        // negative integers.
        return _mm_mul_ps(_mm_min_ps(_mm_set1_ps(1.0f), values), _mm_set1_ps(255.0f));
    }

    static __m128i words(__m128 first, __m128 second)
    {
        const __m128i rounded = _mm_packs_epi32(_mm_cvtps_epi32(first), _mm_cvtps_epi32(second));
        if constexpr (!TRUNCATES_ALPHA)
            return rounded;
        const __m128i truncated = _mm_packs_epi32(_mm_cvttps_epi32(first), _mm_cvttps_epi32(second));
        const __m128i alpha = _mm_set_epi16(-1, 0, 0, 0, -1, 0, 0, 0);
        return _mm_or_si128(_mm_and_si128(alpha, truncated), _mm_andnot_si128(alpha, rounded));
    }

    static __m128i four(const float* in)
    {
        return _mm_packus_epi16(words(scaled(in), scaled(in + 4)), words(scaled(in + 8), scaled(in + 12)));
    }

    static std::uint32_t one(const float* in)
    {
        const __m128i pixel = words(scaled(in), _mm_setzero_ps());
        return lowDword(_mm_packus_epi16(pixel, pixel));
    }
};

/// Uses the table of a GammaEncoder.
class GammaReader
{
public:
    explicit GammaReader(const GammaLookup& lookup) : m_lookup(lookup) {}

    __m128i four(const float* in) const
    {
        return _mm_set_epi32(static_cast<int>(one(in + 12)), static_cast<int>(one(in + 8)),
                             static_cast<int>(one(in + 4)), static_cast<int>(one(in)));
    }

    std::uint32_t one(const float* in) const
    {
        alignas(ALIGNMENT) std::uint32_t bits[4];
        _mm_store_si128(reinterpret_cast<__m128i*>(bits), clamped(in));
        return byte(bits[0]) | byte(bits[1]) << 8 | byte(bits[2]) << 16 | byte(bits[3]) << 24;
    }

private:
    __m128i clamped(const float* in) const
    {
        const __m128i bits = _mm_loadu_si128(reinterpret_cast<const __m128i*>(in));
        const __m128i infinite = _mm_cmpeq_epi32(bits, _mm_set1_epi32(static_cast<int>(0xff80'0000)));
        const __m128i flip = _mm_and_si128(infinite, _mm_set1_epi32(static_cast<int>(m_lookup.infinityFlip)));
        const __m128 values = _mm_castsi128_ps(_mm_xor_si128(bits, flip));
        // The maximum of NaN and a number is the second operand.
        const __m128 lifted = _mm_max_ps(values, _mm_set1_ps(m_lookup.lowest));
        return _mm_castps_si128(_mm_min_ps(lifted, _mm_set1_ps(1.0f)));
    }

    std::uint32_t byte(std::uint32_t bits) const
    {
        const std::uint32_t bucket = (bits >> m_lookup.shift) - m_lookup.firstBucket;
        return (m_lookup.entries[bucket] + bits) >> m_lookup.shift;
    }

    GammaLookup m_lookup;
};

// Writers. four() takes 16 bytes of four pixels, and one() takes four bytes of one pixel. Writers with
// STREAMS write large outputs past the caches.

class RgbaWriter
{
public:
    static constexpr bool STREAMS = false;

    explicit RgbaWriter(Planes to) : m_to(to.colour) {}

    void four(__m128i pixels)
    {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(m_to), pixels);
        m_to += 16;
    }

    void one(std::uint32_t pixel)
    {
        std::memcpy(m_to, &pixel, 4);
        m_to += 4;
    }

protected:
    std::uint8_t* m_to;
};

/// The destination must be aligned.
class StreamingRgbaWriter : public RgbaWriter
{
public:
    static constexpr bool STREAMS = true;

    using RgbaWriter::RgbaWriter;

    void four(__m128i pixels)
    {
        _mm_stream_si128(reinterpret_cast<__m128i*>(m_to), pixels);
        m_to += 16;
    }
};

class RgbWriter
{
public:
    static constexpr bool STREAMS = false;

    explicit RgbWriter(Planes to) : m_to(to.colour) {}

    void four(__m128i pixels)
    {
        const std::uint64_t first = sixBytes(pixels);
        const std::uint64_t second = sixBytes(_mm_unpackhi_epi64(pixels, pixels));
        const std::uint64_t low = first | second << 48;
        const auto high = static_cast<std::uint32_t>(second >> 16);
        std::memcpy(m_to, &low, 8);
        std::memcpy(m_to + 8, &high, 4);
        m_to += 12;
    }

    void one(std::uint32_t pixel)
    {
        std::memcpy(m_to, &pixel, 3);
        m_to += 3;
    }

private:
    /// Returns the colours of the two lower pixels.
    static std::uint64_t sixBytes(__m128i pixels)
    {
        const auto both = static_cast<std::uint64_t>(_mm_cvtsi128_si64(pixels));
        return (both & 0xff'ffff) | (both >> 8 & 0xffff'ff00'0000);
    }

    std::uint8_t* m_to;
};

class PlanesWriter
{
public:
    static constexpr bool STREAMS = false;

    explicit PlanesWriter(Planes to) : m_colour(to), m_alpha(to.alpha) {}

    void four(__m128i pixels)
    {
        m_colour.four(pixels);
        const __m128i words = _mm_packs_epi32(_mm_srli_epi32(pixels, 24), _mm_setzero_si128());
        const std::uint32_t alphas = lowDword(_mm_packus_epi16(words, words));
        std::memcpy(m_alpha, &alphas, 4);
        m_alpha += 4;
    }

    void one(std::uint32_t pixel)
    {
        m_colour.one(pixel);
        *m_alpha++ = static_cast<std::uint8_t>(pixel >> 24);
    }

private:
    RgbWriter m_colour;
    std::uint8_t* m_alpha;
};

template<class Writer, class Reader>
void convert(const Reader& reader, const Rgb* source, Planes to, std::size_t count)
{
    const auto* in = reinterpret_cast<const float*>(source);
    Writer writer(to);
    for (; count >= 4; count -= 4, in += 16) {
        if (Writer::STREAMS && count > PREFETCH_PIXELS)
            _mm_prefetch(reinterpret_cast<const char*>(in + 4 * PREFETCH_PIXELS), _MM_HINT_T0);
        writer.four(reader.four(in));
    }
    for (; count > 0; --count, in += 4)
        writer.one(reader.one(in));
}

template<class Reader>
void convertToFourBytes(const Reader& reader, const Rgb* source, std::uint8_t* to, std::size_t count)
{
    const std::size_t beyond = reinterpret_cast<std::uintptr_t>(to) % ALIGNMENT;
    if (count < STREAMING_BYTES / 4 || beyond % 4 != 0)
        return convert<RgbaWriter>(reader, source, {to}, count);

    const std::size_t head = (ALIGNMENT - beyond) / 4;
    convert<RgbaWriter>(reader, source, {to}, head);
    convert<StreamingRgbaWriter>(reader, source + head, {to + head * 4}, count - head);
    _mm_sfence();
}

void rgbToRgb8(const Rgb* source, std::uint8_t* destination, std::size_t count)
{
    convert<RgbWriter>(LinearReader<false, false>(), source, {destination}, count);
}

void rgbToBgr8(const Rgb* source, std::uint8_t* destination, std::size_t count)
{
    convert<RgbWriter>(LinearReader<false, true>(), source, {destination}, count);
}

void rgbToRgba8(const Rgb* source, std::uint8_t* destination, std::size_t count)
{
    convertToFourBytes(LinearReader<true, false>(), source, destination, count);
}

void rgbToBgra8(const Rgb* source, std::uint8_t* destination, std::size_t count)
{
    convertToFourBytes(LinearReader<true, true>(), source, destination, count);
}

void rgbToRgb8Alpha8(const Rgb* source, std::uint8_t* rgb, std::uint8_t* alpha, std::size_t count)
{
    convert<PlanesWriter>(LinearReader<false, false>(), source, {rgb, alpha}, count);
}

void gammaToRgb8(const GammaLookup& lookup, const Rgb* source, std::uint8_t* destination, std::size_t count)
{
    convert<RgbWriter>(GammaReader(lookup), source, {destination}, count);
}

void gammaToRgb8Alpha8(const GammaLookup& lookup, const Rgb* source, std::uint8_t* rgb, std::uint8_t* alpha,
                       std::size_t count)
{
    convert<PlanesWriter>(GammaReader(lookup), source, {rgb, alpha}, count);
}

} // namespace

constinit const ToBytesKernels SSE2_TO_BYTES = {
    .rgbToRgb8 = rgbToRgb8,
    .rgbToBgr8 = rgbToBgr8,
    .rgbToRgba8 = rgbToRgba8,
    .rgbToBgra8 = rgbToBgra8,
    .rgbToRgb8Alpha8 = rgbToRgb8Alpha8,
    .gammaToRgb8 = gammaToRgb8,
    .gammaToRgb8Alpha8 = gammaToRgb8Alpha8,
};

} // namespace Nolvex::Pixels::Detail
