// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/OtherFormatsReader.h"

#include "apps/viewer/reading/PictureReaders.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

using namespace Nolvex;
using Viewer::OtherFormatsReader;

namespace {

constexpr int WIDTH = 9;
constexpr int HEIGHT = 5;

// The upper byte comes first.
void put(std::string& to, std::uint32_t number, int bytes)
{
    for (int i = bytes - 1; i >= 0; --i)
        to.push_back(static_cast<char>(number >> 8 * i));
}

int sampleAt(int x, int y, int channel)
{
    return 10 * x + 7 * y + 30 * channel;
}

// An SGI file without compression, of planes whose bottom row comes first.
Array<std::byte> sgiFile(int channels, int bytes)
{
    std::string file;
    put(file, 474, 2);
    put(file, 0, 1);
    put(file, static_cast<std::uint32_t>(bytes), 1);
    put(file, 3, 2); // dimensions
    for (const int size : {WIDTH, HEIGHT, channels})
        put(file, static_cast<std::uint32_t>(size), 2);
    put(file, 0, 4);
    put(file, bytes == 1 ? 0xff : 0xffff, 4);
    file.resize(512);
    for (int channel = 0; channel < channels; ++channel) {
        for (int y = HEIGHT - 1; y >= 0; --y) {
            for (int x = 0; x < WIDTH; ++x)
                put(file, static_cast<std::uint32_t>(sampleAt(x, y, channel) * (bytes == 1 ? 1 : 257)),
                    bytes);
        }
    }
    const auto* const begin = reinterpret_cast<const std::byte*>(file.data());
    return {begin, begin + file.size()};
}

struct OtherFormatsReaderTest : testing::Test
{
    OtherFormatsReader reader;

    void SetUp() override
    {
        if (!reader.knows(sgiFile(1, 1)))
            GTEST_SKIP() << "the viewer was built without OpenImageIO";
    }

    void expectRead(int channels, int bytes, PixelFormat format) const
    {
        const Array<std::byte> file = sgiFile(channels, bytes);
        const auto read = Viewer::readerFor(file).read(file, 0, {});
        ASSERT_TRUE(read.hasValue()) << read.error().toUtf8();
        ASSERT_EQ(read->image.descriptor(), (ImageDescriptor{WIDTH, HEIGHT, format, 1.0f}));
        for (int y = 0; y < HEIGHT; ++y) {
            for (int x = 0; x < WIDTH; ++x) {
                const Rgb pixel = read->image.getRgba(x, HEIGHT - 1 - y);
                const auto expected = [&](int channel) {
                    return static_cast<float>(sampleAt(x, y, channel)) / 255.0f;
                };
                EXPECT_NEAR(pixel.r, expected(0), 1e-5f);
                EXPECT_NEAR(pixel.g, expected(channels > 2 ? 1 : 0), 1e-5f);
                EXPECT_NEAR(pixel.b, expected(channels > 2 ? 2 : 0), 1e-5f);
                EXPECT_NEAR(pixel.a, channels == 4 ? expected(3) : 1.0f, 1e-5f);
            }
        }
    }
};

} // namespace

TEST_F(OtherFormatsReaderTest, channelsOfAllNumbers_areRead)
{
    expectRead(1, 1, PixelFormat::UINT8_GREY);
    expectRead(2, 1, PixelFormat::UINT8_GREY);
    expectRead(3, 1, PixelFormat::UINT8_RGB);
    expectRead(4, 1, PixelFormat::UINT8_RGBA);
    expectRead(1, 2, PixelFormat::UINT16_GREY);
    expectRead(3, 2, PixelFormat::UINT16_RGB);
    expectRead(4, 2, PixelFormat::UINT16_RGBA);
}

TEST_F(OtherFormatsReaderTest, furtherChannels_areTold)
{
    const auto read = reader.read(sgiFile(2, 1), 0, {});
    ASSERT_TRUE(read.hasValue());
    EXPECT_EQ(read->omissions, (Array<String>{L"It has one more channel, which is not shown."}));
}

TEST_F(OtherFormatsReaderTest, extensions_areOfferedIfThereIsAModule)
{
    const Array<String> all = Viewer::readableExtensions();
    for (const wchar_t* const extension : {L"sgi", L"dpx", L"jp2"})
        EXPECT_EQ(std::count(all.begin(), all.end(), String(extension)), 1) << String(extension).toUtf8();
}

TEST_F(OtherFormatsReaderTest, cutFiles_areRefused)
{
    const Array<std::byte> whole = sgiFile(3, 1);
    for (std::size_t length = 4; length < whole.size(); length += 1 + length / 10) {
        const ArrayView<const std::byte> part = ArrayView<const std::byte>(whole).first(length);
        EXPECT_FALSE(reader.read(part, 0, {}).hasValue()) << length;
    }
}

TEST_F(OtherFormatsReaderTest, mutatedFiles_areReadOrRefused)
{
    std::mt19937 random(5); // NOLINT(cert-msc51-cpp): the same files in every run
    for (int run = 0; run < 300; ++run) {
        Array<std::byte> file = sgiFile(1 + run % 4, 1 + run % 2);
        for (int i = 0; i < 3; ++i)
            file[3 + random() % (file.size() - 3)] = static_cast<std::byte>(random());
        const auto read = reader.read(file, 0, {});
        EXPECT_TRUE(read.hasValue() || !read.error().isEmpty());
    }
}

TEST_F(OtherFormatsReaderTest, progress_canStopTheReading)
{
    const auto stopped = reader.read(sgiFile(3, 1), 0, [](float) { return false; });
    ASSERT_FALSE(stopped.hasValue());
    EXPECT_EQ(stopped.error(), L"it was not read to the end");
}

TEST(OtherFormatsReaderKnowledgeTest, filesOfOtherReaders_areNotItsOwn)
{
    for (const char* const beginning : {"\x89PNG\r\n", "II*", "P6 ", "BM", "GIF89a", ""}) {
        const std::string file(beginning);
        EXPECT_FALSE(
            OtherFormatsReader().mayKnow({reinterpret_cast<const std::byte*>(file.data()), file.size()}));
    }
}
