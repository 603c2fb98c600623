// SPDX-License-Identifier: MIT
#include "apps/viewer/ProbeTool.h"

#include "NolvexLibWx/GeometryConversions.h"
#include "apps/viewer/Command.h"
#include "apps/viewer/view/Development.h"
#include "apps/viewer/view/ImageView.h"
#include "apps/viewer/view/PixelCursor.h"

#include <utility>

namespace Nolvex::Viewer {

ProbeTool::ProbeTool(ImageView& view) : m_view(view), m_topLevel(wxGetTopLevelParent(&view))
{
    m_view.Bind(wxEVT_MOTION, &ProbeTool::onMoved, this);
    m_view.Bind(wxEVT_ENTER_WINDOW, &ProbeTool::onMoved, this);
    m_view.Bind(wxEVT_LEFT_DOWN, &ProbeTool::onPressed, this);
    m_view.Bind(wxEVT_LEAVE_WINDOW, &ProbeTool::onLeft, this);
    m_view.Bind(wxEVT_PAINT, &ProbeTool::onPainted, this);
    m_view.Bind(wxEVT_IDLE, &ProbeTool::onIdle, this);
    m_topLevel->Bind(wxEVT_ACTIVATE, &ProbeTool::onActivated, this);
    m_view.pixelCursor().onChanged = [this] { onCursor(); };
}

ProbeTool::~ProbeTool()
{
    m_view.pixelCursor().onChanged = nullptr;
    m_view.Unbind(wxEVT_MOTION, &ProbeTool::onMoved, this);
    m_view.Unbind(wxEVT_ENTER_WINDOW, &ProbeTool::onMoved, this);
    m_view.Unbind(wxEVT_LEFT_DOWN, &ProbeTool::onPressed, this);
    m_view.Unbind(wxEVT_LEAVE_WINDOW, &ProbeTool::onLeft, this);
    m_view.Unbind(wxEVT_PAINT, &ProbeTool::onPainted, this);
    m_view.Unbind(wxEVT_IDLE, &ProbeTool::onIdle, this);
    if (m_topLevel)
        m_topLevel->Unbind(wxEVT_ACTIVATE, &ProbeTool::onActivated, this);
    if (m_frame)
        m_frame->Destroy();
}

void ProbeTool::setActive(bool active)
{
    m_active = active;
    if (active && !m_frame) {
        m_frame = new Wx::PixelProbe(
            &m_view, [this](const Pixel& position) { return probe(position); }, L"Infinite or not a number");
    }
    if (!active)
        m_view.pixelCursor().set({});
    follow();
}

// GTK also sends motions of a mouse that rests, when windows move under it.
void ProbeTool::onMoved(wxMouseEvent& event)
{
    const bool isMotion = event.GetEventType() == wxEVT_MOTION && event.GetPosition() != m_mouse;
    m_mouseInside = true;
    m_mouse = event.GetPosition();
    if (isMotion)
        m_view.pixelCursor().set({});
    follow();
    event.Skip();
}

void ProbeTool::onPressed(wxMouseEvent& event)
{
    m_view.pixelCursor().set({});
    event.Skip();
}

void ProbeTool::onCursor()
{
    if (m_view.pixelCursor().pixel() && !m_active && m_topLevel)
        runCommand(*m_topLevel, PIXEL_PROBE);
    else
        follow();
}

void ProbeTool::onLeft(wxMouseEvent& event)
{
    m_mouseInside = false;
    follow();
    event.Skip();
}

void ProbeTool::onActivated(wxActivateEvent& event)
{
    m_windowActive = event.GetActive();
    follow();
    event.Skip();
}

// The view is painted when the picture, the settings or the visible part have changed. The values under the
// resting mouse have changed then, too.
void ProbeTool::onPainted(wxPaintEvent& event)
{
    m_outdated = true;
    event.Skip();
}

void ProbeTool::onIdle(wxIdleEvent& event)
{
    if (std::exchange(m_outdated, false))
        follow();
    event.Skip();
}

bool ProbeTool::hasPixel() const
{
    const PixelCursor& cursor = m_view.pixelCursor();
    return cursor.pixel() ? cursor.shown().has_value() : m_mouseInside && m_view.pixelAt(m_mouse);
}

// The frame leaves the pixel that the keyboard has chosen visible.
wxPoint ProbeTool::place() const
{
    const PixelCursor& cursor = m_view.pixelCursor();
    return cursor.pixel() ? cursor.area().Intersect(m_view.GetClientSize()).GetBottomRight() : m_mouse;
}

void ProbeTool::follow()
{
    if (!m_frame)
        return;
    if (!m_active || !m_windowActive || !hasPixel()) {
        m_frame->Hide();
        return;
    }
    m_frame->updatePosition(Wx::toPixel(m_view.ClientToScreen(place())));
    m_frame->Show();
}

Wx::PixelProbe::ProbedPixel ProbeTool::probe(const Pixel& screenPosition) const
{
    const wxPoint position = m_view.ScreenToClient(Wx::toWxPoint(screenPosition));
    Optional<PixelCursor::Shown> shown = m_view.pixelCursor().shown();
    if (!shown) {
        if (const Optional<Pixel> pixel = m_view.pixelAt(position))
            shown = {m_view.pictureAt(position), *pixel};
    }
    if (!shown)
        return {};
    const PixelValues values = developPixel(shown->picture->image(), m_view.display(), shown->pixel);
    return {values.light, values.shown, values.shown.a, shown->pixel, L"sRGB"};
}

} // namespace Nolvex::Viewer
