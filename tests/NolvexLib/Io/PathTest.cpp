// SPDX-License-Identifier: MIT
#include "NolvexLib/Io/Path.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace Nolvex::Io {
namespace {

const bool IS_BACKSLASH_PREFERRED = std::filesystem::path::preferred_separator == L'\\';

TEST(PathTest, constructor_withoutText_isEmpty)
{
    EXPECT_TRUE(Path().isEmpty());
    EXPECT_TRUE(Path(L"").isEmpty());
    EXPECT_FALSE(Path(L"a").isEmpty());
}

TEST(PathTest, constructor_fromStringViewAndLiteral_isTheSamePath)
{
    EXPECT_EQ(Path(String(L"a/b")), Path(StringView(L"a/b")));
    EXPECT_EQ(Path(std::filesystem::path("a") / "b"), Path(L"a/b"));
    EXPECT_FALSE(Path(L"a/b") == Path(L"a/B"));
}

TEST(PathTest, nativeStr_ofSlashes_hasTheSystemsSeparators)
{
    const String expected = IS_BACKSLASH_PREFERRED ? L"folder\\file.txt" : L"folder/file.txt";
    EXPECT_EQ(Path(L"folder/file.txt").nativeStr(), expected);
}

TEST(PathTest, nativeStr_beyondAscii_isKept)
{
    const String name = L"\u00e4\u4e2d\U0001f600.txt";
    EXPECT_EQ(Path(name).nativeStr(), name);
}

TEST(PathTest, native_beyondAscii_isUtf8OrUtf16)
{
    EXPECT_TRUE(Path(L"\u00e4\u4e2d\U0001f600").native().u8string() == u8"\u00e4\u4e2d\U0001f600");
}

TEST(PathTest, nativeStr_ofBrokenUtf8_hasReplacementCharactersAndNativeKeepsTheBytes)
{
    if constexpr (std::is_same_v<std::filesystem::path::value_type, char>) {
        const std::filesystem::path native(std::string("a\xFF"
                                                       "b.\xC3"));
        const Path path = native;
        EXPECT_EQ(path.nativeStr(), L"a\uFFFD"
                                    L"b.\uFFFD");
        EXPECT_EQ(path.fileName(), path.nativeStr());
        EXPECT_EQ(path.extension(), L"\uFFFD");
        EXPECT_EQ(path.native().native(), native.native());
    } else {
        GTEST_SKIP() << "names are not bytes here";
    }
}

TEST(PathTest, parentDirectory_ofFileInFolder_isTheFolder)
{
    EXPECT_EQ(Path(L"/a/b/c.png").parentDirectory(), Path(L"/a/b"));
}

TEST(PathTest, parentDirectory_ofLoneName_isEmpty)
{
    EXPECT_TRUE(Path(L"c.png").parentDirectory().isEmpty());
}

TEST(PathTest, parentDirectory_ofRoot_isTheRoot)
{
    EXPECT_EQ(Path(L"/").parentDirectory(), Path(L"/"));
}

TEST(PathTest, parentDirectory_afterTrailingSeparator_isTheFolderItself)
{
    EXPECT_EQ(Path(L"/a/b/").parentDirectory(), Path(L"/a/b"));
}

TEST(PathTest, fileName_isTheLastElement)
{
    EXPECT_EQ(Path(L"/a/b/c.png").fileName(), L"c.png");
    EXPECT_EQ(Path(L"c.png").fileName(), L"c.png");
    EXPECT_EQ(Path(L"/a/b/").fileName(), L"");
}

TEST(PathTest, fileName_withoutExtension_losesOnlyTheLastOne)
{
    EXPECT_EQ(Path(L"/a.b/c.png").fileName(FileNameFlag::WITHOUT_EXTENSION), L"c");
    EXPECT_EQ(Path(L"c.tar.gz").fileName(FileNameFlag::WITHOUT_EXTENSION), L"c.tar");
    EXPECT_EQ(Path(L"/a.b/c").fileName(FileNameFlag::WITHOUT_EXTENSION), L"c");
    EXPECT_EQ(Path(L".profile").fileName(FileNameFlag::WITHOUT_EXTENSION), L".profile");
}

TEST(PathTest, extension_isAsItStandsWithoutDot)
{
    EXPECT_EQ(Path(L"a/c.Png").extension(), L"Png");
    EXPECT_EQ(Path(L"c.tar.gz").extension(), L"gz");
}

TEST(PathTest, extension_whereThereIsNone_isEmpty)
{
    EXPECT_EQ(Path(L"a.b/c").extension(), L"");
    EXPECT_EQ(Path(L".profile").extension(), L"");
    EXPECT_EQ(Path(L"c.").extension(), L"");
    EXPECT_EQ(Path().extension(), L"");
}

TEST(PathTest, slash_joinsFolderAndName)
{
    EXPECT_EQ(Path(L"a") / Path(L"b"), Path(L"a/b"));
    EXPECT_EQ(Path(L"a") / L"b", Path(L"a/b"));
    EXPECT_EQ(Path(L"a/") / String(L"b"), Path(L"a/b"));
    EXPECT_EQ(Path() / L"b", Path(L"b"));
}

TEST(PathTest, slash_withAbsoluteName_isTheName)
{
    EXPECT_EQ(Path(L"a") / L"/b", Path(L"/b"));
}

TEST(PathTest, native_ofNameBeyondAscii_namesTheFileOnDisk)
{
    const Tests::TemporaryFolder folder;
    const Path path = folder.file(L"\u00e4\u4e2d\u0416.txt", "content");
    int found = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path().native())) {
        EXPECT_EQ(Path(entry.path()).fileName(), L"\u00e4\u4e2d\u0416.txt");
        ++found;
    }
    EXPECT_EQ(found, 1);
}

} // namespace
} // namespace Nolvex::Io
