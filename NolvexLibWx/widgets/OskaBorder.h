// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Bucket.h"
#include "NolvexLib/Flags.h"
#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/platform/SelfPaintedPanel.h"

#include <cstdint>

class WXDLLIMPEXP_FWD_CORE wxBoxSizer;
class WXDLLIMPEXP_FWD_CORE wxDC;
class WXDLLIMPEXP_FWD_CORE wxPen;

namespace Nolvex {

/// The state that a border shows.
enum class OskaBorderState : std::uint32_t
{
    HOVERED = 2,  ///< the mouse is inside the window
    ENABLED = 4,  ///< the window is enabled
    NO_FRAME = 8, ///< no outer frame and no bottom edge; the inner line takes the whole rectangle
};

/// The panel that gives controls their look: a dark frame, an inner line that is highlighted while the mouse
/// is over the enabled panel, and a bottom edge of two shades. It is the base of all buttons, and also serves
/// as a frame around a child window.
class NOLVEXLIBWX_EXPORT OskaBorder : public Platform::SelfPaintedPanel
{
public:
    explicit OskaBorder(wxWindow* parent, Flags<OskaBorderState> state = OskaBorderState::ENABLED,
                        wxWindowID id = wxID_ANY, long style = wxTAB_TRAVERSAL,
                        const wxString& name = wxASCII_STR(wxPanelNameStr));
    ~OskaBorder() override;

    /// Places `child`, a child window of the panel, 2 pixels inside the panel on all sides and fits the panel
    /// to it. A second call replaces the child that is framed.
    void addChild(wxWindow* child);

    /// Sets or clears the ENABLED flag, too. Does not repaint.
    bool Enable(bool enable = true) override;

    /// A border is no Tab stop, but the windows in it may be. A control that derives from this class and
    /// takes the focus returns true.
    bool AcceptsFocusFromKeyboard() const override;

    Flags<OskaBorderState> borderState() const { return m_state; }

    /// Highlights the border as if the mouse were inside, or removes the highlight. Repaints the panel if the
    /// state changes.
    void setHovered(bool hovered);

    /// Draws the lines of the border into `rect`, with the highlight of the default skin. `rect` should start
    /// at (0, 0), because the lines of the bottom edge lead from its corner to its width and height.
    static void draw(wxDC& dc, const Bucket& rect, Flags<OskaBorderState> flags);

    static wxPen OUTER();
    static wxPen INNER();
    static wxPen BOTTOM_OUTER();
    static wxPen BOTTOM_INNER();
    /// Returns a pen in the highlight colour that the default skin has at the time of the call.
    static wxPen SELECTED();

protected:
    void onPaint(wxPaintEvent& event);

private:
    wxBoxSizer* m_sizer = nullptr;
    wxWindow* m_child = nullptr;
    Flags<OskaBorderState> m_state;
};

} // namespace Nolvex
