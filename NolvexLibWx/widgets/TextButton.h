// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Function.h"
#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/widgets/Focusable.h"
#include "NolvexLibWx/widgets/StaticText.h"

#include <wx/colour.h>

namespace Nolvex::Wx {

/// A clickable text: a hyperlink, or a button without a border. While the mouse is over the text, it has a
/// hover colour and the hand cursor. A visited link has a colour of its own.
///
/// When the left button is released over the text, the callback is called, and may destroy the control. A
/// click changes nothing else: the callback decides whether to call `setVisited`.
class NOLVEXLIBWX_EXPORT TextButton : public StaticText, public Focusable
{
public:
    /// All colours are at first the window's foreground colour. `pos` is in pixels, `size` in design units.
    TextButton(wxWindow* parent, int id, const String& label, const Function<void()>& onClick,
               const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize);

    /// Makes a hyperlink: a click opens the address in the default browser.
    TextButton(wxWindow* parent, int id, const String& label, const String& url);
    ~TextButton() override;

    void setClickCallback(const Function<void()>& onClick);

    /// Replaces the callback: a click opens the address in the default browser.
    void setHyperlink(const String& url);

    void setNormalColour(const wxColour& colour);
    void setHoverColour(const wxColour& colour);
    void setVisitedColour(const wxColour& colour);

    /// While the mouse is over the text, the hover colour is shown first.
    void setVisited(bool visited);

    bool isVisited() const { return m_visited; }

private:
    wxColour restingColour() const;
    void show(const wxColour& colour);
    void onClicked(wxMouseEvent& event);
    void onEntered(wxMouseEvent& event);
    void onLeft(wxMouseEvent& event);

    Function<void()> m_clickCallback;
    wxColour m_normalColour;
    wxColour m_hoverColour;
    wxColour m_visitedColour;
    bool m_visited = false;
    bool m_hovered = false;

    wxDECLARE_EVENT_TABLE();
};

} // namespace Nolvex::Wx
