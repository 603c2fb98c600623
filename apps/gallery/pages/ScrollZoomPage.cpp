// SPDX-License-Identifier: MIT
#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "NolvexLibWx/widgets/OskaBorder.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "NolvexLibWx/widgets/ZoomableScrollable.h"
#include "apps/gallery/Hand.h"
#include "apps/gallery/Page.h"

#include <wx/dcbuffer.h>
#include <wx/panel.h>
#include <wx/sizer.h>

#include <algorithm>
#include <cmath>

namespace Nolvex::Gallery {

namespace {

constexpr int GAP = 10;   // design units
constexpr int FIELD = 24; // pixels of the picture at its own size
constexpr int FIELDS = 64;
constexpr float STEP = 1.25f;
constexpr float WHEEL_NOTCH = 120.0f;
constexpr float MIN_ZOOM = 0.1f;
constexpr float MAX_ZOOM = 16.0f;
const wxSize VIEW_SIZE(420, 240);

// Shows a board of coloured fields. The wheel zooms, and scrolls with Shift or when turned sideways; a pinch
// zooms by one step. The point under the mouse stays where it is.
class BoardView : public wxPanel, public ZoomableScrollable
{
public:
    BoardView(wxWindow* parent, Log log)
        : wxPanel(parent, wxID_ANY, wxDefaultPosition, Wx::scaleByDpi(VIEW_SIZE)), m_log(std::move(log))
    {
        SetBackgroundStyle(wxBG_STYLE_PAINT);
        SetMinSize(Wx::scaleByDpi(VIEW_SIZE));
        Bind(wxEVT_PAINT, &BoardView::onPaint, this);
        bindScrollAndZoomEvents(this);
        Wx::setAccessibleName(*this, L"Board");
    }

    void onScrollOrZoom(wxMouseEvent& event, int amount) override
    {
        const bool isPinch = event.GetEventType() == wxEVT_MAGNIFY;
        m_log(Wx::toString(
            wxString::Format(isPinch ? L"A pinch of %d." : L"The wheel was turned by %d.", amount)));
        const bool isSideways = !isPinch && event.GetWheelAxis() == wxMOUSE_WHEEL_HORIZONTAL;
        if (isSideways || (!isPinch && event.ShiftDown()))
            scroll(isSideways ? wxPoint(-amount / 2, 0) : wxPoint(0, amount / 2));
        else
            zoom(event.GetPosition(),
                 isPinch ? static_cast<float>(amount) : static_cast<float>(amount) / WHEEL_NOTCH);
    }

    float zoomFactor() const { return m_zoom; }

private:
    void scroll(const wxPoint& distance)
    {
        m_origin += distance;
        Refresh();
    }

    void zoom(const wxPoint& centre, float steps)
    {
        const float before = m_zoom;
        m_zoom = std::clamp(m_zoom * std::pow(STEP, steps), MIN_ZOOM, MAX_ZOOM);
        const wxPoint distance = centre - m_origin;
        const double factor = static_cast<double>(m_zoom / before);
        m_origin = centre - wxPoint(wxRound(distance.x * factor), wxRound(distance.y * factor));
        Refresh();
    }

    int edge(int field) const
    {
        return static_cast<int>(std::lround(static_cast<float>(field * FIELD) * m_zoom));
    }

    void onPaint(wxPaintEvent& /*event*/)
    {
        wxAutoBufferedPaintDC dc(this);
        dc.SetBackground(wxBrush(Wx::toWxColour(Wx::GuiSkin::DEFAULT().darkBackground)));
        dc.Clear();
        dc.SetPen(*wxTRANSPARENT_PEN);
        const wxRect visible(GetClientSize());
        for (int y = 0; y < FIELDS; ++y) {
            for (int x = 0; x < FIELDS; ++x) {
                const wxRect field(m_origin + wxPoint(edge(x), edge(y)),
                                   m_origin + wxPoint(edge(x + 1) - 1, edge(y + 1) - 1));
                if ((x + y) % 2 == 0 || !field.Intersects(visible))
                    continue;
                dc.SetBrush(wxBrush(wxColour(static_cast<unsigned char>(60 + 3 * x),
                                             static_cast<unsigned char>(60 + 3 * y), 140)));
                dc.DrawRectangle(field);
            }
        }
    }

    Log m_log;
    wxPoint m_origin;
    float m_zoom = 1.0f;
};

void build(wxWindow* parent, const Log& log)
{
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(new Wx::StaticText(parent, wxID_ANY,
                                 L"The wheel and a pinch on the touch pad zoom.\n"
                                 L"The wheel with Shift, or turned sideways, scrolls."),
              0, wxBOTTOM, Wx::scaleByDpi(GAP));
    auto* border = new OskaBorder(parent);
    border->addChild(new BoardView(border, log));
    rows->Add(border);
    parent->SetSizer(rows);
}

const Hand::Finder BOARD = Hand::nth<BoardView>(0);

const Array<Scene> SCENES{
    {L"enlarged by the wheel",
     {Hand::moveTo(BOARD),
      Hand::turnWheel(
          BOARD, 3,
          Hand::when<BoardView>(0, [](const BoardView& board) { return board.zoomFactor() > 1.0f; }))}},
    {L"reduced by the wheel",
     {Hand::moveTo(BOARD),
      Hand::turnWheel(
          BOARD, -3,
          Hand::when<BoardView>(0, [](const BoardView& board) { return board.zoomFactor() < 1.0f; }))}},
};

const Page PAGE(L"Scroll and zoom", build, {}, SCENES);

} // namespace

} // namespace Nolvex::Gallery
