// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Export.h"
#include "NolvexLib/Flags.h"
#include "NolvexLib/Io/FileNameFlag.h"
#include "NolvexLib/String.h"

#include <concepts>
#include <filesystem>
#include <utility>

namespace Nolvex::Io {

/// The name of a file or folder, without a look at the disk.
///
/// Kept as the system has it: bytes on Linux, where texts are UTF-8 whatever the locale, UTF-16 on Windows.
class NOLVEXLIB_EXPORT Path
{
public:
    Path() = default;

    explicit Path(StringView text);

    // A template, so that narrow texts, whose encoding nobody knows, are no paths.
    template<std::same_as<std::filesystem::path> Native>
    Path(Native native) // NOLINT(google-explicit-constructor): the same thing
        : m_native(std::move(native))
    {}

    /// Equal element by element: repeated separators do not count, case does.
    friend bool operator==(const Path& a, const Path& b) { return a.m_native == b.m_native; }

    /// `name` inside the folder `folder`; an absolute `name` stands for itself.
    friend Path operator/(const Path& folder, const Path& name) { return folder.m_native / name.m_native; }

    friend Path operator/(const Path& folder, StringView name) { return folder / Path(name); }

    bool isEmpty() const { return m_native.empty(); }

    /// With the system's separators, to be shown or handed to the system. What is no text in the name (broken
    /// UTF-8) becomes U+FFFD, so use `native()` to open such a file.
    String nativeStr() const;

    /// All but the last element: empty for a lone file name, the root itself for a root. After a trailing
    /// separator the last element is an empty one.
    Path parentDirectory() const { return m_native.parent_path(); }

    /// The last element, empty after a trailing separator.
    String fileName(Flags<FileNameFlag> flags = {}) const;

    /// What follows the last dot of the file name, in the case it has there. Empty when there is none or
    /// nothing but the dot's right side (".profile").
    String extension() const;

    const std::filesystem::path& native() const { return m_native; }

private:
    std::filesystem::path m_native;
};

} // namespace Nolvex::Io
