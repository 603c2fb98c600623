// SPDX-License-Identifier: MIT
#include "apps/picker/ChannelRow.h"

#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/widgets/Spinner.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "apps/picker/ChannelSlider.h"

#include <wx/sizer.h>

#include <cmath>
#include <utility>

namespace Nolvex::Picker {

namespace {

// Design units. The labels of all rows have the same width.
const wxSize LABEL_SIZE(72, 18);
constexpr int SPINNER_WIDTH = 70;

constexpr float MAX_HUE = 360.0f;
// Light can be brighter than white, and a colour outside the gamut has negative numbers.
constexpr float MAX_LIGHT = 1000.0f;

struct Description
{
    const wchar_t* name;
    float minimum;
    float maximum; // of the spinner
    ChannelSlider::Range slider;
    int digits;
};

Description describe(Channel channel)
{
    constexpr ChannelSlider::Range UNIT{1.0f, 0.01f};
    switch (channel) {
    case Channel::RED:
        return {L"Red", -MAX_LIGHT, MAX_LIGHT, UNIT, 4};
    case Channel::GREEN:
        return {L"Green", -MAX_LIGHT, MAX_LIGHT, UNIT, 4};
    case Channel::BLUE:
        return {L"Blue", -MAX_LIGHT, MAX_LIGHT, UNIT, 4};
    case Channel::ALPHA:
        return {L"Alpha", 0.0f, 1.0f, UNIT, 4};
    case Channel::HUE:
        return {L"Hue", 0.0f, MAX_HUE, {MAX_HUE, 1.0f}, 1};
    case Channel::SATURATION:
        return {L"Saturation", 0.0f, 1.0f, UNIT, 4};
    case Channel::VALUE:
        break;
    }
    return {L"Value", 0.0f, MAX_LIGHT, UNIT, 4};
}

wxString format(float number)
{
    return wxString::Format(L"%g", static_cast<double>(number));
}

// Returns a text for a number that the spinner cannot have. The spinner must not read a number in it, since
// the colour keeps its own number until the user changes it.
wxString textBeyond(const Description& description, float number)
{
    if (!std::isfinite(number))
        return format(number);
    return number > 0.0f ? L"> " + format(description.maximum) : L"< " + format(description.minimum);
}

void show(Wx::Spinner& spinner, const Description& description, float number)
{
    const bool isInRange = number >= description.minimum && number <= description.maximum;
    spinner.setValue(std::isnan(number) ? 0.0f : number, false);
    if (!isInRange)
        spinner.setText(Wx::toString(textBeyond(description, number)));
}

// The track of a colour that is not transparent by itself shows no checks.
Rgb opaque(const Rgb& color)
{
    return {color.r, color.g, color.b, 1.0f};
}

} // namespace

ChannelRow::ChannelRow(wxWindow* parent, wxSizer& row, Channel channel, const PickedColor& color,
                       Function<void(Channel, float)> onChange)
    : m_channel(channel), m_color(color), m_onChange(std::move(onChange))
{
    row.Add(new Wx::StaticText(parent, wxID_ANY, describe(channel).name, 0, {}, LABEL_SIZE), 0,
            wxALIGN_CENTRE_VERTICAL);
    makeSlider(parent);
    makeSpinner(parent);
    row.Add(m_slider, 1, wxEXPAND | wxALIGN_CENTRE_VERTICAL);
    row.Add(m_spinner, 0, wxALIGN_CENTRE_VERTICAL);
    update();
}

void ChannelRow::makeSlider(wxWindow* parent)
{
    const auto colorAt = [this](float number) {
        const Rgb color = m_color.withChannel(m_channel, number);
        return m_channel == Channel::ALPHA ? color : opaque(color);
    };
    const Description description = describe(m_channel);
    m_slider = new ChannelSlider(parent, description.name, description.slider, colorAt,
                                 [this](float number) { m_onChange(m_channel, number); });
}

void ChannelRow::makeSpinner(wxWindow* parent)
{
    const Description description = describe(m_channel);
    const float number = m_color.channel(m_channel);
    m_spinner =
        new Wx::Spinner(parent, wxID_ANY, SPINNER_WIDTH, description.minimum, description.maximum,
                        std::isnan(number) ? 0.0f : number, description.digits, description.slider.step);
    m_spinner->SetLabel(description.name);
    m_spinner->callOnValueChange([this](float changed) {
        m_spinning = true;
        m_onChange(m_channel, changed);
        m_spinning = false;
    });
}

void ChannelRow::update()
{
    const float number = m_color.channel(m_channel);
    m_slider->setNumber(number);
    if (!m_spinning)
        show(*m_spinner, describe(m_channel), number);
}

} // namespace Nolvex::Picker
