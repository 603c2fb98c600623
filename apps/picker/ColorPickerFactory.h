// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/widgets/IColorPickerFactory.h"

namespace Nolvex::Picker {

/// Makes the pickers of the programs, each of which shows a ColorPickerDialog. `owner` is any window of
/// wxWidgets: the dialog belongs to the top-level window around that window, and is cancelled when that
/// window is destroyed. Without a position the dialog opens beside `owner`.
class ColorPickerFactory : public IColorPickerFactory
{
public:
    AutoPtr<IColorPicker> createPicker(WindowHandle owner, const String& title, const wxPoint& position,
                                       const Rgb& initial) override;
};

} // namespace Nolvex::Picker
