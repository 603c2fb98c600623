// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/PixelProbe.h"

#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/ScopedWindowFreezer.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/platform/MouseTransparency.h"
#include "NolvexLibWx/widgets/ApplySkinRecursive.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "NolvexLibWx/widgets/StaticBitmap.h"
#include "NolvexLibWx/widgets/detail/ProbeText.h"
#include "NolvexLibWx/widgets/detail/ProbeWarning.h"

#include <wx/sizer.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

namespace Nolvex {

namespace {

constexpr long FRAME_STYLE = wxFRAME_FLOAT_ON_PARENT | wxFRAME_NO_TASKBAR;
constexpr int MOUSE_DISTANCE = 20; // pixels
constexpr int TEXT_BORDER = 7;
constexpr int SWATCH_BORDER = 3;
constexpr int POSITION_BORDER = 1;
const wxSize SWATCH_SIZE(45, 27);

// A longer name of a colour space is cut off. The X server has no windows beyond 32767 pixels, and GTK may
// show each pixel of wxWidgets as two.
const wxSize MAX_SIZE(16000, 16000);

// On Windows, wxWidgets asserts that a frame which floats on its parent has one.
long frameStyle(const wxWindow* parent)
{
    return parent == nullptr ? FRAME_STYLE & ~wxFRAME_FLOAT_ON_PARENT : FRAME_STYLE;
}

int besideMouse(std::int32_t coordinate)
{
    constexpr int LIMIT = std::numeric_limits<int>::max() - MOUSE_DISTANCE;
    return std::min(coordinate, LIMIT) + MOUSE_DISTANCE;
}

bool isColourFinite(const Rgb& colour)
{
    return std::isfinite(colour.r) && std::isfinite(colour.g) && std::isfinite(colour.b);
}

} // namespace

Wx::PixelProbe::PixelProbe(wxWindow* parent, Function<ProbedPixel(const Pixel&)> probe, String warningText)
    : Platform::PopupFrame(parent, frameStyle(parent), wxASCII_STR(wxFrameNameStr)),
      m_probe(std::move(probe)),
      m_warningText(std::move(warningText)),
      m_swatchImage(scaleByDpi(SWATCH_SIZE))
{
    SetDoubleBuffered(true);
    // A mouse that is moved fast reaches the frame before the frame has been moved away. The picture below
    // still gets the movement then.
    Platform::letMouseThrough(*this);
    makeControls();
    layOut();
    applySkinRecursive(this, GuiSkin::DEFAULT());
}

Wx::PixelProbe::~PixelProbe() = default;

void Wx::PixelProbe::makeControls()
{
    m_swatch = new StaticBitmap(this, wxID_ANY, wxBitmap(m_swatchImage, wxBITMAP_SCREEN_DEPTH, 1.0));
    setAccessibleName(*m_swatch, L"Tone-mapped colour");
    for (StaticText** text : {&m_position, &m_original, &m_toneMapped, &m_bytes})
        *text = new StaticText(this, wxID_ANY, String());
    m_warning = new Detail::ProbeWarning(this, m_warningText);
    m_warning->Hide();
}

void Wx::PixelProbe::layOut()
{
    auto* column = new wxBoxSizer(wxVERTICAL);
    column->Add(m_swatch, 0, wxUP, scaleByDpi(SWATCH_BORDER));
    column->Add(m_position, 0, wxUP, scaleByDpi(POSITION_BORDER));
    const int border = scaleByDpi(TEXT_BORDER);
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(column, 0, wxALL, border);
    for (StaticText* text : {m_original, m_toneMapped, m_bytes})
        row->Add(text, 0, wxALL, border);
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(row);
    rows->Add(m_warning, 0, wxLEFT | wxRIGHT | wxDOWN, border);
    SetSizer(rows);
    SetMaxSize(MAX_SIZE);
    Fit();
}

void Wx::PixelProbe::updatePosition(Pixel screenPosition)
{
    const wxWeakRef<PixelProbe> self(this);
    const ScopedWindowFreezer freezer(this);
    // Without the flag, -1 would stand for the present coordinate.
    Move(besideMouse(screenPosition.x), besideMouse(screenPosition.y),
         wxSIZE_USE_EXISTING | wxSIZE_ALLOW_MINUS_ONE);
    if (m_probe) {
        const ProbedPixel pixel = m_probe(screenPosition);
        if (self)
            show(pixel);
    }
    if (self)
        Refresh();
}

void Wx::PixelProbe::show(const ProbedPixel& pixel)
{
    m_position->SetLabel(toWxString(Detail::positionText(pixel.position)));
    m_original->SetLabel(toWxString(Detail::originalText(pixel.original)));
    m_toneMapped->SetLabel(toWxString(Detail::toneMappedText(pixel.colourSpace, pixel.toneMapped)));
    m_bytes->SetLabel(toWxString(Detail::bytesText(pixel.colourSpace, pixel.toneMapped, pixel.alpha)));
    showSwatch(pixel);
    m_warning->Show(!isColourFinite(pixel.original) || !isColourFinite(pixel.toneMapped));
    Fit();
}

void Wx::PixelProbe::showSwatch(const ProbedPixel& pixel)
{
    const RgbBytes colour = toRgbBytes(toWxColour(pixel.toneMapped));
    m_swatchImage.SetRGB(wxRect(m_swatchImage.GetSize()), colour.r, colour.g, colour.b);
    m_swatch->setBitmap(wxBitmap(m_swatchImage, wxBITMAP_SCREEN_DEPTH, 1.0));
}

} // namespace Nolvex
