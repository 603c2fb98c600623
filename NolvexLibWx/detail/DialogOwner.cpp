// SPDX-License-Identifier: MIT
#include "NolvexLibWx/detail/DialogOwner.h"

#include "NolvexLibWx/detail/ModalEnd.h"
#include "NolvexLibWx/platform/DialogOwner.h"
#include "NolvexLibWx/platform/NativeWindow.h"
#include "NolvexLibWx/platform/WindowWatch.h"

#include <wx/dialog.h>
#include <wx/scopeguard.h>

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
    ModalEnd ending(dialog);
    m_cancel = [this, &ending] {
        m_cancelled = true;
        ending.end(wxID_CANCEL);
    };
    const wxScopeGuard forget = wxMakeGuard([this] { m_cancel = {}; });
    const Platform::WindowWatch watch(m_owner, m_cancel);
    const int result = dialog.ShowModal();
    // Windows takes the answer of a message box that was destroyed together with the owner for a yes.
    if (m_owner && !Platform::isWindow(m_owner))
        m_cancelled = true;
    return m_cancelled ? wxID_CANCEL : result;
}

void DialogOwner::cancel()
{
    if (m_cancel)
        m_cancel();
}

} // namespace Nolvex
