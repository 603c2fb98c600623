// SPDX-License-Identifier: MIT
#include "apps/picker/ChannelRow.h"

#include "NolvexLibWx/widgets/StaticText.h"
#include "apps/picker/ChannelSlider.h"
#include "apps/picker/ChannelSpinner.h"

#include <wx/sizer.h>

#include <utility>

namespace Nolvex::Picker {

namespace {

const wxSize LABEL_SIZE(72, 18); // design units, and the same for the labels of all rows

constexpr float MAX_HUE = 360.0f;
// Light can be brighter than white, and a colour outside the gamut has negative numbers.
constexpr float MAX_LIGHT = 1000.0f;

struct Description
{
    const wchar_t* name;
    ChannelSlider::Range slider;
    ChannelSpinner::Range spinner;
};

Description describe(Channel channel)
{
    constexpr ChannelSlider::Range UNIT{.maximum = 1.0f, .step = 0.01f};
    constexpr ChannelSpinner::Range LIGHT{.minimum = -MAX_LIGHT, .maximum = MAX_LIGHT};
    switch (channel) {
    case Channel::RED:
        return {L"Red", UNIT, LIGHT};
    case Channel::GREEN:
        return {L"Green", UNIT, LIGHT};
    case Channel::BLUE:
        return {L"Blue", UNIT, LIGHT};
    case Channel::ALPHA:
        return {L"Alpha", UNIT, {}};
    case Channel::HUE:
        return {L"Hue", {MAX_HUE, 1.0f}, {.maximum = MAX_HUE, .step = 1.0f, .digits = 1}};
    case Channel::SATURATION:
        return {L"Saturation", UNIT, {}};
    case Channel::VALUE:
        break;
    }
    return {L"Value", UNIT, {.maximum = MAX_LIGHT}};
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
    m_spinner = new ChannelSpinner(parent, description.name, description.spinner, m_color.channel(m_channel),
                                   [this](float number) { m_onChange(m_channel, number); });
}

void ChannelRow::update()
{
    const float number = m_color.channel(m_channel);
    m_slider->setNumber(number);
    m_spinner->setNumber(number);
}

} // namespace Nolvex::Picker
