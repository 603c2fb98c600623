// SPDX-License-Identifier: MIT
#pragma once

#include "apps/viewer/view/ImageView.h"
#include "support/FrameFixture.h"
#include "support/Gestures.h"
#include "support/Screen.h"
#include "support/ViewerFixture.h"

#include <wx/weakref.h>

#include <utility>
#include <vector>

namespace Nolvex::Tests {

/// Shows a view of 300 x 200 pixels in a frame of its own, and takes down what the view tells.
struct ViewFixture : FrameFixture
{
    static constexpr int WIDTH = 300;
    static constexpr int HEIGHT = 200;

    wxWeakRef<Viewer::ImageView> view;
    int viewChanges = 0;
    std::vector<Optional<wxRect>> selections;
    std::vector<float> dividers;

    void show(Viewer::SharedPicture picture)
    {
        view = new Viewer::ImageView(panel, std::move(picture));
        view->SetSize(10, 10, WIDTH, HEIGHT);
        showFrame();
        view->onViewChanged = [this] { ++viewChanges; };
        view->onSelection = [this](const Optional<wxRect>& selection) { selections.push_back(selection); };
        view->onDividerMoved = [this](float divider) { dividers.push_back(divider); };
        ASSERT_TRUE(pumpUntil([this] { return view->wasPainted(); }));
    }

    void focusView() const
    {
        frame->Raise();
        ASSERT_TRUE(pumpUntil([this] {
            view->SetFocus();
            return view->HasFocus();
        }));
        pumpEvents();
    }

    /// Sends the view the event of a wheel that is turned at its middle.
    void turnWheel(int rotation, bool isShift = false, wxMouseWheelAxis axis = wxMOUSE_WHEEL_VERTICAL,
                   const wxPoint& position = {WIDTH / 2, HEIGHT / 2}) const
    {
        wxMouseEvent event(wxEVT_MOUSEWHEEL);
        event.SetEventObject(view);
        event.SetPosition(position);
        event.m_wheelRotation = rotation;
        event.m_wheelDelta = 120;
        event.m_wheelAxis = axis;
        event.SetShiftDown(isShift);
        view->ProcessWindowEvent(event);
    }

    /// Presses at a point and moves the mouse to another one in two steps, the first of which may destroy the
    /// view.
    void dragTo(const wxPoint& from, const wxPoint& to) const
    {
        pressMouseAt(view, from);
        moveMouse(view, (from + to) / 2);
        if (view)
            moveMouse(view, to);
    }

    void drag(const wxPoint& from, const wxPoint& to) const
    {
        dragTo(from, to);
        releaseMouse();
    }

    void shiftDrag(const wxPoint& from, const wxPoint& to) const
    {
        wxUIActionSimulator().KeyDown(WXK_SHIFT);
        drag(from, to);
        wxUIActionSimulator().KeyUp(WXK_SHIFT);
        pumpEvents();
    }

    RgbBytes shownAt(int x, int y) const
    {
        pumpEvents(100);
        return pixelAt(captureClientArea(view), x, y);
    }

    Pixel pixelUnder(const wxPoint& position) const
    {
        return view->pixelAt(position).value_or(Pixel{-1, -1});
    }
};

} // namespace Nolvex::Tests
