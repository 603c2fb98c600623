// SPDX-License-Identifier: MIT
#include "apps/viewer/writing/PictureWriter.h"

#include "NolvexLib/ImageFormatDescriptor.h"
#include "apps/viewer/ImageFile.h"
#include "apps/viewer/writing/FileRows.h"
#include "support/FloatImage.h"
#include "support/PictureFiles.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>

using namespace Nolvex;
using Viewer::writePictureFile;

namespace {

struct PictureWriterTest : testing::Test
{
    Tests::TemporaryFolder folder;
    const Viewer::Picture source{L"picture", Tests::placesAsFloats(30, 20, 1.0f)};

    static bool goOn(float) { return true; }

    std::ptrdiff_t fileCount() const
    {
        return std::distance(std::filesystem::directory_iterator(folder.path().native()),
                             std::filesystem::directory_iterator());
    }
};

// Red is ten times x, and green ten times y.
class PlainRows : public Viewer::FileRows
{
public:
    explicit PlainRows(const wxSize& size) : m_size(size) {}

    wxSize size() const override { return m_size; }

    int channelCount() const override { return 3; }

    std::size_t channelBytes() const override { return 1; }

    void encode(std::int32_t rowFromTop, std::byte* destination) override
    {
        for (int x = 0; x < m_size.x; ++x) {
            *destination++ = static_cast<std::byte>(10 * (x % 25));
            *destination++ = static_cast<std::byte>(10 * rowFromTop);
            *destination++ = std::byte(0);
        }
    }

private:
    wxSize m_size;
};

} // namespace

TEST_F(PictureWriterTest, everyWritableFormat_canBeReadAgain)
{
    for (const ImageFormat format : Viewer::writableFormats()) {
        const Io::Path file = folder.file(getImageFormatDescriptor(format).extensions[0]);
        for (const bool alpha : {false, true}) {
            EXPECT_EQ(writePictureFile(file, source, format, {ColorFormat::UINT8_RGB, alpha}, goOn),
                      Optional<String>())
                << file.nativeStr().toUtf8();
            const Expected<Viewer::SharedPicture, String> picture = Viewer::readPictureFile(file);
            ASSERT_TRUE(picture.hasValue()) << picture.error().toUtf8();
            EXPECT_EQ((*picture)->size(), (Pixel{30, 20}));
            // Icons always say which of their pixels are transparent.
            const bool hasAlpha = format == ImageFormat::ICO || (alpha && Viewer::writesAlpha(format));
            EXPECT_EQ(Image::getPixelFormatChannelCount((*picture)->image().descriptor().format),
                      hasAlpha ? 4 : 3)
                << file.nativeStr().toUtf8();
        }
    }
    EXPECT_EQ(fileCount(), static_cast<std::ptrdiff_t>(Viewer::writableFormats().size()));
}

TEST_F(PictureWriterTest, rowsOfBytes_areWrittenInEveryFormatOfBytes)
{
    for (const ImageFormat format : Viewer::writableByteFormats()) {
        const Io::Path file = folder.file(getImageFormatDescriptor(format).extensions[0]);
        PlainRows rows({30, 20});
        EXPECT_EQ(Viewer::writeRowsFile(file, rows, format, goOn), Optional<String>());
        const Expected<Viewer::SharedPicture, String> picture = Viewer::readPictureFile(file);
        ASSERT_TRUE(picture.hasValue()) << picture.error().toUtf8();
        EXPECT_EQ((*picture)->size(), (Pixel{30, 20}));
        const bool isChanged = format == ImageFormat::JPEG || format == ImageFormat::GIF;
        const float tolerance = isChanged ? 0.05f : 1e-6f;
        const Rgb pixel = (*picture)->image().getRgba(7, 20 - 1 - 11);
        EXPECT_NEAR(pixel.r, 70.0f / 255.0f, tolerance) << file.nativeStr().toUtf8();
        EXPECT_NEAR(pixel.g, 110.0f / 255.0f, tolerance) << file.nativeStr().toUtf8();
    }
}

TEST_F(PictureWriterTest, rowsOfBytes_areRefusedByFormatsOfFloatsAndBeyondTheLargestPicture)
{
    const Io::Path file = folder.file(L"a.png", "old");
    PlainRows rows({30, 20});
    EXPECT_EQ(Viewer::writeRowsFile(file, rows, ImageFormat::EXR, goOn),
              L"The picture was not saved as \"" + file.nativeStr() +
                  L"\": the viewer cannot write this format.");
    PlainRows huge({100000, 100000});
    EXPECT_EQ(Viewer::writeRowsFile(file, huge, ImageFormat::PNG, goOn),
              L"The picture was not saved as \"" + file.nativeStr() + L"\": the picture is too large.");
    EXPECT_EQ(Tests::contentOf(file).size(), 3u);
    EXPECT_EQ(fileCount(), 1);
}

TEST_F(PictureWriterTest, formatOfAName_isThatOfItsExtension)
{
    EXPECT_EQ(Viewer::writableFormatOf(Io::Path(L"a.PNG")), ImageFormat::PNG);
    EXPECT_EQ(Viewer::writableFormatOf(Io::Path(L"a.b.jpeg")), ImageFormat::JPEG);
    for (const wchar_t* name : {L"a", L"a.", L".png", L"a.dds", L"a.txt", L""})
        EXPECT_FALSE(Viewer::writableFormatOf(Io::Path(name)).has_value()) << name;
}

TEST_F(PictureWriterTest, filters_nameEveryExtension)
{
    const Array<Io::FileFilter> filters = Viewer::filtersOf(Viewer::writableFormats());
    ASSERT_EQ(filters.size(), Viewer::writableFormats().size());
    EXPECT_EQ(filters[0], (Io::FileFilter{L"PNG", {L"*.png"}})) << "the usual format comes first";
    EXPECT_EQ(filters[3], (Io::FileFilter{L"JPEG", {L"*.jpg", L"*.jpeg", L"*.jpe"}}));
}

TEST_F(PictureWriterTest, formatThatCannotBeWritten_isRefusedAndTheOldFileStays)
{
    const Io::Path file = folder.file(L"a.dds", "old");
    EXPECT_EQ(writePictureFile(file, source, ImageFormat::DDS, {}, goOn),
              L"The picture was not saved as \"" + file.nativeStr() +
                  L"\": the viewer cannot write this format.");
    EXPECT_EQ(Tests::contentOf(file).size(), 3u);
    EXPECT_EQ(fileCount(), 1);
}

TEST_F(PictureWriterTest, folderThatIsNotThere_isAnErrorThatNamesTheFile)
{
    const Io::Path file = folder.path() / L"missing" / L"a.png";
    const Optional<String> failure = writePictureFile(file, source, ImageFormat::PNG, {}, goOn);
    ASSERT_TRUE(failure.has_value());
    EXPECT_NE(failure->wstr().find(file.nativeStr().wstr()), std::wstring::npos);
}

TEST_F(PictureWriterTest, stoppedByTheProgress_leavesTheOldFile)
{
    for (const wchar_t* name : {L"a.png", L"a.tiff", L"a.exr", L"a.bmp"}) {
        const Io::Path file = folder.file(name, "old");
        EXPECT_EQ(
            writePictureFile(file, source, *Viewer::writableFormatOf(file), {}, [](float) { return false; }),
            String());
        EXPECT_EQ(Tests::contentOf(file).size(), 3u) << name;
    }
    EXPECT_EQ(fileCount(), 4);
}

TEST_F(PictureWriterTest, progress_endsAtOne)
{
    float last = -1.0f;
    const Viewer::Progress remember = [&](float share) {
        EXPECT_GE(share, last);
        last = share;
        return true;
    };
    for (const ImageFormat format : Viewer::writableFormats()) {
        last = -1.0f;
        EXPECT_EQ(writePictureFile(folder.file(L"picture"), source, format, {}, remember),
                  Optional<String>());
        EXPECT_EQ(last, 1.0f);
    }
}
