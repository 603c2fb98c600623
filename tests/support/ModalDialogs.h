// SPDX-License-Identifier: MIT
#pragma once

#include "support/DialogRobot.h"
#include "support/FileDialogFixture.h"

#include <wx/dialog.h>
#include <wx/toplevel.h>
#include <wx/uiaction.h>

namespace Nolvex::Tests {

/// Returns the dialog of this class that takes the keys at present, or null.
template<class Dialog>
Dialog* activeModal()
{
    for (wxWindow* window : wxTopLevelWindows) {
        auto* const dialog = dynamic_cast<Dialog*>(window);
        if (dialog != nullptr && dialog->IsModal() && dialog->IsShown() && dialog->IsActive())
            return dialog;
    }
    return nullptr;
}

/// A step of a DialogRobot: presses a key in a dialog of wxWidgets.
template<class Dialog>
DialogRobot::Step pressIn(int key)
{
    return {"a dialog of the program has the focus", [] { return activeModal<Dialog>() != nullptr; },
            [key] { wxUIActionSimulator().Char(key); }};
}

} // namespace Nolvex::Tests
