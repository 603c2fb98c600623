// SPDX-License-Identifier: MIT
#include "apps/viewer/LogPanel.h"

#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/widgets/TextCtrl.h"
#include "NolvexLibWx/widgets/Tooltip.h"

namespace Nolvex::Viewer {

namespace {

constexpr int HEIGHT = 90;

} // namespace

LogPanel::LogPanel(wxWindow* parent)
    : OskaBorder(parent, {}),
      m_text(new Wx::TextCtrl(this, wxID_ANY, {}, wxDefaultPosition, Wx::scaleByDpi(wxSize(-1, HEIGHT)),
                              wxTE_MULTILINE | wxTE_READONLY | wxBORDER_NONE)),
      m_tooltip(new Wx::Tooltip(m_text, String()))
{
    addChild(m_text);
    Wx::setAccessibleName(*m_text, L"Log");
}

void LogPanel::add(const String& message)
{
    m_text->AppendText(Wx::toWxString(message + L"\n"));
}

bool LogPanel::hasTextToCopy() const
{
    return m_text->HasFocus() && m_text->CanCopy();
}

void LogPanel::copyText()
{
    m_text->Copy();
}

void LogPanel::setTooltips(bool wanted)
{
    m_tooltip->setText(wanted ? L"What the viewer has done, the latest at the end" : String());
}

} // namespace Nolvex::Viewer
