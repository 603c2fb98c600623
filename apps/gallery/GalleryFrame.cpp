// SPDX-License-Identifier: MIT
#include "apps/gallery/GalleryFrame.h"

#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/FontSetup.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/WindowIcon.h"
#include "NolvexLibWx/widgets/ApplySkinRecursive.h"
#include "NolvexLibWx/widgets/Button.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "NolvexLibWx/widgets/OskaBorder.h"
#include "NolvexLibWx/widgets/StaticLine.h"
#include "NolvexLibWx/widgets/TextCtrl.h"

#include <wx/listbox.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/weakref.h>

#include <array>

namespace Nolvex::Gallery {

namespace {

constexpr int MARGIN = 10;
constexpr int SIDEBAR_WIDTH = 150;
constexpr int LOG_HEIGHT = 90;
const wxSize FRAME_SIZE(760, 560);

struct NamedSkin
{
    const wchar_t* name;
    Wx::GuiSkin skin;
};

// The default skin must be read before the gallery changes it. The check mark is white in every skin, so that
// "Paper" is a brown paper, dark enough for white.
const std::array<NamedSkin, GalleryFrame::SKIN_COUNT>& skins()
{
    static const std::array<NamedSkin, GalleryFrame::SKIN_COUNT> ALL{
        NamedSkin{L"Dark", Wx::GuiSkin::DEFAULT()}, NamedSkin{L"Paper",
                                                              {.text = {26, 20, 12},
                                                               .disabledText = {108, 86, 62},
                                                               .background = {166, 138, 106},
                                                               .darkBackground = {132, 106, 78},
                                                               .accentText = {255, 255, 255},
                                                               .accent = {96, 48, 20},
                                                               .pressedBackground = {186, 160, 128},
                                                               .link = {110, 16, 16},
                                                               .highlight = {255, 224, 160}}}};
    return ALL;
}

} // namespace

GalleryFrame::GalleryFrame() : wxFrame(nullptr, wxID_ANY, L"Gallery"), m_pages(allPages())
{
    skins();
    Wx::setZephraIcon(this);
    // The controls of wxWidgets inherit the font, which makes their texts as large as those of the library.
    SetFont(Wx::setDefaultFontSize(GetFont(), 1.0f));
    auto* root = new wxPanel(this);
    m_stage = new wxPanel(root);
    m_stage->SetSizer(new wxBoxSizer(wxVERTICAL));
    // The border of the library frames the log, since the borders of the systems do not fit a dark skin.
    auto* logBorder = new OskaBorder(root, {});
    m_log = new Wx::TextCtrl(logBorder, wxID_ANY, wxString(), wxDefaultPosition,
                             Wx::scaleByDpi(wxSize(-1, LOG_HEIGHT)),
                             wxTE_MULTILINE | wxTE_READONLY | wxBORDER_NONE);
    Wx::setAccessibleName(*m_log, L"Log");
    logBorder->addChild(m_log);

    auto* right = new wxBoxSizer(wxVERTICAL);
    right->Add(m_stage, 1, wxEXPAND);
    right->Add(new Wx::StaticLine(root, wxHORIZONTAL), 0, wxEXPAND | wxTOP | wxBOTTOM, MARGIN);
    right->Add(logBorder, 0, wxEXPAND);
    auto* sizer = new wxBoxSizer(wxHORIZONTAL);
    sizer->Add(makeSidebar(root), 0, wxEXPAND | wxALL, MARGIN);
    sizer->Add(right, 1, wxEXPAND | wxTOP | wxBOTTOM | wxRIGHT, MARGIN);
    root->SetSizer(sizer);
    SetClientSize(Wx::scaleByDpi(FRAME_SIZE));
    Centre();
    chooseSkin(0);
}

wxWindow* GalleryFrame::makeSidebar(wxWindow* parent)
{
    auto* sidebar = new wxPanel(parent);
    m_titles = new wxListBox(sidebar, wxID_ANY, wxDefaultPosition, Wx::scaleByDpi(wxSize(SIDEBAR_WIDTH, -1)),
                             0, nullptr, wxLB_SINGLE | wxBORDER_NONE);
    for (const Page& page : m_pages)
        m_titles->Append(Wx::toWxString(page.title));
    m_skins = new wxPanel(sidebar);
    m_skins->SetSizer(new wxBoxSizer(wxHORIZONTAL));
    m_titles->Bind(wxEVT_LISTBOX, [this](wxCommandEvent& event) {
        showPage(static_cast<std::size_t>(event.GetSelection()));
    });

    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(m_titles, 1, wxEXPAND | wxBOTTOM, MARGIN);
    sizer->Add(m_skins, 0, wxEXPAND);
    sidebar->SetSizer(sizer);
    return sidebar;
}

void GalleryFrame::makeSkinButtons(int chosen)
{
    using enum Wx::Button::Behavior;
    m_skins->DestroyChildren();
    for (int i = 0; i < SKIN_COUNT; ++i) {
        // The choice is put off until the button's own click is over, because it replaces the button.
        auto* button = new Wx::Button(
            m_skins, Wx::GuiSkin::DEFAULT(), wxID_ANY, skinName(i), wxBitmap(), wxBitmap(),
            [this, i] { CallAfter([this, i] { chooseSkin(i); }); }, TOGGLE, true, OskaBorderState::ENABLED);
        button->setToggled(i == chosen);
        m_skins->GetSizer()->Add(button, 1, wxEXPAND);
    }
    m_skins->GetParent()->Layout();
}

const wchar_t* GalleryFrame::skinName(int index)
{
    return skins()[static_cast<std::size_t>(index)].name;
}

const Wx::GuiSkin& GalleryFrame::skin(int index)
{
    return skins()[static_cast<std::size_t>(index)].skin;
}

void GalleryFrame::showPage(std::size_t index)
{
    m_shown = index;
    m_titles->SetSelection(static_cast<int>(index));
    if (m_page != nullptr)
        m_page->Destroy();
    m_page = new wxPanel(m_stage);
    // A page may log the outcome of a dialog after the gallery was closed under the dialog.
    m_pages[index].build(m_page, [self = wxWeakRef<GalleryFrame>(this)](const String& text) {
        if (self)
            self->log(text);
    });
    m_stage->GetSizer()->Clear();
    m_stage->GetSizer()->Add(m_page, 1, wxEXPAND);
    Wx::applySkinRecursive(m_page, Wx::GuiSkin::DEFAULT());
    m_stage->Layout();
    Refresh();
}

void GalleryFrame::chooseSkin(int index)
{
    Wx::GuiSkin::DEFAULT() = skin(index);
    Wx::applySkinRecursive(this, Wx::GuiSkin::DEFAULT());
    makeSkinButtons(index);
    showPage(m_shown);
    // On Windows, text keeps the colours that were set when it was written, so that it is written again.
    const wxString written = m_log->GetValue();
    m_log->Clear();
    m_log->AppendText(written);
    log(L"The default skin is " + String(skinName(index)) + L".");
}

void GalleryFrame::log(const String& text)
{
    m_log->AppendText(Wx::toWxString(text + L"\n"));
}

} // namespace Nolvex::Gallery
