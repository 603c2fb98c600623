// SPDX-License-Identifier: MIT
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/widgets/AutoSizedButton.h"
#include "NolvexLibWx/widgets/OskaBorder.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "NolvexLibWx/widgets/TextButton.h"
#include "NolvexLibWx/widgets/TextControl.h"
#include "apps/gallery/Hand.h"
#include "apps/gallery/Page.h"

#include <wx/sizer.h>

namespace Nolvex::Gallery {

namespace {

constexpr int GAP = 10; // design units
const wxSize LABEL_SIZE(260, 34);
const wxSize FIELD_SIZE(200, 28);

struct Sample
{
    const wchar_t* label;
    const wchar_t* tooltip;
    std::int64_t delay; // in milliseconds
};

const Sample SAMPLES[] = {
    {L"Rest the mouse here", L"A short tooltip", 600},
    {L"A long text is wrapped",
     L"Tooltips wait until the mouse has rested for a while, wrap their text to a readable width, and stay "
     L"inside "
     L"the work area of the monitor they appear on.",
     600},
    {L"Lines of its own", L"First line\n\nThird line, after an empty one", 600},
    {L"A word that is wider than the limit",
     L"Donaudampfschifffahrtselektrizitaetenhauptbetriebswerkbauunterbeamtengesellschaft", 600},
    {L"Shown at once", L"This tooltip waits for 50 milliseconds only.", 50},
    {L"Without a tooltip", L"", 600},
};

Wx::StaticText* makeLabel(wxWindow* parent, const Sample& sample)
{
    auto* label = new Wx::StaticText(parent, wxID_ANY, sample.label,
                                     wxALIGN_CENTRE_HORIZONTAL | wxALIGN_CENTRE_VERTICAL, {}, LABEL_SIZE);
    label->setTooltip(sample.tooltip);
    label->tooltip()->setDelay(sample.delay);
    return label;
}

void addSample(wxWindow* parent, wxSizer* grid, const Sample& sample, const Log& log)
{
    auto* border = new OskaBorder(parent);
    Wx::StaticText* label = makeLabel(border, sample);
    label->Bind(wxEVT_LEFT_UP, [log, name = String(sample.label)](wxMouseEvent& event) {
        log(L"The label \"" + name + L"\" was clicked, which hides its tooltip.");
        event.Skip();
    });
    border->addChild(label);
    grid->Add(border);
}

void addControls(wxWindow* parent, wxSizer* row, const Log& log)
{
    auto* button = new Wx::AutoSizedButton(parent, L"A button", 80, 0);
    button->setTooltip(L"What the button does");
    button->setClickCallback([log] { log(L"The button with a tooltip was clicked."); });
    auto* link =
        new Wx::TextButton(parent, wxID_ANY, L"A text button", [log] { log(L"The text was clicked."); });
    link->setTooltip(L"Where the link leads");
    auto* field = new Wx::TextControl(parent, wxID_ANY, L"A text field", 0, {}, FIELD_SIZE);
    field->applySkin(Wx::GuiSkin::DEFAULT());
    field->setTooltip(L"What belongs into the field");
    for (wxWindow* control :
         {static_cast<wxWindow*>(button), static_cast<wxWindow*>(link), static_cast<wxWindow*>(field)})
        row->Add(control, 0, wxRIGHT | wxALIGN_CENTRE_VERTICAL, Wx::scaleByDpi(2 * GAP));
}

void build(wxWindow* parent, const Log& log)
{
    auto* rows = new wxBoxSizer(wxVERTICAL);
    auto* grid = new wxFlexGridSizer(2, Wx::scaleByDpi(wxSize(GAP, GAP)));
    for (const Sample& sample : SAMPLES)
        addSample(parent, grid, sample, log);
    rows->Add(grid);
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    addControls(parent, row, log);
    rows->Add(row, 0, wxTOP, Wx::scaleByDpi(2 * GAP));
    parent->SetSizer(rows);
}

Hand::Finder label(std::size_t sample)
{
    return Hand::labelled<Wx::StaticText>(SAMPLES[sample].label);
}

Function<bool(wxWindow&)> isShown(std::size_t sample)
{
    return Hand::when<Wx::Tooltip>(sample, [](const Wx::Tooltip& tooltip) { return tooltip.IsShown(); });
}

const Array<Scene> SCENES{
    {L"short", {Hand::moveTo(label(0)), Hand::moveTo(label(0), {1, 0}, isShown(0))}},
    {L"wrapped", {Hand::moveTo(label(1), {-100, 0}), Hand::moveTo(label(1), {-99, 0}, isShown(1))}},
    {L"with lines of its own", {Hand::moveTo(label(2)), Hand::moveTo(label(2), {1, 0}, isShown(2))}},
};

const Page PAGE(L"Tooltips", build, {}, SCENES);

} // namespace

} // namespace Nolvex::Gallery
