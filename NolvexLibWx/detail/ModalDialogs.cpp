// SPDX-License-Identifier: MIT
#include "NolvexLibWx/detail/ModalDialogs.h"

#include "NolvexLib/MainThread.h"
#include "NolvexLib/Stack.h"

#include <wx/dialog.h>
#include <wx/modalhook.h>
#include <wx/weakref.h>

#include <algorithm>
#include <atomic>

namespace Nolvex {

namespace {

// wxWidgets calls hooks on the thread that shows the dialog.
class Hook : public wxModalDialogHook
{
public:
    using wxModalDialogHook::Register;
    using wxModalDialogHook::Unregister;

    // A later hook may answer in place of the dialog, so that wxWidgets calls no Exit. The weak references
    // forget such a dialog.
    const Stack<wxWeakRef<wxDialog>>& open()
    {
        std::erase_if(m_open, [](const wxWeakRef<wxDialog>& dialog) { return !dialog; });
        return m_open;
    }

private:
    int Enter(wxDialog* dialog) override
    {
        if (isMainThread())
            m_open.push_back(wxWeakRef<wxDialog>(dialog));
        return wxID_NONE;
    }

    void Exit(wxDialog* dialog) override
    {
        if (isMainThread())
            std::erase_if(m_open, [dialog](const wxWeakRef<wxDialog>& open) { return open == dialog; });
    }

    Stack<wxWeakRef<wxDialog>> m_open;
};

Hook& hook()
{
    // Never destroyed: a host that does not stop the library leaves the hook registered.
    static Hook& hook = *new Hook;
    return hook;
}

std::atomic<bool> g_possible = false;

} // namespace

void ModalDialogs::install()
{
    if (!g_possible.exchange(true))
        hook().Register();
}

void ModalDialogs::uninstall()
{
    if (g_possible.exchange(false))
        hook().Unregister();
}

bool ModalDialogs::arePossible()
{
    return g_possible;
}

bool ModalDialogs::isOpen(const wxDialog& dialog)
{
    return std::ranges::any_of(hook().open(), [&](const auto& open) { return open.get() == &dialog; });
}

wxDialog* ModalDialogs::front()
{
    const auto& open = hook().open();
    return open.empty() ? nullptr : open.back().get();
}

} // namespace Nolvex
