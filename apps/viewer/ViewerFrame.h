// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/ImageFormat.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/widgets/ImageSaveSettings.h"
#include "apps/viewer/Picture.h"
#include "apps/viewer/PictureList.h"
#include "apps/viewer/PictureSaving.h"
#include "apps/viewer/ScreenCaptureCommand.h"

#include <wx/frame.h>

#include <memory>

namespace Nolvex::Viewer {

class ImageView;
class LogPanel;
class ProbeTool;
class ToolBar;
class ViewOptions;

/// The viewer's window, in the default skin: a row of buttons, options that fold away, the picture inside a
/// bevelled border, and below it a log, hidden at first, of commands and failures. A command that fails
/// writes the reason to the log, shows it, and leaves the picture as it is. Ctrl+W, Ctrl+Q and Escape close
/// the window; Escape in an open menu closes the menu only.
///
/// A picture without a file, such as a picture of the screen, is not given up before the user has been asked
/// whether to save it.
class ViewerFrame : public wxFrame
{
public:
    /// `files` are the files that were opened together, the first of which holds the picture. Without files
    /// the picture counts as unsaved. `ask` asks for pictures of the screen.
    explicit ViewerFrame(const SharedPicture& picture, Array<Io::Path> files = {},
                         AskForScreen ask = Wx::requestScreenRegion);
    ~ViewerFrame() override;

    /// True once the picture has been painted on the screen.
    bool wasPainted() const;

    // Each of these commands returns whether it succeeded, and writes the outcome to the log.

    bool openPicture(const Io::Path& file) { return openPictures({file}); }

    /// Shows the first of the files that can be read, and lets the user go through all of them.
    bool openPictures(const Array<Io::Path>& files);

    /// Puts the picture on the clipboard, as it is shown. On GTK events are processed meanwhile, so that the
    /// window may have been closed and destroyed when this returns.
    bool copyPicture();

    /// Begins to replace the picture by a picture of all displays, this window included. The desktop may ask
    /// the user first. When the answer is there, the window is shown if it was hidden.
    void captureScreen() { m_capture.start(); }

    void showLog(bool show);

    bool isLogShown() const;

    void setTooltips(bool wanted);

    bool hasTooltips() const { return m_tooltips; }

    /// Surrounds the picture with a light grey, by which dark pictures can be judged, or with the
    /// colour of the view options.
    void setLightSurround(bool light);

    bool hasLightSurround() const { return m_lightSurround; }

    /// Switches the frame that shows the values of the pixel under the mouse. The picture has no tooltip
    /// while the frame is on, and Escape switches the frame off.
    void setPixelProbe(bool active);

    bool hasPixelProbe() const;

    /// Saves the shown picture. Returns at once; the outcome is written to the log when the file is written.
    void savePicture(const Io::Path& file, ImageFormat format, const Wx::ImageSaveSettings& settings);

    /// Tells the name and version of this program in a message.
    void tellAbout();

private:
    wxWindow* makeToolBar(wxWindow* parent);
    wxWindow* makeOptions(wxWindow* parent);
    wxWindow* makeView(wxWindow* parent, const SharedPicture& picture);
    void bindCommands();

    bool readAndShow(const Io::Path& file);
    void showPicture(const SharedPicture& picture, const Io::Path& file);
    void onSaved(const SaveTask& task, const Optional<String>& failure);
    void describePicture();
    void report(const String& message);
    bool complain(const String& message);

    void makeRoom();
    void run(int command);
    void onOpen();
    void onStep(int steps);
    void onCopy();
    void onClose(wxCloseEvent& event);
    void onCapture();
    void onCaptured(const ScreenCaptureCommand::Result& captured);
    void onKey(wxKeyEvent& event);
    void onMenuOpened(wxMenuEvent& event);
    void onMenuClosed(wxMenuEvent& event);

    ToolBar* m_toolBar = nullptr;
    ViewOptions* m_options = nullptr;
    ImageView* m_view = nullptr;
    LogPanel* m_log = nullptr;
    std::unique_ptr<ProbeTool> m_probe;
    PictureSaving m_saving;
    PictureList m_pictures;
    String m_description;
    ScreenCaptureCommand m_capture;
    int m_openMenus = 0;
    bool m_tooltips = true;
    bool m_lightSurround = false;
};

} // namespace Nolvex::Viewer
