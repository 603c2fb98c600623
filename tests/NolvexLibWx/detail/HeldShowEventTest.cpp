// SPDX-License-Identifier: MIT
#include "NolvexLibWx/detail/HeldShowEvent.h"

#include "support/FrameFixture.h"

#include <string>
#include <utility>
#include <vector>

using namespace Nolvex;
using Wx::Detail::isHeldShowEvent;
using Wx::Detail::showAndHoldEvent;
using Wx::Detail::ShowEventTime;

namespace {

/// A panel whose Show sends wxEVT_SHOW in its middle, as the Show of popup windows does.
class HoldingPanel : public wxPanel
{
public:
    explicit HoldingPanel(wxWindow* parent) : wxPanel(parent)
    {
        Bind(wxEVT_SHOW, &HoldingPanel::onShow, this);
    }

    // Windows hides a window that is being destroyed, when the steps are gone already.
    ~HoldingPanel() override { Unbind(wxEVT_SHOW, &HoldingPanel::onShow, this); }

    bool showHolding(bool show, ShowEventTime time)
    {
        return showAndHoldEvent(
            *this, show, m_holdsEvent, [this](bool shows) { return showBase(shows); }, time);
    }

    std::vector<std::string> steps;

private:
    bool TryBefore(wxEvent& event) override
    {
        return isHeldShowEvent(*this, m_holdsEvent, event) || wxPanel::TryBefore(event);
    }

    void onShow(wxShowEvent& event)
    {
        steps.push_back(event.IsShown() ? "shown" : "hidden");
        EXPECT_FALSE(m_holdsEvent);
        EXPECT_EQ(event.GetEventObject(), this);
        EXPECT_EQ(event.GetId(), GetId());
    }

    bool showBase(bool show)
    {
        steps.push_back("base begins");
        wxShowEvent tooEarly(GetId(), show);
        tooEarly.SetEventObject(this);
        HandleWindowEvent(tooEarly);
        wxCommandEvent other(wxEVT_BUTTON, GetId());
        other.SetEventObject(this);
        HandleWindowEvent(other);
        const bool changed = show != m_shown;
        m_shown = show;
        steps.push_back("base ends");
        return changed;
    }

    bool m_holdsEvent = false;
    bool m_shown = true;
};

struct HeldShowEventTest : Tests::FrameFixture
{
    wxWeakRef<HoldingPanel> held = new HoldingPanel(panel);
};

} // namespace

TEST_F(HeldShowEventTest, eventOfTheBase_comesWhenTheBaseIsDone)
{
    EXPECT_TRUE(held->showHolding(false, ShowEventTime::NOW));
    EXPECT_EQ(held->steps, (std::vector<std::string>{"base begins", "base ends", "hidden"}));
    held->steps.clear();
    EXPECT_TRUE(held->showHolding(true, ShowEventTime::NOW));
    EXPECT_EQ(held->steps, (std::vector<std::string>{"base begins", "base ends", "shown"}));
}

TEST_F(HeldShowEventTest, showThatChangesNothing_sendsNothing)
{
    EXPECT_FALSE(held->showHolding(true, ShowEventTime::NOW));
    EXPECT_FALSE(held->showHolding(true, ShowEventTime::LATER));
    Tests::pumpEvents();
    EXPECT_EQ(held->steps,
              (std::vector<std::string>{"base begins", "base ends", "base begins", "base ends"}));
}

TEST_F(HeldShowEventTest, laterEvent_comesFromTheEventLoop)
{
    EXPECT_TRUE(held->showHolding(false, ShowEventTime::LATER));
    EXPECT_EQ(held->steps.back(), "base ends");
    EXPECT_TRUE(Tests::pumpUntil([this] { return held->steps.back() == "hidden"; }));
    EXPECT_EQ(held->steps.size(), 3u);
}

TEST_F(HeldShowEventTest, windowDestroyedByItsHandler_isNotUsedAgain)
{
    bool isDestroyed = false;
    held->Bind(wxEVT_SHOW, [this, &isDestroyed](wxShowEvent&) {
        // Windows hides a window that is being destroyed, which makes another event.
        if (!std::exchange(isDestroyed, true))
            delete held.get();
    });
    EXPECT_TRUE(held->showHolding(false, ShowEventTime::NOW));
    EXPECT_FALSE(held);
}

TEST_F(HeldShowEventTest, windowDestroyedBeforeALaterEvent_getsNone)
{
    EXPECT_TRUE(held->showHolding(false, ShowEventTime::LATER));
    delete held.get();
    Tests::pumpEvents();
    EXPECT_FALSE(held);
}

TEST_F(HeldShowEventTest, otherEvents_areNotHeld)
{
    int clicks = 0;
    held->Bind(wxEVT_BUTTON, [&clicks](wxCommandEvent&) { ++clicks; });
    held->showHolding(false, ShowEventTime::NOW);
    EXPECT_EQ(clicks, 1);
}

TEST_F(HeldShowEventTest, isHeldShowEvent_meansTheEventOfTheWindowItself)
{
    wxShowEvent own(held->GetId(), true);
    own.SetEventObject(held);
    EXPECT_TRUE(isHeldShowEvent(*held, true, own));
    EXPECT_FALSE(isHeldShowEvent(*held, false, own));
    // The events of a child come to its parent, too.
    wxShowEvent ofAnother(held->GetId(), true);
    ofAnother.SetEventObject(panel);
    EXPECT_FALSE(isHeldShowEvent(*held, true, ofAnother));
}
