// SPDX-License-Identifier: MIT
#include "support/ScreenResolution.h"

namespace Nolvex::Tests {

ScreenResolution::ScreenResolution(double) {}

ScreenResolution::~ScreenResolution() = default;

} // namespace Nolvex::Tests
