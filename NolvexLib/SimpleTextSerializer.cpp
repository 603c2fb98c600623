// SPDX-License-Identifier: MIT
#include "NolvexLib/SimpleTextSerializer.h"

#include "NolvexLib/PlainName.h"
#include "NolvexLib/StopException.h"

#include <array>
#include <charconv>
#include <limits>
#include <string_view>
#include <utility>

namespace Nolvex {

namespace {

template<class T>
String toDecimal(T value)
{
    // The longest value has one digit more than digits10 and a sign.
    std::array<char, std::numeric_limits<T>::digits10 + 2> digits{};
    char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    return String::fromAscii(std::string_view(digits.data(), static_cast<std::size_t>(end - digits.data())));
}

} // namespace

SimpleTextSerializer::SimpleTextSerializer(String separator, VariableNames names)
    : m_separator(std::move(separator)), m_names(names)
{}

void SimpleTextSerializer::writeSigned(StringView name, std::int64_t value)
{
    append(name, toDecimal(value));
}

void SimpleTextSerializer::writeUnsigned(StringView name, std::uint64_t value)
{
    append(name, toDecimal(value));
}

void SimpleTextSerializer::append(StringView name, StringView digits)
{
    const bool isNamed = m_names == VariableNames::WRITE;
    if (isNamed && !Detail::isPlainName(name.view()))
        Detail::throwStopException("SimpleTextSerializer", __LINE__);
    if (!m_text.isEmpty())
        m_text += m_separator;
    if (isNamed) {
        m_text += name;
        m_text += L"=";
    }
    m_text += digits;
}

} // namespace Nolvex
