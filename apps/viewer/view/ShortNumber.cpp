// SPDX-License-Identifier: MIT
#include "apps/viewer/view/ShortNumber.h"

#include <charconv>
#include <cmath>
#include <cstddef>

namespace Nolvex::Viewer {

wxString shortNumber(float value)
{
    constexpr int DIGITS = 4;
    char text[32];
    if (std::isnan(value))
        return "nan"; // without the sign that some NaN have
    const std::to_chars_result end =
        std::to_chars(text, text + sizeof(text), value, std::chars_format::general, DIGITS);
    return wxString::FromAscii(text, static_cast<std::size_t>(end.ptr - text));
}

} // namespace Nolvex::Viewer
