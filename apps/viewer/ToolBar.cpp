// SPDX-License-Identifier: MIT
#include "apps/viewer/ToolBar.h"

#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/widgets/Button.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "NolvexLibWx/widgets/TextButton.h"

#include <wx/sizer.h>

namespace Nolvex::Viewer {

namespace {

constexpr int GAP = 6;
constexpr int BUTTON_WIDTH = 76;

} // namespace

ToolBar::ToolBar(wxWindow* parent, const Function<void(Command)>& run)
    : wxPanel(parent), m_run(run), m_row(new wxBoxSizer(wxHORIZONTAL))
{
    addButton(L"Open...", Command::OPEN);
    addButton(L"Save as...", Command::SAVE_AS);
    addButton(L"Copy", Command::COPY);
    addButton(L"Capture", Command::CAPTURE_SCREEN);
    m_log = addButton(L"Log", Command::SHOW_LOG);
    m_row->AddStretchSpacer();
    m_row->Add(new Wx::TextButton(this, Command::ABOUT, L"About", [this] { m_run(Command::ABOUT); }), 0,
               wxALIGN_CENTRE_VERTICAL);
    SetSizer(m_row);
}

// The log's button does not toggle by itself: it shows whether the log is visible, and other commands show
// and hide the log, too.
Wx::Button* ToolBar::addButton(const wxString& label, Command command)
{
    auto* button = new Wx::Button(
        this, Wx::GuiSkin::DEFAULT(), command, label, wxBitmap(), wxBitmap(),
        [this, command] { m_run(command); }, Wx::Button::Behavior::PUSH, true, OskaBorderState::ENABLED);
    button->SetMinSize(wxSize(Wx::scaleByDpi(BUTTON_WIDTH), button->GetMinSize().y));
    m_row->Add(button, 0, wxRIGHT, Wx::scaleByDpi(GAP));
    return button;
}

void ToolBar::setLogShown(bool shown)
{
    m_log->setToggled(shown);
}

void ToolBar::setTooltips(bool wanted)
{
    for (wxWindow* child : GetChildren()) {
        const wchar_t* text = wanted ? tooltipOf(static_cast<Command>(child->GetId())) : L"";
        if (auto* window = dynamic_cast<Wx::TooltipWindow*>(child))
            window->setTooltip(text);
    }
}

} // namespace Nolvex::Viewer
