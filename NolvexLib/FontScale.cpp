// SPDX-License-Identifier: MIT
#include "NolvexLib/FontScale.h"

#include <atomic>
#include <cmath>

namespace Nolvex {

namespace {

std::atomic<float> currentScale = 1.0f;

} // namespace

float getFontScale()
{
    return currentScale;
}

bool setFontScale(float scale)
{
    if (!std::isfinite(scale) || scale <= 0.0f)
        return false;
    currentScale = scale;
    return true;
}

} // namespace Nolvex
