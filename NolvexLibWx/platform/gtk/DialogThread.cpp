// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/DialogThread.h"

#include <wx/weakref.h>
#include <wx/window.h>

namespace Nolvex {

namespace {

// GTK takes the focus from a widget when the widget's window is disabled, and does not give the focus back.
void showAndRestoreFocus(const Function<void()>& show)
{
    const wxWeakRef<wxWindow> focused(wxWindow::FindFocus());
    show();
    if (focused && focused->IsShownOnScreen() && focused->IsEnabled())
        focused->SetFocus();
}

} // namespace

bool Platform::showOffMainThread(WaitingCalls& mainThreadCalls, const Function<void()>& show)
{
    return mainThreadCalls.call([&] { showAndRestoreFocus(show); });
}

} // namespace Nolvex
