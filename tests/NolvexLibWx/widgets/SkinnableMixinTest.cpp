// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/SkinnableMixin.h"

#include "support/DefaultSkinGuard.h"
#include "support/FrameFixture.h"
#include "support/Screen.h"

#include <wx/textctrl.h>

#include <gtest/gtest.h>

#include <type_traits>

using namespace Nolvex;
using namespace Nolvex::Wx;

namespace {

GuiSkin someSkin()
{
    GuiSkin skin;
    skin.text = {1, 2, 3};
    skin.background = {4, 5, 6};
    return skin;
}

struct SkinnableMixinTest : Tests::FrameFixture
{};

} // namespace

TEST_F(SkinnableMixinTest, construction_copiesTheDefaultSkin)
{
    const Tests::DefaultSkinGuard guard;
    GuiSkin::DEFAULT().disabledText = {11, 12, 13};
    auto* control = new SkinnableMixin<wxTextCtrl>(panel, wxID_ANY, "text");
    GuiSkin::DEFAULT().disabledText = {21, 22, 23};
    EXPECT_EQ(control->skin().disabledText, (RgbBytes{11, 12, 13}));
    EXPECT_EQ(control->GetValue(), "text");
}

TEST_F(SkinnableMixinTest, applySkin_storesItAndSetsTwoColours)
{
    auto* control = new SkinnableMixin<wxTextCtrl>(panel, wxID_ANY);
    ISkinnable& skinnable = *control;
    skinnable.applySkin(someSkin());
    EXPECT_EQ(control->skin(), someSkin());
    EXPECT_EQ(control->GetBackgroundColour(), wxColour(4, 5, 6));
    EXPECT_EQ(control->GetForegroundColour(), wxColour(1, 2, 3));
}

TEST_F(SkinnableMixinTest, theControlIsTheFirstBase)
{
    using Mixin = SkinnableMixin<wxTextCtrl>;
    static_assert(std::is_base_of_v<wxTextCtrl, Mixin> && std::is_base_of_v<ISkinnable, Mixin>);
    static_assert(std::is_base_of_v<Polymorphic, ISkinnable> && std::has_virtual_destructor_v<ISkinnable>);
    auto* control = new Mixin(panel, wxID_ANY);
    EXPECT_EQ(static_cast<void*>(static_cast<wxTextCtrl*>(control)), static_cast<void*>(control));
}
