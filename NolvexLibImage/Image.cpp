// SPDX-License-Identifier: MIT
#include "NolvexLibImage/Image.h"

#include "NolvexLibImage/pixels/Conversions.h"

#include "NolvexLib/StopException.h"

#include <cstdlib>
#include <cstring>
#include <new>
#include <string>
#include <utility>

namespace Nolvex {

namespace {

struct FormatTraits
{
    int channels;
    int channelBytes;
};

FormatTraits getTraits(PixelFormat format)
{
    static constexpr FormatTraits TRAITS[PIXEL_FORMAT_COUNT] = {
        {1, 1}, {3, 1}, {4, 1}, {1, 2}, {3, 2}, {4, 2}, {1, 2}, {3, 2}, {4, 2}, {1, 4}, {3, 4}, {4, 4},
    };
    const int index = static_cast<int>(format);
    if (index < 0 || index >= PIXEL_FORMAT_COUNT)
        Detail::throwStopException("Image", __LINE__);
    return TRAITS[index];
}

std::wstring sizeText(std::int32_t width, std::int32_t height)
{
    return std::to_wstring(width) + L" x " + std::to_wstring(height) + L" pixels";
}

Unexpected<String> sizeError(std::int32_t width, std::int32_t height, const wchar_t* reason)
{
    return Unexpected{String(L"An image of " + sizeText(width, height) + reason)};
}

} // namespace

Expected<Image, String> Image::create(std::int32_t width, std::int32_t height, PixelFormat format,
                                      float gamma)
{
    const auto pixelBytes = static_cast<std::int64_t>(getPixelFormatByteCount(format));
    if (width < 1 || height < 1)
        return sizeError(width, height, L" is not possible: it needs at least one column and one row.");

    const std::int64_t pixels = std::int64_t(width) * height;
    if (pixels > MAX_PIXEL_COUNT)
        return sizeError(width, height, L" is too large: at most 2147483647 pixels are possible.");
    if (pixels * pixelBytes > MAX_BYTE_COUNT)
        return sizeError(width, height, L" is too large: it would take more than 16 GiB of memory.");

    Memory memory = allocate(static_cast<std::size_t>(pixels * pixelBytes));
    if (!memory)
        return sizeError(width, height, L" does not fit into the memory that is left.");
    return Image({.width = width, .height = height, .format = format, .gamma = gamma}, std::move(memory));
}

Image::Image(const ImageDescriptor& descriptor, Memory memory)
    : m_descriptor(descriptor),
      m_rowBytes(static_cast<std::size_t>(descriptor.width) * getPixelFormatByteCount(descriptor.format)),
      m_memory(std::move(memory))
{}

Image::~Image() = default;

Image::Image(const Image& other)
    : m_descriptor(other.m_descriptor), m_rowBytes(other.m_rowBytes), m_memory(allocate(other.byteCount()))
{
    if (other.byteCount() == 0)
        return;
    if (!m_memory)
        throw std::bad_alloc();
    std::memcpy(m_memory.get(), other.m_memory.get(), byteCount());
}

Image::Image(Image&& other) noexcept
    : m_descriptor(std::exchange(other.m_descriptor, {})),
      m_rowBytes(std::exchange(other.m_rowBytes, 0)),
      m_memory(std::move(other.m_memory))
{}

Image& Image::operator=(const Image& other)
{
    if (this != &other)
        *this = Image(other);
    return *this;
}

Image& Image::operator=(Image&& other) noexcept
{
    m_descriptor = std::exchange(other.m_descriptor, {});
    m_rowBytes = std::exchange(other.m_rowBytes, 0);
    m_memory = std::move(other.m_memory);
    return *this;
}

int Image::getPixelFormatChannelCount(PixelFormat format)
{
    return getTraits(format).channels;
}

std::size_t Image::getPixelFormatByteCount(PixelFormat format)
{
    const FormatTraits traits = getTraits(format);
    return static_cast<std::size_t>(traits.channels) * static_cast<std::size_t>(traits.channelBytes);
}

ArrayView<std::byte> Image::row(std::int32_t y)
{
    return {rowStart(y), m_rowBytes};
}

ArrayView<const std::byte> Image::row(std::int32_t y) const
{
    return {rowStart(y), m_rowBytes};
}

Rgb Image::getRgba(std::int32_t x, std::int32_t y) const
{
    if (x < 0 || x >= m_descriptor.width)
        Detail::throwStopException("Image", __LINE__);
    Rgb pixel;
    const std::size_t offset = static_cast<std::size_t>(x) * getPixelFormatByteCount(m_descriptor.format);
    Pixels::toRgb(m_descriptor.format, rowStart(y) + offset, &pixel, 1);
    return pixel;
}

void Image::readRow(std::int32_t y, Rgb* destination) const
{
    Pixels::toRgb(m_descriptor.format, rowStart(y), destination,
                  static_cast<std::size_t>(m_descriptor.width));
}

void Image::Free::operator()(std::byte* memory) const noexcept
{
    std::free(memory);
}

// calloc need not clear large blocks, which the system provides as zeros.
Image::Memory Image::allocate(std::size_t size) noexcept
{
    return Memory(static_cast<std::byte*>(size == 0 ? nullptr : std::calloc(size, 1)));
}

std::size_t Image::byteCount() const noexcept
{
    return m_rowBytes * static_cast<std::size_t>(m_descriptor.height);
}

std::byte* Image::rowStart(std::int32_t y) const
{
    if (y < 0 || y >= m_descriptor.height)
        Detail::throwStopException("Image", __LINE__);
    return m_memory.get() + static_cast<std::size_t>(y) * m_rowBytes;
}

} // namespace Nolvex
