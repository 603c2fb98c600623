// SPDX-License-Identifier: MIT
#include "apps/viewer/FileState.h"

#include <system_error>

namespace Nolvex::Viewer {

Optional<FileState> stateOf(const Io::Path& file)
{
    std::error_code failure;
    FileState state;
    state.changed = std::filesystem::last_write_time(file.native(), failure);
    if (!failure)
        state.size = std::filesystem::file_size(file.native(), failure);
    return failure ? Optional<FileState>() : state;
}

} // namespace Nolvex::Viewer
