// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/String.h"

#include <wx/bitmap.h>
#include <wx/frame.h>

namespace Nolvex::Viewer {

class ImageView;

/// The viewer's window: the picture inside a bevelled border, in the default skin. Ctrl+W, Ctrl+Q and Escape
/// close it.
class ViewerFrame : public wxFrame
{
public:
    ViewerFrame(const String& name, const wxBitmap& picture);

    /// True once the picture has been painted on the screen.
    bool wasPainted() const;

private:
    void onKey(wxKeyEvent& event);

    ImageView* m_view = nullptr;
};

} // namespace Nolvex::Viewer
