// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/PortableFloatMapReader.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>

using namespace Nolvex;

namespace {

ArrayView<const std::byte> bytesOf(const std::string& text)
{
    return std::as_bytes(ArrayView<const char>(text.data(), text.size()));
}

std::string floatBytes(float value, std::endian order)
{
    const auto bits = std::bit_cast<std::uint32_t>(value);
    std::string bytes;
    for (int i = 0; i < 4; ++i) {
        const int shift = 8 * (order == std::endian::little ? i : 3 - i);
        bytes += static_cast<char>(bits >> shift & 0xff);
    }
    return bytes;
}

std::string map(const std::string& header, std::initializer_list<float> values,
                std::endian order = std::endian::little)
{
    std::string text = header;
    for (const float value : values)
        text += floatBytes(value, order);
    return text;
}

Expected<Image, String> readMap(const std::string& content)
{
    Expected<Viewer::ReadImage, String> read = Viewer::PortableFloatMapReader().read(bytesOf(content), 0, {});
    return read ? Expected<Image, String>(std::move(read->image)) : Unexpected{read.error()};
}

} // namespace

TEST(PortableFloatMapReaderTest, colours_areReadBottomRowFirstAndLinear)
{
    const auto image = readMap(map("PF\n1 2\n-1.0\n", {1.5f, -2.0f, NAN, INFINITY, 0.25f, 0.0f}));
    ASSERT_TRUE(image.hasValue());
    EXPECT_EQ(image->descriptor().width, 1);
    EXPECT_EQ(image->descriptor().height, 2);
    EXPECT_EQ(image->descriptor().format, PixelFormat::FLOAT32_RGB);
    EXPECT_EQ(image->descriptor().gamma, 2.2f);
    EXPECT_EQ(image->getRgba(0, 0).r, 1.5f);
    EXPECT_EQ(image->getRgba(0, 0).g, -2.0f);
    EXPECT_TRUE(std::isnan(image->getRgba(0, 0).b));
    EXPECT_EQ(image->getRgba(0, 1).r, INFINITY);
    EXPECT_EQ(image->getRgba(0, 1).g, 0.25f);
}

TEST(PortableFloatMapReaderTest, greyAndBigEndian_areReadToo)
{
    const auto image = readMap(map("Pf 2 1 1.0 ", {0.5f, 3.0f}, std::endian::big));
    ASSERT_TRUE(image.hasValue());
    EXPECT_EQ(image->descriptor().format, PixelFormat::FLOAT32_GREY);
    EXPECT_EQ(image->getRgba(0, 0).g, 0.5f);
    EXPECT_EQ(image->getRgba(1, 0).b, 3.0f);
}

TEST(PortableFloatMapReaderTest, floatThatLooksLikeWhiteSpace_isStillTheFirstFloat)
{
    const float value = std::bit_cast<float>(0x0A0A0A0Au);
    const auto image = readMap(map("Pf\n1 1\n-1.0\n", {value}));
    ASSERT_TRUE(image.hasValue());
    EXPECT_EQ(image->getRgba(0, 0).r, value);
}

TEST(PortableFloatMapReaderTest, everyCut_isAnError)
{
    const std::string whole = map("PF\n2 2\n-1.0\n", {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11});
    ASSERT_TRUE(readMap(whole).hasValue());
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_FALSE(readMap(whole.substr(0, length)).hasValue()) << length;
}

TEST(PortableFloatMapReaderTest, brokenHeaders_areErrors)
{
    const std::string body(64, '\0');
    for (const char* header :
         {"PF\n", "PF\n1\n", "PF\n1 1\n", "PF\n1 1\n\n", "PF\n1 1\nx\n", "PF\n1 1 0\n", "PF 0 1 -1\n",
          "PF 1 0 -1\n", "PF -1 1 -1\n", "PF 1 -1 -1\n", "PF1 1 -1\n", "PF 99999999999 1 -1\n",
          "PF 2000000000 2000000000 -1\n", "PF 2147483647 2147483647 -1\n", "PF a b c\n", "PG 1 1 -1\n"})
        EXPECT_FALSE(readMap(header + body).hasValue()) << header;
    EXPECT_FALSE(Viewer::PortableFloatMapReader().knows({}));
    EXPECT_FALSE(Viewer::PortableFloatMapReader().knows(bytesOf("P")));
}
