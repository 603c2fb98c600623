// SPDX-License-Identifier: MIT
#include "apps/viewer/LoadingBar.h"

#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/widgets/Button.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "apps/viewer/PictureOpening.h"

#include <wx/gauge.h>
#include <wx/sizer.h>

#include <cmath>

namespace Nolvex::Viewer {

namespace {

constexpr int GAP = 6;
constexpr int BUTTON_WIDTH = 76;
constexpr int GAUGE_HEIGHT = 12;
constexpr int GAUGE_RANGE = 1000;
constexpr int PERIOD_MS = 50;
constexpr int LOOKS_BEFORE_SHOWN = 4;

} // namespace

LoadingBar::LoadingBar(wxWindow* parent, PictureOpening& opening, const Function<void()>& relayout)
    : wxPanel(parent),
      m_opening(opening),
      m_relayout(relayout),
      m_name(new Wx::StaticText(this, wxID_ANY, String())),
      m_share(new wxGauge(this, wxID_ANY, GAUGE_RANGE, wxDefaultPosition,
                          wxSize(-1, Wx::scaleByDpi(GAUGE_HEIGHT)), wxGA_HORIZONTAL | wxGA_SMOOTH))
{
    Wx::setAccessibleName(*m_share, L"Reading");
    auto* button = new Wx::Button(
        this, Wx::GuiSkin::DEFAULT(), wxID_ANY, L"Cancel", wxBitmap(), wxBitmap(),
        [this] {
            m_opening.cancel();
            update();
        },
        Wx::Button::Behavior::PUSH, true, OskaBorderState::ENABLED);
    button->SetMinSize(wxSize(Wx::scaleByDpi(BUTTON_WIDTH), button->GetMinSize().y));
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(m_name, 0, wxALIGN_CENTRE_VERTICAL | wxRIGHT, Wx::scaleByDpi(GAP));
    row->Add(m_share, 1, wxALIGN_CENTRE_VERTICAL | wxRIGHT, Wx::scaleByDpi(GAP));
    row->Add(button, 0, wxALIGN_CENTRE_VERTICAL);
    SetSizer(row);
    Hide();
    m_timer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { update(); });
    m_timer.Start(PERIOD_MS);
}

LoadingBar::~LoadingBar() = default;

void LoadingBar::update()
{
    m_looks = m_opening.isRunning() ? m_looks + 1 : 0;
    const bool show = m_looks >= LOOKS_BEFORE_SHOWN;
    if (show) {
        const wxString name = Wx::toWxString(L"Reading " + m_opening.name());
        if (m_name->GetLabel() != name)
            m_name->SetLabel(name);
        m_share->SetValue(static_cast<int>(std::lround(m_opening.progress() * GAUGE_RANGE)));
    }
    if (show != IsShown()) {
        Show(show);
        m_relayout();
    }
}

} // namespace Nolvex::Viewer
