// SPDX-License-Identifier: MIT
#pragma once

namespace Nolvex::Io {

/// What Path::fileName leaves out.
enum class FileNameFlag
{
    WITHOUT_EXTENSION = 1,
};

} // namespace Nolvex::Io
