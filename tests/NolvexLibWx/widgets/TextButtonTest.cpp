// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/TextButton.h"

#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "support/AddressOpener.h"
#include "support/FrameFixture.h"
#include "support/Gestures.h"
#include "support/HandCursor.h"
#include "support/Screen.h"

#include <cstdlib>
#include <type_traits>

using namespace Nolvex;
using Wx::scaleByDpi;
using Wx::TextButton;

namespace {

static_assert(std::is_base_of_v<Wx::StaticText, TextButton> && std::is_base_of_v<Wx::Focusable, TextButton>);

const wxColour NORMAL(10, 120, 30);
const wxColour HOVER(220, 0, 0);
const wxColour VISITED(0, 0, 210);
const wxPoint INSIDE(20, 20);
const wxPoint OUTSIDE(20, 150);

struct TextButtonTest : Tests::FrameFixture
{
    int clicks = 0;
    int commands = 0;

    TextButtonTest()
    {
        panel->SetBackgroundColour(*wxWHITE);
        frame->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { ++commands; });
    }

    TextButton* plain() const { return new TextButton(panel, 17, L"Text", Function<void()>(), {20, 20}); }

    /// Makes a button with letters so large that the inside of their strokes has exactly the text's colour.
    TextButton* make()
    {
        auto* button = new TextButton(panel, 17, L"HIH", [this] { ++clicks; }, {20, 20});
        button->SetFont(wxFontInfo(30).Bold());
        button->setNormalColour(NORMAL);
        button->setHoverColour(HOVER);
        button->setVisitedColour(VISITED);
        return button;
    }

    TextButton* shown()
    {
        TextButton* button = make();
        show();
        return button;
    }

    void show() const
    {
        frame->Show();
        frame->Raise();
        wxUIActionSimulator().MouseMove(5, 5);
        Tests::pumpUntil([this] { return frame->IsActive(); }, 1000);
        Tests::pumpEvents(100);
    }

    static void send(TextButton* button, wxEventType type)
    {
        wxMouseEvent event(type);
        event.SetEventObject(button);
        button->GetEventHandler()->ProcessEvent(event);
    }

    /// Returns the colour on the screen that differs most from the paper.
    static wxColour ink(TextButton* button)
    {
        Tests::pumpEvents(100);
        const wxImage image = Tests::captureClientArea(button);
        RgbBytes darkest{255, 255, 255};
        for (int y = 0; y < image.GetHeight(); ++y) {
            for (int x = 0; x < image.GetWidth(); ++x) {
                const RgbBytes pixel = Tests::pixelAt(image, x, y);
                if (pixel.r + pixel.g + pixel.b < darkest.r + darkest.g + darkest.b)
                    darkest = pixel;
            }
        }
        return Wx::toWxColour(darkest);
    }

    static void expectColour(TextButton* button, const wxColour& colour, const char* when = "")
    {
        EXPECT_EQ(button->GetForegroundColour(), colour) << when;
        if (button->IsShownOnScreen()) {
            EXPECT_EQ(ink(button), colour) << when;
        }
    }
};

using TextButtonSizeTest = TextButtonTest;

} // namespace

TEST_F(TextButtonTest, construction_makesAPlainText)
{
    const TextButton* button = plain();
    EXPECT_EQ(button->GetId(), 17);
    EXPECT_EQ(button->GetLabel(), "Text");
    EXPECT_EQ(button->unwrappedLabel(), L"Text");
    EXPECT_EQ(button->GetPosition(), wxPoint(20, 20));
    EXPECT_EQ(button->GetFont(), Wx::setupStaticTextFont(panel->GetFont(), {}));
    EXPECT_FALSE(button->isVisited());
    EXPECT_EQ(button->tooltip(), nullptr);
    EXPECT_EQ(static_cast<const void*>(static_cast<const Wx::StaticText*>(button)), button);
}

TEST_F(TextButtonTest, construction_withoutPosition_movesItNowhere)
{
    const TextButton button(panel, wxID_ANY, L"Text", Function<void()>());
    EXPECT_EQ(button.GetPosition(), wxPoint(0, 0));
}

TEST_F(TextButtonTest, construction_takesTheForegroundColourForAllStates)
{
    panel->SetForegroundColour(wxColour(40, 50, 60));
    TextButton* button = plain();
    expectColour(button, wxColour(40, 50, 60));
    send(button, wxEVT_ENTER_WINDOW);
    expectColour(button, wxColour(40, 50, 60));
    send(button, wxEVT_LEAVE_WINDOW);
    button->setVisited(true);
    expectColour(button, wxColour(40, 50, 60));
}

TEST_F(TextButtonTest, click_calls)
{
    TextButton* button = shown();
    Tests::pressMouseAt(button, INSIDE);
    EXPECT_EQ(clicks, 0) << "not before it is released";
    Tests::releaseMouse();
    EXPECT_EQ(clicks, 1);
    Tests::clickAt(button, INSIDE);
    EXPECT_EQ(clicks, 2);
    EXPECT_FALSE(button->isVisited());
    EXPECT_EQ(commands, 0) << "nothing else is told";
}

TEST_F(TextButtonTest, doubleClick_callsTwice)
{
    Tests::moveMouse(shown(), INSIDE);
    wxUIActionSimulator().MouseDblClick();
    EXPECT_TRUE(Tests::pumpUntil([this] { return clicks == 2; }));
}

TEST_F(TextButtonTest, clickElsewhereAndOtherButtons_doNotCall)
{
    TextButton* button = shown();
    Tests::clickAt(button, OUTSIDE);
    Tests::moveMouse(button, INSIDE);
    wxUIActionSimulator().MouseClick(wxMOUSE_BTN_RIGHT);
    Tests::pumpEvents(100);
    EXPECT_EQ(clicks, 0);
}

TEST_F(TextButtonTest, disabled_doesNothing)
{
    TextButton* button = shown();
    button->Disable();
    Tests::clickAt(button, INSIDE);
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(button->GetForegroundColour(), NORMAL);
}

TEST_F(TextButtonTest, withoutCallback_isClickedInVain)
{
    TextButton* button = plain();
    send(button, wxEVT_LEFT_UP);
    button->setClickCallback([this] { ++clicks; });
    send(button, wxEVT_LEFT_UP);
    EXPECT_EQ(clicks, 1);
    button->setClickCallback({});
    send(button, wxEVT_LEFT_UP);
    EXPECT_EQ(clicks, 1);
}

TEST_F(TextButtonTest, callback_mayReplaceItself)
{
    TextButton* button = make();
    std::string called;
    button->setClickCallback([&, text = std::string("once")] {
        button->setClickCallback({});
        called += text;
    });
    send(button, wxEVT_LEFT_UP);
    send(button, wxEVT_LEFT_UP);
    EXPECT_EQ(called, "once");
}

TEST_F(TextButtonTest, mouseThatComesAndGoes_changesColourAndCursor)
{
    TextButton* button = make();
    EXPECT_FALSE(Tests::hasHandCursor(button));
    show();
    expectColour(button, NORMAL);
    Tests::moveMouse(button, INSIDE);
    expectColour(button, HOVER, "entered");
    EXPECT_TRUE(Tests::hasHandCursor(button));
    Tests::moveMouse(button, OUTSIDE);
    expectColour(button, NORMAL, "left");
    EXPECT_TRUE(Tests::hasHandCursor(button)) << "stays for the next time";
}

TEST_F(TextButtonTest, windowThatComesOverIt_endsTheHover)
{
    TextButton* button = shown();
    Tests::moveMouse(button, INSIDE);
    ASSERT_TRUE(Tests::pumpUntil([button] { return button->GetForegroundColour() == HOVER; }));
    auto* cover = new wxFrame(nullptr, wxID_ANY, "cover", wxPoint(50, 50), wxSize(500, 400), wxSTAY_ON_TOP);
    cover->Show();
    cover->Raise();
    Tests::pumpEvents(150);
    wxUIActionSimulator().MouseMove(wxGetMousePosition() + wxPoint(1, 1));
    EXPECT_TRUE(Tests::pumpUntil([button] { return button->GetForegroundColour() == NORMAL; }));
    Tests::destroyNow(cover);
    Tests::moveMouse(button, INSIDE + wxPoint(2, 2));
    EXPECT_TRUE(Tests::pumpUntil([button] { return button->GetForegroundColour() == HOVER; }));
}

TEST_F(TextButtonTest, normalColour_showsUnlessHoveredOrVisited)
{
    const wxColour other(5, 6, 7);
    TextButton* button = shown();
    button->setNormalColour(other);
    expectColour(button, other);
    button->setVisited(true);
    button->setNormalColour(NORMAL);
    expectColour(button, VISITED, "visited");
    button->setVisited(false);
    expectColour(button, NORMAL, "no longer visited");
    Tests::moveMouse(button, INSIDE);
    button->setNormalColour(other);
    expectColour(button, HOVER, "hovered");
    Tests::moveMouse(button, OUTSIDE);
    expectColour(button, other, "left");
}

TEST_F(TextButtonTest, hoverColour_showsOnlyWhileHovered)
{
    const wxColour other(5, 6, 7);
    TextButton* button = shown();
    button->setHoverColour(other);
    expectColour(button, NORMAL, "not hovered");
    Tests::moveMouse(button, INSIDE);
    expectColour(button, other, "hovered");
    button->setHoverColour(HOVER);
    expectColour(button, HOVER, "changed while hovered");
}

TEST_F(TextButtonTest, visitedColour_showsWhenVisitedAndNotHovered)
{
    const wxColour other(5, 6, 7);
    TextButton* button = shown();
    button->setVisitedColour(other);
    expectColour(button, NORMAL, "not visited");
    button->setVisited(true);
    EXPECT_TRUE(button->isVisited());
    expectColour(button, other, "visited");
    button->setVisitedColour(VISITED);
    expectColour(button, VISITED, "changed while visited");
    Tests::moveMouse(button, INSIDE);
    button->setVisitedColour(other);
    expectColour(button, HOVER, "hovered");
}

TEST_F(TextButtonTest, visitedWhileHovered_showsWhenTheMouseLeaves)
{
    TextButton* button = shown();
    Tests::moveMouse(button, INSIDE);
    button->setVisited(true);
    expectColour(button, HOVER, "hovered");
    Tests::moveMouse(button, OUTSIDE);
    expectColour(button, VISITED, "left");
    Tests::moveMouse(button, INSIDE);
    button->setVisited(false);
    expectColour(button, HOVER, "hovered again");
    Tests::moveMouse(button, OUTSIDE);
    expectColour(button, NORMAL, "left again");
}

TEST_F(TextButtonTest, madeWithAnAddress_opensItAtEachClickAndIsNotVisited)
{
    const Tests::AddressOpener opener;
    auto* button = new TextButton(panel, 18, L"Link", L"nolvextest:first?a=b");
    EXPECT_EQ(button->GetId(), 18);
    EXPECT_EQ(button->GetLabel(), "Link");
    button->SetPosition({20, 20});
    const wxColour before = button->GetForegroundColour();
    show();
    for (int i = 0; i < 2; ++i) {
        Tests::clickAt(button, {5, 5});
        EXPECT_EQ(opener.takeOpened().Trim(), "nolvextest:first?a=b");
    }
    EXPECT_FALSE(button->isVisited());
    Tests::moveMouse(button, OUTSIDE);
    EXPECT_EQ(button->GetForegroundColour(), before);
}

TEST_F(TextButtonTest, setHyperlink_replacesTheCallbackAndTheCallbackIt)
{
    const Tests::AddressOpener opener;
    TextButton* button = shown();
    button->setHyperlink(L"nolvextest:second");
    Tests::clickAt(button, INSIDE);
    EXPECT_EQ(opener.takeOpened().Trim(), "nolvextest:second");
    EXPECT_EQ(clicks, 0);
    button->setClickCallback([this] { ++clicks; });
    Tests::clickAt(button, INSIDE);
    EXPECT_EQ(clicks, 1);
}

TEST_F(TextButtonSizeTest, size_isInDesignUnitsAndPositionInPixels)
{
    const auto* button = new TextButton(panel, 17, L"Text", Function<void()>(), {33, 44}, {120, 40});
    EXPECT_EQ(button->GetSize(), scaleByDpi(wxSize(120, 40)));
    EXPECT_EQ(button->GetPosition(), wxPoint(33, 44));
}

TEST_F(TextButtonSizeTest, withoutSize_isAsLargeAsItsText)
{
    const TextButton* button = plain();
    const wxSize text = button->GetTextExtent("Text");
    EXPECT_EQ(button->GetSize().x, text.x);
    EXPECT_GE(button->GetSize().y, text.y);
}
