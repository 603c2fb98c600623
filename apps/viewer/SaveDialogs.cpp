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

#include <algorithm>
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

// What the user is asked.
struct Question
{
    const wchar_t* title;
    const Array<ImageFormat>& formats;
};

// The dialog has asked about overwriting the name without the extension only.
bool mayWrite(WindowHandle window, const Question& question, const Io::Path& file)
{
    return !exists(file) ||
           Wx::showOkCancelDialog(window, question.title,
                                  L"A file named \"" + file.fileName() + L"\" exists. Replace it?",
                                  Wx::MessageDialogIcon::WARNING);
}

Optional<Io::Path> askForFile(WindowHandle window, const Question& question, const Io::Path& proposal)
{
    Io::Path file = Wx::filenameSaveDlg(window, question.title, filtersOf(question.formats),
                                        Wx::FileSelect::OverwritePrompt, proposal);
    if (file.isEmpty())
        return {};
    if (!file.extension().isEmpty())
        return file;
    file = withExtension(file, L".png");
    return mayWrite(window, question, file) ? file : Optional<Io::Path>();
}

void refuseFormat(WindowHandle window, const Question& question, const Io::Path& file)
{
    String message =
        L"The viewer cannot write files of the kind \"" + file.extension() + L"\" here. It writes ";
    String separator;
    for (const Io::FileFilter& filter : filtersOf(question.formats)) {
        message += separator + filter.description;
        separator = L", ";
    }
    Wx::showOkDialog(window, question.title, message + L".", Wx::MessageDialogIcon::ERROR);
}

// Returns the task with the file and its format.
Optional<SaveTask> askForTarget(wxWindow& window, const Question& question, const Io::Path& proposal)
{
    const wxWeakRef<wxWindow> alive(&window);
    const WindowHandle handle = Wx::getWindowNativeHandle(&window);
    const Optional<Io::Path> file = askForFile(handle, question, withExtension(proposal, L".png"));
    if (!file || !alive)
        return {};
    const Optional<ImageFormat> format = writableFormatOf(*file);
    if (!format || std::ranges::count(question.formats, *format) == 0) {
        refuseFormat(handle, question, *file);
        return {};
    }
    return SaveTask{.picture = {}, .file = *file, .format = *format, .settings = {}};
}

} // namespace

Optional<SaveTask> askHowToSave(wxWindow& window, const SharedPicture& picture, const Io::Path& proposal,
                                SaveDefaults& defaults)
{
    const wxWeakRef<wxWindow> alive(&window);
    Optional<SaveTask> task = askForTarget(window, {L"Save the picture", writableFormats()}, proposal);
    if (!task || !alive)
        return {};
    defaults.setPicture(picture->image().descriptor());
    const Optional<Wx::ImageSaveSettings> settings =
        Wx::ImageSaveSettingsDialog::requestSettingsFromUser(&window, task->format, &defaults);
    if (!settings || !alive)
        return {};
    task->picture = picture;
    task->settings = *settings;
    return task;
}

Optional<SaveTask> askWhereToSaveView(wxWindow& window, const Scene& view, const Io::Path& proposal)
{
    Optional<SaveTask> task = askForTarget(window, {L"Save the view", writableByteFormats()}, proposal);
    if (task) {
        task->picture = view.picture;
        task->view = view;
    }
    return task;
}

} // namespace Nolvex::Viewer
