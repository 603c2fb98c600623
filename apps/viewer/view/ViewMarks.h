// SPDX-License-Identifier: MIT
#pragma once

#include <wx/gdicmn.h>

class WXDLLIMPEXP_FWD_CORE wxDC;

namespace Nolvex::Viewer {

class ImageView;
class Picture;

/// Draws over the picture of a view, while the view is painted. The view has a picture, unless only the mark
/// of the focus is drawn.
class ViewMarks
{
public:
    ViewMarks(const ImageView& view, wxDC& dc);

    /// Writes the values of the pixels into their squares if these are large enough.
    void drawNumbers() const;

    /// Draws a thin outline of the frame, if the image takes more or less than the frame.
    void drawFrame() const;

    /// Draws a line of black and white dashes around the selected pixels, which shows on every picture.
    void drawSelection() const;

    /// Draws a frame of two tones around the pixel that the keyboard has chosen.
    void drawPixelCursor() const;

    void drawDivider() const;
    void drawLegend() const;
    void drawFocusMark() const;

private:
    double scale() const;
    wxRealPoint placeOf(const Picture& picture) const;
    wxRect rectOf(const wxRealPoint& place, const wxRealPoint& size) const;
    void drawNumbersOf(const Picture& picture, const wxRect& area) const;

    const ImageView& m_view;
    wxDC& m_dc;
    wxRect m_area;
    double m_dense;
};

} // namespace Nolvex::Viewer
