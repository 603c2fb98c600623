// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/widgets/ComboBox.h"
#include "NolvexLibWx/widgets/DropdownFrame.h"

#include <memory>

class WXDLLIMPEXP_FWD_CORE wxSizerItem;

namespace Nolvex::Detail {

class TraceElapsedTime;

} // namespace Nolvex::Detail

namespace Nolvex::Wx {

/// The list of a combo box: a frame that drops down below the box, with a row for each item, of which at most
/// 17 are seen at once. The box makes the frame in its constructor; programs do not.
///
/// The list shows the box's items and its selection, and marks one row: the selected one, or that under the
/// mouse after the mouse has moved. A click on a row selects the item and closes the list.
class NOLVEXLIBWX_EXPORT ComboBoxDropdown : public DropdownFrame
{
public:
    class Canvas;

    ComboBoxDropdown(ComboBox& box, ComboBoxSelection& selection, const GuiSkin& skin);
    ~ComboBoxDropdown() override;

    /// Opens the list, or brings the size of the open list up to date, and scrolls to the selected row.
    void open();

    bool Show(bool show = true) override;

    /// Marks the selected row and repaints the list.
    void markSelected();

    /// Scrolls the open list so that the selected row is seen.
    void showSelected();

    /// Turns the wheel over the list: the marked row becomes the selected one before the selection moves.
    void turnWheel(wxMouseEvent& event);

    /// Selects the item of the row and closes the list. The list stays open if there is no such row.
    void choose(int row);

private:
    class Scroller;
    class ClickWatch;

    ComboBoxDropdown(ComboBox& box, ComboBoxSelection& selection, const GuiSkin& skin,
                     const Nolvex::Detail::TraceElapsedTime& trace);

    void bindEvents(wxWindow& window);
    void onKeyDown(wxKeyEvent& event);
    void onKey(wxKeyEvent& event);
    void onFocusLost(wxFocusEvent& event);
    void layOut();
    int listHeight() const;
    int viewTop() const;
    void moveSlice();
    bool isSliceInView() const;

    ComboBox& m_box;
    ComboBoxSelection& m_selection;
    std::unique_ptr<ClickWatch> m_clicks; // exists while the list is open
    Scroller* m_scroller = nullptr;
    Canvas* m_canvas = nullptr;
    wxSizerItem* m_above = nullptr;
    wxSizerItem* m_below = nullptr;
    int m_scrollUnit;
    int m_rowHeight;
    bool m_tabPressed = false;
};

} // namespace Nolvex::Wx
