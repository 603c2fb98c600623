// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/widgets/TextCtrl.h"
#include "support/FrameFixture.h"

#include <wx/button.h>

#include <ostream>

namespace Nolvex::Tests {

struct Range
{
    long from;
    long to;

    friend bool operator==(const Range&, const Range&) = default;

    friend void PrintTo(const Range& range, std::ostream* out) { *out << range.from << " to " << range.to; }
};

inline Range selectionOf(const Wx::TextCtrl* text)
{
    Range range{-1, -1};
    text->GetSelection(&range.from, &range.to);
    return range;
}

inline wxString numberedLines(int count)
{
    wxString lines;
    for (int i = 0; i < count; ++i)
        lines += wxString::Format("line %d\n", i);
    return lines;
}

/// A text area of 200 x 100 with a button below that can take the focus away from it.
struct TextCtrlFixture : FrameFixture
{
    wxButton* button = new wxButton(panel, wxID_ANY, "other", wxPoint(10, 150));
    Wx::TextCtrl* text = nullptr;

    ~TextCtrlFixture() override
    {
        // A test that failed may have left the button of the mouse down, also for the tests that follow.
        wxUIActionSimulator().MouseUp();
    }

    Wx::TextCtrl* show(const wxString& value, long style = wxTE_MULTILINE)
    {
        text = new Wx::TextCtrl(panel, 17, value, wxPoint(10, 10), wxSize(200, 100), style);
        showFrame();
        button->SetFocus();
        EXPECT_TRUE(pumpUntil([&] { return button->HasFocus(); }));
        pumpEvents(100);
        return text;
    }

    void focusText() const
    {
        text->SetFocus();
        EXPECT_TRUE(pumpUntil([&] { return text->HasFocus(); }));
    }

    void append(const wxString& more) const
    {
        text->AppendText(more);
        pumpEvents(100);
    }

    int top() const { return text->PositionToCoords(0).y; }

    // Waits until the text stands still: scrolling takes some frames and begins when the lines have been laid
    // out.
    int settledTop() const
    {
        int last = 1;
        for (int same = 0; same < 3; same = top() == last ? same + 1 : 0) {
            last = top();
            pumpEvents(100);
        }
        return last;
    }

    int scrolledTo(long position) const
    {
        text->ShowPosition(position);
        return settledTop();
    }

    bool showsEnd() const
    {
        settledTop();
        const int y = text->PositionToCoords(text->GetLastPosition()).y;
        return y > 0 && y < text->GetClientSize().y;
    }

    bool send(wxEvent& event) const
    {
        event.SetEventObject(text);
        return text->GetEventHandler()->ProcessEvent(event);
    }

    bool mouse(wxEventType type, wxPoint point = {0, 0}, bool leftDown = false) const
    {
        wxMouseEvent event(type);
        event.SetPosition(point);
        event.SetLeftDown(leftDown);
        return send(event);
    }

    bool key(int code, int modifiers = wxMOD_NONE) const
    {
        wxKeyEvent event(wxEVT_KEY_DOWN);
        event.m_keyCode = code;
        event.SetControlDown((modifiers & wxMOD_CONTROL) != 0);
        event.SetShiftDown((modifiers & wxMOD_SHIFT) != 0);
        return send(event);
    }

    /// Returns a point at the left edge of a character, in the middle of its line's height.
    wxPoint pointAt(long position) const
    {
        return text->PositionToCoords(position) + wxPoint(1, text->GetCharHeight() / 2);
    }

    void moveMouse(const wxPoint& point) const
    {
        wxUIActionSimulator().MouseMove(text->ClientToScreen(point));
        pumpEvents(80);
    }
};

} // namespace Nolvex::Tests
