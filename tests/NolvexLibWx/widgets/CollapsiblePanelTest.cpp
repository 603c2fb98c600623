// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/CollapsiblePanel.h"

#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/FontSetup.h"
#include "NolvexLibWx/widgets/StaticLine.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "support/FrameFixture.h"
#include "support/Gestures.h"
#include "support/Screen.h"
#include "support/TickSkin.h"

#include <wx/collpane.h>
#include <wx/sizer.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

using namespace Nolvex;
using Wx::CollapsiblePanel;
using Wx::scaleByDpi;
using Wx::StaticLine;
using Wx::StaticText;

namespace {

static_assert(std::is_base_of_v<wxPanel, CollapsiblePanel>);

using Entries = std::vector<std::string>;

constexpr int CONTENT_BORDER = 7;
constexpr int WIDTH = 260;
const wxSize CONTENT(80, 50);
const wxSize EXTRA(30, 40);

struct CollapsiblePanelTest : Tests::FrameFixture
{
    wxPanel* parent = panel;
    Entries reports;
    wxWindow* content = nullptr;
    wxWindow* extra = nullptr;

    CollapsiblePanelTest()
    {
        parent->SetBackgroundColour(*wxWHITE);
        frame->Bind(wxEVT_COLLAPSIBLEPANE_CHANGED, [this](wxCollapsiblePaneEvent& event) {
            reports.push_back(event.GetCollapsed() ? "event 1" : "event 0");
            EXPECT_EQ(event.GetId(), wxID_ANY);
            EXPECT_NE(dynamic_cast<CollapsiblePanel*>(event.GetEventObject()), nullptr);
            EXPECT_TRUE(parent->IsFrozen());
        });
    }

    wxWindow* filler(const wxSize& size) const
    {
        auto* window = new wxPanel(parent);
        window->SetMinSize(size);
        return window;
    }

    /// Makes a collapsed pane of the width.
    CollapsiblePanel* make(bool withExtra = false, wxSize labelSize = wxDefaultSize)
    {
        content = filler(CONTENT);
        extra = withExtra ? filler(EXTRA) : nullptr;
        auto* made = new CollapsiblePanel(parent, Tests::tickSkin(), L"Some label", content, extra,
                                          CONTENT_BORDER, labelSize);
        made->SetSize(20, 20, WIDTH, made->GetBestSize().y);
        return made;
    }

    /// Makes a pane with a callback; nothing has been reported yet.
    CollapsiblePanel* listened(bool withExtra = false)
    {
        CollapsiblePanel* made = make(withExtra);
        made->setToggleCallback([this, made](bool collapsed) {
            reports.push_back(collapsed ? "callback 1" : "callback 0");
            EXPECT_EQ(made->isCollapsed(), collapsed);
            EXPECT_EQ(made->GetSize(), wxSize(WIDTH, made->GetBestSize().y)) << "laid out already";
            EXPECT_TRUE(parent->IsFrozen());
        });
        reports.clear();
        return made;
    }

    CollapsiblePanel* shown(CollapsiblePanel* made) const
    {
        showFrame();
        return made;
    }

    Entries taken() { return std::exchange(reports, {}); }
};

using CollapsiblePanelSizeTest = CollapsiblePanelTest;

template<class Window>
Window* child(const wxWindow* parent)
{
    for (wxWindow* window : parent->GetChildren()) {
        if (auto* found = dynamic_cast<Window*>(window))
            return found;
    }
    return nullptr;
}

CollapsiblePanel::Tick* tickOf(const CollapsiblePanel* pane)
{
    return child<CollapsiblePanel::Tick>(pane);
}

const Entries COLLAPSED{"callback 1", "event 1"};
const Entries EXPANDED{"callback 0", "event 0"};

} // namespace

TEST_F(CollapsiblePanelTest, construction_collapsesItAndTellsSo)
{
    const CollapsiblePanel* pane = make();
    EXPECT_EQ(reports, (Entries{"event 1"}));
    EXPECT_TRUE(pane->isCollapsed());
    EXPECT_FALSE(content->IsShown());
    EXPECT_FALSE(tickOf(pane)->isExpanded());
    EXPECT_FALSE(parent->IsFrozen());
}

TEST_F(CollapsiblePanelTest, construction_takesContentAndExtraForChildren)
{
    CollapsiblePanel* pane = make(true);
    EXPECT_EQ(content->GetParent(), pane);
    EXPECT_EQ(extra->GetParent(), pane);
    EXPECT_TRUE(extra->IsShown());
    EXPECT_EQ(pane->GetChildren().size(), 5u);
    EXPECT_EQ(make()->GetChildren().size(), 4u);
}

TEST_F(CollapsiblePanelTest, construction_setsStyleColourAndFont)
{
    const CollapsiblePanel* pane = make();
    EXPECT_TRUE(pane->HasFlag(wxTAB_TRAVERSAL));
    EXPECT_TRUE(pane->HasFlag(wxNO_BORDER));
    EXPECT_EQ(pane->GetForegroundColour(), wxColour(210, 220, 230));
    const auto* label = child<StaticText>(pane);
    EXPECT_EQ(label->GetForegroundColour(), wxColour(210, 220, 230));
    EXPECT_EQ(label->GetFont(), Wx::setupStaticTextFont(label->GetFont(), Wx::TextFlag::BOLD));
    EXPECT_EQ(child<StaticLine>(pane)->orientation(), wxHORIZONTAL);
}

TEST_F(CollapsiblePanelTest, label_isTheHeaders)
{
    CollapsiblePanel* pane = make();
    EXPECT_EQ(pane->GetLabel(), "Some label");
    pane->SetLabel("Another & more");
    EXPECT_EQ(pane->GetLabel(), "Another & more");
    EXPECT_EQ(child<StaticText>(pane)->GetLabel(), "Another & more");
    EXPECT_EQ(tickOf(pane)->GetLabel(), "Another & more");
}

TEST_F(CollapsiblePanelTest, toggleCollapsed_callsBackAndThenTellsTheParents)
{
    CollapsiblePanel* pane = listened();
    pane->toggleCollapsed();
    EXPECT_EQ(taken(), EXPANDED);
    EXPECT_FALSE(pane->isCollapsed());
    EXPECT_TRUE(content->IsShown());
    EXPECT_TRUE(tickOf(pane)->isExpanded());
    EXPECT_FALSE(parent->IsFrozen());
    pane->toggleCollapsed();
    EXPECT_EQ(taken(), COLLAPSED);
    EXPECT_TRUE(pane->isCollapsed());
    EXPECT_FALSE(tickOf(pane)->isExpanded());
}

TEST_F(CollapsiblePanelTest, setCollapsed_tellsOnlyOfChanges)
{
    CollapsiblePanel* pane = listened();
    pane->setCollapsed(true);
    EXPECT_EQ(taken(), Entries());
    pane->setCollapsed(false);
    EXPECT_EQ(taken(), EXPANDED);
    pane->setCollapsed(false);
    EXPECT_EQ(taken(), Entries());
    pane->setCollapsed(true);
    EXPECT_EQ(taken(), COLLAPSED);
}

TEST_F(CollapsiblePanelTest, withoutCallback_tellsTheParents)
{
    CollapsiblePanel* pane = listened();
    pane->setToggleCallback({});
    pane->toggleCollapsed();
    EXPECT_EQ(taken(), (Entries{"event 0"}));
}

TEST_F(CollapsiblePanelTest, contentShownByTheProgram_isWhatCounts)
{
    CollapsiblePanel* pane = listened();
    content->Show();
    EXPECT_FALSE(pane->isCollapsed());
    pane->toggleCollapsed();
    EXPECT_EQ(taken(), COLLAPSED);
    EXPECT_FALSE(tickOf(pane)->isExpanded());
}

TEST_F(CollapsiblePanelTest, callback_mayToggleOnceMore)
{
    CollapsiblePanel* pane = listened();
    pane->setToggleCallback([pane](bool collapsed) {
        if (!collapsed)
            pane->setCollapsed(true);
    });
    pane->toggleCollapsed();
    EXPECT_TRUE(pane->isCollapsed());
    EXPECT_FALSE(parent->IsFrozen());
}

TEST_F(CollapsiblePanelTest, contentDestroyed_staysCollapsedAndTellsNothing)
{
    for (const bool destroysAll : {false, true}) {
        CollapsiblePanel* pane = shown(listened(true));
        pane->setCollapsed(false);
        reports.clear();
        if (destroysAll)
            pane->DestroyChildren();
        else
            content->Destroy();
        EXPECT_TRUE(pane->isCollapsed());
        pane->setCollapsed(false);
        pane->toggleCollapsed();
        EXPECT_EQ(taken(), Entries());
        pane->Destroy();
    }
}

TEST_F(CollapsiblePanelTest, contentDestroyed_clicksDoNothing)
{
    CollapsiblePanel* pane = shown(listened());
    content->Destroy();
    Tests::clickAt(tickOf(pane), {4, 4});
    Tests::clickAt(child<StaticText>(pane), {10, 5});
    EXPECT_EQ(taken(), Entries());
}

TEST_F(CollapsiblePanelTest, headerDestroyed_theContentStillFolds)
{
    CollapsiblePanel* pane = listened(true);
    EXPECT_TRUE(tickOf(pane)->Destroy());
    EXPECT_TRUE(child<StaticText>(pane)->Destroy());
    EXPECT_TRUE(child<StaticLine>(pane)->Destroy());
    EXPECT_TRUE(extra->Destroy());
    EXPECT_EQ(pane->GetLabel(), wxString());
    pane->SetLabel("Another");
    EXPECT_EQ(pane->GetLabel(), wxString());
    pane->toggleCollapsed();
    EXPECT_TRUE(content->IsShown());
    EXPECT_EQ(taken(), EXPANDED);
}

// The content reports being hidden at once, and being shown sometimes only later.
TEST_F(CollapsiblePanelTest, handlerOfTheHiding_mayDestroyThePanel)
{
    CollapsiblePanel* pane = shown(listened());
    pane->setCollapsed(false);
    Tests::pumpEvents();
    reports.clear();
    const wxWeakRef<CollapsiblePanel> watched(pane);
    // Windows does not bear that a window is destroyed while it tells of its hiding.
    content->Bind(wxEVT_SHOW, [this, pane](wxShowEvent&) {
        content->Reparent(parent);
        pane->Destroy();
    });
    pane->toggleCollapsed();
    EXPECT_FALSE(watched);
    EXPECT_EQ(taken(), Entries());
    EXPECT_FALSE(parent->IsFrozen());
}

TEST_F(CollapsiblePanelTest, clickOnTickOrLabel_toggles)
{
    CollapsiblePanel* pane = shown(listened());
    Tests::pressMouseAt(tickOf(pane), {4, 4});
    EXPECT_EQ(taken(), Entries()) << "not before it is released";
    Tests::releaseMouse();
    EXPECT_EQ(taken(), EXPANDED);
    Tests::clickAt(child<StaticText>(pane), {10, 5});
    EXPECT_EQ(taken(), COLLAPSED);
    Tests::clickAt(child<StaticText>(pane), {WIDTH - 40, 5});
    EXPECT_EQ(taken(), EXPANDED) << "right of the text too";
}

TEST_F(CollapsiblePanelTest, doubleClick_togglesTwice)
{
    CollapsiblePanel* pane = shown(listened());
    Tests::moveMouse(tickOf(pane), {4, 4});
    wxUIActionSimulator().MouseDblClick();
    Tests::pumpUntil([this] { return reports.size() == 4; });
    EXPECT_EQ(taken(), (Entries{"callback 0", "event 0", "callback 1", "event 1"}));
}

TEST_F(CollapsiblePanelTest, clickElsewhere_doesNothing)
{
    CollapsiblePanel* pane = listened(true);
    pane->setCollapsed(false);
    shown(pane);
    reports.clear();
    Tests::clickAt(extra, {10, 10});
    Tests::clickAt(content, {10, 10});
    Tests::clickAt(child<StaticLine>(pane), {10, 1});
    EXPECT_EQ(taken(), Entries());
}

TEST_F(CollapsiblePanelTest, disabled_doesNothing)
{
    CollapsiblePanel* pane = shown(listened());
    pane->Disable();
    Tests::clickAt(tickOf(pane), {4, 4});
    Tests::clickAt(child<StaticText>(pane), {10, 5});
    EXPECT_EQ(taken(), Entries());
}

TEST_F(CollapsiblePanelTest, toggling_keepsTheWidthAndTakesTheBestHeight)
{
    CollapsiblePanel* pane = make();
    const int low = pane->GetSize().y;
    pane->toggleCollapsed();
    EXPECT_EQ(pane->GetSize(), wxSize(WIDTH, low + CONTENT.y + 2 * CONTENT_BORDER));
    EXPECT_EQ(pane->GetSize().y, pane->GetBestSize().y);
    pane->SetSize(WIDTH + 30, 400);
    pane->toggleCollapsed();
    EXPECT_EQ(pane->GetSize(), wxSize(WIDTH + 30, low));
}

TEST_F(CollapsiblePanelTest, toggling_laysTheParentOut)
{
    CollapsiblePanel* pane = make();
    wxWindow* below = filler({10, 10});
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(pane, wxSizerFlags().Expand());
    sizer->Add(below);
    parent->SetSizer(sizer);
    parent->SetSize(300, 250);
    parent->Layout();
    const int before = below->GetPosition().y;
    pane->toggleCollapsed();
    EXPECT_EQ(below->GetPosition().y, before + CONTENT.y + 2 * CONTENT_BORDER);
    pane->toggleCollapsed();
    EXPECT_EQ(below->GetPosition().y, before);
}

TEST_F(CollapsiblePanelTest, rule_isShownUnderTheLabelAndNotUnderTheTick)
{
    CollapsiblePanel* pane = make();
    pane->SetBackgroundColour(*wxWHITE);
    shown(pane);
    const wxImage image = Tests::captureClientArea(pane);
    const wxRect rule = child<StaticLine>(pane)->GetRect();
    EXPECT_EQ(Tests::pixelAt(image, rule.x - 1, rule.y), (RgbBytes{255, 255, 255}));
    for (const int x : {rule.x, WIDTH - 1}) {
        EXPECT_EQ(Tests::pixelAt(image, x, rule.y), (RgbBytes{37, 37, 37}));
        EXPECT_EQ(Tests::pixelAt(image, x, rule.y + 1), (RgbBytes{100, 100, 100}));
    }
    EXPECT_EQ(Tests::pixelAt(image, rule.x, rule.y + 2), (RgbBytes{255, 255, 255}));
}

TEST_F(CollapsiblePanelTest, tick_showsTheState)
{
    CollapsiblePanel* pane = make();
    pane->SetBackgroundColour(*wxWHITE);
    shown(pane);
    const wxSize size = tickOf(pane)->GetClientSize();
    const wxPoint topRight(size.x - 2, 0);
    const wxPoint middle(size.x / 2, size.y / 2);
    wxImage image = Tests::captureClientArea(tickOf(pane));
    EXPECT_EQ(Tests::pixelAt(image, middle.x, middle.y), Tests::TICK_FILL);
    EXPECT_EQ(Tests::pixelAt(image, topRight.x, topRight.y), (RgbBytes{255, 255, 255}));
    pane->toggleCollapsed();
    EXPECT_TRUE(Tests::pumpUntil([&] {
        image = Tests::captureClientArea(tickOf(pane));
        return Tests::pixelAt(image, topRight.x, topRight.y) == Tests::TICK_OUTLINE;
    }));
    EXPECT_EQ(Tests::pixelAt(image, middle.x, middle.y), Tests::TICK_FILL);
}

namespace {

// The expected places, which follow from the default border of wxWidgets' sizers.
struct ExpectedLayout
{
    int border = wxSizerFlags::GetDefaultBorder();
    int tick = scaleByDpi(9);
    int header = 0;

    int ruleTop() const { return header + border / 2; }

    int collapsedHeight() const { return ruleTop() + 2 + border; }
};

} // namespace

TEST_F(CollapsiblePanelSizeTest, parts_areWhereTheyBelong)
{
    CollapsiblePanel* pane = make();
    pane->setCollapsed(false);
    ExpectedLayout expected;
    expected.header = std::max(expected.tick, child<StaticText>(pane)->GetBestSize().y);
    const int indent = expected.tick + expected.border;
    EXPECT_EQ(tickOf(pane)->GetRect(),
              wxRect(0, (expected.header - expected.tick) / 2, expected.tick, expected.tick));
    EXPECT_EQ(child<StaticText>(pane)->GetRect(), wxRect(indent, 0, WIDTH - indent, expected.header));
    EXPECT_EQ(child<StaticLine>(pane)->GetRect(), wxRect(indent, expected.ruleTop(), WIDTH - indent, 2));
    EXPECT_EQ(content->GetRect(), wxRect(CONTENT_BORDER, expected.collapsedHeight() + CONTENT_BORDER,
                                         WIDTH - 2 * CONTENT_BORDER, CONTENT.y));
    pane->setCollapsed(true);
    EXPECT_EQ(pane->GetSize(), wxSize(WIDTH, expected.collapsedHeight()));
}

TEST_F(CollapsiblePanelSizeTest, extraWindow_isAtTheRightOfTheHeader)
{
    const CollapsiblePanel* pane = make(true);
    ExpectedLayout expected;
    expected.header = std::max(EXTRA.y, child<StaticText>(pane)->GetBestSize().y);
    const int indent = expected.tick + expected.border;
    EXPECT_EQ(extra->GetRect(), wxRect(WIDTH - EXTRA.x, 0, EXTRA.x, EXTRA.y));
    EXPECT_EQ(child<StaticText>(pane)->GetRect(),
              wxRect(indent, 0, WIDTH - indent - EXTRA.x - expected.border, expected.header));
    EXPECT_EQ(tickOf(pane)->GetPosition(), wxPoint(0, (expected.header - expected.tick) / 2));
    EXPECT_EQ(pane->GetSize().y, expected.collapsedHeight());
}

TEST_F(CollapsiblePanelSizeTest, labelSize_isInDesignUnits)
{
    const CollapsiblePanel* pane = make(false, {90, 30});
    ExpectedLayout expected;
    expected.header = scaleByDpi(30);
    EXPECT_EQ(pane->GetSize().y, expected.collapsedHeight());
    EXPECT_EQ(pane->GetBestSize().x, expected.tick + expected.border + scaleByDpi(90));
}
