// SPDX-License-Identifier: MIT
#include "examples/transfer/platform/CommandLine.h"

#include "NolvexLib/String.h"

#include <algorithm>
#include <filesystem>
#include <string_view>

using Nolvex::Optional;
using Nolvex::String;

namespace {

constexpr wchar_t ESCAPE = 0xDC00;
constexpr wchar_t MIN_ESCAPED = ESCAPE + 0x80;
constexpr wchar_t MAX_ESCAPED = ESCAPE + 0xFF;

constexpr std::size_t MAX_CHARACTER_BYTES = 4;

// Removes the first character, or a byte that belongs to no valid character, and returns its text.
std::wstring takeCharacter(std::string_view& bytes)
{
    for (std::size_t length = 1; length <= std::min(bytes.size(), MAX_CHARACTER_BYTES); ++length) {
        if (const Optional<String> character = String::fromValidUtf8(bytes.substr(0, length))) {
            bytes.remove_prefix(length);
            return character->wstr();
        }
    }
    const auto byte = static_cast<unsigned char>(bytes.front());
    bytes.remove_prefix(1);
    return std::wstring(1, static_cast<wchar_t>(ESCAPE + byte));
}

std::wstring decoded(std::string_view bytes)
{
    std::wstring text;
    while (!bytes.empty())
        text += takeCharacter(bytes);
    return text;
}

std::string bytesOf(wchar_t character)
{
    if (character >= MIN_ESCAPED && character <= MAX_ESCAPED)
        return std::string(1, static_cast<char>(character - ESCAPE));
    return String(std::wstring(1, character)).toUtf8();
}

} // namespace

std::vector<std::wstring> commandLineArguments(int argc, char** argv)
{
    std::vector<std::wstring> arguments(static_cast<std::size_t>(argc));
    std::transform(argv, argv + argc, arguments.begin(), decoded);
    return arguments;
}

Nolvex::Io::Path pathOfArgument(const std::wstring& argument)
{
    std::string bytes;
    for (const wchar_t character : argument)
        bytes += bytesOf(character);
    return std::filesystem::path(bytes);
}
