// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Export.h"

namespace Nolvex::Wx {

/// Marks the controls that moveFocus may land on: a second base beside the toolkit's class.
class NOLVEXLIBWX_EXPORT Focusable
{
protected:
    Focusable() = default;
    ~Focusable() = default;
};

} // namespace Nolvex::Wx
