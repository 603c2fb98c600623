// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/Optional.h"
#include "apps/viewer/Workspace.h"

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_CORE wxTopLevelWindow;

namespace Nolvex::Viewer {

class ImageView;

/// Gives a window the size that shows its first picture at 1 : 1, as far as the screen allows, about the same
/// middle. A window of another width than before is left alone, since the user has chosen the width, and so
/// is a maximised one.
class WindowFitting : private Noncopyable
{
public:
    /// The window, the view and the workspace must outlive this object, which is to be made after whatever
    /// shows the current picture in the view.
    WindowFitting(wxTopLevelWindow& window, const ImageView& view, Workspace& workspace);

    /// Begins to wait for the first picture.
    void begin();

private:
    void fit();

    wxTopLevelWindow& m_window;
    const ImageView& m_view;
    Optional<int> m_width; // of the view, while this object waits
};

} // namespace Nolvex::Viewer
