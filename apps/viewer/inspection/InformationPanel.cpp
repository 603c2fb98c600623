// SPDX-License-Identifier: MIT
#include "apps/viewer/inspection/InformationPanel.h"

#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/widgets/OskaBorder.h"
#include "NolvexLibWx/widgets/TextCtrl.h"
#include "apps/viewer/inspection/HistogramView.h"
#include "apps/viewer/inspection/InformationText.h"

#include <wx/sizer.h>

#include <utility>

namespace Nolvex::Viewer {

namespace {

constexpr int GAP = 6;
constexpr int TEXT_HEIGHT = 80;

// A picture that arrives piece by piece has many states. The numbers of each are told until those of the next
// one are there.
bool isNextStateOf(const SharedPicture& before, const SharedPicture& picture)
{
    return before && picture && before->name() == picture->name() && before->size() == picture->size() &&
           before->channels() == picture->channels();
}

} // namespace

InformationPanel::InformationPanel(wxWindow* parent) : wxPanel(parent), m_histogram(new HistogramView(this))
{
    auto* border = new OskaBorder(this, {});
    m_text =
        new Wx::TextCtrl(border, wxID_ANY, {}, wxDefaultPosition, Wx::scaleByDpi(wxSize(-1, TEXT_HEIGHT)),
                         wxTE_MULTILINE | wxTE_READONLY | wxBORDER_NONE);
    border->addChild(m_text);
    Wx::setAccessibleName(*m_text, L"Information");
    auto* column = new wxBoxSizer(wxVERTICAL);
    column->Add(m_histogram, 0, wxEXPAND | wxBOTTOM, Wx::scaleByDpi(GAP));
    column->Add(border, 1, wxEXPAND);
    SetSizer(column);
}

InformationPanel::~InformationPanel() = default;

void InformationPanel::setPicture(const SharedPicture& picture, const Optional<wxRect>& selection)
{
    if (picture == m_picture && selection == m_selection)
        return;
    if (!isNextStateOf(m_picture, picture) || selection != m_selection) {
        m_task.cancel();
        m_statistics.reset();
    }
    m_picture = picture;
    m_selection = selection;
    m_outdated = true;
    update();
}

void InformationPanel::setComparison(const String& text)
{
    m_comparison = text;
    showText();
}

bool InformationPanel::Show(bool show)
{
    const bool changed = wxPanel::Show(show);
    update();
    return changed;
}

void InformationPanel::finish()
{
    while (m_task.isRunning())
        m_task.finish();
}

void InformationPanel::update()
{
    if (!IsShown() || m_task.isRunning() || !std::exchange(m_outdated, false))
        return;
    if (!m_statistics)
        m_histogram->setStatistics({});
    showText();
    if (!m_picture)
        return;
    const wxRect part = m_selection.value_or(wxRect(0, 0, m_picture->size().x, m_picture->size().y));
    m_task.start([picture = m_picture,
                  part](const Progress& progress) { return statisticsOf(picture->image(), part, progress); },
                 [this](const Optional<Optional<PictureStatistics>>& statistics) {
                     m_statistics = statistics.value_or(std::nullopt);
                     m_histogram->setStatistics(m_statistics);
                     showText();
                     update();
                 });
}

void InformationPanel::showText()
{
    m_text->ChangeValue(Wx::toWxString(text()));
}

String InformationPanel::text() const
{
    if (!m_picture)
        return {};
    String text;
    if (!m_comparison.isEmpty())
        text += m_comparison + L"\n";
    if (m_statistics)
        text += statisticsText(*m_picture, *m_statistics, m_selection) + L"\n";
    return text + metadataText(*m_picture);
}

} // namespace Nolvex::Viewer
