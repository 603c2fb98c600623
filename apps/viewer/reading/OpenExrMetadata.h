// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "apps/viewer/reading/ReadImage.h"

#include <ImfHeader.h>

namespace Nolvex::Viewer {

/// Returns the attributes of a part as text, in the order of their names.
Array<MetadataEntry> openExrMetadata(const Imf::Header& header);

} // namespace Nolvex::Viewer
