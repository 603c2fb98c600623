// SPDX-License-Identifier: MIT
#include "apps/program/ReplacementFile.h"

#include "support/PictureFiles.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <system_error>

using namespace Nolvex;
using Program::ReplacementFile;

namespace {

namespace fs = std::filesystem;

struct ReplacementFileTest : testing::Test
{
    Tests::TemporaryFolder folder;

    std::ptrdiff_t fileCount() const
    {
        return std::distance(fs::directory_iterator(folder.path().native()), fs::directory_iterator());
    }

    static std::string textOf(const Io::Path& file)
    {
        const Array<std::byte> bytes = Tests::contentOf(file);
        return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
    }
};

} // namespace

TEST_F(ReplacementFileTest, committed_takesThePlaceOfTheOldFile)
{
    const Io::Path file = folder.file(L"picture.png", "a long old text");
    ReplacementFile replacement(file);
    ASSERT_TRUE(replacement.isOpen());
    replacement.stream() << "new";
    EXPECT_EQ(textOf(file), "a long old text") << "not before it is complete";
    EXPECT_TRUE(replacement.commit());
    EXPECT_EQ(textOf(file), "new");
    EXPECT_EQ(fileCount(), 1);
}

TEST_F(ReplacementFileTest, notCommitted_leavesTheOldFileAndNothingElse)
{
    const Io::Path file = folder.file(L"picture.png", "old");
    {
        ReplacementFile replacement(file);
        replacement.stream() << "new";
    }
    EXPECT_EQ(textOf(file), "old");
    EXPECT_EQ(fileCount(), 1);
}

TEST_F(ReplacementFileTest, ofAFileThatIsNotThere_makesIt)
{
    const Io::Path file = folder.file(L"\u043a\u0430\u0440\u0442\u0438\u043d\u0430 \u56fe.png");
    ReplacementFile replacement(file);
    replacement.stream() << "new";
    EXPECT_TRUE(replacement.commit());
    EXPECT_EQ(textOf(file), "new");
}

TEST_F(ReplacementFileTest, inAFolderThatIsNotThere_cannotBeOpened)
{
    ReplacementFile replacement(folder.path() / L"missing" / L"picture.png");
    EXPECT_FALSE(replacement.isOpen());
    EXPECT_EQ(fileCount(), 0);
}

TEST_F(ReplacementFileTest, ofAFolder_cannotBeOpened)
{
    fs::create_directory(folder.file(L"folder").native());
    ReplacementFile replacement(folder.file(L"folder"));
    EXPECT_FALSE(replacement.isOpen());
    EXPECT_EQ(fileCount(), 1);
}

TEST_F(ReplacementFileTest, afterAWriteThatFailed_cannotBeCommitted)
{
    const Io::Path file = folder.file(L"picture.png", "old");
    {
        ReplacementFile replacement(file);
        replacement.stream().setstate(std::ios::badbit);
        EXPECT_FALSE(replacement.commit());
    }
    EXPECT_EQ(textOf(file), "old");
    EXPECT_EQ(fileCount(), 1);
}

TEST_F(ReplacementFileTest, ofALink_replacesWhatTheLinkPointsTo)
{
    const Io::Path file = folder.file(L"picture.png", "old");
    std::error_code failure;
    fs::create_symlink(file.native(), folder.file(L"link.png").native(), failure);
    if (failure)
        GTEST_SKIP() << "this system makes no symbolic links here: " << failure.message();
    ReplacementFile replacement(folder.file(L"link.png"));
    replacement.stream() << "new";
    EXPECT_TRUE(replacement.commit());
    EXPECT_EQ(textOf(file), "new");
    EXPECT_TRUE(fs::is_symlink(folder.file(L"link.png").native()));
}

TEST_F(ReplacementFileTest, permissionsOfTheOldFile_areKept)
{
    const Io::Path file = folder.file(L"picture.png", "old");
    fs::permissions(file.native(), fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    const fs::perms before = fs::status(file.native()).permissions();
    ReplacementFile replacement(file);
    EXPECT_TRUE(replacement.commit());
    EXPECT_EQ(fs::status(file.native()).permissions(), before);
}
