// SPDX-License-Identifier: MIT
#include "apps/picker/ChannelSpinner.h"

#include "NolvexLibWx/StringConversions.h"
#include "apps/picker/ScopedFlag.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace Nolvex::Picker {

namespace {

constexpr int WIDTH = 70; // design units

wxString format(float number)
{
    return wxString::Format(L"%g", static_cast<double>(number));
}

// Returns an empty text for a number that the spinner can have. The spinner must not read a number in the
// text, since the colour keeps its own number until the user changes it.
String textBeyond(const ChannelSpinner::Range& range, float number)
{
    if (!std::isfinite(number))
        return Wx::toString(format(number));
    if (number > range.maximum)
        return Wx::toString(L"> " + format(range.maximum));
    if (number < range.minimum)
        return Wx::toString(L"< " + format(range.minimum));
    return {};
}

// Returns the number that the spinner itself has.
float numberWithin(const ChannelSpinner::Range& range, float number)
{
    return std::isnan(number) ? 0.0f : std::clamp(number, range.minimum, range.maximum);
}

} // namespace

ChannelSpinner::ChannelSpinner(wxWindow* parent, const String& name, const Range& range, float initial,
                               Function<void(float)> onChange)
    : Spinner(parent, wxID_ANY, WIDTH, range.minimum, range.maximum, numberWithin(range, initial),
              range.digits, range.step),
      m_range(range),
      m_onChange(std::move(onChange)),
      m_default(numberWithin(range, initial)),
      m_number(initial)
{
    setNumber(initial);
    SetLabel(Wx::toWxString(name));
    callOnValueChange([this](float number) { onValue(number); });
    // These handlers run before those of the spinner, since they are bound later.
    textField()->Bind(wxEVT_TEXT_ENTER, &ChannelSpinner::onEnter, this);
    textField()->Bind(wxEVT_KILL_FOCUS, &ChannelSpinner::onFocusLost, this);
    // The spinner has just shown its own number.
    Bind(Wx::CUSTSPINNER_TEXT_FOCUS_LOST, [this](wxFocusEvent& event) {
        if (!m_textBeyond.isEmpty())
            setText(m_textBeyond);
        event.Skip();
    });
}

ChannelSpinner::~ChannelSpinner()
{
    // Destroying a text field that has the focus makes an event, which must not commit the typed text.
    if (Wx::TextControl* const field = textField())
        field->Unbind(wxEVT_KILL_FOCUS, &ChannelSpinner::onFocusLost, this);
}

void ChannelSpinner::allowUpTo(float maximum)
{
    configure(m_range.minimum, maximum, m_default, m_range.digits, m_range.step, false);
}

void ChannelSpinner::setNumber(float number)
{
    if (m_reporting)
        return;
    m_number = number;
    m_textBeyond = textBeyond(m_range, number);
    setValue(numberWithin(m_range, number), false);
    if (!m_textBeyond.isEmpty())
        setText(m_textBeyond);
}

void ChannelSpinner::onValue(float number)
{
    m_number = std::min(number, m_range.maximum);
    m_textBeyond = {};
    const ScopedFlag reporting(this, m_reporting);
    m_onChange(m_number);
}

void ChannelSpinner::onEnter(wxCommandEvent& event)
{
    const bool isBeyond = !m_textBeyond.isEmpty();
    event.Skip(!isBeyond || m_committing);
    if (isBeyond && !m_committing)
        commitTypedText();
}

void ChannelSpinner::onFocusLost(wxFocusEvent& event)
{
    const wxWeakRef<ChannelSpinner> self(this);
    if (!m_textBeyond.isEmpty())
        commitTypedText();
    event.Skip(self.get() != nullptr);
}

// A spinner ignores a typed number that is its own number, which the user does not see here. No typed number
// is infinite, so that the spinner does not ignore any while its own number is infinite.
void ChannelSpinner::commitTypedText()
{
    Wx::TextControl* const field = textField();
    const String typed = Wx::toString(field->GetValue());
    if (typed == m_textBeyond)
        return;
    constexpr float ENDLESS = std::numeric_limits<float>::infinity();
    const wxWeakRef<ChannelSpinner> self(this);
    {
        const ScopedFlag committing(this, m_committing);
        allowUpTo(ENDLESS);
        setValue(ENDLESS, false);
        setText(typed);
        wxCommandEvent enter(wxEVT_TEXT_ENTER, field->GetId());
        enter.SetEventObject(field);
        field->ProcessWindowEvent(enter);
    }
    if (!self)
        return;
    allowUpTo(m_range.maximum);
    setNumber(m_number);
}

} // namespace Nolvex::Picker
