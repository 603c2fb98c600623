// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Function.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/String.h"

#include <limits>

namespace Nolvex::Wx::Detail {

/// The number of a Spinner, without a window: a float within bounds that is always rounded to the decimal
/// places that are shown. What rounding takes from a change is carried into the next change, so that many
/// small changes add up.
///
/// The class comment of Spinner tells the results for NaN, infinities and other unusual numbers.
class SpinnerValue
{
public:
    /// A change by one or several steps.
    struct Step
    {
        float target;
        bool carriesRemainder; ///< false if the step is one unit of the last decimal place
    };

    /// NaN before the first call of `assign`.
    float value() const { return m_value; }

    float defaultValue() const { return m_defaultValue; }

    float minValue() const { return m_minValue; }

    float maxValue() const { return m_maxValue; }

    bool isFinite() const;

    void setRange(float minValue, float maxValue, float defaultValue);

    void setStep(float step);

    /// `source` must not be empty.
    void setPrecision(Function<int()> source);

    /// Takes a new value, clamped and rounded, and forgets the remainder. Returns the text for the user, with
    /// the decimal point of the user's language and with one zero where the value ends in several zeros.
    String assign(float requested);

    /// Remembers what rounding took from `target`, the value that was last requested.
    void carryRemainder(float target);

    /// Returns the value together with the remainder.
    float exactValue() const { return clamped(m_value + m_remainder); }

    /// Returns the step as it was set, or the automatic step.
    float stepAmount() const;

    /// Returns the change that a click on an arrow makes: `amount`, but at least one unit of the last decimal
    /// place.
    float clickAmount(float amount) const;

    /// Returns the result of `count` steps by `amount`.
    Step step(bool increasing, float amount, int count) const;

    /// Returns the value after the mouse was dragged down by `distance` pixels, where `scale` pixels are one
    /// design unit.
    float dragged(int distance, int scale) const;

    /// Returns the number at the beginning of `text`, or nullopt if there is no number or the number is too
    /// large for a float. A comma, a point and the decimal point of the user's language all separate decimal
    /// places.
    static Optional<float> parse(const String& text);

private:
    float clamped(float requested) const;
    int precision() const;
    float unit() const;

    float m_minValue = 0;
    float m_maxValue = 0;
    float m_defaultValue = 0;
    float m_step = 0; // 0 for the automatic step
    Function<int()> m_precisionSource;
    float m_value = std::numeric_limits<float>::quiet_NaN();
    float m_remainder = 0;
};

} // namespace Nolvex::Wx::Detail
