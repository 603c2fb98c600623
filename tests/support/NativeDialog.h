// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/String.h"
#include "NolvexLib/WindowHandle.h"

namespace Nolvex::Tests {

// The file and folder dialogs of the system, as a user sees and operates them. Where the functions make
// input, the system receives the input and gives it to the dialog, which must have the focus.

/// Returns the file or folder dialog that takes the keys at present, or null.
WindowHandle activeFileDialog();

/// Returns the message box of such a dialog that takes the keys at present, or null.
WindowHandle activeMessageBox();

String titleOf(WindowHandle dialog);

/// Returns the descriptions of the file types that the dialog offers.
Array<String> fileTypesOf(WindowHandle dialog);

/// Returns the folder that a dialog of GTK shows. Dialogs of Windows do not tell, and the path is empty.
Io::Path shownFolder(WindowHandle dialog);

/// Returns the names that the dialog lists, in the order of the names.
Array<String> listedFiles(WindowHandle dialog);

/// Puts the keyboard focus into the field for the name of the file or folder.
void goToNameField();

/// Returns the text of the field that has the keyboard focus, or an empty text.
String focusedFieldText();

/// Selects these files in the dialog, which shows the folder of the files and lists no other files.
void selectFiles(const Array<String>& names);

/// Presses the keys that answer the question of a message box.
void answerQuestion(bool yes);

/// Returns the dialog of the system, of any thread of the program, that takes the keys at present, or null.
WindowHandle activeNativeDialog();

/// Ends all dialogs of the system, of all threads of the program, without the keyboard, for tests that have
/// failed.
void endNativeDialogs();

} // namespace Nolvex::Tests
