// SPDX-License-Identifier: MIT
#include "apps/picker/HexField.h"

#include "support/FrameFixture.h"

#include <stdexcept>

using namespace Nolvex;
using Picker::HexField;

namespace {

struct HexFieldTest : Tests::FrameFixture
{
    /// Tells the field of a text as if the user had typed the text.
    void type(const wxString& text) const
    {
        field->ChangeValue(text);
        wxCommandEvent event(wxEVT_TEXT, field->GetId());
        event.SetEventObject(field);
        field->ProcessWindowEvent(event);
    }

    Function<void(const Rgb&)> onChange;
    HexField* field = new HexField(panel, {1, 0, 0, 1}, [this](const Rgb& color) { onChange(color); });
};

} // namespace

TEST_F(HexFieldTest, colourSetWhileTyping_keepsTheTypedText)
{
    onChange = [this](const Rgb& color) { field->setColor(color); };
    type(L"00f");
    EXPECT_EQ(field->GetValue(), L"00f");
    field->setColor({0, 1, 0, 1});
    EXPECT_EQ(field->GetValue(), L"#00ff00");
}

TEST_F(HexFieldTest, callbackThatThrows_leavesAFieldThatShowsColours)
{
    onChange = [](const Rgb&) { throw std::runtime_error("no colour today"); };
    EXPECT_THROW(type(L"00f"), std::runtime_error);
    field->setColor({0, 1, 0, 1});
    EXPECT_EQ(field->GetValue(), L"#00ff00");
}

TEST_F(HexFieldTest, callbackMayDestroyTheField)
{
    onChange = [this](const Rgb&) { field->Hide(); };
    type(L"00f");
    onChange = [this](const Rgb&) {
        delete field;
        throw std::runtime_error("the field is gone"); // which wxWidgets would use after the callback
    };
    EXPECT_THROW(type(L"0f0"), std::runtime_error);
}
