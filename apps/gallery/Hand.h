// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/StringConversions.h"
#include "apps/gallery/Scene.h"

#include <wx/gdicmn.h>
#include <wx/window.h>

#include <cstddef>

/// The steps of scenes: what the user's hand does to the controls of a page.
namespace Nolvex::Gallery::Hand {

/// Finds a window of a page. Returns null if there is none.
using Finder = Function<wxWindow*(wxWindow& page)>;

template<class Control>
void collect(wxWindow& window, Array<Control*>& found)
{
    for (wxWindow* child : window.GetChildren()) {
        if (auto* control = dynamic_cast<Control*>(child))
            found.push_back(control);
        // The child always exists. Without the question, clang-tidy takes a failed cast for a missing child.
        if (child != nullptr)
            collect(*child, found);
    }
}

/// Returns the window of that class with that index among those below `window`, or null.
template<class Control>
Control* find(wxWindow& window, std::size_t index)
{
    Array<Control*> found;
    collect(window, found);
    return index < found.size() ? found[index] : nullptr;
}

/// Finds the window of a class with that index.
template<class Control>
Finder nth(std::size_t index)
{
    return [index](wxWindow& page) -> wxWindow* { return find<Control>(page, index); };
}

/// Finds the window of a class with that label.
template<class Control>
Finder labelled(const wchar_t* label)
{
    return [label](wxWindow& page) -> wxWindow* {
        Array<Control*> found;
        collect(page, found);
        for (Control* control : found) {
            if (control->GetLabel() == label)
                return control;
        }
        return nullptr;
    };
}

/// Finds the part of a class with that index in the window that `whole` finds.
template<class Part>
Finder partOf(Finder whole, std::size_t index)
{
    return [whole = std::move(whole), index](wxWindow& page) -> wxWindow* {
        wxWindow* const found = whole(page);
        return found != nullptr ? find<Part>(*found, index) : nullptr;
    };
}

/// Makes a condition of a control's own: `isReached` is given the control with that index.
template<class Control, class Condition>
Function<bool(wxWindow&)> when(std::size_t index, Condition isReached)
{
    return [=](wxWindow& page) {
        const Control* const control = find<Control>(page, index);
        return control != nullptr && isReached(*control);
    };
}

/// Moves the mouse to the middle of the window, or `offset` design units away from there.
Scene::Step moveTo(const Finder& window, wxPoint offset = {}, Function<bool(wxWindow&)> isReached = {});

/// Moves the mouse there as part of a drag from one window to another. The other functions let
/// wxWidgets process the motion before they return, and would return only after the drag.
Scene::Step dragTo(const Finder& window, wxPoint offset = {}, Function<bool(wxWindow&)> isReached = {});

/// Presses the left button and holds the button until the scene ends.
Scene::Step press(Function<bool(wxWindow&)> isReached = {});

Scene::Step release(Function<bool(wxWindow&)> isReached = {});

Scene::Step click(Function<bool(wxWindow&)> isReached = {});

Scene::Step type(int key, int modifiers = 0, Function<bool(wxWindow&)> isReached = {});

/// Turns the wheel by so many notches, away from the user if the number is positive. wxWidgets cannot
/// simulate the wheel, so that the window is sent the event that wxWidgets would make.
Scene::Step turnWheel(const Finder& window, int notches, Function<bool(wxWindow&)> isReached = {});

/// Moves the mouse away from every control and releases the left button.
void rest();

} // namespace Nolvex::Gallery::Hand
