// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Function.h"
#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/widgets/Focusable.h"
#include "NolvexLibWx/widgets/StaticText.h"

#include <wx/colour.h>

namespace Nolvex::Wx {

/// Text to click on: a hyperlink, or a button that is nothing but its text. It has the hand cursor and a
/// colour of its own while the mouse is over it, and another one when it has been visited.
///
/// A release of the left button over it calls the callback, which may destroy it, and changes nothing else:
/// to mark a link as visited is up to the callback.
class NOLVEXLIBWX_EXPORT TextButton : public StaticText, public Focusable
{
public:
    /// All colours are the window's foreground colour to begin with. `pos` in pixels, `size` in design units.
    TextButton(wxWindow* parent, int id, const String& label, const Function<void()>& onClick,
               const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize);

    /// A hyperlink: a click opens the address in the default browser.
    TextButton(wxWindow* parent, int id, const String& label, const String& url);
    ~TextButton() override;

    void setClickCallback(const Function<void()>& onClick);

    /// Has a click open the address in the default browser instead.
    void setHyperlink(const String& url);

    void setNormalColour(const wxColour& colour);
    void setHoverColour(const wxColour& colour);
    void setVisitedColour(const wxColour& colour);

    /// While the mouse is over the text it shows that first.
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
