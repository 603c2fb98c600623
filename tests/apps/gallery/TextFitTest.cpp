// SPDX-License-Identifier: MIT
// Looks for cut text on every page and in every dialog. tools/testing/looks.sh runs these tests with the
// themes, languages and fonts of several desktops.
#include "support/TextFit.h"

#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/widgets/Button.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "apps/gallery/GalleryFrame.h"
#include "support/DefaultSkinGuard.h"
#include "support/Events.h"
#include "support/FrameFixture.h"

#include <wx/weakref.h>

#include <gtest/gtest.h>

using namespace Nolvex;

namespace {

struct TextFitTest : testing::Test
{
    ~TextFitTest() override { Tests::destroyNow(frame); }

    static void expectNoMisfits(const wxWindow& window, const wxString& title)
    {
        for (const wxString& misfit : Tests::misfitsIn(window))
            ADD_FAILURE() << title.utf8_str() << ": " << misfit.utf8_str();
    }

    Tests::DefaultSkinGuard guard;
    Gallery::GalleryFrame* frame = new Gallery::GalleryFrame;
};

struct MisfitTest : Tests::FrameFixture
{
    Wx::Button* button =
        new Wx::Button(panel, Wx::GuiSkin::DEFAULT(), wxID_ANY, L"A label of some length", wxBitmap(),
                       wxBitmap(), {}, Wx::Button::Behavior::PUSH, true, OskaBorderState::ENABLED);

    MisfitTest() { panel->SetSize(400, 300); }
};

} // namespace

TEST_F(TextFitTest, everyPage_showsAllOfItsTexts)
{
    frame->Show();
    Tests::pumpEvents();
    for (std::size_t page = 0; page < frame->pages().size(); ++page) {
        frame->showPage(page);
        Tests::pumpEvents();
        expectNoMisfits(*frame, Wx::toWxString(frame->pages()[page].title));
    }
}

TEST_F(TextFitTest, everyDialog_showsAllOfItsTexts)
{
    frame->Show();
    Tests::pumpEvents();
    for (const Gallery::Page& page : frame->pages()) {
        for (const Gallery::Window& window : page.windows) {
            const wxWeakRef<wxTopLevelWindow> dialog(window.make(frame));
            dialog->Show();
            Tests::pumpEvents(100);
            expectNoMisfits(*dialog, Wx::toWxString(window.title));
            dialog->Close();
            EXPECT_TRUE(Tests::pumpUntil([&] { return !dialog; }));
        }
    }
}

TEST_F(MisfitTest, labelThatFits_isNone)
{
    button->SetSize(10, 10, 300, 40);
    EXPECT_EQ(Tests::misfitsIn(*panel), Array<wxString>());
}

TEST_F(MisfitTest, labelThatIsWiderOrHigherThanItsWindow_isTold)
{
    button->SetSize(10, 10, 40, 40);
    EXPECT_EQ(Tests::misfitsIn(*panel).size(), 1u);
    button->SetSize(10, 10, 300, 5);
    EXPECT_EQ(Tests::misfitsIn(*panel).size(), 1u);
}

TEST_F(MisfitTest, windowBeyondTheEdgeOfItsParent_isTold)
{
    button->SetSize(panel->GetClientSize().x - 290, 10, 300, 40);
    EXPECT_EQ(Tests::misfitsIn(*panel).size(), 1u);
}
