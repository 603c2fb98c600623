// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Export.h"

#include <wx/frame.h>

namespace Nolvex::Platform {

/// A frame that Windows does not activate, neither when the frame is shown nor when the user clicks into it:
/// the keyboard focus stays where it was.
class NOLVEXLIBWX_EXPORT PopupFrame : public wxFrame
{
public:
    PopupFrame(wxWindow* parent, long style, const wxString& name);
    ~PopupFrame() override;

    /// Brings the frame in front of other windows; unlike wxFrame's, does not activate it.
    void Raise() override;

    bool Show(bool show = true) override;

    /// These return false here, not in a derived class, as the parent asks for them while Create runs. A
    /// parent that is a panel would pass its focus on to a child that accepts it.
    bool AcceptsFocus() const override { return false; }

    bool AcceptsFocusFromKeyboard() const override { return false; }

    bool AcceptsFocusRecursively() const override { return false; }

    WXDWORD MSWGetStyle(long flags, WXDWORD* extendedStyle = nullptr) const override;

protected:
    WXLRESULT MSWWindowProc(WXUINT message, WXWPARAM wParam, WXLPARAM lParam) override;

private:
    bool hideWithoutActivating();
};

} // namespace Nolvex::Platform
