// SPDX-License-Identifier: MIT
#include "apps/gallery/PageList.h"

#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/widgets/ApplySkinRecursive.h"
#include "NolvexLibWx/widgets/Button.h"
#include "NolvexLibWx/widgets/CollapsiblePanel.h"
#include "NolvexLibWx/widgets/GuiSkin.h"

#include <wx/sizer.h>

#include <utility>

namespace Nolvex::Gallery {

namespace {

const wxSize BUTTON_SIZE(150, 20); // design units
constexpr int GAP = 2;

const wchar_t* nameOf(Family family)
{
    switch (family) {
    case Family::CONTROLS:
        return L"Controls";
    case Family::TEXTS:
        return L"Texts";
    case Family::DIALOGS:
        return L"Dialogs";
    case Family::LOOKS:
        break;
    }
    return L"Looks";
}

} // namespace

PageList::PageList(wxWindow* parent, const Array<Page>& pages, Function<void(std::size_t)> onChoose)
    : wxPanel(parent), m_pages(pages), m_onChoose(std::move(onChoose)), m_buttons(pages.size())
{
    SetSizer(new wxBoxSizer(wxVERTICAL));
    rebuild();
}

void PageList::rebuild()
{
    DestroyChildren();
    for (const Family family : {Family::CONTROLS, Family::TEXTS, Family::DIALOGS, Family::LOOKS})
        GetSizer()->Add(makeFamily(family), 0, wxEXPAND | wxBOTTOM, Wx::scaleByDpi(GAP));
    Wx::applySkinRecursive(this, Wx::GuiSkin::DEFAULT());
    select(m_selected);
    Layout();
}

wxWindow* PageList::makeFamily(Family family)
{
    auto* content = new wxPanel(this);
    auto* rows = new wxBoxSizer(wxVERTICAL);
    for (std::size_t page = 0; page < m_pages.size(); ++page) {
        if (m_pages[page].family == family)
            rows->Add(m_buttons[page] = makeButton(content, page), 0, wxEXPAND);
    }
    content->SetSizerAndFit(rows);
    auto* panel = new Wx::CollapsiblePanel(this, Wx::GuiSkin::DEFAULT(), nameOf(family), content);
    panel->setCollapsed(m_collapsed[family]);
    panel->setToggleCallback([this, family](bool collapsed) { m_collapsed[family] = collapsed; });
    return panel;
}

Wx::Button* PageList::makeButton(wxWindow* parent, std::size_t page)
{
    auto* button =
        new Wx::Button(parent, Wx::GuiSkin::DEFAULT(), wxID_ANY, Wx::toWxString(m_pages[page].title),
                       wxBitmap(), wxBitmap(), [this, page] { choose(page); }, Wx::Button::Behavior::TOGGLE,
                       true, {OskaBorderState::ENABLED, OskaBorderState::NO_FRAME});
    button->SetMinSize(Wx::scaleByDpi(BUTTON_SIZE));
    return button;
}

void PageList::select(std::size_t page)
{
    m_selected = page;
    for (std::size_t i = 0; i < m_buttons.size(); ++i)
        m_buttons[i]->setToggled(i == page);
}

void PageList::choose(std::size_t page)
{
    // A click on the toggled button has released it.
    select(page);
    CallAfter([this, page] { m_onChoose(page); });
}

} // namespace Nolvex::Gallery
