// SPDX-License-Identifier: MIT
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "NolvexLibWx/widgets/TextButton.h"
#include "apps/gallery/Hand.h"
#include "apps/gallery/Page.h"

#include <wx/sizer.h>

namespace Nolvex::Gallery {

namespace {

constexpr int GAP = 8; // design units

void colour(Wx::TextButton* button, bool visited)
{
    const Wx::GuiSkin& skin = Wx::GuiSkin::DEFAULT();
    button->setNormalColour(Wx::toWxColour(skin.link));
    button->setHoverColour(Wx::toWxColour(skin.highlight));
    button->setVisitedColour(Wx::toWxColour(skin.disabledText));
    button->setVisited(visited);
}

void build(wxWindow* parent, const Log& log)
{
    auto* rows = new wxBoxSizer(wxVERTICAL);
    auto* plain = new Wx::TextButton(parent, wxID_ANY, L"Click me: I write a line in the log",
                                     [log] { log(L"The text was clicked."); });
    auto* visited = new Wx::TextButton(parent, wxID_ANY, L"Visited", [log] { log(L"Visited again."); });
    auto* link = new Wx::TextButton(parent, wxID_ANY, L"A link to example.org, opened in the browser",
                                    L"https://example.org/");
    link->setTooltip(L"https://example.org/");
    auto* disabled = new Wx::TextButton(parent, wxID_ANY, L"Disabled", [log] { log(L"This never comes."); });
    disabled->Disable();
    for (Wx::TextButton* button : {plain, visited, link, disabled}) {
        // applySkinRecursive() gives links one colour for all states, so that the colours are set afterwards.
        button->CallAfter([button, isVisited = button == visited] { colour(button, isVisited); });
        rows->Add(button, 0, wxTOP, Wx::scaleByDpi(GAP));
    }
    parent->SetSizer(rows);
}

Scene::Step hover(std::size_t index)
{
    return Hand::moveTo(Hand::nth<Wx::TextButton>(index), {},
                        Hand::when<Wx::TextButton>(index, [](const Wx::TextButton& button) {
                            return button.GetForegroundColour() ==
                                   Wx::toWxColour(Wx::GuiSkin::DEFAULT().highlight);
                        }));
}

const Array<Scene> SCENES{
    {L"hovered", {hover(0)}},
    {L"visited hovered", {hover(1)}},
};

const Page PAGE(L"Text buttons", build, {}, SCENES);

} // namespace

} // namespace Nolvex::Gallery
