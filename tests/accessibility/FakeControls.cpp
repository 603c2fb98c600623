// SPDX-License-Identifier: MIT
#include "FakeControls.h"

#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/StringConversions.h"

#include <utility>

namespace Nolvex {

namespace {

class SpinnerAccount : public Wx::AccessibleControl
{
public:
    explicit SpinnerAccount(Tests::FakeSpinner& spinner) : m_spinner(spinner) {}

    Wx::AccessibleRole role() const override { return Wx::AccessibleRole::SPINNER; }

    String name() const override { return L"Amount"; }

    Optional<Wx::AccessibleValue> value() const override
    {
        const double now = m_spinner.value();
        return Wx::AccessibleValue{now, 0, 10, 0.5, Wx::toString(wxString::Format("%.1f pt", now))};
    }

    void setValue(double value) override { m_spinner.changeValue(value); }

private:
    Tests::FakeSpinner& m_spinner;
};

} // namespace

Tests::FakeSpinner::FakeSpinner(wxWindow* parent, Function<void(double)> onChange)
    : wxPanel(parent), m_onChange(std::move(onChange))
{
    SetMinSize({80, 16});
    Wx::describeAs<SpinnerAccount>(*this);
}

void Tests::FakeSpinner::changeValue(double value)
{
    m_value = value;
    Wx::updateAccessible(*this);
    m_onChange(value);
}

} // namespace Nolvex
