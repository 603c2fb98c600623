// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/String.h"
#include "apps/viewer/reading/OpenExrFile.h"
#include "apps/viewer/reading/ReadImage.h"

#include <string>

namespace Nolvex::Viewer {

/// The channels of an EXR file that are shown as one image.
struct OpenExrLayer
{
    /// How the channels become colours.
    enum class Kind
    {
        GREY,            // one channel
        COLOUR,          // three channels; two if the third is 0
        LUMINANCE_CHROMA // luminance and two differences of colour, which have fewer pixels
    };

    int part = 0;
    Kind kind = Kind::GREY;
    std::string name;            // in UTF-8
    std::string prefix;          // what the names of the channels begin with
    Array<std::string> channels; // the full names, without alpha
    std::string alpha;           // the full name, or empty

    PictureLayer described() const;
};

/// Finds the layers of all parts, the main layer first. Parts with deep pixels have none.
Array<OpenExrLayer> openExrLayers(const OpenExrFile& file);

/// Returns whether each pixel of the part has a list of values.
bool isDeep(const Imf::Header& header);

} // namespace Nolvex::Viewer
