// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/platform/PopupFrame.h"

#include <wx/weakref.h>

#include <memory>

namespace Nolvex::Wx {

class ModalDialogWatch;

/// The frame with choices that drops down below a control, its owner. A child window of the owner, which
/// makes the frame once and then opens and hides it any number of times.
///
/// The frame never takes the keyboard focus, so keys keep going to the owner; windows inside the frame must
/// not accept the focus either. While open, the frame stays beside the owner when that moves, and hides when
/// the owner can no longer be seen or used: when the owner, a parent or the top level is hidden, when the top
/// level is minimised, when a parent is disabled, and when a modal dialog opens. Disabling the owner alone
/// does not hide the frame, as a press that has begun may still be completed. Close hides the frame too.
///
/// Opening and hiding repaint the owner, whose face may depend on the state, and send wxEVT_SHOW to the
/// frame. A handler of the event may destroy the frame or the owner, and must not skip the event then.
class NOLVEXLIBWX_EXPORT DropdownFrame : public Platform::PopupFrame
{
public:
    /// `border` is wxBORDER_NONE or wxBORDER_SIMPLE.
    explicit DropdownFrame(wxWindow* owner, wxBorder border = wxBORDER_NONE,
                           const wxString& name = wxASCII_STR(wxFrameNameStr));
    ~DropdownFrame() override;

    /// Shows the frame in front of other windows, its top left corner at the owner's bottom left corner. At
    /// the bottom of the monitor, the frame opens above the owner if it fits there; on Wayland, the
    /// compositor makes that decision. Does nothing while the owner cannot be seen or used.
    void open();

    bool Show(bool show = true) override;

    void OnInternalIdle() override;

private:
    bool isOwnerUsable() const;
    void moveBesideOwner();
    void hideUnlessUsable();

    wxWeakRef<wxWindow> m_owner;
    std::unique_ptr<ModalDialogWatch> m_modalDialogs;
};

} // namespace Nolvex::Wx
