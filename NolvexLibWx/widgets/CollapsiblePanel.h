// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Function.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/widgets/GuiSkin.h"

#include <wx/panel.h>

namespace Nolvex::Wx {

class StaticLine;
class StaticText;

/// A window that folds away under a header: a triangle, a label and, if wanted, one more window at the right.
/// A click on the triangle or the label folds and unfolds, and so do Space and Enter while the triangle has
/// the focus.
///
/// Each change calls the callback and then sends a wxCollapsiblePaneEvent, which goes up to the parents;
/// either may destroy the panel. A new panel is collapsed, and has sent that event already.
class NOLVEXLIBWX_EXPORT CollapsiblePanel : public wxPanel
{
public:
    class Tick;

    /// `content`, which must be shown, and `extra` if it is not null, become children of the panel.
    /// `contentBorder` is in pixels around the content; `labelSize`, in design units, is the size of the
    /// label (wxDefaultSize: of its text).
    CollapsiblePanel(wxWindow* parent, const GuiSkin& skin, const String& label, wxWindow* content,
                     wxWindow* extra = nullptr, int contentBorder = 0, wxSize labelSize = wxDefaultSize);
    ~CollapsiblePanel() override;

    /// The header's label.
    void SetLabel(const wxString& label) override;
    wxString GetLabel() const override;

    bool isCollapsed() const;

    /// Tells nobody when nothing changes.
    void setCollapsed(bool collapsed);

    void toggleCollapsed();

    /// `onToggle` is called with true when the panel has been collapsed.
    void setToggleCallback(Function<void(bool)> onToggle);

private:
    void layOut();
    void showContent(bool show);
    void onHeaderClicked(wxMouseEvent& event);
    void onTickKey(wxKeyEvent& event);

    wxWindow* m_content = nullptr;
    wxWindow* m_extra = nullptr;
    Tick* m_tick = nullptr;
    StaticText* m_label = nullptr;
    Function<void(bool)> m_toggleCallback;
    int m_contentBorder;
    StaticLine* m_rule = nullptr;
};

/// The triangle: it points down over content that is shown and right when the content is folded away. Dots
/// around it, in the skin's text colour, show that it has the focus.
class NOLVEXLIBWX_EXPORT CollapsiblePanel::Tick : public wxPanel
{
public:
    Tick(wxWindow* parent, const GuiSkin& skin);
    ~Tick() override;

    /// The panel's.
    wxString GetLabel() const override;

    bool isExpanded() const { return m_expanded; }

    void setExpanded(bool expanded);

    /// Paints the triangle over the given size from the DC's origin, in the colours of the skin that was the
    /// first to be painted in this process.
    static void draw(wxDC& dc, wxSize size, bool expanded, const GuiSkin& skin);

private:
    void onFocusChanged(wxFocusEvent& event);

    bool m_expanded = true;
};

} // namespace Nolvex::Wx
