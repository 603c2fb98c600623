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

/// What a border shows.
enum class OskaBorderState : std::uint32_t
{
    HOVERED = 2,  ///< the mouse is inside the window
    ENABLED = 4,  ///< the window is enabled
    NO_FRAME = 8, ///< no outer frame and no bottom edge; the inner line takes the whole rectangle
};

/// The panel that gives controls their look: a dark frame, an inner line that lights up under the mouse while
/// the panel is enabled, and a two-tone bottom edge. Base of the button family, and by itself a frame around
/// one child window.
class NOLVEXLIBWX_EXPORT OskaBorder : public Platform::SelfPaintedPanel
{
public:
    explicit OskaBorder(wxWindow* parent, Flags<OskaBorderState> state = OskaBorderState::ENABLED,
                        wxWindowID id = wxID_ANY, long style = wxTAB_TRAVERSAL,
                        const wxString& name = wxASCII_STR(wxPanelNameStr));
    ~OskaBorder() override;

    /// Frames `child`, a child window of this one, at 2 pixels' distance on all sides, and fits the panel to
    /// it. Called again, it frames the other window instead.
    void addChild(wxWindow* child);

    /// Keeps the ENABLED flag in step; does not repaint.
    bool Enable(bool enable = true) override;

    /// A border is no Tab stop, but the windows in it may be. A control that derives from this class and
    /// takes the focus returns true.
    bool AcceptsFocusFromKeyboard() const override;

    Flags<OskaBorderState> borderState() const { return m_state; }

    /// Paints the border into `rect`, lines only, with the default skin's highlight. Exact for a `rect` that
    /// starts at (0, 0): the bottom edge is drawn from the rectangle's corner to its width and height.
    static void draw(wxDC& dc, const Bucket& rect, Flags<OskaBorderState> flags);

    static wxPen OUTER();
    static wxPen INNER();
    static wxPen BOTTOM_OUTER();
    static wxPen BOTTOM_INNER();
    /// In the highlight colour that the default skin has now.
    static wxPen SELECTED();

protected:
    void onPaint(wxPaintEvent& event);

private:
    void setHovered(bool hovered);

    wxBoxSizer* m_sizer = nullptr;
    wxWindow* m_child = nullptr;

protected:
    Flags<OskaBorderState> m_state;
};

} // namespace Nolvex
