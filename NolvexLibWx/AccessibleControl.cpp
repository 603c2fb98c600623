// SPDX-License-Identifier: MIT
#include "NolvexLibWx/AccessibleControl.h"

namespace Nolvex {

Wx::AccessibleControl::~AccessibleControl() = default;

void Wx::AccessibleControl::doAction(int /*index*/) {}

void Wx::AccessibleControl::setValue(double /*value*/) {}

String Wx::AccessibleControl::itemName(int /*index*/) const
{
    return {};
}

void Wx::AccessibleControl::selectItem(int /*index*/) {}

} // namespace Nolvex
