// SPDX-License-Identifier: MIT
#include "NolvexLibWx/c/detail/Texts.h"

#include "NolvexLibWx/c/Nolvex.h"

#include <algorithm>

namespace Nolvex::C {

String textOf(const char* text)
{
    return text == nullptr ? String() : String::fromUtf8(text);
}

Io::Path pathOf(const char* text)
{
    if (text == nullptr)
        return {};
    const std::string bytes = text;
    return std::filesystem::path(std::u8string(bytes.begin(), bytes.end()));
}

std::string bytesOf(const Io::Path& path)
{
    const std::u8string utf8 = path.native().u8string();
    return {utf8.begin(), utf8.end()};
}

char* copyOf(const std::string& text)
{
    char* copy = new char[text.size() + 1];
    std::copy_n(text.c_str(), text.size() + 1, copy);
    return copy;
}

} // namespace Nolvex::C

void nolvexFreeText(char* text)
{
    delete[] text;
}
