// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/ColorPickerButton.h"

#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "apps/gallery/Page.h"

#include <wx/sizer.h>

#include <limits>
#include <memory>
#include <utility>

namespace Nolvex::Gallery {

namespace {

constexpr int GAP = 10;
constexpr int SWATCH_WIDTH = 80;
constexpr int SWATCH_HEIGHT = 30;
constexpr float ENDLESS = std::numeric_limits<float>::infinity();
constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();

// Tells what the button asks for, and opens nothing.
class LoggedPickers : public IColorPickerFactory
{
public:
    explicit LoggedPickers(Log log) : m_log(std::move(log)) {}

    AutoPtr<IColorPicker> createPicker(WindowHandle /*owner*/, const String& title,
                                       const wxPoint& /*position*/, const Rgb& initial) override
    {
        m_log(L"The swatch \"" + title + L"\" asks for a picker that starts with " + numbersOf(initial) +
              L".");
        return nullptr;
    }

    static String numbersOf(const Rgb& color)
    {
        const auto shown = [](float channel) { return wxString::FromCDouble(static_cast<double>(channel)); };
        return Wx::toString(shown(color.r) + L" " + shown(color.g) + L" " + shown(color.b) + L" " +
                            shown(color.a));
    }

private:
    Log m_log;
};

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
    auto* swatch = new Wx::ColorPickerButton(std::make_unique<LoggedPickers>(log), parent, state.title,
                                             wxSize(SWATCH_WIDTH, SWATCH_HEIGHT), true);
    swatch->setColor(state.color, false);
    swatch->Enable(state.isEnabled);
    swatch->onChange = [log, title = state.title](const Rgb& color) {
        log(L"The swatch \"" + title + L"\" has become " + LoggedPickers::numbersOf(color) + L".");
    };
    return swatch;
}

void build(wxWindow* parent, const Log& log)
{
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(new Wx::StaticText(parent, wxID_ANY, L"Drag a colour from one swatch to another."), 0, wxBOTTOM,
              GAP);
    auto* table = new wxFlexGridSizer(2, GAP, GAP);
    for (const State& state : states()) {
        table->Add(makeSwatch(parent, state, log));
        table->Add(new Wx::StaticText(parent, wxID_ANY, state.title), 0, wxALIGN_CENTRE_VERTICAL);
    }
    rows->Add(table);
    parent->SetSizer(rows);
}

const Page PAGE(L"Colour picker buttons", build);

} // namespace

} // namespace Nolvex::Gallery
