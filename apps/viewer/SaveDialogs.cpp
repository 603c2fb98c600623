// SPDX-License-Identifier: MIT
#include "apps/viewer/SaveDialogs.h"

#include "NolvexLibWx/FileDialogs.h"
#include "NolvexLibWx/MessageDialog.h"
#include "NolvexLibWx/NativeWindows.h"
#include "NolvexLibWx/widgets/ImageSaveSettingsDialog.h"
#include "apps/viewer/SaveDefaults.h"
#include "apps/viewer/writing/PictureWriter.h"

#include <wx/weakref.h>
#include <wx/window.h>

#include <filesystem>
#include <system_error>

namespace Nolvex::Viewer {

namespace {

Io::Path withExtension(const Io::Path& file, const wchar_t* extension)
{
    std::filesystem::path changed = file.native();
    return changed.replace_extension(extension);
}

bool exists(const Io::Path& file)
{
    std::error_code ignored;
    return std::filesystem::exists(file.native(), ignored);
}

// The dialog has asked about overwriting the name without the extension only.
bool mayWrite(WindowHandle window, const Io::Path& file)
{
    return !exists(file) ||
           Wx::showOkCancelDialog(window, L"Save the picture",
                                  L"A file named \"" + file.fileName() + L"\" exists. Replace it?",
                                  Wx::MessageDialogIcon::WARNING);
}

Optional<Io::Path> askForFile(WindowHandle window, const Io::Path& proposal)
{
    const Array<Io::FileFilter> filters = writableFilters();
    Io::Path file =
        Wx::filenameSaveDlg(window, L"Save the picture", filters, Wx::FileSelect::OverwritePrompt, proposal);
    if (file.isEmpty())
        return {};
    if (!file.extension().isEmpty())
        return file;
    file = withExtension(file, L".png");
    return mayWrite(window, file) ? file : Optional<Io::Path>();
}

void refuseFormat(WindowHandle window, const Io::Path& file)
{
    String message = L"The viewer cannot write files of the kind \"" + file.extension() + L"\". It writes ";
    String separator;
    for (const Io::FileFilter& filter : writableFilters()) {
        message += separator + filter.description;
        separator = L", ";
    }
    Wx::showOkDialog(window, L"Save the picture", message + L".", Wx::MessageDialogIcon::ERROR);
}

} // namespace

Optional<SaveTask> askHowToSave(wxWindow& window, const SharedPicture& picture, const Io::Path& proposal,
                                SaveDefaults& defaults)
{
    const wxWeakRef<wxWindow> alive(&window);
    const WindowHandle handle = Wx::getWindowNativeHandle(&window);
    const Optional<Io::Path> file = askForFile(handle, withExtension(proposal, L".png"));
    if (!file || !alive)
        return {};
    const Optional<ImageFormat> format = writableFormatOf(*file);
    if (!format) {
        refuseFormat(handle, *file);
        return {};
    }
    defaults.setPicture(picture->image().descriptor());
    const Optional<Wx::ImageSaveSettings> settings =
        Wx::ImageSaveSettingsDialog::requestSettingsFromUser(&window, *format, &defaults);
    if (!settings || !alive)
        return {};
    return SaveTask{picture, *file, *format, *settings};
}

} // namespace Nolvex::Viewer
