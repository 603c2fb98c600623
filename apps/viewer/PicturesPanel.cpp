// SPDX-License-Identifier: MIT
#include "apps/viewer/PicturesPanel.h"

#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "NolvexLibWx/widgets/OskaBorder.h"
#include "NolvexLibWx/widgets/TextControl.h"

#include <wx/listbox.h>
#include <wx/sizer.h>

#include <algorithm>

namespace Nolvex::Viewer {

namespace {

constexpr int GAP = 6;
const wxSize FILTER_SIZE(160, 18);
const wxSize LIST_SIZE(160, 80);

} // namespace

PicturesPanel::PicturesPanel(wxWindow* parent, Workspace& workspace, const Function<void(PictureId)>& show,
                             const Function<void(PictureId)>& close)
    : wxPanel(parent), m_workspace(workspace), m_show(show), m_close(close)
{
    // The borders of the systems do not fit a dark skin.
    auto* filterBorder = new OskaBorder(this, {});
    m_filter = new Wx::TextControl(filterBorder, wxID_ANY, String(), wxBORDER_NONE, {}, FILTER_SIZE);
    filterBorder->addChild(m_filter);
    auto* listBorder = new OskaBorder(this, {});
    m_list = new wxListBox(listBorder, wxID_ANY, wxDefaultPosition, Wx::scaleByDpi(LIST_SIZE), 0, nullptr,
                           wxLB_SINGLE | wxLB_NEEDED_SB | wxBORDER_NONE);
    listBorder->addChild(m_list);
    m_filter->SetHint(L"Filter");
    Wx::setAccessibleName(*m_filter, L"Filter");
    Wx::setAccessibleName(*m_list, L"Open pictures");
    const Wx::GuiSkin& skin = Wx::GuiSkin::DEFAULT();
    m_list->SetBackgroundColour(Wx::toWxColour(skin.darkBackground));
    m_list->SetForegroundColour(Wx::toWxColour(skin.text));
    auto* column = new wxBoxSizer(wxVERTICAL);
    column->Add(filterBorder, 0, wxEXPAND | wxBOTTOM, Wx::scaleByDpi(GAP));
    column->Add(listBorder, 1, wxEXPAND);
    SetSizer(column);
    m_filter->Bind(wxEVT_TEXT, &PicturesPanel::onFilter, this);
    m_list->Bind(wxEVT_LISTBOX, &PicturesPanel::onSelected, this);
    m_list->Bind(wxEVT_KEY_DOWN, &PicturesPanel::onKey, this);
    m_workspace.observe([this](Flags<Workspace::Change> changes) { follow(changes); });
    fill();
}

void PicturesPanel::follow(Flags<Workspace::Change> changes)
{
    using Change = Workspace::Change;
    if (changes.has(Change::LIST) || changes.has(Change::REFERENCE))
        fill();
    else
        selectCurrent();
}

void PicturesPanel::fill()
{
    wxArrayString labels;
    Array<PictureId> listed;
    for (const OpenPicture& picture : m_workspace.pictures()) {
        if (!m_workspace.isListed(picture))
            continue;
        listed.push_back(picture.id);
        labels.push_back(Wx::toWxString(labelOf(picture)));
    }
    if (!removeRow(listed, labels)) {
        m_list->Set(labels);
        m_labels = labels;
    }
    m_listed = listed;
    selectCurrent();
}

// Of a thousand files that are no pictures, one after the other leaves the list, and each new list of all
// rows would take GTK some time.
bool PicturesPanel::removeRow(const Array<PictureId>& listed, const wxArrayString& labels)
{
    if (listed.size() + 1 != m_listed.size())
        return false;
    const auto row = static_cast<std::size_t>(std::ranges::mismatch(m_listed, listed).in1 - m_listed.begin());
    wxArrayString remaining = m_labels;
    remaining.RemoveAt(row);
    if (remaining != labels)
        return false;
    m_list->Delete(static_cast<unsigned>(row));
    m_labels = labels;
    return true;
}

void PicturesPanel::selectCurrent()
{
    const OpenPicture* const shown = m_workspace.current();
    const auto row = shown == nullptr ? m_listed.end() : std::ranges::find(m_listed, shown->id);
    m_list->SetSelection(row == m_listed.end() ? wxNOT_FOUND : static_cast<int>(row - m_listed.begin()));
}

String PicturesPanel::labelOf(const OpenPicture& picture) const
{
    const bool isReference = m_workspace.reference() == &picture;
    return picture.name + (isReference ? L" (reference)" : L"");
}

void PicturesPanel::onFilter(wxCommandEvent& /*event*/)
{
    m_workspace.setFilter(Wx::toString(m_filter->GetValue()));
}

void PicturesPanel::onSelected(wxCommandEvent& event)
{
    const int row = event.GetSelection();
    if (row >= 0 && row < static_cast<int>(m_listed.size()))
        m_show(m_listed[static_cast<std::size_t>(row)]);
}

void PicturesPanel::onKey(wxKeyEvent& event)
{
    const int row = m_list->GetSelection();
    if (event.GetKeyCode() != WXK_DELETE || row == wxNOT_FOUND)
        event.Skip();
    else
        m_close(m_listed[static_cast<std::size_t>(row)]);
}

} // namespace Nolvex::Viewer
