// SPDX-License-Identifier: MIT
#include "apps/gallery/GalleryFrame.h"

#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/widgets/Button.h"
#include "NolvexLibWx/widgets/CollapsiblePanel.h"
#include "NolvexLibWx/widgets/ComboBox.h"
#include "NolvexLibWx/widgets/TextCtrl.h"
#include "apps/gallery/PageList.h"
#include "apps/gallery/SkinEditor.h"
#include "apps/gallery/Skins.h"
#include "support/DefaultSkinGuard.h"
#include "support/Events.h"
#include "support/ProcessResources.h"
#include "support/Screen.h"

#include <wx/app.h>
#include <wx/uiaction.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace Nolvex;
using Gallery::GalleryFrame;
using Gallery::SkinEditor;

namespace {

template<class Window>
void collect(wxWindow* window, Array<Window*>& found)
{
    if (auto* wanted = dynamic_cast<Window*>(window))
        found.push_back(wanted);
    for (wxWindow* child : window->GetChildren())
        collect(child, found);
}

/// Returns all windows of a class below and including `window`, parents first.
template<class Window>
Array<Window*> windowsOf(wxWindow* window)
{
    Array<Window*> found;
    collect(window, found);
    return found;
}

struct GalleryFrameTest : testing::Test
{
    ~GalleryFrameTest() override { Tests::destroyNow(frame); }

    void show() const
    {
        frame->Show();
        frame->Raise();
        wxUIActionSimulator().MouseMove(2, 2);
        const wxColour background = frame->GetChildren().front()->GetBackgroundColour();
        const RgbBytes expected{background.Red(), background.Green(), background.Blue()};
        EXPECT_TRUE(Tests::pumpUntil(
            [&] { return Tests::pixelAt(Tests::captureClientArea(frame), 3, 3) == expected; }));
    }

    Wx::Button* button(const wxString& label) const
    {
        for (Wx::Button* candidate : windowsOf<Wx::Button>(frame)) {
            if (candidate->GetLabel() == label)
                return candidate;
        }
        return nullptr;
    }

    /// The log stands below the page.
    wxString log() const { return windowsOf<Wx::TextCtrl>(frame).back()->GetValue(); }

    /// Waits until the button of the page is seen in the accent colour of the skin.
    bool selectedTitleIsShownIn(const Wx::GuiSkin& skin) const
    {
        return Tests::pumpUntil([&] {
            wxWindow* title = frame->titles()->button(frame->shownPage());
            return Tests::pixelAt(Tests::captureClientArea(title), 4, 4) == skin.accent;
        });
    }

    std::size_t pageOf(const String& title) const
    {
        const Array<Gallery::Page>& pages = frame->pages();
        const auto page = std::ranges::find(pages, title, &Gallery::Page::title);
        EXPECT_NE(page, pages.end());
        return static_cast<std::size_t>(page - pages.begin());
    }

    static void click(wxWindow* window)
    {
        wxUIActionSimulator mouse;
        const wxSize size = window->GetSize();
        mouse.MouseMove(window->ClientToScreen(wxPoint(size.x / 2, size.y / 2)));
        Tests::pumpEvents();
        mouse.MouseClick();
    }

    Tests::DefaultSkinGuard guard;
    GalleryFrame* frame = new GalleryFrame;
};

/// The relative luminance of the guidelines for accessible web content, from 0 (black) to 1 (white).
double luminance(const RgbBytes& colour)
{
    const auto linear = [](int channel) {
        const double value = channel / 255.0;
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.r) + 0.7152 * linear(colour.g) + 0.0722 * linear(colour.b);
}

double contrast(const RgbBytes& first, const RgbBytes& second)
{
    const double one = luminance(first) + 0.05;
    const double other = luminance(second) + 0.05;
    return std::max(one, other) / std::min(one, other);
}

} // namespace

TEST_F(GalleryFrameTest, pages_coverEveryFamilyInTheOrderOfTheirTitles)
{
    Array<String> titles;
    for (const Gallery::Page& page : frame->pages())
        titles.push_back(page.title);
    const Array<String> expected{L"Borders",
                                 L"Buttons",
                                 L"Check boxes",
                                 L"Collapsible panels",
                                 L"Colour picker buttons",
                                 L"Combo boxes",
                                 L"Drop-down buttons",
                                 L"File dialogs",
                                 L"Lines",
                                 L"Message dialogs",
                                 L"Pictures",
                                 L"Pixel probe",
                                 L"Save settings",
                                 L"Scroll and zoom",
                                 L"Skin",
                                 L"Spinners",
                                 L"Task bar progress",
                                 L"Text areas",
                                 L"Text buttons",
                                 L"Text fields",
                                 L"Texts",
                                 L"Tooltips"};
    EXPECT_EQ(titles, expected);
}

TEST_F(GalleryFrameTest, everyPage_inEverySkin_replacesThePageBefore)
{
    show();
    for (int skin = 0; skin < Gallery::SKIN_COUNT; ++skin) {
        frame->chooseSkin(skin);
        frame->showPage(0);
        Tests::pumpEvents();
        const std::size_t windows = windowsOf<wxWindow>(frame).size();
        for (std::size_t page = 0; page < frame->pages().size(); ++page) {
            frame->showPage(page);
            Tests::pumpEvents();
        }
        frame->showPage(0);
        Tests::pumpEvents();
        EXPECT_EQ(windowsOf<wxWindow>(frame).size(), windows);
    }
}

TEST_F(GalleryFrameTest, skins_showCheckMarksAndTexts)
{
    constexpr RgbBytes CHECK_MARK{255, 255, 255};
    for (int i = 0; i < Gallery::SKIN_COUNT; ++i) {
        const Wx::GuiSkin& skin = GalleryFrame::skin(i);
        EXPECT_GE(contrast(CHECK_MARK, skin.background), 3.0) << i;
        EXPECT_GE(contrast(skin.text, skin.background), 4.5) << i;
        EXPECT_GE(contrast(skin.text, skin.pressedBackground), 4.5) << i;
        EXPECT_GE(contrast(skin.accentText, skin.accent), 4.5) << i;
        EXPECT_GE(contrast(skin.link, skin.background), 3.0) << i;
    }
}

TEST_F(GalleryFrameTest, firstSkin_isTheOneThatTheLibraryStartsWith)
{
    EXPECT_EQ(GalleryFrame::skin(0), guard.before);
    EXPECT_EQ(Wx::GuiSkin::DEFAULT(), guard.before);
}

TEST_F(GalleryFrameTest, skinChosenFromTheBox_becomesTheDefaultAndIsShownEverywhere)
{
    show();
    SkinEditor* editor = frame->skinEditor();
    click(editor->choice());
    EXPECT_TRUE(Tests::pumpUntil([&] { return editor->choice()->isOpen(); }));
    wxUIActionSimulator().Char(WXK_DOWN);
    EXPECT_TRUE(Tests::pumpUntil([] { return Wx::GuiSkin::DEFAULT() == GalleryFrame::skin(1); }));
    EXPECT_TRUE(Tests::pumpUntil([&] {
        return Tests::pixelAt(Tests::captureClientArea(frame), 3, 3) == GalleryFrame::skin(1).background;
    }));
    EXPECT_TRUE(selectedTitleIsShownIn(GalleryFrame::skin(1)));
    EXPECT_TRUE(log().EndsWith("The default skin is Paper.\n")) << log();
    EXPECT_EQ(editor->choice()->getSelectedIndex(), 1);
}

TEST_F(GalleryFrameTest, chosenSkin_staysOnTheNextPage)
{
    show();
    frame->chooseSkin(1);
    frame->showPage(1);
    EXPECT_TRUE(selectedTitleIsShownIn(GalleryFrame::skin(1)));
    EXPECT_EQ(frame->skinEditor()->choice()->getSelectedIndex(), 1);
}

TEST_F(GalleryFrameTest, clickOnATitle_showsItsPageAndTogglesTheTitle)
{
    show();
    const std::size_t buttons = pageOf(L"Buttons");
    click(frame->titles()->button(buttons));
    EXPECT_TRUE(Tests::pumpUntil([&] { return button(L"Push") != nullptr; }));
    EXPECT_TRUE(selectedTitleIsShownIn(GalleryFrame::skin(0)));
    for (std::size_t page = 0; page < frame->pages().size(); ++page)
        EXPECT_EQ(frame->titles()->button(page)->isToggled(), page == buttons);
    click(frame->titles()->button(buttons));
    Tests::pumpEvents();
    EXPECT_TRUE(frame->titles()->button(buttons)->isToggled()) << "a title is chosen, not switched off";
}

TEST_F(GalleryFrameTest, everyPage_hasATitleThatCanBeSeen)
{
    show();
    const wxRect client = frame->GetClientRect();
    for (std::size_t page = 0; page < frame->pages().size(); ++page) {
        const Wx::Button* title = frame->titles()->button(page);
        EXPECT_TRUE(title->IsShownOnScreen());
        const wxPoint corner = frame->ScreenToClient(title->GetScreenRect().GetBottomRight());
        EXPECT_TRUE(client.Contains(corner)) << title->GetLabel();
    }
}

TEST_F(GalleryFrameTest, ctrlPageDownAndUp_turnThePages)
{
    show();
    EXPECT_TRUE(Tests::pumpUntil([&] { return frame->IsActive(); }));
    wxUIActionSimulator().Char(WXK_PAGEDOWN, wxMOD_CONTROL);
    EXPECT_TRUE(Tests::pumpUntil([&] { return frame->shownPage() == 1; }));
    wxUIActionSimulator().Char(WXK_PAGEUP, wxMOD_CONTROL);
    EXPECT_TRUE(Tests::pumpUntil([&] { return frame->shownPage() == 0; }));
    wxUIActionSimulator().Char(WXK_PAGEUP, wxMOD_CONTROL);
    EXPECT_TRUE(Tests::pumpUntil([&] { return frame->shownPage() == frame->pages().size() - 1; }));
}

TEST_F(GalleryFrameTest, foldedFamily_staysFoldedInTheNextSkin)
{
    show();
    const auto dialogs = [&] { return windowsOf<Wx::CollapsiblePanel>(frame->titles()).at(2); };
    EXPECT_EQ(dialogs()->GetLabel(), L"Dialogs");
    dialogs()->setCollapsed(true);
    frame->chooseSkin(1);
    EXPECT_TRUE(dialogs()->isCollapsed());
    EXPECT_FALSE(windowsOf<Wx::CollapsiblePanel>(frame->titles()).front()->isCollapsed());
}

TEST_F(GalleryFrameTest, controlOfAPage_reportsToTheLog)
{
    frame->showPage(pageOf(L"Buttons"));
    show();
    click(button(L"Push"));
    EXPECT_TRUE(Tests::pumpUntil([&] { return log().EndsWith("The button \"Push\" was clicked.\n"); }));
}

TEST_F(GalleryFrameTest, tooltipPage_hasControlsWithAndWithoutATooltip)
{
    frame->showPage(pageOf(L"Tooltips"));
    Array<std::size_t> lines;
    for (const Wx::Tooltip* tooltip : windowsOf<Wx::Tooltip>(frame))
        lines.push_back(tooltip->lines().size());
    EXPECT_TRUE(std::ranges::count(lines, 0u) == 1 && std::ranges::count(lines, 1u) > 3);
    EXPECT_EQ(std::ranges::count_if(lines, [](std::size_t count) { return count >= 3; }), 2);
}

TEST_F(GalleryFrameTest, textFieldPage_shownAgainAndAgain_takesNoMoreMemory)
{
    constexpr int SWITCHES = 100;
    constexpr std::size_t MAX_GROWTH = 500'000; // bytes; a page that is not freed takes 150,000
    show();
    const auto switchPages = [&] {
        for (int i = 0; i < SWITCHES; ++i) {
            frame->showPage(pageOf(L"Text fields"));
            wxYield();
        }
    };
    switchPages();
    const std::size_t before = Tests::privateMemory();
    switchPages();
    EXPECT_LT(Tests::privateMemory(), before + MAX_GROWTH);
}
