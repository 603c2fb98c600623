// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Export.h"

#include <wx/frame.h>

namespace Nolvex::Platform {

/// A frame that no window manager places, decorates or activates: the frame appears exactly where the program
/// moved it, and the keyboard focus stays where it was. On Wayland, the frame is a part of the top-level
/// window of its parent, unless placeBeside has asked the compositor for a place.
class NOLVEXLIBWX_EXPORT PopupFrame : public wxFrame
{
public:
    PopupFrame(wxWindow* parent, long style, const wxString& name);
    ~PopupFrame() override;

    /// Brings the frame in front of other windows; unlike wxFrame's, neither shows nor activates it.
    void Raise() override;

    bool Show(bool show = true) override;

    /// These return false here, not in a derived class, as the parent asks for them while Create runs. A
    /// parent that is a panel would pass its focus on to a child that accepts it.
    bool AcceptsFocus() const override { return false; }

    bool AcceptsFocusFromKeyboard() const override { return false; }

    bool AcceptsFocusRecursively() const override { return false; }

protected:
    /// GTK has no borders around top levels, so the frame paints wxBORDER_SIMPLE itself.
    void DoGetClientSize(int* width, int* height) const override;

    /// wxWidgets is not told when Wayland has placed the frame.
    void DoGetPosition(int* x, int* y) const override;

    bool TryBefore(wxEvent& event) override;

private:
    int borderWidth() const;
    void addBorder();
    void stopWaitingForTheServer();
    void followTopLevelOfParent();

    bool m_holdsShowEvent = false;
};

} // namespace Nolvex::Platform
