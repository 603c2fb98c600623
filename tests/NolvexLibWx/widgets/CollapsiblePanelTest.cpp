// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/CollapsiblePanel.h"

#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/FontSetup.h"
#include "NolvexLibWx/widgets/StaticLine.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "support/Gestures.h"
#include "support/Screen.h"
#include "support/TickSkin.h"

#include <wx/collpane.h>
#include <wx/frame.h>
#include <wx/panel.h>
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

struct CollapsiblePanelTest : testing::Test
{
    wxFrame* frame = new wxFrame(nullptr, wxID_ANY, "collapsible", wxPoint(100, 100), wxSize(400, 300));
    wxPanel* parent = new wxPanel(frame);
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

    ~CollapsiblePanelTest() override { Tests::destroyNow(frame); }

    wxWindow* filler(const wxSize& size) const
    {
        auto* window = new wxPanel(parent);
        window->SetMinSize(size);
        return window;
    }

    /// New, and with its width.
    CollapsiblePanel* make(bool withExtra = false, wxSize labelSize = wxDefaultSize)
    {
        content = filler(CONTENT);
        extra = withExtra ? filler(EXTRA) : nullptr;
        auto* panel = new CollapsiblePanel(parent, Tests::tickSkin(), L"Some label", content, extra,
                                           CONTENT_BORDER, labelSize);
        panel->SetSize(20, 20, WIDTH, panel->GetBestSize().y);
        return panel;
    }

    /// With a callback, and nothing reported yet.
    CollapsiblePanel* listened(bool withExtra = false)
    {
        CollapsiblePanel* panel = make(withExtra);
        panel->setToggleCallback([this, panel](bool collapsed) {
            reports.push_back(collapsed ? "callback 1" : "callback 0");
            EXPECT_EQ(panel->isCollapsed(), collapsed);
            EXPECT_EQ(panel->GetSize(), wxSize(WIDTH, panel->GetBestSize().y)) << "laid out already";
            EXPECT_TRUE(parent->IsFrozen());
        });
        reports.clear();
        return panel;
    }

    CollapsiblePanel* shown(CollapsiblePanel* panel) const
    {
        frame->Show();
        frame->Raise();
        wxUIActionSimulator().MouseMove(5, 5);
        Tests::pumpUntil([this] { return frame->IsActive(); }, 1000);
        Tests::pumpEvents(150);
        return panel;
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

CollapsiblePanel::Tick* tickOf(const CollapsiblePanel* panel)
{
    return child<CollapsiblePanel::Tick>(panel);
}

const Entries COLLAPSED{"callback 1", "event 1"};
const Entries EXPANDED{"callback 0", "event 0"};

} // namespace

TEST_F(CollapsiblePanelTest, construction_collapsesItAndTellsSo)
{
    const CollapsiblePanel* panel = make();
    EXPECT_EQ(reports, (Entries{"event 1"}));
    EXPECT_TRUE(panel->isCollapsed());
    EXPECT_FALSE(content->IsShown());
    EXPECT_FALSE(tickOf(panel)->isExpanded());
    EXPECT_FALSE(parent->IsFrozen());
}

TEST_F(CollapsiblePanelTest, construction_takesContentAndExtraForChildren)
{
    CollapsiblePanel* panel = make(true);
    EXPECT_EQ(content->GetParent(), panel);
    EXPECT_EQ(extra->GetParent(), panel);
    EXPECT_TRUE(extra->IsShown());
    EXPECT_EQ(panel->GetChildren().size(), 5u);
    EXPECT_EQ(make()->GetChildren().size(), 4u);
}

TEST_F(CollapsiblePanelTest, construction_setsStyleColourAndFont)
{
    const CollapsiblePanel* panel = make();
    EXPECT_TRUE(panel->HasFlag(wxTAB_TRAVERSAL));
    EXPECT_TRUE(panel->HasFlag(wxNO_BORDER));
    EXPECT_EQ(panel->GetForegroundColour(), wxColour(210, 220, 230));
    const auto* label = child<StaticText>(panel);
    EXPECT_EQ(label->GetForegroundColour(), wxColour(210, 220, 230));
    EXPECT_EQ(label->GetFont(), Wx::setupStaticTextFont(label->GetFont(), Wx::TextFlag::BOLD));
    EXPECT_EQ(child<StaticLine>(panel)->orientation(), wxHORIZONTAL);
}

TEST_F(CollapsiblePanelTest, label_isTheHeaders)
{
    CollapsiblePanel* panel = make();
    EXPECT_EQ(panel->GetLabel(), "Some label");
    panel->SetLabel("Another & more");
    EXPECT_EQ(panel->GetLabel(), "Another & more");
    EXPECT_EQ(child<StaticText>(panel)->GetLabel(), "Another & more");
    EXPECT_EQ(tickOf(panel)->GetLabel(), "Another & more");
}

TEST_F(CollapsiblePanelTest, toggleCollapsed_callsBackAndThenTellsTheParents)
{
    CollapsiblePanel* panel = listened();
    panel->toggleCollapsed();
    EXPECT_EQ(taken(), EXPANDED);
    EXPECT_FALSE(panel->isCollapsed());
    EXPECT_TRUE(content->IsShown());
    EXPECT_TRUE(tickOf(panel)->isExpanded());
    EXPECT_FALSE(parent->IsFrozen());
    panel->toggleCollapsed();
    EXPECT_EQ(taken(), COLLAPSED);
    EXPECT_TRUE(panel->isCollapsed());
    EXPECT_FALSE(tickOf(panel)->isExpanded());
}

TEST_F(CollapsiblePanelTest, setCollapsed_tellsOnlyOfChanges)
{
    CollapsiblePanel* panel = listened();
    panel->setCollapsed(true);
    EXPECT_EQ(taken(), Entries());
    panel->setCollapsed(false);
    EXPECT_EQ(taken(), EXPANDED);
    panel->setCollapsed(false);
    EXPECT_EQ(taken(), Entries());
    panel->setCollapsed(true);
    EXPECT_EQ(taken(), COLLAPSED);
}

TEST_F(CollapsiblePanelTest, withoutCallback_tellsTheParents)
{
    CollapsiblePanel* panel = listened();
    panel->setToggleCallback({});
    panel->toggleCollapsed();
    EXPECT_EQ(taken(), (Entries{"event 0"}));
}

TEST_F(CollapsiblePanelTest, contentShownByTheProgram_isWhatCounts)
{
    CollapsiblePanel* panel = listened();
    content->Show();
    EXPECT_FALSE(panel->isCollapsed());
    panel->toggleCollapsed();
    EXPECT_EQ(taken(), COLLAPSED);
    EXPECT_FALSE(tickOf(panel)->isExpanded());
}

TEST_F(CollapsiblePanelTest, callback_mayToggleOnceMore)
{
    CollapsiblePanel* panel = listened();
    panel->setToggleCallback([panel](bool collapsed) {
        if (!collapsed)
            panel->setCollapsed(true);
    });
    panel->toggleCollapsed();
    EXPECT_TRUE(panel->isCollapsed());
    EXPECT_FALSE(parent->IsFrozen());
}

TEST_F(CollapsiblePanelTest, clickOnTickOrLabel_toggles)
{
    CollapsiblePanel* panel = shown(listened());
    Tests::pressMouseAt(tickOf(panel), {4, 4});
    EXPECT_EQ(taken(), Entries()) << "not before it is released";
    Tests::releaseMouse();
    EXPECT_EQ(taken(), EXPANDED);
    Tests::clickAt(child<StaticText>(panel), {10, 5});
    EXPECT_EQ(taken(), COLLAPSED);
    Tests::clickAt(child<StaticText>(panel), {WIDTH - 40, 5});
    EXPECT_EQ(taken(), EXPANDED) << "right of the text too";
}

TEST_F(CollapsiblePanelTest, doubleClick_togglesTwice)
{
    CollapsiblePanel* panel = shown(listened());
    Tests::moveMouse(tickOf(panel), {4, 4});
    wxUIActionSimulator().MouseDblClick();
    Tests::pumpUntil([this] { return reports.size() == 4; });
    EXPECT_EQ(taken(), (Entries{"callback 0", "event 0", "callback 1", "event 1"}));
}

TEST_F(CollapsiblePanelTest, clickElsewhere_doesNothing)
{
    CollapsiblePanel* panel = listened(true);
    panel->setCollapsed(false);
    shown(panel);
    reports.clear();
    Tests::clickAt(extra, {10, 10});
    Tests::clickAt(content, {10, 10});
    Tests::clickAt(child<StaticLine>(panel), {10, 1});
    EXPECT_EQ(taken(), Entries());
}

TEST_F(CollapsiblePanelTest, disabled_doesNothing)
{
    CollapsiblePanel* panel = shown(listened());
    panel->Disable();
    Tests::clickAt(tickOf(panel), {4, 4});
    Tests::clickAt(child<StaticText>(panel), {10, 5});
    EXPECT_EQ(taken(), Entries());
}

TEST_F(CollapsiblePanelTest, toggling_keepsTheWidthAndTakesTheBestHeight)
{
    CollapsiblePanel* panel = make();
    const int low = panel->GetSize().y;
    panel->toggleCollapsed();
    EXPECT_EQ(panel->GetSize(), wxSize(WIDTH, low + CONTENT.y + 2 * CONTENT_BORDER));
    EXPECT_EQ(panel->GetSize().y, panel->GetBestSize().y);
    panel->SetSize(WIDTH + 30, 400);
    panel->toggleCollapsed();
    EXPECT_EQ(panel->GetSize(), wxSize(WIDTH + 30, low));
}

TEST_F(CollapsiblePanelTest, toggling_laysTheParentOut)
{
    CollapsiblePanel* panel = make();
    wxWindow* below = filler({10, 10});
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(panel, wxSizerFlags().Expand());
    sizer->Add(below);
    parent->SetSizer(sizer);
    parent->SetSize(300, 250);
    parent->Layout();
    const int before = below->GetPosition().y;
    panel->toggleCollapsed();
    EXPECT_EQ(below->GetPosition().y, before + CONTENT.y + 2 * CONTENT_BORDER);
    panel->toggleCollapsed();
    EXPECT_EQ(below->GetPosition().y, before);
}

TEST_F(CollapsiblePanelTest, rule_isShownUnderTheLabelAndNotUnderTheTick)
{
    CollapsiblePanel* panel = make();
    panel->SetBackgroundColour(*wxWHITE);
    shown(panel);
    const wxImage image = Tests::captureClientArea(panel);
    const wxRect rule = child<StaticLine>(panel)->GetRect();
    EXPECT_EQ(Tests::pixelAt(image, rule.x - 1, rule.y), (RgbBytes{255, 255, 255}));
    for (const int x : {rule.x, WIDTH - 1}) {
        EXPECT_EQ(Tests::pixelAt(image, x, rule.y), (RgbBytes{37, 37, 37}));
        EXPECT_EQ(Tests::pixelAt(image, x, rule.y + 1), (RgbBytes{100, 100, 100}));
    }
    EXPECT_EQ(Tests::pixelAt(image, rule.x, rule.y + 2), (RgbBytes{255, 255, 255}));
}

TEST_F(CollapsiblePanelTest, tick_showsTheState)
{
    CollapsiblePanel* panel = make();
    panel->SetBackgroundColour(*wxWHITE);
    shown(panel);
    const wxSize size = tickOf(panel)->GetClientSize();
    const wxPoint topRight(size.x - 2, 0);
    const wxPoint middle(size.x / 2, size.y / 2);
    wxImage image = Tests::captureClientArea(tickOf(panel));
    EXPECT_EQ(Tests::pixelAt(image, middle.x, middle.y), Tests::TICK_FILL);
    EXPECT_EQ(Tests::pixelAt(image, topRight.x, topRight.y), (RgbBytes{255, 255, 255}));
    panel->toggleCollapsed();
    Tests::pumpEvents(150);
    image = Tests::captureClientArea(tickOf(panel));
    EXPECT_EQ(Tests::pixelAt(image, middle.x, middle.y), Tests::TICK_FILL);
    EXPECT_EQ(Tests::pixelAt(image, topRight.x, topRight.y), Tests::TICK_OUTLINE);
}

namespace {

// Where everything is to be, from the toolkit's default border.
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
    CollapsiblePanel* panel = make();
    panel->setCollapsed(false);
    ExpectedLayout expected;
    expected.header = std::max(expected.tick, child<StaticText>(panel)->GetBestSize().y);
    const int indent = expected.tick + expected.border;
    EXPECT_EQ(tickOf(panel)->GetRect(),
              wxRect(0, (expected.header - expected.tick) / 2, expected.tick, expected.tick));
    EXPECT_EQ(child<StaticText>(panel)->GetRect(), wxRect(indent, 0, WIDTH - indent, expected.header));
    EXPECT_EQ(child<StaticLine>(panel)->GetRect(), wxRect(indent, expected.ruleTop(), WIDTH - indent, 2));
    EXPECT_EQ(content->GetRect(), wxRect(CONTENT_BORDER, expected.collapsedHeight() + CONTENT_BORDER,
                                         WIDTH - 2 * CONTENT_BORDER, CONTENT.y));
    panel->setCollapsed(true);
    EXPECT_EQ(panel->GetSize(), wxSize(WIDTH, expected.collapsedHeight()));
}

TEST_F(CollapsiblePanelSizeTest, extraWindow_isAtTheRightOfTheHeader)
{
    const CollapsiblePanel* panel = make(true);
    ExpectedLayout expected;
    expected.header = std::max(EXTRA.y, child<StaticText>(panel)->GetBestSize().y);
    const int indent = expected.tick + expected.border;
    EXPECT_EQ(extra->GetRect(), wxRect(WIDTH - EXTRA.x, 0, EXTRA.x, EXTRA.y));
    EXPECT_EQ(child<StaticText>(panel)->GetRect(),
              wxRect(indent, 0, WIDTH - indent - EXTRA.x - expected.border, expected.header));
    EXPECT_EQ(tickOf(panel)->GetPosition(), wxPoint(0, (expected.header - expected.tick) / 2));
    EXPECT_EQ(panel->GetSize().y, expected.collapsedHeight());
}

TEST_F(CollapsiblePanelSizeTest, labelSize_isInDesignUnits)
{
    const CollapsiblePanel* panel = make(false, {90, 30});
    ExpectedLayout expected;
    expected.header = scaleByDpi(30);
    EXPECT_EQ(panel->GetSize().y, expected.collapsedHeight());
    EXPECT_EQ(panel->GetBestSize().x, expected.tick + expected.border + scaleByDpi(90));
}
