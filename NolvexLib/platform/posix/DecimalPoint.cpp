// SPDX-License-Identifier: MIT
#include "NolvexLib/DecimalPoint.h"

#include "NolvexLib/String.h"

#include <clocale>
#include <cwchar>
#include <string_view>

namespace Nolvex {

wchar_t decimalPointCharacter()
{
    const std::string_view point = std::localeconv()->decimal_point;
    // UTF-8 is tried first: the character set that mbrtowc uses may belong to another locale than the number
    // format.
    const Optional<String> text = String::fromValidUtf8(point);
    if (text && text->length() == 1)
        return (*text)[0];
    wchar_t character = L'.';
    std::mbstate_t state = {};
    const std::size_t used = std::mbrtowc(&character, point.data(), point.size(), &state);
    return used == point.size() && used > 0 ? character : L'.';
}

} // namespace Nolvex
