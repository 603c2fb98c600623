// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/TiffReader.h"

#include "NolvexLib/Pixel.h"
#include "apps/viewer/HalfFloat.h"
#include "support/PictureFiles.h"

#include <gtest/gtest.h>

#include <tiffio.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>

using namespace Nolvex;
using Viewer::TiffReader;

namespace {

constexpr int WIDTH = 21;
constexpr int HEIGHT = 13;

/// What a file of the tests is like.
struct Kind
{
    int bits = 16;
    bool isFloat = false;
    int colours = 3;
    int alpha = -1; // the kind of the extra sample, or -1
    bool isPlanar = false;
    bool isTiled = false;
    int orientation = ORIENTATION_TOPLEFT;
    int compression = COMPRESSION_NONE;
    int photometric = -1;
    bool isBigEndian = false;
};

std::ostream& operator<<(std::ostream& stream, const Kind& kind)
{
    return stream << kind.bits << (kind.isFloat ? " bits float, " : " bits, ") << kind.colours
                  << " colours, alpha " << kind.alpha << (kind.isPlanar ? ", planar" : "")
                  << (kind.isTiled ? ", tiled" : "") << ", orientation " << kind.orientation
                  << ", compression " << kind.compression << (kind.isBigEndian ? ", big endian" : "");
}

/// Returns the sample of a pixel, from 0 to 1. The last sample is alpha, which is not 0.
float sampleAt(int x, int y, int sample, bool isAlpha)
{
    return isAlpha ? 0.25f + static_cast<float>(x) / 32.0f
                   : static_cast<float>((x * 7 + y * 3 + sample * 5) % 64) / 64.0f;
}

void putSample(const Kind& kind, float value, std::string& to)
{
    const auto put = [&to](auto number) { to.append(reinterpret_cast<const char*>(&number), sizeof number); };
    if (kind.isFloat && kind.bits == 16)
        put(Viewer::toHalf(value));
    else if (kind.isFloat && kind.bits == 32)
        put(value);
    else if (kind.isFloat)
        put(static_cast<double>(value));
    else if (kind.bits == 8)
        put(static_cast<std::uint8_t>(std::lround(value * 255.0f)));
    else if (kind.bits == 16)
        put(static_cast<std::uint16_t>(std::lround(value * 65535.0f)));
    else
        put(static_cast<std::uint32_t>(std::llround(static_cast<double>(value) * 4294967295.0)));
}

/// A file that libtiff writes into memory.
class MemoryTiff
{
public:
    // Opening writes the header already.
    explicit MemoryTiff(const char* mode)
    {
        handle = TIFFClientOpen("memory", mode, this, read, write, seek, close, size, nullptr, nullptr);
    }

    TIFF* handle = nullptr;
    std::string content;

private:
    static MemoryTiff& self(thandle_t handle) { return *static_cast<MemoryTiff*>(handle); }

    static tmsize_t read(thandle_t handle, void* to, tmsize_t count)
    {
        const std::string part =
            self(handle).content.substr(self(handle).m_position, static_cast<std::size_t>(count));
        std::memcpy(to, part.data(), part.size());
        self(handle).m_position += part.size();
        return static_cast<tmsize_t>(part.size());
    }

    static tmsize_t write(thandle_t handle, void* from, tmsize_t count)
    {
        MemoryTiff& file = self(handle);
        const auto length = static_cast<std::size_t>(count);
        file.content.resize(std::max(file.content.size(), file.m_position + length));
        std::memcpy(file.content.data() + file.m_position, from, length);
        file.m_position += length;
        return count;
    }

    static toff_t seek(thandle_t handle, toff_t offset, int origin)
    {
        MemoryTiff& file = self(handle);
        const std::size_t base = origin == SEEK_SET   ? 0
                                 : origin == SEEK_CUR ? file.m_position
                                                      : file.content.size();
        file.m_position = base + static_cast<std::size_t>(offset);
        file.content.resize(std::max(file.content.size(), file.m_position));
        return file.m_position;
    }

    static int close(thandle_t) { return 0; }

    static toff_t size(thandle_t handle) { return self(handle).content.size(); }

    std::size_t m_position = 0;
};

void describe(TIFF* file, const Kind& kind)
{
    const int samples = kind.colours + (kind.alpha >= 0 ? 1 : 0);
    TIFFSetField(file, TIFFTAG_IMAGEWIDTH, WIDTH);
    TIFFSetField(file, TIFFTAG_IMAGELENGTH, HEIGHT);
    TIFFSetField(file, TIFFTAG_BITSPERSAMPLE, kind.bits);
    TIFFSetField(file, TIFFTAG_SAMPLEFORMAT, kind.isFloat ? SAMPLEFORMAT_IEEEFP : SAMPLEFORMAT_UINT);
    TIFFSetField(file, TIFFTAG_SAMPLESPERPIXEL, samples);
    TIFFSetField(file, TIFFTAG_PLANARCONFIG, kind.isPlanar ? PLANARCONFIG_SEPARATE : PLANARCONFIG_CONTIG);
    TIFFSetField(file, TIFFTAG_ORIENTATION, kind.orientation);
    TIFFSetField(file, TIFFTAG_COMPRESSION, kind.compression);
    const int usual = kind.colours == 3 ? PHOTOMETRIC_RGB : PHOTOMETRIC_MINISBLACK;
    TIFFSetField(file, TIFFTAG_PHOTOMETRIC, kind.photometric >= 0 ? kind.photometric : usual);
    if (kind.alpha >= 0) {
        const auto meaning = static_cast<std::uint16_t>(kind.alpha);
        TIFFSetField(file, TIFFTAG_EXTRASAMPLES, 1, &meaning);
    }
}

/// Returns the samples of an area. Beyond the edges they are 1.
std::string samplesOf(const Kind& kind, int left, int top, int width, int height, int plane)
{
    std::string samples;
    const int count = kind.colours + (kind.alpha >= 0 ? 1 : 0);
    for (int y = top; y < top + height; ++y) {
        for (int x = left; x < left + width; ++x) {
            for (int i = 0; i < count; ++i) {
                if (plane >= 0 && i != plane)
                    continue;
                const bool isInside = x < WIDTH && y < HEIGHT;
                putSample(kind, isInside ? sampleAt(x, y, i, i == kind.colours) : 1.0f, samples);
            }
        }
    }
    return samples;
}

void writePixels(TIFF* file, const Kind& kind)
{
    constexpr int TILE = 16;
    constexpr int STRIP_ROWS = 5;
    const int planes = kind.isPlanar ? kind.colours + (kind.alpha >= 0 ? 1 : 0) : 1;
    const int width = kind.isTiled ? TILE : WIDTH;
    const int height = kind.isTiled ? TILE : STRIP_ROWS;
    for (int plane = 0; plane < planes; ++plane) {
        for (int y = 0; y < HEIGHT; y += height) {
            for (int x = 0; x < WIDTH; x += width) {
                const int rows = kind.isTiled ? height : std::min(height, HEIGHT - y);
                std::string block = samplesOf(kind, x, y, width, rows, kind.isPlanar ? plane : -1);
                const auto sample = static_cast<std::uint16_t>(plane);
                if (kind.isTiled)
                    TIFFWriteTile(file, block.data(), static_cast<std::uint32_t>(x),
                                  static_cast<std::uint32_t>(y), 0, sample);
                else
                    TIFFWriteEncodedStrip(file, TIFFComputeStrip(file, static_cast<std::uint32_t>(y), sample),
                                          block.data(), static_cast<tmsize_t>(block.size()));
            }
        }
    }
}

Array<std::byte> fileOf(const Kind& kind, int pages = 1, const std::string& description = {})
{
    MemoryTiff file(kind.isBigEndian ? "wb" : "wl");
    for (int page = 0; page < pages; ++page) {
        describe(file.handle, kind);
        if (!description.empty()) {
            TIFFSetField(file.handle, TIFFTAG_IMAGEDESCRIPTION, description.c_str());
            TIFFSetField(file.handle, TIFFTAG_XRESOLUTION, 72.5);
        }
        if (kind.isTiled) {
            TIFFSetField(file.handle, TIFFTAG_TILEWIDTH, 16);
            TIFFSetField(file.handle, TIFFTAG_TILELENGTH, 16);
        } else {
            TIFFSetField(file.handle, TIFFTAG_ROWSPERSTRIP, 5);
        }
        writePixels(file.handle, kind);
        TIFFWriteDirectory(file.handle);
    }
    TIFFClose(file.handle);
    Array<std::byte> bytes(file.content.size());
    std::memcpy(bytes.data(), file.content.data(), bytes.size());
    return bytes;
}

/// Returns where the picture shows the pixel (x, y) of the file, counted from the top left.
Pixel placeOf(const Kind& kind, int x, int y)
{
    switch (kind.orientation) {
    case ORIENTATION_TOPRIGHT:
        return {WIDTH - 1 - x, y};
    case ORIENTATION_BOTRIGHT:
        return {WIDTH - 1 - x, HEIGHT - 1 - y};
    case ORIENTATION_BOTLEFT:
        return {x, HEIGHT - 1 - y};
    case ORIENTATION_LEFTTOP:
        return {y, x};
    case ORIENTATION_RIGHTTOP:
        return {HEIGHT - 1 - y, x};
    case ORIENTATION_RIGHTBOT:
        return {HEIGHT - 1 - y, WIDTH - 1 - x};
    case ORIENTATION_LEFTBOT:
        return {y, WIDTH - 1 - x};
    default:
        return {x, y};
    }
}

/// Returns the largest difference from the samples of the tests.
float distanceFromSamples(const Image& image, const Kind& kind)
{
    float largest = 0.0f;
    for (int y = 0; y < HEIGHT; ++y) {
        for (int x = 0; x < WIDTH; ++x) {
            const Pixel place = placeOf(kind, x, y);
            const Rgb pixel = image.getRgba(place.x, image.descriptor().height - 1 - place.y);
            const float shown[] = {pixel.r, pixel.g, pixel.b};
            const float alpha = kind.alpha >= 0 ? sampleAt(x, y, kind.colours, true) : 1.0f;
            largest = std::max(largest, std::abs(pixel.a - (kind.alpha > 0 ? alpha : 1.0f)));
            for (int i = 0; i < 3; ++i) {
                float expected = sampleAt(x, y, kind.colours == 3 ? i : 0, false);
                if (kind.photometric == PHOTOMETRIC_MINISWHITE)
                    expected = 1.0f - expected;
                largest = std::max(largest, std::abs(shown[i] - expected));
            }
        }
    }
    return largest;
}

void expectRead(const Kind& kind)
{
    const Array<std::byte> file = fileOf(kind);
    ASSERT_TRUE(TiffReader().knows(file)) << kind;
    const auto read = TiffReader().read(file, 0, {});
    ASSERT_TRUE(read.hasValue()) << kind << ": " << read.error().toUtf8();
    EXPECT_EQ(read->image.descriptor().gamma, kind.isFloat ? 2.2f : 1.0f) << kind;
    EXPECT_EQ(read->alpha, kind.alpha == EXTRASAMPLE_ASSOCALPHA ? Viewer::AlphaKind::ASSOCIATED
                                                                : Viewer::AlphaKind::STRAIGHT)
        << kind;
    // A half float has eleven bits.
    const bool isCoarse = kind.bits == 8 || (kind.bits == 16 && kind.isFloat);
    EXPECT_LE(distanceFromSamples(read->image, kind), isCoarse ? 2e-3f : 5e-5f) << kind;
}

} // namespace

TEST(TiffReaderTest, allNumbersOfSamples_areRead)
{
    for (const bool isFloat : {false, true}) {
        for (const int bits : {16, 32, 64}) {
            if (!isFloat && bits == 64)
                continue;
            for (const int colours : {1, 3}) {
                for (const int alpha : {-1, EXTRASAMPLE_UNASSALPHA, EXTRASAMPLE_ASSOCALPHA})
                    expectRead({.bits = bits, .isFloat = isFloat, .colours = colours, .alpha = alpha});
            }
        }
    }
}

TEST(TiffReaderTest, bytesWithAlpha_areReadAsTheyAreStored)
{
    for (const int alpha : {EXTRASAMPLE_UNASSALPHA, EXTRASAMPLE_ASSOCALPHA}) {
        for (const int colours : {1, 3}) {
            expectRead({.bits = 8, .colours = colours, .alpha = alpha});
            expectRead({.bits = 8, .colours = colours, .alpha = alpha, .isPlanar = true});
        }
        expectRead({.bits = 8, .colours = 1, .alpha = alpha, .photometric = PHOTOMETRIC_MINISWHITE});
    }
    EXPECT_FALSE(TiffReader().knows(fileOf({.bits = 8}))) << "wxWidgets reads bytes without alpha";
}

TEST(TiffReaderTest, stripsTilesAndPlanes_areReadInAllCompressions)
{
    for (const bool isPlanar : {false, true}) {
        for (const bool isTiled : {false, true}) {
            for (const int compression :
                 {COMPRESSION_NONE, COMPRESSION_LZW, COMPRESSION_ADOBE_DEFLATE, COMPRESSION_PACKBITS}) {
                for (const bool isBigEndian : {false, true})
                    expectRead({.alpha = EXTRASAMPLE_UNASSALPHA,
                                .isPlanar = isPlanar,
                                .isTiled = isTiled,
                                .compression = compression,
                                .isBigEndian = isBigEndian});
            }
        }
    }
}

TEST(TiffReaderTest, orientations_areTurned)
{
    for (int orientation = ORIENTATION_TOPLEFT; orientation <= ORIENTATION_LEFTBOT; ++orientation) {
        for (const bool isTiled : {false, true})
            expectRead({.isTiled = isTiled, .orientation = orientation});
    }
}

TEST(TiffReaderTest, whiteAtZero_isInverted)
{
    expectRead({.colours = 1, .photometric = PHOTOMETRIC_MINISWHITE});
    expectRead({.bits = 32, .colours = 1, .photometric = PHOTOMETRIC_MINISWHITE});
}

TEST(TiffReaderTest, bytes_areForTheDecodersOfWxWidgets)
{
    EXPECT_FALSE(TiffReader().knows(Tests::contentOf(Tests::pictureFile("pattern.tiff"))));
    EXPECT_FALSE(TiffReader().knows(Tests::contentOf(Tests::pictureFile("pattern.png"))));
    EXPECT_FALSE(TiffReader().knows({}));
}

TEST(TiffReaderTest, furtherPagesAndChannels_areTold)
{
    const auto pages = TiffReader().read(fileOf({}, 3), 0, {});
    ASSERT_TRUE(pages.hasValue());
    ASSERT_EQ(pages->omissions.size(), 1u);
    EXPECT_EQ(pages->omissions.front(), String(L"It has more pages, of which the first is shown."));
    const auto channels = TiffReader().read(fileOf({.alpha = EXTRASAMPLE_UNSPECIFIED}), 0, {});
    ASSERT_TRUE(channels.hasValue());
    EXPECT_EQ(channels->image.descriptor().format, PixelFormat::UINT16_RGB);
    ASSERT_EQ(channels->omissions.size(), 1u);
    EXPECT_EQ(channels->omissions.front(), String(L"It has one more channel, which is not shown."));
}

TEST(TiffReaderTest, textsAndResolution_areMetadata)
{
    const auto read = TiffReader().read(fileOf({}, 1, "a J\xc3\xb6rg"), 0, {});
    ASSERT_TRUE(read.hasValue());
    EXPECT_EQ(read->metadata, (Array<Viewer::MetadataEntry>{{L"description", L"a J\u00F6rg"},
                                                            {L"horizontal resolution", L"72.5"}}));
}

TEST(TiffReaderTest, notANumber_staysSo)
{
    Array<std::byte> file = fileOf({.bits = 32, .isFloat = true, .alpha = EXTRASAMPLE_ASSOCALPHA});
    const std::uint32_t nan = 0x7fc00000;
    const float wanted = sampleAt(0, 0, 1, false);
    // The first strip is the first thing in the file after its header of eight bytes.
    ASSERT_EQ(std::memcmp(file.data() + 12, &wanted, sizeof wanted), 0);
    std::memcpy(file.data() + 12, &nan, sizeof nan);
    const auto read = TiffReader().read(file, 0, {});
    ASSERT_TRUE(read.hasValue());
    EXPECT_TRUE(std::isnan(read->image.getRgba(0, HEIGHT - 1).g));
}

TEST(TiffReaderTest, cutFiles_areRefused)
{
    const Array<std::byte> whole = fileOf({.isTiled = true, .compression = COMPRESSION_ADOBE_DEFLATE});
    for (std::size_t length = 0; length < whole.size(); length += 3) {
        const auto part = ArrayView<const std::byte>(whole).first(length);
        EXPECT_FALSE(TiffReader().read(part, 0, {}).hasValue()) << length;
    }
}

TEST(TiffReaderTest, mutatedFiles_areReadOrRefused)
{
    std::mt19937 random(7); // NOLINT(cert-msc51-cpp): the same files in every run
    for (const Kind& kind :
         {Kind{}, Kind{.bits = 32, .isFloat = true, .isTiled = true},
          Kind{.alpha = EXTRASAMPLE_ASSOCALPHA, .isPlanar = true, .compression = COMPRESSION_LZW},
          Kind{.orientation = 6, .compression = COMPRESSION_ADOBE_DEFLATE}}) {
        const Array<std::byte> whole = fileOf(kind);
        for (int run = 0; run < 2000; ++run) {
            Array<std::byte> file = whole;
            for (int i = 0; i < 3; ++i) {
                // The directory at the end holds what the reader believes.
                const std::size_t tail = std::min<std::size_t>(file.size(), 300);
                file[file.size() - 1 - random() % tail] = static_cast<std::byte>(random());
            }
            if (TiffReader().knows(file)) {
                const auto read = TiffReader().read(file, 0, {});
                EXPECT_TRUE(read.hasValue() || !read.error().isEmpty());
            }
        }
    }
}

TEST(TiffReaderTest, progress_canStopTheReading)
{
    EXPECT_FALSE(TiffReader().read(fileOf({}), 0, [](float share) { return share < 0.3f; }).hasValue());
}
