// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Export.h"
#include "NolvexLib/Io/FileFilterFormat.h"
#include "NolvexLib/String.h"

namespace Nolvex::Io {

/// A choice of files in a file dialog: L"JPEG images", {L"*.jpg", L"*.jpeg"}. Without a pattern it lets every
/// file through, as "*" does.
struct NOLVEXLIB_EXPORT FileFilter
{
    String description;
    Array<String> patterns;

    friend bool operator==(const FileFilter&, const FileFilter&) = default;

    /// The filters in the order given, empty for none of them. The patterns are added to a description that
    /// does not end in them, and are the description where that is empty. Vertical bars, which separate, are
    /// replaced: in descriptions by a slash, in patterns by "?", which matches them. A format that does not
    /// exist is a programming error (StopException).
    static String getWildcardString(ArrayView<const FileFilter> filters, FileFilterFormat format);
};

} // namespace Nolvex::Io
