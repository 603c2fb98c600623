// SPDX-License-Identifier: MIT
#include "apps/viewer/SettingsFile.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <system_error>

namespace Nolvex::Viewer {

namespace {

constexpr std::size_t MAX_SIZE = 1 << 20;

bool isName(std::string_view text)
{
    return !text.empty() && std::ranges::all_of(text, [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '-' ||
               c == '_' || c == '/';
    });
}

bool isSettingsLine(std::string_view line)
{
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    if (line.find_first_not_of(" \t") == std::string_view::npos || line[0] == '#' || line[0] == ';')
        return true;
    if (line[0] == '[')
        return line.ends_with(']') && isName(line.substr(1, line.size() - 2));
    const std::size_t end = line.find('=');
    return end != std::string_view::npos && isName(line.substr(0, end));
}

} // namespace

bool isSettingsText(std::string_view text)
{
    if (text.size() > MAX_SIZE || text.find('\0') != std::string_view::npos)
        return false;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        if (!isSettingsLine(text.substr(0, end)))
            return false;
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return true;
}

void putAsideIfDamaged(const Io::Path& file)
{
    std::string text;
    {
        std::ifstream stream(file.native(), std::ios::binary);
        for (std::istreambuf_iterator<char> next(stream), end; next != end && text.size() <= MAX_SIZE; ++next)
            text.push_back(*next);
    }
    if (isSettingsText(text))
        return;
    std::filesystem::path aside = file.native();
    aside += ".damaged";
    std::error_code ignored;
    std::filesystem::rename(file.native(), aside, ignored);
}

} // namespace Nolvex::Viewer
