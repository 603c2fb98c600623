// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/widgets/ComboBoxDropdown.h"

#include <wx/font.h>

namespace Nolvex::Wx {

/// The window that paints the rows of a combo box's list. A short list has a canvas as tall as all its rows.
/// As no window system has windows of any height, the canvas of a longer list is a slice of the list, which
/// the list moves to where the user scrolls.
class NOLVEXLIBWX_EXPORT ComboBoxDropdown::Canvas : public wxWindow
{
public:
    /// In pixels. X11 allows 32,767.
    static constexpr int MAX_HEIGHT = 32'000;

    /// Everything that decides how the rows look.
    struct Face
    {
        ArrayView<const ComboBox::Item> items;
        int markedRow = -1; ///< no row is marked if there is no such row
        int rowHeight = 0;  ///< in pixels
        int top = 0;        ///< the distance from the top of the list to the top of the picture, in pixels
        GuiSkin skin;
        wxFont font;
    };

    Canvas(wxWindow* parent, ComboBoxDropdown& dropdown, const ComboBoxSelection& selection,
           const GuiSkin& skin, int rowHeight);
    ~Canvas() override;

    bool AcceptsFocus() const override { return false; }

    int markedRow() const { return m_markedRow; }

    /// Repaints the rows if another row is marked now.
    void setMarkedRow(int row);

    /// The distance of the slice from the top of the list, in pixels.
    int top() const { return m_top; }

    void setTop(int top);

    /// Returns the height of a list of so many rows, in pixels.
    static int heightOf(int rows, int rowHeight);

    /// Paints the part of the rows that lies in the rectangle `part` of the DC. The cost depends on the part,
    /// not on the number of items.
    static void draw(wxDC& dc, const wxRect& part, const Face& face);

private:
    void onPaint(wxPaintEvent& event);
    void onMouseMoved(wxMouseEvent& event);
    void onMouseUp(wxMouseEvent& event);
    int rowAt(const wxPoint& position) const;

    ComboBoxDropdown& m_dropdown;
    const ComboBoxSelection& m_selection;
    GuiSkin m_skin;
    int m_rowHeight;
    int m_markedRow;
    int m_top = 0;
    wxPoint m_lastMouse = wxDefaultPosition; // on the screen
};

} // namespace Nolvex::Wx
