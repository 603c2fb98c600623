// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLibWx/widgets/DropdownButton.h"
#include "support/FrameFixture.h"
#include "support/Gestures.h"

#include <utility>

namespace Nolvex::Tests {

constexpr auto PUSH = Wx::DropdownButton::Behavior::PUSH;
constexpr auto TOGGLE = Wx::DropdownButton::Behavior::TOGGLE;
constexpr auto SWAP = Wx::DropdownButton::Behavior::SWAP;
constexpr int HELD = 400; // milliseconds, more than it takes to open

/// A frame with a button that reports the labels of its choices when they are made.
struct DropdownButtonFixture : FrameFixture
{
    Array<wxString> reports;
    wxWeakRef<Wx::DropdownButton> button;

    void make(Wx::DropdownButton::Behavior behavior = PUSH,
              const Array<wxString>& labels = {L"one", L"two", L"three"}, bool enabled = true)
    {
        Array<int> ids;
        Array<Function<void()>> callbacks;
        for (const wxString& label : labels) {
            ids.push_back(static_cast<int>(ids.size()) + 30);
            callbacks.emplace_back([this, label] { reports.push_back(label); });
        }
        button = new Wx::DropdownButton(panel, Wx::GuiSkin::DEFAULT(), ids, labels, {}, {}, callbacks,
                                        behavior, enabled);
        button->SetSize(wxRect(wxPoint(20, 20), button->GetMinSize()));
    }

    /// A swapping button whose second choice calls `callback`.
    void makeWithCallback(Function<void()> callback)
    {
        button = new Wx::DropdownButton(panel, Wx::GuiSkin::DEFAULT(), {1, 2}, {L"one", L"two"}, {}, {},
                                        {Function<void()>(), std::move(callback)}, SWAP, true);
        button->SetSize(wxRect(wxPoint(20, 20), button->GetMinSize()));
    }

    wxFrame* popup() const { return wxDynamicCast(button->GetChildren().GetFirst()->GetData(), wxFrame); }

    Wx::Button* item(std::size_t index) const
    {
        return dynamic_cast<Wx::Button*>(popup()->GetChildren().Item(index)->GetData());
    }

    bool isMarked(std::size_t index) const
    {
        return item(index)->borderState().has(OskaBorderState::HOVERED);
    }

    wxPoint centre() const { return {button->GetSize().x / 2, button->GetSize().y / 2}; }

    // Returns the point, in the button's coordinates, that lies over an item of the open popup.
    wxPoint over(std::size_t index) const
    {
        const wxRect rect = item(index)->GetScreenRect();
        return button->ScreenToClient(wxPoint(rect.x + rect.width / 2, rect.y + rect.height / 2));
    }

    void holdUntilOpen() const
    {
        pressMouseAt(button, centre());
        ASSERT_TRUE(pumpUntil([this] { return popup()->IsShown(); }, 2000));
        pumpEvents();
    }

    bool hides() const
    {
        return pumpUntil([this] { return !popup()->IsShown(); }, 2000);
    }

    void choose(std::size_t index) const
    {
        holdUntilOpen();
        moveMouse(button, over(index));
        releaseMouse();
    }
};

} // namespace Nolvex::Tests
