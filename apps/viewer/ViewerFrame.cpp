// SPDX-License-Identifier: MIT
#include "apps/viewer/ViewerFrame.h"

#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/Clipboard.h"
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/FontSetup.h"
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

#include <algorithm>
#include <functional>
#include <memory>
#include <new>
#include <utility>

namespace Nolvex::Viewer {

namespace {

constexpr int MARGIN = 8;
constexpr int BORDER = 2;
constexpr RgbBytes LIGHT_SURROUND_COLOUR{200, 200, 200};
constexpr int LOG_HEIGHT = 90;
const wxSize MIN_SIZE(360, 300);
const wxSize MIN_VIEW(80, 60); // scroll bars need some room

// The screen is captured this long after the command, so that the menu has left the screen.
constexpr int CAPTURE_DELAY_MS = 250;

/// Returns the client size that shows the whole picture, if the screen is large enough, and beside the
/// picture a vertical scroll bar. The scroll bar appears when the options or the log take some of the height,
/// and would force a horizontal scroll bar if the width were missing.
wxSize clientSizeFor(const wxBitmap& picture, int heightAbove)
{
    const int around = 2 * (Wx::scaleByDpi(MARGIN) + BORDER);
    const wxSize frame(around + wxSystemSettings::GetMetric(wxSYS_VSCROLL_X), around + heightAbove);
    wxSize size = (picture.IsOk() ? picture.GetSize() : wxSize(0, 0)) + frame;
    size.IncTo(Wx::scaleByDpi(MIN_SIZE));
    size.DecTo(wxDisplay(0u).GetClientArea().GetSize() * 4 / 5);
    return size;
}

String openedMessage(const Picture& picture)
{
    return L"Opened \"" + picture.name() + L"\", " + picture.sizeText() + L" pixels.";
}

} // namespace

ViewerFrame::ViewerFrame(const SharedPicture& picture) : wxFrame(nullptr, wxID_ANY, wxString())
{
    Wx::setZephraIcon(this);
    // The log inherits the font, which makes its text as large as those of the other controls.
    SetFont(Wx::setDefaultFontSize(GetFont(), 1.0f));
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
    SetMenuBar(makeMenuBar());

    Wx::applySkinRecursive(this, Wx::GuiSkin::DEFAULT());
    setLightSurround(false);

    SetClientSize(clientSizeFor(m_view->bitmap(), above->GetMinSize().y));
    Centre();
    bindCommands();
    makeRoom();
    describePicture();
    if (picture)
        report(openedMessage(*picture));
    m_view->SetFocus();
}

wxWindow* ViewerFrame::makeToolBar(wxWindow* parent)
{
    m_toolBar = new ToolBar(parent, [this](Command command) { run(command); });
    return m_toolBar;
}

wxWindow* ViewerFrame::makeOptions(wxWindow* parent)
{
    m_options = new ViewOptions(
        parent, [this](Command command) { run(command); },
        [this](const DisplaySettings& settings) { m_view->setDisplay(settings); });
    return new Wx::CollapsiblePanel(parent, Wx::GuiSkin::DEFAULT(), L"View options", m_options);
}

wxWindow* ViewerFrame::makeView(wxWindow* parent, const SharedPicture& picture)
{
    auto* border = new OskaBorder(parent);
    m_view = new ImageView(border, picture);
    m_view->SetMinSize(Wx::scaleByDpi(MIN_VIEW));
    border->addChild(m_view);
    return border;
}

wxWindow* ViewerFrame::makeLog(wxWindow* parent)
{
    // The border of the library frames the log, since the borders of the systems do not fit a dark skin.
    m_logBorder = new OskaBorder(parent, {});
    m_log =
        new Wx::TextCtrl(m_logBorder, wxID_ANY, {}, wxDefaultPosition, Wx::scaleByDpi(wxSize(-1, LOG_HEIGHT)),
                         wxTE_MULTILINE | wxTE_READONLY | wxBORDER_NONE);
    m_logBorder->addChild(m_log);
    Wx::setAccessibleName(*m_log, L"Log");
    m_logTooltip = new Wx::Tooltip(m_log, String());
    m_logBorder->Hide();
    return m_logBorder;
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
    Bind(wxEVT_MENU_OPEN, &ViewerFrame::onMenuOpened, this);
    Bind(wxEVT_MENU_CLOSE, &ViewerFrame::onMenuClosed, this);
}

bool ViewerFrame::wasPainted() const
{
    return m_view->wasPainted();
}

bool ViewerFrame::openPicture(const Io::Path& file)
{
    const Expected<SharedPicture, String> picture = readPictureFile(file);
    if (!picture)
        return complain(picture.error());
    showPicture(*picture);
    report(openedMessage(**picture));
    return true;
}

bool ViewerFrame::copyPicture()
{
    const SharedPicture picture = m_view->picture();
    if (!picture)
        return complain(L"There is no picture to copy.");
    const wxWeakRef<ViewerFrame> self(this);
    const RgbBytes background = Wx::toRgbBytes(m_view->GetBackgroundColour());
    bool copied = false;
    try {
        copied = Wx::setClipboardData(clipboardPicture(picture->image(), m_view->display(), background), {});
    } catch (const std::bad_alloc&) {
        return complain(L"The picture was not copied: there is not enough memory.");
    }
    // Events run while a clipboard manager fetches the picture, and one of them may have closed this window.
    if (!self)
        return copied;
    if (!copied)
        return complain(L"The picture was not copied: another program is using the clipboard, or the "
                        L"picture is too large for it.");
    report(L"Copied the picture, " + picture->sizeText() + L" pixels.");
    return true;
}

bool ViewerFrame::captureScreen()
{
    Optional<Image> screen = captureDisplays();
    if (!screen)
        return complain(L"The screen cannot be read.");
    const auto picture =
        std::make_shared<const Picture>(L"Unsaved picture of the screen", std::move(*screen));
    showPicture(picture);
    report(L"Captured the screen, " + picture->sizeText() + L" pixels.");
    return true;
}

void ViewerFrame::showLog(bool show)
{
    GetMenuBar()->Check(Command::SHOW_LOG, show);
    m_toolBar->setLogShown(show);
    m_options->setLogShown(show);
    if (show == isLogShown())
        return;
    m_logBorder->Show(show);
    makeRoom();
    if (!show)
        m_view->SetFocus();
}

// Enlarges the window where necessary, so that the view stays visible when the options unfold or the log
// appears.
void ViewerFrame::makeRoom()
{
    wxWindow* const panel = m_logBorder->GetParent();
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
    return m_logBorder->IsShown();
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

void ViewerFrame::showPicture(const SharedPicture& picture)
{
    m_view->setPicture(picture);
    describePicture();
}

void ViewerFrame::describePicture()
{
    if (const SharedPicture& picture = m_view->picture()) {
        SetTitle(Wx::toWxString(picture->name() + L" (" + picture->sizeText() + L")"));
        m_description = picture->name() + L"\n" + picture->sizeText() + L" pixels";
    } else {
        SetTitle(L"Viewer");
        m_description = L"There is no picture yet.";
    }
    Wx::setAccessibleName(*m_view, m_view->picture() ? m_view->picture()->name() : String(L"No picture"));
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
    // While the log has the focus, Copy means the selected text of the log.
    if (m_log->HasFocus() && m_log->CanCopy())
        m_log->Copy();
    else
        copyPicture();
}

void ViewerFrame::onCapture()
{
    m_captureTimer.StartOnce(CAPTURE_DELAY_MS);
}

// The window handles the keys itself instead of the menu, because the log receives all keys while it has the
// focus. The keys are left to a menu while it is open.
void ViewerFrame::onKey(wxKeyEvent& event)
{
    const int command = m_openMenus > 0 ? static_cast<int>(wxID_NONE) : commandOf(event);
    if (command == wxID_NONE)
        event.Skip();
    else
        run(command);
}

void ViewerFrame::onMenuOpened(wxMenuEvent& event)
{
    ++m_openMenus;
    event.Skip();
}

void ViewerFrame::onMenuClosed(wxMenuEvent& event)
{
    m_openMenus = std::max(0, m_openMenus - 1);
    event.Skip();
}

} // namespace Nolvex::Viewer
