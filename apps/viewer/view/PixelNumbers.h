// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Pixel.h"
#include "NolvexLibImage/Image.h"
#include "apps/viewer/DisplaySettings.h"

#include <wx/gdicmn.h>
#include <wx/string.h>

class WXDLLIMPEXP_FWD_CORE wxDC;

namespace Nolvex::Viewer {

// The values of the pixels of a picture that is shown so large that they can be written into the pixels.

/// True if the squares of the pixels, whose side is counted in pixels of wxWidgets, have room for numbers.
bool hasRoomForNumbers(double side);

/// Returns the values of a pixel as the image stores them, a line for each of the channels that the settings
/// show. The position must lie within the image.
wxString numbersOf(const Image& image, const DisplaySettings& settings, const Pixel& position);

/// Where pixels are shown, in pixels of wxWidgets.
struct PixelSquares
{
    double side = 0.0;
    wxRealPoint origin; ///< of the image's top left pixel

    wxRect square(const Pixel& position) const;
};

/// Writes the values into all pixels that an area shows, in black or white, whichever can be read better. The
/// DC must be one that is painted on, with its font set by setNumberFont.
void drawNumbers(wxDC& dc, const Image& image, const DisplaySettings& settings, const PixelSquares& squares,
                 const wxRect& area);

/// Sets a font in which four lines have room in a square.
void setNumberFont(wxDC& dc, double side);

} // namespace Nolvex::Viewer
