// SPDX-License-Identifier: MIT
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/widgets/DropdownButton.h"
#include "NolvexLibWx/widgets/DropdownFrame.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "apps/gallery/Hand.h"
#include "apps/gallery/Page.h"

#include <wx/sizer.h>

#include <algorithm>

namespace Nolvex::Gallery {

namespace {

constexpr int GAP = 8; // design units

void addDropdown(wxWindow* parent, wxSizer* rows, const wchar_t* text, Wx::DropdownButton::Behavior behavior,
                 bool enabled, const Log& log)
{
    const Array<wxString> labels{L"Render", L"Preview", L"Region"};
    Array<Function<void()>> callbacks;
    for (const wchar_t* choice : {L"Render", L"Preview", L"Region"})
        callbacks.emplace_back([log, choice] { log(L"Chosen: " + String(choice)); });
    rows->Add(new Wx::StaticText(parent, wxID_ANY, text), 0, wxTOP, Wx::scaleByDpi(2 * GAP));
    rows->Add(new Wx::DropdownButton(parent, Wx::GuiSkin::DEFAULT(), {wxID_ANY, wxID_ANY, wxID_ANY}, labels,
                                     wxBitmap(), wxBitmap(), callbacks, behavior, enabled),
              0, wxTOP, Wx::scaleByDpi(GAP));
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

// The button opens when it has been held down for a moment.
bool isPressedAndClosed(wxWindow& page)
{
    const auto* const button = Hand::find<Wx::DropdownButton>(page, 0);
    return button != nullptr && button->isPressed() && !IS_OPEN(page);
}

const auto IS_CHOICE_HOVERED = [](wxWindow& page) {
    auto* const frame = Hand::find<Wx::DropdownFrame>(page, 0);
    Array<Wx::Button*> choices;
    if (frame != nullptr)
        Hand::collect(*frame, choices);
    return std::ranges::any_of(choices, [](const Wx::Button* choice) {
        return choice->borderState().has(OskaBorderState::HOVERED);
    });
};

const auto IS_TOGGLED =
    Hand::when<Wx::DropdownButton>(1, [](const Wx::DropdownButton& button) { return button.isToggled(); });
const auto IS_TOGGLED_AT_REST = Hand::when<Wx::DropdownButton>(1, [](const Wx::DropdownButton& button) {
    return button.isToggled() && !button.borderState().has(OskaBorderState::HOVERED);
});

const Array<Scene> SCENES{
    {L"hovered",
     {Hand::moveTo(FIRST, {},
                   Hand::when<Wx::DropdownButton>(0,
                                                  [](const Wx::DropdownButton& button) {
                                                      return button.borderState().has(
                                                          OskaBorderState::HOVERED);
                                                  }))}},
    {L"pressed", {Hand::moveTo(FIRST), Hand::press(isPressedAndClosed)}},
    {L"open", {Hand::moveTo(FIRST), Hand::press(IS_OPEN)}},
    {L"open with a choice hovered",
     {Hand::moveTo(FIRST), Hand::press(IS_OPEN),
      Hand::moveTo(Hand::nth<Wx::DropdownFrame>(0), {}, IS_CHOICE_HOVERED)}},
    {L"toggled by a click",
     {Hand::moveTo(SECOND), Hand::click(IS_TOGGLED), Hand::moveTo(SECOND, {0, 60}, IS_TOGGLED_AT_REST)}},
};

const Page PAGE(L"Drop-down buttons", build, {}, SCENES);

} // namespace

} // namespace Nolvex::Gallery
