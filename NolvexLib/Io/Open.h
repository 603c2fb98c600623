// SPDX-License-Identifier: MIT
#pragma once

namespace Nolvex::Io {

/// How FileOutputStream opens its file. With one of the flags a file that is not there is created; with
/// neither, only a file that is not there is.
enum class Open
{
    /// Every write goes to the end of the file.
    APPEND = 1,
    /// What the file holds is thrown away.
    TRUNCATE = 2,
};

} // namespace Nolvex::Io
