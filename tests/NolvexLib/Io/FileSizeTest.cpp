// SPDX-License-Identifier: MIT
#include "NolvexLib/Io/FileSize.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace Nolvex::Io {
namespace {

TEST(FileSizeTest, fileSize_ofFile_isItsLength)
{
    const Tests::TemporaryFolder folder;
    EXPECT_EQ(fileSize(folder.file(L"\u00e4", "abc")), 3u);
    EXPECT_EQ(fileSize(folder.file(L"empty", "")), 0u);
}

TEST(FileSizeTest, fileSize_beyond32Bits_isExact)
{
    const Tests::TemporaryFolder folder;
    const Path path = folder.file(L"large", "");
    std::filesystem::resize_file(path.native(), 5'000'000'001);
    EXPECT_EQ(fileSize(path), 5'000'000'001u);
}

TEST(FileSizeTest, fileSize_ofWhatIsNoFile_isNone)
{
    const Tests::TemporaryFolder folder;
    EXPECT_FALSE(fileSize(folder.path()));
    EXPECT_FALSE(fileSize(folder.file(L"missing")));
    EXPECT_FALSE(fileSize(folder.file(L"missing") / L"file"));
    EXPECT_FALSE(fileSize(Path()));
}

} // namespace
} // namespace Nolvex::Io
