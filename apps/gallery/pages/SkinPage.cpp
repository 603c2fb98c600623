// SPDX-License-Identifier: MIT
#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "NolvexLibWx/widgets/OskaBorder.h"
#include "NolvexLibWx/widgets/StaticBitmap.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "apps/gallery/Page.h"

#include <wx/image.h>
#include <wx/sizer.h>

namespace Nolvex::Gallery {

namespace {

const wxSize SWATCH(120, 24);

wxBitmap swatch(const RgbBytes& colour)
{
    const wxSize size = Wx::scaleByDpi(SWATCH);
    wxImage image(size);
    image.SetRGB(wxRect(size), colour.r, colour.g, colour.b);
    return {image};
}

void build(wxWindow* parent, const Log& /*log*/)
{
    const Wx::GuiSkin& skin = Wx::GuiSkin::DEFAULT();
    auto* grid = new wxFlexGridSizer(2, wxSize(16, 8));
    const std::pair<const wchar_t*, RgbBytes> colours[] = {
        {L"text", skin.text},
        {L"disabledText", skin.disabledText},
        {L"background", skin.background},
        {L"darkBackground", skin.darkBackground},
        {L"accentText", skin.accentText},
        {L"accent", skin.accent},
        {L"pressedBackground", skin.pressedBackground},
        {L"link", skin.link},
        {L"highlight", skin.highlight},
    };
    for (const auto& [name, colour] : colours) {
        grid->Add(new Wx::StaticText(parent, wxID_ANY, name), 0, wxALIGN_CENTRE_VERTICAL);
        auto* frame = new OskaBorder(parent); // shows where the colour of the background begins
        auto* picture = new Wx::StaticBitmap(frame, wxID_ANY, swatch(colour));
        Wx::setAccessibleName(*picture, name);
        frame->addChild(picture);
        grid->Add(frame);
    }
    parent->SetSizer(grid);
}

const Page PAGE(L"Skin", build);

} // namespace

} // namespace Nolvex::Gallery
