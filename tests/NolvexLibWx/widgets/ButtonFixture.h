// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/widgets/Button.h"
#include "support/FrameFixture.h"
#include "support/Gestures.h"
#include "support/Screen.h"

#include <string>
#include <vector>

/// A frame with a panel for buttons, and what they reported.
namespace Nolvex::Tests {

using Wx::Button;
using Wx::GuiSkin;

inline constexpr auto PUSH = Button::Behavior::PUSH;
inline constexpr auto TOGGLE = Button::Behavior::TOGGLE;
inline constexpr Flags<OskaBorderState> ENABLED = OskaBorderState::ENABLED;
inline const wxSize BUTTON_SIZE(120, 24);
inline const wxPoint INSIDE(60, 12);
inline const wxPoint OUTSIDE(60, 60);

inline GuiSkin testSkin()
{
    GuiSkin skin;
    skin.text = {250, 250, 0};
    skin.background = {10, 20, 30};
    skin.accentText = {0, 250, 250};
    skin.accent = {40, 50, 60};
    skin.pressedBackground = {70, 80, 90};
    return skin;
}

// The reports of a button, in their order.
struct Reports
{
    std::vector<std::string> entries;
    wxPoint position{-1, -1};
    int id = 0;
    wxObject* object = nullptr;
};

struct ButtonFixture : FrameFixture
{
    Reports reports;

    ButtonFixture()
    {
        // On GTK only a window that has been shown can capture the mouse.
        showFrame();
        panel->Bind(wxEVT_BUTTON, [this](wxEvent& event) {
            reports.entries.emplace_back("event");
            reports.id = event.GetId();
            reports.object = event.GetEventObject();
            reports.position = static_cast<wxMouseEvent&>(event).GetPosition();
        });
    }

    Button* make(const wxString& label = L"Label", Button::Behavior behavior = PUSH, bool enabled = true,
                 Flags<OskaBorderState> border = ENABLED)
    {
        auto* button = new Button(
            panel, testSkin(), 17, label, wxBitmap(), wxBitmap(),
            [this] { reports.entries.emplace_back("callback"); }, behavior, enabled, border);
        button->SetSize(wxRect(wxPoint(20, 20), BUTTON_SIZE));
        return button;
    }

    void show() const { showFrame(); }

    RgbBytes shownBackground(Button* button) const { return pixelAt(captureClientArea(button), 5, 5); }
};

using Entries = std::vector<std::string>;

inline void sendLeft(Button* button, wxEventType type, const wxPoint& position = INSIDE)
{
    wxMouseEvent event(type);
    event.SetPosition(position);
    event.SetEventObject(button);
    button->GetEventHandler()->ProcessEvent(event);
}

inline void pressAndRelease(Button* button, const wxPoint& releasedAt = INSIDE)
{
    sendLeft(button, wxEVT_LEFT_DOWN);
    sendLeft(button, wxEVT_LEFT_UP, releasedAt);
}

} // namespace Nolvex::Tests
