// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/AccessibleControl.h"

#include <atk/atk.h>

namespace Nolvex::Platform {

/// Returns the ATK role for the role of a control.
AtkRole atkRole(Wx::AccessibleRole role);

struct AtkStatePair
{
    Wx::AccessibleState told;
    AtkStateType system;
};

/// The ATK states for the states that controls report.
inline constexpr AtkStatePair ATK_STATES[] = {
    {Wx::AccessibleState::CHECKABLE, ATK_STATE_CHECKABLE},
    {Wx::AccessibleState::CHECKED, ATK_STATE_CHECKED},
    {Wx::AccessibleState::MIXED, ATK_STATE_INDETERMINATE},
    {Wx::AccessibleState::EXPANDABLE, ATK_STATE_EXPANDABLE},
    {Wx::AccessibleState::EXPANDED, ATK_STATE_EXPANDED},
    {Wx::AccessibleState::HAS_POPUP, ATK_STATE_HAS_POPUP},
    {Wx::AccessibleState::READ_ONLY, ATK_STATE_READ_ONLY},
};

} // namespace Nolvex::Platform
