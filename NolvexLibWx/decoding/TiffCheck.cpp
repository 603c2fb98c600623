// SPDX-License-Identifier: MIT
#include "NolvexLib/Optional.h"
#include "NolvexLibWx/decoding/ByteReader.h"
#include "NolvexLibWx/decoding/SoundImage.h"

#include <algorithm>

// libtiff checks its input, but wxTIFFHandler allocates and fills as much as the header claims before it
// reads the first pixel, accepts damaged strips as decoded, shows the indices of a palette with alpha as
// grey, and turns a picture by its orientation only if width and height are not exchanged.

namespace Nolvex {

namespace {

using Decoding::ByteReader;

enum Tag : std::uint32_t
{
    WIDTH = 256,
    HEIGHT = 257,
    BITS_PER_SAMPLE = 258,
    COMPRESSION = 259,
    PHOTOMETRIC = 262,
    STRIP_OFFSETS = 273,
    ORIENTATION = 274,
    SAMPLES_PER_PIXEL = 277,
    STRIP_SIZES = 279,
    TILE_WIDTH = 322,
    TILE_HEIGHT = 323,
    TILE_OFFSETS = 324,
    TILE_SIZES = 325,
};

// An entry of a directory. Its values lie elsewhere in the file, or in the entry itself if they fit.
struct Entry
{
    std::uint32_t tag = 0;
    std::size_t valueSize = 0;
    std::uint64_t count = 0;
    std::size_t start = 0;
};

// Returns the bytes of one value, or 0 for a type other than an unsigned integer.
std::size_t valueSizeOf(std::uint32_t type)
{
    constexpr std::uint32_t BYTE = 1;
    constexpr std::uint32_t SHORT = 3;
    constexpr std::uint32_t LONG = 4;
    constexpr std::uint32_t LONG8 = 16;
    return type == BYTE ? 1 : type == SHORT ? 2 : type == LONG ? 4 : type == LONG8 ? 8 : 0;
}

// The first directory of a file, whose offsets have 32 bits, or 64 bits in a BigTIFF.
class Directory
{
public:
    explicit Directory(ArrayView<const std::byte> file) : m_file(file)
    {
        constexpr std::uint32_t BIG_TIFF = 43;
        m_order = file[0] == std::byte('M') ? std::endian::big : std::endian::little;
        ByteReader reader(file, 2, m_order);
        m_offsetSize = reader.read16() == BIG_TIFF ? 8 : 4;
        reader.skip(m_offsetSize == 8 ? 4 : 0);
        ByteReader entries(file, place(reader.read(m_offsetSize)), m_order);
        const std::uint64_t count = entries.read(m_offsetSize == 8 ? 8 : 2);
        for (std::uint64_t i = 0; i < count && !entries.ranOut(); ++i)
            readEntry(entries);
        m_whole = !reader.ranOut() && !entries.ranOut();
    }

    bool isWhole() const { return m_whole; }

    bool has(Tag tag) const { return find(tag) != nullptr; }

    // Returns the first value of the tag, or `otherwise` without such a tag, or nullopt for an invalid value.
    Optional<std::uint64_t> number(Tag tag, Optional<std::uint64_t> otherwise = {}) const
    {
        const Entry* const entry = find(tag);
        return entry == nullptr ? otherwise : value(*entry, 0);
    }

    // Returns the total bytes of these parts of the file, or nullopt if a part reaches beyond the file.
    Optional<std::uint64_t> sizeOfParts(Tag offsets, Tag sizes) const
    {
        const Entry* const starts = find(offsets);
        const Entry* const lengths = find(sizes);
        if (starts == nullptr || lengths == nullptr || starts->count != lengths->count)
            return {};
        std::uint64_t whole = 0;
        for (std::uint64_t i = 0; i < starts->count; ++i) {
            const Optional<std::uint64_t> start = value(*starts, i);
            const Optional<std::uint64_t> length = value(*lengths, i);
            if (!start || !length || *start > m_file.size() || *length > m_file.size() - *start)
                return {};
            whole += *length;
        }
        return whole;
    }

    // Returns a copy of the file with the upright orientation. Throws std::bad_alloc.
    Array<std::byte> withoutOrientation() const
    {
        Array<std::byte> copy(m_file.begin(), m_file.end());
        for (const Entry& entry : m_entries) {
            if (entry.tag != ORIENTATION || entry.valueSize == 0)
                continue;
            std::fill_n(copy.begin() + static_cast<std::ptrdiff_t>(entry.start), entry.valueSize,
                        std::byte(0));
            copy[entry.start + (m_order == std::endian::big ? entry.valueSize - 1 : 0)] = std::byte(1);
        }
        return copy;
    }

private:
    // Returns the end of the file for an offset that lies behind the end.
    std::size_t place(std::uint64_t offset) const
    {
        return static_cast<std::size_t>(std::min<std::uint64_t>(offset, m_file.size()));
    }

    void readEntry(ByteReader& reader)
    {
        Entry entry;
        entry.tag = reader.read16();
        entry.valueSize = valueSizeOf(reader.read16());
        entry.count = reader.read(m_offsetSize);
        entry.start = reader.position();
        const std::uint64_t offset = reader.read(m_offsetSize);
        if (entry.valueSize > 0 && entry.count > m_offsetSize / entry.valueSize)
            entry.start = place(offset);
        // Values that reach beyond the file are treated as missing.
        if (entry.valueSize > 0 && entry.count > (m_file.size() - entry.start) / entry.valueSize)
            entry.valueSize = 0;
        m_entries.push_back(entry);
    }

    // Finds the first of several entries with the same tag, as libtiff does.
    const Entry* find(Tag tag) const
    {
        const auto found = std::ranges::find(m_entries, static_cast<std::uint32_t>(tag), &Entry::tag);
        return found == m_entries.end() ? nullptr : &*found;
    }

    Optional<std::uint64_t> value(const Entry& entry, std::uint64_t index) const
    {
        if (entry.valueSize == 0 || index >= entry.count)
            return {};
        ByteReader reader(m_file, entry.start + static_cast<std::size_t>(index) * entry.valueSize, m_order);
        return reader.read(entry.valueSize);
    }

    ArrayView<const std::byte> m_file;
    std::endian m_order = std::endian::little;
    std::size_t m_offsetSize = 4;
    Array<Entry> m_entries;
    bool m_whole = false;
};

struct Layout
{
    std::uint64_t width = 0;
    std::uint64_t height = 0;
    std::uint64_t bits = 0;
    std::uint64_t samples = 0;
    std::uint64_t compression = 0;
    std::uint64_t photometric = 0;
    std::uint64_t orientation = 0;
    std::uint64_t tileWidth = 0;
    std::uint64_t tileHeight = 0;

    bool hasTiles() const { return tileWidth > 0; }

    // The bytes after decoding. Before it, several pixels may share their colour.
    std::uint64_t byteCount() const { return (width * samples * bits + 7) / 8 * height; }
};

// Returns nullopt if a number is missing or exceeds its limit.
Optional<Layout> readLayout(const Directory& directory)
{
    constexpr std::uint64_t MAX_BITS = 64;
    constexpr std::uint64_t MAX_SAMPLES = 0xffff;
    constexpr std::uint64_t MAX_TILE_SIDE = 0xffff;
    Layout layout;
    const auto read = [&](std::uint64_t& to, Tag tag, Optional<std::uint64_t> otherwise, std::uint64_t most) {
        const Optional<std::uint64_t> number = directory.number(tag, otherwise);
        to = number.value_or(0);
        return number && *number <= most;
    };
    constexpr std::uint64_t ANY = 0xffff'ffff;
    const bool sound = read(layout.width, WIDTH, {}, ANY) && read(layout.height, HEIGHT, {}, ANY) &&
                       read(layout.bits, BITS_PER_SAMPLE, 1, MAX_BITS) &&
                       read(layout.samples, SAMPLES_PER_PIXEL, 1, MAX_SAMPLES) &&
                       read(layout.compression, COMPRESSION, 1, ANY) &&
                       read(layout.photometric, PHOTOMETRIC, 0, ANY) &&
                       read(layout.orientation, ORIENTATION, 1, ANY) &&
                       read(layout.tileWidth, TILE_WIDTH, 0, MAX_TILE_SIDE) &&
                       read(layout.tileHeight, TILE_HEIGHT, 0, MAX_TILE_SIDE);
    return sound ? layout : Optional<Layout>();
}

bool holdsAllPixels(const Directory& directory, const Layout& layout, std::size_t fileSize)
{
    constexpr std::uint64_t NOT_COMPRESSED = 1;
    constexpr std::uint64_t SUBSAMPLED = 6; // YCbCr
    const Optional<std::uint64_t> stored = layout.hasTiles()
                                               ? directory.sizeOfParts(TILE_OFFSETS, TILE_SIZES)
                                               : directory.sizeOfParts(STRIP_OFFSETS, STRIP_SIZES);
    if (!stored)
        return false;
    if (layout.compression == NOT_COMPRESSED && layout.photometric != SUBSAMPLED)
        return *stored >= layout.byteCount();
    const std::uint64_t pixels = std::max(layout.width * layout.height, layout.byteCount() / 3);
    return Decoding::isPlausible(pixels, fileSize) &&
           Decoding::isPlausible(layout.tileWidth * layout.tileHeight * layout.samples, fileSize);
}

} // namespace

Decoding::CheckedImage Decoding::checkTiff(ArrayView<const std::byte> file)
{
    constexpr std::uint64_t PALETTE = 3;
    const Directory directory(file);
    const Optional<Layout> layout = readLayout(directory);
    if (!directory.isWhole())
        return refuseShort();
    if (!layout || layout->width == 0 || layout->height == 0)
        return refuseDamaged();
    if (!fitsWxImage(layout->width, layout->height))
        return refuseLarge();
    if (!holdsAllPixels(directory, *layout, file.size()))
        return refuseShort();
    if (layout->photometric == PALETTE && layout->samples != 1)
        return Unexpected{String(L"it has a palette and alpha, which is not supported")};
    if (layout->orientation < 2 || layout->orientation > 8)
        return SoundImage(file);
    SoundImage image(directory.withoutOrientation());
    image.orientation = static_cast<int>(layout->orientation);
    return image;
}

} // namespace Nolvex
