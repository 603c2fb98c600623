// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Io/Path.h"
#include "NolvexLib/String.h"
#include "apps/viewer/Picture.h"
#include "apps/viewer/SaveDefaults.h"
#include "apps/viewer/SaveJob.h"
#include "apps/viewer/Workspace.h"

class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Viewer {

class Settings;

/// Returns what the log says when the file has been written.
String savedMessage(const SaveTask& task);

/// What the viewer's window does to keep pictures: it saves them, and asks before the picture that it shows
/// is lost. Functions that ask the user run events, so that the window may have been destroyed when
/// they return; they return false then.
class PictureSaving
{
public:
    /// `done` is called when a file has been written, or could not be.
    /// The settings remember how the user has saved, and must outlive this object.
    PictureSaving(wxWindow& window, Settings& settings, SaveJob::Done done);

    /// Tells which picture is shown, or null for none.
    void setPicture(const OpenPicture* shown);

    /// True if closing the shown picture loses it.
    bool isUnsaved() const { return m_picture && m_file.isEmpty() && m_origin == PictureOrigin::DESKTOP; }

    /// Asks for a file and begins to write the picture. Returns whether it began.
    bool saveAs();

    /// Asks for a file and begins to write the pixels of the scene, which shows the picture in some way. The
    /// picture itself stays as unsaved as it is. Returns whether that began.
    bool saveView(const Scene& view);

    void save(SaveTask task);

    /// Waits for a file that is being written, and asks what to do with the picture if it is unsaved. Returns
    /// whether the picture may be closed; not if the file could not be written.
    bool letGo();

private:
    bool saveAs(const SharedPicture& picture, const Io::Path& file);

    /// Returns whether the file that was being written, if any, is complete.
    bool waitForFile();
    void onWritten(const SaveTask& task, const Optional<String>& failure);

    wxWindow& m_window;
    Settings& m_settings;
    SaveJob::Done m_done;
    SharedPicture m_picture;
    Io::Path m_file;
    PictureOrigin m_origin = PictureOrigin::FILE;
    bool m_wasWritten = false; // of the last file
    SaveDefaults m_defaults;
    SaveJob m_job;
};

} // namespace Nolvex::Viewer
