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

/// The tests start the test program a second time as another program that copies or, on Windows, reads the
/// clipboard. Returns the value for main() in that second process, and nullopt in the process of the tests.
Optional<int> useClipboardForParent(int argc, char** argv);

/// Returns the clipboard's text as another program gets it, or nullopt if there is no text.
Optional<String> clipboardText();

/// Returns the bytes of the clipboard's picture without any file header, as another program gets them. The
/// array is empty if there is no picture.
Array<std::uint8_t> clipboardBitmap();

/// Returns the clipboard's picture in every form that the system's programs ask for, decoded, by the name of
/// the form. The picture is invalid if the form is missing.
std::map<std::string, wxImage> clipboardPictures();

/// Calls the function while another program or thread keeps the clipboard for itself, and returns its result.
bool whileClipboardIsTaken(const std::function<bool()>& copy);

/// Lets another program copy COPY_TEXT or COPY_PICTURE (support/ClipboardCopying.h) and end, with a clipboard
/// manager running on systems whose desktops have one, and then calls the function. Returns whether the other
/// program reported success.
bool afterCopyingProgramEnded(const char* what, const std::function<void()>& read);

/// Calls the function while the owner of the clipboard, and the clipboard manager if the system has one,
/// answer no request. Returns the result of the function.
bool whileClipboardOwnerIsSilent(const std::function<bool()>& copy);

} // namespace Nolvex::Tests
