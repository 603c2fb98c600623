// SPDX-License-Identifier: MIT
#include "apps/viewer/ViewerFrame.h"

#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/FontSetup.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/WindowIcon.h"
#include "NolvexLibWx/widgets/ApplySkinRecursive.h"
#include "NolvexLibWx/widgets/CollapsiblePanel.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "NolvexLibWx/widgets/OskaBorder.h"
#include "apps/viewer/AboutMessage.h"
#include "apps/viewer/Command.h"
#include "apps/viewer/CommandStates.h"
#include "apps/viewer/FileDropTarget.h"
#include "apps/viewer/FileFollowing.h"
#include "apps/viewer/ImageFile.h"
#include "apps/viewer/KeysMessage.h"
#include "apps/viewer/LayerBar.h"
#include "apps/viewer/LoadingBar.h"
#include "apps/viewer/LogPanel.h"
#include "apps/viewer/PanelCommands.h"
#include "apps/viewer/PictureCommands.h"
#include "apps/viewer/PictureListening.h"
#include "apps/viewer/PicturesPanel.h"
#include "apps/viewer/RecentMenu.h"
#include "apps/viewer/Settings.h"
#include "apps/viewer/ToolBar.h"
#include "apps/viewer/ViewOptions.h"
#include "apps/viewer/WindowFitting.h"
#include "apps/viewer/WindowSize.h"
#include "apps/viewer/inspection/ComparisonTool.h"
#include "apps/viewer/inspection/InformationPanel.h"
#include "apps/viewer/inspection/InformationText.h"
#include "apps/viewer/view/ImageView.h"

#include <wx/collpane.h>
#include <wx/config.h>
#include <wx/menu.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/weakref.h>

#include <algorithm>
#include <memory>
#include <utility>

namespace Nolvex::Viewer {

namespace {

const wxSize MIN_VIEW(80, 60);

} // namespace

ViewerFrame::ViewerFrame(const SharedPicture& picture, const Io::Path& file, AskForScreen ask,
                         std::shared_ptr<wxConfigBase> settings)
    : wxFrame(nullptr, wxID_ANY, wxString()), m_settings(std::make_unique<Settings>(std::move(settings)))
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
    wxWindow* const view = makeView(panel);
    m_log = new LogPanel(panel);
    SetMenuBar(makeMenuBar());
    makeCommands(std::move(ask));
    above->Add(makeLayers(panel), 0, wxEXPAND | wxTOP, margin);
    sizer->Add(makeMiddle(panel, view), 1, wxEXPAND | wxALL, margin);
    makePanelCommands(*panel);
    auto* loading = new LoadingBar(panel, m_commands->opening(), [this] { m_panels->makeRoom(); });
    sizer->Add(loading, 0, wxEXPAND | wxLEFT | wxRIGHT | wxBOTTOM, margin);
    sizer->Add(m_log, 0, wxEXPAND | wxLEFT | wxRIGHT | wxBOTTOM, margin);
    panel->SetSizer(sizer);

    Wx::applySkinRecursive(this, Wx::GuiSkin::DEFAULT());
    m_look->setPreferences(m_settings->preferences());
    setFollowing(true);
    if (picture) {
        const auto origin = file.isEmpty() ? PictureOrigin::DESKTOP : PictureOrigin::FILE;
        m_workspace.setCurrent(m_workspace.add(file, picture, origin));
        report(openedMessage(*picture));
    }
    SetClientSize(clientSizeFor(m_view->shownSize(), above->GetMinSize().y));
    Centre();
    m_panels->makeRoom();
    m_hasRememberedPlace = m_settings->restore(*this);
    m_panels->show(SHOW_INFORMATION, m_settings->preferences().informationPanel);
    describePicture();
    m_view->SetFocus();
}

wxWindow* ViewerFrame::makeToolBar(wxWindow* parent)
{
    m_toolBar = new ToolBar(parent, [this](Command command) { runCommand(*this, command); });
    return m_toolBar;
}

wxWindow* ViewerFrame::makeOptions(wxWindow* parent)
{
    m_options = new ViewOptions(
        parent, [this](Command command) { runCommand(*this, command); },
        [this](const DisplaySettings& settings) { m_view->setDisplay(settings); },
        [this](const RgbBytes& tried) { m_view->setSurround(tried); },
        [this](bool isChosen) { setLightSurround(!isChosen && hasLightSurround()); });
    return new Wx::CollapsiblePanel(parent, Wx::GuiSkin::DEFAULT(), L"View options", m_options);
}

wxWindow* ViewerFrame::makeView(wxWindow* parent)
{
    auto* border = new OskaBorder(parent);
    m_view = new ImageView(border, nullptr);
    m_view->SetMinSize(Wx::scaleByDpi(MIN_VIEW));
    border->addChild(m_view);
    return border;
}

wxWindow* ViewerFrame::makeLayers(wxWindow* parent)
{
    m_layers = new LayerBar(
        parent, [this](std::size_t layer) { m_commands->opening().showLayer(layer); },
        [this] { m_panels->makeRoom(); });
    return m_layers;
}

// The list of the pictures at the left, the picture, and what is told about it at the right.
wxSizer* ViewerFrame::makeMiddle(wxWindow* parent, wxWindow* view)
{
    m_list = new PicturesPanel(
        parent, m_workspace, [this](PictureId id) { m_commands->opening().show(id); },
        [this](PictureId id) { m_commands->close(id); });
    // The user's choice may have been cancelled, or could not be read.
    m_commands->opening().onEnded = [this] {
        m_list->selectCurrent();
        m_layers->setPicture(m_workspace.currentPicture());
    };
    m_information = new InformationPanel(parent);
    const int margin = Wx::scaleByDpi(MARGIN);
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(m_list, 0, wxEXPAND | wxRIGHT, margin);
    row->Add(view, 1, wxEXPAND);
    row->Add(m_information, 0, wxEXPAND | wxLEFT, margin);
    return row;
}

void ViewerFrame::makeCommands(AskForScreen ask)
{
    m_states = std::make_unique<CommandStates>(*GetMenuBar(), *m_toolBar, *m_options);
    m_look = std::make_unique<ViewerLook>(
        ViewerLook::Parts{*this, *m_view, *m_toolBar, *m_log, *m_options, *m_states});
    const Messages messages{[this](const String& message) { report(message); },
                            [this](const String& message) { complain(message); }};
    m_commands =
        std::make_unique<PictureCommands>(*this, m_workspace, *m_view, *m_settings, messages, std::move(ask));
    m_comparison = std::make_unique<ComparisonTool>(*this, m_workspace, *m_view, *m_states, messages,
                                                    [this] { describePicture(); });
    m_following = std::make_unique<FileFollowing>(m_workspace,
                                                  [this](PictureId id) { m_commands->opening().reload(id); });
    m_listening = std::make_unique<PictureListening>(*this, m_workspace, messages);
    m_recent = std::make_unique<RecentMenu>(*this, m_workspace, *m_settings,
                                            [this](const Io::Path& recent) { beginToOpen({recent}); });
    m_view->SetDropTarget(
        new FileDropTarget([this](const Array<Io::Path>& dropped) { beginToOpen(dropped); }));
    m_workspace.observe([this](Flags<Workspace::Change> changes) {
        if (changes == Workspace::Change::LIST)
            describePicture();
    });
    m_fitting = std::make_unique<WindowFitting>(*this, *m_view, m_workspace);
    m_view->onSelection = [this](const Optional<wxRect>&) { inform(); };
    bindCommands();
}

// The list comes up by itself once, when there is something to choose from.
void ViewerFrame::makePanelCommands(wxWindow& content)
{
    using Place = PanelCommands::Place;
    m_panels = std::make_unique<PanelCommands>(*this, content, *m_view, *m_states);
    m_panels->add(SHOW_PICTURES, *m_list, Place::BESIDE);
    m_panels->add(SHOW_INFORMATION, *m_information, Place::BESIDE);
    m_panels->add(SHOW_LOG, *m_log, Place::BELOW);
    const Preferences preferences = m_settings->preferences();
    m_workspace.observe([this, isWanted = preferences.picturesPanel](Flags<Workspace::Change>) {
        if (m_workspace.pictures().size() > 1 && !std::exchange(m_hadSeveral, true) && isWanted)
            m_panels->show(SHOW_PICTURES, true);
    });
}

void ViewerFrame::bindCommands()
{
    bindCommand(*this, COPY, [this] { onCopy(); });
    bindCommand(*this, CLOSE, [this] { Close(); });
    bindCommand(*this, ZOOM_IN, [this] { m_view->zoomIn(); });
    bindCommand(*this, ZOOM_OUT, [this] { m_view->zoomOut(); });
    bindCommand(*this, FIT, [this] { m_view->fit(); });
    bindCommand(*this, ACTUAL_SIZE, [this] { m_view->showActualSize(); });
    bindCommand(*this, FOLLOW_FILES, [this] { setFollowing(!m_following->isActive()); });
    bindCommand(*this, KEYS, [this] { showKeysMessage(this); });
    bindCommand(*this, ABOUT, [this] { tellAbout(); });
    Bind(wxEVT_COLLAPSIBLEPANE_CHANGED, [this](wxCollapsiblePaneEvent&) { m_panels->makeRoom(); });
    Bind(wxEVT_CLOSE_WINDOW, &ViewerFrame::onClose, this);
    Bind(wxEVT_CHAR_HOOK, &ViewerFrame::onKey, this);
}

ViewerFrame::~ViewerFrame() = default;

bool ViewerFrame::wasPainted() const
{
    return m_view->wasPainted();
}

bool ViewerFrame::openPictures(const Array<Io::Path>& files)
{
    PictureOpening& opening = m_commands->opening();
    opening.open(files);
    opening.finish();
    const OpenPicture* const shown = m_workspace.current();
    return std::ranges::any_of(
        files, [&](const Io::Path& file) { return shown != nullptr && m_workspace.findFile(file) == shown; });
}

void ViewerFrame::beginToOpen(const Array<Io::Path>& files)
{
    const Array<Io::Path> pictures = withFoldersOpened(files);
    if (pictures.empty() && !files.empty())
        complain(L"There are no pictures in \"" + files.front().nativeStr() + L"\".");
    else
        m_commands->opening().open(pictures);
}

void ViewerFrame::beginWith(const Array<Io::Path>& files)
{
    if (!m_hasRememberedPlace)
        m_fitting->begin();
    beginToOpen(files);
}

Expected<unsigned short, String> ViewerFrame::listen(const Wx::Legacy::SocketAddress& address)
{
    return m_listening->start(address);
}

bool ViewerFrame::isReading() const
{
    return m_commands->opening().isRunning();
}

bool ViewerFrame::copyPicture()
{
    return m_commands->copy();
}

void ViewerFrame::captureScreen()
{
    m_commands->capture();
}

void ViewerFrame::savePicture(const Io::Path& file, ImageFormat format, const Wx::ImageSaveSettings& settings)
{
    m_commands->save(file, format, settings);
}

void ViewerFrame::setFollowing(bool active)
{
    m_following->setActive(active);
    m_states->check(FOLLOW_FILES, active);
}

void ViewerFrame::showLog(bool show)
{
    m_panels->show(SHOW_LOG, show);
}

bool ViewerFrame::isLogShown() const
{
    return m_panels->isShown(SHOW_LOG);
}

void ViewerFrame::tellAbout()
{
    showAboutMessage(this);
}

void ViewerFrame::describePicture()
{
    if (const SharedPicture& picture = m_view->picture()) {
        SetTitle(Wx::toWxString(picture->name() + L" (" + picture->sizeText() + L")"));
        m_look->describe(picture->name() + L"\n" + picture->sizeText() + L" pixels");
    } else {
        SetTitle(L"Viewer");
        m_look->describe(L"There is no picture yet.");
    }
    m_states->enableFor(m_workspace);
    m_layers->setPicture(m_workspace.currentPicture());
    if (m_view->picture())
        m_options->setChannels(m_view->picture()->channels());
    inform();
    Wx::setAccessibleName(*m_view, m_view->picture() ? m_view->picture()->name() : String(L"No picture"));
}

void ViewerFrame::inform()
{
    const Optional<PictureDifference>& difference = m_comparison->difference();
    m_information->setComparison(difference ? differenceText(*difference) : String());
    m_information->setPicture(m_view->picture(), m_view->selection());
}

void ViewerFrame::report(const String& message)
{
    m_log->add(message);
}

void ViewerFrame::complain(const String& message)
{
    report(message);
    showLog(true);
    if (onComplaint)
        onComplaint(message);
}

void ViewerFrame::onCopy()
{
    // While the log has the focus, Copy means the selected text of the log.
    if (m_log->hasTextToCopy())
        m_log->copyText();
    else
        m_commands->copy();
}

void ViewerFrame::onClose(wxCloseEvent& event)
{
    const wxWeakRef<ViewerFrame> self(this);
    const bool mayClose = !event.CanVeto() || m_commands->letGoOfAll();
    if (!mayClose) {
        event.Veto();
    } else if (self) {
        m_commands->stop();
        m_listening->stop();
        remember();
        Destroy();
    }
}

void ViewerFrame::remember()
{
    Preferences preferences = m_settings->preferences();
    m_look->storePreferences(preferences);
    preferences.informationPanel = m_panels->isShown(SHOW_INFORMATION);
    if (m_hadSeveral)
        preferences.picturesPanel = m_panels->isShown(SHOW_PICTURES);
    m_settings->setPreferences(preferences);
    // The place is that of the window without these panels, which make it wider when they appear.
    m_panels->hideBeside();
    m_settings->remember(*this);
}

// The window handles the keys itself instead of the menu, because the log receives all keys while it has the
// focus. The keys are left to a menu while it is open.
void ViewerFrame::onKey(wxKeyEvent& event)
{
    const bool isForOthers = m_openMenus.isAnyOpen() || isKeyOfText(event, FindFocus());
    int command = isForOthers ? static_cast<int>(wxID_NONE) : commandOf(event);
    if (command == CLOSE && event.GetKeyCode() == WXK_ESCAPE && hasPixelProbe())
        command = PIXEL_PROBE;
    if (command == wxID_NONE)
        event.Skip();
    else
        runCommand(*this, command);
}

} // namespace Nolvex::Viewer
