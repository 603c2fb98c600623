// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/String.h"
#include "apps/gallery/Page.h"

#include <wx/frame.h>

class WXDLLIMPEXP_FWD_CORE wxChoice;
class WXDLLIMPEXP_FWD_CORE wxListBox;
class WXDLLIMPEXP_FWD_CORE wxPanel;

namespace Nolvex::Wx {

class TextCtrl;

} // namespace Nolvex::Wx

namespace Nolvex::Gallery {

/// The gallery's window: the pages' titles on the left, the page in the middle, what its controls report
/// below, and a switch for the colours of the default skin.
class GalleryFrame : public wxFrame
{
public:
    GalleryFrame();

    const Array<Page>& pages() const { return m_pages; }

    /// Builds the page anew, in the colours of the default skin.
    void showPage(std::size_t index);

    /// The skins to choose from; 0 is the library's own.
    static constexpr int SKIN_COUNT = 2;
    static const wchar_t* skinName(int index);

    /// Changes the default skin and shows the page in it.
    void chooseSkin(int index);

private:
    wxWindow* makeSidebar(wxWindow* parent);
    void log(const String& text);

    Array<Page> m_pages;
    std::size_t m_shown = 0;
    wxListBox* m_titles = nullptr;
    wxChoice* m_skins = nullptr;
    wxPanel* m_stage = nullptr;
    wxPanel* m_page = nullptr;
    Wx::TextCtrl* m_log = nullptr;
};

} // namespace Nolvex::Gallery
