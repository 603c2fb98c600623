// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/String.h"

#include <wx/image.h>

#include <cstdint>
#include <functional>
#include <map>
#include <string>

namespace Nolvex::Tests {

/// A test program starts itself once more to have another program that copies or, on Windows, reads the
/// clipboard. What that one returns from main(); none in a program that was started for its tests.
Optional<int> useClipboardForParent(int argc, char** argv);

/// The clipboard's text as another program gets it; none when there is no text.
Optional<String> clipboardText();

/// The bytes of the clipboard's picture behind any file header, as another program gets them; none when there
/// is no picture.
Array<std::uint8_t> clipboardBitmap();

/// The clipboard's picture in every form that the programs of the system ask for, by its name, decoded;
/// invalid where a form is missing.
std::map<std::string, wxImage> clipboardPictures();

/// What the function returns when it is called while somebody else has the clipboard and does not let go.
bool whileClipboardIsTaken(const std::function<bool()>& copy);

/// Lets another program copy COPY_TEXT or COPY_PICTURE (support/ClipboardCopying.h) and end, beside a
/// clipboard manager where desktops have one, then calls the function. Whether that program said it had
/// copied.
bool afterCopyingProgramEnded(const char* what, const std::function<void()>& read);

/// What the function returns when it is called while the clipboard belongs to somebody, a clipboard manager
/// included, who answers nothing that he is asked.
bool whileClipboardOwnerIsSilent(const std::function<bool()>& copy);

} // namespace Nolvex::Tests
