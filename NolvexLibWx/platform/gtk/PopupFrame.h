// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Export.h"

#include <wx/frame.h>

namespace Nolvex::Platform {

/// A frame that no window manager places, decorates or activates: the frame appears exactly where the program
/// moved it, and the keyboard focus stays where it was.
class NOLVEXLIBWX_EXPORT PopupFrame : public wxFrame
{
public:
    PopupFrame(wxWindow* parent, long style, const wxString& name);
    ~PopupFrame() override;

    /// Brings the frame in front of other windows; unlike wxFrame's, neither shows nor activates it.
    void Raise() override;

    bool Show(bool show = true) override;

private:
    void stopWaitingForTheServer();
    void followTopLevelOfParent();
};

} // namespace Nolvex::Platform
