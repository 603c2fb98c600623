// SPDX-License-Identifier: MIT
#include "apps/viewer/wire/ReceivedPicture.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <new>
#include <utility>

namespace Nolvex::Viewer {

namespace {

Bucket united(const Bucket& a, const Bucket& b)
{
    if (a.isEmpty())
        return b;
    return {{std::min(a.min.x, b.min.x), std::min(a.min.y, b.min.y)},
            {std::max(a.max.x, b.max.x), std::max(a.max.y, b.max.y)}};
}

} // namespace

Expected<ReceivedPicture, String> ReceivedPicture::create(Pixel size, PixelFormat format, float gamma,
                                                          AlphaKind alpha)
{
    Expected<Image, String> image = Image::create(size.x, size.y, format, gamma);
    if (!image)
        return Unexpected{image.error()};
    return ReceivedPicture(*std::move(image), alpha);
}

ReceivedPicture::ReceivedPicture(Image image, AlphaKind alpha)
    : m_descriptor(image.descriptor()), m_alpha(alpha), m_image(std::move(image)), m_changed(bounds())
{}

std::int64_t ReceivedPicture::byteCount() const
{
    return std::int64_t{m_descriptor.width} * m_descriptor.height *
           static_cast<std::int64_t>(Image::getPixelFormatByteCount(m_descriptor.format));
}

Image& ReceivedPicture::writable()
{
    if (m_lent) {
        m_image = Image(*m_lent);
        m_lent.reset();
    }
    return m_image;
}

// All systems that the library runs on have the byte order of the wire.
static_assert(std::endian::native == std::endian::little);

void ReceivedPicture::write(const Bucket& area, ArrayView<const std::byte> pixels)
{
    Image& image = writable();
    const std::size_t pixelSize = Image::getPixelFormatByteCount(m_descriptor.format);
    const std::size_t rowSize = static_cast<std::size_t>(area.width()) * pixelSize;
    const std::size_t offset = static_cast<std::size_t>(area.min.x) * pixelSize;
    for (std::int32_t y = 0; y < area.height(); ++y) {
        const ArrayView<std::byte> row =
            image.row(m_descriptor.height - 1 - (area.min.y + y)).subspan(offset, rowSize);
        std::memcpy(row.data(), pixels.data() + static_cast<std::size_t>(y) * rowSize, rowSize);
    }
    m_isBlank = false;
    m_changed = united(m_changed, area);
}

void ReceivedPicture::setProgress(float progress)
{
    m_hasNewProgress = m_hasNewProgress || progress != m_progress;
    m_progress = progress;
}

Image ReceivedPicture::takeImage()
{
    Image image = isComplete() && !m_lent ? std::move(m_image) : copy();
    m_changed = {};
    return image;
}

Image ReceivedPicture::copy() const
{
    if (m_lent)
        return *m_lent;
    if (!m_isBlank)
        return m_image;
    // Zeros are not copied: the system has memory for them only when they are written or read.
    Expected<Image, String> blank =
        Image::create(m_descriptor.width, m_descriptor.height, m_descriptor.format, m_descriptor.gamma);
    if (!blank)
        throw std::bad_alloc();
    return *std::move(blank);
}

} // namespace Nolvex::Viewer
