// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"
#include "NolvexLibWx/MessageDialogControl.h"

#include <algorithm>

namespace Nolvex {

/// The controls that a message dialog is to have.
using MessageDialogControls = ArrayView<const Wx::MessageDialogControl* const>;

inline bool isListed(MessageDialogControls controls, const Wx::MessageDialogControl& control)
{
    return std::ranges::find(controls, &control) != controls.end();
}

} // namespace Nolvex
