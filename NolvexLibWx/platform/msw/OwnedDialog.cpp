// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/OwnedDialog.h"

#include "NolvexLibWx/NativeWindows.h"

#include <wx/dialog.h>
#include <wx/msw/wrapcctl.h>

#include <memory>
#include <utility>

namespace Nolvex {

namespace {

constexpr UINT_PTR SUBCLASS_ID = 1;

/// Disables the owner while the dialog is shown modally. wxWidgets does so only for its own windows.
class OwnedDialog
{
public:
    OwnedDialog(wxDialog& dialog, Function<void()> onOwnerDestroyed)
        : m_dialog(dialog), m_onOwnerDestroyed(std::move(onOwnerDestroyed))
    {}

    void onShow()
    {
        const auto owner = static_cast<HWND>(Wx::getOwnerAsNativeHandle({m_dialog.GetHandle()}).native);
        if (!m_dialog.IsModal() || owner == nullptr || !IsWindowEnabled(owner))
            return;
        m_disabled = owner;
        m_focused = GetFocus();
        EnableWindow(owner, FALSE);
    }

    // Windows activates the owner when the dialog disappears, so the owner must be enabled before. Few
    // windows remember by themselves which of their children had the focus.
    void onHide()
    {
        const HWND owner = std::exchange(m_disabled, nullptr);
        if (owner == nullptr)
            return;
        EnableWindow(owner, TRUE);
        if (GetActiveWindow() == m_dialog.GetHandle() && IsChild(owner, m_focused))
            SetFocus(m_focused);
    }

    void onDestroy()
    {
        onHide();
        if (m_dialog.IsBeingDeleted())
            return;
        const Function<void()> onOwnerDestroyed = m_onOwnerDestroyed;
        onOwnerDestroyed();
    }

private:
    wxDialog& m_dialog;
    Function<void()> m_onOwnerDestroyed;
    HWND m_disabled = nullptr;
    HWND m_focused = nullptr;
};

LRESULT CALLBACK onMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                           DWORD_PTR data)
{
    auto* const owned = reinterpret_cast<OwnedDialog*>(data);
    switch (message) {
    case WM_SHOWWINDOW:
        if (wParam != FALSE)
            owned->onShow();
        else
            owned->onHide();
        break;
    case WM_SYSKEYDOWN:
        // Without a close box Windows would ignore Alt+F4.
        if (wParam == VK_F4) {
            PostMessage(window, WM_CLOSE, 0, 0);
            return 0;
        }
        break;
    case WM_DESTROY:
        owned->onDestroy();
        break;
    case WM_NCDESTROY:
        RemoveWindowSubclass(window, onMessage, id);
        delete owned;
        break;
    default:
        break;
    }
    return DefSubclassProc(window, message, wParam, lParam);
}

} // namespace

void Platform::attachOwner(wxDialog& dialog, WindowHandle owner, Function<void()> onOwnerDestroyed)
{
    if (owner)
        Wx::setOwnerFromNativeHandle({dialog.GetHandle()}, owner);
    auto owned = std::make_unique<OwnedDialog>(dialog, std::move(onOwnerDestroyed));
    if (SetWindowSubclass(dialog.GetHandle(), onMessage, SUBCLASS_ID,
                          reinterpret_cast<DWORD_PTR>(owned.get())))
        static_cast<void>(owned.release()); // deleted at the last message of the window
}

void Platform::takeKeys(wxDialog& /*dialog*/)
{
    // If no child wants the focus, Windows gives it to the text, which passes the keys to the dialog.
}

void Platform::markAsAlert(wxDialog& /*dialog*/)
{
    // wxDialog is of Windows' own class of dialogs, which assistive technology knows.
}

} // namespace Nolvex
