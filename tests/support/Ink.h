// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/ColourConversions.h"
#include "support/Screen.h"

#include <wx/brush.h>
#include <wx/dcmemory.h>
#include <wx/fontenum.h>

#include <functional>

namespace Nolvex::Tests {

/// The colour of the paper that the painters of the tests paint on.
inline constexpr RgbBytes PAPER{10, 20, 30};

/// A label of one sign that fills its whole cell, so that pixels of exactly the text's colour can be found.
inline constexpr const wchar_t* BLOCK_LABEL = L"\u2588";

/// Returns a font that has the block character if the system has such a font.
inline wxFont blockFont()
{
    wxFontInfo info(12);
    return wxFontEnumerator::IsValidFacename("DejaVu Sans") ? wxFont(info.FaceName("DejaVu Sans"))
                                                            : wxFont(info);
}

inline wxImage painted(const wxSize& size, const std::function<void(wxDC&)>& paint)
{
    wxBitmap bitmap(size, 24);
    {
        wxMemoryDC dc(bitmap);
        dc.SetBackground(wxBrush(Wx::toWxColour(PAPER)));
        dc.Clear();
        paint(dc);
    }
    return bitmap.ConvertToImage();
}

/// Returns the smallest rectangle around all pixels inside `area` that differ from the paper.
inline wxRect inkIn(const wxImage& image, const wxRect& area)
{
    wxRect ink;
    for (int y = area.GetTop(); y <= area.GetBottom(); ++y) {
        for (int x = area.GetLeft(); x <= area.GetRight(); ++x) {
            if (pixelAt(image, x, y) != PAPER)
                ink.Union(wxRect(x, y, 1, 1));
        }
    }
    return ink;
}

} // namespace Nolvex::Tests
