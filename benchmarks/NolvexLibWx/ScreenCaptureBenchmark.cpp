// SPDX-License-Identifier: MIT
#include "NolvexLibWx/ScreenCapture.h"

#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/NolvexLibWx.h"
#include "support/PairedRatio.h"

#include <wx/dcmemory.h>
#include <wx/dcscreen.h>
#include <wx/display.h>
#include <wx/image.h>

#include <benchmark/benchmark.h>

#include <memory>

namespace Nolvex::Benchmarks {

namespace {

constexpr float SCALE = 1.0f / 255.0f;

// Captures the screen by wxWidgets alone: copies it to a bitmap, makes an image of the bitmap and reads the
// pixels.
BitmapImpl<Rgb> captureByToolkit(const Bucket& region)
{
    const wxRect area = Wx::toWxRect(region);
    wxBitmap bitmap(area.GetSize(), 24);
    {
        wxMemoryDC memory(bitmap);
        wxScreenDC screen;
        memory.Blit(wxPoint(0, 0), area.GetSize(), &screen, area.GetTopLeft());
    }
    const wxImage image = bitmap.ConvertToImage();
    BitmapImpl<Rgb> colours(region.width(), region.height());
    for (int y = 0; y < colours.height(); ++y) {
        for (int x = 0; x < colours.width(); ++x)
            colours.row(y)[x] = {static_cast<float>(image.GetRed(x, y)) * SCALE,
                                 static_cast<float>(image.GetGreen(x, y)) * SCALE,
                                 static_cast<float>(image.GetBlue(x, y)) * SCALE, 1.0f};
    }
    return colours;
}

template<BitmapImpl<Rgb> (*CAPTURE)(const Bucket&)>
void captureDisplay()
{
    benchmark::DoNotOptimize(CAPTURE(Wx::toBucket(wxDisplay(0u).GetGeometry())).data());
}

BitmapImpl<Rgb> capture(const Bucket& region)
{
    return Wx::getScreenRegionColors(region);
}

// Captures the whole first display.
Contest screenCapture()
{
    const std::shared_ptr<void> started(nullptr, [](void*) { LibWx::shutdown(); });
    LibWx::startup(LibWx::ApplicationType::APPLICATION);
    return {captureDisplay<captureByToolkit>, [started] { captureDisplay<capture>(); }};
}

const Figure SCREEN_CAPTURE("screen_capture", 4.0, screenCapture);

} // namespace

} // namespace Nolvex::Benchmarks
