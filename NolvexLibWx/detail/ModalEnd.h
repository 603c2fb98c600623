// SPDX-License-Identifier: MIT
#pragma once

#include <wx/dialog.h>
#include <wx/timer.h>
#include <wx/weakref.h>

namespace Nolvex {

/// Ends a modal dialog of wxWidgets that may not be the front one, for example because its owner has been
/// destroyed.
///
/// The event loops of modal dialogs must end in the order opposite to their start; otherwise wxWidgets loses
/// the end, and the dialog behind never returns. Therefore the dialogs in front go first: those that the
/// dialog owns are closed, and the answers to others are awaited.
class ModalEnd : private wxTimer
{
public:
    /// The dialog must outlive this object.
    explicit ModalEnd(wxDialog& dialog);

    /// Ends the dialog with this result, now or when the dialog has become the front one. The first result
    /// counts. Does nothing if the dialog is not shown modally.
    void end(int result);

private:
    void Notify() override;
    bool isBehindOthers();
    void endNow();

    wxDialog& m_dialog;
    wxWeakRef<wxDialog> m_asked; // the last dialog in front that was asked to close
    int m_result = 0;
};

} // namespace Nolvex
