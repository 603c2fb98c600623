// SPDX-License-Identifier: MIT
#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/widgets/AutoSizedButton.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "NolvexLibWx/widgets/TextCtrl.h"
#include "apps/gallery/Hand.h"
#include "apps/gallery/Page.h"

#include <wx/sizer.h>

namespace Nolvex::Gallery {

namespace {

constexpr int GAP = 10; // design units
constexpr int LINES_AT_FIRST = 40;
const wxSize AREA_SIZE(260, 104);

const wchar_t* const TEXT = L"A click places the caret, dragging selects, a double click takes the whole "
                            L"line, and Ctrl+A everything.\n"
                            L"The second line\n"
                            L"The third line";

Wx::TextCtrl* addArea(wxWindow* parent, wxSizer* grid, const wchar_t* name, const wchar_t* text,
                      long style = 0)
{
    auto* column = new wxBoxSizer(wxVERTICAL);
    auto* area = new Wx::TextCtrl(parent, wxID_ANY, text, wxDefaultPosition, Wx::scaleByDpi(AREA_SIZE),
                                  wxTE_MULTILINE | style);
    Wx::setAccessibleName(*area, name);
    column->Add(new Wx::StaticText(parent, wxID_ANY, name), 0, wxBOTTOM, Wx::scaleByDpi(GAP / 2));
    column->Add(area);
    grid->Add(column);
    return area;
}

void appendLine(wxTextCtrl* area)
{
    area->AppendText(wxString::Format(L"Line %d\n", area->GetNumberOfLines()));
}

void build(wxWindow* parent, const Log& log)
{
    auto* grid = new wxFlexGridSizer(2, Wx::scaleByDpi(wxSize(2 * GAP, GAP)));
    addArea(parent, grid, L"Wrapped", TEXT);
    addArea(parent, grid, L"Not wrapped", TEXT, wxTE_DONTWRAP);
    addArea(parent, grid, L"Read-only", TEXT, wxTE_READONLY);
    addArea(parent, grid, L"Disabled", TEXT)->Disable();
    auto* followed = addArea(parent, grid, L"Followed to its end", L"", wxTE_READONLY);
    for (int i = 0; i < LINES_AT_FIRST; ++i)
        appendLine(followed);
    auto* more = new Wx::AutoSizedButton(parent, L"Append a line", 0, 0);
    more->setClickCallback([followed, log] {
        appendLine(followed);
        log(L"A line was appended to the followed text.");
    });
    grid->Add(more, 0, wxALIGN_CENTRE_VERTICAL);
    parent->SetSizer(grid);
}

const Hand::Finder FIRST = Hand::nth<Wx::TextCtrl>(0);

const Array<Scene> SCENES{
    {L"selected by dragging",
     {Hand::moveTo(FIRST, {-100, -30}), Hand::press(), Hand::moveTo(FIRST, {-20, -15}),
      Hand::moveTo(FIRST, {40, 0})}},
    {L"all selected", {Hand::moveTo(FIRST), Hand::click(), Hand::type('A', wxMOD_CONTROL)}},
};

const Page PAGE(L"Text areas", build, {}, SCENES, Family::TEXTS);

} // namespace

} // namespace Nolvex::Gallery
