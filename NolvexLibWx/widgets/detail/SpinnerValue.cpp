// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/detail/SpinnerValue.h"

#include "NolvexLib/DecimalPoint.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace Nolvex {

namespace {

// The automatic step is this part of the value, or of 1 where the value is smaller than 1.
constexpr float AUTOMATIC_STEP = 0.004f;

// No float has more than 149 decimal places. Two more places end in the zeros that are left out.
constexpr int MAX_FORMATTED_DIGITS = 151;

// 10 to the power of 9 is the largest such power in 32 bits.
constexpr int MAX_UNIT_DIGITS = 9;

// Numbers are written and read without a stream: on Windows, the streams of GCC switch the locale of the
// process for a moment, which other threads notice.
std::string formatted(float value, int digits)
{
    constexpr std::size_t MAX_LENGTH =
        64 + MAX_FORMATTED_DIGITS; // a float has up to 39 digits before the point
    std::array<char, MAX_LENGTH> text{};
    const std::to_chars_result result =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed,
                      std::min(digits, MAX_FORMATTED_DIGITS));
    return {text.data(), result.ptr};
}

bool isPartOfNumber(char c)
{
    return std::string_view("0123456789.+-eE").find(c) != std::string_view::npos;
}

// Leaves out spaces and a plus sign, which std::from_chars does not read, and everything from the first
// character on that belongs to no number. The names of infinity and NaN are no numbers, either.
std::string_view numberWithin(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
    if (text.starts_with('+') && !text.starts_with("+-"))
        text.remove_prefix(1);
    const auto end = std::find_if_not(text.begin(), text.end(), isPartOfNumber);
    return text.substr(0, static_cast<std::size_t>(end - text.begin()));
}

// True for texts such as "7e" and "12em", which are no numbers to the streams of C++.
bool lacksExponent(std::string_view number, std::size_t length)
{
    constexpr std::string_view MARKS = "eE";
    return length < number.size() && MARKS.find(number[length]) != std::string_view::npos &&
           number.substr(0, length).find_first_of(MARKS) == std::string_view::npos;
}

Optional<float> readFloat(std::string_view text)
{
    const std::string_view number = numberWithin(text);
    float value = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
    if (lacksExponent(number, static_cast<std::size_t>(end - number.data())))
        return {};
    if (error == std::errc())
        return value;
    // The number may be too small for a float rather than too large.
    double precise = 0;
    const std::errc second = std::from_chars(number.data(), number.data() + number.size(), precise).ec;
    if (second == std::errc() && std::abs(precise) < 1)
        return static_cast<float>(precise);
    return {};
}

bool endsInZeros(const std::string& text)
{
    constexpr std::size_t SHORTEST = 3; // as in "2.0"
    return text.size() > SHORTEST && text.ends_with("00");
}

} // namespace

bool Wx::Detail::SpinnerValue::isFinite() const
{
    return std::isfinite(m_value);
}

void Wx::Detail::SpinnerValue::setRange(float minValue, float maxValue, float defaultValue)
{
    m_minValue = minValue;
    m_maxValue = maxValue;
    if (std::isnan(minValue))
        m_minValue = -std::numeric_limits<float>::infinity();
    if (std::isnan(maxValue))
        m_maxValue = std::numeric_limits<float>::infinity();
    m_defaultValue = defaultValue;
}

void Wx::Detail::SpinnerValue::setStep(float step)
{
    m_step = std::isfinite(step) ? std::max(step, 0.0f) : 0.0f;
}

void Wx::Detail::SpinnerValue::setPrecision(Function<int()> source)
{
    m_precisionSource = std::move(source);
}

float Wx::Detail::SpinnerValue::clamped(float requested) const
{
    // NaN becomes the maximum, and with bounds in the wrong order every value becomes the minimum.
    const float belowMax = requested <= m_maxValue ? requested : m_maxValue;
    return std::max(belowMax, m_minValue);
}

int Wx::Detail::SpinnerValue::precision() const
{
    return std::max(m_precisionSource(), 0);
}

String Wx::Detail::SpinnerValue::assign(float requested)
{
    m_value = clamped(requested);
    m_remainder = 0;
    const int digits = precision();
    std::string text = formatted(m_value, digits);
    // Infinities cannot be read back and stay as they are.
    m_value = clamped(readFloat(text).value_or(m_value));
    while (digits > 0 && endsInZeros(text))
        text.pop_back();
    std::wstring shown(text.begin(), text.end());
    std::replace(shown.begin(), shown.end(), L'.', decimalPointCharacter());
    return String(shown);
}

void Wx::Detail::SpinnerValue::carryRemainder(float target)
{
    const float remainder = target - m_value;
    m_remainder = std::isfinite(remainder) ? remainder : 0.0f;
}

float Wx::Detail::SpinnerValue::stepAmount() const
{
    return m_step > 0 ? m_step : std::max(std::abs(m_value), 1.0f) * AUTOMATIC_STEP;
}

float Wx::Detail::SpinnerValue::unit() const
{
    int power = 1;
    for (int digits = std::min(precision(), MAX_UNIT_DIGITS); digits > 0; --digits)
        power *= 10;
    return 1.0f / static_cast<float>(power);
}

float Wx::Detail::SpinnerValue::clickAmount(float amount) const
{
    const float smallest = unit();
    return amount >= smallest ? amount : smallest;
}

Wx::Detail::SpinnerValue::Step Wx::Detail::SpinnerValue::step(bool increasing, float amount, int count) const
{
    const float direction = increasing ? 1.0f : -1.0f;
    const float change = clickAmount(amount) * static_cast<float>(count);
    if (amount >= unit())
        return {clamped(direction * change + m_value + m_remainder), true};
    return {m_value + change * direction, false};
}

float Wx::Detail::SpinnerValue::dragged(int distance, int scale) const
{
    return clamped(m_value - static_cast<float>(distance) * stepAmount() / static_cast<float>(scale) +
                   m_remainder);
}

Optional<float> Wx::Detail::SpinnerValue::parse(const String& text)
{
    const wchar_t decimalPoint = decimalPointCharacter();
    std::string plain;
    for (const wchar_t c : text.wstr()) {
        const bool isAscii = c > L'\0' && c < L'\x80';
        const bool isPoint = c == L',' || c == decimalPoint;
        plain += isPoint ? '.' : (isAscii ? static_cast<char>(c) : '?');
    }
    return readFloat(plain);
}

} // namespace Nolvex
