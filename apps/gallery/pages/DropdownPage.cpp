// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/DropdownButton.h"
#include "NolvexLibWx/widgets/DropdownFrame.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "apps/gallery/Hand.h"
#include "apps/gallery/Page.h"

#include <wx/sizer.h>

namespace Nolvex::Gallery {

namespace {

constexpr int GAP = 8;

void addDropdown(wxWindow* parent, wxSizer* rows, const wchar_t* text, Wx::DropdownButton::Behavior behavior,
                 bool enabled, const Log& log)
{
    const Array<wxString> labels{L"Render", L"Preview", L"Region"};
    Array<Function<void()>> callbacks;
    for (const wchar_t* choice : {L"Render", L"Preview", L"Region"})
        callbacks.emplace_back([log, choice] { log(L"Chosen: " + String(choice)); });
    rows->Add(new Wx::StaticText(parent, wxID_ANY, text), 0, wxTOP, 2 * GAP);
    rows->Add(new Wx::DropdownButton(parent, Wx::GuiSkin::DEFAULT(), {wxID_ANY, wxID_ANY, wxID_ANY}, labels,
                                     wxBitmap(), wxBitmap(), callbacks, behavior, enabled),
              0, wxTOP, GAP);
}

void build(wxWindow* parent, const Log& log)
{
    using enum Wx::DropdownButton::Behavior;
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(new Wx::StaticText(parent, wxID_ANY, L"Hold one down to see its further choices"));
    addDropdown(parent, rows, L"Push", PUSH, true, log);
    addDropdown(parent, rows, L"Toggle", TOGGLE, true, log);
    addDropdown(parent, rows, L"What is chosen becomes the main choice", SWAP, true, log);
    addDropdown(parent, rows, L"Disabled", PUSH, false, log);
    parent->SetSizer(rows);
}

const Hand::Finder FIRST = Hand::nth<Wx::DropdownButton>(0);
const Hand::Finder SECOND = Hand::nth<Wx::DropdownButton>(1);
const auto IS_OPEN =
    Hand::when<Wx::DropdownFrame>(0, [](const Wx::DropdownFrame& frame) { return frame.IsShown(); });

const Array<Scene> SCENES{
    {L"hovered",
     {Hand::moveTo(FIRST, {},
                   Hand::when<Wx::DropdownButton>(0,
                                                  [](const Wx::DropdownButton& button) {
                                                      return button.borderState().has(
                                                          OskaBorderState::HOVERED);
                                                  }))}},
    {L"open", {Hand::moveTo(FIRST), Hand::press(IS_OPEN)}},
    {L"open with a choice hovered",
     {Hand::moveTo(FIRST), Hand::press(IS_OPEN), Hand::moveTo(Hand::nth<Wx::DropdownFrame>(0))}},
    {L"toggled by a click", {Hand::moveTo(SECOND), Hand::click(), Hand::moveTo(SECOND, {0, 60})}},
};

const Page PAGE(L"Drop-down buttons", build, {}, SCENES);

} // namespace

} // namespace Nolvex::Gallery
