// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/ISkinnable.h"

namespace Nolvex {

Wx::ISkinnable::~ISkinnable() = default;

} // namespace Nolvex
