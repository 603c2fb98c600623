// SPDX-License-Identifier: MIT
#include "NolvexLib/SimpleTextDeserializer.h"

#include "NolvexLib/PlainName.h"

#include <utility>

namespace Nolvex {

namespace {

StringView withoutName(StringView part, const StringView* expectedName)
{
    const std::size_t nameLength = part.find(L"=");
    const StringView name = part.getSubstr(0, nameLength);
    const bool isRight = expectedName != nullptr ? name == *expectedName : Detail::isPlainName(name.view());
    return nameLength != StringView::NPOS && isRight ? part.getSubstr(nameLength + 1) : StringView();
}

} // namespace

SimpleTextDeserializer::SimpleTextDeserializer(String text, String separator, VariableNames names)
    : m_text(std::move(text)),
      m_separator(std::move(separator)),
      m_names(names),
      m_next(m_text.isEmpty() ? String::NPOS : 0)
{}

Optional<std::int64_t> SimpleTextDeserializer::parseSigned(StringView text, std::int64_t min,
                                                           std::int64_t max)
{
    const bool isNegative = !text.isEmpty() && text[0] == L'-';
    if (!isNegative) {
        const auto value = parseUnsigned(text, static_cast<std::uint64_t>(max));
        return value ? Optional<std::int64_t>(static_cast<std::int64_t>(*value)) : std::nullopt;
    }
    // In unsigned arithmetic even the lowest value has a magnitude.
    const auto magnitude = parseUnsigned(text.getSubstr(1), 0 - static_cast<std::uint64_t>(min));
    return magnitude ? Optional<std::int64_t>(static_cast<std::int64_t>(0 - *magnitude)) : std::nullopt;
}

Optional<std::uint64_t> SimpleTextDeserializer::parseUnsigned(StringView text, std::uint64_t max)
{
    if (text.isEmpty())
        return {};
    std::uint64_t value = 0;
    for (const wchar_t unit : text) {
        if (unit < L'0' || unit > L'9')
            return {};
        const auto digit = static_cast<std::uint64_t>(unit - L'0');
        if (value > max / 10 || digit > max - value * 10)
            return {};
        value = value * 10 + digit;
    }
    return value;
}

StringView SimpleTextDeserializer::takeValue(const StringView* name)
{
    if (m_failed || m_next == String::NPOS)
        return {};
    const StringView rest = StringView(m_text).getSubstr(m_next);
    const std::size_t length = m_separator.isEmpty() ? String::NPOS : rest.find(m_separator);
    m_next = length == String::NPOS ? String::NPOS : m_next + length + m_separator.length();
    const StringView part = rest.getSubstr(0, length);
    return m_names == VariableNames::WRITE ? withoutName(part, name) : part;
}

} // namespace Nolvex
