// SPDX-License-Identifier: MIT
#pragma once

#include "tools/render-sample/Vector3.h"

namespace Nolvex::RenderSample {

/// Sizes in pixels, and the number of light paths a pixel is the mean of. None may be 0.
struct Frame
{
    int width = 448;
    int height = 280;
    int samples = 2400;
};

/// Returns the light that the camera sees in a pixel, counted from the left and the top. Every run gives the
/// same light.
Vector3 tracedPixel(const Frame& frame, int column, int row);

} // namespace Nolvex::RenderSample
