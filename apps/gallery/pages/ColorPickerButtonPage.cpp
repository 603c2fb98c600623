// SPDX-License-Identifier: MIT
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/widgets/ColorPickerButton.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "apps/gallery/Hand.h"
#include "apps/gallery/Page.h"
#include "apps/picker/ColorPickerDialog.h"
#include "apps/picker/ColorPickerFactory.h"
#include "apps/picker/HexColor.h"

#include <wx/sizer.h>

#include <limits>
#include <memory>

namespace Nolvex::Gallery {

namespace {

constexpr int GAP = 8;
const wxSize SWATCH_SIZE(72, 28);

struct Sample
{
    const wchar_t* name;
    Rgb color;
    bool enabled = true;
};

const Sample SAMPLES[] = {
    {L"Brown", {0.5f, 0.25f, 0.125f, 1.0f}},
    {L"Blue", {0.2f, 0.4f, 0.9f, 1.0f}},
    {L"Brighter than white", {4.0f, 3.0f, 0.5f, 1.0f}},
    {L"Below black", {-0.5f, 0.25f, -2.0f, 1.0f}},
    {L"Infinite and NaN",
     {std::numeric_limits<float>::infinity(), 0.5f, std::numeric_limits<float>::quiet_NaN(), 1.0f}},
    {L"Half transparent", {0.2f, 0.8f, 0.3f, 0.5f}},
    {L"Disabled", {0.5f, 0.25f, 0.125f, 1.0f}, false},
    {L"Disabled black", {0.0f, 0.0f, 0.0f, 1.0f}, false},
    {L"Disabled white", {1.0f, 1.0f, 1.0f, 1.0f}, false},
};

String describe(const Rgb& color)
{
    return Wx::toString(wxString::Format(L"%g, %g, %g, %g", static_cast<double>(color.r),
                                         static_cast<double>(color.g), static_cast<double>(color.b),
                                         static_cast<double>(color.a)));
}

void addSample(wxWindow* parent, wxSizer* grid, const Sample& sample, const Log& log)
{
    grid->Add(new Wx::StaticText(parent, wxID_ANY, sample.name), 0, wxALIGN_CENTRE_VERTICAL);
    auto* button = new Wx::ColorPickerButton(std::make_unique<Picker::ColorPickerFactory>(), parent,
                                             sample.name, SWATCH_SIZE, sample.enabled);
    button->SetMinSize(Wx::scaleByDpi(SWATCH_SIZE));
    button->setColor(sample.color, false);
    if (!sample.enabled)
        button->Enable(false);
    button->onChange = [log, name = String(sample.name)](const Rgb& color) {
        log(name + L" became " + describe(color) + L".");
    };
    grid->Add(button);
}

void build(wxWindow* parent, const Log& log)
{
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(new Wx::StaticText(parent, wxID_ANY, L"Click a swatch, or drag its colour to another swatch"),
              0, wxBOTTOM, 2 * GAP);
    auto* grid = new wxFlexGridSizer(2, wxSize(2 * GAP, GAP));
    for (const Sample& sample : SAMPLES)
        addSample(parent, grid, sample, log);
    rows->Add(grid);
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
            wxDialog::Destroy(); // NOLINT(bugprone-parent-virtual-call): the override only ends a modal
                                 // dialog
        });
    }
};

Hand::Finder swatch(std::size_t index)
{
    return Hand::nth<Wx::ColorPickerButton>(index);
}

const auto HAS_DROPPED = Hand::when<Wx::ColorPickerButton>(
    1, [](const Wx::ColorPickerButton& button) { return button.getColor() == SAMPLES[0].color; });

const Array<Scene> SCENES{
    {L"colour dragged to another swatch",
     {Hand::moveTo(swatch(0)), Hand::press(), Hand::dragTo(swatch(0), {0, 10}),
      Hand::dragTo(swatch(0), {0, 20}), Hand::dragTo(swatch(1), {-1, 0}), Hand::dragTo(swatch(1)),
      Hand::release(HAS_DROPPED)}},
};

const Array<Window> WINDOWS{{L"Colour dialog", [](wxWindow* owner) -> wxTopLevelWindow* {
                                 return new ShownPicker(owner, L"Brown", SAMPLES[0].color);
                             }}};

const Page PAGE(L"Colour picker buttons", build, WINDOWS, SCENES);

} // namespace

} // namespace Nolvex::Gallery
