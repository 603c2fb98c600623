// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/OpenExrPixels.h"

#include "NolvexLib/Optional.h"
#include "apps/viewer/reading/BlankImage.h"
#include "apps/viewer/reading/ReadOutcome.h"

#include <ImfChannelList.h>
#include <ImfFrameBuffer.h>
#include <ImfHeader.h>
#include <ImfInputPart.h>
#include <ImfRgbaFile.h>
#include <ImfTiledInputPart.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <utility>

namespace Nolvex::Viewer {

namespace {

using Kind = OpenExrLayer::Kind;

constexpr std::size_t ALPHA_CHANNEL = 3;

// The progress is told about so many times.
constexpr int PROGRESS_STEPS = 32;

// The compression with the largest blocks makes a block of so many rows. Blocks that are read in pieces would
// be decompressed several times.
constexpr int MAX_BLOCK_ROWS = 256;

/// The rows of the file that belong to the image, counted downwards.
struct RowRange
{
    int first = 0;
    int last = 0;

    std::int64_t count() const { return std::int64_t(last) - first + 1; }
};

RowRange rowsOf(const Imf::Header& header)
{
    return {header.dataWindow().min.y, header.dataWindow().max.y};
}

Array<std::string> allChannels(const OpenExrLayer& layer)
{
    Array<std::string> all = layer.channels;
    if (!layer.alpha.empty())
        all.push_back(layer.alpha);
    return all;
}

std::uint64_t sampleBytes(Imf::PixelType type)
{
    return type == Imf::HALF ? sizeof(std::uint16_t) : sizeof(float);
}

/// The number of bytes that the compression makes of one byte at most.
std::uint64_t maxInflation(Imf::Compression compression)
{
    switch (compression) {
    case Imf::NO_COMPRESSION:
        return 1;
    case Imf::DWAA_COMPRESSION:
    case Imf::DWAB_COMPRESSION:
        // A block of 64 floats can become two halves, which are deflated then.
        return MAX_INFLATION * 64;
    default:
        // PXR24 leaves out a byte of four before it deflates.
        return MAX_INFLATION * 4 / 3;
    }
}

// Counts in floating point, because the header may claim any size.
bool fits(const OpenExrFile& file, const Imf::Header& header)
{
    const Imath::Box2i& window = header.dataWindow();
    const double pixels =
        (double(window.max.x) - window.min.x + 1) * (double(window.max.y) - window.min.y + 1);
    double bytes = 0.0;
    for (auto channel = header.channels().begin(); channel != header.channels().end(); ++channel)
        bytes += pixels * static_cast<double>(sampleBytes(channel.channel().type)) /
                 (double(channel.channel().xSampling) * channel.channel().ySampling);
    return bytes <=
           static_cast<double>(file.bytes().size()) * static_cast<double>(maxInflation(header.compression()));
}

bool isSubsampled(const Imf::Header& header, const OpenExrLayer& layer)
{
    const Array<std::string> names = allChannels(layer);
    return std::any_of(names.begin(), names.end(), [&header](const std::string& name) {
        const Imf::Channel& channel = header.channels()[name];
        return channel.xSampling != 1 || channel.ySampling != 1;
    });
}

PixelFormat formatOf(const Imf::Header& header, const OpenExrLayer& layer)
{
    const Array<std::string> names = allChannels(layer);
    const bool isHalf = layer.kind == Kind::LUMINANCE_CHROMA ||
                        std::all_of(names.begin(), names.end(), [&header](const std::string& name) {
                            return header.channels()[name].type == Imf::HALF;
                        });
    if (!layer.alpha.empty())
        return isHalf ? PixelFormat::FLOAT16_RGBA : PixelFormat::FLOAT32_RGBA;
    if (layer.kind == Kind::GREY)
        return isHalf ? PixelFormat::FLOAT16_GREY : PixelFormat::FLOAT32_GREY;
    return isHalf ? PixelFormat::FLOAT16_RGB : PixelFormat::FLOAT32_RGB;
}

/// Returns the address of a pixel (0, 0) in memory whose first row shows the row `top` of the file. The
/// address may lie outside the memory.
char* originOf(void* topRow, const Imath::Box2i& window, int top, std::size_t pixelBytes,
               std::ptrdiff_t rowStep)
{
    const auto address = reinterpret_cast<std::intptr_t>(topRow) -
                         std::intptr_t(window.min.x) * static_cast<std::intptr_t>(pixelBytes) -
                         std::intptr_t(top) * rowStep;
    return reinterpret_cast<char*>(address); // NOLINT(performance-no-int-to-ptr)
}

/// Lets OpenEXR write the channels to their places in the image, whose rows lie in memory from bottom to top.
Imf::FrameBuffer frameBufferFor(Image& image, const Imf::Header& header, const OpenExrLayer& layer)
{
    const PixelFormat format = image.descriptor().format;
    const std::size_t pixelBytes = Image::getPixelFormatByteCount(format);
    const std::size_t channelBytes =
        pixelBytes / static_cast<std::size_t>(Image::getPixelFormatChannelCount(format));
    const Imf::PixelType type = channelBytes == sizeof(float) ? Imf::FLOAT : Imf::HALF;
    const auto rowStep = -static_cast<std::ptrdiff_t>(image.rowBytes());
    const Imath::Box2i& window = header.dataWindow();
    char* const origin =
        originOf(image.row(image.descriptor().height - 1).data(), window, window.min.y, pixelBytes, rowStep);
    Imf::FrameBuffer buffer;
    const auto insert = [&](const std::string& name, std::size_t channel) {
        const auto address = reinterpret_cast<std::uintptr_t>(origin) + channel * channelBytes;
        buffer.insert(name,
                      Imf::Slice(type, reinterpret_cast<char*>(address), // NOLINT(performance-no-int-to-ptr)
                                 pixelBytes, static_cast<std::size_t>(rowStep)));
    };
    for (std::size_t i = 0; i < layer.channels.size(); ++i)
        insert(layer.channels[i], i);
    if (!layer.alpha.empty())
        insert(layer.alpha, ALPHA_CHANNEL);
    return buffer;
}

/// Tells the progress of `rows`. Returns false if the reading is to stop.
bool goesOn(const ReadingProgress& progress, const RowRange& rows, int next)
{
    return !progress ||
           progress(static_cast<float>(double(std::int64_t(next) - rows.first) / double(rows.count())));
}

// Calls `read` with the first and the last row of one block after the other.
template<class Read>
ReadOutcome readInBlocks(const RowRange& rows, const ReadingProgress& progress, const Read& read)
{
    const std::int64_t wanted = rows.count() / PROGRESS_STEPS + 1;
    const std::int64_t blockRows = (wanted + MAX_BLOCK_ROWS - 1) / MAX_BLOCK_ROWS * MAX_BLOCK_ROWS;
    for (std::int64_t first = rows.first; first <= rows.last; first += blockRows) {
        if (!goesOn(progress, rows, static_cast<int>(first)))
            return ReadOutcome::STOPPED;
        read(static_cast<int>(first),
             static_cast<int>(std::min<std::int64_t>(first + blockRows - 1, rows.last)));
    }
    return ReadOutcome::DONE;
}

ReadOutcome readScanLines(OpenExrFile& file, const OpenExrLayer& layer, Image& image,
                          const ReadingProgress& progress)
{
    const Imf::Header& header = file.header(layer.part);
    Imf::InputPart part(file.parts(), layer.part);
    part.setFrameBuffer(frameBufferFor(image, header, layer));
    return readInBlocks(rowsOf(header), progress,
                        [&part](int first, int last) { part.readPixels(first, last); });
}

ReadOutcome readTiles(OpenExrFile& file, const OpenExrLayer& layer, Image& image,
                      const ReadingProgress& progress)
{
    const Imf::Header& header = file.header(layer.part);
    Imf::TiledInputPart part(file.parts(), layer.part);
    part.setFrameBuffer(frameBufferFor(image, header, layer));
    const RowRange rows{0, part.numYTiles(0) - 1};
    const int blockRows = static_cast<int>(rows.count() / PROGRESS_STEPS + 1);
    for (int first = 0; first <= rows.last; first += blockRows) {
        if (!goesOn(progress, rows, first))
            return ReadOutcome::STOPPED;
        part.readTiles(0, part.numXTiles(0) - 1, first, std::min(first + blockRows - 1, rows.last), 0, 0);
    }
    return ReadOutcome::DONE;
}

// Turns pixels that OpenEXR has made of luminance and chroma into a row of the image.
void placeRow(const Imf::Rgba* from, ArrayView<std::byte> row, std::size_t pixelBytes)
{
    for (std::size_t at = 0; at < row.size(); at += pixelBytes, ++from)
        std::memcpy(row.data() + at, from, pixelBytes);
}

ReadOutcome readLuminanceChroma(OpenExrFile& file, const OpenExrLayer& layer, Image& image,
                                const ReadingProgress& progress)
{
    OpenExrStream stream(file.bytes());
    const std::string layerName =
        layer.prefix.substr(0, layer.prefix.size() - (layer.prefix.empty() ? 0 : 1));
    Imf::RgbaInputFile input(stream, layerName);
    const Imath::Box2i& window = file.header(layer.part).dataWindow();
    const auto width = static_cast<std::size_t>(image.descriptor().width);
    const std::size_t pixelBytes = Image::getPixelFormatByteCount(image.descriptor().format);
    Array<Imf::Rgba> row(width);
    return readInBlocks(rowsOf(file.header(layer.part)), progress, [&](int first, int last) {
        for (int y = first; y <= last; ++y) {
            const auto rowStep = static_cast<std::ptrdiff_t>(width * sizeof(Imf::Rgba));
            char* const origin = originOf(row.data(), window, y, sizeof(Imf::Rgba), rowStep);
            input.setFrameBuffer(reinterpret_cast<Imf::Rgba*>(origin), 1, width);
            input.readPixels(y);
            placeRow(row.data(), image.row(window.max.y - y), pixelBytes);
        }
    });
}

// Grey with alpha is stored as colours: copies the grey, which OpenEXR has written as red, to green and blue.
void spreadGrey(Image& image)
{
    const std::size_t pixelBytes = Image::getPixelFormatByteCount(image.descriptor().format);
    const std::size_t channelBytes = pixelBytes / (ALPHA_CHANNEL + 1);
    for (std::int32_t y = 0; y < image.descriptor().height; ++y) {
        const ArrayView<std::byte> row = image.row(y);
        for (std::size_t at = 0; at < row.size(); at += pixelBytes) {
            std::memcpy(row.data() + at + channelBytes, row.data() + at, channelBytes);
            std::memcpy(row.data() + at + 2 * channelBytes, row.data() + at, channelBytes);
        }
    }
}

ReadOutcome readInto(Image& image, OpenExrFile& file, const OpenExrLayer& layer,
                     const ReadingProgress& progress)
{
    if (layer.kind == Kind::LUMINANCE_CHROMA)
        return readLuminanceChroma(file, layer, image, progress);
    const ReadOutcome outcome = file.header(layer.part).hasTileDescription()
                                    ? readTiles(file, layer, image, progress)
                                    : readScanLines(file, layer, image, progress);
    if (outcome == ReadOutcome::DONE && layer.kind == Kind::GREY && !layer.alpha.empty())
        spreadGrey(image);
    return outcome;
}

Optional<String> refusalOf(const OpenExrFile& file, const OpenExrLayer& layer)
{
    const Imf::Header& header = file.header(layer.part);
    if (!fits(file, header))
        return String(L"it is damaged or cut off");
    if (layer.kind == Kind::LUMINANCE_CHROMA)
        // OpenEXR converts them in the first part only.
        return layer.part == 0
                   ? Optional<String>()
                   : String(L"it stores the colours of this layer as luminance and chroma, which can be read "
                            L"in the first part of a file only");
    if (isSubsampled(header, layer))
        return String(L"a channel of this layer has fewer pixels than the picture");
    return {};
}

} // namespace

Expected<Image, String> readOpenExrPixels(OpenExrFile& file, const OpenExrLayer& layer,
                                          const ReadingProgress& progress)
{
    if (const Optional<String> refusal = refusalOf(file, layer))
        return Unexpected{*refusal};
    const Imf::Header& header = file.header(layer.part);
    const Imath::Box2i& window = header.dataWindow();
    Expected<Image, String> image =
        blankImage(window.max.x - window.min.x + 1, window.max.y - window.min.y + 1, formatOf(header, layer),
                   GAMMA_OF_LIGHT);
    if (!image)
        return image;
    const ReadOutcome outcome = readInto(*image, file, layer, progress);
    if (outcome != ReadOutcome::DONE)
        return readFailure(outcome);
    return image;
}

} // namespace Nolvex::Viewer
