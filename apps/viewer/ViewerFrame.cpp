// SPDX-License-Identifier: MIT
#include "apps/viewer/ViewerFrame.h"

#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/WindowIcon.h"
#include "NolvexLibWx/widgets/ApplySkinRecursive.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "NolvexLibWx/widgets/OskaBorder.h"
#include "apps/viewer/ImageView.h"

#include <wx/display.h>
#include <wx/panel.h>
#include <wx/sizer.h>

namespace Nolvex::Viewer {

namespace {

constexpr int MARGIN = 8;
constexpr int BORDER = 2;
const wxSize SMALLEST(360, 240);

// Room for the whole picture, as far as the screen has it.
wxSize clientSizeFor(const wxSize& picture)
{
    const int around = 2 * (Wx::scaleByDpi(MARGIN) + BORDER);
    wxSize size = picture + wxSize(around, around);
    size.IncTo(Wx::scaleByDpi(SMALLEST));
    size.DecTo(wxDisplay(0u).GetClientArea().GetSize() * 4 / 5);
    return size;
}

} // namespace

ViewerFrame::ViewerFrame(const String& name, const wxBitmap& picture)
    : wxFrame(nullptr, wxID_ANY,
              wxString::Format(L"%s (%d \u00D7 %d)", Wx::toWxString(name), picture.GetWidth(),
                               picture.GetHeight()))
{
    Wx::setZephraIcon(this);
    auto* panel = new wxPanel(this);
    auto* border = new OskaBorder(panel);
    m_view = new ImageView(border, picture);
    border->addChild(m_view);

    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(border, 1, wxEXPAND | wxALL, Wx::scaleByDpi(MARGIN));
    panel->SetSizer(sizer);

    const wxColour surround = m_view->GetBackgroundColour();
    Wx::applySkinRecursive(this, Wx::GuiSkin::DEFAULT());
    m_view->SetBackgroundColour(surround);

    SetClientSize(clientSizeFor(picture.GetSize()));
    Centre();
    m_view->SetFocus();
    Bind(wxEVT_CHAR_HOOK, &ViewerFrame::onKey, this);
}

bool ViewerFrame::wasPainted() const
{
    return m_view->wasPainted();
}

void ViewerFrame::onKey(wxKeyEvent& event)
{
    const int key = event.GetKeyCode();
    if (key == WXK_ESCAPE || (event.ControlDown() && (key == 'W' || key == 'Q')))
        Close();
    else
        event.Skip();
}

} // namespace Nolvex::Viewer
