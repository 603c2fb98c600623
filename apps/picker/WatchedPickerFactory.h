// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/widgets/IColorPickerFactory.h"

namespace Nolvex::Picker {

/// Makes the pickers of the programs, and tells when one of them has ended. A ColorPickerButton does not tell
/// when a picker is cancelled, and then goes on showing the colour that was tried last.
class WatchedPickerFactory : public IColorPickerFactory
{
public:
    /// `onEnded` is called when a picker was cancelled, after the commit callback of a picker, and when a
    /// picker throws. By then the factory may have been destroyed.
    explicit WatchedPickerFactory(Function<void()> onEnded);

    AutoPtr<IColorPicker> createPicker(WindowHandle owner, const String& title, const wxPoint& position,
                                       const Rgb& initial) override;

private:
    Function<void()> m_onEnded;
};

} // namespace Nolvex::Picker
