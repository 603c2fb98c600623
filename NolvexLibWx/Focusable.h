// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Export.h"

namespace Nolvex::Wx {

/// Marks the controls that moveFocus may give the focus to. A control derives from it beside its wxWidgets
/// class.
class NOLVEXLIBWX_EXPORT Focusable
{
protected:
    Focusable() = default;
    ~Focusable() = default;
};

} // namespace Nolvex::Wx
