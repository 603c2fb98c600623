// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibImage/PixelFormat.h"

#include "NolvexLib/Rgb.h"

#include <cstddef>
#include <cstdint>

namespace Nolvex::Pixels::Detail {

/// The table of a GammaEncoder as the kernels read it. With x the value clamped to [lowest, 1] and u the bits
/// of x: byte = (entries[(u >> shift) - firstBucket] + u) >> shift, in 32 bits. Whatever lies below `lowest`,
/// and NaN, gives the byte of `lowest`.
struct GammaLookup
{
    const std::uint32_t* entries;
    std::uint32_t firstBucket;
    std::int32_t shift;
    float lowest;
    /// Minus infinity has these bits inverted first: the sign, when its power is plus infinity.
    std::uint32_t infinityFlip;
};

/// The conversions of one CPU level to bytes, described in Conversions.h and GammaEncoder.h.
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

// The wider levels are compiled with instructions that not every processor has. Their files must therefore
// emit nothing that the linker could merge with the same function of another file: helpers live in anonymous
// namespaces, and of headers they use types, constants and intrinsics only, no inline functions and no
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

/// The kernels in use.
const KernelTable& activeKernels();

/// From this many bytes of output on a kernel writes past the caches: the output would not stay in them
/// anyway, and memory need not be read before it is written over.
inline constexpr std::size_t STREAMING_BYTES = std::size_t(16) << 20;

/// How far ahead such a kernel asks for the pixels it will read. Measured: without asking it waits for memory
/// half of the time, since what the processor fetches by itself ends with the page.
inline constexpr std::size_t PREFETCH_PIXELS = 512;

/// The single-precision numbers next to 1/255 and 1/65535: bits 3B808081 and 37800080.
inline constexpr float UINT8_SCALE = 1.0f / 255.0f;
inline constexpr float UINT16_SCALE = 1.0f / 65535.0f;

} // namespace Nolvex::Pixels::Detail
