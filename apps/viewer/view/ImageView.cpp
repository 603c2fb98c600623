// SPDX-License-Identifier: MIT
#include "apps/viewer/view/ImageView.h"

#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "apps/viewer/view/PixelCursor.h"
#include "apps/viewer/view/PixelSelection.h"
#include "apps/viewer/view/ViewAccount.h"
#include "apps/viewer/view/ViewKeys.h"
#include "apps/viewer/view/ViewMarks.h"
#include "apps/viewer/view/ViewMouse.h"

#include <wx/dcbuffer.h>
#include <wx/utils.h>
#include <wx/weakref.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace Nolvex::Viewer {

namespace {

constexpr int CHECK_LENGTH = 8; // design units
constexpr int WHEEL_STEP = 48;  // design units for a notch of the wheel
const double KEY_ZOOM = std::sqrt(2.0);
const double WHEEL_ZOOM = std::sqrt(KEY_ZOOM); // for a notch
constexpr int TIMER_INTERVAL = 20;             // milliseconds

Pixel frameOf(const SharedPicture& picture)
{
    return picture ? picture->frameSize() : Pixel{0, 0};
}

} // namespace

ImageView::ImageView(wxWindow* parent, SharedPicture picture)
    : wxWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
               wxBORDER_NONE | wxWANTS_CHARS | wxFULL_REPAINT_ON_RESIZE),
      TooltipWindow(this),
      m_picture(std::move(picture)),
      m_cursor(std::make_unique<PixelCursor>(*this)),
      m_mouse(std::make_unique<ViewMouse>(*this)),
      m_keys(std::make_unique<ViewKeys>(*this)),
      m_timer(this)
{
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    SetBackgroundColour(Wx::toWxColour(Wx::GuiSkin::DEFAULT().darkBackground));
    m_transform.setPictureSize(frameOf(m_picture));
    bindScrollAndZoomEvents(this);
    Bind(wxEVT_PAINT, &ImageView::onPaint, this);
    Bind(wxEVT_SIZE, &ImageView::onSized, this);
    Bind(wxEVT_SET_FOCUS, &ImageView::onFocus, this);
    Bind(wxEVT_KILL_FOCUS, &ImageView::onFocus, this);
    Bind(wxEVT_TIMER, &ImageView::onTimer, this, m_timer.GetId());
    AddFilter(this);
    Wx::describeAs<ViewAccount>(*this);
}

ImageView::~ImageView()
{
    RemoveFilter(this);
}

// Remembers whether the last key was Tab. A control that handles Tab itself shows that key to no other
// window.
int ImageView::FilterEvent(wxEvent& event)
{
    if (event.GetEventType() == wxEVT_CHAR_HOOK)
        m_tabPressed = static_cast<wxKeyEvent&>(event).GetKeyCode() == WXK_TAB;
    return Event_Skip;
}

void ImageView::setPicture(SharedPicture picture, bool keepPlace)
{
    const ViewTransform before = m_transform;
    m_picture = std::move(picture);
    if (keepPlace) {
        m_transform.replacePictureSize(frameOf(m_picture));
        setSelection(m_selection);
    } else {
        m_transform.setPictureSize(frameOf(m_picture));
        m_selection.reset();
    }
    const wxWeakRef<wxWindow> self(this);
    m_cursor->followPicture(keepPlace);
    if (self)
        showChangedPlace(before);
}

void ImageView::setComparison(SharedPicture picture, float divider)
{
    m_comparison = std::move(picture);
    m_divider = divider > 0.0f ? std::min(divider, 1.0f) : 0.0f;
    Refresh();
}

Optional<int> ImageView::dividerPosition() const
{
    if (!m_comparison)
        return {};
    return static_cast<int>(std::lround(m_divider * static_cast<float>(GetClientSize().x)));
}

void ImageView::moveDivider(float divider)
{
    const float before = m_divider;
    setComparison(m_comparison, divider);
    const Function<void(float)> notify = onDividerMoved;
    if (notify && m_divider != before)
        notify(m_divider);
}

void ImageView::setDisplay(const DisplaySettings& settings)
{
    if (settings == m_display)
        return;
    m_display = settings;
    Refresh();
}

void ImageView::setSurround(const RgbBytes& color)
{
    SetBackgroundColour(Wx::toWxColour(color));
    Refresh();
}

wxSize ImageView::shownSize() const
{
    const int dense = pixelsPerUnit();
    const Pixel size = frameOf(m_picture);
    return {(size.x + dense - 1) / dense, (size.y + dense - 1) / dense};
}

wxRect ImageView::pictureArea() const
{
    if (!m_picture)
        return {};
    const double dense = pixelsPerUnit();
    const wxRealPoint place = imagePlace(*m_picture, scale(), m_transform.origin());
    const Pixel size = m_picture->size();
    const wxPoint first(static_cast<int>(std::floor(place.x / dense)),
                        static_cast<int>(std::floor(place.y / dense)));
    const wxPoint end(static_cast<int>(std::ceil((place.x + size.x * scale()) / dense)),
                      static_cast<int>(std::ceil((place.y + size.y * scale()) / dense)));
    return {first.x, first.y, std::max(end.x - first.x, 1), std::max(end.y - first.y, 1)};
}

const SharedPicture& ImageView::pictureAt(const wxPoint& position) const
{
    return m_comparison && position.x >= *dividerPosition() ? m_comparison : m_picture;
}

Optional<Pixel> ImageView::pixelAt(const wxPoint& position) const
{
    const SharedPicture& picture = pictureAt(position);
    if (!picture || !wxRect(GetClientSize()).Contains(position))
        return {};
    const Pixel pixel = nearPixel(position);
    const Pixel size = picture->size();
    if (pixel.x < 0 || pixel.y < 0 || pixel.x >= size.x || pixel.y >= size.y)
        return {};
    return pixel;
}

Pixel ImageView::nearPixel(const wxPoint& position) const
{
    const SharedPicture& picture = pictureAt(position);
    const Pixel origin = picture ? picture->origin() : Pixel();
    // A pixel of the view shows the pixel of the picture at its middle.
    constexpr double MIDDLE = 0.5;
    const wxRealPoint place = m_transform.toPicture(toDevice(position) + wxRealPoint(MIDDLE, MIDDLE));
    return Pixel{static_cast<int>(std::floor(place.x)), static_cast<int>(std::floor(place.y))} - origin;
}

// Returns how many pixels of the device there are in each direction for one pixel of wxWidgets.
int ImageView::pixelsPerUnit() const
{
    return std::max(static_cast<int>(GetContentScaleFactor()), 1);
}

wxRealPoint ImageView::toDevice(const wxPoint& position) const
{
    const double dense = pixelsPerUnit();
    return {position.x * dense, position.y * dense};
}

void ImageView::setScale(double scale)
{
    const ViewTransform before = m_transform;
    m_transform.setScale(scale, m_transform.middle());
    showChangedPlace(before);
}

void ImageView::zoomIn()
{
    zoomAt(wxPoint() + GetClientSize() / 2, KEY_ZOOM);
}

void ImageView::zoomOut()
{
    zoomAt(wxPoint() + GetClientSize() / 2, 1.0 / KEY_ZOOM);
}

void ImageView::fit()
{
    const ViewTransform before = m_transform;
    m_transform.setMode(ViewTransform::Mode::FIT);
    showChangedPlace(before);
}

void ImageView::toggleFit(const wxPoint& position)
{
    using Mode = ViewTransform::Mode;
    const bool isFitted = m_transform.mode() == Mode::FIT ||
                          (m_transform.mode() == Mode::AUTOMATIC && m_transform.scale() < 1.0);
    const ViewTransform before = m_transform;
    if (isFitted)
        m_transform.setScale(1.0, toDevice(position));
    else
        m_transform.setMode(Mode::FIT);
    showChangedPlace(before);
}

void ImageView::zoomAt(const wxPoint& position, double factor)
{
    const ViewTransform before = m_transform;
    m_transform.zoomAt(toDevice(position), factor);
    showChangedPlace(before);
}

void ImageView::pan(const wxPoint& distance)
{
    const ViewTransform before = m_transform;
    m_transform.pan(toDevice(distance));
    showChangedPlace(before);
}

void ImageView::scroll(const wxPoint& distance)
{
    const ViewTransform before = m_transform;
    m_transform.scroll(toDevice(distance));
    showChangedPlace(before);
}

void ImageView::setSelection(const Optional<wxRect>& selection)
{
    m_selection = selection && m_picture ? withinImage(*selection, m_picture->size()) : Optional<wxRect>();
    Refresh();
}

void ImageView::select(const Optional<wxRect>& selection)
{
    const Optional<wxRect> before = m_selection;
    setSelection(selection);
    const Function<void(const Optional<wxRect>&)> notify = onSelection;
    const Optional<wxRect> now = m_selection;
    if (notify && now != before)
        notify(now);
}

void ImageView::showChangedPlace(const ViewTransform& before)
{
    Refresh();
    Wx::updateAccessible(*this);
    const Function<void()> notify = onViewChanged;
    if (notify && m_transform != before)
        notify();
}

void ImageView::onScrollOrZoom(wxMouseEvent& event, int amount)
{
    if (event.GetEventType() == wxEVT_MAGNIFY) {
        zoomAt(event.GetPosition(), amount > 0 ? KEY_ZOOM : 1.0 / KEY_ZOOM);
        return;
    }
    const double notches = static_cast<double>(amount) / std::max(event.GetWheelDelta(), 1);
    const int distance = static_cast<int>(std::lround(notches * Wx::scaleByDpi(WHEEL_STEP)));
    if (event.GetWheelAxis() == wxMOUSE_WHEEL_HORIZONTAL)
        scroll({-distance, 0});
    else if (event.ShiftDown())
        scroll({distance, 0});
    else
        zoomAt(event.GetPosition(), std::pow(WHEEL_ZOOM, notches));
}

void ImageView::onSized(wxSizeEvent& event)
{
    event.Skip();
    measure();
}

// The user did not move the picture, but the place of each of its pixels has changed all the same.
void ImageView::measure()
{
    m_pixelsPerUnit = pixelsPerUnit();
    const ViewTransform before = m_transform;
    m_transform.setViewSize(GetClientSize() * m_pixelsPerUnit);
    showChangedPlace(before);
}

Scene ImageView::scene() const
{
    const int dense = pixelsPerUnit();
    return {.size = GetClientSize() * dense,
            .scale = m_transform.scale(),
            .origin = m_transform.origin(),
            .picture = m_picture,
            .comparison = m_comparison,
            .divider = dividerPosition().value_or(0) * dense,
            .display = m_display,
            .backdrop = {Wx::toRgbBytes(GetBackgroundColour()), Wx::scaleByDpi(CHECK_LENGTH) * dense}};
}

Scene ImageView::wholeScene() const
{
    Scene whole = scene();
    const Pixel frame = frameOf(m_picture);
    // The view shows the second picture in the pixels whose middle lies behind the divider.
    const double column = std::ceil((whole.divider - whole.origin.x) / whole.scale - 0.5);
    whole.divider = static_cast<int>(std::clamp(column, 0.0, static_cast<double>(frame.x)));
    whole.size = wxSize(frame.x, frame.y);
    whole.scale = 1.0;
    whole.origin = {};
    return whole;
}

void ImageView::onPaint(wxPaintEvent& /*event*/)
{
    // GTK does not tell that pixels of the device are smaller on the screen to which the window was moved.
    if (m_pixelsPerUnit != pixelsPerUnit())
        CallAfter([this] { measure(); });
    wxAutoBufferedPaintDC dc(this);
    if (const Platform::PixelCanvas* const shown = m_renderer.render(scene())) {
        shown->draw(dc, pixelsPerUnit());
    } else {
        dc.SetBackground(GetBackgroundColour());
        dc.Clear();
    }
    paintOver(dc);
    if (m_renderer.isProvisional() && !m_timer.IsRunning())
        m_timer.Start(TIMER_INTERVAL);
    m_painted = true;
}

void ImageView::paintOver(wxDC& dc)
{
    const ViewMarks marks(*this, dc);
    if (m_picture) {
        marks.drawNumbers();
        marks.drawFrame();
        marks.drawSelection();
        marks.drawPixelCursor();
        marks.drawDivider();
        marks.drawLegend();
    }
    if (m_focusMark)
        marks.drawFocusMark();
}

void ImageView::onTimer(wxTimerEvent& /*event*/)
{
    if (m_renderer.isProvisional() && !m_renderer.canImprove())
        return;
    m_timer.Stop();
    Refresh();
}

// After a click the line is not shown, because the user knows where the click went.
void ImageView::onFocus(wxFocusEvent& event)
{
    m_focusMark = event.GetEventType() == wxEVT_SET_FOCUS && m_tabPressed && !wxGetMouseState().LeftIsDown();
    Refresh();
    event.Skip();
}

} // namespace Nolvex::Viewer
