// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/PortableAnyMapReader.h"

#include "NolvexLib/Optional.h"
#include "apps/viewer/reading/BlankImage.h"
#include "apps/viewer/reading/ReadOutcome.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string_view>
#include <utility>

namespace Nolvex::Viewer {

namespace {

constexpr std::uint32_t MAX_BYTE = 0xff;
constexpr std::uint32_t MAX_VALUE = 0xffff;
constexpr std::string_view SPACES = " \t\r\n\v\f";
constexpr int BYTE_BITS = 8;

bool isSpace(char character)
{
    return SPACES.find(character) != std::string_view::npos;
}

/// What a file begins with.
struct Header
{
    bool isText = false;
    bool isBits = false; // 1 is black
    int channels = 1;
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::uint32_t maxValue = 1;

    std::uint64_t rowSamples() const { return static_cast<std::uint64_t>(width) * channels; }

    bool isWide() const { return maxValue > MAX_BYTE; }

    /// The least number of bytes that the pixels take.
    std::uint64_t minBytes() const
    {
        // Numbers have a space after them, but the last one need not, and bits need no space.
        if (isText)
            return rowSamples() * height * (isBits ? 1 : 2) - (isBits ? 0 : 1);
        return binaryRowBytes() * height;
    }

    std::uint64_t binaryRowBytes() const
    {
        return isBits ? (rowSamples() + BYTE_BITS - 1) / BYTE_BITS : rowSamples() * (isWide() ? 2 : 1);
    }

    PixelFormat format() const
    {
        if (channels == 1)
            return isWide() ? PixelFormat::UINT16_GREY : PixelFormat::UINT8_GREY;
        return isWide() ? PixelFormat::UINT16_RGB : PixelFormat::UINT8_RGB;
    }
};

// Removes white space and comments from the front.
void skipSpace(std::string_view& text)
{
    while (!text.empty() && (isSpace(text.front()) || text.front() == '#')) {
        const bool isComment = text.front() == '#';
        text.remove_prefix(std::min(isComment ? text.find('\n') : 1, text.size()));
    }
}

template<class Number>
bool takeNumber(std::string_view& text, Number& number)
{
    skipSpace(text);
    const auto [stop, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
    text.remove_prefix(static_cast<std::size_t>(stop - text.data()));
    return failure == std::errc();
}

// Removes the header from the front.
Optional<Header> takeHeader(std::string_view& text)
{
    const int kind = text[1] - '0';
    Header header;
    header.isText = kind <= 3;
    header.isBits = kind == 1 || kind == 4;
    header.channels = kind == 3 || kind == 6 ? 3 : 1;
    text.remove_prefix(2);
    if (!takeNumber(text, header.width) || !takeNumber(text, header.height) ||
        (!header.isBits && !takeNumber(text, header.maxValue)))
        return {};
    if (header.width < 1 || header.height < 1 || header.maxValue < 1 || header.maxValue > MAX_VALUE ||
        text.empty() || !isSpace(text.front()))
        return {};
    // One character ends the header. The byte after it may belong to the first pixel.
    text.remove_prefix(1);
    return header;
}

/// Reads the samples of a file, row by row.
class Samples
{
public:
    Samples(const Header& header, std::string_view text) : m_header(header), m_rest(text) {}

    /// Returns false if the file ends or holds something else.
    bool takeRow(Array<std::uint32_t>& row)
    {
        if (m_header.isText)
            return std::all_of(row.begin(), row.end(), [this](std::uint32_t& sample) {
                return (m_header.isBits ? takeDigit(sample) : takeNumber(m_rest, sample)) &&
                       sample <= m_header.maxValue;
            });
        const auto bytes = static_cast<std::size_t>(m_header.binaryRowBytes());
        if (m_rest.size() < bytes)
            return false;
        for (std::size_t i = 0; i < row.size(); ++i)
            row[i] = std::min(binarySample(i), m_header.maxValue);
        m_rest.remove_prefix(bytes);
        return true;
    }

private:
    // The digits of bits need no space between them.
    bool takeDigit(std::uint32_t& digit)
    {
        skipSpace(m_rest);
        if (m_rest.empty() || (m_rest.front() != '0' && m_rest.front() != '1'))
            return false;
        digit = m_rest.front() == '1' ? 1 : 0;
        m_rest.remove_prefix(1);
        return true;
    }

    std::uint32_t binarySample(std::size_t index) const
    {
        const auto byteAt = [this](std::size_t at) { return static_cast<std::uint8_t>(m_rest[at]); };
        if (m_header.isBits)
            return byteAt(index / BYTE_BITS) >> (BYTE_BITS - 1 - index % BYTE_BITS) & 1u;
        if (m_header.isWide())
            return static_cast<std::uint32_t>(byteAt(2 * index) << BYTE_BITS) | byteAt(2 * index + 1);
        return byteAt(index);
    }

    const Header& m_header;
    std::string_view m_rest;
};

/// Brings the values of a file to the range of the image.
class Scale
{
public:
    explicit Scale(const Header& header) : m_isWide(header.isWide())
    {
        const std::uint32_t full = m_isWide ? MAX_VALUE : MAX_BYTE;
        for (std::uint32_t value = 0; value <= header.maxValue; ++value) {
            const std::uint32_t scaled = (value * full + header.maxValue / 2) / header.maxValue;
            m_values.push_back(static_cast<std::uint16_t>(header.isBits ? full - scaled : scaled));
        }
    }

    void put(const Array<std::uint32_t>& samples, ArrayView<std::byte> row) const
    {
        for (std::size_t i = 0; i < samples.size(); ++i) {
            const std::uint16_t value = m_values[samples[i]];
            if (m_isWide)
                std::memcpy(row.data() + i * sizeof value, &value, sizeof value);
            else
                row[i] = static_cast<std::byte>(value);
        }
    }

private:
    bool m_isWide;
    Array<std::uint16_t> m_values;
};

ReadOutcome readRows(const Header& header, std::string_view text, Image& image,
                     const ReadingProgress& progress)
{
    const Scale scale(header);
    Samples samples(header, text);
    Array<std::uint32_t> row(static_cast<std::size_t>(header.rowSamples()));
    for (std::int32_t y = 0; y < header.height; ++y) {
        if (progress && !progress(static_cast<float>(y) / static_cast<float>(header.height)))
            return ReadOutcome::STOPPED;
        if (!samples.takeRow(row))
            return ReadOutcome::DAMAGED;
        scale.put(row, image.row(header.height - 1 - y));
    }
    return ReadOutcome::DONE;
}

std::string_view asText(ArrayView<const std::byte> bytes)
{
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

} // namespace

Array<String> PortableAnyMapReader::extensions() const
{
    return {L"ppm", L"pgm", L"pbm", L"pnm"};
}

bool PortableAnyMapReader::knows(ArrayView<const std::byte> file) const
{
    const std::string_view text = asText(file);
    return text.size() > 2 && text[0] == 'P' && text[1] >= '1' && text[1] <= '6' &&
           (isSpace(text[2]) || text[2] == '#');
}

Expected<ReadImage, String> PortableAnyMapReader::read(ArrayView<const std::byte> file, std::size_t /*layer*/,
                                                       const ReadingProgress& progress) const
{
    std::string_view text = asText(file);
    const Optional<Header> header = knows(file) ? takeHeader(text) : Optional<Header>();
    if (!header)
        return Unexpected{String(L"its header is damaged")};
    if (header->minBytes() > text.size())
        return Unexpected{String(L"it ends before its last pixel")};
    Expected<Image, String> image =
        blankImage(header->width, header->height, header->format(), GAMMA_OF_ENCODED);
    if (!image)
        return Unexpected{image.error()};
    const ReadOutcome outcome = readRows(*header, text, *image, progress);
    if (outcome != ReadOutcome::DONE)
        return readFailure(outcome);
    return ReadImage{std::move(*image)};
}

} // namespace Nolvex::Viewer
