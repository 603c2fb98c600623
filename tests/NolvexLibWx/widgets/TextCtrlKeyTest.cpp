// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/CheckBox.h"
#include "NolvexLibWx/widgets/TextCtrl.h"
#include "support/FrameFixture.h"
#include "support/Gestures.h"

#include <wx/clipbrd.h>
#include <wx/dataobj.h>
#include <wx/menu.h>

using namespace Nolvex;
using Wx::TextCtrl;

namespace {

/// A text area between two check boxes.
struct TextCtrlKeyTest : Tests::FrameFixture, testing::WithParamInterface<long>
{
    Wx::CheckBox* above = new Wx::CheckBox(panel, wxID_ANY, L"above", {10, 10});
    TextCtrl* text = new TextCtrl(panel, wxID_ANY, "some text", {10, 40}, {200, 60}, GetParam());
    Wx::CheckBox* below = new Wx::CheckBox(panel, wxID_ANY, L"below", {10, 120});

    TextCtrlKeyTest()
    {
        showFrame();
        focusText();
    }

    void focusText() const
    {
        text->SetFocus();
        ASSERT_TRUE(hasFocus(text));
    }

    static bool hasFocus(const wxWindow* window)
    {
        return Tests::pumpUntil([window] { return wxWindow::FindFocus() == window; }, 2000);
    }

    static void setClipboard(const wxString& content)
    {
        const wxClipboardLocker locker;
        wxTheClipboard->SetData(new wxTextDataObject(content));
    }

    static wxString clipboard()
    {
        const wxClipboardLocker locker;
        wxTextDataObject content;
        return wxTheClipboard->GetData(content) ? content.GetText() : wxString();
    }
};

} // namespace

TEST_P(TextCtrlKeyTest, tab_movesToTheNextFocusable)
{
    Tests::typeKey(WXK_TAB);
    EXPECT_TRUE(hasFocus(below));
    EXPECT_EQ(text->GetValue(), "some text");
}

TEST_P(TextCtrlKeyTest, shiftTab_movesToThePreviousFocusable)
{
    Tests::typeKey(WXK_TAB, wxMOD_SHIFT);
    EXPECT_TRUE(hasFocus(above));
    EXPECT_EQ(text->GetValue(), "some text");
}

TEST_P(TextCtrlKeyTest, tab_leadsBackIntoTheTextAndOut)
{
    above->SetFocus();
    ASSERT_TRUE(hasFocus(above));
    Tests::typeKey(WXK_TAB);
    EXPECT_TRUE(hasFocus(text));
    Tests::typeKey(WXK_TAB);
    EXPECT_TRUE(hasFocus(below));
    EXPECT_FALSE(above->GetValue() || below->GetValue());
}

TEST_P(TextCtrlKeyTest, ctrlC_copiesTheSelection)
{
    setClipboard("before");
    text->SetSelection(5, 9);
    Tests::typeKey('C', wxMOD_CONTROL);
    EXPECT_TRUE(Tests::pumpUntil([] { return clipboard() == "text"; })) << clipboard();
    EXPECT_EQ(text->GetValue(), "some text");
}

TEST_P(TextCtrlKeyTest, ctrlC_comesBeforeAMenuOnlyWithASelection)
{
    int commands = 0;
    auto* menu = new wxMenu;
    menu->Append(17, "Copy picture\tCtrl+C");
    auto* bar = new wxMenuBar;
    bar->Append(menu, "Edit");
    frame->SetMenuBar(bar);
    frame->Bind(wxEVT_MENU, [&commands](wxCommandEvent&) { ++commands; });
    // The frame hears of the key when the text area has no use for the key. Only Windows goes on to the menu
    // then, since GTK asks the text area again.
    int passedOn = 0;
    frame->Bind(wxEVT_CHAR_HOOK, [&passedOn](wxKeyEvent& event) {
        event.Skip();
        passedOn += event.GetKeyCode() == 'C' ? 1 : 0;
    });
    Tests::pumpEvents();
    setClipboard("before");
    focusText();
    text->SetSelection(0, 4);
    Tests::typeKey('C', wxMOD_CONTROL);
    EXPECT_TRUE(Tests::pumpUntil([] { return clipboard() == "some"; })) << clipboard();
    EXPECT_EQ(commands, 0);
    EXPECT_EQ(passedOn, 0);
    text->SetSelection(0, 0);
    setClipboard("before");
    Tests::typeKey('C', wxMOD_CONTROL);
    EXPECT_TRUE(Tests::pumpUntil([&passedOn] { return passedOn > 0; }, 2000));
    EXPECT_EQ(passedOn, 1);
    EXPECT_EQ(clipboard(), "before");
    destroyFrame(); // while what the handlers write to is there
}

INSTANTIATE_TEST_SUITE_P(Styles, TextCtrlKeyTest,
                         testing::Values(0L, long(wxTE_MULTILINE), long(wxTE_MULTILINE | wxTE_READONLY)));
