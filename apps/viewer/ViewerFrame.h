// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Io/Path.h"
#include "NolvexLib/String.h"

#include <wx/bitmap.h>
#include <wx/frame.h>
#include <wx/timer.h>

namespace Nolvex::Wx {

class TextCtrl;
class Tooltip;

} // namespace Nolvex::Wx

namespace Nolvex::Viewer {

class ImageView;
class ToolBar;
class ViewOptions;

/// The viewer's window, in the default skin: a row of buttons, options that fold away, the picture inside a
/// bevelled border, and below it a log, hidden at first, of what was done and what failed. What fails is told
/// there, shows the log, and leaves the picture as it is. Ctrl+W, Ctrl+Q and Escape close it.
class ViewerFrame : public wxFrame
{
public:
    /// An invalid picture stands for none.
    ViewerFrame(const String& name, const wxBitmap& picture);

    /// True once the picture has been painted on the screen.
    bool wasPainted() const;

    // Each of these commands tells how it went and writes it to the log.

    bool openPicture(const Io::Path& file);

    /// Puts the picture on the clipboard, as it is shown. On GTK the window may be closed meanwhile, and gone
    /// when this returns.
    bool copyPicture();

    /// Shows what all displays show now, this window included, in place of the picture.
    bool captureScreen();

    void showLog(bool show);

    bool isLogShown() const;

    void setTooltips(bool wanted);

    bool hasTooltips() const { return m_tooltips; }

    /// What surrounds the picture: the skin's dark background, or a light grey to judge dark pictures by.
    void setLightSurround(bool light);

    bool hasLightSurround() const { return m_lightSurround; }

    /// Writes what this program is to the log, and shows it.
    void tellAbout();

private:
    wxWindow* makeToolBar(wxWindow* parent);
    wxWindow* makeOptions(wxWindow* parent);
    wxWindow* makeView(wxWindow* parent, const wxBitmap& picture);
    wxWindow* makeLog(wxWindow* parent);
    void makeMenu();
    void bindCommands();

    void showPicture(const String& name, const wxBitmap& picture);
    void describePicture(const String& name);
    void report(const String& message);
    bool complain(const String& message);

    void makeRoom();
    void run(int command);
    void onOpen();
    void onCopy();
    void onCapture();
    void onKey(wxKeyEvent& event);

    ToolBar* m_toolBar = nullptr;
    ViewOptions* m_options = nullptr;
    ImageView* m_view = nullptr;
    Wx::TextCtrl* m_log = nullptr;
    Wx::Tooltip* m_logTooltip = nullptr;
    String m_description;
    wxTimer m_captureTimer;
    bool m_tooltips = true;
    bool m_lightSurround = false;
};

} // namespace Nolvex::Viewer
