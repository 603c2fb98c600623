// SPDX-License-Identifier: MIT
#include "NolvexLibWx/FileDialogs.h"

#include "NolvexLib/GuiDisabler.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/detail/DialogOwner.h"
#include "NolvexLibWx/detail/ModalDialogs.h"
#include "NolvexLibWx/platform/FileChooser.h"

#include <wx/dirdlg.h>
#include <wx/filedlg.h>

namespace Nolvex {

namespace {

wxString wildcard(ArrayView<const Io::FileFilter> filters)
{
    return Wx::toWxString(Io::FileFilter::getWildcardString(filters, Io::FileFilterFormat::WILDCARD));
}

Io::Path firstOf(const Stack<Io::Path>& paths)
{
    return paths.empty() ? Io::Path() : paths.front();
}

wxArrayString pathsOf(const wxFileDialog& dialog)
{
    wxArrayString paths;
    if (dialog.HasFlag(wxFD_MULTIPLE))
        dialog.GetPaths(paths);
    else
        paths.push_back(dialog.GetPath());
    return paths;
}

// All file dialogs have this in common: the folder they open in, the file name they propose, and their style.
struct FileRequest
{
    Io::Path folder;
    String fileName;
    long style;
};

FileRequest requestForOne(const Io::Path& initial, long style)
{
    return {initial.parentDirectory(), initial.fileName(), style};
}

Stack<Io::Path> askForFiles(WindowHandle owner, const String& title, ArrayView<const Io::FileFilter> filters,
                            const FileRequest& request)
{
    if (!ModalDialogs::arePossible())
        return {};
    DialogOwner dialogOwner(owner); // comes first: GTK must find the active window, which is disabled next
    const GuiDisabler disabler;
    wxFileDialog dialog(dialogOwner.parent(), Wx::toWxString(title),
                        Wx::toWxString(request.folder.nativeStr()), Wx::toWxString(request.fileName),
                        wildcard(filters), request.style);
    Platform::widenFilters(dialog);
    if (request.fileName.isEmpty())
        Platform::startInExistingFolder(dialog, request.folder);
    if (dialogOwner.showModal(dialog) != wxID_OK)
        return {};
    return Platform::chosenPaths(dialog, pathsOf(dialog));
}

} // namespace

Io::Path Wx::filenameOpenDlg(WindowHandle owner, const String& title, ArrayView<const Io::FileFilter> filters,
                             const Io::Path& initial)
{
    return firstOf(
        askForFiles(owner, title, filters, requestForOne(initial, wxFD_OPEN | wxFD_FILE_MUST_EXIST)));
}

Io::Path Wx::filenameSaveDlg(WindowHandle owner, const String& title, ArrayView<const Io::FileFilter> filters,
                             Flags<FileSelect> flags, const Io::Path& initial)
{
    const long prompt = flags.has(FileSelect::OverwritePrompt) ? wxFD_OVERWRITE_PROMPT : 0;
    return firstOf(askForFiles(owner, title, filters, requestForOne(initial, wxFD_SAVE | prompt)));
}

Stack<Io::Path> Wx::multiFilenameOpenDlg(WindowHandle owner, const String& title,
                                         ArrayView<const Io::FileFilter> filters, const Io::Path& initial)
{
    const long style = wxFD_OPEN | wxFD_FILE_MUST_EXIST | wxFD_MULTIPLE;
    return askForFiles(owner, title, filters, {initial, String(), style});
}

Io::Path Wx::dirSelectDlg(WindowHandle owner, const String& title, const Io::Path& initial)
{
    if (!ModalDialogs::arePossible())
        return {};
    DialogOwner dialogOwner(owner); // comes first, as above
    const GuiDisabler disabler;
    wxDirDialog dialog(dialogOwner.parent(), toWxString(title), toWxString(initial.nativeStr()));
    Platform::startInExistingFolder(dialog, initial);
    if (dialogOwner.showModal(dialog) != wxID_OK)
        return {};
    return firstOf(Platform::chosenPaths(dialog, {1, dialog.GetPath()}));
}

} // namespace Nolvex
