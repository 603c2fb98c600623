// SPDX-License-Identifier: MIT
#include "apps/picker/RecentColors.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>

namespace Nolvex::Picker {

namespace {

// NaN is not equal to NaN, and a colour with a NaN would be listed again and again.
bool hasSameBits(const Rgb& a, const Rgb& b)
{
    using Bits = std::array<std::uint32_t, 4>;
    return std::bit_cast<Bits>(a) == std::bit_cast<Bits>(b);
}

} // namespace

RecentColors& RecentColors::shared()
{
    static RecentColors colors;
    return colors;
}

void RecentColors::add(const Rgb& color)
{
    std::erase_if(m_colors, [&](const Rgb& listed) { return hasSameBits(listed, color); });
    m_colors.insert(m_colors.begin(), color);
    if (m_colors.size() > MAX_COLORS)
        m_colors.pop_back();
}

} // namespace Nolvex::Picker
