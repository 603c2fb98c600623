// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Expected.h"
#include "NolvexLib/Function.h"
#include "NolvexLib/ImageFormat.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/net/SocketAddress.h"
#include "NolvexLibWx/widgets/ImageSaveSettings.h"
#include "apps/viewer/Command.h"
#include "apps/viewer/OpenMenus.h"
#include "apps/viewer/Picture.h"
#include "apps/viewer/ScreenCaptureCommand.h"
#include "apps/viewer/ViewerLook.h"
#include "apps/viewer/Workspace.h"

#include <wx/frame.h>

#include <memory>

class WXDLLIMPEXP_FWD_BASE wxConfigBase;

namespace Nolvex::Viewer {

class CommandStates;
class ComparisonTool;
class FileFollowing;
class ImageView;
class InformationPanel;
class LayerBar;
class LogPanel;
class PanelCommands;
class PictureCommands;
class PictureListening;
class PicturesPanel;
class RecentMenu;
class Settings;
class ToolBar;
class ViewOptions;
class WindowFitting;

/// The viewer's window, in the default skin: a row of buttons, options that fold away, the picture inside a
/// bevelled border, and below it a log, hidden at first, of commands and failures. A command that fails
/// writes the reason to the log, shows it, and leaves the picture as it is. Ctrl+W, Ctrl+Q and Escape close
/// the window; Escape in an open menu closes the menu only.
///
/// Pictures without a file, such as pictures of the screen, are not closed before the user has been asked
/// whether to save them.
class ViewerFrame : public wxFrame
{
public:
    /// `file` is the file of the picture. Without a file the picture counts as unsaved. `ask` asks for
    /// pictures of the screen. The window remembers in `settings`, which may be null, what the user would
    /// have to do again.
    explicit ViewerFrame(const SharedPicture& picture, const Io::Path& file = {},
                         AskForScreen ask = Wx::requestScreenRegion,
                         std::shared_ptr<wxConfigBase> settings = nullptr);
    ~ViewerFrame() override;

    /// True once the picture has been painted on the screen.
    bool wasPainted() const;

    Workspace& workspace() { return m_workspace; }

    // Each of these commands returns whether it succeeded, and writes the outcome to the log.

    bool openPicture(const Io::Path& file) { return openPictures({file}); }

    /// Adds the files to the open pictures, shows the first of those that can be read, and waits until it has
    /// been read.
    bool openPictures(const Array<Io::Path>& files);

    /// Does the same and waits for nothing: the window can be used meanwhile. A folder stands for the
    /// pictures in it.
    void beginToOpen(const Array<Io::Path>& files);

    /// Does the same. The first picture gives the window its size, unless the window has the one that the
    /// settings remember, or the user changes the size before.
    void beginWith(const Array<Io::Path>& files);

    /// Begins to show the pictures that other programs send to the address. Returns the port, or a sentence
    /// that says why there are none.
    Expected<unsigned short, String> listen(const Wx::Legacy::SocketAddress& address);

    /// True while a picture is being read.
    bool isReading() const;

    /// Puts the picture on the clipboard, as it is shown. On GTK events are processed meanwhile, so that the
    /// window may have been closed and destroyed when this returns.
    bool copyPicture();

    /// Begins to take a picture of all displays, this window included. The desktop may ask the user first.
    /// When the answer is there, the window is shown if it was hidden.
    void captureScreen();

    void showLog(bool show);

    bool isLogShown() const;

    void setTooltips(bool wanted) { m_look->setTooltips(wanted); }

    bool hasTooltips() const { return m_look->hasTooltips(); }

    /// Surrounds the picture with a light grey, by which dark pictures can be judged, or with the
    /// colour of the view options.
    void setLightSurround(bool light) { m_look->setLightSurround(light); }

    bool hasLightSurround() const { return m_look->hasLightSurround(); }

    /// Switches the frame that shows the values of the pixel under the mouse. The picture has no tooltip
    /// while the frame is on, and Escape switches the frame off.
    void setPixelProbe(bool active) { m_look->setPixelProbe(active); }

    bool hasPixelProbe() const { return m_look->hasPixelProbe(); }

    /// Saves the shown picture. Returns at once; the outcome is written to the log when the file is written.
    void savePicture(const Io::Path& file, ImageFormat format, const Wx::ImageSaveSettings& settings);

    /// Called with each message that `complain` has written. May be empty.
    Function<void(const String&)> onComplaint;

    /// Writes to the log why something was not done, and shows the log.
    void complain(const String& message);

    /// Tells the name and version of this program in a message.
    void tellAbout();

private:
    wxWindow* makeToolBar(wxWindow* parent);
    wxWindow* makeOptions(wxWindow* parent);
    wxWindow* makeView(wxWindow* parent);
    wxWindow* makeLayers(wxWindow* parent);
    wxSizer* makeMiddle(wxWindow* parent, wxWindow* view);
    void makeCommands(AskForScreen ask);
    void bindCommands();
    void makePanelCommands(wxWindow& content);

    void setFollowing(bool active);
    void describePicture();
    void inform();
    void report(const String& message);

    void remember();
    void onCopy();
    void onClose(wxCloseEvent& event);
    void onKey(wxKeyEvent& event);

    Workspace m_workspace;
    ToolBar* m_toolBar = nullptr;
    ViewOptions* m_options = nullptr;
    ImageView* m_view = nullptr;
    LogPanel* m_log = nullptr;
    LayerBar* m_layers = nullptr;
    PicturesPanel* m_list = nullptr;
    InformationPanel* m_information = nullptr;
    std::unique_ptr<Settings> m_settings;
    std::unique_ptr<CommandStates> m_states;
    std::unique_ptr<PanelCommands> m_panels;
    std::unique_ptr<WindowFitting> m_fitting;
    std::unique_ptr<PictureCommands> m_commands;
    std::unique_ptr<ViewerLook> m_look;
    std::unique_ptr<ComparisonTool> m_comparison;
    std::unique_ptr<FileFollowing> m_following;
    std::unique_ptr<PictureListening> m_listening;
    std::unique_ptr<RecentMenu> m_recent;
    bool m_hasRememberedPlace = false;
    OpenMenus m_openMenus{*this};
    bool m_hadSeveral = false; // pictures, and the list could come up
};

} // namespace Nolvex::Viewer
