// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/PsdFile.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string_view>

namespace Nolvex::Viewer {

namespace {

enum ColourMode
{
    GREY = 1,
    RGB = 3,
};

constexpr std::uint64_t MAX_SIDE = 300'000; // what the format allows
constexpr std::uint64_t MAX_CHANNELS = 56;

// A packed run of two bytes stands for 128 bytes.
constexpr std::uint64_t MAX_PACKING = 64;

// Removes a number whose upper byte comes first from the front.
std::uint64_t takeNumber(ArrayView<const std::byte>& bytes, std::size_t size)
{
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < size; ++i)
        number = number << 8 | std::to_integer<std::uint64_t>(bytes[i]);
    bytes = bytes.subspan(size);
    return number;
}

} // namespace

/// Reads the sections before the image. A section that is missing counts as an error at the end.
class PsdFile::Header
{
public:
    explicit Header(ArrayView<const std::byte> bytes) : m_rest(bytes) {}

    bool isDamaged() const { return m_damaged; }

    ArrayView<const std::byte> rest() const { return m_rest; }

    std::uint64_t take(std::size_t size)
    {
        if (m_rest.size() < size) {
            m_damaged = true;
            return 0;
        }
        return takeNumber(m_rest, size);
    }

    /// Removes a section, before which its length stands in so many bytes.
    ArrayView<const std::byte> takeSection(std::size_t lengthBytes) { return takeBytes(take(lengthBytes)); }

    ArrayView<const std::byte> takeBytes(std::uint64_t count)
    {
        if (m_rest.size() < count) {
            m_damaged = true;
            return {};
        }
        const ArrayView<const std::byte> bytes = m_rest.first(static_cast<std::size_t>(count));
        m_rest = m_rest.subspan(bytes.size());
        return bytes;
    }

private:
    ArrayView<const std::byte> m_rest;
    bool m_damaged = false;
};

bool PsdFile::knows(ArrayView<const std::byte> bytes)
{
    constexpr std::string_view SIGNATURE = "8BPS";
    return bytes.size() > SIGNATURE.size() &&
           std::memcmp(bytes.data(), SIGNATURE.data(), SIGNATURE.size()) == 0;
}

Expected<PsdFile, String> PsdFile::open(ArrayView<const std::byte> bytes)
{
    PsdFile file;
    Header header(bytes);
    const Optional<String> problem = file.takeHeader(header);
    if (problem)
        return Unexpected{*problem};
    file.takeLayers(header);
    const std::uint64_t compression = header.take(2);
    if (compression > 1)
        return Unexpected{String(L"its compression is not supported")};
    file.m_isPacked = compression == 1;
    if (file.m_isPacked)
        file.m_packedLengths = header.takeBytes(std::uint64_t(file.m_isLarge ? 4 : 2) *
                                                static_cast<std::uint64_t>(file.m_height) *
                                                static_cast<std::uint64_t>(file.m_channels));
    if (header.isDamaged())
        return Unexpected{String(L"it is damaged or cut off")};
    file.m_data = header.rest();
    return file;
}

Optional<String> PsdFile::takeHeader(Header& header)
{
    header.takeBytes(4); // the signature
    const std::uint64_t version = header.take(2);
    header.takeBytes(6);
    const std::uint64_t channels = header.take(2);
    const std::uint64_t height = header.take(4);
    const std::uint64_t width = header.take(4);
    const std::uint64_t bits = header.take(2);
    const std::uint64_t mode = header.take(2);
    if (header.isDamaged() || version < 1 || version > 2 || channels < 1 || channels > MAX_CHANNELS ||
        height < 1 || width < 1 || height > MAX_SIDE || width > MAX_SIDE)
        return String(L"its header is damaged");
    if (mode != GREY && mode != RGB)
        return String(L"its colours are neither grey nor RGB");
    if (bits != 8 && bits != 16 && bits != 32)
        return String(L"it does not have 8, 16 or 32 bits for each channel");
    if (mode == RGB && channels < 3)
        return String(L"it has fewer channels than its colours need");
    m_isLarge = version == 2;
    m_width = static_cast<std::int32_t>(width);
    m_height = static_cast<std::int32_t>(height);
    m_channels = static_cast<int>(channels);
    m_bits = static_cast<int>(bits);
    m_isGrey = mode == GREY;
    return {};
}

// The number of layers is negative if the merged image has their transparency.
void PsdFile::takeLayers(Header& header)
{
    const std::size_t lengthBytes = m_isLarge ? 8 : 4;
    header.takeSection(4); // colours
    header.takeSection(4); // resources
    Header layers(header.takeSection(lengthBytes));
    layers.take(lengthBytes);
    const auto count = static_cast<std::int16_t>(layers.take(2));
    m_layerCount = std::abs(count);
    m_hasMergedTransparency = count < 0;
}

bool PsdFile::fits() const
{
    const std::uint64_t bytes = std::uint64_t(rowBytes()) * static_cast<std::uint64_t>(m_height) *
                                static_cast<std::uint64_t>(m_channels);
    return bytes / (m_isPacked ? MAX_PACKING : 1) <= m_data.size();
}

bool PsdFile::takeRow(ArrayView<std::byte> row)
{
    if (m_isPacked && m_packedLengths.empty())
        return false;
    const std::uint64_t length = m_isPacked ? takeNumber(m_packedLengths, m_isLarge ? 4 : 2) : row.size();
    if (length > m_data.size())
        return false;
    const ArrayView<const std::byte> taken = m_data.first(static_cast<std::size_t>(length));
    m_data = m_data.subspan(taken.size());
    if (m_isPacked)
        return unpackRow(taken, row);
    std::copy(taken.begin(), taken.end(), row.begin());
    return true;
}

// A first byte below 128 says how many bytes follow, less one. Above 128 it says how often the next byte
// counts.
bool PsdFile::unpackRow(ArrayView<const std::byte> packed, ArrayView<std::byte> row)
{
    constexpr std::uint64_t NOTHING = 128;
    while (!row.empty()) {
        if (packed.empty())
            return false;
        const std::uint64_t first = takeNumber(packed, 1);
        if (first == NOTHING)
            continue;
        const bool isRun = first > NOTHING;
        const auto count = static_cast<std::size_t>(isRun ? 257 - first : first + 1);
        if (count > row.size() || packed.size() < (isRun ? 1 : count))
            return false;
        if (isRun)
            std::fill_n(row.begin(), count, packed[0]);
        else
            std::copy_n(packed.begin(), count, row.begin());
        packed = packed.subspan(isRun ? 1 : count);
        row = row.subspan(count);
    }
    return true;
}

} // namespace Nolvex::Viewer
