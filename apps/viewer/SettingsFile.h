// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Io/Path.h"

#include <string_view>

namespace Nolvex::Viewer {

/// Returns whether the text is one that wxFileConfig reads without a complaint and that the viewer may have
/// written: headings, comments, and lines of a name and a value.
bool isSettingsText(std::string_view text);

/// Moves a file that is damaged out of the way, to the same name with ".damaged" behind it. wxFileConfig
/// stops the program with an assertion at some of the lines that it does not understand.
void putAsideIfDamaged(const Io::Path& file);

} // namespace Nolvex::Viewer
