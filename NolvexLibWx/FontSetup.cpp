// SPDX-License-Identifier: MIT
#include "NolvexLibWx/FontSetup.h"

#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/platform/CharacterHeight.h"

namespace Nolvex {

namespace {

constexpr int DEFAULT_TEXT_HEIGHT = 12; // design units

} // namespace

wxFont Wx::setDefaultFontSize(wxFont font, float factor)
{
    const auto height = static_cast<float>(scaleByDpi(DEFAULT_TEXT_HEIGHT));
    Platform::setCharacterHeight(font, Detail::truncate(height * factor));
    return font;
}

wxFont Wx::setupStaticTextFont(wxFont font, Flags<TextFlag> flags)
{
    wxFont sized = font;
    Platform::setCharacterHeight(sized, scaleByDpi(DEFAULT_TEXT_HEIGHT));
    font = sized.GetBaseFont();
    if (flags.has(TextFlag::BOLD))
        font.MakeBold();
    if (flags.has(TextFlag::ITALIC))
        font.MakeItalic();
    return font;
}

} // namespace Nolvex
