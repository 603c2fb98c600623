// SPDX-License-Identifier: MIT
#include "apps/viewer/KeysMessage.h"

#include "NolvexLibWx/MessageDialog.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "support/ModalDialogs.h"
#include "support/ViewerFixture.h"

#include <gtest/gtest.h>

using namespace Nolvex;

namespace {

using KeysMessageTest = Tests::ViewerFixture;

} // namespace

TEST_F(KeysMessageTest, everyKeyOfTheTable_hasALineWithItsCommand)
{
    const wxString text = L"\n" + Wx::toWxString(Viewer::keysText());
    int keys = 0;
    for (const Viewer::CommandInfo& info : Viewer::commandTable()) {
        if (info.key == 0)
            continue;
        ++keys;
        wxString label = wxString(info.label);
        label.Replace(L"&", wxString());
        label.Replace(L"...", wxString());
        EXPECT_TRUE(text.Contains(L"\n" + wxString(info.keyText) + L": " + label + L"\n")) << label;
    }
    EXPECT_GT(keys, 20);
    EXPECT_FALSE(text.Contains(L"&"));
    EXPECT_FALSE(text.Contains(L"..."));
}

TEST_F(KeysMessageTest, keysOfTheView_areListed)
{
    const wxString text = Wx::toWxString(Viewer::keysText());
    for (const wchar_t* part :
         {L"Arrows", L"Page Up", L"Home", L"Shift + arrows", L"Alt + Left", L"Delete", L"Escape"})
        EXPECT_TRUE(text.Contains(part)) << part;
}

TEST_F(KeysMessageTest, f1_showsTheKeys)
{
    show(Tests::coordinates(60, 40));
    focus(view);
    wxString shown;
    Tests::DialogRobot robot(
        {{"the message is shown", [] { return Tests::activeModal<Wx::MessageDialog>() != nullptr; },
          [&] {
              shown = Tests::findIn<Wx::StaticText>(Tests::activeModal<Wx::MessageDialog>())->GetLabel();
              wxUIActionSimulator().Char(WXK_RETURN);
          }}});
    wxUIActionSimulator().Char(WXK_F1);
    EXPECT_TRUE(Tests::pumpUntil([&] { return !shown.empty(); }));
    EXPECT_TRUE(shown.Contains(L"Ctrl+O: Open")) << shown;
}
