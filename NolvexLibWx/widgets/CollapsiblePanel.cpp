// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/CollapsiblePanel.h"

#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/paint/CrispLines.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/FontSetup.h"
#include "NolvexLibWx/ScopedWindowFreezer.h"
#include "NolvexLibWx/platform/Accessibility.h"
#include "NolvexLibWx/widgets/StaticLine.h"
#include "NolvexLibWx/widgets/StaticText.h"

#include <wx/brush.h>
#include <wx/collpane.h>
#include <wx/dcclient.h>
#include <wx/pen.h>
#include <wx/sizer.h>
#include <wx/weakref.h>

#include <utility>

namespace Nolvex {

namespace {

constexpr long PANEL_STYLE = wxTAB_TRAVERSAL | wxNO_BORDER;
constexpr int TICK_LENGTH = 9;

} // namespace

Wx::CollapsiblePanel::CollapsiblePanel(wxWindow* parent, const GuiSkin& skin, const String& label,
                                       wxWindow* content, wxWindow* extra, int contentBorder,
                                       wxSize labelSize)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, PANEL_STYLE),
      m_content(content),
      m_extra(extra),
      m_contentBorder(contentBorder)
{
    SetForegroundColour(toWxColour(skin.text));
    m_content->Reparent(this);
    if (m_extra)
        m_extra->Reparent(this);
    m_tick = new Tick(this, skin);
    m_label = new StaticText(this, wxID_ANY, label, 0, TextFlag::BOLD, labelSize);
    layOut();
    m_tick->Bind(wxEVT_LEFT_UP, &CollapsiblePanel::onHeaderClicked, this);
    m_label->Bind(wxEVT_LEFT_UP, &CollapsiblePanel::onHeaderClicked, this);
    Platform::describeControl(*this, Platform::AccessibleRole::GROUP);
    Platform::describeControl(*m_tick, Platform::AccessibleRole::DISCLOSURE);
    Platform::switchControl(*m_tick, tick()->isExpanded());
    // The content is shown now, so every panel starts collapsed.
    toggleCollapsed();
}

Wx::CollapsiblePanel::~CollapsiblePanel() = default;

void Wx::CollapsiblePanel::layOut()
{
    const int border = wxSizerFlags::GetDefaultBorder();
    auto* header = new wxBoxSizer(wxHORIZONTAL);
    header->Add(m_tick, 0, wxALIGN_CENTER_VERTICAL, 0);
    header->Add(m_label, 1, wxEXPAND | wxLEFT, border);
    if (m_extra)
        header->Add(m_extra, 0, wxLEFT, border);

    auto* main = new wxBoxSizer(wxVERTICAL);
    main->Add(header, 0, wxEXPAND | wxBOTTOM, border / 2);
    m_rule = new StaticLine(this, wxHORIZONTAL);
    // The line starts below the label, not below the tick.
    main->Add(m_rule, 0, wxEXPAND | wxLEFT, m_tick->GetSize().x + border);
    main->AddSpacer(border);
    main->Add(m_content, 0, wxEXPAND | wxALL, m_contentBorder);
    SetSizer(main, true);
}

void Wx::CollapsiblePanel::SetLabel(const wxString& label)
{
    if (m_label)
        m_label->SetLabel(label);
    Platform::renameControl(*this);
    if (m_tick)
        Platform::renameControl(*m_tick);
}

wxString Wx::CollapsiblePanel::GetLabel() const
{
    return m_label ? m_label->GetLabel() : wxString();
}

Wx::CollapsiblePanel::Tick* Wx::CollapsiblePanel::tick() const
{
    return static_cast<Tick*>(m_tick.get());
}

bool Wx::CollapsiblePanel::isCollapsed() const
{
    return !m_content || !m_content->IsShown();
}

void Wx::CollapsiblePanel::setCollapsed(bool collapsed)
{
    if (collapsed != isCollapsed())
        toggleCollapsed();
}

void Wx::CollapsiblePanel::setToggleCallback(Function<void(bool)> onToggle)
{
    m_toggleCallback = std::move(onToggle);
}

void Wx::CollapsiblePanel::toggleCollapsed()
{
    if (!m_content)
        return;
    const ScopedWindowFreezer freezer(GetParent());
    const wxWeakRef<CollapsiblePanel> self(this);
    const bool show = isCollapsed();
    showContent(show);
    // A handler that hears of the showing or hiding may have destroyed the panel, and so may the callback.
    if (self && m_toggleCallback)
        m_toggleCallback(!show);
    if (!self)
        return;
    wxCollapsiblePaneEvent event(this, wxID_ANY, !show);
    ProcessEvent(event);
}

void Wx::CollapsiblePanel::showContent(bool show)
{
    if (m_tick)
        tick()->setExpanded(show);
    const wxWeakRef<CollapsiblePanel> self(this);
    m_content->Show(show);
    if (self)
        SetSize(wxSize(GetSize().x, GetBestSize().y));
    if (self)
        Layout();
    if (self)
        GetParent()->Layout();
}

void Wx::CollapsiblePanel::onHeaderClicked(wxMouseEvent& /*event*/)
{
    toggleCollapsed();
}

Wx::CollapsiblePanel::Tick::Tick(wxWindow* parent, const GuiSkin& skin)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, PANEL_STYLE)
{
    Bind(wxEVT_PAINT, [this, skin](wxPaintEvent&) {
        wxPaintDC dc(this);
        draw(dc, GetClientSize(), m_expanded, skin);
    });
    const wxSize size = scaleByDpi(wxSize(TICK_LENGTH, TICK_LENGTH));
    SetMinClientSize(size);
    SetMaxClientSize(size);
    SetClientSize(size);
}

Wx::CollapsiblePanel::Tick::~Tick() = default;

wxString Wx::CollapsiblePanel::Tick::GetLabel() const
{
    return GetParent()->GetLabel();
}

void Wx::CollapsiblePanel::Tick::setExpanded(bool expanded)
{
    if (expanded == m_expanded)
        return;
    m_expanded = expanded;
    Platform::switchControl(*this, expanded);
    Refresh(true, nullptr);
}

void Wx::CollapsiblePanel::Tick::draw(wxDC& dc, wxSize size, bool expanded, const GuiSkin& skin)
{
    // All ticks look like the first that was painted, whatever the skins of their panels are.
    static const wxPen PEN(toWxColour(skin.darkBackground), 1, wxPENSTYLE_SOLID);
    static const wxBrush BRUSH(toWxColour(skin.accent), wxBRUSHSTYLE_SOLID);
    CrispLines lines(dc);
    lines.setPen(PEN);
    dc.SetBrush(BRUSH);
    const wxPoint origin(0, 0);
    if (expanded)
        lines.drawPolygon(std::array{origin, wxPoint(size.x, 0), wxPoint(size.x / 2, size.y), origin});
    else
        lines.drawPolygon(std::array{origin, wxPoint(size.x, size.y / 2), wxPoint(0, size.y), origin});
}

} // namespace Nolvex
