// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/String.h"
#include "apps/gallery/Page.h"

#include <wx/frame.h>

class WXDLLIMPEXP_FWD_CORE wxPanel;

namespace Nolvex::Wx {

class TextCtrl;
struct GuiSkin;

} // namespace Nolvex::Wx

namespace Nolvex::Gallery {

class PageList;
class SkinEditor;

/// The window of the gallery. On the left it has the titles of the pages, in the middle the page and below
/// the page a log of what the controls report, and on the right the editor of the skin. Ctrl+Page Down and
/// Ctrl+Page Up turn the pages.
class GalleryFrame : public wxFrame
{
public:
    /// Shows all pages that are registered, or those that are given.
    explicit GalleryFrame(Array<Page> pages = allPages());
    ~GalleryFrame() override;

    const Array<Page>& pages() const { return m_pages; }

    /// Replaces the shown page by a new page in the colours of the default skin.
    void showPage(std::size_t index);

    std::size_t shownPage() const { return m_shown; }

    /// The panel of the shown page.
    wxPanel* page() const { return m_page; }

    /// Gives the focus to the log, so that no control of the page has the focus.
    void focusLog();

    PageList* titles() const { return m_titles; }

    SkinEditor* skinEditor() const { return m_editor; }

    /// Skin 0 is the default skin with which the library starts. The index is below SKIN_COUNT.
    static const wchar_t* skinName(int index);
    static const Wx::GuiSkin& skin(int index);

    /// Makes the skin with this index the default one and shows everything in its colours.
    void chooseSkin(int index);

    /// Makes the skin the default one and shows everything in its colours. The page and all other controls
    /// that keep the colours of a skin are made anew.
    void applySkin(const Wx::GuiSkin& skin, const String& name);

    /// Makes the skin the default one and recolours the windows, for as long as the user tries a colour.
    /// Buttons keep the colours of their states.
    void previewSkin(const Wx::GuiSkin& skin);

private:
    wxSizer* makeMiddle(wxWindow* root);
    void onCharHook(wxKeyEvent& event);
    void log(const String& text);

    Array<Page> m_pages;
    std::size_t m_shown = 0;
    PageList* m_titles = nullptr;
    SkinEditor* m_editor = nullptr;
    wxPanel* m_stage = nullptr;
    wxPanel* m_page = nullptr; // child of the stage
    Wx::TextCtrl* m_log = nullptr;
};

} // namespace Nolvex::Gallery
