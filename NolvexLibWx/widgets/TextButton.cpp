// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/TextButton.h"

#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/StringConversions.h"

#include <wx/cursor.h>
#include <wx/utils.h>

namespace Nolvex {

namespace Wx {

// clang-format off
wxBEGIN_EVENT_TABLE(TextButton, StaticText)
    EVT_LEFT_UP(TextButton::onClicked)
    EVT_ENTER_WINDOW(TextButton::onEntered)
    EVT_LEAVE_WINDOW(TextButton::onLeft)
wxEND_EVENT_TABLE()
// clang-format on

} // namespace Wx

namespace {

Function<void()> browserOpener(const String& url)
{
    return [url] { wxLaunchDefaultBrowser(Wx::toWxString(url), 0); };
}

class LinkAccount : public Wx::AccessibleControl
{
public:
    explicit LinkAccount(Wx::TextButton& link) : m_link(link) {}

    Wx::AccessibleRole role() const override { return Wx::AccessibleRole::LINK; }

    String name() const override { return Wx::toString(m_link.GetLabel()); }

    Array<String> actions() const override { return {L"click"}; }

    void doAction(int /*index*/) override
    {
        wxMouseEvent release(wxEVT_LEFT_UP);
        release.SetId(m_link.GetId());
        release.SetEventObject(&m_link);
        m_link.HandleWindowEvent(release);
    }

private:
    Wx::TextButton& m_link;
};

} // namespace

Wx::TextButton::TextButton(wxWindow* parent, int id, const String& label, const Function<void()>& onClick,
                           const wxPoint& pos, const wxSize& size)
    : StaticText(parent, id, label, 0, {}, size),
      m_clickCallback(onClick),
      m_normalColour(GetForegroundColour()),
      m_hoverColour(m_normalColour),
      m_visitedColour(m_normalColour)
{
    SetPosition(pos);
    describeAs<LinkAccount>(*this);
}

Wx::TextButton::TextButton(wxWindow* parent, int id, const String& label, const String& url)
    : TextButton(parent, id, label, browserOpener(url))
{}

Wx::TextButton::~TextButton() = default;

void Wx::TextButton::setClickCallback(const Function<void()>& onClick)
{
    m_clickCallback = onClick;
}

void Wx::TextButton::setHyperlink(const String& url)
{
    m_clickCallback = browserOpener(url);
}

void Wx::TextButton::setNormalColour(const wxColour& colour)
{
    m_normalColour = colour;
    if (!m_visited && !m_hovered)
        show(colour);
}

void Wx::TextButton::setHoverColour(const wxColour& colour)
{
    m_hoverColour = colour;
    if (m_hovered)
        show(colour);
}

void Wx::TextButton::setVisitedColour(const wxColour& colour)
{
    m_visitedColour = colour;
    if (m_visited && !m_hovered)
        show(colour);
}

void Wx::TextButton::setVisited(bool visited)
{
    m_visited = visited;
    if (!m_hovered)
        show(restingColour());
}

wxColour Wx::TextButton::restingColour() const
{
    return m_visited ? m_visitedColour : m_normalColour;
}

void Wx::TextButton::show(const wxColour& colour)
{
    SetForegroundColour(colour);
    Refresh(true, nullptr);
}

void Wx::TextButton::onEntered(wxMouseEvent& /*event*/)
{
    m_hovered = true;
    SetForegroundColour(m_hoverColour);
    SetCursor(wxCursor(wxCURSOR_HAND));
    Refresh(true, nullptr);
}

void Wx::TextButton::onLeft(wxMouseEvent& /*event*/)
{
    m_hovered = false;
    show(restingColour());
}

void Wx::TextButton::onClicked(wxMouseEvent& /*event*/)
{
    if (m_clickCallback)
        m_clickCallback();
}

} // namespace Nolvex
