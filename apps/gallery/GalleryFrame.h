// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/String.h"
#include "apps/gallery/Page.h"

#include <wx/frame.h>

class WXDLLIMPEXP_FWD_CORE wxListBox;
class WXDLLIMPEXP_FWD_CORE wxPanel;

namespace Nolvex::Wx {

class TextCtrl;
struct GuiSkin;

} // namespace Nolvex::Wx

namespace Nolvex::Gallery {

/// The window of the gallery. On the left it has the titles of the pages and a button for each skin, in the
/// middle the page, and below the page a log of what the controls report.
class GalleryFrame : public wxFrame
{
public:
    GalleryFrame();

    const Array<Page>& pages() const { return m_pages; }

    /// Replaces the shown page by a new page in the colours of the default skin.
    void showPage(std::size_t index);

    /// The number of skins to choose from. Skin 0 is the one that the library starts with.
    static constexpr int SKIN_COUNT = 2;
    static const wchar_t* skinName(int index);
    static const Wx::GuiSkin& skin(int index);

    /// Makes the skin the default one and shows the page in its colours.
    void chooseSkin(int index);

private:
    wxWindow* makeSidebar(wxWindow* parent);
    void makeSkinButtons(int chosen);
    void log(const String& text);

    Array<Page> m_pages;
    std::size_t m_shown = 0;
    wxListBox* m_titles = nullptr;
    wxPanel* m_skins = nullptr;
    wxPanel* m_stage = nullptr;
    wxPanel* m_page = nullptr; // child of the stage
    Wx::TextCtrl* m_log = nullptr;
};

} // namespace Nolvex::Gallery
