// SPDX-License-Identifier: MIT
#include "NolvexLibWx/FontSetup.h"

#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/GeometryConversions.h"

namespace Nolvex {

namespace {

constexpr int DEFAULT_TEXT_HEIGHT = 12;

} // namespace

wxFont Wx::setDefaultFontSize(wxFont font, float factor)
{
    const int height = Detail::truncate(static_cast<float>(scaleByDpi(DEFAULT_TEXT_HEIGHT)) * factor);
    font.SetPixelSize(wxSize(0, height));
    return font;
}

wxFont Wx::setupStaticTextFont(wxFont font, Flags<TextFlag> flags)
{
    wxFont sized = font;
    sized.SetPixelSize(wxSize(0, scaleByDpi(DEFAULT_TEXT_HEIGHT)));
    font = sized.GetBaseFont();
    if (flags.has(TextFlag::BOLD))
        font.MakeBold();
    if (flags.has(TextFlag::ITALIC))
        font.MakeItalic();
    return font;
}

} // namespace Nolvex
