// SPDX-License-Identifier: MIT
#include "apps/viewer/ViewerFrame.h"

#include "NolvexLibWx/Clipboard.h"
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/WindowIcon.h"
#include "NolvexLibWx/widgets/ApplySkinRecursive.h"
#include "NolvexLibWx/widgets/CollapsiblePanel.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "NolvexLibWx/widgets/OskaBorder.h"
#include "NolvexLibWx/widgets/TextCtrl.h"
#include "apps/viewer/ClipboardPicture.h"
#include "apps/viewer/Command.h"
#include "apps/viewer/ImageFile.h"
#include "apps/viewer/ImageView.h"
#include "apps/viewer/ScreenPicture.h"
#include "apps/viewer/ToolBar.h"
#include "apps/viewer/ViewOptions.h"

#include <wx/collpane.h>
#include <wx/display.h>
#include <wx/filedlg.h>
#include <wx/menu.h>
#include <wx/panel.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/weakref.h>

#include <functional>
#include <new>

namespace Nolvex::Viewer {

namespace {

constexpr int MARGIN = 8;
constexpr int BORDER = 2;
constexpr RgbBytes LIGHT_SURROUND_COLOUR{200, 200, 200};
constexpr int LOG_HEIGHT = 90;
const wxSize SMALLEST(360, 300);
const wxSize LEAST_VIEW(80, 60); // scroll bars need some room

// Time for a menu to go off the screen.
constexpr int CAPTURE_DELAY_MS = 250;

struct Shortcut
{
    int key;
    int modifiers;
    Command command;
};

constexpr Shortcut SHORTCUTS[] = {
    {'O', wxMOD_CONTROL, Command::OPEN},
    {'C', wxMOD_CONTROL, Command::COPY},
    {'S', wxMOD_CONTROL | wxMOD_SHIFT, Command::CAPTURE_SCREEN},
    {'L', wxMOD_CONTROL, Command::SHOW_LOG},
    {'W', wxMOD_CONTROL, Command::CLOSE},
    {'Q', wxMOD_CONTROL, Command::CLOSE},
    {WXK_ESCAPE, wxMOD_NONE, Command::CLOSE},
};

/// Returns the client size that shows the whole picture, if the screen is large enough, and beside the
/// picture a vertical scroll bar. The scroll bar appears when the options or the log take some of the height,
/// and would force a horizontal scroll bar if the width were missing.
wxSize clientSizeFor(const wxBitmap& picture, int heightAbove)
{
    const int around = 2 * (Wx::scaleByDpi(MARGIN) + BORDER);
    const wxSize frame(around + wxSystemSettings::GetMetric(wxSYS_VSCROLL_X), around + heightAbove);
    wxSize size = (picture.IsOk() ? picture.GetSize() : wxSize(0, 0)) + frame;
    size.IncTo(Wx::scaleByDpi(SMALLEST));
    size.DecTo(wxDisplay(0u).GetClientArea().GetSize() * 4 / 5);
    return size;
}

String sizeOf(const wxBitmap& picture)
{
    return Wx::toString(wxString::Format(L"%d \u00D7 %d", picture.GetWidth(), picture.GetHeight()));
}

String openedMessage(const String& name, const wxBitmap& picture)
{
    return L"Opened \"" + name + L"\", " + sizeOf(picture) + L" pixels.";
}

} // namespace

ViewerFrame::ViewerFrame(const String& name, const wxBitmap& picture) : wxFrame(nullptr, wxID_ANY, wxString())
{
    Wx::setZephraIcon(this);
    auto* panel = new wxPanel(this);
    const int margin = Wx::scaleByDpi(MARGIN);
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    auto* above = new wxBoxSizer(wxVERTICAL);
    above->Add(makeToolBar(panel), 0, wxEXPAND | wxTOP, margin);
    above->Add(makeOptions(panel), 0, wxEXPAND | wxTOP, margin);
    sizer->Add(above, 0, wxEXPAND | wxLEFT | wxRIGHT, margin);
    sizer->Add(makeView(panel, picture), 1, wxEXPAND | wxALL, margin);
    sizer->Add(makeLog(panel), 0, wxEXPAND | wxLEFT | wxRIGHT | wxBOTTOM, margin);
    panel->SetSizer(sizer);
    makeMenu();

    Wx::applySkinRecursive(this, Wx::GuiSkin::DEFAULT());
    setLightSurround(false);

    SetClientSize(clientSizeFor(picture, above->GetMinSize().y));
    Centre();
    bindCommands();
    makeRoom();
    describePicture(name);
    if (picture.IsOk())
        report(openedMessage(name, picture));
    m_view->SetFocus();
}

wxWindow* ViewerFrame::makeToolBar(wxWindow* parent)
{
    m_toolBar = new ToolBar(parent, [this](Command command) { run(command); });
    return m_toolBar;
}

wxWindow* ViewerFrame::makeOptions(wxWindow* parent)
{
    m_options = new ViewOptions(parent, [this](Command command) { run(command); });
    return new Wx::CollapsiblePanel(parent, Wx::GuiSkin::DEFAULT(), L"View options", m_options);
}

wxWindow* ViewerFrame::makeView(wxWindow* parent, const wxBitmap& picture)
{
    auto* border = new OskaBorder(parent);
    m_view = new ImageView(border, picture);
    m_view->SetMinSize(Wx::scaleByDpi(LEAST_VIEW));
    border->addChild(m_view);
    return border;
}

wxWindow* ViewerFrame::makeLog(wxWindow* parent)
{
    m_log = new Wx::TextCtrl(parent, wxID_ANY, {}, wxDefaultPosition, Wx::scaleByDpi(wxSize(-1, LOG_HEIGHT)),
                             wxTE_MULTILINE | wxTE_READONLY);
    m_logTooltip = new Wx::Tooltip(m_log, String());
    m_log->Hide();
    return m_log;
}

void ViewerFrame::makeMenu()
{
    auto* picture = new wxMenu;
    picture->Append(Command::OPEN, L"&Open...\tCtrl+O");
    picture->Append(Command::COPY, L"&Copy image\tCtrl+C");
    picture->Append(Command::CAPTURE_SCREEN, L"Capture &screen\tCtrl+Shift+S");
    picture->AppendSeparator();
    picture->Append(Command::CLOSE, L"Close\tCtrl+W");
    auto* view = new wxMenu;
    view->AppendCheckItem(Command::SHOW_LOG, L"&Log\tCtrl+L");
    view->AppendCheckItem(Command::SHOW_TOOLTIPS, L"&Tooltips");
    view->AppendCheckItem(Command::LIGHT_SURROUND, L"Light &surround");
    auto* help = new wxMenu;
    help->Append(Command::ABOUT, L"&About");
    auto* bar = new wxMenuBar;
    bar->Append(picture, L"&Picture");
    bar->Append(view, L"&View");
    bar->Append(help, L"&Help");
    SetMenuBar(bar);
}

void ViewerFrame::bindCommands()
{
    const auto bind = [this](Command command, const std::function<void()>& handler) {
        Bind(
            wxEVT_MENU, [handler](wxCommandEvent&) { handler(); }, command);
    };
    bind(Command::OPEN, [this] { onOpen(); });
    bind(Command::COPY, [this] { onCopy(); });
    bind(Command::CAPTURE_SCREEN, [this] { onCapture(); });
    bind(Command::CLOSE, [this] { Close(); });
    bind(Command::SHOW_LOG, [this] { showLog(!isLogShown()); });
    bind(Command::SHOW_TOOLTIPS, [this] { setTooltips(!hasTooltips()); });
    bind(Command::LIGHT_SURROUND, [this] { setLightSurround(!hasLightSurround()); });
    bind(Command::ABOUT, [this] { tellAbout(); });
    Bind(wxEVT_COLLAPSIBLEPANE_CHANGED, [this](wxCollapsiblePaneEvent&) { makeRoom(); });
    m_captureTimer.SetOwner(this);
    Bind(wxEVT_TIMER, [this](wxTimerEvent&) { captureScreen(); });
    Bind(wxEVT_CHAR_HOOK, &ViewerFrame::onKey, this);
}

bool ViewerFrame::wasPainted() const
{
    return m_view->wasPainted();
}

bool ViewerFrame::openPicture(const Io::Path& file)
{
    const Expected<wxBitmap, String> picture = readBitmapFile(file);
    if (!picture)
        return complain(picture.error());
    showPicture(file.fileName(), *picture);
    report(openedMessage(file.fileName(), *picture));
    return true;
}

bool ViewerFrame::copyPicture()
{
    if (!m_view->bitmap().IsOk())
        return complain(L"There is no picture to copy.");
    const wxWeakRef<ViewerFrame> self(this);
    bool copied = false;
    try {
        copied = Wx::setClipboardData(clipboardPicture(m_view->bitmap(), m_view->GetBackgroundColour()), {});
    } catch (const std::bad_alloc&) {
        return complain(L"The picture was not copied: there is not enough memory.");
    }
    // Events run while a clipboard manager fetches the picture, and one of them may have closed this window.
    if (!self)
        return copied;
    if (!copied)
        return complain(L"The picture was not copied: another program is using the clipboard, or the "
                        L"picture is too large for it.");
    report(L"Copied the picture, " + sizeOf(m_view->bitmap()) + L" pixels.");
    return true;
}

bool ViewerFrame::captureScreen()
{
    const wxBitmap picture = screenPicture();
    if (!picture.IsOk())
        return complain(L"The screen cannot be read.");
    showPicture(L"Unsaved picture of the screen", picture);
    report(L"Captured the screen, " + sizeOf(picture) + L" pixels.");
    return true;
}

void ViewerFrame::showLog(bool show)
{
    GetMenuBar()->Check(Command::SHOW_LOG, show);
    m_toolBar->setLogShown(show);
    m_options->setLogShown(show);
    if (show == isLogShown())
        return;
    m_log->Show(show);
    makeRoom();
    if (!show)
        m_view->SetFocus();
}

// What unfolds or appears must not squeeze the view to nothing.
void ViewerFrame::makeRoom()
{
    wxWindow* const panel = m_log->GetParent();
    const wxSize least = panel->GetSizer()->CalcMin();
    SetMinClientSize(least);
    wxSize size = GetClientSize();
    size.IncTo(least);
    if (size != GetClientSize())
        SetClientSize(size);
    panel->Layout();
}

bool ViewerFrame::isLogShown() const
{
    return m_log->IsShown();
}

void ViewerFrame::setTooltips(bool wanted)
{
    m_tooltips = wanted;
    GetMenuBar()->Check(Command::SHOW_TOOLTIPS, wanted);
    m_options->setTooltips(wanted);
    m_toolBar->setTooltips(wanted);
    m_view->setTooltip(wanted ? m_description : String());
    m_logTooltip->setText(wanted ? L"What the viewer has done, the latest at the end" : String());
}

void ViewerFrame::setLightSurround(bool light)
{
    m_lightSurround = light;
    GetMenuBar()->Check(Command::LIGHT_SURROUND, light);
    m_options->setLightSurround(light);
    m_view->SetBackgroundColour(
        Wx::toWxColour(light ? LIGHT_SURROUND_COLOUR : Wx::GuiSkin::DEFAULT().darkBackground));
    m_view->Refresh();
}

void ViewerFrame::tellAbout()
{
    report(L"nolvex-viewer " + Wx::toString(wxString(NOLVEX_VERSION)) +
           L", every control of which is one of NolvexLibWx. MIT License.");
    showLog(true);
}

void ViewerFrame::showPicture(const String& name, const wxBitmap& picture)
{
    m_view->setBitmap(picture);
    describePicture(name);
}

void ViewerFrame::describePicture(const String& name)
{
    const wxBitmap& picture = m_view->bitmap();
    if (picture.IsOk()) {
        SetTitle(Wx::toWxString(name + L" (" + sizeOf(picture) + L")"));
        m_description = name + L"\n" + sizeOf(picture) + L" pixels";
    } else {
        SetTitle(L"Viewer");
        m_description = L"There is no picture yet.";
    }
    setTooltips(m_tooltips);
}

void ViewerFrame::report(const String& message)
{
    m_log->AppendText(Wx::toWxString(message + L"\n"));
}

bool ViewerFrame::complain(const String& message)
{
    report(message);
    showLog(true);
    return false;
}

void ViewerFrame::run(int command)
{
    wxCommandEvent event(wxEVT_MENU, command);
    ProcessWindowEvent(event);
}

void ViewerFrame::onOpen()
{
    wxFileDialog dialog(this, L"Open a picture", {}, {}, wxFileSelectorDefaultWildcardStr,
                        wxFD_OPEN | wxFD_FILE_MUST_EXIST);
    if (dialog.ShowModal() == wxID_OK)
        openPicture(Io::Path(Wx::toString(dialog.GetPath())));
}

void ViewerFrame::onCopy()
{
    // The log's own text, while it is what the user is at.
    if (m_log->HasFocus() && m_log->CanCopy())
        m_log->Copy();
    else
        copyPicture();
}

void ViewerFrame::onCapture()
{
    m_captureTimer.StartOnce(CAPTURE_DELAY_MS);
}

// Not left to the menu: the log keeps all keys to itself while it has the focus.
void ViewerFrame::onKey(wxKeyEvent& event)
{
    for (const Shortcut& shortcut : SHORTCUTS) {
        if (shortcut.key == event.GetKeyCode() && shortcut.modifiers == event.GetModifiers()) {
            run(shortcut.command);
            return;
        }
    }
    event.Skip();
}

} // namespace Nolvex::Viewer
