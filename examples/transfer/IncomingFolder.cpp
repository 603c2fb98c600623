// SPDX-License-Identifier: MIT
#include "examples/transfer/IncomingFolder.h"

#include "NolvexLib/Io/Path.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

using Nolvex::String;

namespace {

constexpr std::size_t MAX_EXTENSION = 10;

// File systems limit names to 255 units. Some file systems count bytes, of which a character has up to four.
constexpr std::size_t MAX_LENGTH = 50;

bool isFirstOfPair(wchar_t unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}

// Returns at most `count` units from the start of the text. A surrogate pair is not split, whether or not
// wchar_t holds UTF-16.
std::wstring firstUnits(const std::wstring& text, std::size_t count)
{
    const bool splitsPair = count > 0 && count < text.size() && isFirstOfPair(text[count - 1]);
    return text.substr(0, splitsPair ? count - 1 : count);
}

std::wstring shortened(const std::wstring& name)
{
    if (name.size() <= MAX_LENGTH)
        return name;
    const std::size_t dot = name.rfind(L'.');
    const bool hasExtension = dot != std::wstring::npos && name.size() - dot <= MAX_EXTENSION;
    const std::wstring extension = hasExtension ? name.substr(dot) : std::wstring();
    return firstUnits(name, MAX_LENGTH - extension.size()) + extension;
}

bool isOrdinary(wchar_t unit)
{
    constexpr std::wstring_view SPECIAL = L"/\\:*?\"<>|";
    return unit >= L' ' && unit != 0x7F && SPECIAL.find(unit) == std::wstring_view::npos;
}

// With a prefix, no name is hidden, names a device, or leads to another folder.
std::filesystem::path properName(const String& wish)
{
    std::wstring name = wish.wstr();
    std::replace_if(
        name.begin(), name.end(), [](wchar_t unit) { return !isOrdinary(unit); }, L'_');
    return Nolvex::Io::Path(L"received-" + shortened(name)).native();
}

std::filesystem::path numbered(const std::filesystem::path& name, int number)
{
    if (number == 1)
        return name;
    std::filesystem::path result = name.stem();
    result += "-";
    result += std::to_string(number);
    result += name.extension();
    return result;
}

// Returns false if the name is taken. Only the making of a link fails on every system if the name is taken,
// while renaming may overwrite a file.
bool moveToNewName(const std::filesystem::path& from, const std::filesystem::path& to)
{
    std::error_code failure;
    std::filesystem::create_hard_link(from, to, failure);
    if (!failure) {
        std::filesystem::remove(from);
        return true;
    }
    if (std::filesystem::exists(std::filesystem::symlink_status(to)))
        return false;
    // The file system does not support hard links.
    std::filesystem::rename(from, to);
    return true;
}

} // namespace

IncomingFolder::IncomingFolder(std::filesystem::path folder, std::int64_t maxSize)
    : m_folder(std::move(folder)), m_maxSize(maxSize)
{}

std::string IncomingFolder::refusal(std::int64_t size) const
{
    if (size > m_maxSize)
        return "It is longer than --max-size allows.";
    std::error_code unknown;
    const std::filesystem::space_info space = std::filesystem::space(m_folder, unknown);
    if (!unknown && size > 0 && static_cast<std::uintmax_t>(size) > space.available)
        return "There is no room for it.";
    return {};
}

std::filesystem::path IncomingFolder::pathOfPart()
{
    const std::lock_guard lock(m_mutex);
    std::filesystem::path name = "receiving-";
    name += std::to_string((std::uint64_t{m_random()} << 32) + m_random());
    return m_folder / (name += ".part");
}

std::filesystem::path IncomingFolder::keep(const std::filesystem::path& part, const String& wish)
{
    const std::filesystem::path name = properName(wish);
    const std::lock_guard lock(m_mutex);
    for (int number = 1;; ++number) {
        std::filesystem::path path = m_folder / numbered(name, number);
        if (moveToNewName(part, path))
            return path;
    }
}
