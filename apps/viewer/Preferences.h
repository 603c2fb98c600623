// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Optional.h"
#include "NolvexLib/RgbBytes.h"
#include "apps/viewer/DisplaySettings.h"

namespace Nolvex::Viewer {

/// How a person likes the viewer, whatever is shown. Exposure, gamma, channel and false colour are a matter
/// of the picture, and the next run begins without them.
struct Preferences
{
    /// The list of pictures comes up when there are several.
    bool picturesPanel = true;
    bool informationPanel = false;
    bool tooltips = true;
    bool lightSurround = false;
    /// The colour around the picture while the light surround is off. Without it the skin has the colour.
    Optional<RgbBytes> surround;
    Encoding encoding = Encoding::GAMMA;
    bool checkerboard = false;

    friend bool operator==(const Preferences&, const Preferences&) = default;
};

} // namespace Nolvex::Viewer
