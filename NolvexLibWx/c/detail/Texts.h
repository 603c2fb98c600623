// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Io/Path.h"
#include "NolvexLib/String.h"

#include <string>

namespace Nolvex::C {

/// The caller's text, which may be null.
String textOf(const char* text);

/// The caller's name of a file, which may be null.
Io::Path pathOf(const char* text);

/// The name to open the file by: UTF-8 on Windows, the bytes of the name on Linux.
std::string bytesOf(const Io::Path& path);

/// A copy for the caller, to be given back by nolvexFreeText.
char* copyOf(const std::string& text);

} // namespace Nolvex::C
