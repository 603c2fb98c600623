// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Function.h"
#include "apps/gallery/Page.h"

#include <wx/panel.h>

#include <cstddef>
#include <map>

namespace Nolvex::Wx {

class Button;

} // namespace Nolvex::Wx

namespace Nolvex::Gallery {

/// The titles of all pages: a button for each page, under the heading of its family, which folds away. The
/// button of the chosen page is toggled.
class PageList : public wxPanel
{
public:
    /// `pages` must outlive the list. `onChoose` is called with the index of the page that the user chooses,
    /// after the click is over, so that the callback may rebuild the list.
    PageList(wxWindow* parent, const Array<Page>& pages, Function<void(std::size_t)> onChoose);

    /// Marks the button of the page and calls nothing.
    void select(std::size_t page);

    std::size_t selected() const { return m_selected; }

    /// Makes all windows of the list anew, in the default skin: buttons keep the colours that the skin had
    /// when they were made.
    void rebuild();

    /// Returns the button of the page.
    Wx::Button* button(std::size_t page) const { return m_buttons[page]; }

private:
    wxWindow* makeFamily(Family family);
    Wx::Button* makeButton(wxWindow* parent, std::size_t page);
    void choose(std::size_t page);

    const Array<Page>& m_pages;
    Function<void(std::size_t)> m_onChoose;
    Array<Wx::Button*> m_buttons; // one for each page
    std::map<Family, bool> m_collapsed;
    std::size_t m_selected = 0;
};

} // namespace Nolvex::Gallery
