// SPDX-License-Identifier: MIT
#include "NolvexLibWx/FontSetup.h"

#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/GeometryConversions.h"

namespace Nolvex {

namespace {

constexpr int DEFAULT_TEXT_HEIGHT = 12;

struct SizedFont
{
    wxFont original;
    int height = 0; // in pixels
    wxFont sized;
};

} // namespace

wxFont Wx::setDefaultFontSize(wxFont font, float factor)
{
    const int height = Detail::truncate(static_cast<float>(scaleByDpi(DEFAULT_TEXT_HEIGHT)) * factor);
    // Nearly all controls ask with the one font of the system, and to find the size takes the toolkit nearly
    // as long as to make a window.
    static SizedFont last;
    if (last.original.IsOk() && last.original.IsSameAs(font) && last.height == height)
        return last.sized;
    last.original = font;
    font.SetPixelSize(wxSize(0, height));
    last.height = height;
    last.sized = font;
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
