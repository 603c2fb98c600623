// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Function.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/Pixel.h"
#include "apps/viewer/Picture.h"

#include <wx/gdicmn.h>

namespace Nolvex::Viewer {

class ImageView;

/// The pixel of a view's picture that the keyboard has chosen, to be looked at without a mouse. The view
/// draws a frame around the pixel. A member of the view.
class PixelCursor : private Noncopyable
{
public:
    explicit PixelCursor(ImageView& view) : m_view(view) {}

    /// Called last when the pixel is another one, has another picture's values, or there is none any more.
    /// May destroy the view.
    Function<void()> onChanged;

    /// The pixel, counted from the top left one of the image, or nullopt if none is chosen.
    const Optional<Pixel>& pixel() const { return m_pixel; }

    /// Chooses a pixel, limited to those of the image, and scrolls the view so that the pixel can be seen.
    void set(const Optional<Pixel>& pixel);

    /// Moves on from the chosen pixel, or chooses the one in the middle of the view if there is none.
    void move(const Pixel& distance);

    /// The view shows another picture. Its pixel in the same place is chosen if the place stays.
    void followPicture(bool staysInPlace);

    /// Returns the area of the view that shows the pixel. At least one pixel of wxWidgets; empty if no pixel
    /// is chosen.
    wxRect area() const;

    /// What the view shows there. In a comparison that may be a pixel of the second picture.
    struct Shown
    {
        SharedPicture picture;
        Pixel pixel;
    };

    /// Returns nullopt if no pixel is chosen, or if the second picture has none there.
    Optional<Shown> shown() const;

private:
    void scrollAlong();
    void tell();

    ImageView& m_view;
    Optional<Pixel> m_pixel;
};

} // namespace Nolvex::Viewer
