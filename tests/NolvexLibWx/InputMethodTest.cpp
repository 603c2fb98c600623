// SPDX-License-Identifier: MIT
// Check boxes and labels take keys but no text, so that the input method of the user has nothing to do there.
#include "NolvexLibWx/widgets/CheckBox.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "support/FrameFixture.h"
#include "support/InputContexts.h"

#include <gtest/gtest.h>

using namespace Nolvex;

namespace {

struct InputMethodTest : Tests::FrameFixture
{
    /// Returns the number of contexts of the input method that the controls use which the function makes.
    template<class Make>
    static int contextsOf(const Make& make)
    {
        const Tests::InputContexts contexts;
        make();
        return contexts.inUse();
    }
};

} // namespace

TEST_F(InputMethodTest, controlsInAWindowOnTheScreen_useNoContext)
{
    if (!Tests::InputContexts::areMade())
        GTEST_SKIP() << "The windows of this system have no contexts of their own.";
    showFrame();
    // GTK realises a control at once if its parent is on the screen.
    ASSERT_EQ(contextsOf([this] { new wxPanel(panel); }), 1);
    EXPECT_EQ(contextsOf([this] { new Wx::CheckBox(panel, wxID_ANY, L"check box"); }), 0);
    EXPECT_EQ(contextsOf([this] { new Wx::StaticText(panel, wxID_ANY, L"label"); }), 0);
}

TEST_F(InputMethodTest, controlsInAWindowThatIsShownLater_useNoContext)
{
    if (!Tests::InputContexts::areMade())
        GTEST_SKIP() << "The windows of this system have no contexts of their own.";
    new wxPanel(panel);
    const int contexts = contextsOf([this] {
        new Wx::CheckBox(panel, wxID_ANY, L"check box");
        new Wx::StaticText(panel, wxID_ANY, L"label");
        showFrame();
    });
    // The frame has one, and each of the two panels.
    EXPECT_EQ(contexts, 3);
}

TEST_F(InputMethodTest, checkBoxInAWindowOnTheScreen_hearsCharacters)
{
    showFrame();
    auto* box = new Wx::CheckBox(panel, wxID_ANY, L"check box");
    int character = 0;
    box->Bind(wxEVT_CHAR, [&character](const wxKeyEvent& event) { character = event.GetUnicodeKey(); });
    box->SetFocus();
    ASSERT_TRUE(Tests::pumpUntil([box] { return box->HasFocus(); }));
    wxUIActionSimulator().Char('y');
    EXPECT_TRUE(Tests::pumpUntil([&character] { return character == 'y'; })) << character;
}
