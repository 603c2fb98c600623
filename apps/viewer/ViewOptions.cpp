// SPDX-License-Identifier: MIT
#include "apps/viewer/ViewOptions.h"

#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/widgets/CheckBox.h"

#include <wx/sizer.h>

namespace Nolvex::Viewer {

namespace {

constexpr int GAP = 16;

Wx::CheckBox* addCheckBox(wxWindow* parent, wxSizer* row, const String& label, Command command,
                          const Function<void(Command)>& run)
{
    auto* box = new Wx::CheckBox(parent, command, label);
    box->setChangeCallback([run, command](bool) { run(command); });
    row->Add(box, 0, wxRIGHT, Wx::scaleByDpi(GAP));
    return box;
}

} // namespace

ViewOptions::ViewOptions(wxWindow* parent, const Function<void(Command)>& run) : wxPanel(parent)
{
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    m_log = addCheckBox(this, row, L"Log", Command::SHOW_LOG, run);
    m_tooltips = addCheckBox(this, row, L"Tooltips", Command::SHOW_TOOLTIPS, run);
    m_lightSurround = addCheckBox(this, row, L"Light surround", Command::LIGHT_SURROUND, run);
    SetSizerAndFit(row);
}

void ViewOptions::setLogShown(bool shown)
{
    m_log->setValue(shown, false);
}

void ViewOptions::setTooltips(bool wanted)
{
    m_tooltips->setValue(wanted, false);
}

void ViewOptions::setLightSurround(bool light)
{
    m_lightSurround->setValue(light, false);
}

} // namespace Nolvex::Viewer
