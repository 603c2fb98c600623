// SPDX-License-Identifier: MIT
#pragma once

namespace Nolvex::Io {

/// How FileOutputStream opens its file. A file that does not exist is created in any case. A file that exists
/// is opened only with one of these flags.
enum class Open
{
    /// Every write goes to the end of the file.
    APPEND = 1,
    /// The content of the file is thrown away.
    TRUNCATE = 2,
};

} // namespace Nolvex::Io
