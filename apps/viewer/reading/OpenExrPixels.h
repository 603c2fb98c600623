// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Expected.h"
#include "NolvexLib/String.h"
#include "NolvexLibImage/Image.h"
#include "apps/viewer/reading/OpenExrLayers.h"
#include "apps/viewer/reading/PictureReader.h"

namespace Nolvex::Viewer {

/// Reads the pixels of a layer: halves as they are, and channels of other types as floats. The error is the
/// rest of a sentence about the file. Throws exceptions of OpenEXR if the pixels are damaged.
Expected<Image, String> readOpenExrPixels(OpenExrFile& file, const OpenExrLayer& layer,
                                          const ReadingProgress& progress);

} // namespace Nolvex::Viewer
