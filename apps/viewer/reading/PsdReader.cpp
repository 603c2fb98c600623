// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/PsdReader.h"

#include "apps/viewer/reading/BlankImage.h"
#include "apps/viewer/reading/Omissions.h"
#include "apps/viewer/reading/PsdFile.h"
#include "apps/viewer/reading/ReadOutcome.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <type_traits>
#include <utility>

namespace Nolvex::Viewer {

namespace {

constexpr int COLOURS = 3;
constexpr int ALPHA_CHANNEL = 3;

int coloursOf(const PsdFile& file)
{
    return file.isGrey() ? 1 : COLOURS;
}

bool hasAlpha(const PsdFile& file)
{
    // Files without layers have no other place for their transparency than a single channel after the
    // colours.
    const int more = file.channels() - coloursOf(file);
    return file.hasMergedTransparency() ? more > 0 : more == 1 && file.layerCount() == 0;
}

PixelFormat formatOf(const PsdFile& file)
{
    const bool isGrey = file.isGrey() && !hasAlpha(file);
    const auto choose = [&](PixelFormat grey, PixelFormat rgb, PixelFormat rgba) {
        return isGrey ? grey : hasAlpha(file) ? rgba : rgb;
    };
    switch (file.bits()) {
    case 8:
        return choose(PixelFormat::UINT8_GREY, PixelFormat::UINT8_RGB, PixelFormat::UINT8_RGBA);
    case 16:
        return choose(PixelFormat::UINT16_GREY, PixelFormat::UINT16_RGB, PixelFormat::UINT16_RGBA);
    default:
        return choose(PixelFormat::FLOAT32_GREY, PixelFormat::FLOAT32_RGB, PixelFormat::FLOAT32_RGBA);
    }
}

/// Places rows of one channel into the image.
class ChannelPlaces
{
public:
    ChannelPlaces(const PsdFile& file, Image& image)
        : m_image(image),
          m_isSpread(file.isGrey() && hasAlpha(file)),
          m_pixelBytes(Image::getPixelFormatByteCount(image.descriptor().format)),
          m_sampleBytes(m_pixelBytes / static_cast<std::size_t>(
                                           Image::getPixelFormatChannelCount(image.descriptor().format)))
    {}

    void place(ArrayView<const std::byte> row, std::int32_t y, int channel)
    {
        // Grey with alpha is stored as colours.
        const bool isGrey = m_isSpread && channel == 0;
        const int first = m_isSpread && channel == 1 ? ALPHA_CHANNEL : channel;
        for (int to = first; to <= (isGrey ? COLOURS - 1 : first); ++to)
            placeAt(row, y, static_cast<std::size_t>(to));
    }

private:
    void placeAt(ArrayView<const std::byte> row, std::int32_t y, std::size_t channel)
    {
        std::byte* to = m_image.row(m_image.descriptor().height - 1 - y).data() + channel * m_sampleBytes;
        for (std::size_t at = 0; at < row.size(); at += m_sampleBytes, to += m_pixelBytes) {
            if (std::endian::native == std::endian::little)
                std::reverse_copy(row.begin() + static_cast<std::ptrdiff_t>(at),
                                  row.begin() + static_cast<std::ptrdiff_t>(at + m_sampleBytes), to);
            else
                std::memcpy(to, row.data() + at, m_sampleBytes);
        }
    }

    Image& m_image;
    bool m_isSpread;
    std::size_t m_pixelBytes;
    std::size_t m_sampleBytes;
};

// Takes the white out of colours that were mixed with it.
template<class Number>
void removeWhite(ArrayView<std::byte> row)
{
    constexpr bool IS_FLOAT = std::is_same_v<Number, float>;
    const float white = IS_FLOAT ? 1.0f : static_cast<float>(std::numeric_limits<Number>::max());
    Number pixel[ALPHA_CHANNEL + 1];
    for (std::size_t at = 0; at + sizeof pixel <= row.size(); at += sizeof pixel) {
        std::memcpy(pixel, row.data() + at, sizeof pixel);
        const float alpha = static_cast<float>(pixel[ALPHA_CHANNEL]) / white;
        if (!(alpha > 0.0f) || alpha >= 1.0f)
            continue;
        for (int channel = 0; channel < COLOURS; ++channel) {
            const float colour = (static_cast<float>(pixel[channel]) - white * (1.0f - alpha)) / alpha;
            if constexpr (IS_FLOAT)
                pixel[channel] = std::max(colour, 0.0f);
            else
                pixel[channel] = static_cast<Number>(std::lround(std::clamp(colour, 0.0f, white)));
        }
        std::memcpy(row.data() + at, pixel, sizeof pixel);
    }
}

void removeWhite(Image& image, int bits)
{
    for (std::int32_t y = 0; y < image.descriptor().height; ++y) {
        if (bits == 8)
            removeWhite<std::uint8_t>(image.row(y));
        else if (bits == 16)
            removeWhite<std::uint16_t>(image.row(y));
        else
            removeWhite<float>(image.row(y));
    }
}

ReadOutcome readRows(PsdFile file, Image& image, const ReadingProgress& progress)
{
    ChannelPlaces places(file, image);
    Array<std::byte> row(file.rowBytes());
    const int channels = coloursOf(file) + (hasAlpha(file) ? 1 : 0);
    const double rows = static_cast<double>(channels) * file.height();
    for (int channel = 0; channel < channels; ++channel) {
        for (std::int32_t y = 0; y < file.height(); ++y) {
            const double done = static_cast<double>(channel) * file.height() + y;
            if (progress && !progress(static_cast<float>(done / rows)))
                return ReadOutcome::STOPPED;
            if (!file.takeRow(row))
                return ReadOutcome::DAMAGED;
            places.place(row, y, channel);
        }
    }
    if (hasAlpha(file) && file.hasMergedTransparency())
        removeWhite(image, file.bits());
    return ReadOutcome::DONE;
}

Array<String> omissionsOf(const PsdFile& file)
{
    Array<String> omissions = omittedChannels(file.channels() - coloursOf(file) - (hasAlpha(file) ? 1 : 0));
    if (file.layerCount() > 1)
        omissions.push_back(L"It has " + std::to_wstring(file.layerCount()) +
                            L" layers, of which the merged image is shown.");
    return omissions;
}

} // namespace

Array<String> PsdReader::extensions() const
{
    return {L"psd", L"psb"};
}

bool PsdReader::knows(ArrayView<const std::byte> file) const
{
    return PsdFile::knows(file);
}

Expected<ReadImage, String> PsdReader::read(ArrayView<const std::byte> bytes, std::size_t /*layer*/,
                                            const ReadingProgress& progress) const
{
    const Expected<PsdFile, String> file = PsdFile::open(bytes);
    if (!file)
        return Unexpected{file.error()};
    if (!file->fits())
        return readFailure(ReadOutcome::DAMAGED);
    constexpr int FLOAT_BITS = 32;
    Expected<Image, String> image =
        blankImage(file->width(), file->height(), formatOf(*file),
                   file->bits() == FLOAT_BITS ? GAMMA_OF_LIGHT : GAMMA_OF_ENCODED);
    if (!image)
        return Unexpected{image.error()};
    const ReadOutcome outcome = readRows(*file, *image, progress);
    if (outcome != ReadOutcome::DONE)
        return readFailure(outcome);
    return ReadImage{.image = std::move(*image), .omissions = omissionsOf(*file)};
}

} // namespace Nolvex::Viewer
