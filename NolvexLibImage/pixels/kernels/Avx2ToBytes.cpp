// SPDX-License-Identifier: MIT
//
// Compiled for AVX2. KernelTable.h says what must not be used here.
#include "NolvexLibImage/pixels/kernels/KernelTable.h"

#include <immintrin.h>

namespace Nolvex::Pixels::Detail {

namespace {

constexpr std::size_t ALIGNMENT = 32;
/// The number of pixels in an iteration. With three bytes each they fill whole registers.
constexpr std::size_t BLOCK = 32;

/// The destination of a conversion: one plane, or one plane for the colours and one for alpha.
struct Planes
{
    std::uint8_t* colour;
    std::uint8_t* alpha = nullptr;
};

template<bool STREAMS>
void store(std::uint8_t* to, __m256i bytes)
{
    if constexpr (STREAMS)
        _mm256_stream_si256(reinterpret_cast<__m256i*>(to), bytes);
    else
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(to), bytes);
}

/// Packing works within the halves of registers and leaves the words of the pixels 0 2 | 1 3 and 4 6 | 5 7.
/// Returns their bytes in order.
__m256i bytesInOrder(__m256i words0123, __m256i words4567)
{
    const __m256i bytes = _mm256_packus_epi16(words0123, words4567);
    return _mm256_permutevar8x32_epi32(bytes, _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7));
}

// Readers. eight() makes 32 bytes of eight pixels.

/// Applies the colour rule, and on demand the alpha rule to alpha.
template<bool TRUNCATES_ALPHA>
struct LinearReader
{
    static __m256 scaled(const float* in)
    {
        // This order of the operands keeps NaN. NaN becomes the smallest integer, and packing makes 0 of all
        // negative integers.
        const __m256 limited = _mm256_min_ps(_mm256_set1_ps(1.0f), _mm256_loadu_ps(in));
        return _mm256_mul_ps(limited, _mm256_set1_ps(255.0f));
    }

    static __m256i words(const float* in)
    {
        const __m256 a = scaled(in);
        const __m256 b = scaled(in + 8);
        const __m256i rounded = _mm256_packs_epi32(_mm256_cvtps_epi32(a), _mm256_cvtps_epi32(b));
        if constexpr (!TRUNCATES_ALPHA)
            return rounded;
        const __m256i truncated = _mm256_packs_epi32(_mm256_cvttps_epi32(a), _mm256_cvttps_epi32(b));
        return _mm256_blend_epi16(rounded, truncated, 0x88);
    }

    static __m256i eight(const float* in) { return bytesInOrder(words(in), words(in + 16)); }
};

/// Uses the table of a GammaEncoder.
class GammaReader
{
public:
    explicit GammaReader(const GammaLookup& lookup) : m_lookup(lookup) {}

    __m256i eight(const float* in) const { return bytesInOrder(words(in), words(in + 16)); }

private:
    __m256i words(const float* in) const { return _mm256_packs_epi32(dwords(in), dwords(in + 8)); }

    __m256i dwords(const float* in) const
    {
        const __m256i bits = clamped(in);
        const __m128i shift = _mm_cvtsi32_si128(m_lookup.shift);
        const __m256i first = _mm256_set1_epi32(static_cast<int>(m_lookup.firstBucket));
        const __m256i bucket = _mm256_sub_epi32(_mm256_srl_epi32(bits, shift), first);
        const auto* entries = reinterpret_cast<const int*>(m_lookup.entries);
        const __m256i entry = _mm256_i32gather_epi32(entries, bucket, 4);
        return _mm256_srl_epi32(_mm256_add_epi32(entry, bits), shift);
    }

    __m256i clamped(const float* in) const
    {
        const __m256i bits = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(in));
        const __m256i infinite = _mm256_cmpeq_epi32(bits, _mm256_set1_epi32(static_cast<int>(0xff80'0000)));
        const __m256i flip =
            _mm256_and_si256(infinite, _mm256_set1_epi32(static_cast<int>(m_lookup.infinityFlip)));
        const __m256 values = _mm256_castsi256_ps(_mm256_xor_si256(bits, flip));
        // The maximum of NaN and a number is the second operand.
        const __m256 lifted = _mm256_max_ps(values, _mm256_set1_ps(m_lookup.lowest));
        return _mm256_castps_si256(_mm256_min_ps(lifted, _mm256_set1_ps(1.0f)));
    }

    GammaLookup m_lookup;
};

// Writers. COLOUR_BYTES and ALPHA_BYTES are the sizes of a pixel in the two planes. write() writes four times
// eight pixels.

template<bool SWAPS>
struct RgbaWriter
{
    static constexpr std::size_t COLOUR_BYTES = 4;
    static constexpr std::size_t ALPHA_BYTES = 0;

    static __m256i ordered(__m256i pixels)
    {
        if constexpr (!SWAPS)
            return pixels;
        const __m128i order = _mm_setr_epi8(2, 1, 0, 3, 6, 5, 4, 7, 10, 9, 8, 11, 14, 13, 12, 15);
        return _mm256_shuffle_epi8(pixels, _mm256_broadcastsi128_si256(order));
    }

    template<bool STREAMS>
    static void write(Planes to, __m256i a, __m256i b, __m256i c, __m256i d)
    {
        store<STREAMS>(to.colour, ordered(a));
        store<STREAMS>(to.colour + 32, ordered(b));
        store<STREAMS>(to.colour + 64, ordered(c));
        store<STREAMS>(to.colour + 96, ordered(d));
    }
};

/// Sorts each half of a register into the twelve colour bytes of four pixels and their four alpha bytes.
template<bool SWAPS>
__m256i alphasLast(__m256i pixels)
{
    const __m128i order = SWAPS ? _mm_setr_epi8(2, 1, 0, 6, 5, 4, 10, 9, 8, 14, 13, 12, 3, 7, 11, 15)
                                : _mm_setr_epi8(0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, 3, 7, 11, 15);
    return _mm256_shuffle_epi8(pixels, _mm256_broadcastsi128_si256(order));
}

/// Eight pixels have three quadwords of colour and one of alpha. They are moved to the places where blending
/// makes full registers of them: colour A0 A1 A2 B0, B1 B2 C0 C1, C2 D0 D1 D2, alpha D C B A.
template<bool SWAPS, bool WRITES_ALPHA>
struct RgbWriter
{
    static constexpr std::size_t COLOUR_BYTES = 3;
    static constexpr std::size_t ALPHA_BYTES = WRITES_ALPHA ? 1 : 0;

    template<int D0, int D1, int D2, int D3, int D4, int D5, int D6, int D7>
    static __m256i arranged(__m256i pixels)
    {
        return _mm256_permutevar8x32_epi32(alphasLast<SWAPS>(pixels),
                                           _mm256_setr_epi32(D0, D1, D2, D3, D4, D5, D6, D7));
    }

    // The doublewords 0 1 2 4 5 6 are colour, and 3 7 are alpha.
    template<bool STREAMS>
    static void write(Planes to, __m256i a, __m256i b, __m256i c, __m256i d)
    {
        a = arranged<0, 1, 2, 4, 5, 6, 3, 7>(a);
        b = arranged<2, 4, 5, 6, 3, 7, 0, 1>(b);
        c = arranged<5, 6, 3, 7, 0, 1, 2, 4>(c);
        d = arranged<3, 7, 0, 1, 2, 4, 5, 6>(d);
        store<STREAMS>(to.colour, _mm256_blend_epi32(a, b, 0xc0));
        store<STREAMS>(to.colour + 32, _mm256_blend_epi32(b, c, 0xf0));
        store<STREAMS>(to.colour + 64, _mm256_blend_epi32(c, d, 0xfc));
        if constexpr (WRITES_ALPHA) {
            const __m256i dc = _mm256_blend_epi32(d, c, 0x0c);
            const __m256i ba = _mm256_blend_epi32(b, a, 0xc0);
            const __m256i dcba = _mm256_blend_epi32(dc, ba, 0xf0);
            store<STREAMS>(to.alpha, _mm256_permute4x64_epi64(dcba, _MM_SHUFFLE(0, 1, 2, 3)));
        }
    }
};

void prefetchBlock(const float* in)
{
    for (std::size_t line = 0; line < 4 * BLOCK; line += 16)
        _mm_prefetch(reinterpret_cast<const char*>(in + line), _MM_HINT_T0);
}

template<class Writer, bool STREAMS, class Reader>
void convertBlocks(const Reader& reader, const Rgb* source, Planes to, std::size_t blocks)
{
    const auto* in = reinterpret_cast<const float*>(source);
    for (; blocks > 0; --blocks, in += 4 * BLOCK) {
        if (STREAMS && blocks > PREFETCH_PIXELS / BLOCK)
            prefetchBlock(in + 4 * PREFETCH_PIXELS);
        Writer::template write<STREAMS>(to, reader.eight(in), reader.eight(in + 32), reader.eight(in + 64),
                                        reader.eight(in + 96));
        to.colour += Writer::COLOUR_BYTES * BLOCK;
        to.alpha += Writer::ALPHA_BYTES * BLOCK;
    }
}

bool isAligned(const std::uint8_t* address)
{
    return reinterpret_cast<std::uintptr_t>(address) % ALIGNMENT == 0;
}

/// The number of pixels to skip at the beginning until the destinations are aligned, or BLOCK if no number
/// aligns them.
template<class Writer>
std::size_t pixelsToAlignment(Planes to)
{
    std::size_t pixels = 0;
    while (pixels < BLOCK && !(isAligned(to.colour + pixels * Writer::COLOUR_BYTES) &&
                               (Writer::ALPHA_BYTES == 0 || isAligned(to.alpha + pixels))))
        ++pixels;
    return pixels;
}

/// `narrow` converts the pixels that do not fill a block: narrow(source, planes, count).
template<class Writer, class Reader, class Narrow>
void convert(const Reader& reader, const Rgb* source, Planes to, std::size_t count, Narrow narrow)
{
    const bool large = count >= STREAMING_BYTES / (Writer::COLOUR_BYTES + Writer::ALPHA_BYTES);
    const std::size_t aligning = large ? pixelsToAlignment<Writer>(to) : BLOCK;
    const bool streams = aligning < BLOCK;
    const std::size_t head = streams ? aligning : 0;
    const std::size_t blocks = (count - head) / BLOCK;
    const std::size_t tail = head + blocks * BLOCK;
    const auto from = [to](std::size_t pixel) {
        return Planes{to.colour + pixel * Writer::COLOUR_BYTES, to.alpha + pixel * Writer::ALPHA_BYTES};
    };

    narrow(source, to, head);
    if (streams)
        convertBlocks<Writer, true>(reader, source + head, from(head), blocks);
    else
        convertBlocks<Writer, false>(reader, source + head, from(head), blocks);
    narrow(source + tail, from(tail), count - tail);
    if (streams)
        _mm_sfence();
}

/// Writes one plane. NARROW is the member of the table that converts the pixels that do not fill a block.
template<class Writer, class Reader, ToBytesKernels::ToBytes ToBytesKernels::*NARROW>
void convertToBytes(const Rgb* source, std::uint8_t* destination, std::size_t count)
{
    convert<Writer>(Reader(), source, {destination}, count, [](const Rgb* rest, Planes to, std::size_t n) {
        (SSE2_TO_BYTES.*NARROW)(rest, to.colour, n);
    });
}

void rgbToRgb8Alpha8(const Rgb* source, std::uint8_t* rgb, std::uint8_t* alpha, std::size_t count)
{
    convert<RgbWriter<false, true>>(LinearReader<false>(), source, {rgb, alpha}, count,
                                    [](const Rgb* rest, Planes to, std::size_t n) {
                                        SSE2_TO_BYTES.rgbToRgb8Alpha8(rest, to.colour, to.alpha, n);
                                    });
}

void gammaToRgb8(const GammaLookup& lookup, const Rgb* source, std::uint8_t* destination, std::size_t count)
{
    convert<RgbWriter<false, false>>(GammaReader(lookup), source, {destination}, count,
                                     [&lookup](const Rgb* rest, Planes to, std::size_t n) {
                                         SSE2_TO_BYTES.gammaToRgb8(lookup, rest, to.colour, n);
                                     });
}

void gammaToRgb8Alpha8(const GammaLookup& lookup, const Rgb* source, std::uint8_t* rgb, std::uint8_t* alpha,
                       std::size_t count)
{
    convert<RgbWriter<false, true>>(GammaReader(lookup), source, {rgb, alpha}, count,
                                    [&lookup](const Rgb* rest, Planes to, std::size_t n) {
                                        SSE2_TO_BYTES.gammaToRgb8Alpha8(lookup, rest, to.colour, to.alpha, n);
                                    });
}

using Kernels = ToBytesKernels;

} // namespace

constinit const ToBytesKernels AVX2_TO_BYTES = {
    .rgbToRgb8 = convertToBytes<RgbWriter<false, false>, LinearReader<false>, &Kernels::rgbToRgb8>,
    .rgbToBgr8 = convertToBytes<RgbWriter<true, false>, LinearReader<false>, &Kernels::rgbToBgr8>,
    .rgbToRgba8 = convertToBytes<RgbaWriter<false>, LinearReader<true>, &Kernels::rgbToRgba8>,
    .rgbToBgra8 = convertToBytes<RgbaWriter<true>, LinearReader<true>, &Kernels::rgbToBgra8>,
    .rgbToRgb8Alpha8 = rgbToRgb8Alpha8,
    .gammaToRgb8 = gammaToRgb8,
    .gammaToRgb8Alpha8 = gammaToRgb8Alpha8,
};

} // namespace Nolvex::Pixels::Detail
