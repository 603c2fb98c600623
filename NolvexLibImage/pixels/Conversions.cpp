// SPDX-License-Identifier: MIT
#include "NolvexLibImage/pixels/Conversions.h"

#include "NolvexLibImage/pixels/kernels/KernelTable.h"

#include "NolvexLib/StopException.h"

namespace Nolvex::Pixels {

using Detail::activeKernels;

void rgbToRgb8(const Rgb* source, std::uint8_t* destination, std::size_t count)
{
    activeKernels().toBytes.rgbToRgb8(source, destination, count);
}

void rgbToBgr8(const Rgb* source, std::uint8_t* destination, std::size_t count)
{
    activeKernels().toBytes.rgbToBgr8(source, destination, count);
}

void rgbToRgba8(const Rgb* source, std::uint8_t* destination, std::size_t count)
{
    activeKernels().toBytes.rgbToRgba8(source, destination, count);
}

void rgbToBgra8(const Rgb* source, std::uint8_t* destination, std::size_t count)
{
    activeKernels().toBytes.rgbToBgra8(source, destination, count);
}

void rgbToRgb8Alpha8(const Rgb* source, std::uint8_t* rgb, std::uint8_t* alpha, std::size_t count)
{
    activeKernels().toBytes.rgbToRgb8Alpha8(source, rgb, alpha, count);
}

void rgb8ToRgb(const std::uint8_t* source, Rgb* destination, std::size_t count)
{
    toRgb(PixelFormat::UINT8_RGB, reinterpret_cast<const std::byte*>(source), destination, count);
}

void bgr8ToRgb(const std::uint8_t* source, Rgb* destination, std::size_t count)
{
    activeKernels().toFloats.bgr8ToRgb(reinterpret_cast<const std::byte*>(source), destination, count);
}

void rgba8ToRgb(const std::uint8_t* source, Rgb* destination, std::size_t count)
{
    toRgb(PixelFormat::UINT8_RGBA, reinterpret_cast<const std::byte*>(source), destination, count);
}

void bgra8ToRgb(const std::uint8_t* source, Rgb* destination, std::size_t count)
{
    activeKernels().toFloats.bgra8ToRgb(reinterpret_cast<const std::byte*>(source), destination, count);
}

void toRgb(PixelFormat format, const std::byte* source, Rgb* destination, std::size_t count)
{
    const int index = static_cast<int>(format);
    if (index < 0 || index >= PIXEL_FORMAT_COUNT)
        Nolvex::Detail::throwStopException("pixels/Conversions", __LINE__);
    activeKernels().toFloats.toRgb[index](source, destination, count);
}

} // namespace Nolvex::Pixels
