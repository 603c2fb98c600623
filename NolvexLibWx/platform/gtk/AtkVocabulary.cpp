// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/gtk/AtkVocabulary.h"

namespace Nolvex {

AtkRole Platform::atkRole(Wx::AccessibleRole role)
{
    using enum Wx::AccessibleRole;
    switch (role) {
    case PUSH_BUTTON:
    case DROPDOWN_BUTTON:
        return ATK_ROLE_PUSH_BUTTON;
    case TOGGLE_BUTTON:
    case DISCLOSURE:
        return ATK_ROLE_TOGGLE_BUTTON;
    case CHECK_BOX:
        return ATK_ROLE_CHECK_BOX;
    case LABEL:
        return ATK_ROLE_LABEL;
    case LINK:
        return ATK_ROLE_LINK;
    case GROUP:
        return ATK_ROLE_GROUPING;
    case IMAGE:
        return ATK_ROLE_IMAGE;
    case SEPARATOR:
        return ATK_ROLE_SEPARATOR;
    case SPINNER:
        return ATK_ROLE_SPIN_BUTTON;
    case COMBO_BOX:
        return ATK_ROLE_COMBO_BOX;
    case SLIDER:
        return ATK_ROLE_SLIDER;
    case BORDER:
        break;
    }
    return ATK_ROLE_FILLER;
}

} // namespace Nolvex
