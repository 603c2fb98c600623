// SPDX-License-Identifier: MIT
// Size, place and appearance of message dialogs.
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/Monitors.h"
#include "NolvexLibWx/NativeWindows.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "support/DefaultSkinGuard.h"
#include "support/FrameFixture.h"
#include "support/MessageDialogDriver.h"
#include "support/Screen.h"

#include <wx/arrstr.h>
#include <wx/iconbndl.h>
#include <wx/image.h>
#include <wx/sizer.h>
#include <wx/stopwatch.h>

#include <gtest/gtest.h>

#include <cstring>
#include <memory>

using namespace Nolvex;
using Wx::MessageDialog;
using Wx::MessageDialogButton;
using Wx::MessageDialogControl;
using Wx::MessageDialogIcon;
using Wx::scaleByDpi;

namespace {

using Controls = Stack<const MessageDialogControl*>;

const Controls OK_CANCEL{&MessageDialogButton::OK, &MessageDialogButton::CANCEL};
const Controls WITH_ICON{&MessageDialogButton::OK, &MessageDialogControl::FRAME_ICON};

struct MessageDialogSizeTest : Tests::FrameFixture
{
    MessageDialogSizeTest() : Tests::FrameFixture(L"owner", wxSize(500, 400)) {}

    ~MessageDialogSizeTest() override
    {
        dialog.reset();
        MessageDialog::overrideFrameIcon({});
    }

    MessageDialog& make(const String& message, MessageDialogIcon icon = MessageDialogIcon::NONE,
                        const Controls& controls = OK_CANCEL, const String& title = L"Title")
    {
        const WindowHandle owner = frame->IsShown() ? Wx::getWindowNativeHandle(frame) : WindowHandle();
        // A shown dialog would become the owner of the next.
        dialog.reset();
        dialog = std::make_unique<MessageDialog>(owner, title, message, icon, controls);
        return *dialog;
    }

    /// Returns the rectangle of a child in the dialog's client area.
    static wxRect rect(const wxWindow* child) { return child->GetRect(); }

    int lineHeight()
    {
        make(L"x");
        return text()->GetSize().y;
    }

    wxWindow* text() const { return Tests::childrenOf<Wx::StaticText>(*dialog).front(); }

    Bucket workArea() const
    {
        return Wx::getMonitorRegionByWindow(dialog.get(), Wx::MonitorRegionType::WORK_AREA);
    }

    void expectInWorkArea() const
    {
        const Bucket area = workArea();
        // A window manager moves the dialog when it has added the frame.
        EXPECT_TRUE(Tests::pumpUntil([&] { return dialog->GetScreenRect().y >= area.min.y; }));
        const Bucket place = Wx::toBucket(dialog->GetScreenRect());
        EXPECT_GE(place.min.y, area.min.y);
        EXPECT_LE(place.max.y, area.max.y);
        // At a scale of three, a line of text alone is wider than the screen of the tests.
        if (Wx::scaleByDpi(500) > area.width())
            return;
        EXPECT_GE(place.min.x, area.min.x);
        EXPECT_LE(place.max.x, area.max.x);
    }

    void expectCentredOn(const Bucket& region) const
    {
        const Bucket place = Wx::toBucket(dialog->GetScreenRect());
        EXPECT_NEAR((place.min.x + place.max.x) / 2, (region.min.x + region.max.x) / 2, 1);
        EXPECT_NEAR((place.min.y + place.max.y) / 2, (region.min.y + region.max.y) / 2, 1);
    }

    std::unique_ptr<MessageDialog> dialog;
    int border = wxSizerFlags::GetDefaultBorder();
};

RgbBytes iconColour(const MessageDialog& dialog, double x, double y)
{
    const wxImage image = Tests::iconOf(dialog)->bitmap().ConvertToImage();
    return Tests::pixelAt(image, static_cast<int>(x * image.GetWidth()),
                          static_cast<int>(y * image.GetHeight()));
}

/// About a megabyte.
String longText(const wchar_t* part, int count)
{
    std::wstring text;
    for (int i = 0; i < count; ++i)
        text += part;
    return text;
}

} // namespace

TEST_F(MessageDialogSizeTest, style_followsTheListedControls)
{
    const auto style = [this](const Controls& controls, const String& title) {
        // The other bits are wxWidgets' own.
        return make(L"Message", MessageDialogIcon::NONE, controls, title).GetWindowStyleFlag() & 0x2000'9800;
    };
    const Controls icon{&MessageDialogControl::FRAME_ICON};
    const Controls close{&MessageDialogControl::FRAME_CLOSE};
    EXPECT_EQ(style({}, L"Title"), 0x2000'8000);
    EXPECT_EQ(style(icon, L"Title"), 0x2000'8800);
    EXPECT_EQ(style(close, L"Title"), 0x2000'9000);
    EXPECT_EQ(style({&MessageDialogButton::CANCEL}, L"Title"), 0x2000'9000);
    EXPECT_EQ(style({&MessageDialogButton::OK}, {}), 0x0000'8000) << "no caption";
    EXPECT_EQ(style(icon, {}), 0x2000'8800);
    EXPECT_EQ(style(close, {}), 0x2000'9000);
}

TEST_F(MessageDialogSizeTest, listedFrameIcon_isTheSharedBitmap)
{
    EXPECT_TRUE(make(L"Message", MessageDialogIcon::NONE, WITH_ICON).GetIcons().IsEmpty() ||
                !dialog->GetIcons().GetIconByIndex(0).IsOk());
    wxImage image(16, 16);
    image.SetRGB(wxRect(0, 0, 16, 16), 10, 200, 30);
    MessageDialog::overrideFrameIcon(wxBitmap(image));
    make(L"Message", MessageDialogIcon::NONE, WITH_ICON);
    ASSERT_FALSE(dialog->GetIcons().IsEmpty());
    wxBitmap shown;
    shown.CopyFromIcon(dialog->GetIcons().GetIconByIndex(0));
    EXPECT_EQ(Tests::pixelAt(shown.ConvertToImage(), 8, 8), (RgbBytes{10, 200, 30}));
    make(L"Message", MessageDialogIcon::NONE, OK_CANCEL);
    EXPECT_TRUE(dialog->GetIcons().IsEmpty());
}

TEST_F(MessageDialogSizeTest, tabs_areFourSpacesEach)
{
    make(L"\ta\t\tb");
    EXPECT_EQ(Tests::messageOf(*dialog), "    a        b");
}

TEST_F(MessageDialogSizeTest, shortMessage_isNotWrapped)
{
    make(L"A short message");
    EXPECT_EQ(Tests::messageOf(*dialog), "A short message");
    EXPECT_EQ(text()->GetSize(), text()->GetBestSize());
}

TEST_F(MessageDialogSizeTest, longMessage_isWrappedAt450DesignUnits)
{
    make(longText(L"word ", 60));
    EXPECT_GT(Tests::messageOf(*dialog).Freq('\n'), 1);
    EXPECT_LE(text()->GetSize().x, scaleByDpi(450));
    EXPECT_GT(text()->GetSize().x, scaleByDpi(400));
    EXPECT_EQ(text()->GetMaxWidth(), scaleByDpi(450));
    EXPECT_GE(text()->GetSize().y, text()->GetBestSize().y);
}

TEST_F(MessageDialogSizeTest, wordWiderThanTheText_isBrokenAndShownWhole)
{
    const String path = L"/home/" + longText(L"folder/", 40) + L"file.png";
    make(L"The file " + path + L" is not there.");
    wxString shown = Tests::messageOf(*dialog);
    for (const wxString& line : wxSplit(shown, '\n', '\0'))
        EXPECT_LE(text()->GetTextExtent(line).x, scaleByDpi(450)) << line.utf8_string();
    EXPECT_GT(text()->GetSize().x, scaleByDpi(430));
    shown.Replace("\n", "");
    EXPECT_TRUE(shown.Contains(Wx::toWxString(path)));
    EXPECT_TRUE(shown.EndsWith("is not there."));
}

TEST_F(MessageDialogSizeTest, children_areLaidOutFromTheBorders)
{
    make(L"Message", MessageDialogIcon::INFO);
    const wxRect icon = rect(Tests::iconOf(*dialog));
    const wxRect first = rect(Tests::buttonsOf(*dialog)[0]);
    const wxRect second = rect(Tests::buttonsOf(*dialog)[1]);
    const wxSize client = dialog->GetClientSize();
    EXPECT_EQ(icon.GetSize(), scaleByDpi(wxSize(32, 32)));
    EXPECT_EQ(icon.GetPosition(), wxPoint(2 * border, 2 * border));
    EXPECT_EQ(rect(text()).x, icon.GetRight() + 1 + 2 * border);
    EXPECT_NEAR(rect(text()).y + rect(text()).height / 2, icon.y + icon.height / 2, 1);
    EXPECT_EQ(second.GetRight() + 1, client.x - border);
    EXPECT_EQ(first.GetRight() + 1, second.x) << "the buttons adjoin";
    EXPECT_EQ(first.y, icon.GetBottom() + 1 + 3 * border);
    EXPECT_EQ(first.GetBottom() + 1, client.y - border);
    EXPECT_GE(first.width, scaleByDpi(75));
    EXPECT_GE(first.height, scaleByDpi(24));
}

TEST_F(MessageDialogSizeTest, withoutIcon_theTextStartsAtTheBorder)
{
    make(L"Message");
    EXPECT_EQ(Tests::iconOf(*dialog), nullptr);
    EXPECT_EQ(rect(text()).GetPosition(), wxPoint(2 * border, 2 * border));
}

TEST_F(MessageDialogSizeTest, withoutButtons_onlyTheTextHasRoom)
{
    make(L"Message, a bit longer than the caption of the frame needs", MessageDialogIcon::NONE, {});
    EXPECT_EQ(dialog->GetClientSize(), text()->GetSize() + wxSize(4 * border, 4 * border));
}

TEST_F(MessageDialogSizeTest, overAnOwner_isCentredOnTheOwner)
{
    showFrame();
    make(L"Message");
    EXPECT_EQ(Wx::getOwnerAsNativeHandle(Wx::getWindowNativeHandle(dialog.get())),
              Wx::getWindowNativeHandle(frame));
    expectCentredOn(Wx::getScreenRegion(Wx::getWindowNativeHandle(frame)));
    dialog->Show();
    Tests::pumpEvents(200);
    expectInWorkArea();
}

TEST_F(MessageDialogSizeTest, withoutAnyOwner_isCentredOnTheMonitor)
{
    make(L"Message");
    expectCentredOn(workArea());
}

TEST_F(MessageDialogSizeTest, overAnOwnerAtTheEdge_staysOnTheMonitor)
{
    showFrame();
    for (const wxPoint& corner : {wxPoint(-450, -100), wxPoint(1250, 1000)}) {
        frame->SetPosition(corner);
        Tests::pumpEvents(200);
        make(L"Message");
        expectInWorkArea();
    }
}

TEST_F(MessageDialogSizeTest, colours_areThoseOfTheDefaultSkin)
{
    const Tests::DefaultSkinGuard guard;
    Wx::GuiSkin::DEFAULT().background = {20, 40, 60};
    Wx::GuiSkin::DEFAULT().text = {200, 190, 10};
    make(L"Message", MessageDialogIcon::ERROR);
    for (const wxWindow* window :
         {static_cast<wxWindow*>(dialog.get()), text(), static_cast<wxWindow*>(Tests::iconOf(*dialog))}) {
        EXPECT_EQ(window->GetBackgroundColour(), wxColour(20, 40, 60));
        EXPECT_EQ(window->GetForegroundColour(), wxColour(200, 190, 10));
    }
    dialog->Show();
    EXPECT_TRUE(Tests::pumpUntil([this] {
        return Tests::pixelAt(Tests::captureClientArea(dialog.get()), 2, 2) == RgbBytes{20, 40, 60};
    }));
}

TEST_F(MessageDialogSizeTest, icons_areTheirSymbols)
{
    const auto isRed = [](RgbBytes c) { return c.r > 150 && c.g < 110 && c.b < 110; };
    const auto isGreen = [](RgbBytes c) { return c.g > 120 && c.r < 110 && c.b < 120; };
    const auto isWhite = [](RgbBytes c) { return c.r > 240 && c.g > 240 && c.b > 240; };
    make(L"Message", MessageDialogIcon::ERROR);
    EXPECT_TRUE(isWhite(iconColour(*dialog, 0.5, 0.5)));
    EXPECT_TRUE(isRed(iconColour(*dialog, 0.5, 0.15)) && isRed(iconColour(*dialog, 0.2, 0.5)));
    make(L"Message", MessageDialogIcon::SUCCESS);
    EXPECT_TRUE(isWhite(iconColour(*dialog, 0.44, 0.66)));
    EXPECT_TRUE(isGreen(iconColour(*dialog, 0.5, 0.15)) && isGreen(iconColour(*dialog, 0.5, 0.88)));
}

TEST_F(MessageDialogSizeTest, iconsOfAllKinds_differAndHaveTransparentCorners)
{
    Stack<wxImage> images;
    for (int icon = 1; icon <= 5; ++icon) {
        make(L"Message", static_cast<MessageDialogIcon>(icon));
        images.push_back(Tests::iconOf(*dialog)->bitmap().ConvertToImage());
        const wxImage& image = images.back();
        ASSERT_TRUE(image.HasAlpha());
        EXPECT_EQ(image.GetAlpha(0, 0), 0);
        EXPECT_EQ(image.GetAlpha(image.GetWidth() / 2, image.GetHeight() / 2), 255);
        for (std::size_t i = 0; i + 1 < images.size(); ++i) {
            EXPECT_NE(std::memcmp(images[i].GetData(), image.GetData(),
                                  static_cast<std::size_t>(3 * image.GetWidth() * image.GetHeight())),
                      0);
        }
    }
}

TEST_F(MessageDialogSizeTest, messageOfAMegabyte_isCutToTheMonitorAtOnce)
{
    constexpr long MAX_TIME = 3000; // milliseconds; breaking all lines takes minutes
    for (const String& message : {longText(L"a few words and ", 65'536), longText(L"line\n", 200'000)}) {
        const wxStopWatch watch;
        make(message, MessageDialogIcon::ERROR);
        dialog->Show();
        Tests::pumpEvents(100);
        EXPECT_LT(watch.Time(), MAX_TIME);
        expectInWorkArea();
        EXPECT_TRUE(Tests::messageOf(*dialog).EndsWith(L"\n\u2026"));
        EXPECT_TRUE(Tests::messageOf(*dialog).StartsWith(Wx::toWxString(message.getSubstr(0, 4))));
        EXPECT_GT(text()->GetSize().y, workArea().height() / 2);
        const wxRect button = rect(Tests::buttonsOf(*dialog)[0]);
        EXPECT_LE(button.GetBottom(), dialog->GetClientSize().y - border);
        EXPECT_LE(rect(text()).GetBottom(), button.y);
    }
}

TEST_F(MessageDialogSizeTest, wordOfAMegabyte_isCutToTheMonitorAtOnce)
{
    constexpr long MAX_TIME = 3000; // milliseconds
    const wxStopWatch watch;
    make(longText(L"x", 1'048'576) + L" end", MessageDialogIcon::ERROR);
    dialog->Show();
    Tests::pumpEvents(100);
    EXPECT_LT(watch.Time(), MAX_TIME);
    expectInWorkArea();
    EXPECT_LE(text()->GetSize().x, scaleByDpi(450));
    EXPECT_TRUE(Tests::messageOf(*dialog).EndsWith(L"x\n\u2026"));
}

TEST_F(MessageDialogSizeTest, shownDialog_keepsTheRoomForItsText)
{
    make(L"A message that is not wrapped", MessageDialogIcon::NONE, {});
    const wxSize client = dialog->GetClientSize();
    dialog->Show();
    Tests::pumpEvents(200);
    EXPECT_EQ(dialog->GetClientSize(), client);
    EXPECT_EQ(text()->GetSize(), text()->GetBestSize());
}

TEST_F(MessageDialogSizeTest, messageThatJustFits_isNotCut)
{
    const int lines =
        (Wx::getMonitorRegionByPoint({1, 1}, Wx::MonitorRegionType::WORK_AREA).height() - scaleByDpi(150)) /
        lineHeight();
    const String message = longText(L"line\n", lines - 1) + L"end";
    make(message);
    EXPECT_EQ(Tests::messageOf(*dialog), Wx::toWxString(message));
    expectInWorkArea();
}

TEST_F(MessageDialogSizeTest, otherScripts_areShownWhole)
{
    for (const wchar_t* message :
         {L"\u0627\u0644\u0645\u0644\u0641 \u0645\u0648\u062C\u0648\u062F",
          L"\u6587\u4EF6\u5DF2\u7ECF\u5B58\u5728\u3002", L"\u05E9\u05DC\u05D5\u05DD"}) {
        make(message, MessageDialogIcon::QUESTION, OK_CANCEL, message);
        EXPECT_EQ(Tests::messageOf(*dialog), message);
        EXPECT_EQ(dialog->GetTitle(), message);
        EXPECT_GT(text()->GetSize().x, scaleByDpi(20));
        EXPECT_EQ(text()->GetSize(), text()->GetBestSize());
    }
}
