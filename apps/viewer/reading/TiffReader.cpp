// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/TiffReader.h"

#include "NolvexLib/Optional.h"
#include "apps/viewer/reading/BlankImage.h"
#include "apps/viewer/reading/NumberText.h"
#include "apps/viewer/reading/Omissions.h"
#include "apps/viewer/reading/ReadOutcome.h"
#include "apps/viewer/reading/TiffFile.h"
#include "apps/viewer/reading/TiffSamples.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>
#include <utility>

namespace Nolvex::Viewer {

namespace {

constexpr int BYTE_BITS = 8;

// A block, which is a strip or a tile, is decoded as a whole. No usual program writes larger ones.
constexpr std::uint64_t MAX_BLOCK_BYTES = std::uint64_t(1) << 30;

bool isTiff(ArrayView<const std::byte> file)
{
    constexpr std::size_t MAGIC_BYTES = 4;
    if (file.size() < MAGIC_BYTES)
        return false;
    const std::string_view magic(reinterpret_cast<const char*>(file.data()), MAGIC_BYTES);
    using namespace std::string_view_literals;
    return magic == "II*\0"sv || magic == "MM\0*"sv || magic == "II+\0"sv || magic == "MM\0+"sv;
}

Optional<AlphaKind> alphaOf(const TiffFile& file)
{
    std::uint16_t count = 0;
    const std::uint16_t* kinds = nullptr;
    if (TIFFGetField(file.handle(), TIFFTAG_EXTRASAMPLES, &count, &kinds) == 0 || count == 0)
        return {};
    if (kinds[0] == EXTRASAMPLE_ASSOCALPHA)
        return AlphaKind::ASSOCIATED;
    if (kinds[0] == EXTRASAMPLE_UNASSALPHA)
        return AlphaKind::STRAIGHT;
    return {};
}

TiffLayout layoutOf(const TiffFile& file)
{
    const std::uint16_t kind = file.shortNumber(TIFFTAG_SAMPLEFORMAT);
    TiffLayout layout;
    layout.width = file.number(TIFFTAG_IMAGEWIDTH);
    layout.height = file.number(TIFFTAG_IMAGELENGTH);
    layout.bits = file.shortNumber(TIFFTAG_BITSPERSAMPLE);
    layout.isFloat = kind == SAMPLEFORMAT_IEEEFP;
    layout.isUnsigned = kind == SAMPLEFORMAT_UINT || kind == SAMPLEFORMAT_VOID;
    layout.samples = file.shortNumber(TIFFTAG_SAMPLESPERPIXEL);
    layout.colours = file.shortNumber(TIFFTAG_PHOTOMETRIC) == PHOTOMETRIC_RGB ? 3 : 1;
    layout.isInverted = file.shortNumber(TIFFTAG_PHOTOMETRIC) == PHOTOMETRIC_MINISWHITE;
    layout.isPlanar = file.shortNumber(TIFFTAG_PLANARCONFIG) == PLANARCONFIG_SEPARATE;
    layout.orientation = file.shortNumber(TIFFTAG_ORIENTATION);
    if (layout.samples > layout.colours)
        layout.alpha = alphaOf(file);
    return layout;
}

bool isKnownPhotometric(const TiffFile& file)
{
    const std::uint16_t photometric = file.shortNumber(TIFFTAG_PHOTOMETRIC);
    return photometric == PHOTOMETRIC_RGB || photometric == PHOTOMETRIC_MINISBLACK ||
           photometric == PHOTOMETRIC_MINISWHITE;
}

bool isReadable(const TiffFile& file, const TiffLayout& layout)
{
    const bool hasKnownSamples = layout.isFloat
                                     ? layout.bits == 16 || layout.bits == 32 || layout.bits == 64
                                     : layout.isUnsigned && (layout.bits == 16 || layout.bits == 32 ||
                                                             // wxWidgets does not tell the kind of alpha.
                                                             (layout.bits == 8 && layout.alpha));
    return isKnownPhotometric(file) && hasKnownSamples && layout.samples >= layout.colours &&
           layout.width > 0 && layout.height > 0;
}

/// Decodes the blocks of a file one after the other.
class Blocks
{
public:
    Blocks(const TiffFile& file, const TiffLayout& layout)
        : m_file(file.handle()), m_layout(layout), m_tiled(TIFFIsTiled(m_file) != 0)
    {
        if (m_tiled) {
            m_size = {file.number(TIFFTAG_TILEWIDTH), file.number(TIFFTAG_TILELENGTH)};
        } else {
            const std::uint32_t rows = file.number(TIFFTAG_ROWSPERSTRIP);
            m_size = {layout.width, std::min(rows, layout.height)};
        }
    }

    bool areSound() const
    {
        const std::uint64_t samples = m_layout.isPlanar ? 1 : m_layout.samples;
        const std::uint64_t sampleBytes = m_layout.bits / BYTE_BITS;
        if (m_size.width == 0 || m_size.height == 0 || byteCount() == 0 || byteCount() > MAX_BLOCK_BYTES)
            return false;
        return std::uint64_t(m_size.width) * m_size.height <= MAX_BLOCK_BYTES &&
               byteCount() >= std::uint64_t(m_size.width) * m_size.height * samples * sampleBytes;
    }

    std::uint64_t byteCount() const
    {
        return m_tiled ? TIFFTileSize64(m_file) : TIFFVStripSize64(m_file, m_size.height);
    }

    /// Reads the block whose first pixel is (x, y) of a plane.
    bool read(std::uint32_t x, std::uint32_t y, std::uint16_t plane, Array<std::byte>& to) const
    {
        const auto capacity = static_cast<tmsize_t>(to.size());
        const std::uint32_t rows = std::min(m_size.height, m_layout.height - y);
        if (m_tiled)
            return TIFFReadEncodedTile(m_file, TIFFComputeTile(m_file, x, y, 0, plane), to.data(),
                                       capacity) == capacity;
        const std::uint64_t wanted = TIFFVStripSize64(m_file, rows);
        return TIFFReadEncodedStrip(m_file, TIFFComputeStrip(m_file, y, plane), to.data(), capacity) >=
               static_cast<tmsize_t>(wanted);
    }

    TiffBlockSize size() const { return m_size; }

private:
    TIFF* m_file;
    const TiffLayout& m_layout;
    bool m_tiled;
    TiffBlockSize m_size;
};

ReadOutcome readBlocks(const Blocks& blocks, const TiffLayout& layout, Image& image,
                       const ReadingProgress& progress)
{
    const TiffSamples samples(layout, image);
    const int planes = layout.isPlanar ? samples.planeCount() : 1;
    Array<std::byte> block(static_cast<std::size_t>(blocks.byteCount()));
    for (std::uint32_t y = 0; y < layout.height;) {
        if (progress && !progress(static_cast<float>(y) / static_cast<float>(layout.height)))
            return ReadOutcome::STOPPED;
        for (std::uint64_t x = 0; x < layout.width; x += blocks.size().width) {
            for (int plane = 0; plane < planes; ++plane) {
                const auto left = static_cast<std::uint32_t>(x);
                if (!blocks.read(left, y, static_cast<std::uint16_t>(plane), block))
                    return ReadOutcome::DAMAGED;
                samples.place(block, blocks.size(), left, y, plane, image);
            }
        }
        if (layout.height - y <= blocks.size().height)
            break;
        y += blocks.size().height;
    }
    return ReadOutcome::DONE;
}

Array<String> omissionsOf(const TiffFile& file, const TiffLayout& layout)
{
    Array<String> omissions = omittedChannels(layout.samples - layout.colours - (layout.alpha ? 1 : 0));
    if (TIFFLastDirectory(file.handle()) == 0)
        omissions.push_back(L"It has more pages, of which the first is shown.");
    return omissions;
}

// Some files name one resolution and have 0 for the other, and a denominator of 0 makes no number.
void addResolution(const TiffFile& file, std::uint32_t tag, const wchar_t* name,
                   Array<MetadataEntry>& entries)
{
    float value = 0.0f;
    if (TIFFGetField(file.handle(), tag, &value) != 0 && std::isfinite(value) && value > 0.0f)
        entries.push_back({name, String::fromUtf8(numberText(value))});
}

Array<MetadataEntry> metadataOf(const TiffFile& file)
{
    static constexpr std::pair<std::uint32_t, const wchar_t*> TEXTS[] = {
        {TIFFTAG_IMAGEDESCRIPTION, L"description"},
        {TIFFTAG_DOCUMENTNAME, L"document"},
        {TIFFTAG_SOFTWARE, L"software"},
        {TIFFTAG_ARTIST, L"artist"},
        {TIFFTAG_COPYRIGHT, L"copyright"},
        {TIFFTAG_DATETIME, L"date"},
        {TIFFTAG_HOSTCOMPUTER, L"computer"}};
    Array<MetadataEntry> entries;
    for (const auto& [tag, name] : TEXTS) {
        const char* text = nullptr;
        if (TIFFGetField(file.handle(), tag, &text) != 0 && text != nullptr)
            entries.push_back({name, String::fromUtf8(text)});
    }
    addResolution(file, TIFFTAG_XRESOLUTION, L"horizontal resolution", entries);
    addResolution(file, TIFFTAG_YRESOLUTION, L"vertical resolution", entries);
    return entries;
}

} // namespace

Array<String> TiffReader::extensions() const
{
    return {L"tif", L"tiff"};
}

// The kind of the samples stands in the directory, which may be anywhere in the file.
bool TiffReader::mayKnow(ArrayView<const std::byte> beginning) const
{
    return isTiff(beginning);
}

bool TiffReader::knows(ArrayView<const std::byte> file) const
{
    if (!isTiff(file))
        return false;
    const TiffFile tiff(file);
    return tiff.handle() != nullptr && isReadable(tiff, layoutOf(tiff));
}

Expected<ReadImage, String> TiffReader::read(ArrayView<const std::byte> file, std::size_t /*layer*/,
                                             const ReadingProgress& progress) const
{
    const TiffFile tiff(file);
    if (tiff.handle() == nullptr)
        return readFailure(ReadOutcome::DAMAGED);
    const TiffLayout layout = layoutOf(tiff);
    const Blocks blocks(tiff, layout);
    const Optional<TiffImageFormat> format =
        isReadable(tiff, layout) ? imageFormatOf(layout) : Optional<TiffImageFormat>();
    if (!format || !blocks.areSound() || layout.byteCount() / MAX_INFLATION > file.size())
        return readFailure(ReadOutcome::DAMAGED);
    Expected<Image, String> image = blankImage(format->width, format->height, format->pixels, format->gamma);
    if (!image)
        return Unexpected{image.error()};
    const ReadOutcome outcome = readBlocks(blocks, layout, *image, progress);
    if (outcome != ReadOutcome::DONE)
        return readFailure(outcome);
    return ReadImage{.image = std::move(*image),
                     .omissions = omissionsOf(tiff, layout),
                     .metadata = metadataOf(tiff),
                     .alpha = layout.alpha.value_or(AlphaKind::STRAIGHT)};
}

} // namespace Nolvex::Viewer
