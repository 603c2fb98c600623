// SPDX-License-Identifier: MIT
#pragma once

namespace Nolvex::Resources {

// These are the PNG files of the same names, 128 x 128 pixels with alpha, in little-endian words, written by
// tools/artwork/message_icons.py. Sizes are in bytes. The rest of the last word is padding.

extern const unsigned MESSAGE_ERROR_ICON[];
extern const int MESSAGE_ERROR_ICON_SIZE;

extern const unsigned MESSAGE_WARNING_ICON[];
extern const int MESSAGE_WARNING_ICON_SIZE;

extern const unsigned MESSAGE_INFO_ICON[];
extern const int MESSAGE_INFO_ICON_SIZE;

extern const unsigned MESSAGE_QUESTION_ICON[];
extern const int MESSAGE_QUESTION_ICON_SIZE;

extern const unsigned MESSAGE_SUCCESS_ICON[];
extern const int MESSAGE_SUCCESS_ICON_SIZE;

} // namespace Nolvex::Resources
