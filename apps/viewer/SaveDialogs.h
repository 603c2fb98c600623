// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Optional.h"
#include "apps/viewer/SaveJob.h"

class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Viewer {

class SaveDefaults;

/// Asks for the file and, where the format leaves a choice, for the colours to save the picture with. Returns
/// nullopt if the user cancels, or if the window is destroyed meanwhile: the dialogs run events. `proposal`
/// is the file whose name and folder are proposed. A name without an extension becomes a PNG file; one with
/// an extension that the viewer cannot write is refused with a message.
Optional<SaveTask> askHowToSave(wxWindow& window, const SharedPicture& picture, const Io::Path& proposal,
                                SaveDefaults& defaults);

/// Asks for a file of 8-bit colours to save the view in, in the same way.
Optional<SaveTask> askWhereToSaveView(wxWindow& window, const Scene& view, const Io::Path& proposal);

} // namespace Nolvex::Viewer
