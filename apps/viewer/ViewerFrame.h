// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Io/Path.h"
#include "NolvexLib/String.h"
#include "apps/viewer/Picture.h"

#include <wx/frame.h>
#include <wx/timer.h>

namespace Nolvex {

class OskaBorder;

} // namespace Nolvex

namespace Nolvex::Wx {

class TextCtrl;
class Tooltip;

} // namespace Nolvex::Wx

namespace Nolvex::Viewer {

class ImageView;
class ToolBar;
class ViewOptions;

/// The viewer's window, in the default skin: a row of buttons, options that fold away, the picture inside a
/// bevelled border, and below it a log, hidden at first, of commands and failures. A command that fails
/// writes the reason to the log, shows it, and leaves the picture as it is. Ctrl+W, Ctrl+Q and Escape close
/// the window; Escape in an open menu closes the menu only.
class ViewerFrame : public wxFrame
{
public:
    explicit ViewerFrame(const SharedPicture& picture);

    /// True once the picture has been painted on the screen.
    bool wasPainted() const;

    // Each of these commands returns whether it succeeded, and writes the outcome to the log.

    bool openPicture(const Io::Path& file);

    /// Puts the picture on the clipboard, as it is shown. On GTK events are processed meanwhile, so that the
    /// window may have been closed and destroyed when this returns.
    bool copyPicture();

    /// Replaces the picture by a picture of all displays, this window included.
    bool captureScreen();

    void showLog(bool show);

    bool isLogShown() const;

    void setTooltips(bool wanted);

    bool hasTooltips() const { return m_tooltips; }

    /// Surrounds the picture with a light grey, by which dark pictures can be judged, or with the skin's dark
    /// background.
    void setLightSurround(bool light);

    bool hasLightSurround() const { return m_lightSurround; }

    /// Writes the name and version of this program to the log, and shows the log.
    void tellAbout();

private:
    wxWindow* makeToolBar(wxWindow* parent);
    wxWindow* makeOptions(wxWindow* parent);
    wxWindow* makeView(wxWindow* parent, const SharedPicture& picture);
    wxWindow* makeLog(wxWindow* parent);
    void bindCommands();

    void showPicture(const SharedPicture& picture);
    void describePicture();
    void report(const String& message);
    bool complain(const String& message);

    void makeRoom();
    void run(int command);
    void onOpen();
    void onCopy();
    void onCapture();
    void onKey(wxKeyEvent& event);
    void onMenuOpened(wxMenuEvent& event);
    void onMenuClosed(wxMenuEvent& event);

    ToolBar* m_toolBar = nullptr;
    ViewOptions* m_options = nullptr;
    ImageView* m_view = nullptr;
    OskaBorder* m_logBorder = nullptr;
    Wx::TextCtrl* m_log = nullptr;
    Wx::Tooltip* m_logTooltip = nullptr;
    String m_description;
    wxTimer m_captureTimer;
    int m_openMenus = 0;
    bool m_tooltips = true;
    bool m_lightSurround = false;
};

} // namespace Nolvex::Viewer
