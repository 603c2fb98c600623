// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/TooltipWindow.h"

#include "support/FrameFixture.h"

#include <gtest/gtest.h>

using namespace Nolvex;
using Wx::Tooltip;

namespace {

class Control : public wxPanel, public Wx::TooltipWindow
{
public:
    explicit Control(wxWindow* parent) : wxPanel(parent), TooltipWindow(this) {}
};

struct TooltipWindowTest : Tests::FrameFixture
{
    Control* control = new Control(panel);
};

} // namespace

TEST_F(TooltipWindowTest, construction_makesNoTooltip)
{
    EXPECT_EQ(control->tooltip(), nullptr);
    EXPECT_TRUE(control->GetChildren().empty());
}

TEST_F(TooltipWindowTest, setTooltip_makesOneForTheControl)
{
    control->setTooltip(L"text");
    ASSERT_NE(control->tooltip(), nullptr);
    EXPECT_EQ(control->tooltip()->GetParent(), control);
    EXPECT_EQ(control->tooltip()->lines(), Array<String>({L"text"}));
}

TEST_F(TooltipWindowTest, setTooltip_again_reusesTheFirst)
{
    control->setTooltip(L"one");
    const Tooltip* first = control->tooltip();
    control->setTooltip(L"two");
    EXPECT_EQ(control->tooltip(), first);
    EXPECT_EQ(first->lines(), Array<String>({L"two"}));
    EXPECT_EQ(control->GetChildren().size(), 1u);
}

TEST_F(TooltipWindowTest, setTooltip_afterTheTooltipWasDestroyed_makesAnother)
{
    control->setTooltip(L"one");
    control->DestroyChildren();
    EXPECT_EQ(control->tooltip(), nullptr);
    control->setTooltip(L"two");
    ASSERT_NE(control->tooltip(), nullptr);
    EXPECT_EQ(control->tooltip()->lines(), Array<String>({L"two"}));
}

TEST_F(TooltipWindowTest, destroyedControl_takesTheTooltipAlong)
{
    control->setTooltip(L"text");
    const wxWeakRef<Tooltip> tooltip(control->tooltip());
    delete control;
    EXPECT_FALSE(tooltip);
}
