// SPDX-License-Identifier: MIT
#include "NolvexLibWx/detail/DialogOwner.h"

#include "NolvexLibWx/platform/DialogOwner.h"
#include "NolvexLibWx/platform/NativeWindow.h"
#include "NolvexLibWx/platform/WindowWatch.h"

#include <wx/dialog.h>
#include <wx/timer.h>

namespace Nolvex {

namespace {

// Cancels a dialog together with its owner. The event loops of modal dialogs must end in the order opposite
// to their start, or wxGTK ends the wrong loop and the other dialog never returns. Therefore the dialogs in
// front of this dialog go first.
class Cancelling : private wxTimer
{
public:
    explicit Cancelling(wxDialog& dialog) : m_dialog(dialog) {}

    void begin()
    {
        constexpr int PERIOD = 50; // milliseconds; more than the loops need to return
        if (Platform::cancelOwnedDialogs(m_dialog))
            Start(PERIOD);
        else
            endModal();
    }

private:
    void Notify() override
    {
        if (Platform::cancelOwnedDialogs(m_dialog))
            return;
        Stop();
        endModal();
    }

    void endModal()
    {
        if (m_dialog.IsModal())
            m_dialog.EndModal(wxID_CANCEL);
    }

    wxDialog& m_dialog;
};

} // namespace

DialogOwner::DialogOwner(WindowHandle owner)
    : m_owner(Platform::isWindow(owner) ? owner : WindowHandle()), m_wrapper(Platform::dialogOwner(m_owner))
{}

wxWindow* DialogOwner::parent()
{
    return Platform::isPossibleParent(m_wrapper) ? &m_wrapper : nullptr;
}

int DialogOwner::showModal(wxDialog& dialog)
{
    Cancelling cancelling(dialog);
    const Platform::WindowWatch watch(m_owner, [&cancelling] { cancelling.begin(); });
    const int result = dialog.ShowModal();
    // Windows takes the answer of a message box that was destroyed together with the owner for a yes.
    const bool isOwnerGone = m_owner && !Platform::isWindow(m_owner);
    return isOwnerGone ? wxID_CANCEL : result;
}

} // namespace Nolvex
