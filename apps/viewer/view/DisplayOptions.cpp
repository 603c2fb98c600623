// SPDX-License-Identifier: MIT
#include "apps/viewer/view/DisplayOptions.h"

#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/widgets/CheckBox.h"
#include "NolvexLibWx/widgets/ComboBox.h"
#include "NolvexLibWx/widgets/Spinner.h"
#include "NolvexLibWx/widgets/StaticText.h"

#include <wx/sizer.h>

#include <cstddef>
#include <utility>

namespace Nolvex::Viewer {

namespace {

// In design units
constexpr int GAP = 16;
constexpr int SMALL_GAP = 6;
constexpr int SPINNER_WIDTH = 50;
constexpr int CHANNEL_WIDTH = 100;
constexpr int ENCODING_WIDTH = 80;
constexpr int FALSE_COLOR_WIDTH = 80;

constexpr int DIGITS = 2;
constexpr float MAX_EXPOSURE = 20.0f;
constexpr float MIN_GAMMA = 0.1f;
constexpr float MAX_GAMMA = 10.0f;
constexpr float MAX_VALUE = 10000.0f;
constexpr float STEP = 0.05f;
constexpr float VALUE_STEP = 0.1f;
constexpr float STOP_STEP = 0.5f;
constexpr float MAX_STOPS = 6.0f; // of the first range that is proposed

template<class Enumeration>
Wx::ComboBox::Item itemOf(const String& text, Enumeration value)
{
    return {text, static_cast<int>(value), {}};
}

// Returns the name of a channel as a text for the user.
String channelText(const String& name)
{
    if (name == L"R")
        return L"Red";
    if (name == L"G")
        return L"Green";
    if (name == L"B")
        return L"Blue";
    return name == L"A" ? String(L"Alpha") : name;
}

String nameOr(const Array<String>& names, std::size_t index, const wchar_t* usual)
{
    return index < names.size() ? channelText(names[index]) : String(usual);
}

// Returns the text for all colours together.
String colorsText(const Array<String>& names)
{
    if (names.size() == 1)
        return names[0];
    if (names.size() < 3 || (names[0] == L"R" && names[1] == L"G" && names[2] == L"B"))
        return L"RGB";
    return names[0] + L", " + names[1] + L", " + names[2];
}

} // namespace

DisplayOptions::DisplayOptions(wxWindow* parent, Function<void(const DisplaySettings&)> onChange)
    : wxPanel(parent), m_onChange(std::move(onChange))
{
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(makeFirstRow());
    rows->Add(makeSecondRow(), 0, wxTOP, Wx::scaleByDpi(SMALL_GAP));
    SetSizerAndFit(rows);
    showRange();
}

wxSizer* DisplayOptions::makeFirstRow()
{
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    addSpinner(*row, L"Exposure", &DisplaySettings::exposure, MAX_EXPOSURE, STEP);
    Wx::Spinner* const gamma = addSpinner(*row, L"Gamma", &DisplaySettings::gamma, MAX_GAMMA, STEP);
    gamma->configure(MIN_GAMMA, MAX_GAMMA, 1.0f, DIGITS, STEP, false);
    m_channel = addChoice(*row, L"Channel", CHANNEL_WIDTH, [this](int channel) {
        m_settings.channel = static_cast<Channel>(channel);
        notify();
    });
    setChannels({});
    m_checkerboard = new Wx::CheckBox(this, wxID_ANY, L"Checkerboard");
    m_checkerboard->setChangeCallback([this](bool isWanted) {
        m_settings.checkerboard = isWanted;
        notify();
    });
    row->Add(m_checkerboard, 0, wxALIGN_CENTRE_VERTICAL);
    return row;
}

wxSizer* DisplayOptions::makeSecondRow()
{
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    m_encoding = addChoice(*row, L"Encoding", ENCODING_WIDTH, [this](int chosen) {
        m_settings.encoding = static_cast<Encoding>(chosen);
        notify();
    });
    const Wx::ComboBox::Item encodings[] = {itemOf(L"Gamma", Encoding::GAMMA),
                                            itemOf(L"sRGB", Encoding::SRGB),
                                            itemOf(L"Linear", Encoding::LINEAR)};
    m_encoding->setData(encodings);
    m_encoding->selectIndex(0, false);
    Wx::ComboBox* const falseColor = addChoice(*row, L"False colour", FALSE_COLOR_WIDTH, [this](int kind) {
        chooseFalseColor(static_cast<FalseColor>(kind));
    });
    const Wx::ComboBox::Item kinds[] = {itemOf(L"Off", FalseColor::OFF),
                                        itemOf(L"Values", FalseColor::VALUES),
                                        itemOf(L"Stops", FalseColor::STOPS)};
    falseColor->setData(kinds);
    falseColor->selectIndex(0, false);
    m_from = addSpinner(*row, L"From", &DisplaySettings::falseColorFrom, MAX_VALUE, VALUE_STEP);
    m_to = addSpinner(*row, L"To", &DisplaySettings::falseColorTo, MAX_VALUE, VALUE_STEP);
    return row;
}

void DisplayOptions::addLabel(wxSizer& row, const String& label)
{
    row.Add(new Wx::StaticText(this, wxID_ANY, label), 0, wxALIGN_CENTRE_VERTICAL | wxRIGHT,
            Wx::scaleByDpi(SMALL_GAP));
}

Wx::Spinner* DisplayOptions::addSpinner(wxSizer& row, const String& label, float DisplaySettings::*setting,
                                        float max, float step)
{
    addLabel(row, label);
    auto* spinner =
        new Wx::Spinner(this, wxID_ANY, SPINNER_WIDTH, -max, max, m_settings.*setting, DIGITS, step);
    spinner->SetLabel(label.c_str());
    spinner->callOnValueChange([this, setting](float value) {
        m_settings.*setting = value;
        notify();
    });
    row.Add(spinner, 0, wxALIGN_CENTRE_VERTICAL | wxRIGHT, Wx::scaleByDpi(GAP));
    return spinner;
}

Wx::ComboBox* DisplayOptions::addChoice(wxSizer& row, const String& label, int width,
                                        const Function<void(int)>& choose)
{
    addLabel(row, label);
    auto* box = new Wx::ComboBox(this, wxID_ANY, width, choose, {}, true);
    Wx::setAccessibleName(*box, label);
    row.Add(box, 0, wxALIGN_CENTRE_VERTICAL | wxRIGHT, Wx::scaleByDpi(GAP));
    return box;
}

void DisplayOptions::setChannels(const Array<String>& names)
{
    const Wx::ComboBox::Item channels[] = {
        itemOf(colorsText(names), Channel::RGB),
        itemOf(nameOr(names, 0, L"Red"), Channel::RED),
        itemOf(nameOr(names, 1, L"Green"), Channel::GREEN),
        itemOf(nameOr(names, 2, L"Blue"), Channel::BLUE),
        itemOf(nameOr(names, 3, L"Alpha"), Channel::ALPHA),
        itemOf(L"Luminance", Channel::LUMINANCE),
    };
    m_channel->setData(channels);
    m_channel->selectId(static_cast<int>(m_settings.channel), false);
}

void DisplayOptions::setTaste(Encoding encoding, bool checkerboard)
{
    m_settings.encoding = encoding;
    m_settings.checkerboard = checkerboard;
    m_encoding->selectId(static_cast<int>(encoding), false);
    m_checkerboard->setValue(checkerboard, false);
    notify();
}

// The ranges of values and of stops have little in common, so that each kind begins with a range of its own.
void DisplayOptions::chooseFalseColor(FalseColor kind)
{
    m_settings.falseColor = kind;
    m_settings.falseColorFrom = kind == FalseColor::STOPS ? -MAX_STOPS : 0.0f;
    m_settings.falseColorTo = kind == FalseColor::STOPS ? MAX_STOPS : 1.0f;
    showRange();
    notify();
}

void DisplayOptions::showRange()
{
    const float step = m_settings.falseColor == FalseColor::STOPS ? STOP_STEP : VALUE_STEP;
    const auto show = [&](Wx::Spinner& spinner, float value) {
        spinner.configure(-MAX_VALUE, MAX_VALUE, value, DIGITS, step, false);
        spinner.setValue(value, false);
        spinner.Enable(m_settings.falseColor != FalseColor::OFF);
    };
    show(*m_from, m_settings.falseColorFrom);
    show(*m_to, m_settings.falseColorTo);
}

void DisplayOptions::notify()
{
    const Function<void(const DisplaySettings&)> onChange = m_onChange;
    onChange(m_settings);
}

} // namespace Nolvex::Viewer
