// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/ComboBoxCanvas.h"

#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/detail/ScreenPlaces.h"
#include "NolvexLibWx/widgets/detail/ComboBoxSelection.h"

#include <wx/brush.h>
#include <wx/dcclient.h>
#include <wx/pen.h>

#include <algorithm>
#include <array>
#include <utility>

namespace Nolvex {

namespace {

constexpr int FIRST_ROW_Y = 2;
constexpr int TEXT_X = 5;
constexpr std::uint32_t FONT_COUNT = 4; // plain, bold, italic, and both

/// Selects the fonts of the rows, each of which is made once for a picture.
class RowFonts
{
public:
    explicit RowFonts(wxDC& dc, const wxFont& font) : m_dc(dc), m_font(font) {}

    void select(Flags<Wx::TextFlag> flags)
    {
        const std::uint32_t index = flags.bits() % FONT_COUNT;
        if (std::exchange(m_selected, index) == index)
            return;
        if (!m_fonts[index].IsOk())
            m_fonts[index] = Wx::setupStaticTextFont(m_font, flags);
        m_dc.SetFont(m_fonts[index]);
    }

private:
    wxDC& m_dc;
    wxFont m_font;
    std::array<wxFont, FONT_COUNT> m_fonts;
    std::uint32_t m_selected = FONT_COUNT;
};

void fill(wxDC& dc, const wxRect& rect, const wxBrush& brush)
{
    dc.SetBrush(brush);
    dc.DrawRectangle(rect);
}

} // namespace

Wx::ComboBoxDropdown::Canvas::Canvas(wxWindow* parent, ComboBoxDropdown& dropdown,
                                     const ComboBoxSelection& selection, const GuiSkin& skin, int rowHeight)
    : m_dropdown(dropdown),
      m_selection(selection),
      m_skin(skin),
      m_rowHeight(rowHeight),
      m_markedRow(selection.index())
{
    // The default constructor ran first so that Create asks the AcceptsFocus of this class.
    Create(parent, wxID_ANY);
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    SetBackgroundColour(toWxColour(skin.background));
    Bind(wxEVT_PAINT, &Canvas::onPaint, this);
    Bind(wxEVT_MOTION, &Canvas::onMouseMoved, this);
    Bind(wxEVT_LEFT_UP, &Canvas::onMouseUp, this);
    Bind(wxEVT_ERASE_BACKGROUND, [](wxEraseEvent&) {});
}

Wx::ComboBoxDropdown::Canvas::~Canvas() = default;

void Wx::ComboBoxDropdown::Canvas::setMarkedRow(int row)
{
    if (std::exchange(m_markedRow, row) != row)
        Refresh();
}

void Wx::ComboBoxDropdown::Canvas::setTop(int top)
{
    if (std::exchange(m_top, top) != top)
        Refresh();
}

int Wx::ComboBoxDropdown::Canvas::heightOf(int rows, int rowHeight)
{
    return rows * rowHeight + FIRST_ROW_Y;
}

void Wx::ComboBoxDropdown::Canvas::draw(wxDC& dc, const wxRect& part, const Face& face)
{
    const wxBrush background(toWxColour(face.skin.background));
    const wxBrush marked(OskaBorder::SELECTED().GetColour());
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetTextForeground(toWxColour(face.skin.text));
    fill(dc, part, background);
    RowFonts fonts(dc, face.font);
    const int count = static_cast<int>(face.items.size());
    const int width = dc.GetSize().x;
    const int start = part.y + face.top - FIRST_ROW_Y;
    for (int row = std::max(start / face.rowHeight, 0);
         row < count && row * face.rowHeight < start + part.height; ++row) {
        const ComboBox::Item& item = face.items[static_cast<std::size_t>(row)];
        const int y = row * face.rowHeight + FIRST_ROW_Y - face.top;
        // Each row covers the text that reaches down from the row above.
        fill(dc, {0, y, width, face.rowHeight}, row == face.markedRow ? marked : background);
        fonts.select(item.flags);
        dc.DrawText(toWxString(item.text), TEXT_X, y);
    }
}

void Wx::ComboBoxDropdown::Canvas::onPaint(wxPaintEvent& /*event*/)
{
    wxPaintDC dc(this);
    draw(dc, GetUpdateRegion().GetBox(),
         {.items = m_selection.items(),
          .markedRow = m_markedRow,
          .rowHeight = m_rowHeight,
          .top = m_top,
          .skin = m_skin,
          .font = dc.GetFont()});
}

void Wx::ComboBoxDropdown::Canvas::onMouseMoved(wxMouseEvent& event)
{
    const wxPoint mouse = ClientToScreen(event.GetPosition());
    // Scrolling moves the rows and not the mouse.
    if (std::exchange(m_lastMouse, mouse) != mouse)
        setMarkedRow(rowAt(event.GetPosition()));
}

void Wx::ComboBoxDropdown::Canvas::onMouseUp(wxMouseEvent& event)
{
    const wxPoint inView = Detail::screenToClient(*GetParent(), ClientToScreen(event.GetPosition()));
    // A press in the list may be released outside.
    if (GetParent()->GetClientRect().Contains(inView))
        m_dropdown.choose(rowAt(event.GetPosition()));
}

int Wx::ComboBoxDropdown::Canvas::rowAt(const wxPoint& position) const
{
    return (position.y + m_top - FIRST_ROW_Y) / m_rowHeight;
}

} // namespace Nolvex
