// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Function.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLibWx/DialogParentWrapper.h"

class WXDLLIMPEXP_FWD_CORE wxDialog;

namespace Nolvex {

/// The owner of a modal dialog of wxWidgets, given by its native handle. Must outlive the dialog.
class DialogOwner : private Noncopyable
{
public:
    /// Null handles and handles of destroyed windows are no owner. On GTK the active window takes its place.
    explicit DialogOwner(WindowHandle owner);

    /// The parent for the constructor of the dialog. Null on GTK if the program has no window.
    wxWindow* parent();

    /// Shows the dialog and returns its result, which is wxID_CANCEL if the owner is destroyed meanwhile.
    int showModal(wxDialog& dialog);

    /// Cancels the dialog that is shown at present. Called on the thread that shows the dialog.
    void cancel();

    /// True if the program has ended the dialog, by cancel() or by destroying the owner.
    bool isCancelled() const { return m_cancelled; }

private:
    WindowHandle m_owner;
    Wx::DialogParentWrapper m_wrapper;
    Function<void()> m_cancel; // empty unless a dialog is shown
    bool m_cancelled = false;
};

} // namespace Nolvex
