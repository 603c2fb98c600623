// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Optional.h"
#include "NolvexLib/String.h"
#include "apps/viewer/Picture.h"
#include "apps/viewer/inspection/PictureDifference.h"
#include "apps/viewer/inspection/PictureStatistics.h"

#include <wx/gdicmn.h>

namespace Nolvex::Viewer {

/// Returns a number for the user: six significant digits, with a point whatever the locale is.
String numberText(double number);

/// Returns lines that tell the statistics of a picture, or of the selected part of it.
String statisticsText(const Picture& picture, const PictureStatistics& statistics,
                      const Optional<wxRect>& selection);

/// Returns lines that tell what the picture's file tells: size, format, place in the frame, and metadata.
String metadataText(const Picture& picture);

/// Returns lines with the numbers of a comparison.
String differenceText(const PictureDifference& difference);

} // namespace Nolvex::Viewer
