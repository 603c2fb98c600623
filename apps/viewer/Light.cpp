// SPDX-License-Identifier: MIT
#include "apps/viewer/Light.h"

#include <cmath>

namespace Nolvex::Viewer {

float signedPower(float value, float exponent)
{
    return exponent == 1.0f ? value : std::copysign(std::pow(std::abs(value), exponent), value);
}

} // namespace Nolvex::Viewer
