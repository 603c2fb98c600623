// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLibWx/decoding/SoundImage.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>

namespace Nolvex::Tests {

constexpr const wchar_t* NO_ERROR_TEXT = L"";
constexpr const wchar_t* ENDS_EARLY = L"it ends before its last pixel";
constexpr const wchar_t* IS_DAMAGED = L"it is not a picture of a known format, or it is damaged";
constexpr const wchar_t* IS_TOO_LARGE = L"it is too large";

using Check = Decoding::CheckedImage (*)(ArrayView<const std::byte> file);

/// Returns the error of the check, or an empty text if the file is accepted.
inline String errorOf(Check check, ArrayView<const std::byte> file)
{
    const Decoding::CheckedImage image = check(file);
    return image ? String() : image.error();
}

inline Array<std::byte> fileOf(std::initializer_list<int> values)
{
    Array<std::byte> bytes;
    for (const int value : values)
        bytes.push_back(static_cast<std::byte>(value));
    return bytes;
}

/// Returns a copy with other bytes from `place` on.
inline Array<std::byte> changed(Array<std::byte> file, std::size_t place, std::initializer_list<int> values)
{
    for (const int value : values)
        file[place++] = static_cast<std::byte>(value);
    return file;
}

inline ArrayView<const std::byte> firstOf(const Array<std::byte>& file, std::size_t size)
{
    return ArrayView<const std::byte>(file).first(size);
}

inline Array<std::byte> joined(Array<std::byte> first, const Array<std::byte>& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

} // namespace Nolvex::Tests
