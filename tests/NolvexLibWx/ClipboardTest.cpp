// SPDX-License-Identifier: MIT
#include "NolvexLibWx/Clipboard.h"

#include "NolvexLibWx/DeviceIndependentBitmap.h"
#include "support/ClipboardCopying.h"
#include "support/ClipboardReading.h"
#include "support/Events.h"
#include "support/NoApplication.h"
#include "support/Screen.h"

#include <wx/clipbrd.h>
#include <wx/frame.h>
#include <wx/stopwatch.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>

using namespace Nolvex;
using testing::ElementsAre;
using Tests::clipboardBitmap;
using Tests::clipboardPictures;
using Tests::clipboardText;
using Wx::setClipboardData;

namespace {

constexpr Wx::SetClipboardData AVOID_GRAYSCALE = Wx::SetClipboardData::AVOID_GRAYSCALE;
// The longest wait, in milliseconds, for a program that answers no request. GTK gives a clipboard manager ten
// seconds.
constexpr long LONGEST_WAIT = 15000;

constexpr Rgb GREY{0.5f, 0.5f, 0.5f, 1.0f};

// Returns an image whose pixels all differ.
BitmapImpl<Rgb> pattern(int width, int height)
{
    BitmapImpl<Rgb> image(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            image.at(x, y) = {static_cast<float>(x) / static_cast<float>(width),
                              static_cast<float>(y) / static_cast<float>(height),
                              static_cast<float>((x * 7 + y * 3) % 256) / 255.0f, 1.0f};
    }
    return image;
}

// Returns the header and the rows as another program gets them.
Array<std::uint8_t> expectedBytes(const BitmapImpl<Rgb>& image)
{
    const DeviceIndependentBitmap bitmap(image);
    return {bitmap.bytes().begin(), bitmap.bytes().end()};
}

Array<int> copiedPixelBytes(const BitmapImpl<Rgb>& image, Flags<Wx::SetClipboardData> flags)
{
    EXPECT_TRUE(setClipboardData(image, flags));
    const Array<std::uint8_t> bytes = clipboardBitmap();
    if (bytes.size() < DeviceIndependentBitmap::HEADER_SIZE)
        return {};
    return {bytes.begin() + DeviceIndependentBitmap::HEADER_SIZE, bytes.end()};
}

// wxGTK does not free a text of this program if another program has taken the clipboard and this program
// takes the clipboard again before it has processed that event.
void clearOwnText()
{
    ASSERT_TRUE(wxTheClipboard->Open());
    wxTheClipboard->Clear();
    wxTheClipboard->Close();
}

} // namespace

TEST(ClipboardTest, text_isReadByOthers)
{
    EXPECT_TRUE(setClipboardData(String(L"Gr\u00fc\u00dfe,\t\u4f60\u597d \u2013 100 %")));
    EXPECT_EQ(clipboardText(), String(L"Gr\u00fc\u00dfe,\t\u4f60\u597d \u2013 100 %"));
}

TEST(ClipboardTest, text_replacesTheTextBefore)
{
    EXPECT_TRUE(setClipboardData(String(L"first")));
    EXPECT_TRUE(setClipboardData(String(L"second")));
    EXPECT_EQ(clipboardText(), String(L"second"));
}

TEST(ClipboardTest, longText_arrivesWhole)
{
    std::wstring text;
    for (int i = 0; i < 100000; ++i)
        text += std::to_wstring(i) + L' ';
    EXPECT_TRUE(setClipboardData(String(text)));
    EXPECT_EQ(clipboardText(), String(text));
}

TEST(ClipboardTest, text_leavesTheToolkitsClipboardClosed)
{
    EXPECT_TRUE(setClipboardData(String(L"text")));
    EXPECT_FALSE(wxTheClipboard->IsOpened());
}

TEST(ClipboardTest, text_whileTheHostHasTheClipboardOpen_isRefused)
{
    EXPECT_TRUE(setClipboardData(String(L"before")));
    ASSERT_TRUE(wxTheClipboard->Open());
    EXPECT_FALSE(setClipboardData(String(L"text")));
    EXPECT_TRUE(wxTheClipboard->IsOpened()) << "still the host's";
    wxTheClipboard->Close();
    EXPECT_EQ(clipboardText(), String(L"before"));
}

TEST(ClipboardTest, text_withoutAnApplication_isRefused)
{
    const Tests::NoApplication none;
    EXPECT_FALSE(setClipboardData(String(L"text")));
}

TEST(ClipboardTest, picture_withoutAnApplication_isRefused)
{
    EXPECT_TRUE(setClipboardData(pattern(3, 3), {}));
    {
        const Tests::NoApplication none;
        EXPECT_FALSE(setClipboardData(pattern(2, 2), {}));
    }
    EXPECT_EQ(clipboardBitmap(), expectedBytes(pattern(3, 3)));
}

TEST(ClipboardTest, text_isThereWhenItsProgramHasEnded)
{
    EXPECT_TRUE(Tests::afterCopyingProgramEnded(Tests::COPY_TEXT,
                                                [] { EXPECT_EQ(clipboardText(), Tests::textToLeave()); }));
}

TEST(ClipboardTest, picture_isThereWhenItsProgramHasEnded_inEveryForm)
{
    EXPECT_TRUE(Tests::afterCopyingProgramEnded(Tests::COPY_PICTURE, [] {
        EXPECT_EQ(clipboardBitmap(), expectedBytes(Tests::pictureToLeave()));
        for (const auto& [form, picture] : clipboardPictures()) {
            ASSERT_TRUE(picture.IsOk()) << form;
            EXPECT_EQ(Tests::pixelAt(picture, 3, 64), (RgbBytes{255, 0, 204})) << form;
        }
    }));
}

TEST(ClipboardTest, text_afterAnOwnerThatNeverAnswers_isThere)
{
    clearOwnText();
    const String text(L"copied anyway");
    const wxStopWatch watch;
    EXPECT_TRUE(Tests::whileClipboardOwnerIsSilent([&] { return setClipboardData(text); }));
    EXPECT_LT(watch.Time(), LONGEST_WAIT);
    EXPECT_EQ(clipboardText(), text);
}

TEST(ClipboardTest, picture_afterAnOwnerThatNeverAnswers_isThere)
{
    clearOwnText();
    const BitmapImpl<Rgb> image = pattern(7, 5);
    const wxStopWatch watch;
    EXPECT_TRUE(Tests::whileClipboardOwnerIsSilent([&] { return setClipboardData(image, {}); }));
    EXPECT_LT(watch.Time(), LONGEST_WAIT);
    EXPECT_EQ(clipboardBitmap(), expectedBytes(image));
}

TEST(ClipboardTest, text_whileAnotherHasTheClipboard_saysWhetherItIsThere)
{
    // On X11 wxWidgets can always take the clipboard. On Windows it has to wait until the other program
    // closes the clipboard.
    clearOwnText();
    const String text(L"copied meanwhile");
    const bool copied = Tests::whileClipboardIsTaken([&] { return setClipboardData(text); });
    EXPECT_EQ(copied, clipboardText() == text);
}

TEST(ClipboardTest, picture_isThereByteForByte)
{
    for (const auto& [width, height] : {std::pair{1, 1}, {3, 2}, {2, 3}, {64, 48}}) {
        const BitmapImpl<Rgb> image = pattern(width, height);
        EXPECT_TRUE(setClipboardData(image, {}));
        EXPECT_EQ(clipboardBitmap(), expectedBytes(image)) << width << " x " << height;
    }
}

TEST(ClipboardTest, largePicture_arrivesWhole)
{
    const BitmapImpl<Rgb> image = pattern(1500, 1000);
    EXPECT_TRUE(setClipboardData(image, {}));
    EXPECT_EQ(clipboardBitmap(), expectedBytes(image));
}

TEST(ClipboardTest, picture_showsItsFirstRowAtTheBottom_inEveryForm)
{
    const BitmapImpl<Rgb> image = pattern(31, 17);
    EXPECT_TRUE(setClipboardData(image, {}));
    const DeviceIndependentBitmap expected(image);
    const auto pictures = clipboardPictures();
    EXPECT_FALSE(pictures.empty());
    for (const auto& [form, picture] : pictures) {
        ASSERT_TRUE(picture.IsOk()) << form;
        ASSERT_EQ(picture.GetSize(), wxSize(31, 17)) << form;
        for (int y = 0; y < 17; ++y) {
            const std::uint8_t* bgr = expected.row(16 - y);
            for (int x = 0; x < 31; ++x, bgr += 3) {
                ASSERT_EQ(Tests::pixelAt(picture, x, y), (RgbBytes{bgr[2], bgr[1], bgr[0]}))
                    << form << " at " << x << ", " << y;
            }
        }
    }
}

TEST(ClipboardTest, greyPicture_isDisguisedOnlyWhenAskedTo)
{
    const BitmapImpl<Rgb> grey(1, 1, GREY);
    EXPECT_THAT(copiedPixelBytes(grey, {}), ElementsAre(128, 128, 128, 0));
    EXPECT_THAT(copiedPixelBytes(grey, AVOID_GRAYSCALE), ElementsAre(127, 128, 128, 0));
    EXPECT_THAT(copiedPixelBytes(BitmapImpl<Rgb>(1, 1), AVOID_GRAYSCALE), ElementsAre(1, 0, 0, 0));
}

TEST(ClipboardTest, otherFlags_changeNothing)
{
    const BitmapImpl<Rgb> grey(1, 1, GREY);
    EXPECT_THAT(copiedPixelBytes(grey, Flags<Wx::SetClipboardData>::fromBits(1)),
                ElementsAre(128, 128, 128, 0));
    EXPECT_THAT(copiedPixelBytes(grey, Flags<Wx::SetClipboardData>::fromBits(3)),
                ElementsAre(127, 128, 128, 0));
    EXPECT_EQ(static_cast<int>(AVOID_GRAYSCALE), 2);
}

TEST(ClipboardTest, greyPicture_isDisguisedInEveryForm)
{
    EXPECT_TRUE(setClipboardData(BitmapImpl<Rgb>(2, 2, GREY), AVOID_GRAYSCALE));
    for (const auto& [form, picture] : clipboardPictures()) {
        ASSERT_TRUE(picture.IsOk()) << form;
        EXPECT_EQ(Tests::pixelAt(picture, 0, 1), (RgbBytes{128, 128, 127})) << form;
        EXPECT_EQ(Tests::pixelAt(picture, 0, 0), (RgbBytes{128, 128, 128})) << form;
    }
}

TEST(ClipboardTest, colouredPicture_isNeverDisguised)
{
    BitmapImpl<Rgb> image(2, 1, GREY);
    image.at(1, 0) = {1.0f, 0.0f, 0.0f, 1.0f};
    EXPECT_THAT(copiedPixelBytes(image, AVOID_GRAYSCALE), ElementsAre(128, 128, 128, 0, 0, 255, 0, 0));
}

TEST(ClipboardTest, emptyPictures_areRefusedAndLeaveTheClipboardAlone)
{
    EXPECT_TRUE(setClipboardData(String(L"still here")));
    EXPECT_FALSE(setClipboardData(BitmapImpl<Rgb>(), {}));
    EXPECT_FALSE(setClipboardData(BitmapImpl<Rgb>(0, 5), AVOID_GRAYSCALE));
    EXPECT_FALSE(setClipboardData(BitmapImpl<Rgb>(5, -1), {}));
    EXPECT_EQ(clipboardText(), String(L"still here"));
}

TEST(ClipboardTest, picture_replacesTextAndTextReplacesIt)
{
    const BitmapImpl<Rgb> image = pattern(4, 4);
    EXPECT_TRUE(setClipboardData(String(L"text"))) << "the toolkit's clipboard";
    EXPECT_TRUE(setClipboardData(image, {}));
    EXPECT_EQ(clipboardText(), Optional<String>());
    EXPECT_EQ(clipboardBitmap(), expectedBytes(image));
    EXPECT_TRUE(setClipboardData(String(L"text")));
    EXPECT_TRUE(clipboardBitmap().empty());
    EXPECT_EQ(clipboardText(), String(L"text"));
}

TEST(ClipboardTest, picture_canBeReadAgainAndAgain)
{
    const BitmapImpl<Rgb> image = pattern(8, 8);
    EXPECT_TRUE(setClipboardData(image, {}));
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(clipboardBitmap(), expectedBytes(image));
}

TEST(ClipboardTest, picture_withATopWindow_isCopiedInItsName)
{
    auto* frame = new wxFrame(nullptr, wxID_ANY, "top");
    frame->Show();
    Tests::pumpEvents();
    EXPECT_TRUE(setClipboardData(pattern(5, 5), {}));
    Tests::destroyNow(frame);
    EXPECT_EQ(clipboardBitmap(), expectedBytes(pattern(5, 5)));
}

TEST(ClipboardTest, picture_whileAnotherHasTheClipboard_isRefused)
{
    EXPECT_FALSE(Tests::whileClipboardIsTaken([] { return setClipboardData(pattern(2, 2), {}); }));
    EXPECT_NE(clipboardBitmap(), expectedBytes(pattern(2, 2)));
    EXPECT_TRUE(setClipboardData(pattern(3, 3), {})) << "free again";
    EXPECT_EQ(clipboardBitmap(), expectedBytes(pattern(3, 3)));
}
