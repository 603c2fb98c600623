// SPDX-License-Identifier: MIT
#include "NolvexLib/Optional.h"
#include "NolvexLibWx/decoding/ByteReader.h"
#include "NolvexLibWx/decoding/SoundImage.h"

#include <array>

// wxGIFDecoder asks for a sub-block of 4 GiB if the data end between two sub-blocks, writes beyond its tables
// for large code sizes, shows uninitialised memory where pixels are missing, and decodes data behind the last
// pixel as further frames. It refuses every code that follows a full table of codes unless that code clears
// the table, although the format leaves the time of clearing to the encoder.

namespace Nolvex {

namespace {

using Decoding::ByteReader;

constexpr std::uint32_t EXTENSION = '!';
constexpr std::uint32_t FRAME = ',';
constexpr std::uint32_t TRAILER = ';';
constexpr std::uint32_t GRAPHIC_CONTROL = 0xF9;
constexpr std::uint32_t PALETTE_FLAG = 0x80;
constexpr int NO_COLOUR = -1;

struct Frame
{
    std::uint64_t pixels = 0;
    int colours = 0;
    int transparent = NO_COLOUR;
    std::uint32_t codeSize = 0;
};

/// Skips the palette that the flags announce. Returns the number of its colours, or 0 if there is none.
int skipPalette(ByteReader& reader, std::uint32_t flags)
{
    if ((flags & PALETTE_FLAG) == 0)
        return 0;
    const int colours = 2 << (flags & 7);
    reader.skip(static_cast<std::size_t>(colours) * 3);
    return colours;
}

void skipSubBlocks(ByteReader& reader)
{
    while (const std::uint32_t size = reader.read8())
        reader.skip(size);
}

/// Returns false for a graphic control whose size is not the size that wxGIFDecoder expects.
bool readExtension(ByteReader& reader, int& transparent)
{
    constexpr std::uint32_t CONTROL_SIZE = 4;
    if (reader.read8() != GRAPHIC_CONTROL) {
        skipSubBlocks(reader);
        return true;
    }
    const bool sized = reader.read8() == CONTROL_SIZE;
    const bool isTransparent = (reader.read8() & 1) != 0;
    reader.skip(2);
    const auto colour = static_cast<int>(reader.read8());
    transparent = isTransparent ? colour : NO_COLOUR;
    return sized && reader.read8() == 0;
}

/// Reads codes, whose number of bits varies, from the sub-blocks.
class Codes
{
public:
    explicit Codes(ByteReader& reader) : m_reader(reader) {}

    /// Returns nullopt after the last sub-block.
    Optional<std::uint32_t> next(std::uint32_t bits)
    {
        while (m_bitCount < bits) {
            if (m_left == 0)
                m_left = m_reader.read8();
            if (m_left == 0 || m_reader.left() == 0)
                return {};
            m_bits |= m_reader.read8() << m_bitCount;
            m_bitCount += 8;
            --m_left;
        }
        const std::uint32_t code = m_bits & ((1u << bits) - 1);
        m_bits >>= bits;
        m_bitCount -= bits;
        return code;
    }

    /// Skips the rest of the current sub-block, because wxGIFDecoder reads whole sub-blocks.
    void skipSubBlock() { m_reader.skip(m_left); }

private:
    ByteReader& m_reader;
    std::uint32_t m_left = 0;
    std::uint32_t m_bits = 0;
    std::uint32_t m_bitCount = 0;
};

/// Follows the codes of a frame without producing pixels. Only the length of each string is stored.
class LzwWalk
{
public:
    enum class End
    {
        LAST_PIXEL,
        TOO_EARLY,
        DAMAGED_CODE,
        FULL_TABLE,
    };

    explicit LzwWalk(const Frame& frame)
        : m_frame(frame), m_clear(1u << frame.codeSize), m_bits(frame.codeSize + 1), m_free(m_clear + 2)
    {
        m_lengths.fill(1);
    }

    /// Follows the codes up to the last pixel, and returns where they end. At the last pixel the reader is
    /// behind the sub-block of that pixel.
    End follow(ByteReader& reader)
    {
        Codes codes(reader);
        while (m_pixels < m_frame.pixels) {
            const Optional<std::uint32_t> code = codes.next(m_bits);
            if (!code || *code == m_clear + 1)
                return End::TOO_EARLY;
            if (*code == m_clear)
                clearTable();
            else if (!isKnown(*code))
                return End::DAMAGED_CODE;
            else if (!take(*code))
                return End::FULL_TABLE;
        }
        codes.skipSubBlock();
        return reader.ranOut() ? End::TOO_EARLY : End::LAST_PIXEL;
    }

private:
    static constexpr std::uint32_t MAX_BITS = 12;

    void clearTable()
    {
        m_bits = m_frame.codeSize + 1;
        m_free = m_clear + 2;
        m_previous.reset();
    }

    bool isColour(std::uint32_t code) const
    {
        return static_cast<int>(code) < m_frame.colours || static_cast<int>(code) == m_frame.transparent;
    }

    bool isKnown(std::uint32_t code) const
    {
        const bool isNew = code == m_free && m_previous;
        return code < m_clear ? isColour(code) : code < m_free || isNew;
    }

    /// Returns false if the table has no room for the string that the code adds.
    bool take(std::uint32_t code)
    {
        if (m_previous) {
            if (m_free > (1u << m_bits) - 1)
                return false;
            m_lengths[m_free++] = m_lengths[*m_previous] + 1;
            if (m_free > (1u << m_bits) - 1 && m_bits < MAX_BITS)
                ++m_bits;
        }
        m_pixels += m_lengths[code];
        m_previous = code;
        return true;
    }

    const Frame& m_frame;
    std::uint32_t m_clear;
    std::uint32_t m_bits;
    std::uint32_t m_free;
    Optional<std::uint32_t> m_previous; // empty behind a clear code
    std::uint64_t m_pixels = 0;
    std::array<std::uint32_t, 1u << MAX_BITS> m_lengths{};
};

Unexpected<String> refuseCodes(LzwWalk::End end)
{
    if (end == LzwWalk::End::TOO_EARLY)
        return Decoding::refuseShort();
    if (end == LzwWalk::End::FULL_TABLE)
        return {L"it goes on with a full table of codes, which is not supported"};
    return Decoding::refuseDamaged();
}

/// Returns the file up to the last pixel of the first frame, closed by a trailer. From the whole file
/// wxGIFDecoder would decode every frame in order to return the first.
Decoding::CheckedImage checkFrame(ArrayView<const std::byte> file, ByteReader& reader, int globalColours,
                                  int transparent)
{
    constexpr std::uint32_t MIN_CODE_SIZE = 1; // below the 2 of the standard, but read by wxGIFDecoder
    constexpr std::uint32_t MAX_CODE_SIZE = 8;
    reader.skip(4);
    const std::uint32_t width = reader.read16();
    const std::uint32_t height = reader.read16();
    const int localColours = skipPalette(reader, reader.read8());
    Frame frame;
    frame.pixels = std::uint64_t(width) * height;
    frame.colours = localColours > 0 ? localColours : globalColours;
    frame.transparent = transparent;
    frame.codeSize = reader.read8();
    if (reader.ranOut())
        return Decoding::refuseShort();
    if (frame.pixels == 0 || frame.colours == 0 || frame.codeSize < MIN_CODE_SIZE ||
        frame.codeSize > MAX_CODE_SIZE)
        return Decoding::refuseDamaged();
    if (!Decoding::fitsWxImage(width, height))
        return Decoding::refuseLarge();
    const LzwWalk::End end = LzwWalk(frame).follow(reader);
    if (end != LzwWalk::End::LAST_PIXEL)
        return refuseCodes(end);
    const ArrayView<const std::byte> used = file.first(reader.position());
    Array<std::byte> single(used.begin(), used.end());
    single.push_back(std::byte(0));
    single.push_back(std::byte(TRAILER));
    return Decoding::SoundImage(std::move(single));
}

} // namespace

Decoding::CheckedImage Decoding::checkGif(ArrayView<const std::byte> file)
{
    constexpr std::size_t SIGNATURE_SIZE = 6;
    ByteReader reader(file, SIGNATURE_SIZE);
    reader.skip(4); // the size of the screen, which may differ from the frame's
    const std::uint32_t flags = reader.read8();
    reader.skip(2);
    const int colours = skipPalette(reader, flags);
    int transparent = NO_COLOUR;
    while (!reader.ranOut()) {
        const std::uint32_t block = reader.read8();
        if (block == FRAME)
            return checkFrame(file, reader, colours, transparent);
        if (block == TRAILER || (block == EXTENSION && !readExtension(reader, transparent)))
            return refuseDamaged();
    }
    return refuseShort();
}

} // namespace Nolvex
