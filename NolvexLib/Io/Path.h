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

/// The name of a file or folder. No function looks at the disk.
///
/// The name is stored in the form of the system: as bytes on Linux, where texts are UTF-8 whatever the locale
/// is, and as UTF-16 on Windows.
class NOLVEXLIB_EXPORT Path
{
public:
    Path() = default;

    explicit Path(StringView text);

    // A template, so that narrow texts, whose encoding is unknown, do not convert to paths.
    template<std::same_as<std::filesystem::path> Native>
    Path(Native native) // NOLINT(google-explicit-constructor): the same thing
        : m_native(std::move(native))
    {}

    /// Compares element by element: repeated separators do not matter, case does.
    friend bool operator==(const Path& a, const Path& b) { return a.m_native == b.m_native; }

    /// `name` inside the folder `folder`, or `name` alone if that is absolute.
    friend Path operator/(const Path& folder, const Path& name) { return folder.m_native / name.m_native; }

    friend Path operator/(const Path& folder, StringView name) { return folder / Path(name); }

    bool isEmpty() const { return m_native.empty(); }

    /// The name with the separators of the system, for users to read. Broken UTF-8 becomes U+FFFD, so
    /// `native()` is the name to open a file by.
    String nativeStr() const;

    /// All elements but the last: empty for a lone file name, and the root for a root. A name that ends in a
    /// separator has an empty last element.
    Path parentDirectory() const { return m_native.parent_path(); }

    /// The last element. It is empty if the name ends in a separator.
    String fileName(Flags<FileNameFlag> flags = {}) const;

    /// The part of the file name after its last dot, with its case unchanged. Empty if there is no dot, or if
    /// the only dot is the first character (".profile").
    String extension() const;

    const std::filesystem::path& native() const { return m_native; }

private:
    std::filesystem::path m_native;
};

} // namespace Nolvex::Io
