// SPDX-License-Identifier: MIT
#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "NolvexLibWx/widgets/OskaBorder.h"
#include "NolvexLibWx/widgets/StaticBitmap.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "apps/gallery/Page.h"
#include "apps/gallery/SkinFields.h"

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
    for (const SkinField& field : SKIN_FIELDS) {
        grid->Add(new Wx::StaticText(parent, wxID_ANY, field.name), 0, wxALIGN_CENTRE_VERTICAL);
        auto* frame = new OskaBorder(parent); // shows where the colour of the background begins
        auto* picture = new Wx::StaticBitmap(frame, wxID_ANY, swatch(skin.*field.color));
        Wx::setAccessibleName(*picture, field.name);
        frame->addChild(picture);
        grid->Add(frame);
    }
    parent->SetSizer(grid);
}

const Page PAGE(L"Skin", build, {}, {}, Family::LOOKS);

} // namespace

} // namespace Nolvex::Gallery
