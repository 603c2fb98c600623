// SPDX-License-Identifier: MIT
#include "Fuzz.h"

#include "NolvexLib/String.h"

#include <string>
#include <string_view>

using Nolvex::Array;
using Nolvex::ExplodeMode;
using Nolvex::Optional;
using Nolvex::String;
using Nolvex::Fuzz::require;

namespace {

void checkUtf8(std::string_view bytes)
{
    const String repaired = String::fromUtf8(bytes);
    const std::string written = repaired.toUtf8();
    require(String::fromUtf8(written) == repaired);
    require(String::fromValidUtf8(written) == repaired);
    const Optional<String> valid = String::fromValidUtf8(bytes);
    require(valid.has_value() == (written == bytes));
    require(!valid || *valid == repaired);
    require(String::fromAscii(bytes).length() == bytes.size());
}

// Checks any units, including units that are not valid characters.
void checkUnits(std::string_view bytes)
{
    std::wstring units;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
        units += static_cast<wchar_t>(static_cast<unsigned char>(bytes[i]) * 256 +
                                      static_cast<unsigned char>(bytes[i + 1]));
    const String text(units);
    require(String::fromValidUtf8(text.toUtf8()).has_value());
}

// Joining the parts by the separator gives the text again. Joining them without the separator gives the text
// from which all separators were removed.
void checkParts(const String& text)
{
    const String separator = text.getSubstr(0, 1);
    String joined;
    String bare;
    const Array<String> parts = text.explode(separator, ExplodeMode::KEEP_EMPTY);
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i > 0)
            joined += separator;
        joined += parts[i];
        bare += parts[i];
    }
    require(joined == text);
    String replaced = text;
    require(replaced.replaceAll(separator, L"") == bare);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes = Nolvex::Fuzz::asText(data, size);
    checkUtf8(bytes);
    checkUnits(bytes);
    checkParts(String::fromUtf8(bytes));
    return 0;
}
