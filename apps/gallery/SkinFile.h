// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Expected.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/widgets/GuiSkin.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace Nolvex::Gallery {

// A skin is written as a tree in the library's XML form, with one child "GuiSkin" whose nine children have
// the names of the colours:
//
//     <root><GuiSkin><text>C8C8C8</text><disabledText>6E6E6E</disabledText>...</GuiSkin></root>
//
// A colour is six hexadecimal digits, as the gallery writes it, or three numbers from 0 to 255 with spaces or
// commas between them. The order of the colours does not matter.

inline constexpr std::uint64_t MAX_SKIN_FILE_SIZE = 65'536; // bytes

[[nodiscard]] std::string skinToXml(const Wx::GuiSkin& skin);

/// Each colour must be there exactly once, and nothing else. The error is a sentence for the user.
[[nodiscard]] Expected<Wx::GuiSkin, String> skinFromXml(std::string_view xml);

/// Reads a file of that form. The error is a sentence for the user.
[[nodiscard]] Expected<Wx::GuiSkin, String> loadSkin(const Io::Path& file);

/// Writes the file, or leaves the file as it was and returns a sentence for the user. Returns an empty text
/// if the file was written.
[[nodiscard]] String saveSkin(const Wx::GuiSkin& skin, const Io::Path& file);

} // namespace Nolvex::Gallery
