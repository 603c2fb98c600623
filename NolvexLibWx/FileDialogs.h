// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Flags.h"
#include "NolvexLib/Io/FileFilter.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/Stack.h"
#include "NolvexLib/String.h"
#include "NolvexLib/WindowHandle.h"
#include "NolvexLibWx/Export.h"

#include <cstdint>

namespace Nolvex::Wx {

// The functions ask the user for files or a folder with the dialogs of the system. Each of them returns when
// the user has chosen or has given up, and keeps the windows of wxWidgets disabled until then. The result is
// empty if the user has cancelled or closed the dialog, if the owner has been destroyed meanwhile, or if the
// library is not started, for example because there is no display. Main thread only.
//
// The dialog stays in front of `owner`, which may be any window of the process, also one that wxWidgets did
// not create. Without an owner, or with one that has been destroyed, the dialog has no owner on Windows; on
// GTK, where the window manager might hide such a dialog, the active window of the program is the owner.
//
// `filters` are offered in their order, the first of them at the beginning; without any, all files are shown.
// Letters match whatever their case, and "*.*" matches all files on both systems.

/// Options of filenameSaveDlg.
enum class FileSelect : std::uint32_t
{
    OverwritePrompt = 1, ///< An existing file is only returned after the user has agreed to overwrite it.
};

/// Returns the existing file that the user has chosen. The dialog opens in the folder of `initial`, if there
/// is such a folder, and proposes its file name.
[[nodiscard]] NOLVEXLIBWX_EXPORT Io::Path filenameOpenDlg(WindowHandle owner, const String& title,
                                                          ArrayView<const Io::FileFilter> filters,
                                                          const Io::Path& initial);

/// Returns the name that the user has chosen for a file to be written. The file may exist. The dialog starts
/// as that of filenameOpenDlg does. Windows appends the extension of the chosen filter to a name without any,
/// GTK only to the proposed name.
[[nodiscard]] NOLVEXLIBWX_EXPORT Io::Path filenameSaveDlg(WindowHandle owner, const String& title,
                                                          ArrayView<const Io::FileFilter> filters,
                                                          Flags<FileSelect> flags, const Io::Path& initial);

/// Returns the existing files that the user has chosen, in the order of the system's dialog. Unlike for the
/// other functions, the whole of `initial` is the folder in which the dialog opens, and no name is proposed.
[[nodiscard]] NOLVEXLIBWX_EXPORT Stack<Io::Path> multiFilenameOpenDlg(WindowHandle owner, const String& title,
                                                                      ArrayView<const Io::FileFilter> filters,
                                                                      const Io::Path& initial);

/// Returns the folder that the user has chosen, or made in the dialog. The dialog opens in the folder
/// `initial`.
[[nodiscard]] NOLVEXLIBWX_EXPORT Io::Path dirSelectDlg(WindowHandle owner, const String& title,
                                                       const Io::Path& initial);

} // namespace Nolvex::Wx
