// SPDX-License-Identifier: MIT
#include "NolvexLib/BitmapImpl.h"
#include "NolvexLib/Rgb.h"
#include "NolvexLibWx/BitmapConversions.h"
#include "NolvexLibWx/widgets/OskaBorder.h"
#include "NolvexLibWx/widgets/StaticBitmap.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "apps/gallery/Page.h"

#include <wx/sizer.h>

#include <algorithm>
#include <cmath>

namespace Nolvex::Gallery {

namespace {

constexpr int GAP = 10;

// A disc of light: up to 3 in its middle, so that clamping shows; alpha falls off to its rim.
BitmapImpl<Rgb> glow(int size)
{
    BitmapImpl<Rgb> image(size, size);
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const float dx = (static_cast<float>(x) + 0.5f) / static_cast<float>(size) * 2.0f - 1.0f;
            const float dy = (static_cast<float>(y) + 0.5f) / static_cast<float>(size) * 2.0f - 1.0f;
            const float light = std::max(0.0f, 1.0f - std::sqrt(dx * dx + dy * dy));
            image.at(x, y) = {3.0f * light, 1.6f * light, 0.6f * light, light};
        }
    }
    return image;
}

void build(wxWindow* parent, const Log& /*log*/)
{
    auto* rows = new wxBoxSizer(wxVERTICAL);
    for (const bool withAlpha : {false, true}) {
        rows->Add(new Wx::StaticText(parent, wxID_ANY, withAlpha ? L"With alpha" : L"Without alpha"));
        auto* border = new OskaBorder(parent);
        border->addChild(new Wx::StaticBitmap(border, wxID_ANY, Wx::toWxBitmap(glow(160), withAlpha)));
        rows->Add(border, 0, wxTOP | wxBOTTOM, GAP);
    }
    parent->SetSizer(rows);
}

const Page PAGE(L"Pictures", build);

} // namespace

} // namespace Nolvex::Gallery
