// SPDX-License-Identifier: MIT
#include "apps/viewer/FileContent.h"

#include "NolvexLib/Exception.h"
#include "apps/viewer/ImageFile.h"
#include "apps/viewer/platform/AvailableMemory.h"
#include "apps/viewer/reading/BlankImage.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <limits>
#include <string>
#include <vector>

using namespace Nolvex;
using Viewer::readFileContent;

namespace {

constexpr std::size_t MEGABYTE = std::size_t(1) << 20;

struct FileContentTest : testing::Test
{
    Tests::TemporaryFolder folder;

    // A file whose end has no bytes on the disk.
    Io::Path sparseFile(const std::string& beginning, std::uint64_t size) const
    {
        Io::Path path = folder.file(L"sparse.bin", beginning);
        std::filesystem::resize_file(path.native(), size);
        return path;
    }
};

std::string bytesOf(std::size_t size)
{
    std::string bytes(size, '\0');
    for (std::size_t i = 0; i < size; ++i)
        bytes[i] = static_cast<char>(i * 7 + i / 1000);
    return bytes;
}

} // namespace

TEST_F(FileContentTest, bytes_areThoseOfTheFile)
{
    for (const std::size_t size : {std::size_t(0), std::size_t(1), 4 * MEGABYTE, 9 * MEGABYTE + 3}) {
        const std::string bytes = bytesOf(size);
        const auto content = readFileContent(folder.file(L"picture", bytes), {});
        ASSERT_TRUE(content.hasValue());
        const std::string read(reinterpret_cast<const char*>(content->data()), content->size());
        EXPECT_TRUE(read == bytes) << size;
    }
}

TEST_F(FileContentTest, progress_growsAndCanStopTheReading)
{
    const Io::Path file = folder.file(L"picture", bytesOf(20 * MEGABYTE));
    std::vector<float> shares;
    EXPECT_TRUE(readFileContent(file, [&shares](float share) {
                    shares.push_back(share);
                    return true;
                }).hasValue());
    ASSERT_GE(shares.size(), 4u);
    for (std::size_t i = 1; i < shares.size(); ++i)
        EXPECT_GT(shares[i], shares[i - 1]);
    EXPECT_LT(shares.back(), 1.0f);
    int calls = 0;
    const auto stopped = readFileContent(file, [&calls](float share) {
        ++calls;
        return share < 0.3f;
    });
    ASSERT_FALSE(stopped.hasValue());
    EXPECT_EQ(stopped.error(), L"it was not read to the end");
    EXPECT_LT(calls, static_cast<int>(shares.size()));
}

TEST_F(FileContentTest, openingAPicture_canBeStoppedWhileItsBytesAreRead)
{
    const Io::Path file = folder.file(L"picture.pfm", "Pf\n2048 4096\n-1\n" + bytesOf(32 * MEGABYTE));
    ASSERT_TRUE(Viewer::readPictureFile(file).hasValue());
    const auto stopped = Viewer::readPictureFile(file, [](float share) { return share < 0.05f; });
    ASSERT_FALSE(stopped.hasValue());
    EXPECT_NE(stopped.error().find(L"it was not read to the end"), String::NPOS);
    float last = -1.0f;
    EXPECT_TRUE(Viewer::readPictureFile(file, [&last](float share) {
                    EXPECT_GE(share, last);
                    last = share;
                    return share <= 1.0f;
                }).hasValue());
    EXPECT_GT(last, 0.9f);
}

TEST_F(FileContentTest, largeFile_isRefusedWithoutReadingIfItsDecoderCountsInInt)
{
    constexpr std::uint64_t FILE_BYTES = std::uint64_t(5) << 30; // its lower 32 bits are a small size
    const auto content = readFileContent(sparseFile("BM", FILE_BYTES), [](float) {
        ADD_FAILURE() << "the bytes are being read";
        return false;
    });
    ASSERT_FALSE(content.hasValue());
    EXPECT_EQ(content.error(), L"it is larger than 2 GiB");
}

TEST_F(FileContentTest, largeFile_isReadIfItsReaderCountsIn64Bits)
{
    constexpr std::uint64_t FILE_BYTES = std::uint64_t(5) << 30;
    if (Viewer::Platform::availableMemory() < FILE_BYTES)
        GTEST_SKIP() << "there is less memory than the file has bytes";
    using namespace std::string_literals;
    for (const std::string& beginning :
         {"\x76\x2f\x31\x01"s, "PF\n20000 20000\n-1\n"s, "8BPS\0\1"s, "II+\0"s, "RIFFxxxxWEBP"s}) {
        bool isReading = false;
        const auto content = readFileContent(sparseFile(beginning, FILE_BYTES), [&isReading](float) {
            isReading = true;
            return false;
        });
        EXPECT_TRUE(isReading) << beginning;
        EXPECT_FALSE(content.hasValue());
    }
}

TEST_F(FileContentTest, fileThatExceedsTheMemory_isRefusedWithoutReading)
{
    const std::uint64_t size = Viewer::Platform::availableMemory() + (std::uint64_t(8) << 30);
    const auto content = readFileContent(sparseFile("PF\n20000 20000\n-1\n", size), [](float) {
        ADD_FAILURE() << "the bytes are being read";
        return false;
    });
    ASSERT_FALSE(content.hasValue());
    EXPECT_EQ(content.error(), L"there is not enough memory for it");
}

TEST_F(FileContentTest, memory_isKnown)
{
    EXPECT_GT(Viewer::Platform::availableMemory(), std::uint64_t(16) << 20);
    EXPECT_LT(Viewer::Platform::availableMemory(), std::uint64_t(1) << 50);
}

TEST_F(FileContentTest, imageThatExceedsTheMemory_isRefusedBeforeItIsMade)
{
    constexpr std::uint64_t GIGABYTE = std::uint64_t(1) << 30;
    using Viewer::fitsIntoMemory;
    EXPECT_FALSE(fitsIntoMemory(30'000, 30'000, PixelFormat::FLOAT32_RGBA, 13 * GIGABYTE));
    EXPECT_TRUE(fitsIntoMemory(30'000, 30'000, PixelFormat::FLOAT32_RGBA, 14 * GIGABYTE));
    EXPECT_FALSE(fitsIntoMemory(30'000, 30'000, PixelFormat::UINT8_RGB, 2 * GIGABYTE));
    EXPECT_TRUE(fitsIntoMemory(1, 30'000, PixelFormat::FLOAT32_RGBA, GIGABYTE));
    EXPECT_FALSE(fitsIntoMemory(0x7fff'ffff, 0x7fff'ffff, PixelFormat::FLOAT32_RGBA,
                                std::numeric_limits<std::uint64_t>::max() / 2));
}

TEST_F(FileContentTest, foldersAndMissingFiles_areErrors)
{
    EXPECT_EQ(readFileContent(folder.path(), {}).error(), L"it is not a regular file");
    EXPECT_THROW(static_cast<void>(readFileContent(folder.file(L"missing"), {})), Exception);
}
