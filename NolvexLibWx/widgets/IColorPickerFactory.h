// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/AutoPtr.h"
#include "NolvexLib/Function.h"
#include "NolvexLib/Polymorphic.h"
#include "NolvexLib/Rgb.h"
#include "NolvexLib/String.h"
#include "NolvexLib/WindowHandle.h"
#include "NolvexLibWx/Export.h"

#include <wx/gdicmn.h>

namespace Nolvex {

/// Lets the user choose a colour. An application implements this interface, for example by a dialog.
class NOLVEXLIBWX_EXPORT IColorPicker : public Polymorphic
{
public:
    /// The picker calls `onPreview` with each colour that the user tries while the picker runs.
    virtual void setPreviewCallback(const Function<void(const Rgb&)>& onPreview) = 0;

    /// The picker calls `onCommit` with the colour that the user has chosen, and does not call it when the
    /// user cancels.
    virtual void setCommitCallback(const Function<void(const Rgb&)>& onCommit) = 0;

    /// Returns when the user has chosen or cancelled.
    virtual void runModal() = 0;

    /// Returns where on the screen the picker was when it closed, so that the next picker can open there.
    virtual wxPoint getPosition() const = 0;
};

/// Makes the pickers of a control that shows a colour. An application implements this interface.
class NOLVEXLIBWX_EXPORT IColorPickerFactory : public Polymorphic
{
public:
    /// Returns a picker that shows `initial` at first, or null for none. `position` is the place of the
    /// picker on the screen, or wxDefaultPosition. The callbacks of the picker may destroy the window
    /// `owner`; a ColorPickerButton keeps its factory until the picker is gone.
    virtual AutoPtr<IColorPicker> createPicker(WindowHandle owner, const String& title,
                                               const wxPoint& position, const Rgb& initial) = 0;
};

} // namespace Nolvex
