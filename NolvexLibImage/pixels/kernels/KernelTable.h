// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibImage/PixelFormat.h"

#include "NolvexLib/Rgb.h"

#include <cstddef>
#include <cstdint>

namespace Nolvex::Pixels::Detail {

/// The table of a GammaEncoder as the kernels read it. Let x be the value clamped to [lowest, 1], and u the
/// bits of x. Then the byte is (entries[(u >> shift) - firstBucket] + u) >> shift in 32 bits. Values below
/// `lowest` and NaN give the byte of `lowest`.
struct GammaLookup
{
    const std::uint32_t* entries;
    std::uint32_t firstBucket;
    std::int32_t shift;
    float lowest;
    /// The bits of minus infinity that are inverted first: the sign bit if its power is plus infinity.
    std::uint32_t infinityFlip;
};

/// The conversions of one CPU level to bytes. Conversions.h and GammaEncoder.h describe them.
struct ToBytesKernels
{
    using ToBytes = void (*)(const Rgb* source, std::uint8_t* destination, std::size_t count);
    using ToPlanes = void (*)(const Rgb* source, std::uint8_t* rgb, std::uint8_t* alpha, std::size_t count);
    using GammaToBytes = void (*)(const GammaLookup& lookup, const Rgb* source, std::uint8_t* destination,
                                  std::size_t count);
    using GammaToPlanes = void (*)(const GammaLookup& lookup, const Rgb* source, std::uint8_t* rgb,
                                   std::uint8_t* alpha, std::size_t count);

    ToBytes rgbToRgb8;
    ToBytes rgbToBgr8;
    ToBytes rgbToRgba8;
    ToBytes rgbToBgra8;
    ToPlanes rgbToRgb8Alpha8;
    GammaToBytes gammaToRgb8;
    GammaToPlanes gammaToRgb8Alpha8;
};

/// The conversions of one CPU level to floats.
struct ToFloatsKernels
{
    using ToRgb = void (*)(const std::byte* source, Rgb* destination, std::size_t count);

    /// In the order of PixelFormat.
    ToRgb toRgb[PIXEL_FORMAT_COUNT];
    ToRgb bgr8ToRgb;
    ToRgb bgra8ToRgb;
};

// The wider levels are compiled with instructions that not every processor has. The linker must not merge a
// function of their files with the same function of another file. So these files define their functions in
// anonymous namespaces, and use only types, constants and intrinsics of headers: no inline functions and no
// templates of the standard library.
extern const ToBytesKernels SSE2_TO_BYTES;
extern const ToBytesKernels AVX2_TO_BYTES;
extern const ToFloatsKernels SSE2_TO_FLOATS;
extern const ToFloatsKernels AVX2_TO_FLOATS;

/// All conversions of one CPU level.
struct KernelTable
{
    const ToBytesKernels& toBytes;
    const ToFloatsKernels& toFloats;
};

/// The table of the level in use.
const KernelTable& activeKernels();

/// A kernel writes outputs of at least this many bytes past the caches. They would not stay in the caches
/// anyway, and the processor then does not read the memory before overwriting it.
inline constexpr std::size_t STREAMING_BYTES = std::size_t(16) << 20;

/// How far ahead such a kernel prefetches its source. Without that it was measured to wait for memory half of
/// the time, since the processor itself prefetches only to the end of the page.
inline constexpr std::size_t PREFETCH_PIXELS = 512;

/// The single-precision numbers nearest to 1/255 and 1/65535: bits 3B808081 and 37800080.
inline constexpr float UINT8_SCALE = 1.0f / 255.0f;
inline constexpr float UINT16_SCALE = 1.0f / 65535.0f;

} // namespace Nolvex::Pixels::Detail
