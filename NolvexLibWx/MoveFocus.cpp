// SPDX-License-Identifier: MIT
#include "NolvexLibWx/MoveFocus.h"

#include "NolvexLibWx/widgets/Focusable.h"

#include <wx/window.h>

namespace Nolvex {

namespace {

using Node = wxWindowList::compatibility_iterator;

Node neighbour(const wxWindowList& siblings, const Node& node, Wx::MoveFocusDirection direction)
{
    if (direction == Wx::MoveFocusDirection::FORWARD)
        return node->GetNext() ? node->GetNext() : siblings.GetFirst();
    return node->GetPrevious() ? node->GetPrevious() : siblings.GetLast();
}

bool takesFocus(const wxWindow& window)
{
    return window.IsFocusable() && dynamic_cast<const Wx::Focusable*>(&window) != nullptr;
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
        if (takesFocus(*node->GetData())) {
            node->GetData()->SetFocus();
            return;
        }
    }
}

} // namespace Nolvex
