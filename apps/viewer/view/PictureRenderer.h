// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/RgbBytes.h"
#include "NolvexLibImage/Image.h"
#include "apps/viewer/AlphaKind.h"
#include "apps/viewer/DisplaySettings.h"

#include <wx/gdicmn.h>

#include <array>
#include <cstddef>

namespace Nolvex::Viewer {

class Pyramid;

namespace Platform {

class PixelRows;

} // namespace Platform

/// What lies behind a picture.
struct Backdrop
{
    RgbBytes surround{};
    /// The side of the squares of the pattern that the settings ask for.
    int checkLength = 8;

    static constexpr RgbBytes LIGHT_CHECK{204, 204, 204};
    static constexpr RgbBytes DARK_CHECK{128, 128, 128};

    /// Returns the colours of the two kinds of squares behind transparent pixels, which are equal if there is
    /// no pattern.
    std::array<RgbBytes, 2> colors(bool isChecked) const;

    /// Returns which of the colours is that of a place in the view.
    std::size_t squareAt(int x, int y) const;

    friend bool operator==(const Backdrop&, const Backdrop&) = default;
};

/// How an image is shown in a view. Lengths in the view are counted in pixels of the device.
struct ShownImage
{
    const Image& image;
    /// The reduced copies of the image. Without them an image at less than half of its size is shown by
    /// single pixels. With them an image between 1/2 and 1 : 1 is drafted: its largest copy is enlarged.
    const Pyramid* pyramid = nullptr;
    DisplaySettings settings{};
    double scale = 1.0;
    /// The place of the image's top left corner in the view.
    wxRealPoint origin{};
    AlphaKind alpha = AlphaKind::STRAIGHT;
};

/// Draws the part of the image that lies inside a rectangle of the view, and leaves the other pixels.
/// Enlarged pixels are squares with sharp edges, reduced ones are averages. Only what the rectangle shows is
/// converted, on as many threads as there are cores. Throws std::bad_alloc if memory has run out.
void drawImage(const ShownImage& shown, const Backdrop& backdrop, const wxRect& clip,
               const Platform::PixelRows& rows);

/// Returns the pixels of the view that drawImage() would change.
wxRect drawnArea(const ShownImage& shown, const wxRect& clip);

/// Fills the part of a rectangle that lies within the rows.
void fillWith(const RgbBytes& color, const wxRect& rect, const Platform::PixelRows& rows);

} // namespace Nolvex::Viewer
