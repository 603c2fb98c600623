// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/String.h"

#include <filesystem>

namespace Nolvex::Detail {

/// The system's form of a file name. Unlike std::filesystem's own conversions it asks no locale.
std::filesystem::path nativePathFromText(StringView text);

/// Any name gives a text; what is none in it becomes U+FFFD.
String textFromNativePath(const std::filesystem::path& native);

} // namespace Nolvex::Detail
