// SPDX-License-Identifier: MIT
#include "NolvexLibWx/detail/ModalEnd.h"

#include "NolvexLibWx/NativeWindows.h"
#include "NolvexLibWx/detail/ModalDialogs.h"
#include "NolvexLibWx/platform/DialogOwner.h"
#include "NolvexLibWx/platform/NativeWindow.h"

namespace Nolvex {

namespace {

constexpr int PERIOD = 50; // milliseconds; more than the event loops need to return

bool isOwnedBy(const wxWindow& window, const wxWindow& owner)
{
    const WindowHandle wanted{owner.GetHandle()};
    WindowHandle handle{window.GetHandle()};
    while (handle && handle != wanted)
        handle = Platform::windowOwner(handle);
    return static_cast<bool>(handle);
}

// Windows destroys the windows of an owner together with the owner, and wxWidgets does not end their dialogs.
bool isGone(const wxWindow& window)
{
    return !Platform::isWindow({window.GetHandle()});
}

} // namespace

ModalEnd::ModalEnd(wxDialog& dialog) : m_dialog(dialog) {}

void ModalEnd::end(int result)
{
    // A hidden dialog has been ended, and its event loop may still have to return.
    const bool isEnding = m_dialog.IsModal() && !m_dialog.IsShown();
    if (IsRunning() || isEnding)
        return;
    m_result = result;
    if (isBehindOthers())
        Start(PERIOD);
    else
        endNow();
}

void ModalEnd::Notify()
{
    if (isBehindOthers())
        return;
    Stop();
    endNow();
}

// Returns false when nothing is in front of the dialog any more. Asks a dialog in front only once, since the
// dialog may refuse and tell the user why.
bool ModalEnd::isBehindOthers()
{
    wxDialog* const front = ModalDialogs::front();
    wxDialog& next = front != nullptr && ModalDialogs::isOpen(m_dialog) ? *front : m_dialog;
    if (Platform::cancelOwnedDialogs(next))
        return true;
    if (&next == &m_dialog)
        return false;
    if (m_asked != &next && (isOwnedBy(next, m_dialog) || isGone(next))) {
        m_asked = &next;
        Platform::cancelDialog(next);
    }
    return true;
}

void ModalEnd::endNow()
{
    if (m_dialog.IsModal())
        m_dialog.EndModal(m_result);
    else if (ModalDialogs::isOpen(m_dialog))
        Platform::cancelDialog(m_dialog);
}

} // namespace Nolvex
