// SPDX-License-Identifier: MIT
#include "apps/viewer/view/ColorMap.h"

#include "apps/viewer/view/ScreenCurve.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace Nolvex::Viewer {

namespace {

constexpr std::size_t COLORS = 256;
constexpr float BYTE_MAX = 255.0f;

using Colors = std::array<Rgb, COLORS>;

// A colour by its lightness, its distance from grey and its hue in degrees, in the space Oklab, whose
// distances are those that the eye sees.
struct PerceivedColor
{
    float lightness;
    float chroma;
    float hue;

    Rgb light() const;
};

Rgb PerceivedColor::light() const
{
    const float angle = hue * std::numbers::pi_v<float> / 180.0f;
    const float a = chroma * std::cos(angle);
    const float b = chroma * std::sin(angle);
    const auto cube = [](float root) { return root * root * root; };
    const float l = cube(lightness + 0.3963377774f * a + 0.2158037573f * b);
    const float m = cube(lightness - 0.1055613458f * a - 0.0638541728f * b);
    const float s = cube(lightness - 0.0894841775f * a - 1.2914855480f * b);
    return {4.0767416621f * l - 3.3077115913f * m + 0.2309699292f * s,
            -1.2684380046f * l + 2.6097574011f * m - 0.3413193965f * s,
            -0.0041960863f * l - 0.7034186147f * m + 1.7076147010f * s, 1.0f};
}

bool isOnTheScreen(const Rgb& light)
{
    const auto isValid = [](float value) { return value >= 0.0f && value <= 1.0f; };
    return isValid(light.r) && isValid(light.g) && isValid(light.b);
}

// Reduces the chroma until the screen can show the colour.
Rgb shownLight(PerceivedColor color)
{
    constexpr float STEP = 0.99f;
    while (!isOnTheScreen(color.light()) && color.chroma > 0.001f)
        color.chroma *= STEP;
    return color.light();
}

Rgb makeColor(float part)
{
    constexpr float DARKEST = 0.12f;
    constexpr float LIGHTEST = 0.95f;
    constexpr float FIRST_HUE = 280.0f; // blue
    constexpr float LAST_HUE = 465.0f;  // yellow
    constexpr float MAX_CHROMA = 0.2f;
    const Rgb light = shownLight(
        {DARKEST + part * (LIGHTEST - DARKEST), MAX_CHROMA, FIRST_HUE + part * (LAST_HUE - FIRST_HUE)});
    const Rgb encoded = ScreenCurve{true, 1.0f}.at(light);
    // The floats stand for whole bytes, so that every way to the screen shows the same colour.
    const auto whole = [](float value) {
        return std::round(std::clamp(value, 0.0f, 1.0f) * BYTE_MAX) / BYTE_MAX;
    };
    return {whole(encoded.r), whole(encoded.g), whole(encoded.b), 1.0f};
}

const Colors& colors()
{
    static const Colors MADE = [] {
        Colors made;
        for (std::size_t i = 0; i < COLORS; ++i)
            made[i] = makeColor(static_cast<float>(i) / (COLORS - 1));
        return made;
    }();
    return MADE;
}

} // namespace

ColorMap::ColorMap(const DisplaySettings& settings)
    : m_logarithmic(settings.falseColor == FalseColor::STOPS),
      m_from(settings.falseColorFrom),
      m_to(settings.falseColorTo)
{}

const Rgb& ColorMap::colorOf(float value) const
{
    if (std::isnan(value))
        return nanColor();
    const float measured = m_logarithmic ? std::log2(std::max(value, 0.0f)) : value;
    // A range without a width separates the values below it from all others.
    if (m_from == m_to)
        return colorAt(measured < m_from ? 0.0f : 1.0f);
    return colorAt((measured - m_from) / (m_to - m_from));
}

const Rgb& ColorMap::colorAt(float part)
{
    const float limited = part > 0.0f ? std::min(part, 1.0f) : 0.0f;
    return colors()[static_cast<std::size_t>(std::lround(limited * (COLORS - 1)))];
}

const Rgb& ColorMap::nanColor()
{
    static constexpr Rgb GREEN{0.0f, 1.0f, 0.0f, 1.0f};
    return GREEN;
}

} // namespace Nolvex::Viewer
