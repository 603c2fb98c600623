// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/String.h"

#include <filesystem>

namespace Nolvex::Detail {

/// Converts a text to a file name. Unlike the conversions of std::filesystem this does not depend on the
/// locale.
std::filesystem::path nativePathFromText(StringView text);

/// Converts a file name to a text. Broken UTF-8 becomes U+FFFD.
String textFromNativePath(const std::filesystem::path& native);

} // namespace Nolvex::Detail
