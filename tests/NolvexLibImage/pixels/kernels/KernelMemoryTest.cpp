// SPDX-License-Identifier: MIT
// Which memory the kernels (*ToBytes.cpp and *ToFloats.cpp) touch. They load and store whole registers, which
// are larger than most pixels.
#include "NolvexLibImage/pixels/kernels/KernelTable.h"

#include "../Reference.h"
#include "AtEachKernelTable.h"
#include "support/GuardedMemory.h"

#include <algorithm>
#include <cstring>
#include <functional>

namespace Nolvex::Pixels::Detail {

namespace {

constexpr std::size_t MAX_PIXELS = 70;

/// A kernel with the sizes of the pixels that it reads and writes.
struct Kernel
{
    std::size_t sourceBytes;
    std::size_t destinationBytes;
    std::function<void(const std::byte* source, std::byte* destination, std::size_t count)> convert;
};

Kernel toOnePlane(ToBytesKernels::ToBytes kernel, std::size_t bytes)
{
    return {sizeof(Rgb), bytes, [kernel](const std::byte* source, std::byte* destination, std::size_t count) {
                kernel(reinterpret_cast<const Rgb*>(source), reinterpret_cast<std::uint8_t*>(destination),
                       count);
            }};
}

/// A kernel for two planes, of which the first lies in front of the second without a gap.
Kernel toTwoPlanes(const std::function<void(const Rgb*, std::uint8_t*, std::uint8_t*, std::size_t)>& kernel)
{
    return {sizeof(Rgb), 4, [kernel](const std::byte* source, std::byte* destination, std::size_t count) {
                auto* const bytes = reinterpret_cast<std::uint8_t*>(destination);
                kernel(reinterpret_cast<const Rgb*>(source), bytes, bytes + 3 * count, count);
            }};
}

Kernel toPixels(ToFloatsKernels::ToRgb kernel, PixelFormat format)
{
    return {Reference::pixelBytes(format), sizeof(Rgb),
            [kernel](const std::byte* source, std::byte* destination, std::size_t count) {
                kernel(source, reinterpret_cast<Rgb*>(destination), count);
            }};
}

/// A table in which the byte of every float is 0, which is enough to see which memory a kernel touches.
GammaLookup anyLookup()
{
    static const std::uint32_t entries[2] = {0U - (0x3f00'0000U), 0U - (0x3f80'0000U)};
    return {entries, 0x3f00'0000U >> 23, 23, 0.5f, 0};
}

std::vector<Kernel> kernelsOf(const ToBytesKernels& toBytes, const ToFloatsKernels& toFloats)
{
    std::vector<Kernel> kernels = {
        toOnePlane(toBytes.rgbToRgb8, 3),
        toOnePlane(toBytes.rgbToBgr8, 3),
        toOnePlane(toBytes.rgbToRgba8, 4),
        toOnePlane(toBytes.rgbToBgra8, 4),
        toTwoPlanes(toBytes.rgbToRgb8Alpha8),
        toTwoPlanes([&toBytes](const Rgb* source, std::uint8_t* rgb, std::uint8_t* alpha, std::size_t count) {
            toBytes.gammaToRgb8Alpha8(anyLookup(), source, rgb, alpha, count);
        }),
        toTwoPlanes([&toBytes](const Rgb* source, std::uint8_t* rgb, std::uint8_t* alpha, std::size_t count) {
            toBytes.gammaToRgb8(anyLookup(), source, rgb, count);
            std::fill_n(alpha, count, std::uint8_t(0));
        }),
        toPixels(toFloats.bgr8ToRgb, PixelFormat::UINT8_RGB),
        toPixels(toFloats.bgra8ToRgb, PixelFormat::UINT8_RGBA),
    };
    for (int format = 0; format < PIXEL_FORMAT_COUNT; ++format)
        kernels.push_back(toPixels(toFloats.toRgb[format], static_cast<PixelFormat>(format)));
    return kernels;
}

} // namespace

using KernelMemoryTest = AtEachKernelTable;
INSTANTIATE_TEST_SUITE_P(Levels, KernelMemoryTest, testing::ValuesIn(AtEachLevel::levels()),
                         AtEachLevel::nameOf);

TEST_P(KernelMemoryTest, pixelsAtTheEndOfTheMemory_areNotOverrun)
{
    const Tests::GuardedMemory source(MAX_PIXELS * sizeof(Rgb));
    const Tests::GuardedMemory destination(MAX_PIXELS * sizeof(Rgb));
    for (const Kernel& kernel : kernelsOf(toBytes(), toFloats())) {
        for (std::size_t count = 0; count <= MAX_PIXELS; ++count)
            kernel.convert(source.lastBytes(count * kernel.sourceBytes),
                           destination.lastBytes(count * kernel.destinationBytes), count);
    }
}

TEST_P(KernelMemoryTest, pixelsAtTheStartOfTheMemory_areNotUnderrun)
{
    const Tests::GuardedMemory source(MAX_PIXELS * sizeof(Rgb));
    const Tests::GuardedMemory destination(MAX_PIXELS * sizeof(Rgb));
    for (const Kernel& kernel : kernelsOf(toBytes(), toFloats())) {
        for (std::size_t count = 0; count <= MAX_PIXELS; ++count)
            kernel.convert(source.firstBytes(), destination.firstBytes(), count);
    }
}

TEST_P(KernelMemoryTest, largeRowsAtTheEndOfTheMemory_areNotOverrun)
{
    // The kernels prefetch the source of such rows, and align their stores.
    const std::size_t count = STREAMING_BYTES / 3 + 33;
    const Tests::GuardedMemory source(count * sizeof(Rgb));
    const Tests::GuardedMemory destination(count * sizeof(Rgb));
    for (const Kernel& kernel : kernelsOf(toBytes(), toFloats()))
        kernel.convert(source.lastBytes(count * kernel.sourceBytes),
                       destination.lastBytes(count * kernel.destinationBytes), count);
}

} // namespace Nolvex::Pixels::Detail
