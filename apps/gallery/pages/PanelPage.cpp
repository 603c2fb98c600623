// SPDX-License-Identifier: MIT
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/widgets/CheckBox.h"
#include "NolvexLibWx/widgets/CollapsiblePanel.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "apps/gallery/Hand.h"
#include "apps/gallery/Page.h"

#include <wx/sizer.h>

namespace Nolvex::Gallery {

namespace {

constexpr int GAP = 8; // design units

wxWindow* content(wxWindow* parent)
{
    auto* panel = new wxPanel(parent);
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(new Wx::StaticText(panel, wxID_ANY, L"What folds away"));
    rows->Add(new Wx::CheckBox(panel, wxID_ANY, L"An option"), 0, wxTOP, Wx::scaleByDpi(GAP));
    rows->Add(new Wx::CheckBox(panel, wxID_ANY, L"Another option"), 0, wxTOP, Wx::scaleByDpi(GAP));
    panel->SetSizerAndFit(rows);
    return panel;
}

void addPanel(wxWindow* parent, wxSizer* rows, const wchar_t* label, bool expanded, bool hasExtra,
              const Log& log)
{
    wxWindow* extra = hasExtra ? new Wx::StaticText(parent, wxID_ANY, L"Extra") : nullptr;
    auto* panel = new Wx::CollapsiblePanel(parent, Wx::GuiSkin::DEFAULT(), label, content(parent), extra,
                                           Wx::scaleByDpi(GAP));
    panel->setCollapsed(!expanded);
    panel->setToggleCallback([log, name = String(label)](bool collapsed) {
        log(L"The panel \"" + name + (collapsed ? L"\" was collapsed." : L"\" was expanded."));
    });
    rows->Add(panel, 0, wxEXPAND | wxTOP, Wx::scaleByDpi(GAP));
}

void build(wxWindow* parent, const Log& log)
{
    auto* rows = new wxBoxSizer(wxVERTICAL);
    addPanel(parent, rows, L"Collapsed", false, false, log);
    addPanel(parent, rows, L"Expanded", true, false, log);
    addPanel(parent, rows, L"With one more window", true, true, log);
    parent->SetSizer(rows);
}

Function<bool(wxWindow&)> isFolded(std::size_t index, bool folded)
{
    return Hand::when<Wx::CollapsiblePanel>(
        index, [folded](const Wx::CollapsiblePanel& panel) { return panel.isCollapsed() == folded; });
}

const Array<Scene> SCENES{
    {L"unfolded by a click",
     {Hand::moveTo(Hand::nth<Wx::CollapsiblePanel>(0)), Hand::click(isFolded(0, false))}},
    {L"folded by a click",
     {Hand::moveTo(Hand::partOf<Wx::CollapsiblePanel::Tick>(Hand::nth<Wx::CollapsiblePanel>(1), 0)),
      Hand::click(isFolded(1, true))}},
    {L"triangle focused",
     {{[](wxWindow& page) { Hand::find<Wx::CollapsiblePanel::Tick>(page, 0)->SetFocus(); },
       Hand::when<Wx::CollapsiblePanel::Tick>(
           0, [](const Wx::CollapsiblePanel::Tick& tick) { return tick.HasFocus(); })}}},
};

const Page PAGE(L"Collapsible panels", build, {}, SCENES);

} // namespace

} // namespace Nolvex::Gallery
