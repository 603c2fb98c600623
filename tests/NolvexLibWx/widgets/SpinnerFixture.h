// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/widgets/Spinner.h"
#include "support/DecimalPoint.h"
#include "support/FrameFixture.h"
#include "support/Gestures.h"

#include <wx/spinctrl.h>

#include <string>
#include <utility>
#include <vector>

namespace Nolvex::Tests {

/// Gives tests access to the parts and the clock of a spinner.
struct OpenSpinner : Wx::Spinner
{
    using Spinner::downArrow;
    using Spinner::repeatTimer;
    using Spinner::Spinner;
    using Spinner::textField;
    using Spinner::upArrow;
};

using Reports = std::vector<std::string>;

/// A shown frame with a spinner and a list of the events that the parent of the spinner has received.
struct SpinnerFixture : FrameFixture
{
    static constexpr int ID = 21;

    const DecimalPoint point;
    wxWeakRef<OpenSpinner> spinner;
    Reports reports;

    SpinnerFixture()
    {
        showFrame();
        // At the edge of a monitor, even a motion that a test makes up would wrap.
        wxUIActionSimulator().MouseMove(panel->ClientToScreen(wxPoint(250, 200)));
        panel->Bind(Wx::CUSTSPINNER_START_EDITING,
                    [this](wxActivateEvent& event) { report(event, event.GetActive() ? "start" : "wrong"); });
        panel->Bind(Wx::CUSTSPINNER_END_EDITING,
                    [this](wxActivateEvent& event) { report(event, event.GetActive() ? "wrong" : "end"); });
        panel->Bind(Wx::CUSTSPINNER_TEXT_FOCUS_GET, [this](wxFocusEvent& event) { report(event, "focus"); });
        panel->Bind(Wx::CUSTSPINNER_TEXT_FOCUS_LOST, [this](wxFocusEvent& event) { report(event, "blur"); });
        panel->Bind(wxEVT_SPINCTRLDOUBLE, [this](wxSpinDoubleEvent& event) {
            report(event, "value " + std::to_string(event.GetValue()));
        });
    }

    template<class Spinner = OpenSpinner>
    Spinner* make(float minValue = 0, float maxValue = 10, float defaultValue = 1, int precision = 2,
                  float step = 1)
    {
        auto* made = new Spinner(panel, ID, 60, minValue, maxValue, defaultValue, precision, step);
        made->SetPosition(wxPoint(40, 60));
        spinner = made;
        return made;
    }

    std::string text() const { return std::string(spinner->textField()->GetValue().utf8_str()); }

    void focus() const
    {
        spinner->SetFocus();
        ASSERT_TRUE(pumpUntil([this] { return spinner->textField()->HasFocus(); }));
    }

    void typeText(const wxString& typed) const { spinner->textField()->ChangeValue(typed); }

    void pressEnter() const
    {
        wxCommandEvent event(wxEVT_TEXT_ENTER, spinner->textField()->GetId());
        event.SetEventObject(spinner->textField());
        spinner->textField()->GetEventHandler()->ProcessEvent(event);
    }

    static void sendMouse(wxWindow* arrow, wxEventType type, int y = 4)
    {
        wxMouseEvent event(type);
        event.SetPosition(wxPoint(5, y));
        event.SetEventObject(arrow);
        event.SetId(arrow->GetId());
        arrow->GetEventHandler()->ProcessEvent(event);
    }

    static void click(wxWindow* arrow)
    {
        sendMouse(arrow, wxEVT_LEFT_DOWN);
        sendMouse(arrow, wxEVT_LEFT_UP);
    }

    /// Lets the time of the timer pass.
    void tick() const
    {
        wxTimerEvent event(spinner->repeatTimer());
        spinner->GetEventHandler()->ProcessEvent(event);
    }

    Reports takeReports() { return std::exchange(reports, {}); }

    bool comesTo(const Reports& expected)
    {
        return pumpUntil([&] { return reports == expected; });
    }

private:
    void report(const wxEvent& event, const std::string& what)
    {
        EXPECT_EQ(event.GetId(), +ID);
        EXPECT_EQ(event.GetEventObject(), spinner.get());
        reports.push_back(what);
    }
};

} // namespace Nolvex::Tests
