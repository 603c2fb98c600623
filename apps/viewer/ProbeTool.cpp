// SPDX-License-Identifier: MIT
#include "apps/viewer/ProbeTool.h"

#include "NolvexLibWx/GeometryConversions.h"
#include "apps/viewer/view/Development.h"
#include "apps/viewer/view/ImageView.h"

#include <utility>

namespace Nolvex::Viewer {

ProbeTool::ProbeTool(ImageView& view) : m_view(view), m_topLevel(wxGetTopLevelParent(&view))
{
    m_view.Bind(wxEVT_MOTION, &ProbeTool::onMoved, this);
    m_view.Bind(wxEVT_ENTER_WINDOW, &ProbeTool::onMoved, this);
    m_view.Bind(wxEVT_LEAVE_WINDOW, &ProbeTool::onLeft, this);
    m_view.Bind(wxEVT_PAINT, &ProbeTool::onPainted, this);
    m_view.Bind(wxEVT_IDLE, &ProbeTool::onIdle, this);
    m_topLevel->Bind(wxEVT_ACTIVATE, &ProbeTool::onActivated, this);
}

ProbeTool::~ProbeTool()
{
    m_view.Unbind(wxEVT_MOTION, &ProbeTool::onMoved, this);
    m_view.Unbind(wxEVT_ENTER_WINDOW, &ProbeTool::onMoved, this);
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
    follow();
}

void ProbeTool::onMoved(wxMouseEvent& event)
{
    m_mouseInside = true;
    m_mouse = event.GetPosition();
    follow();
    event.Skip();
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

void ProbeTool::follow()
{
    if (!m_frame)
        return;
    if (!m_active || !m_mouseInside || !m_windowActive || !m_view.pixelAt(m_mouse)) {
        m_frame->Hide();
        return;
    }
    m_frame->updatePosition(Wx::toPixel(m_view.ClientToScreen(m_mouse)));
    m_frame->Show();
}

Wx::PixelProbe::ProbedPixel ProbeTool::probe(const Pixel& screenPosition) const
{
    const wxPoint place = m_view.ScreenToClient(Wx::toWxPoint(screenPosition));
    const Optional<Pixel> position = m_view.pixelAt(place);
    if (!position)
        return {};
    const PixelValues values = developPixel(m_view.pictureAt(place)->image(), m_view.display(), *position);
    return {values.light, values.shown, values.shown.a, *position, L"sRGB"};
}

} // namespace Nolvex::Viewer
