// SPDX-License-Identifier: MIT
#include "apps/viewer/ViewerFrame.h"

#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/FileDialogs.h"
#include "NolvexLibWx/FontSetup.h"
#include "NolvexLibWx/NativeWindows.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/WindowIcon.h"
#include "NolvexLibWx/widgets/ApplySkinRecursive.h"
#include "NolvexLibWx/widgets/CollapsiblePanel.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "NolvexLibWx/widgets/OskaBorder.h"
#include "apps/viewer/AboutMessage.h"
#include "apps/viewer/ClipboardPicture.h"
#include "apps/viewer/Command.h"
#include "apps/viewer/ImageFile.h"
#include "apps/viewer/LogPanel.h"
#include "apps/viewer/ProbeTool.h"
#include "apps/viewer/ToolBar.h"
#include "apps/viewer/ViewOptions.h"
#include "apps/viewer/WindowSize.h"
#include "apps/viewer/view/ImageView.h"

#include <wx/collpane.h>
#include <wx/menu.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/weakref.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>

namespace Nolvex::Viewer {

namespace {

constexpr RgbBytes LIGHT_SURROUND_COLOUR{200, 200, 200};
const wxSize MIN_VIEW(80, 60); // scroll bars need some room

} // namespace

ViewerFrame::ViewerFrame(const SharedPicture& picture, Array<Io::Path> files, AskForScreen ask)
    : wxFrame(nullptr, wxID_ANY, wxString()),
      m_saving(*this,
               [this](const SaveTask& task, const Optional<String>& failure) { onSaved(task, failure); }),
      m_pictures(std::move(files)),
      m_capture(std::move(ask), [this](const auto& captured) { onCaptured(captured); })
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
    m_log = new LogPanel(panel);
    m_log->Hide();
    sizer->Add(m_log, 0, wxEXPAND | wxLEFT | wxRIGHT | wxBOTTOM, margin);
    panel->SetSizer(sizer);
    SetMenuBar(makeMenuBar());

    Wx::applySkinRecursive(this, Wx::GuiSkin::DEFAULT());
    setLightSurround(false);

    SetClientSize(clientSizeFor(m_view->shownSize(), above->GetMinSize().y));
    Centre();
    bindCommands();
    makeRoom();
    m_saving.setPicture(picture, m_pictures.current().value_or(Io::Path()));
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
        [this](const DisplaySettings& settings) { m_view->setDisplay(settings); },
        [this](const RgbBytes& tried) { m_view->setSurround(tried); },
        [this](bool isChosen) { setLightSurround(!isChosen && m_lightSurround); });
    return new Wx::CollapsiblePanel(parent, Wx::GuiSkin::DEFAULT(), L"View options", m_options);
}

wxWindow* ViewerFrame::makeView(wxWindow* parent, const SharedPicture& picture)
{
    auto* border = new OskaBorder(parent);
    m_view = new ImageView(border, picture);
    m_view->SetMinSize(Wx::scaleByDpi(MIN_VIEW));
    border->addChild(m_view);
    m_probe = std::make_unique<ProbeTool>(*m_view);
    return border;
}

void ViewerFrame::bindCommands()
{
    const auto bind = [this](Command command, const std::function<void()>& handler) {
        Bind(
            wxEVT_MENU, [handler](wxCommandEvent&) { handler(); }, command);
    };
    bind(Command::OPEN, [this] { onOpen(); });
    bind(Command::SAVE_AS, [this] { m_saving.saveAs(); });
    bind(Command::NEXT_PICTURE, [this] { onStep(1); });
    bind(Command::PREVIOUS_PICTURE, [this] { onStep(-1); });
    bind(Command::COPY, [this] { onCopy(); });
    bind(Command::CAPTURE_SCREEN, [this] { onCapture(); });
    bind(Command::CLOSE, [this] { Close(); });
    bind(Command::SHOW_LOG, [this] { showLog(!isLogShown()); });
    bind(Command::SHOW_TOOLTIPS, [this] { setTooltips(!hasTooltips()); });
    bind(Command::LIGHT_SURROUND, [this] { setLightSurround(!hasLightSurround()); });
    bind(Command::PIXEL_PROBE, [this] { setPixelProbe(!hasPixelProbe()); });
    bind(Command::ABOUT, [this] { tellAbout(); });
    Bind(wxEVT_COLLAPSIBLEPANE_CHANGED, [this](wxCollapsiblePaneEvent&) { makeRoom(); });
    Bind(wxEVT_CLOSE_WINDOW, &ViewerFrame::onClose, this);
    Bind(wxEVT_CHAR_HOOK, &ViewerFrame::onKey, this);
    Bind(wxEVT_MENU_OPEN, &ViewerFrame::onMenuOpened, this);
    Bind(wxEVT_MENU_CLOSE, &ViewerFrame::onMenuClosed, this);
}

ViewerFrame::~ViewerFrame() = default;

bool ViewerFrame::wasPainted() const
{
    return m_view->wasPainted();
}

bool ViewerFrame::openPictures(const Array<Io::Path>& files)
{
    PictureList pictures(files);
    for (std::size_t tried = 0; tried < files.size(); ++tried, pictures.move(1)) {
        if (readAndShow(*pictures.current())) {
            m_pictures = pictures;
            describePicture();
            return true;
        }
    }
    return false;
}

bool ViewerFrame::readAndShow(const Io::Path& file)
{
    const Expected<SharedPicture, String> picture = readPictureFile(file);
    if (!picture)
        return complain(picture.error());
    showPicture(*picture, file);
    report(openedMessage(**picture));
    return true;
}

void ViewerFrame::savePicture(const Io::Path& file, ImageFormat format, const Wx::ImageSaveSettings& settings)
{
    m_saving.save({m_view->picture(), file, format, settings});
}

void ViewerFrame::onSaved(const SaveTask& task, const Optional<String>& failure)
{
    if (failure) {
        complain(*failure);
        return;
    }
    report(savedMessage(task));
    const SharedPicture& shown = m_view->picture();
    if (!shown || &task.picture->image() != &shown->image())
        return;
    m_pictures.replaceCurrent(task.file);
    showPicture(shown->named(task.file.fileName()), task.file);
}

bool ViewerFrame::copyPicture()
{
    const SharedPicture picture = m_view->picture();
    if (!picture)
        return complain(L"There is no picture to copy.");
    const wxWeakRef<ViewerFrame> self(this);
    const Optional<String> failure =
        copyToClipboard(picture->image(), m_view->display(), Wx::toRgbBytes(m_view->GetBackgroundColour()));
    // Events run while a clipboard manager fetches the picture, and one of them may have closed this window.
    if (!self)
        return !failure;
    if (failure)
        return complain(*failure);
    report(L"Copied the picture, " + picture->sizeText() + L" pixels.");
    return true;
}

void ViewerFrame::onCaptured(const ScreenCaptureCommand::Result& captured)
{
    if (captured) {
        m_pictures = {};
        showPicture(*captured, {});
        report(L"Captured the screen, " + (*captured)->sizeText() + L" pixels.");
    } else {
        complain(captured.error());
    }
    Show();
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

// The view stays visible when the options unfold or the log appears.
void ViewerFrame::makeRoom()
{
    makeRoomFor(*m_log->GetParent(), *this);
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
    // The tooltip would cover what the probe shows.
    m_view->setTooltip(wanted && !hasPixelProbe() ? m_description : String());
    m_log->setTooltips(wanted);
}

void ViewerFrame::setLightSurround(bool light)
{
    m_lightSurround = light;
    GetMenuBar()->Check(Command::LIGHT_SURROUND, light);
    m_options->setLightSurround(light);
    m_view->setSurround(light ? LIGHT_SURROUND_COLOUR : m_options->surround());
}

void ViewerFrame::setPixelProbe(bool active)
{
    m_probe->setActive(active);
    GetMenuBar()->Check(Command::PIXEL_PROBE, active);
    m_options->setPixelProbe(active);
    setTooltips(m_tooltips);
}

bool ViewerFrame::hasPixelProbe() const
{
    return m_probe->isActive();
}

void ViewerFrame::tellAbout()
{
    showAboutMessage(this);
}

void ViewerFrame::showPicture(const SharedPicture& picture, const Io::Path& file)
{
    m_view->setPicture(picture);
    m_saving.setPicture(picture, file);
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
    GetMenuBar()->Enable(Command::SAVE_AS, m_view->picture() != nullptr);
    for (const Command command : {Command::NEXT_PICTURE, Command::PREVIOUS_PICTURE})
        GetMenuBar()->Enable(command, m_pictures.count() > 1);
    Wx::setAccessibleName(*m_view, m_view->picture() ? m_view->picture()->name() : String(L"No picture"));
    setTooltips(m_tooltips);
}

void ViewerFrame::report(const String& message)
{
    m_log->add(message);
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
    const wxWeakRef<ViewerFrame> self(this);
    if (!m_saving.letGo() || !self)
        return;
    const SharedPicture letGo = m_view->picture();
    const Io::Path folder = m_pictures.current().value_or(Io::Path()).parentDirectory();
    const Stack<Io::Path> files = Wx::multiFilenameOpenDlg(Wx::getWindowNativeHandle(this), L"Open pictures",
                                                           readableFilters(), folder);
    if (!self || files.empty())
        return;
    // A picture of the screen may have arrived while the dialog was open.
    if (m_view->picture() == letGo || (m_saving.letGo() && self))
        openPictures(Array<Io::Path>(files.begin(), files.end()));
}

void ViewerFrame::onStep(int steps)
{
    const wxWeakRef<ViewerFrame> self(this);
    if (m_pictures.count() < 2 || !m_saving.letGo() || !self)
        return;
    m_pictures.move(steps);
    readAndShow(*m_pictures.current());
}

void ViewerFrame::onCopy()
{
    // While the log has the focus, Copy means the selected text of the log.
    if (m_log->hasTextToCopy())
        m_log->copyText();
    else
        copyPicture();
}

void ViewerFrame::onCapture()
{
    const wxWeakRef<ViewerFrame> self(this);
    if (m_capture.isRunning())
        complain(L"The desktop is still being asked for a picture of the screen.");
    else if (m_saving.letGo() && self)
        m_capture.startSoon();
}

void ViewerFrame::onClose(wxCloseEvent& event)
{
    const wxWeakRef<ViewerFrame> self(this);
    const bool mayClose = !event.CanVeto() || m_saving.letGo();
    if (!mayClose) {
        event.Veto();
    } else if (self) {
        m_capture.cancel();
        Destroy();
    }
}

// The window handles the keys itself instead of the menu, because the log receives all keys while it has the
// focus. The keys are left to a menu while it is open.
void ViewerFrame::onKey(wxKeyEvent& event)
{
    int command = m_openMenus > 0 ? static_cast<int>(wxID_NONE) : commandOf(event);
    if (command == CLOSE && event.GetKeyCode() == WXK_ESCAPE && hasPixelProbe())
        command = PIXEL_PROBE;
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
