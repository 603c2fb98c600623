// SPDX-License-Identifier: MIT
#include "apps/program/ArgumentPath.h"

#include <algorithm>

namespace Nolvex::Program {

Io::Path argumentPath(const String& text, const Array<Io::Path>& arguments)
{
    const auto found = std::ranges::find(arguments, text, &Io::Path::nativeStr);
    return found == arguments.end() ? Io::Path(text) : *found;
}

} // namespace Nolvex::Program
