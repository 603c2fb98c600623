// SPDX-License-Identifier: MIT
#include "NolvexLibWx/paint/DensePixels.h"

#include <wx/dc.h>
#include <wx/graphics.h>
#include <wx/image.h>
#include <wx/window.h>

#include <algorithm>
#include <cmath>

namespace Nolvex {

namespace {

constexpr double HALF_A_PIXEL = 0.5;

/// Returns how much is missing to half a pixel. wxWidgets itself moves lines by half a pixel of the device,
/// if at all.
double missingOffset(const wxGraphicsContext& context, int penWidth)
{
    const double density = context.GetContentScaleFactor();
    if (density <= 1.0 || penWidth % 2 == 0)
        return 0.0;
    return HALF_A_PIXEL - (context.ShouldOffset() ? HALF_A_PIXEL / density : 0.0);
}

/// Returns the number of pixels of the device in each direction for which a pixel of the bitmap stands.
int magnification(const wxDC& dc, const wxBitmap& bitmap)
{
    // GDI, which has no such context, draws pixels of the device.
    if (dc.GetGraphicsContext() == nullptr)
        return 1;
    return static_cast<int>(std::floor(dc.GetContentScaleFactor() / bitmap.GetScaleFactor()));
}

// wxImage::Scale would not hit the exact places at every factor.
wxImage enlarged(const wxImage& image, int factor)
{
    const wxSize size = image.GetSize() * factor;
    wxImage larger(size, false);
    if (image.HasAlpha())
        larger.SetAlpha();
    if (image.HasMask())
        larger.SetMaskColour(image.GetMaskRed(), image.GetMaskGreen(), image.GetMaskBlue());
    for (int y = 0; y < size.y; ++y) {
        for (int x = 0; x < size.x; ++x) {
            const wxPoint from(x / factor, y / factor);
            larger.SetRGB(x, y, image.GetRed(from.x, from.y), image.GetGreen(from.x, from.y),
                          image.GetBlue(from.x, from.y));
            if (image.HasAlpha())
                larger.SetAlpha(x, y, image.GetAlpha(from.x, from.y));
        }
    }
    return larger;
}

} // namespace

DensePixelOffset::DensePixelOffset(wxGraphicsContext* context, int penWidth, const wxPoint& directions)
    : m_context(context), m_directions(directions)
{
    if (m_context == nullptr)
        return;
    m_offset = missingOffset(*m_context, penWidth);
    if (m_offset != 0.0)
        m_context->Translate(m_directions.x * m_offset, m_directions.y * m_offset);
}

DensePixelOffset::~DensePixelOffset()
{
    if (m_offset != 0.0)
        m_context->Translate(-m_directions.x * m_offset, -m_directions.y * m_offset);
}

wxSize screenSize(const wxBitmap& bitmap)
{
    return bitmap.IsOk() ? bitmap.GetLogicalSize() : wxSize(0, 0);
}

int screenDensity(const wxWindow& window)
{
    return std::max(static_cast<int>(window.GetContentScaleFactor()), 1);
}

wxBitmap denseBitmap(const wxImage& image, int density)
{
    return {image, wxBITMAP_SCREEN_DEPTH, static_cast<double>(density)};
}

void drawSharp(wxDC& dc, const wxBitmap& bitmap, const wxPoint& position, bool useMask)
{
    const int factor = magnification(dc, bitmap);
    if (factor <= 1) {
        dc.DrawBitmap(bitmap, position, useMask);
        return;
    }
    const wxImage larger = enlarged(bitmap.ConvertToImage(), factor);
    dc.DrawBitmap(wxBitmap(larger, wxBITMAP_SCREEN_DEPTH, bitmap.GetScaleFactor() * factor), position,
                  useMask);
}

} // namespace Nolvex
