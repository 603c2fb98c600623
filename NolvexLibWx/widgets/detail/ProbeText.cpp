// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/detail/ProbeText.h"

#include "NolvexLib/RgbBytes.h"
#include "NolvexLibWx/ColourConversions.h"

#include <array>
#include <charconv>
#include <string>

namespace Nolvex {

namespace {

// Unlike printf, std::to_chars never asks the locale of the host.
std::wstring decimal(float value)
{
    constexpr int DIGITS = 5;    // behind the point
    std::array<char, 64> text{}; // the longest number has 46 characters
    char* const begin = text.data();
    const auto [end, error] =
        std::to_chars(begin, begin + text.size(), value, std::chars_format::fixed, DIGITS);
    return {begin, end};
}

String channelsText(const std::wstring& heading, const Rgb& colour)
{
    return String(heading + L":\nR: " + decimal(colour.r) + L"\nG: " + decimal(colour.g) + L"\nB: " +
                  decimal(colour.b) + L"\nA: " + decimal(colour.a));
}

std::wstring toneMappedHeading(const String& colourSpace)
{
    return L"Tonemapped\n" + std::wstring(StringView(colourSpace).view());
}

int alphaByte(float alpha)
{
    // Comparisons with NaN are false, so that NaN becomes 0.
    const float clamped = alpha > 0.0f ? (alpha < 1.0f ? alpha : 1.0f) : 0.0f;
    const float raised = clamped * 255.0f + 0.5f;
    return static_cast<int>(raised);
}

} // namespace

String Wx::Detail::positionText(Pixel position)
{
    return String(L"Position:\n" + std::to_wstring(position.x) + L"\n" + std::to_wstring(position.y));
}

String Wx::Detail::originalText(const Rgb& colour)
{
    return channelsText(L"Original\nLinear RGB", colour);
}

String Wx::Detail::toneMappedText(const String& colourSpace, const Rgb& colour)
{
    return channelsText(toneMappedHeading(colourSpace), colour);
}

String Wx::Detail::bytesText(const String& colourSpace, const Rgb& colour, float alpha)
{
    const RgbBytes bytes = toRgbBytes(toWxColour(colour));
    return String(toneMappedHeading(colourSpace) + L" 8-bit:\nR: " + std::to_wstring(bytes.r) + L"\nG: " +
                  std::to_wstring(bytes.g) + L"\nB: " + std::to_wstring(bytes.b) + L"\nA: " +
                  std::to_wstring(alphaByte(alpha)));
}

} // namespace Nolvex
