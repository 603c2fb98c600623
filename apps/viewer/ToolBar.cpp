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
    for (const CommandInfo& info : commandTable()) {
        if (info.button != nullptr)
            addButton(info);
    }
    m_row->AddStretchSpacer();
    m_row->Add(new Wx::TextButton(this, Command::ABOUT, L"About", [this] { m_run(Command::ABOUT); }), 0,
               wxALIGN_CENTRE_VERTICAL);
    SetSizer(m_row);
}

// The buttons do not toggle by themselves: they show states that other controls change, too.
void ToolBar::addButton(const CommandInfo& info)
{
    const Command command = info.command;
    auto* button = new Wx::Button(
        this, Wx::GuiSkin::DEFAULT(), command, info.button, wxBitmap(), wxBitmap(),
        [this, command] { m_run(command); }, Wx::Button::Behavior::PUSH, true, OskaBorderState::ENABLED);
    button->SetMinSize(wxSize(Wx::scaleByDpi(BUTTON_WIDTH), button->GetMinSize().y));
    m_row->Add(button, 0, wxRIGHT, Wx::scaleByDpi(GAP));
}

Wx::Button* ToolBar::buttonOf(Command command) const
{
    return dynamic_cast<Wx::Button*>(FindWindow(command));
}

void ToolBar::check(Command command, bool checked)
{
    if (Wx::Button* const button = buttonOf(command))
        button->setToggled(checked);
}

void ToolBar::enable(Command command, bool enabled)
{
    if (Wx::Button* const button = buttonOf(command))
        button->Enable(enabled);
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
