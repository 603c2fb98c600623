// SPDX-License-Identifier: MIT
#include "apps/viewer/view/PixelNumbers.h"

#include "NolvexLibWx/DpiScaling.h"
#include "apps/viewer/view/Development.h"
#include "apps/viewer/view/ShortNumber.h"

#include <wx/dc.h>
#include <wx/font.h>
#include <wx/settings.h>

#include <algorithm>
#include <cmath>

namespace Nolvex::Viewer {

namespace {

constexpr int MIN_SIDE = 64; // design units

// Limits a value to the range that the screen can show. NaN becomes 0.
float clamped(float value)
{
    return value > 0.0f ? std::min(value, 1.0f) : 0.0f;
}

bool isDark(const Rgb& shown)
{
    constexpr float MIDDLE = 0.5f;
    return 0.3f * clamped(shown.r) + 0.6f * clamped(shown.g) + 0.1f * clamped(shown.b) < MIDDLE;
}

// The first of `size` pixels that reaches beyond a place, and the first one that begins behind another.
struct Range
{
    int first;
    int end;
};

Range shownPixels(int size, double side, double origin, int from, int to)
{
    const double first = std::floor((from - origin) / side);
    const double end = std::ceil((to - origin) / side);
    return {static_cast<int>(std::clamp(first, 0.0, static_cast<double>(size))),
            static_cast<int>(std::clamp(end, 0.0, static_cast<double>(size)))};
}

} // namespace

bool hasRoomForNumbers(double side)
{
    return side >= Wx::scaleByDpi(MIN_SIDE);
}

wxString numbersOf(const Image& image, const DisplaySettings& settings, const Pixel& position)
{
    Rgb stored;
    readPixels(image, position, &stored, 1);
    switch (settings.channel) {
    case Channel::RED:
        return shortNumber(stored.r);
    case Channel::GREEN:
        return shortNumber(stored.g);
    case Channel::BLUE:
        return shortNumber(stored.b);
    case Channel::ALPHA:
        return shortNumber(stored.a);
    case Channel::LUMINANCE:
        return shortNumber(luminance(stored));
    case Channel::RGB:
        break;
    }
    const int channels = Image::getPixelFormatChannelCount(image.descriptor().format);
    wxString text = shortNumber(stored.r);
    if (channels > 1)
        text << '\n' << shortNumber(stored.g) << '\n' << shortNumber(stored.b);
    if (channels > 3)
        text << '\n' << shortNumber(stored.a);
    return text;
}

wxRect PixelSquares::square(const Pixel& position) const
{
    const auto place = [this](double from, int index) {
        return static_cast<int>(std::lround(from + index * side));
    };
    const wxPoint first(place(origin.x, position.x), place(origin.y, position.y));
    return {first.x, first.y, place(origin.x, position.x + 1) - first.x,
            place(origin.y, position.y + 1) - first.y};
}

void drawNumbers(wxDC& dc, const Image& image, const DisplaySettings& settings, const PixelSquares& squares,
                 const wxRect& area)
{
    const ImageDescriptor& size = image.descriptor();
    const Range across = shownPixels(size.width, squares.side, squares.origin.x, area.x, area.x + area.width);
    const Range down = shownPixels(size.height, squares.side, squares.origin.y, area.y, area.y + area.height);
    for (int y = down.first; y < down.end; ++y) {
        for (int x = across.first; x < across.end; ++x) {
            const Rgb shown = developPixel(image, settings, {x, y}).shown;
            dc.SetTextForeground(isDark(shown) ? *wxWHITE : *wxBLACK);
            dc.DrawLabel(numbersOf(image, settings, {x, y}), squares.square({x, y}), wxALIGN_CENTRE);
        }
    }
}

void setNumberFont(wxDC& dc, double side)
{
    constexpr double LINES = 6.0; // four lines and some distance from the edges
    constexpr int MAX_HEIGHT = 16;
    wxFont font = wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT);
    font.SetPixelSize(wxSize(0, std::min(static_cast<int>(side / LINES), Wx::scaleByDpi(MAX_HEIGHT))));
    dc.SetFont(font);
}

} // namespace Nolvex::Viewer
