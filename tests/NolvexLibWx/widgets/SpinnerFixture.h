// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/widgets/Spinner.h"
#include "support/FrameFixture.h"
#include "support/Gestures.h"

#include <wx/spinctrl.h>

#include <string>
#include <vector>

/// A frame for one spinner, and what the spinner reported.
namespace Nolvex::Tests {

/// A spinner whose parts and clock the test reaches.
struct OpenSpinner : Wx::Spinner
{
    using Spinner::downArrow;
    using Spinner::repeatTimer;
    using Spinner::Spinner;
    using Spinner::textField;
    using Spinner::upArrow;
};

struct SpinnerFixture : FrameFixture
{
    wxWeakRef<OpenSpinner> spinner;
    std::vector<std::string> reports;

    SpinnerFixture()
    {
        showFrame();
        panel->Bind(Wx::CUSTSPINNER_START_EDITING,
                    [this](wxActivateEvent& event) { report("start", event.GetActive()); });
        panel->Bind(Wx::CUSTSPINNER_END_EDITING,
                    [this](wxActivateEvent& event) { report("end", !event.GetActive()); });
        panel->Bind(Wx::CUSTSPINNER_TEXT_FOCUS_GET, [this](wxFocusEvent&) { report("focus", true); });
        panel->Bind(Wx::CUSTSPINNER_TEXT_FOCUS_LOST, [this](wxFocusEvent&) { report("blur", true); });
        panel->Bind(wxEVT_SPINCTRLDOUBLE, [this](wxSpinDoubleEvent& event) {
            reports.push_back("value " + std::to_string(event.GetValue()));
        });
    }

    OpenSpinner* make(float minValue = 0, float maxValue = 10, float defaultValue = 1, int precision = 2,
                      float step = 1)
    {
        spinner = new OpenSpinner(panel, 21, 60, minValue, maxValue, defaultValue, precision, step);
        spinner->SetPosition(wxPoint(40, 60));
        pumpUntil([this] { return spinner->IsShownOnScreen(); });
        return spinner;
    }

    std::string text() const { return std::string(spinner->textField()->GetValue().utf8_str()); }

    void typeText(const wxString& typed) const { spinner->textField()->ChangeValue(typed); }

    void pressEnter() const { sendCommand(wxEVT_TEXT_ENTER); }

    void sendCommand(wxEventType type) const
    {
        wxCommandEvent event(type, spinner->textField()->GetId());
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

    void tick() const
    {
        wxTimerEvent event(spinner->repeatTimer());
        spinner->GetEventHandler()->ProcessEvent(event);
    }

    std::vector<std::string> takeReports() { return std::exchange(reports, {}); }

private:
    void report(const char* what, bool expected) { reports.emplace_back(expected ? what : "wrong state"); }
};

using Reports = std::vector<std::string>;

} // namespace Nolvex::Tests
