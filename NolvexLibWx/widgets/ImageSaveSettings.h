// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ColorFormat.h"

namespace Nolvex::Wx {

/// How an image is written into a file.
struct ImageSaveSettings
{
    ColorFormat colorFormat = ColorFormat::DEFAULT;
    bool includeAlpha = true;

    friend bool operator==(const ImageSaveSettings&, const ImageSaveSettings&) = default;
};

} // namespace Nolvex::Wx
