// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Function.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/Pixel.h"
#include "NolvexLib/RgbBytes.h"
#include "NolvexLibWx/widgets/TooltipWindow.h"
#include "NolvexLibWx/widgets/ZoomableScrollable.h"
#include "apps/viewer/DisplaySettings.h"
#include "apps/viewer/Picture.h"
#include "apps/viewer/view/SceneRenderer.h"
#include "apps/viewer/view/ViewTransform.h"

#include <wx/eventfilter.h>
#include <wx/timer.h>
#include <wx/window.h>

#include <memory>

namespace Nolvex::Viewer {

class PixelCursor;
class ViewKeys;
class ViewMouse;

/// Shows a picture at any scale. The wheel, pinches and the keys + and - zoom, and a double click changes
/// between the size of the view and 1 : 1. A drag, the wheel with Shift or turned sideways, and the keys that
/// scroll move the picture. Large pixels have their values written into them. A drag with Shift, or the
/// arrows with Shift, select pixels. The arrows with Ctrl choose a single pixel. When Tab brings the focus
/// here, a dotted line along the edges shows it.
///
/// A second picture can be shown beside the first one: both lie at the same place, and a divider, which the
/// user can move, tells which one is seen.
///
/// At 1 : 1 each pixel of the picture is a pixel of the device. Positions in the view are counted in pixels
/// of wxWidgets.
class ImageView : public wxWindow, public Wx::TooltipWindow, private ZoomableScrollable, private wxEventFilter
{
public:
    ImageView(wxWindow* parent, SharedPicture picture);
    ~ImageView() override;

    // The view calls these functions last, so that they may destroy the view.

    /// Called when scale or place have changed.
    Function<void()> onViewChanged;

    /// Called with the selected pixels when the user has changed the selection: after a drag, and for each
    /// key.
    Function<void(const Optional<wxRect>&)> onSelection;

    /// Called with the new place when the user moves the divider.
    Function<void(float)> onDividerMoved;

    /// Shows another picture, or none if `picture` is null. The scale and the place stay if wanted; otherwise
    /// the whole picture is shown, at 1 : 1 if it is not larger than the view. The selection stays as far as
    /// it lies within the picture, and is forgotten if the place does not stay.
    void setPicture(SharedPicture picture, bool keepPlace = false);

    const SharedPicture& picture() const { return m_picture; }

    /// Shows a second picture to the right of the divider, or ends the comparison if `picture` is null.
    /// `divider` is the part of the view's width to the left of the divider, from 0 to 1.
    void setComparison(SharedPicture picture, float divider);

    const SharedPicture& comparison() const { return m_comparison; }

    float divider() const { return m_divider; }

    /// Returns the place of the divider, or nullopt without a comparison.
    Optional<int> dividerPosition() const;

    /// Moves the divider as the user does.
    void moveDivider(float divider);

    /// Shows the picture with other settings, and keeps them for the pictures to come.
    void setDisplay(const DisplaySettings& settings);

    const DisplaySettings& display() const { return m_display; }

    /// Sets the colour around the picture.
    void setSurround(const RgbBytes& color);

    /// Returns the size of the whole picture at 1 : 1, in pixels of wxWidgets.
    wxSize shownSize() const;

    /// Returns the whole picture as the view shows it, and nothing else: its frame at 1 : 1, with the divider
    /// over the same column of pixels. Empty without a picture.
    Scene wholeScene() const;

    /// Returns the area of the view that the picture takes, whether or not all of it can be seen.
    wxRect pictureArea() const;

    /// Returns the picture that is shown at a position, which a comparison may change.
    const SharedPicture& pictureAt(const wxPoint& position) const;

    /// Returns the pixel of pictureAt() that is shown at a position of the client area, or nullopt beside the
    /// picture. Counts from the top left pixel of the image.
    Optional<Pixel> pixelAt(const wxPoint& position) const;

    /// Returns the pixel of the picture at a position, also if it lies beside the image.
    Pixel nearPixel(const wxPoint& position) const;

    /// Pixels of the device for each pixel of the picture.
    double scale() const { return m_transform.scale(); }

    const ViewTransform& transform() const { return m_transform; }

    // Each of these functions zooms about the middle of the view.

    void setScale(double scale);

    void showActualSize() { setScale(1.0); }

    void zoomIn();
    void zoomOut();

    /// Shows the whole picture as large as possible, also when the view gets another size.
    void fit();

    /// Changes between the size of the view and 1 : 1, with the same pixel at the position.
    void toggleFit(const wxPoint& position);

    void zoomAt(const wxPoint& position, double factor);

    /// Moves the picture freely.
    void pan(const wxPoint& distance);

    /// Moves the picture up to its edges.
    void scroll(const wxPoint& distance);

    /// The selected pixels of the image, counted from the top left one.
    const Optional<wxRect>& selection() const { return m_selection; }

    /// Selects the part of the rectangle that lies within the picture, and does not call onSelection.
    void setSelection(const Optional<wxRect>& selection);

    /// Selects as the user does.
    void select(const Optional<wxRect>& selection);

    /// The pixel that the keyboard has chosen, which a comparison shows of the picture under it.
    PixelCursor& pixelCursor() const { return *m_cursor; }

    /// True once a picture has been painted.
    bool wasPainted() const { return m_painted; }

    /// True while a better image of a large reduced picture is being made.
    bool isProvisional() const { return m_renderer.isProvisional(); }

    /// True while the line along the edges shows that the keyboard is directed here.
    bool hasFocusMark() const { return m_focusMark; }

private:
    int FilterEvent(wxEvent& event) override;
    void onScrollOrZoom(wxMouseEvent& event, int amount) override;

    void onPaint(wxPaintEvent& event);
    void onFocus(wxFocusEvent& event);
    void onSized(wxSizeEvent& event);
    void onTimer(wxTimerEvent& event);
    void measure();
    int pixelsPerUnit() const;
    wxRealPoint toDevice(const wxPoint& position) const;
    Scene scene() const;
    void paintOver(wxDC& dc);
    void showChangedPlace(const ViewTransform& before);

    SharedPicture m_picture;
    SharedPicture m_comparison;
    float m_divider = 0.5f;
    DisplaySettings m_display;
    ViewTransform m_transform;
    SceneRenderer m_renderer;
    Optional<wxRect> m_selection;
    std::unique_ptr<PixelCursor> m_cursor;
    std::unique_ptr<ViewMouse> m_mouse;
    std::unique_ptr<ViewKeys> m_keys;
    wxTimer m_timer; // asks whether the image that is being made is there
    int m_pixelsPerUnit = 1;
    bool m_painted = false;
    bool m_tabPressed = false;
    bool m_focusMark = false;
};

} // namespace Nolvex::Viewer
