// SPDX-License-Identifier: MIT
#pragma once

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Viewer {

enum class LossAnswer
{
    SAVE,
    DISCARD,
    CANCEL,
};

/// Asks whether to save the picture that is about to be lost. Closing the question cancels. Runs events
/// meanwhile, so that the window may have been destroyed when this returns.
LossAnswer askAboutLoss(const wxWindow& window);

} // namespace Nolvex::Viewer
