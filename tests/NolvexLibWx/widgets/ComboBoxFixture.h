// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/widgets/ComboBox.h"
#include "NolvexLibWx/widgets/ComboBoxCanvas.h"
#include "support/FrameFixture.h"
#include "support/Gestures.h"

#include <wx/scrolwin.h>

#include <string>

namespace Nolvex::Tests {

/// Returns items with the texts "item 0", "item 1" and so on, whose ids are 100 and above.
inline Array<Wx::ComboBox::Item> manyItems(int count)
{
    Array<Wx::ComboBox::Item> items;
    items.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        items.push_back({.text = L"item " + std::to_wstring(i), .id = 100 + i, .flags = {}});
    return items;
}

/// A frame with a combo box 120 pixels wide, and the record of its events and callbacks.
struct ComboBoxFixture : FrameFixture
{
    using ComboBox = Wx::ComboBox;

    struct Report
    {
        int id;     // of the window
        int index;  // of the item
        long item;  // its id
        int called; // how many calls of the callback came before

        bool operator==(const Report&) const = default;
    };

    Array<Report> events;
    Array<int> calls;
    wxWeakRef<wxWindow> dropdown;
    wxWeakRef<ComboBox> box;

    ComboBoxFixture()
    {
        panel->Bind(wxEVT_COMBOBOX, [this](wxCommandEvent& event) {
            events.push_back(
                {event.GetId(), event.GetInt(), event.GetExtraLong(), static_cast<int>(calls.size())});
        });
    }

    // The box reports its destruction to the members.
    ~ComboBoxFixture() override { destroyFrame(); }

    void make(bool enabled = true)
    {
        box = new ComboBox(
            panel, 7, 120, [this](int id) { calls.push_back(id); },
            [this](wxWindow* window, ComboBox::WindowEvent) { dropdown = window; }, enabled);
        box->Move(20, 20);
    }

    void makeWithItems(int count, int selected = -1)
    {
        make();
        box->setData(manyItems(count));
        box->selectIndex(selected, false);
    }

    /// An event for each of these indices, each followed by a call of the callback.
    void expectSelected(const Array<int>& indices) const
    {
        Array<Report> wanted;
        Array<int> wantedCalls;
        for (const int index : indices) {
            wanted.push_back({7, index, 100 + index, static_cast<int>(wantedCalls.size())});
            wantedCalls.push_back(100 + index);
        }
        EXPECT_TRUE(events == wanted);
        EXPECT_EQ(calls, wantedCalls);
    }

    wxScrolledWindow* scroller() const
    {
        return dynamic_cast<wxScrolledWindow*>(dropdown->GetChildren().GetFirst()->GetData());
    }

    Wx::ComboBoxDropdown::Canvas* canvas() const
    {
        return dynamic_cast<Wx::ComboBoxDropdown::Canvas*>(scroller()->GetChildren().GetFirst()->GetData());
    }

    bool isOpen() const { return box->isOpen(); }

    bool opens() const
    {
        return pumpUntil([this] { return isOpen(); }, 2000);
    }

    bool closes() const
    {
        return pumpUntil([this] { return !isOpen(); }, 2000);
    }

    /// Returns true if the event was consumed.
    bool sendKey(int key, int modifiers = wxMOD_NONE) const { return sendKeyTo(box, key, modifiers); }

    static bool sendKeyTo(wxWindow* window, int key, int modifiers = wxMOD_NONE,
                          wxEventType type = wxEVT_CHAR_HOOK)
    {
        wxKeyEvent event(type);
        event.m_keyCode = key;
        event.SetControlDown((modifiers & wxMOD_CONTROL) != 0);
        event.SetShiftDown((modifiers & wxMOD_SHIFT) != 0);
        event.SetAltDown((modifiers & wxMOD_ALT) != 0);
        event.SetEventObject(window);
        window->GetEventHandler()->ProcessEvent(event);
        return !event.GetSkipped();
    }

    /// Returns true if the event was consumed.
    static bool sendMouse(wxWindow* window, wxEventType type, wxPoint position, int rotation = 0,
                          wxMouseWheelAxis axis = wxMOUSE_WHEEL_VERTICAL)
    {
        wxMouseEvent event(type);
        event.m_wheelAxis = axis;
        event.SetPosition(position);
        event.m_wheelRotation = rotation;
        event.m_wheelDelta = 120;
        event.SetEventObject(window);
        window->GetEventHandler()->ProcessEvent(event);
        return !event.GetSkipped();
    }

    void clickBox() const { clickAt(box, centre()); }

    wxPoint centre() const { return {box->GetSize().x / 2, box->GetSize().y / 2}; }

    int rowHeight() const { return scaledRowHeight(); }

    static int scaledRowHeight()
    {
        const int unit = Wx::scaleByDpi(6);
        return (Wx::scaleByDpi(18) + unit - 1) / unit * unit;
    }

    /// The middle of a row, in coordinates of the canvas.
    wxPoint inRow(int row) const { return {30, row * rowHeight() + 2 + rowHeight() / 2 - canvas()->top()}; }
};

} // namespace Nolvex::Tests
