// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/ImageFormat.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/widgets/ImageSaveSettings.h"
#include "apps/viewer/Messages.h"
#include "apps/viewer/PictureOpening.h"
#include "apps/viewer/PictureSaving.h"
#include "apps/viewer/ScreenCaptureCommand.h"
#include "apps/viewer/ScreenRegionChoice.h"
#include "apps/viewer/Workspace.h"

#include <memory>

class WXDLLIMPEXP_FWD_CORE wxFrame;

namespace Nolvex::Viewer {

class ImageView;

/// The commands that open, keep and close pictures, bound to a window. The outcome of each command is told in
/// the messages.
///
/// A picture without a file, such as a picture of the screen, is not closed before the user has been asked
/// whether to save it.
class PictureCommands : private Noncopyable
{
public:
    /// `ask` asks for pictures of the screen. The window, the view and the settings must outlive this object.
    PictureCommands(wxFrame& window, Workspace& workspace, ImageView& view, Settings& settings,
                    Messages messages, AskForScreen ask);

    PictureOpening& opening() { return m_opening; }

    void save(const Io::Path& file, ImageFormat format, const Wx::ImageSaveSettings& settings);

    /// Puts the picture on the clipboard, as it is shown. Returns whether that succeeded. On GTK events are
    /// processed meanwhile, so that the window may have been destroyed when this returns.
    bool copy();

    /// Begins to capture all displays. The window is shown with the picture if it was hidden.
    void capture();

    /// Closes a picture, unless the user wants to keep what would be lost.
    void close(PictureId id);

    /// Asks about every picture that would be lost. Returns whether the window may be closed. The window may
    /// have been destroyed when this returns.
    bool letGoOfAll();

    /// Stops what runs in the background, before the window is closed.
    void stop();

private:
    void bind();
    void followWorkspace();

    void onOpen();
    void onPaste();
    void onReload();
    void onCapture(bool ofRegion);
    void onSaved(const SaveTask& task, const Optional<String>& failure);
    void onCaptured(const ScreenCaptureCommand::Result& captured);
    void onRegion(const Optional<wxRect>& region);
    void showCaptured(const SharedPicture& picture);
    const OpenPicture* firstUnsaved(const Array<PictureId>& asked) const;

    wxFrame& m_window;
    Workspace& m_workspace;
    ImageView& m_view;
    Settings& m_settings;
    Messages m_messages;
    PictureOpening m_opening;
    PictureSaving m_saving;
    ScreenCaptureCommand m_capture;
    bool m_captureOfRegion = false;
    std::unique_ptr<ScreenRegionChoice> m_region; // null unless the user is choosing
};

} // namespace Nolvex::Viewer
