// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/ApplySkinRecursive.h"

#include "NolvexLibWx/widgets/SkinnableMixin.h"
#include "NolvexLibWx/widgets/TextButton.h"
#include "support/FrameFixture.h"

#include <wx/panel.h>
#include <wx/textctrl.h>

#include <gtest/gtest.h>

#include <string>

using namespace Nolvex;
using namespace Nolvex::Wx;

namespace {

GuiSkin someSkin()
{
    GuiSkin skin;
    skin.text = {1, 2, 3};
    skin.background = {4, 5, 6};
    skin.link = {7, 8, 9};
    return skin;
}

struct ApplySkinRecursiveTest : Tests::FrameFixture
{};

} // namespace

TEST_F(ApplySkinRecursiveTest, withoutAWindow_doesNothing)
{
    applySkinRecursive(nullptr, someSkin());
}

TEST_F(ApplySkinRecursiveTest, everyWindowOfTheTree_getsBothColours)
{
    auto* inner = new wxPanel(panel);
    auto* control = new wxTextCtrl(inner, wxID_ANY);
    applySkinRecursive(frame, someSkin());
    for (const wxWindow* window : {static_cast<wxWindow*>(frame), static_cast<wxWindow*>(panel),
                                   static_cast<wxWindow*>(inner), static_cast<wxWindow*>(control)}) {
        EXPECT_EQ(window->GetBackgroundColour(), wxColour(4, 5, 6));
        EXPECT_EQ(window->GetForegroundColour(), wxColour(1, 2, 3));
    }
}

TEST_F(ApplySkinRecursiveTest, noWindow_isIgnored)
{
    applySkinRecursive(nullptr, someSkin());
    EXPECT_NE(panel->GetBackgroundColour(), wxColour(4, 5, 6));
}

TEST_F(ApplySkinRecursiveTest, windowWithoutChildren_isTheOnlyOneTouched)
{
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

namespace {

void sendMouse(wxWindow* window, wxEventType type)
{
    wxMouseEvent event(type);
    event.SetEventObject(window);
    window->GetEventHandler()->ProcessEvent(event);
}

TextButton* textButton(wxWindow* parent)
{
    auto* button = new TextButton(parent, wxID_ANY, L"link", Function<void()>());
    button->setNormalColour(wxColour(90, 91, 92));
    button->setHoverColour(wxColour(93, 94, 95));
    button->setVisitedColour(wxColour(96, 97, 98));
    return button;
}

} // namespace

TEST_F(ApplySkinRecursiveTest, textButton_showsTheLinkColourHoveredOrNot)
{
    TextButton* button = textButton(new wxPanel(frame));
    applySkinRecursive(frame, someSkin());
    EXPECT_EQ(button->GetForegroundColour(), wxColour(7, 8, 9));
    EXPECT_EQ(button->GetBackgroundColour(), wxColour(4, 5, 6));
    sendMouse(button, wxEVT_ENTER_WINDOW);
    EXPECT_EQ(button->GetForegroundColour(), wxColour(7, 8, 9));
    sendMouse(button, wxEVT_LEAVE_WINDOW);
    EXPECT_EQ(button->GetForegroundColour(), wxColour(7, 8, 9));
}

TEST_F(ApplySkinRecursiveTest, textButtonThatIsHovered_showsTheLinkColourAtOnce)
{
    TextButton* button = textButton(frame);
    sendMouse(button, wxEVT_ENTER_WINDOW);
    applySkinRecursive(frame, someSkin());
    EXPECT_EQ(button->GetForegroundColour(), wxColour(7, 8, 9));
}

TEST_F(ApplySkinRecursiveTest, textButton_keepsItsVisitedColour)
{
    TextButton* button = textButton(frame);
    applySkinRecursive(frame, someSkin());
    button->setVisited(true);
    EXPECT_EQ(button->GetForegroundColour(), wxColour(96, 97, 98));
    button->setVisited(false);
    EXPECT_EQ(button->GetForegroundColour(), wxColour(7, 8, 9));
}
