// SPDX-License-Identifier: MIT
#include "NolvexLibWx/DeviceIndependentBitmap.h"

#include "NolvexLibImage/pixels/Conversions.h"

namespace Nolvex {

namespace {

constexpr std::size_t PIXELS_OFFSET =
    DeviceIndependentBitmap::FILE_HEADER_SIZE + DeviceIndependentBitmap::HEADER_SIZE;

constexpr std::uint16_t COLOUR_PLANES = 1;
constexpr std::uint16_t BITS_PER_PIXEL = 24;
constexpr std::uint32_t NOT_COMPRESSED = 0;
// 2835 pixels a metre are 72 pixels an inch.
constexpr std::uint32_t PIXELS_PER_METRE = 2835;

// Returns 0 for a file that would be too large.
std::size_t fileSize(Pixel size)
{
    constexpr std::int64_t MAX_ROWS_SIZE =
        DeviceIndependentBitmap::MAX_FILE_SIZE - std::int64_t(PIXELS_OFFSET);
    const std::int64_t stride = DeviceIndependentBitmap::stride(size.x);
    return stride > MAX_ROWS_SIZE / size.y ? 0 : PIXELS_OFFSET + static_cast<std::size_t>(stride * size.y);
}

// Writes the low byte first on every machine.
class FieldWriter
{
public:
    explicit FieldWriter(std::uint8_t* to) : m_to(to) {}

    void write16(std::uint16_t value)
    {
        *m_to++ = static_cast<std::uint8_t>(value & 0xff);
        *m_to++ = static_cast<std::uint8_t>(value >> 8);
    }

    void write32(std::uint32_t value)
    {
        write16(static_cast<std::uint16_t>(value & 0xffff));
        write16(static_cast<std::uint16_t>(value >> 16));
    }

private:
    std::uint8_t* m_to;
};

bool isGreyRow(const std::uint8_t* bgr, std::int32_t width)
{
    for (std::int32_t x = 0; x < width; ++x, bgr += 3) {
        if (bgr[0] != bgr[1] || bgr[1] != bgr[2])
            return false;
    }
    return true;
}

} // namespace

DeviceIndependentBitmap::DeviceIndependentBitmap(const BitmapImpl<Rgb>& image)
{
    if (image.isEmpty())
        return;
    m_file.resize(fileSize(image.size()));
    if (isEmpty())
        return;
    m_size = image.size();
    writeHeaders();
    writeRows(image);
}

void DeviceIndependentBitmap::writeHeaders()
{
    FieldWriter file(m_file.data());
    file.write16('B' | ('M' << 8));
    file.write32(static_cast<std::uint32_t>(m_file.size()));
    file.write32(0);
    file.write32(static_cast<std::uint32_t>(PIXELS_OFFSET));

    FieldWriter info(m_file.data() + FILE_HEADER_SIZE);
    info.write32(static_cast<std::uint32_t>(HEADER_SIZE));
    info.write32(static_cast<std::uint32_t>(m_size.x));
    info.write32(static_cast<std::uint32_t>(m_size.y));
    info.write16(COLOUR_PLANES);
    info.write16(BITS_PER_PIXEL);
    info.write32(NOT_COMPRESSED);
    info.write32(0); // the size of the rows, which may be 0 without compression
    info.write32(PIXELS_PER_METRE);
    info.write32(PIXELS_PER_METRE);
    info.write32(0); // no palette
    info.write32(0);
}

void DeviceIndependentBitmap::writeRows(const BitmapImpl<Rgb>& image)
{
    const auto rowBytes = static_cast<std::size_t>(stride(m_size.x));
    std::uint8_t* to = m_file.data() + PIXELS_OFFSET;
    for (std::int32_t y = 0; y < m_size.y; ++y, to += rowBytes) {
        Pixels::rgbToBgr8(image.row(y), to, static_cast<std::size_t>(m_size.x));
        m_grey = m_grey && isGreyRow(to, m_size.x);
    }
}

void DeviceIndependentBitmap::disguiseGrey()
{
    if (isEmpty() || !m_grey)
        return;
    std::uint8_t& blue = m_file[PIXELS_OFFSET];
    blue = blue == 0 ? std::uint8_t(1) : static_cast<std::uint8_t>(blue - 1);
    m_grey = false;
}

ArrayView<const std::uint8_t> DeviceIndependentBitmap::bytes() const
{
    return isEmpty() ? fileBytes() : fileBytes().subspan(FILE_HEADER_SIZE);
}

const std::uint8_t* DeviceIndependentBitmap::row(std::int32_t y) const
{
    return m_file.data() + PIXELS_OFFSET + static_cast<std::size_t>(stride(m_size.x) * y);
}

} // namespace Nolvex
