// SPDX-License-Identifier: MIT
#include "apps/gallery/Hand.h"

#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/GeometryConversions.h"

#include <wx/uiaction.h>
#include <wx/utils.h>

#include <utility>

namespace Nolvex::Gallery {

namespace {

const wxPoint RESTING_PLACE(2, 2); // a corner of the screen

constexpr int WHEEL_NOTCH = 120;

// Returns a place on the screen.
wxPoint placeIn(const wxWindow& window, const wxPoint& offset)
{
    const wxSize size = window.GetClientSize();
    return window.ClientToScreen(wxPoint(size.x / 2, size.y / 2)) +
           Wx::toWxPoint(Wx::scaleByDpi(Wx::toPixel(offset)));
}

} // namespace

Scene::Step Hand::moveTo(const Finder& window, wxPoint offset, Function<bool(wxWindow&)> isReached)
{
    const auto act = [window, offset](wxWindow& page) {
        if (const wxWindow* const found = window(page))
            wxUIActionSimulator().MouseMove(placeIn(*found, offset));
    };
    return {act, std::move(isReached)};
}

Scene::Step Hand::dragTo(const Finder& window, wxPoint offset, Function<bool(wxWindow&)> isReached)
{
    const auto act = [window, offset](wxWindow& page) {
        if (const wxWindow* const found = window(page)) {
            const wxPoint place = page.ScreenToClient(placeIn(*found, offset));
            page.WarpPointer(place.x, place.y);
        }
    };
    return {act, std::move(isReached)};
}

Scene::Step Hand::press(Function<bool(wxWindow&)> isReached)
{
    return {[](wxWindow&) { wxUIActionSimulator().MouseDown(); }, std::move(isReached)};
}

Scene::Step Hand::release(Function<bool(wxWindow&)> isReached)
{
    return {[](wxWindow&) { wxUIActionSimulator().MouseUp(); }, std::move(isReached)};
}

Scene::Step Hand::click(Function<bool(wxWindow&)> isReached)
{
    return {[](wxWindow&) { wxUIActionSimulator().MouseClick(); }, std::move(isReached)};
}

Scene::Step Hand::type(int key, int modifiers, Function<bool(wxWindow&)> isReached)
{
    return {[key, modifiers](wxWindow&) { wxUIActionSimulator().Char(key, modifiers); },
            std::move(isReached)};
}

Scene::Step Hand::turnWheel(const Finder& window, int notches, Function<bool(wxWindow&)> isReached)
{
    const auto act = [window, notches](wxWindow& page) {
        wxWindow* const found = window(page);
        if (found == nullptr)
            return;
        const wxSize size = found->GetClientSize();
        wxMouseEvent event(wxEVT_MOUSEWHEEL);
        event.SetEventObject(found);
        event.SetPosition(wxPoint(size.x / 2, size.y / 2));
        event.m_wheelDelta = WHEEL_NOTCH;
        event.m_wheelRotation = notches * WHEEL_NOTCH;
        found->ProcessWindowEvent(event);
    };
    return {act, std::move(isReached)};
}

void Hand::rest()
{
    wxUIActionSimulator().MouseMove(RESTING_PLACE);
    if (wxGetMouseState().LeftIsDown())
        wxUIActionSimulator().MouseUp();
}

} // namespace Nolvex::Gallery
