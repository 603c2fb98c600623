// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Export.h"
#include "NolvexLib/Io/FileFilterFormat.h"
#include "NolvexLib/String.h"

namespace Nolvex::Io {

/// One entry of the file types in a file dialog: L"JPEG images", {L"*.jpg", L"*.jpeg"}. A filter without
/// patterns accepts every file, as "*" does.
struct NOLVEXLIB_EXPORT FileFilter
{
    String description;
    Array<String> patterns;

    friend bool operator==(const FileFilter&, const FileFilter&) = default;

    /// Returns the filters in their order as one text, which is empty if there are none. A description that
    /// does not end in its patterns gets them appended, and an empty description is replaced by its patterns.
    /// Vertical bars separate the parts of the text; those within the parts are replaced, in descriptions by
    /// a slash and in patterns by "?", which matches them. An invalid format is a programming error
    /// (StopException).
    static String getWildcardString(ArrayView<const FileFilter> filters, FileFilterFormat format);
};

} // namespace Nolvex::Io
