// SPDX-License-Identifier: MIT
#include "NolvexLib/Rgb.h"
#include "NolvexLibImage/Image.h"
#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/BitmapConverter.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/widgets/OskaBorder.h"
#include "NolvexLibWx/widgets/StaticBitmap.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "apps/gallery/Page.h"

#include <wx/sizer.h>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace Nolvex::Gallery {

namespace {

constexpr int GAP = 10; // design units

// Returns a pixel of a disc of light. The light reaches 3 in the middle, which shows clamping, and the alpha
// falls to 0 at the rim.
Rgb glowAt(int x, int y, int size)
{
    const float dx = (static_cast<float>(x) + 0.5f) / static_cast<float>(size) * 2.0f - 1.0f;
    const float dy = (static_cast<float>(y) + 0.5f) / static_cast<float>(size) * 2.0f - 1.0f;
    const float light = std::max(0.0f, 1.0f - std::sqrt(dx * dx + dy * dy));
    return {3.0f * light, 1.6f * light, 0.6f * light, light};
}

wxBitmap glow(int size, bool withAlpha)
{
    const PixelFormat format = withAlpha ? PixelFormat::FLOAT32_RGBA : PixelFormat::FLOAT32_RGB;
    Expected<Image, String> image = Image::create(size, size, format, 1.0f);
    if (!image)
        return {};
    const std::size_t pixelSize = Image::getPixelFormatByteCount(format);
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const Rgb colour = glowAt(x, y, size);
            std::memcpy(image->row(y).data() + static_cast<std::size_t>(x) * pixelSize, &colour, pixelSize);
        }
    }
    return BitmapConverter::zephraImageToWxBitmap(*image);
}

void build(wxWindow* parent, const Log& /*log*/)
{
    auto* rows = new wxBoxSizer(wxVERTICAL);
    for (const bool withAlpha : {false, true}) {
        rows->Add(new Wx::StaticText(parent, wxID_ANY, withAlpha ? L"With alpha" : L"Without alpha"));
        auto* border = new OskaBorder(parent);
        auto* picture = new Wx::StaticBitmap(border, wxID_ANY, glow(160, withAlpha));
        Wx::setAccessibleName(*picture, withAlpha ? L"Glow with alpha" : L"Glow without alpha");
        border->addChild(picture);
        rows->Add(border, 0, wxTOP | wxBOTTOM, Wx::scaleByDpi(GAP));
    }
    parent->SetSizer(rows);
}

const Page PAGE(L"Pictures", build, {}, {}, Family::LOOKS);

} // namespace

} // namespace Nolvex::Gallery
