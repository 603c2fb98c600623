// SPDX-License-Identifier: MIT
#include "NolvexLibWx/detail/DialogOwner.h"

#include "NolvexLibWx/platform/DialogOwner.h"
#include "NolvexLibWx/platform/NativeWindow.h"
#include "NolvexLibWx/platform/WindowWatch.h"

#include <wx/dialog.h>

namespace Nolvex {

DialogOwner::DialogOwner(WindowHandle owner)
    : m_owner(Platform::isWindow(owner) ? owner : WindowHandle()), m_wrapper(Platform::dialogOwner(m_owner))
{}

wxWindow* DialogOwner::parent()
{
    return Platform::isPossibleParent(m_wrapper) ? &m_wrapper : nullptr;
}

int DialogOwner::showModal(wxDialog& dialog)
{
    bool destroyed = false;
    const Platform::WindowWatch watch(m_owner, [&] {
        destroyed = true;
        if (dialog.IsModal())
            dialog.EndModal(wxID_CANCEL);
    });
    const int result = dialog.ShowModal();
    return destroyed ? wxID_CANCEL : result;
}

} // namespace Nolvex
