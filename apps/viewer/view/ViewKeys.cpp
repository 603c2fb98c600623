// SPDX-License-Identifier: MIT
#include "apps/viewer/view/ViewKeys.h"

#include "NolvexLibWx/DpiScaling.h"
#include "apps/viewer/view/ArrowKey.h"
#include "apps/viewer/view/ImageView.h"
#include "apps/viewer/view/PixelCursor.h"
#include "apps/viewer/view/PixelSelection.h"

#include <algorithm>
#include <cmath>

namespace Nolvex::Viewer {

namespace {

constexpr int SCROLL_STEP = 16; // design units
constexpr int LARGE_STEP = 10;  // pixels of the picture
constexpr float DIVIDER_STEP = 0.02f;
constexpr int BEYOND_THE_EDGE = 1 << 24; // farther than any picture reaches

// How far a key moves what the view shows.
Pixel scrollDistance(int key, const wxSize& view)
{
    const int step = Wx::scaleByDpi(SCROLL_STEP);
    const int page = std::max(view.y - step, step);
    switch (key) {
    case WXK_PAGEUP:
    case WXK_NUMPAD_PAGEUP:
        return {0, -page};
    case WXK_PAGEDOWN:
    case WXK_NUMPAD_PAGEDOWN:
        return {0, page};
    case WXK_HOME:
    case WXK_NUMPAD_HOME:
        return {-BEYOND_THE_EDGE, -BEYOND_THE_EDGE};
    case WXK_END:
    case WXK_NUMPAD_END:
        return {BEYOND_THE_EDGE, BEYOND_THE_EDGE};
    default:
        return directionOfArrow(key) * step;
    }
}

} // namespace

ViewKeys::ViewKeys(ImageView& view) : m_view(view)
{
    view.Bind(wxEVT_CHAR_HOOK, &ViewKeys::onKeyHook, this);
    view.Bind(wxEVT_KEY_DOWN, &ViewKeys::onKey, this);
    view.Bind(wxEVT_CHAR, &ViewKeys::onCharacter, this);
}

// The window would close at the Escape that is meant for the selection.
void ViewKeys::onKeyHook(wxKeyEvent& event)
{
    if (event.GetKeyCode() == WXK_ESCAPE && event.GetModifiers() == wxMOD_NONE && m_view.selection())
        m_view.select({});
    else
        event.Skip();
}

void ViewKeys::onKey(wxKeyEvent& event)
{
    const int key = event.GetKeyCode();
    const int modifiers = event.GetModifiers();
    if (key == WXK_TAB) {
        if (!m_view.HandleAsNavigationKey(event))
            event.Skip();
        return;
    }
    const bool isDone = (modifiers == wxMOD_NONE && scrollBy(key)) ||
                        ((modifiers & wxMOD_CONTROL) != 0 && moveCursor(event)) ||
                        ((modifiers & wxMOD_SHIFT) != 0 && changeSelection(event)) ||
                        (modifiers == wxMOD_ALT && moveDivider(key));
    event.Skip(!isDone);
}

void ViewKeys::onCharacter(wxKeyEvent& event)
{
    switch (event.GetKeyCode()) {
    case '+':
    case WXK_NUMPAD_ADD:
        m_view.zoomIn();
        break;
    case '-':
    case WXK_NUMPAD_SUBTRACT:
        m_view.zoomOut();
        break;
    default:
        event.Skip();
    }
}

bool ViewKeys::scrollBy(int key)
{
    const Pixel distance = scrollDistance(key, m_view.GetClientSize());
    if (distance == Pixel{0, 0})
        return false;
    m_view.scroll({-distance.x, -distance.y});
    return true;
}

bool ViewKeys::moveCursor(const wxKeyEvent& event)
{
    PixelCursor& cursor = m_view.pixelCursor();
    const int key = event.GetKeyCode();
    const bool hasShift = event.GetModifiers() == (wxMOD_CONTROL | wxMOD_SHIFT);
    // With Shift, the keys are for the selection if there is one or could be one.
    const bool isForCursor = hasShift ? cursor.pixel() && !m_view.selection() : !event.ShiftDown();
    const Pixel direction = directionOfArrow(key);
    if (!isForCursor || event.AltDown() || !m_view.picture())
        return false;
    if (direction != Pixel{0, 0})
        cursor.move(direction * (hasShift ? LARGE_STEP : 1));
    else if (key == WXK_HOME || key == WXK_NUMPAD_HOME)
        cursor.set(Pixel{0, 0});
    else if (key == WXK_END || key == WXK_NUMPAD_END)
        cursor.set(m_view.picture()->size() - Pixel{1, 1});
    else
        return false;
    return true;
}

// A step is as long on the screen as one that scrolls, but at least one pixel.
bool ViewKeys::changeSelection(const wxKeyEvent& event)
{
    const Pixel direction = directionOfArrow(event.GetKeyCode());
    if (direction == Pixel{0, 0} || !m_view.picture())
        return false;
    const Pixel size = m_view.picture()->size();
    const int step = std::max(1, static_cast<int>(Wx::scaleByDpi(SCROLL_STEP) / m_view.scale()));
    const Optional<wxRect> selection = m_view.selection();
    if (!selection)
        m_view.select(firstSelection());
    else if (event.GetModifiers() == wxMOD_SHIFT)
        m_view.select(grown(*selection, direction * step, size));
    else
        m_view.select(moved(*selection, direction * step, size));
    return true;
}

// Returns the half of the view around its middle.
wxRect ViewKeys::firstSelection() const
{
    const wxSize view = m_view.GetClientSize();
    const wxPoint first(view.x / 4, view.y / 4);
    const wxPoint last(view.x * 3 / 4, view.y * 3 / 4);
    return rectOfCorners(m_view.nearPixel(first), m_view.nearPixel(last), m_view.picture()->size());
}

bool ViewKeys::moveDivider(int key)
{
    const Pixel direction = directionOfArrow(key);
    if (direction.x == 0 || !m_view.comparison())
        return false;
    m_view.moveDivider(m_view.divider() + static_cast<float>(direction.x) * DIVIDER_STEP);
    return true;
}

} // namespace Nolvex::Viewer
