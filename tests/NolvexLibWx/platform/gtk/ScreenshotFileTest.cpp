// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/gtk/ScreenshotFile.h"

#include "PngFiles.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <filesystem>

using namespace Nolvex;
using namespace std::chrono_literals;
using Platform::DesktopAnswer;
using Platform::takeScreenshotFile;
using std::chrono::system_clock;
using Tests::encodePng;
using Tests::uriOf;
using Wx::ScreenCaptureFailure;

namespace {

struct ScreenshotFileTest : testing::Test
{
    Tests::TemporaryFolder folder;

    static void expectFailure(const std::string& uri,
                              ScreenCaptureFailure failure = ScreenCaptureFailure::FAILED)
    {
        const DesktopAnswer answer = takeScreenshotFile(uri, system_clock::now());
        ASSERT_FALSE(answer) << uri;
        EXPECT_EQ(answer.error(), failure) << uri;
    }

    static bool exists(const Io::Path& file) { return std::filesystem::exists(file.native()); }
};

} // namespace

TEST_F(ScreenshotFileTest, picture_isReadPixelByPixel)
{
    const Io::Path file = folder.file(L"a picture.png", encodePng(200, 3));
    const DesktopAnswer answer = takeScreenshotFile(uriOf(file), system_clock::now());
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->size, (Pixel{200, 3}));
    ASSERT_EQ(answer->bgrx.size(), 200u * 3 * 4);
    for (std::size_t y = 0; y < 3; ++y) {
        for (std::size_t x = 0; x < 200; ++x) {
            const std::uint8_t* const pixel = answer->bgrx.data() + (y * 200 + x) * 4;
            ASSERT_EQ((Array<int>{pixel[0], pixel[1], pixel[2]}),
                      (Array<int>{9, static_cast<int>(y), static_cast<int>(x)}));
        }
    }
}

TEST_F(ScreenshotFileTest, pictureMadeForTheQuestion_isRemoved)
{
    const Io::Path file = folder.file(L"a.png", encodePng(2, 2));
    EXPECT_TRUE(takeScreenshotFile(uriOf(file), system_clock::now()));
    EXPECT_FALSE(exists(file));
}

TEST_F(ScreenshotFileTest, olderPicture_isReadAndStays)
{
    const Io::Path file = folder.file(L"a.png", encodePng(2, 2));
    EXPECT_TRUE(takeScreenshotFile(uriOf(file), system_clock::now() + 10s));
    EXPECT_TRUE(exists(file));
}

TEST_F(ScreenshotFileTest, pictureThatCannotBeRemoved_isRead)
{
    const Io::Path file = folder.file(L"a.png", encodePng(2, 2));
    const Io::Path target = folder.file(L"target");
    std::filesystem::create_directory(target.native());
    std::filesystem::rename(file.native(), target.native() / "a.png");
    chmod(target.native().c_str(), S_IRUSR | S_IXUSR);
    EXPECT_TRUE(takeScreenshotFile(uriOf(target) + "/a.png", system_clock::now()));
    chmod(target.native().c_str(), S_IRWXU);
}

TEST_F(ScreenshotFileTest, addressesThatNameNoFileHere_fail)
{
    const Io::Path file = folder.file(L"a.png", encodePng(2, 2));
    for (const std::string& uri :
         {std::string(), std::string("a.png"), file.native().string(),
          std::string("https://example.org/a.png"), "file://elsewhere.example.org" + file.native().string(),
          std::string("file:///tmp/%00"), std::string("file:///%zz"), uriOf(folder.file(L"missing.png"))})
        expectFailure(uri);
    EXPECT_TRUE(exists(file));
}

TEST_F(ScreenshotFileTest, thisComputerByItsName_isHere)
{
    const Io::Path file = folder.file(L"a.png", encodePng(2, 2));
    EXPECT_TRUE(takeScreenshotFile("file://localhost" + file.native().string(), system_clock::now()));
}

TEST_F(ScreenshotFileTest, whatIsNoRegularFile_failsAtOnceAndStays)
{
    const Io::Path pipe = folder.file(L"pipe");
    ASSERT_EQ(mkfifo(pipe.native().c_str(), S_IRUSR | S_IWUSR), 0);
    expectFailure(uriOf(pipe));
    EXPECT_TRUE(exists(pipe));
    const Io::Path link = folder.file(L"link");
    const Io::Path file = folder.file(L"a.png", encodePng(2, 2));
    std::filesystem::create_symlink(file.native(), link.native());
    expectFailure(uriOf(link));
    EXPECT_TRUE(exists(file));
    expectFailure(uriOf(folder.path()));
    expectFailure("file:///dev/zero");
}

TEST_F(ScreenshotFileTest, filesThatAreNoWholePicture_failAndStay)
{
    const std::string whole = encodePng(60, 60);
    for (const std::string& content :
         {std::string(), std::string("no picture"), whole.substr(0, 20), whole.substr(0, whole.size() / 2),
          whole.substr(0, whole.size() - 20), Tests::encodePngThatClaims(8, 9)}) {
        const Io::Path file = folder.file(L"a.png", content);
        expectFailure(uriOf(file));
        EXPECT_TRUE(exists(file)) << content.size();
    }
}

TEST_F(ScreenshotFileTest, tooManyPixels_areTooLarge)
{
    for (const auto& [width, height] : {std::pair{16'385u, 8'192u}, std::pair{1'000'000u, 1'000'000u}}) {
        const Io::Path file = folder.file(L"a.png", Tests::encodePngThatClaims(width, height));
        expectFailure(uriOf(file), ScreenCaptureFailure::TOO_LARGE);
    }
}

TEST_F(ScreenshotFileTest, tooManyBytes_areNotRead)
{
    const Io::Path file = folder.file(L"a.png", encodePng(2, 2));
    std::filesystem::resize_file(file.native(), (std::uintmax_t(1) << 30) + 1);
    expectFailure(uriOf(file), ScreenCaptureFailure::TOO_LARGE);
}

TEST_F(ScreenshotFileTest, fileThatEndsBeforeItsSize_fails)
{
    // The kernel gives its settings the size of a page.
    const std::string setting = "/sys/kernel/mm/transparent_hugepage/enabled";
    if (!std::filesystem::exists(setting))
        GTEST_SKIP() << "This kernel has no such setting.";
    expectFailure("file://" + setting);
}
