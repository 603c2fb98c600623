// SPDX-License-Identifier: MIT
#include "Fuzz.h"

#include "NolvexLib/SimpleTextDeserializer.h"
#include "NolvexLib/SimpleTextSerializer.h"

#include <string>

using Nolvex::Optional;
using Nolvex::SimpleTextDeserializer;
using Nolvex::SimpleTextSerializer;
using Nolvex::String;
using Nolvex::VariableNames;
using Nolvex::Fuzz::require;

namespace {

// Returns the text that the serializer writes for the value: without leading zeros and without the minus of a
// zero.
std::string normalized(const std::string& digits)
{
    const bool isNegative = digits.starts_with('-');
    const std::size_t first = digits.find_first_not_of('0', isNegative ? 1 : 0);
    if (first == std::string::npos)
        return "0";
    return (isNegative ? "-" : "") + digits.substr(first);
}

template<class T>
void checkParse(const String& text)
{
    if (const Optional<T> value = SimpleTextDeserializer::parse<T>(text)) {
        const String written = SimpleTextSerializer::format(*value);
        require(written.toUtf8() == normalized(text.toUtf8()));
        require(SimpleTextDeserializer::parse<T>(written) == value);
    }
}

template<class T>
void checkReads(const String& text, VariableNames names)
{
    SimpleTextDeserializer reader(text, L",", names);
    SimpleTextSerializer writer(L",", names);
    while (const Optional<T> value = reader.read<T>())
        writer.write(L"v", *value);
    require(!reader.isAtEnd());
    require(!reader.read<T>());
    SimpleTextDeserializer again(writer.text(), L",", names);
    while (!again.isAtEnd())
        require(again.read<T>(L"v").has_value());
}

template<class T>
void check(const String& text)
{
    checkParse<T>(text);
    checkReads<T>(text, VariableNames::WRITE);
    checkReads<T>(text, VariableNames::OMIT);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const String text = String::fromUtf8(Nolvex::Fuzz::asText(data, size));
    check<std::int32_t>(text);
    check<std::uint32_t>(text);
    check<std::int64_t>(text);
    check<std::uint64_t>(text);
    return 0;
}
