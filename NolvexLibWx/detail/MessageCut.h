// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/String.h"

#include <cstddef>
#include <string>

namespace Nolvex::Wx {
class StaticText;
}

/// Fits messages of any length into a text of a message dialog.
namespace Nolvex::MessageCut {

/// Returns the message without characters that a text of that width and height, in pixels, certainly has no
/// room for: breaking the lines of a megabyte would take minutes. The end of a long message becomes an
/// ellipsis. Words that are wider than the text, such as paths, are broken, since StaticText::Wrap breaks
/// neither such a word nor the rest of its line.
String prepared(const String& message, Wx::StaticText& text, int width, int height);

/// Returns where a text can be cut off at this length at most, without halving a character: Windows stores
/// some characters as two.
std::size_t cutLength(const std::wstring& text, std::size_t length);

/// Takes lines away from the end of a wrapped text, and ends the text with an ellipsis, until the text is at
/// at least `excess` pixels lower. At least the first line stays. A text of one line and an empty text stay
/// as they are.
void byHeight(Wx::StaticText& text, int excess);

} // namespace Nolvex::MessageCut
