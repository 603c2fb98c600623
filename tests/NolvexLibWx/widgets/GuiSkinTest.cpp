// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/GuiSkin.h"

#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/widgets/ApplySkinRecursive.h"
#include "NolvexLibWx/widgets/SkinnableMixin.h"
#include "support/Events.h"
#include "support/Screen.h"

#include <wx/frame.h>
#include <wx/panel.h>
#include <wx/textctrl.h>

#include <gtest/gtest.h>

#include <cstring>
#include <type_traits>

using namespace Nolvex;
using namespace Nolvex::Wx;

namespace {

// Gives the default skin back as it was found.
struct DefaultSkinGuard
{
    GuiSkin before = GuiSkin::DEFAULT();

    ~DefaultSkinGuard() { GuiSkin::DEFAULT() = before; }
};

// Read by a static constructor: constant data is there before any code runs.
const RgbBytes g_linkDuringStaticConstruction = GuiSkin::DEFAULT().link;

struct FrameFixture : testing::Test
{
    wxFrame* frame = new wxFrame(nullptr, wxID_ANY, "skin");

    ~FrameFixture() override { Tests::destroyNow(frame); }
};

using ApplySkinRecursiveTest = FrameFixture;
using SkinnableMixinTest = FrameFixture;

GuiSkin someSkin()
{
    GuiSkin skin;
    skin.text = {1, 2, 3};
    skin.background = {4, 5, 6};
    return skin;
}

} // namespace

TEST(GuiSkinTest, defaultSkin_hasTheNineColoursInOrder)
{
    const RgbBytes expected[9] = {{200, 200, 200}, {110, 110, 110}, {68, 68, 68},   {37, 37, 37}, {0, 0, 0},
                                  {95, 138, 193},  {0, 73, 112},    {81, 167, 241}, {0, 114, 188}};
    const GuiSkin& skin = GuiSkin::DEFAULT();
    static_assert(sizeof skin == sizeof expected);
    EXPECT_EQ(std::memcmp(&skin, expected, sizeof expected), 0);
    EXPECT_EQ(skin.text, expected[0]);
    EXPECT_EQ(skin.disabledText, expected[1]);
    EXPECT_EQ(skin.background, expected[2]);
    EXPECT_EQ(skin.darkBackground, expected[3]);
    EXPECT_EQ(skin.accentText, expected[4]);
    EXPECT_EQ(skin.accent, expected[5]);
    EXPECT_EQ(skin.pressedBackground, expected[6]);
    EXPECT_EQ(skin.link, expected[7]);
    EXPECT_EQ(skin.highlight, expected[8]);
}

TEST(GuiSkinTest, defaultSkin_isThereBeforeAnyConstructorRuns)
{
    EXPECT_EQ(g_linkDuringStaticConstruction, (RgbBytes{81, 167, 241}));
}

TEST(GuiSkinTest, defaultSkin_isOneMutableInstance)
{
    const DefaultSkinGuard guard;
    GuiSkin::DEFAULT().accent = {9, 8, 7};
    EXPECT_EQ(GuiSkin::DEFAULT().accent, (RgbBytes{9, 8, 7}));
    EXPECT_EQ(&GuiSkin::DEFAULT(), &GuiSkin::DEFAULT());
}

TEST_F(SkinnableMixinTest, construction_copiesTheDefaultSkin)
{
    const DefaultSkinGuard guard;
    GuiSkin::DEFAULT().disabledText = {11, 12, 13};
    auto* control = new SkinnableMixin<wxTextCtrl>(frame, wxID_ANY, "text");
    GuiSkin::DEFAULT().disabledText = {21, 22, 23};
    EXPECT_EQ(control->skin().disabledText, (RgbBytes{11, 12, 13}));
    EXPECT_EQ(control->GetValue(), "text");
}

TEST_F(SkinnableMixinTest, applySkin_storesItAndSetsTwoColours)
{
    auto* control = new SkinnableMixin<wxTextCtrl>(frame, wxID_ANY);
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
    auto* control = new Mixin(frame, wxID_ANY);
    EXPECT_EQ(static_cast<void*>(static_cast<wxTextCtrl*>(control)), static_cast<void*>(control));
}

TEST_F(ApplySkinRecursiveTest, everyWindowOfTheTree_getsBothColours)
{
    auto* panel = new wxPanel(frame);
    auto* inner = new wxPanel(panel);
    auto* control = new wxTextCtrl(inner, wxID_ANY);
    applySkinRecursive(frame, someSkin());
    for (const wxWindow* window : {static_cast<wxWindow*>(frame), static_cast<wxWindow*>(panel),
                                   static_cast<wxWindow*>(inner), static_cast<wxWindow*>(control)}) {
        EXPECT_EQ(window->GetBackgroundColour(), wxColour(4, 5, 6));
        EXPECT_EQ(window->GetForegroundColour(), wxColour(1, 2, 3));
    }
}

TEST_F(ApplySkinRecursiveTest, windowWithoutChildren_isTheOnlyOneTouched)
{
    auto* panel = new wxPanel(frame);
    auto* sibling = new wxPanel(frame);
    const wxColour before = sibling->GetBackgroundColour();
    const wxColour frameBefore = frame->GetBackgroundColour();
    applySkinRecursive(panel, someSkin());
    EXPECT_EQ(panel->GetBackgroundColour(), wxColour(4, 5, 6));
    EXPECT_EQ(sibling->GetBackgroundColour(), before);
    EXPECT_FALSE(sibling->UseBgCol());
    EXPECT_EQ(frame->GetBackgroundColour(), frameBefore);
}

TEST_F(ApplySkinRecursiveTest, parentsComeFirstAndChildrenInTheirOrder)
{
    struct Recorder : wxPanel
    {
        Recorder(wxWindow* parent, const char* label, std::string& order)
            : wxPanel(parent), m_label(label), m_order(order)
        {}

        bool SetBackgroundColour(const wxColour& colour) override
        {
            m_order += m_label + "-back ";
            return wxPanel::SetBackgroundColour(colour);
        }

        bool SetForegroundColour(const wxColour& colour) override
        {
            m_order += m_label + "-fore ";
            return wxPanel::SetForegroundColour(colour);
        }

        std::string m_label;
        std::string& m_order;
    };

    std::string order;
    auto* a = new Recorder(frame, "a", order);
    new Recorder(a, "a1", order);
    new Recorder(a, "a2", order);
    order.clear();
    applySkinRecursive(a, someSkin());
    EXPECT_EQ(order, "a-back a-fore a1-back a1-fore a2-back a2-fore ");
}

TEST_F(ApplySkinRecursiveTest, iSkinnable_isNotCalled)
{
    auto* control = new SkinnableMixin<wxTextCtrl>(frame, wxID_ANY);
    const GuiSkin before = control->skin();
    applySkinRecursive(frame, someSkin());
    EXPECT_EQ(control->skin(), before);
}
