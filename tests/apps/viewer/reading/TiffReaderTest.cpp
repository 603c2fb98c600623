// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/TiffReader.h"

#include "NolvexLib/Pixel.h"
#include "apps/viewer/reading/TiffFiles.h"
#include "support/PictureFiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>

using namespace Nolvex;
using Tests::TIFF_HEIGHT;
using Tests::TIFF_WIDTH;
using Tests::tiffFile;
using Tests::TiffKind;
using Tests::tiffSampleAt;
using Viewer::TiffReader;

namespace {

/// Returns where the picture shows the pixel (x, y) of the file, counted from the top left.
Pixel placeOf(const TiffKind& kind, int x, int y)
{
    switch (kind.orientation) {
    case ORIENTATION_TOPRIGHT:
        return {TIFF_WIDTH - 1 - x, y};
    case ORIENTATION_BOTRIGHT:
        return {TIFF_WIDTH - 1 - x, TIFF_HEIGHT - 1 - y};
    case ORIENTATION_BOTLEFT:
        return {x, TIFF_HEIGHT - 1 - y};
    case ORIENTATION_LEFTTOP:
        return {y, x};
    case ORIENTATION_RIGHTTOP:
        return {TIFF_HEIGHT - 1 - y, x};
    case ORIENTATION_RIGHTBOT:
        return {TIFF_HEIGHT - 1 - y, TIFF_WIDTH - 1 - x};
    case ORIENTATION_LEFTBOT:
        return {y, TIFF_WIDTH - 1 - x};
    default:
        return {x, y};
    }
}

/// Returns the largest difference from the samples of the tests.
float distanceFromSamples(const Image& image, const TiffKind& kind)
{
    float largest = 0.0f;
    for (int y = 0; y < TIFF_HEIGHT; ++y) {
        for (int x = 0; x < TIFF_WIDTH; ++x) {
            const Pixel place = placeOf(kind, x, y);
            const Rgb pixel = image.getRgba(place.x, image.descriptor().height - 1 - place.y);
            const float shown[] = {pixel.r, pixel.g, pixel.b};
            const float alpha = kind.alpha >= 0 ? tiffSampleAt(x, y, kind.colours, true) : 1.0f;
            largest = std::max(largest, std::abs(pixel.a - (kind.alpha > 0 ? alpha : 1.0f)));
            for (int i = 0; i < 3; ++i) {
                float expected = tiffSampleAt(x, y, kind.colours == 3 ? i : 0, false);
                if (kind.photometric == PHOTOMETRIC_MINISWHITE)
                    expected = 1.0f - expected;
                largest = std::max(largest, std::abs(shown[i] - expected));
            }
        }
    }
    return largest;
}

void expectRead(const TiffKind& kind)
{
    const Array<std::byte> file = tiffFile(kind);
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
    EXPECT_FALSE(TiffReader().knows(tiffFile({.bits = 8}))) << "wxWidgets reads bytes without alpha";
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
    const auto pages = TiffReader().read(tiffFile({}, 3), 0, {});
    ASSERT_TRUE(pages.hasValue());
    ASSERT_EQ(pages->omissions.size(), 1u);
    EXPECT_EQ(pages->omissions.front(), String(L"It has more pages, of which the first is shown."));
    const auto channels = TiffReader().read(tiffFile({.alpha = EXTRASAMPLE_UNSPECIFIED}), 0, {});
    ASSERT_TRUE(channels.hasValue());
    EXPECT_EQ(channels->image.descriptor().format, PixelFormat::UINT16_RGB);
    ASSERT_EQ(channels->omissions.size(), 1u);
    EXPECT_EQ(channels->omissions.front(), String(L"It has one more channel, which is not shown."));
}

TEST(TiffReaderTest, textsAndResolution_areMetadata)
{
    const auto read = TiffReader().read(tiffFile({}, 1, "a J\xc3\xb6rg"), 0, {});
    ASSERT_TRUE(read.hasValue());
    EXPECT_EQ(read->metadata, (Array<Viewer::MetadataEntry>{{L"description", L"a J\u00F6rg"},
                                                            {L"horizontal resolution", L"72.5"}}));
}

TEST(TiffReaderTest, notANumber_staysSo)
{
    Array<std::byte> file = tiffFile({.bits = 32, .isFloat = true, .alpha = EXTRASAMPLE_ASSOCALPHA});
    const std::uint32_t nan = 0x7fc00000;
    const float wanted = tiffSampleAt(0, 0, 1, false);
    // The first strip is the first thing in the file after its header of eight bytes.
    ASSERT_EQ(std::memcmp(file.data() + 12, &wanted, sizeof wanted), 0);
    std::memcpy(file.data() + 12, &nan, sizeof nan);
    const auto read = TiffReader().read(file, 0, {});
    ASSERT_TRUE(read.hasValue());
    EXPECT_TRUE(std::isnan(read->image.getRgba(0, TIFF_HEIGHT - 1).g));
}

TEST(TiffReaderTest, cutFiles_areRefused)
{
    const Array<std::byte> whole = tiffFile({.isTiled = true, .compression = COMPRESSION_ADOBE_DEFLATE});
    for (std::size_t length = 0; length < whole.size(); length += 3) {
        const auto part = ArrayView<const std::byte>(whole).first(length);
        EXPECT_FALSE(TiffReader().read(part, 0, {}).hasValue()) << length;
    }
}

TEST(TiffReaderTest, mutatedFiles_areReadOrRefused)
{
    std::mt19937 random(7); // NOLINT(cert-msc51-cpp): the same files in every run
    for (const TiffKind& kind :
         {TiffKind{}, TiffKind{.bits = 32, .isFloat = true, .isTiled = true},
          TiffKind{.alpha = EXTRASAMPLE_ASSOCALPHA, .isPlanar = true, .compression = COMPRESSION_LZW},
          TiffKind{.orientation = 6, .compression = COMPRESSION_ADOBE_DEFLATE}}) {
        const Array<std::byte> whole = tiffFile(kind);
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
    EXPECT_FALSE(TiffReader().read(tiffFile({}), 0, [](float share) { return share < 0.3f; }).hasValue());
}
