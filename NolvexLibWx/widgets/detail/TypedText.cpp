// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/detail/TypedText.h"

#include <wx/wxcrt.h>

#include <algorithm>
#include <string_view>

namespace Nolvex {

namespace {

constexpr std::int64_t MAX_PAUSE = 1000; // milliseconds

wchar_t toSmall(wchar_t character)
{
    return static_cast<wchar_t>(wxTolower(character));
}

bool beginsWith(std::wstring_view text, std::wstring_view beginning)
{
    return text.size() >= beginning.size() &&
           std::equal(beginning.begin(), beginning.end(), text.begin(),
                      [](wchar_t small, wchar_t any) { return small == toSmall(any); });
}

} // namespace

bool Wx::TypedText::isBeingTyped() const
{
    return !m_text.empty() && m_sinceLast.getElapsed() < MAX_PAUSE;
}

int Wx::TypedText::find(wchar_t character, ArrayView<const ComboBox::Item> items, int selected)
{
    if (!isBeingTyped())
        m_text.clear();
    m_text += toSmall(character);
    m_sinceLast.restart();
    const bool isRepeated = m_text.find_first_not_of(m_text.front()) == std::wstring::npos;
    const std::wstring_view wanted = isRepeated ? std::wstring_view(m_text).substr(0, 1) : m_text;
    const auto count = static_cast<std::int64_t>(items.size());
    const std::int64_t start = std::int64_t{std::max(selected, -1)} + (isRepeated || selected < 0 ? 1 : 0);
    for (std::int64_t i = 0; i < count; ++i) {
        const std::int64_t index = (start + i) % count;
        if (beginsWith(items[static_cast<std::size_t>(index)].text.wstr(), wanted))
            return static_cast<int>(index);
    }
    return -1;
}

} // namespace Nolvex
