// SPDX-License-Identifier: MIT
#include "apps/viewer/platform/FileIdentity.h"

#include <filesystem>
#include <system_error>

namespace Nolvex::Viewer::Platform {

Io::Path identityOf(const Io::Path& file)
{
    std::error_code failure;
    std::filesystem::path whole = std::filesystem::weakly_canonical(file.native(), failure);
    if (!failure && whole.is_absolute())
        return whole;
    // A folder on the way may not be readable, or a missing file may have a relative path.
    whole = std::filesystem::absolute(failure ? file.native() : whole, failure);
    return failure ? file : Io::Path(whole.lexically_normal());
}

} // namespace Nolvex::Viewer::Platform
