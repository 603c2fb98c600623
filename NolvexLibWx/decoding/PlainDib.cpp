// SPDX-License-Identifier: MIT
#include "NolvexLibWx/decoding/PlainDib.h"

#include "NolvexLibWx/decoding/ByteReader.h"
#include "NolvexLibWx/decoding/SoundImage.h"

#include <algorithm>
#include <bit>

namespace Nolvex::Decoding {

namespace {

using Compression = DibHeader::Compression;

constexpr std::size_t FILE_HEADER_SIZE = 14;
constexpr std::size_t INFO_SIZE = 40;

// Writes the new file, which consists of headers and pixels. A pixel that is never set stays black.
class PlainFile
{
public:
    // The bits a pixel of a file that had run-length encoding.
    static constexpr std::uint32_t RUN_BITS = 24;

    PlainFile(const DibHeader& header, std::uint32_t bits)
        : m_header(header),
          m_bits(bits),
          m_bytes(FILE_HEADER_SIZE + INFO_SIZE +
                  header.stride(bits) * static_cast<std::size_t>(header.height))
    {
        m_bytes[0] = std::byte('B');
        m_bytes[1] = std::byte('M');
        write32(2, m_bytes.size());
        write32(10, FILE_HEADER_SIZE + INFO_SIZE);
        write32(14, INFO_SIZE);
        write32(18, static_cast<std::size_t>(header.width));
        const std::int32_t height = header.isTopDown ? -header.height : header.height;
        write32(22, static_cast<std::uint32_t>(height));
        m_bytes[26] = std::byte(1); // planes
        m_bytes[28] = static_cast<std::byte>(bits);
    }

    // Returns the first byte of a pixel: blue, green, red and perhaps alpha. Row 0 is the first in the file.
    std::byte* pixel(std::int32_t x, std::int32_t y)
    {
        return m_bytes.data() + FILE_HEADER_SIZE + INFO_SIZE +
               m_header.stride(m_bits) * static_cast<std::size_t>(y) +
               static_cast<std::size_t>(x) * (m_bits / 8);
    }

    Array<std::byte> take() { return std::move(m_bytes); }

private:
    void write32(std::size_t place, std::size_t value)
    {
        for (std::size_t i = 0; i < 4; ++i)
            m_bytes[place + i] = static_cast<std::byte>(value >> (8 * i));
    }

    const DibHeader& m_header;
    std::uint32_t m_bits;
    Array<std::byte> m_bytes;
};

// Decodes RLE4 and RLE8. Nothing is written outside of the picture: jumps and rows that lead beyond it count
// as damage, and runs are cut off at the end of the row.
class RunDecoder
{
public:
    RunDecoder(ArrayView<const std::byte> file, const DibHeader& header, std::size_t start, PlainFile& to)
        : m_file(file), m_header(header), m_reader(file, start), m_to(to)
    {}

    // Returns true if the end marker or the last pixel was reached without an error.
    bool decode()
    {
        fillWithFirstColour();
        while (!m_ended && m_sound && !m_reader.ranOut()) {
            const std::uint32_t count = m_reader.read8();
            const std::uint32_t value = m_reader.read8();
            if (count > 0)
                writeRun(count, value);
            else
                obey(value);
            m_ended = m_ended || (m_y == m_header.height - 1 && m_x == m_header.width);
        }
        return m_ended && m_sound && !m_reader.ranOut();
    }

private:
    static constexpr std::uint32_t END_OF_ROW = 0;
    static constexpr std::uint32_t END_OF_PICTURE = 1;
    static constexpr std::uint32_t JUMP = 2;

    // Fills the first row pixel by pixel, then copies it to all other rows.
    void fillWithFirstColour()
    {
        while (m_x < m_header.width)
            write(0);
        m_x = 0;
        for (std::int32_t y = 1; y < m_header.height; ++y)
            std::copy_n(m_to.pixel(0, 0), m_header.stride(PlainFile::RUN_BITS), m_to.pixel(0, y));
    }

    void obey(std::uint32_t command)
    {
        if (command == END_OF_ROW) {
            m_x = 0;
            ++m_y;
            m_ended = m_y == m_header.height;
        } else if (command == END_OF_PICTURE) {
            m_ended = true;
        } else if (command == JUMP) {
            m_x += static_cast<std::int32_t>(m_reader.read8());
            m_y += static_cast<std::int32_t>(m_reader.read8());
            m_sound = m_x <= m_header.width && m_y < m_header.height;
        } else {
            writeLiterals(command);
        }
    }

    // In RLE4 the two colours of the byte alternate.
    void writeRun(std::uint32_t count, std::uint32_t value)
    {
        for (std::uint32_t i = 0; i < count; ++i)
            write(colourOf(value, i));
    }

    // Literals are padded to an even number of bytes.
    void writeLiterals(std::uint32_t count)
    {
        const std::uint32_t perByte = m_header.compression == Compression::RLE4 ? 2 : 1;
        std::uint32_t value = 0;
        for (std::uint32_t i = 0; i < count; ++i) {
            if (i % perByte == 0)
                value = m_reader.read8();
            write(colourOf(value, i));
        }
        if ((count + perByte - 1) / perByte % 2 != 0)
            m_reader.skip(1);
    }

    std::uint32_t colourOf(std::uint32_t byte, std::uint32_t turn) const
    {
        if (m_header.compression == Compression::RLE8)
            return byte;
        return turn % 2 == 0 ? byte >> 4 : byte & 15;
    }

    void write(std::uint32_t colour)
    {
        // Encoders may fill the last run of a row beyond its end.
        if (m_x >= m_header.width)
            return;
        m_sound = m_sound && colour < m_header.colours;
        if (!m_sound)
            return;
        const std::byte* const entry =
            m_file.data() + m_header.paletteStart + colour * m_header.paletteEntrySize;
        std::copy_n(entry, 3, m_to.pixel(m_x++, m_y));
    }

    ArrayView<const std::byte> m_file;
    const DibHeader& m_header;
    ByteReader m_reader;
    PlainFile& m_to;
    std::int32_t m_x = 0;
    std::int32_t m_y = 0;
    bool m_ended = false;
    bool m_sound = true;
};

// One channel of a pixel with bit fields, scaled to the range of a byte.
class BitField
{
public:
    explicit BitField(std::uint32_t mask) : m_mask(mask), m_shift(mask == 0 ? 0 : std::countr_zero(mask)) {}

    bool isEmpty() const { return m_mask == 0; }

    std::byte byteOf(std::uint32_t pixel) const
    {
        const std::uint64_t highest = m_mask >> m_shift;
        if (highest == 0)
            return std::byte(0);
        return static_cast<std::byte>((std::uint64_t((pixel & m_mask) >> m_shift) * 255 + highest / 2) /
                                      highest);
    }

private:
    std::uint32_t m_mask;
    int m_shift;
};

// Returns the fields in the order of a BMP file: blue, green, red, alpha.
std::array<BitField, 4> bitFieldsOf(const DibHeader& header)
{
    if (header.compression == Compression::BIT_FIELDS)
        return {BitField(header.masks[2]), BitField(header.masks[1]), BitField(header.masks[0]),
                BitField(header.masks[3])};
    return {BitField(0x001F), BitField(0x03E0), BitField(0x7C00), BitField(0)};
}

Array<std::byte> expandBitFields(ArrayView<const std::byte> file, const DibHeader& header, std::size_t start)
{
    const std::array<BitField, 4> fields = bitFieldsOf(header);
    const std::size_t channels = fields.back().isEmpty() ? 3 : 4;
    PlainFile plain(header, static_cast<std::uint32_t>(channels) * 8);
    for (std::int32_t y = 0; y < header.height; ++y) {
        ByteReader reader(file, start + header.stride(header.bits) * static_cast<std::size_t>(y));
        for (std::int32_t x = 0; x < header.width; ++x) {
            const auto pixel = static_cast<std::uint32_t>(reader.read(header.bits / 8));
            std::byte* const to = plain.pixel(x, y);
            for (std::size_t i = 0; i < channels; ++i)
                to[i] = fields[i].byteOf(pixel);
        }
    }
    return plain.take();
}

} // namespace

Expected<Array<std::byte>, String> toPlainBmp(ArrayView<const std::byte> file, const DibHeader& header,
                                              std::size_t start)
{
    const bool hasRuns = header.compression == Compression::RLE4 || header.compression == Compression::RLE8;
    if (!hasRuns) {
        if (!header.hasRows(start, file.size()))
            return refuseShort();
        return expandBitFields(file, header, start);
    }
    const auto pixels = static_cast<std::uint64_t>(header.width) * static_cast<std::uint64_t>(header.height);
    if (!isPlausible(pixels, file.size()))
        return refuseShort();
    PlainFile plain(header, PlainFile::RUN_BITS);
    if (!RunDecoder(file, header, start, plain).decode())
        return refuseShort();
    return plain.take();
}

} // namespace Nolvex::Decoding
