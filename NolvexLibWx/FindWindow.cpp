// SPDX-License-Identifier: MIT
#include "NolvexLibWx/FindWindow.h"

#include "NolvexLib/Stack.h"
#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/NativeWindows.h"
#include "NolvexLibWx/detail/ScreenPlaces.h"

#include <wx/toplevel.h>

namespace Nolvex {

namespace {

// Uses a stack instead of recursion, because the host decides how deep windows are nested. Visits children
// last to first and parents before children, until `visit` returns false. A subtree is skipped if `enter`
// returns false.
template<class Enter, class Visit>
void walkTree(wxWindow* root, const Enter& enter, const Visit& visit)
{
    Stack<wxWindow*> open;
    if (root != nullptr)
        open.push_back(root);
    while (!open.empty()) {
        wxWindow* const window = open.back();
        open.pop_back();
        if (!enter(*window))
            continue;
        if (!visit(*window))
            return;
        for (wxWindow* child : window->GetChildren())
            open.push_back(child);
    }
}

bool hasHandle(const wxWindow& window, WindowHandle handle)
{
    return Wx::getWindowNativeHandle(&window) == handle;
}

} // namespace

wxWindow* Wx::findWindowByPosition(wxWindow* root, Pixel screenPoint, Flags<FindWindowFlag> flags)
{
    const auto qualifies = [&](const wxWindow& window) {
        return (flags.has(FindWindowFlag::INCLUDE_HIDDEN) || window.IsShown()) &&
               (flags.has(FindWindowFlag::INCLUDE_DISABLED) || window.IsEnabled());
    };
    wxWindow* found = nullptr;
    walkTree(root, qualifies, [&](wxWindow& window) {
        if (Detail::screenRect(window).Contains(toWxPoint(screenPoint)))
            found = &window;
        return true;
    });
    return found;
}

wxWindow* Wx::findWindowByNativeHandle(wxWindow* root, WindowHandle handle)
{
    if (!handle)
        return nullptr;
    wxWindow* found = nullptr;
    walkTree(
        root, [](const wxWindow&) { return true; },
        [&](wxWindow& window) {
            found = hasHandle(window, handle) ? &window : nullptr;
            return found == nullptr;
        });
    return found;
}

wxTopLevelWindow* Wx::findTopLevelWxWindowForNativeHandle(WindowHandle handle)
{
    if (!handle)
        return nullptr;
    for (wxWindow* window : wxTopLevelWindows) {
        if (hasHandle(*window, handle))
            return dynamic_cast<wxTopLevelWindow*>(window);
    }
    return nullptr;
}

wxWindow* Wx::topMostParent(wxWindow* window)
{
    if (window == nullptr)
        return nullptr;
    while (wxWindow* const parent = window->GetParent())
        window = parent;
    return window;
}

} // namespace Nolvex
