// SPDX-License-Identifier: MIT
#include "apps/viewer/ImageFile.h"

#include "NolvexLib/Exception.h"
#include "NolvexLib/Io/FileOutputStream.h"
#include "support/PictureFiles.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>

using namespace Nolvex;
using Tests::contentOf;
using Tests::pictureFile;

namespace {

constexpr int WIDTH = 16;
constexpr int HEIGHT = 10;

int distance(float channel, int expected)
{
    return std::abs(static_cast<int>(std::lround(channel * 255.0f)) - expected);
}

// Returns the largest difference from the pattern of the test pictures, in bytes.
int distanceFromPattern(const Image& image)
{
    int largest = 0;
    const int bottom = image.descriptor().height - 1;
    for (int y = 0; y < HEIGHT; ++y) {
        for (int x = 0; x < WIDTH; ++x) {
            const Rgb colour = image.getRgba(x, bottom - y);
            largest = std::max({largest, distance(colour.r, 16 * x), distance(colour.g, 25 * y % 256),
                                distance(colour.b, 3 * x * y % 256)});
        }
    }
    return largest;
}

bool isSame(const Image& one, const Image& other)
{
    if (one.descriptor() != other.descriptor())
        return false;
    for (std::int32_t y = 0; y < one.descriptor().height; ++y) {
        if (!std::ranges::equal(one.row(y), other.row(y)))
            return false;
    }
    return true;
}

// Returns the image of a picture that must be readable.
Expected<Image, String> imageOf(const Io::Path& path)
{
    const Expected<Viewer::SharedPicture, String> picture = Viewer::readPictureFile(path);
    return picture ? Expected<Image, String>((*picture)->image()) : Unexpected{picture.error()};
}

// A file in the folder for temporary files, with a name beyond ASCII. The destructor removes the file.
struct TemporaryFile
{
    Io::Path path =
        Io::Path(std::filesystem::temp_directory_path()) / Io::Path(L"nolvex-\u00FC\u4E2D-test.bin");

    explicit TemporaryFile(ArrayView<const std::byte> content)
    {
        Io::FileOutputStream stream(path, Io::Open::TRUNCATE);
        stream.write(content.data(), static_cast<std::int64_t>(content.size()));
        stream.close();
    }

    ~TemporaryFile()
    {
        std::error_code ignored;
        std::filesystem::remove(path.native(), ignored);
    }
};

} // namespace

TEST(ViewerImageFileTest, losslessPictures_areReadToTheByte)
{
    for (const char* name :
         {"pattern.png", "pattern.bmp", "pattern.gif", "pattern.tiff", "pattern.tga", "pattern.ico"}) {
        const auto image = imageOf(pictureFile(name));
        ASSERT_TRUE(image.hasValue()) << name << ": " << image.error().toUtf8();
        EXPECT_EQ(image->descriptor().width, WIDTH) << name;
        EXPECT_EQ(image->descriptor().gamma, 1.0f) << name;
        EXPECT_EQ(distanceFromPattern(*image), 0) << name;
    }
}

TEST(ViewerImageFileTest, jpeg_isReadWithinItsLosses)
{
    const auto image = imageOf(pictureFile("pattern.jpg"));
    ASSERT_TRUE(image.hasValue());
    EXPECT_LE(distanceFromPattern(*image), 24);
}

TEST(ViewerImageFileTest, alpha_isRead)
{
    for (const char* name : {"pattern-alpha.png", "pattern.ico"}) {
        const auto image = imageOf(pictureFile(name));
        ASSERT_TRUE(image.hasValue());
        ASSERT_EQ(image->descriptor().format, PixelFormat::UINT8_RGBA) << name;
        for (int x = 0; x < WIDTH; ++x)
            EXPECT_EQ(distance(image->getRgba(x, 0).a, 255 - 16 * x), 0) << name << ' ' << x;
    }
}

TEST(ViewerImageFileTest, floatPicture_keepsWhatIsAboveOne)
{
    const auto image = imageOf(pictureFile("pattern.pfm"));
    ASSERT_TRUE(image.hasValue());
    EXPECT_EQ(image->descriptor().gamma, 2.2f);
    EXPECT_EQ(image->getRgba(15, HEIGHT - 1).r, 15.0f / 4.0f);
    EXPECT_TRUE(std::isnan(image->getRgba(3, HEIGHT - 1 - 2).r));
    EXPECT_EQ(image->getRgba(5, HEIGHT - 1 - 4).g, INFINITY);
}

TEST(ViewerImageFileTest, badFiles_giveASentenceThatNamesThem)
{
    for (const char* name : {"truncated.png", "truncated.jpg", "truncated.pfm", "zero-size.bmp",
                             "huge-claim.bmp", "huge-claim.png", "huge-claim.pfm", "negative.pfm",
                             "noimage.txt", "empty.png", "random.jpg", "no-such-file.png", "."}) {
        const auto image = imageOf(pictureFile(name));
        ASSERT_FALSE(image.hasValue()) << name;
        const std::string message = image.error().toUtf8();
        EXPECT_NE(message.find(name), std::string::npos) << message;
        EXPECT_EQ(message.back(), '.') << message;
    }
}

TEST(ViewerImageFileTest, nameBeyondAscii_isOpenedAndNamed)
{
    const TemporaryFile good(contentOf(pictureFile("pattern.png")));
    const auto image = imageOf(good.path);
    ASSERT_TRUE(image.hasValue()) << image.error().toUtf8();
    EXPECT_EQ(distanceFromPattern(*image), 0);
}

TEST(ViewerImageFileTest, picturesCutInTheMiddle_areNotShown)
{
    for (const char* name : {"pattern.png", "pattern.bmp", "pattern.gif", "pattern.tiff", "pattern.tga",
                             "pattern.jpg", "pattern.pfm", "pattern.ico"}) {
        const Array<std::byte> whole = contentOf(pictureFile(name));
        for (const int percent : {20, 50, 60, 80, 90}) {
            const TemporaryFile cut(ArrayView<const std::byte>(whole).first(whole.size() * percent / 100));
            EXPECT_FALSE(imageOf(cut.path).hasValue()) << name << " cut to " << percent << " %";
        }
    }
}

TEST(ViewerImageFileTest, everyKindOfPicture_isShownOrRefusedWithItsReason)
{
    for (const Io::Path& path : Tests::picturesOfAllKinds()) {
        const Expected<Viewer::SharedPicture, String> picture = Viewer::readPictureFile(path);
        const bool isSupported = path.fileName() != L"palette-alpha.tiff";
        ASSERT_EQ(picture.hasValue(), isSupported) << path.nativeStr().toUtf8();
        if (isSupported)
            EXPECT_GT((*picture)->size().x, 0);
        else
            EXPECT_NE(picture.error().find(L"it has a palette and alpha"), String::NPOS);
    }
}

TEST(ViewerImageFileTest, cutFilesOfEveryKind_areRefusedOrShownWhole)
{
    for (const Io::Path& path : Tests::picturesOfAllKinds()) {
        const Array<std::byte> whole = contentOf(path);
        const Expected<Image, String> complete = imageOf(path);
        for (std::size_t tenth = 0; tenth < 10; ++tenth) {
            const TemporaryFile cut(ArrayView<const std::byte>(whole).first(whole.size() * tenth / 10));
            const Expected<Image, String> image = imageOf(cut.path);
            // The rest of the file may hold another frame, or nothing that the picture needs.
            if (image) {
                EXPECT_TRUE(complete && isSame(*image, *complete))
                    << path.nativeStr().toUtf8() << " cut to " << tenth << " tenths";
            }
        }
    }
}

TEST(ViewerImageFileTest, folder_standsForItsPicturesInTheOrderOfTheirNames)
{
    const Tests::TemporaryFolder folder;
    for (const wchar_t* name : {L"b.png", L"a.EXR", L"c \u00fc.Pfm", L"notes.txt", L"png", L".png"})
        folder.file(name, "x");
    std::filesystem::create_directory(folder.file(L"folder.png").native());
    folder.file(L"folder.png/inner.png", "x");
    const Io::Path other = folder.file(L"notes.txt");
    EXPECT_EQ(Viewer::withFoldersOpened({other, folder.path(), other}),
              (Array<Io::Path>{other, folder.file(L"a.EXR"), folder.file(L"b.png"),
                               folder.file(L"c \u00fc.Pfm"), other}))
        << "files stay as they are, and folders inside are left out";
}

TEST(ViewerImageFileTest, whatIsNoFolder_staysAsItIs)
{
    const Tests::TemporaryFolder folder;
    const Io::Path missing = folder.file(L"missing");
    EXPECT_EQ(Viewer::withFoldersOpened({missing}), Array<Io::Path>{missing});
    EXPECT_TRUE(Viewer::withFoldersOpened({folder.path()}).empty());
    EXPECT_TRUE(Viewer::withFoldersOpened({}).empty());
}
