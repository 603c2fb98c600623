// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/ColorPickerButton.h"

#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "apps/gallery/Hand.h"
#include "apps/gallery/Page.h"
#include "apps/picker/ColorPickerDialog.h"
#include "apps/picker/ColorPickerFactory.h"

#include <wx/sizer.h>

#include <limits>
#include <memory>

namespace Nolvex::Gallery {

namespace {

constexpr int GAP = 10;
constexpr int SWATCH_WIDTH = 80;
constexpr int SWATCH_HEIGHT = 30;
constexpr float ENDLESS = std::numeric_limits<float>::infinity();
constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();

String numbersOf(const Rgb& color)
{
    const auto shown = [](float channel) { return wxString::FromCDouble(static_cast<double>(channel)); };
    return Wx::toString(shown(color.r) + L" " + shown(color.g) + L" " + shown(color.b) + L" " +
                        shown(color.a));
}

struct State
{
    String title;
    Rgb color;
    bool isEnabled = true;
};

Array<State> states()
{
    return {{L"Orange", {1.0f, 0.5f, 0.0f, 1.0f}},
            {L"Teal", {0.0f, 0.5f, 0.5f, 1.0f}},
            {L"Transparent", {0.5f, 0.0f, 0.5f, 0.0f}},
            {L"Disabled, dark", {0.05f, 0.05f, 0.05f, 1.0f}, false},
            {L"Disabled, light", {1.0f, 1.0f, 1.0f, 1.0f}, false},
            {L"Disabled, coloured", {0.2f, 0.4f, 0.8f, 1.0f}, false},
            {L"Brighter than the screen", {8.0f, 4.0f, 0.5f, 1.0f}},
            {L"Below black", {-0.5f, 0.25f, -2.0f, 1.0f}},
            {L"No numbers", {ENDLESS, NOT_A_NUMBER, -ENDLESS, 1.0f}}};
}

Wx::ColorPickerButton* makeSwatch(wxWindow* parent, const State& state, const Log& log)
{
    auto* swatch = new Wx::ColorPickerButton(std::make_unique<Picker::ColorPickerFactory>(), parent,
                                             state.title, wxSize(SWATCH_WIDTH, SWATCH_HEIGHT), true);
    swatch->setColor(state.color, false);
    swatch->Enable(state.isEnabled);
    swatch->onChange = [log, title = state.title](const Rgb& color) {
        log(L"The swatch \"" + title + L"\" has become " + numbersOf(color) + L".");
    };
    return swatch;
}

void build(wxWindow* parent, const Log& log)
{
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(new Wx::StaticText(parent, wxID_ANY, L"Click a swatch, or drag its colour to another swatch."),
              0, wxBOTTOM, Wx::scaleByDpi(GAP));
    auto* table = new wxFlexGridSizer(2, Wx::scaleByDpi(wxSize(GAP, GAP)));
    for (const State& state : states()) {
        table->Add(makeSwatch(parent, state, log));
        table->Add(new Wx::StaticText(parent, wxID_ANY, state.title), 0, wxALIGN_CENTRE_VERTICAL);
    }
    rows->Add(table);
    parent->SetSizer(rows);
}

// A dialog that is not modal destroys itself when it is closed.
class ShownPicker : public Picker::ColorPickerDialog
{
public:
    ShownPicker(wxWindow* owner, const wchar_t* title, const Rgb& initial)
        : ColorPickerDialog(owner, title, wxDefaultPosition, initial, {})
    {
        Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) {
            // NOLINTNEXTLINE(bugprone-parent-virtual-call): the override only ends a modal dialog
            wxDialog::Destroy();
        });
    }
};

Hand::Finder swatch(std::size_t index)
{
    return Hand::nth<Wx::ColorPickerButton>(index);
}

const auto HAS_DROPPED = Hand::when<Wx::ColorPickerButton>(1, [](const Wx::ColorPickerButton& button) {
    return button.getColor() == Rgb{1.0f, 0.5f, 0.0f, 1.0f};
});

const Array<Scene> SCENES{
    {L"colour dragged to another swatch",
     {Hand::moveTo(swatch(0)), Hand::press(), Hand::dragTo(swatch(0), {0, 10}),
      Hand::dragTo(swatch(0), {0, 20}), Hand::dragTo(swatch(1), {-1, 0}), Hand::dragTo(swatch(1)),
      Hand::release(HAS_DROPPED)}},
};

const Array<Window> WINDOWS{{L"Colour dialog", [](wxWindow* owner) -> wxTopLevelWindow* {
                                 return new ShownPicker(owner, L"Brown", {0.5f, 0.25f, 0.125f, 1.0f});
                             }}};

const Page PAGE(L"Colour picker buttons", build, WINDOWS, SCENES);

} // namespace

} // namespace Nolvex::Gallery
