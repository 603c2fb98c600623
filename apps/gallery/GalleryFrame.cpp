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
#include "apps/gallery/PageList.h"
#include "apps/gallery/SkinEditor.h"
#include "apps/gallery/Skins.h"
#include "apps/program/SystemParts.h"

#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/weakref.h>

#include <utility>

namespace Nolvex::Gallery {

namespace {

// Design units.
constexpr int MARGIN = 10;
constexpr int LOG_HEIGHT = 90;
const wxSize FRAME_SIZE(960, 620);

} // namespace

GalleryFrame::GalleryFrame(Array<Page> pages)
    : wxFrame(nullptr, wxID_ANY, L"Gallery"), m_pages(std::move(pages))
{
    builtInSkins();
    Wx::setZephraIcon(this);
    // The controls of wxWidgets inherit the font, which makes their texts as large as those of the library.
    SetFont(Wx::setDefaultFontSize(GetFont(), 1.0f));
    auto* root = new wxPanel(this);
    m_titles = new PageList(root, m_pages, [this](std::size_t page) { showPage(page); });
    auto* sizer = new wxBoxSizer(wxHORIZONTAL);
    sizer->Add(m_titles, 0, wxEXPAND | wxALL, Wx::scaleByDpi(MARGIN));
    sizer->Add(makeMiddle(root), 1, wxEXPAND | wxTOP | wxBOTTOM, Wx::scaleByDpi(MARGIN));
    m_editor = new SkinEditor(
        root, {[this](const Wx::GuiSkin& skin) { previewSkin(skin); },
               [this](const Wx::GuiSkin& skin, const String& name) { applySkin(skin, name); }});
    sizer->Add(m_editor, 0, wxEXPAND | wxALL, Wx::scaleByDpi(MARGIN));
    root->SetSizer(sizer);
    SetClientSize(Wx::scaleByDpi(FRAME_SIZE));
    Centre();
    Bind(wxEVT_CHAR_HOOK, &GalleryFrame::onCharHook, this);
    chooseSkin(0);
}

GalleryFrame::~GalleryFrame() = default;

wxSizer* GalleryFrame::makeMiddle(wxWindow* root)
{
    m_stage = new wxPanel(root);
    m_stage->SetSizer(new wxBoxSizer(wxVERTICAL));
    // The border of the library frames the log, since the borders of the systems do not fit a dark skin.
    auto* logBorder = new OskaBorder(root, {});
    m_log = new Wx::TextCtrl(logBorder, wxID_ANY, wxString(), wxDefaultPosition,
                             Wx::scaleByDpi(wxSize(-1, LOG_HEIGHT)),
                             wxTE_MULTILINE | wxTE_READONLY | wxBORDER_NONE);
    Wx::setAccessibleName(*m_log, L"Log");
    logBorder->addChild(m_log);

    auto* middle = new wxBoxSizer(wxVERTICAL);
    middle->Add(m_stage, 1, wxEXPAND);
    middle->Add(new Wx::StaticLine(root, wxHORIZONTAL), 0, wxEXPAND | wxTOP | wxBOTTOM,
                Wx::scaleByDpi(MARGIN));
    middle->Add(logBorder, 0, wxEXPAND);
    return middle;
}

const wchar_t* GalleryFrame::skinName(int index)
{
    return builtInSkins()[static_cast<std::size_t>(index)].name;
}

const Wx::GuiSkin& GalleryFrame::skin(int index)
{
    return builtInSkins()[static_cast<std::size_t>(index)].skin;
}

void GalleryFrame::showPage(std::size_t index)
{
    m_shown = index;
    m_titles->select(index);
    const bool hadFocus = m_page != nullptr && m_page->IsDescendant(FindFocus());
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
    // Without a focus, the frame would get no keys.
    if (hadFocus && !m_page->IsDescendant(FindFocus()))
        m_page->SetFocus();
    Refresh();
}

void GalleryFrame::chooseSkin(int index)
{
    applySkin(skin(index), skinName(index));
}

void GalleryFrame::applySkin(const Wx::GuiSkin& skin, const String& name)
{
    const Wx::GuiSkin chosen = skin; // may be the default skin itself
    previewSkin(chosen);
    m_titles->rebuild();
    m_editor->setSkin(chosen);
    m_editor->rebuild();
    showPage(m_shown);
    // On Windows, text keeps the colours that were set when it was written, so that it is written again.
    const wxString written = m_log->GetValue();
    m_log->Clear();
    m_log->AppendText(written);
    log(L"The default skin is " + name + L".");
}

void GalleryFrame::previewSkin(const Wx::GuiSkin& skin)
{
    Wx::GuiSkin::DEFAULT() = skin;
    Program::matchSystemParts(skin);
    Wx::applySkinRecursive(this, Wx::GuiSkin::DEFAULT());
    // applySkinRecursive() gives every button the plain colours.
    m_titles->button(m_shown)->setToggled(true);
    Refresh();
}

void GalleryFrame::focusLog()
{
    m_log->SetFocus();
}

void GalleryFrame::onCharHook(wxKeyEvent& event)
{
    const int key = event.GetKeyCode();
    const bool turnsPage = key == WXK_PAGEUP || key == WXK_PAGEDOWN;
    if (!turnsPage || event.GetModifiers() != wxMOD_CONTROL)
        return event.Skip();
    const std::size_t step = key == WXK_PAGEDOWN ? 1 : m_pages.size() - 1;
    // The page that is replaced may have the focus.
    CallAfter([this, step] { showPage((m_shown + step) % m_pages.size()); });
}

void GalleryFrame::log(const String& text)
{
    m_log->AppendText(Wx::toWxString(text + L"\n"));
}

} // namespace Nolvex::Gallery
