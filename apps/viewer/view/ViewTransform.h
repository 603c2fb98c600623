// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Pixel.h"

#include <wx/gdicmn.h>

namespace Nolvex::Viewer {

/// The scale and the place at which a view shows a picture. Lengths in the view are counted in pixels of the
/// device, from the top left corner of the view. Points in the picture are counted in pixels, from the top
/// left corner of the top left pixel.
///
/// The centre of the view always lies over the picture, so that no movement and no zoom can lose the picture.
/// Numbers that are infinite or NaN are ignored.
class ViewTransform
{
public:
    /// The scales are pixels of the view for one pixel of the picture.
    static constexpr double MIN_SCALE = 1.0 / 4096;
    static constexpr double MAX_SCALE = 256.0;

    /// What becomes of the scale and the place when the view or the picture gets another size.
    enum class Mode
    {
        AUTOMATIC, ///< at 1 : 1, but reduced to the size of the view if larger; in the middle
        FIT,       ///< as large as the view has room for; in the middle
        FREE,      ///< the scale stays, and so does the point of the picture in the middle of the view
    };

    void setViewSize(const wxSize& size);

    /// Also begins to show another picture in the automatic mode.
    void setPictureSize(const Pixel& size);

    /// Shows another picture at the same scale and place. If the pictures differ in size, the middle of the
    /// view gets the same part of the way across the new picture as across the old one.
    void replacePictureSize(const Pixel& size);

    void setMode(Mode mode);

    Mode mode() const { return m_mode; }

    double scale() const { return m_scale; }

    /// Multiplies the scale and keeps the point of the picture that is shown at a point of the view. A step
    /// over 1 : 1 ends at 1 : 1.
    void zoomAt(const wxRealPoint& point, double factor);

    /// Sets the scale, limited to the range from MIN_SCALE to MAX_SCALE, and keeps a point as zoomAt does.
    void setScale(double scale, const wxRealPoint& point);

    /// Moves the picture.
    void pan(const wxRealPoint& distance);

    /// Moves the picture as scroll bars would: not farther than to its edges, and not at all in a direction
    /// in which the whole picture can be seen.
    void scroll(const wxRealPoint& distance);

    /// The place of the picture's top left corner, which always is a whole pixel of the view.
    wxPoint origin() const;

    /// The size that the picture takes in the view.
    wxRealPoint shownSize() const;

    wxRealPoint middle() const { return {m_view.x / 2.0, m_view.y / 2.0}; }

    wxSize viewSize() const { return m_view; }

    wxRealPoint toPicture(const wxRealPoint& viewPoint) const;
    wxRealPoint toView(const wxRealPoint& picturePoint) const;

    friend bool operator==(const ViewTransform&, const ViewTransform&) = default;

private:
    double fittingScale() const;
    void arrange();
    void centre();
    void limitPlace();

    wxSize m_view;
    Pixel m_picture;
    Mode m_mode = Mode::AUTOMATIC;
    double m_scale = 1.0;
    wxRealPoint m_place; // of the top left corner; zooming forth and back would add up rounded numbers
};

} // namespace Nolvex::Viewer
