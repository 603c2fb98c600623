// SPDX-License-Identifier: MIT
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/widgets/CheckBox.h"
#include "support/FrameFixture.h"

#include <gtest/gtest.h>

using namespace Nolvex;
using Wx::CheckBox;
using Wx::scaleByDpi;

// The environment of the run sets the scale. The tests hold at every scale.

namespace {

struct CheckBoxSizeTest : Tests::FrameFixture
{
    CheckBox* make(const String& label, const wxSize& size = wxDefaultSize) const
    {
        return new CheckBox(panel, wxID_ANY, label, wxDefaultPosition, size);
    }

    wxSize sizeOf(const String& label, const wxSize& size = wxDefaultSize) const
    {
        return make(label, size)->GetSize();
    }
};

} // namespace

TEST_F(CheckBoxSizeTest, withoutLabelAndSize_isTheBox)
{
    EXPECT_EQ(sizeOf(String()), wxSize(scaleByDpi(15), scaleByDpi(15)));
}

TEST_F(CheckBoxSizeTest, withLabel_isAsHighAsTheBoxUnlessAHeightIsGiven)
{
    EXPECT_EQ(sizeOf(L"Label", {80, -1}), scaleByDpi(wxSize(80, 15)));
    EXPECT_EQ(sizeOf(L"Label", {81, 33}), scaleByDpi(wxSize(81, 33)));
    EXPECT_EQ(sizeOf(L"Label", {-1, 40}).y, scaleByDpi(40));
    const CheckBox* fitted = make(L"Label");
    const int right = scaleByDpi(17) + fitted->GetTextExtent("Label").x + scaleByDpi(2);
    EXPECT_EQ(fitted->GetSize(), wxSize(right + 2, scaleByDpi(15)));
}

TEST_F(CheckBoxSizeTest, withoutLabelButWithASize_keepsIt)
{
    EXPECT_EQ(sizeOf(String(), {40, 30}), scaleByDpi(wxSize(40, 30)));
    EXPECT_EQ(sizeOf(String(), {40, -1}), scaleByDpi(wxSize(40, 15)));
    EXPECT_EQ(sizeOf(String(), {-1, 30}), scaleByDpi(wxSize(15, 30)));
}
