// SPDX-License-Identifier: MIT
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "NolvexLibWx/widgets/TextControl.h"
#include "apps/gallery/Hand.h"
#include "apps/gallery/Page.h"

#include <wx/sizer.h>

namespace Nolvex::Gallery {

namespace {

constexpr int GAP = 10; // design units
const wxSize FIELD_SIZE(200, 28);
const wxSize AREA_SIZE(200, 90);

const wchar_t* const VERSE = L"Several lines, wrapped at the words,\nand broken where the text says so.";

using Wx::TextControl;
using Wx::TextFlag;

struct Field
{
    const wchar_t* name;
    const wchar_t* value;
    unsigned int style = 0;
    Flags<TextFlag> flags = {};
};

const Field FIELDS[] = {
    {L"Plain", L"A text to edit"},
    {L"Bold", L"A text to edit", 0, TextFlag::BOLD},
    {L"Italic", L"A text to edit", 0, TextFlag::ITALIC},
    {L"Without a border", L"A text to edit", wxBORDER_NONE},
    {L"To the right", L"1234.5", wxTE_RIGHT},
    {L"Read-only", L"Left out when tabbing", wxTE_READONLY},
    {L"Several lines", VERSE, wxTE_MULTILINE},
};

TextControl* makeField(wxWindow* parent, const Field& field, bool enabled, const Log& log)
{
    const bool large = (field.style & wxTE_MULTILINE) != 0;
    auto* control = new TextControl(parent, wxID_ANY, field.value, field.style, field.flags,
                                    large ? AREA_SIZE : FIELD_SIZE);
    control->applySkin(Wx::GuiSkin::DEFAULT());
    control->setTooltip(String(field.name) + (enabled ? L", enabled" : L", disabled"));
    control->Enable(enabled);
    const String name = field.name;
    control->Bind(wxEVT_TEXT, [log, name](wxCommandEvent& event) {
        log(L"The field \"" + name + L"\" says \"" + Wx::toString(event.GetString()) + L"\".");
        event.Skip();
    });
    return control;
}

void addHeading(wxWindow* parent, wxSizer* grid, const wchar_t* text)
{
    grid->Add(new Wx::StaticText(parent, wxID_ANY, text, 0, TextFlag::BOLD));
}

// Each kind of field stands enabled beside disabled.
void build(wxWindow* parent, const Log& log)
{
    auto* grid = new wxFlexGridSizer(3, Wx::scaleByDpi(wxSize(2 * GAP, GAP)));
    grid->AddSpacer(0);
    addHeading(parent, grid, L"Enabled");
    addHeading(parent, grid, L"Disabled");
    for (const Field& field : FIELDS) {
        grid->Add(new Wx::StaticText(parent, wxID_ANY, field.name), 0, wxALIGN_CENTRE_VERTICAL);
        for (const bool enabled : {true, false})
            grid->Add(makeField(parent, field, enabled, log));
    }
    parent->SetSizer(grid);
}

const Hand::Finder FIRST = Hand::nth<TextControl>(0);
const auto HAS_FOCUS = Hand::when<TextControl>(0, [](const TextControl& field) { return field.HasFocus(); });

const Array<Scene> SCENES{
    {L"focused", {Hand::moveTo(FIRST), Hand::click(HAS_FOCUS)}},
    {L"selected",
     {Hand::moveTo(FIRST), Hand::click(HAS_FOCUS), Hand::type(WXK_END), Hand::type(WXK_HOME, wxMOD_SHIFT)}},
    {L"edited", {Hand::moveTo(FIRST), Hand::click(HAS_FOCUS), Hand::type(WXK_END), Hand::type('s')}},
};

const Page PAGE(L"Text fields", build, {}, SCENES, Family::TEXTS);

} // namespace

} // namespace Nolvex::Gallery
