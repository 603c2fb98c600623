// SPDX-License-Identifier: MIT
#include "NolvexLibWx/MoveFocus.h"

#include "NolvexLib/Array.h"
#include "NolvexLibWx/Focusable.h"

#include <wx/event.h>
#include <wx/window.h>

#include <algorithm>

namespace Nolvex {

namespace {

using Node = wxWindowList::compatibility_iterator;

Node neighbour(const wxWindowList& siblings, const Node& node, Wx::MoveFocusDirection direction)
{
    if (direction == Wx::MoveFocusDirection::FORWARD)
        return node->GetNext() ? node->GetNext() : siblings.GetFirst();
    return node->GetPrevious() ? node->GetPrevious() : siblings.GetLast();
}

bool isFocusableControl(const wxWindow& window)
{
    return dynamic_cast<const Wx::Focusable*>(&window) != nullptr;
}

bool canHoldTabStops(const wxWindow& window)
{
    return !window.IsTopLevel() && window.CanBeFocused();
}

// Appends the Tab stops within the window in the order of the Tab key, and the window itself if it has none.
void collectTabStops(wxWindow& window, Array<wxWindow*>& stops)
{
    const std::size_t before = stops.size();
    for (wxWindow* child : window.GetChildren()) {
        if (canHoldTabStops(*child))
            collectTabStops(*child, stops);
    }
    if (stops.size() == before && window.AcceptsFocus() && window.AcceptsFocusFromKeyboard())
        stops.push_back(&window);
}

wxWindow& topLevelParent(wxWindow& window)
{
    wxWindow* top = &window;
    while (!top->IsTopLevel() && top->GetParent() != nullptr)
        top = top->GetParent();
    return *top;
}

bool isWithin(const wxWindow* window, const wxWindow& ancestor)
{
    while (window != nullptr && window != &ancestor)
        window = window->GetParent();
    return window != nullptr;
}

// A Focusable may consist of several windows, such as a text field with two arrows; all of them belong to the
// group.
bool isInGroupOf(const wxWindow& member, const wxWindow* stop)
{
    if (isWithin(stop, member))
        return true;
    while (stop != nullptr && stop->GetParent() != member.GetParent())
        stop = stop->GetParent();
    return stop != nullptr && isFocusableControl(*stop);
}

} // namespace

void Wx::moveFocus(wxWindow* window, MoveFocusDirection direction)
{
    if (window == nullptr || window->GetParent() == nullptr)
        return;
    const wxWindowList& siblings = window->GetParent()->GetChildren();
    const Node start = siblings.Find(window);
    if (!start)
        return;
    for (Node node = neighbour(siblings, start, direction); node != start;
         node = neighbour(siblings, node, direction)) {
        wxWindow& sibling = *node->GetData();
        if (sibling.IsFocusable() && isFocusableControl(sibling)) {
            sibling.SetFocus();
            return;
        }
    }
}

void Wx::leaveFocusGroup(wxWindow* window, MoveFocusDirection direction)
{
    if (window == nullptr || window->GetParent() == nullptr)
        return;
    Array<wxWindow*> stops;
    collectTabStops(topLevelParent(*window), stops);
    if (direction != MoveFocusDirection::FORWARD)
        std::reverse(stops.begin(), stops.end());
    const auto start = std::find_if(stops.begin(), stops.end(),
                                    [window](const wxWindow* stop) { return isWithin(stop, *window); });
    std::rotate(stops.begin(), start, stops.end());
    const auto next = std::find_if(stops.begin(), stops.end(),
                                   [window](const wxWindow* stop) { return !isInGroupOf(*window, stop); });
    if (next != stops.end())
        (*next)->SetFocusFromKbd();
}

void Wx::bindGroupExit(wxWindow& window)
{
    // This event comes before wxWidgets and GTK look for keys that move the focus.
    window.Bind(wxEVT_CHAR_HOOK, [&window](wxKeyEvent& event) {
        if (event.GetKeyCode() != WXK_TAB || !event.ControlDown() || event.AltDown()) {
            event.Skip();
            return;
        }
        leaveFocusGroup(&window,
                        event.ShiftDown() ? MoveFocusDirection::BACKWARD : MoveFocusDirection::FORWARD);
    });
}

bool Wx::isTabStop(const wxWindow& window)
{
    if (!window.IsFocusable() || !window.AcceptsFocusFromKeyboard())
        return false;
    const wxWindowList& children = window.GetChildren();
    return std::none_of(children.begin(), children.end(), [](const wxWindow* child) {
        return canHoldTabStops(*child) && child->AcceptsFocusFromKeyboard();
    });
}

} // namespace Nolvex
