// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/CollapsiblePanel.h"

#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/FontSetup.h"
#include "NolvexLibWx/ScopedWindowFreezer.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/detail/LabelledAccount.h"
#include "NolvexLibWx/paint/CrispLines.h"
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

// The triangle represents its panel to assistive technology: it has the label, and it folds and unfolds.
class TickAccount : public Wx::AccessibleControl
{
public:
    explicit TickAccount(Wx::CollapsiblePanel::Tick& tick) : m_tick(tick) {}

    Wx::AccessibleRole role() const override { return Wx::AccessibleRole::DISCLOSURE; }

    String name() const override { return Wx::toString(m_tick.GetLabel()); }

    Flags<Wx::AccessibleState> states() const override
    {
        Flags<Wx::AccessibleState> states = Wx::AccessibleState::EXPANDABLE;
        states.set(Wx::AccessibleState::EXPANDED, m_tick.isExpanded());
        return states;
    }

    Array<String> actions() const override { return {L"click"}; }

    void doAction(int /*index*/) override
    {
        if (auto* const panel = dynamic_cast<Wx::CollapsiblePanel*>(m_tick.GetParent()))
            panel->toggleCollapsed();
    }

private:
    Wx::CollapsiblePanel::Tick& m_tick;
};

// Paints every second pixel of the outline, so that the mark looks dotted.
void drawFocusMark(wxDC& dc, wxSize size, const wxColour& colour)
{
    CrispLines lines(dc);
    lines.setPen(wxPen(colour));
    for (int y = 0; y < size.y; ++y) {
        const bool isEdge = y == 0 || y == size.y - 1;
        for (int x = y % 2; x < size.x; x += 2) {
            if (isEdge || x == 0 || x == size.x - 1)
                lines.drawLine({x, y}, {x + 1, y});
        }
    }
}

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
    m_tick->Bind(wxEVT_CHAR_HOOK, &CollapsiblePanel::onTickKey, this);
    describeAs<LabelledAccount, AccessibleRole::GROUP>(*this);
    describeAs<TickAccount>(*tick());
    // The content is still shown, and every panel must start collapsed.
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
    updateAccessible(*this);
    if (m_tick)
        updateAccessible(*m_tick);
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
    // The callback may have destroyed the panel, and so may a handler of the event that shows or hides the
    // content.
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

void Wx::CollapsiblePanel::onTickKey(wxKeyEvent& event)
{
    const int key = event.GetKeyCode();
    const bool isToggle = key == WXK_SPACE || key == WXK_RETURN || key == WXK_NUMPAD_ENTER;
    if (isToggle && !event.HasAnyModifiers())
        toggleCollapsed();
    else
        event.Skip();
}

Wx::CollapsiblePanel::Tick::Tick(wxWindow* parent, const GuiSkin& skin)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, PANEL_STYLE)
{
    Bind(wxEVT_PAINT, [this, skin](wxPaintEvent&) {
        wxPaintDC dc(this);
        draw(dc, GetClientSize(), m_expanded, skin);
        if (HasFocus())
            drawFocusMark(dc, GetClientSize(), toWxColour(skin.text));
    });
    Bind(wxEVT_SET_FOCUS, &Tick::onFocusChanged, this);
    Bind(wxEVT_KILL_FOCUS, &Tick::onFocusChanged, this);
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

void Wx::CollapsiblePanel::Tick::onFocusChanged(wxFocusEvent& event)
{
    event.Skip();
    Refresh();
}

void Wx::CollapsiblePanel::Tick::setExpanded(bool expanded)
{
    if (expanded == m_expanded)
        return;
    m_expanded = expanded;
    updateAccessible(*this);
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
