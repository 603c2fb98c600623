// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Function.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/widgets/GuiSkin.h"

#include <wx/panel.h>
#include <wx/weakref.h>

namespace Nolvex::Wx {

/// A window that folds away under a header, which consists of a triangle, a label and an optional further
/// window at the right. A click on the triangle or the label folds or unfolds the content, and so do Space
/// and Enter while the triangle has the focus.
///
/// Each change calls the callback and then sends a wxCollapsiblePaneEvent, which goes up to the parents;
/// either may destroy the panel. A new panel is collapsed, and has already sent that event. The child windows
/// may be destroyed before the panel; without its content, the panel stays collapsed and changes no more.
class NOLVEXLIBWX_EXPORT CollapsiblePanel : public wxPanel
{
public:
    class Tick;

    /// `content`, which must be shown, and `extra`, which may be null, become children of the panel.
    /// `contentBorder` is the width of the border around the content, in pixels. `labelSize` is the size of
    /// the label, in design units; wxDefaultSize stands for the size of the text.
    CollapsiblePanel(wxWindow* parent, const GuiSkin& skin, const String& label, wxWindow* content,
                     wxWindow* extra = nullptr, int contentBorder = 0, wxSize labelSize = wxDefaultSize);
    ~CollapsiblePanel() override;

    /// The label of the panel is the text of its header.
    void SetLabel(const wxString& label) override;
    wxString GetLabel() const override;

    bool isCollapsed() const;

    /// Calls no callback and sends no event if the panel already is in that state.
    void setCollapsed(bool collapsed);

    void toggleCollapsed();

    /// `onToggle` is called with the new state: true if the panel has been collapsed.
    void setToggleCallback(Function<void(bool)> onToggle);

private:
    void layOut();
    void showContent(bool show);
    void onHeaderClicked(wxMouseEvent& event);
    void onTickKey(wxKeyEvent& event);

    Tick* tick() const;

    // Weak, as the caller can destroy child windows of the panel.
    wxWeakRef<wxWindow> m_content;
    wxWeakRef<wxWindow> m_extra;
    wxWeakRef<wxWindow> m_tick;
    wxWeakRef<wxWindow> m_label;
    Function<void(bool)> m_toggleCallback;
    int m_contentBorder;
    wxWeakRef<wxWindow> m_rule;
};

/// The triangle in the header, which points down while the content is shown and right while it is folded
/// away. Dots around it, in the skin's text colour, show that it has the focus.
class NOLVEXLIBWX_EXPORT CollapsiblePanel::Tick : public wxPanel
{
public:
    Tick(wxWindow* parent, const GuiSkin& skin);
    ~Tick() override;

    /// Returns the label of the panel.
    wxString GetLabel() const override;

    bool isExpanded() const { return m_expanded; }

    void setExpanded(bool expanded);

    /// Paints the triangle over the given size from the DC's origin. All triangles of a process have the
    /// colours of the skin that was painted first.
    static void draw(wxDC& dc, wxSize size, bool expanded, const GuiSkin& skin);

private:
    void onFocusChanged(wxFocusEvent& event);

    bool m_expanded = true;
};

} // namespace Nolvex::Wx
