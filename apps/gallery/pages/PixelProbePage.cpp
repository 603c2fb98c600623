// SPDX-License-Identifier: MIT
#include "NolvexLibImage/Image.h"
#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/BitmapConverter.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/widgets/OskaBorder.h"
#include "NolvexLibWx/widgets/PixelProbe.h"
#include "NolvexLibWx/widgets/StaticBitmap.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "apps/gallery/Page.h"

#include <wx/sizer.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <iterator>
#include <limits>

namespace Nolvex::Gallery {

namespace {

constexpr int GAP = 10; // design units
constexpr int WIDTH = 360;
constexpr int HEIGHT = 220;
constexpr int BAND = 40; // the height of the fields with special values, at the bottom
constexpr float MAX_LIGHT = 6.0f;
constexpr float INF = std::numeric_limits<float>::infinity();

const Rgb SPECIAL_VALUES[] = {
    {-0.5f, 0.2f, 0.1f, 1.0f},
    {std::numeric_limits<float>::quiet_NaN(), 0.4f, 0.4f, 1.0f},
    {0.1f, 0.1f, INF, 1.0f},
    {0.5f, 0.5f, 0.5f, 0.5f},
};

// Returns the light of a pixel: a gradient that grows brighter to the right, far beyond what a screen can
// show, and below the gradient a row of special values.
Rgb lightAt(const Pixel& position)
{
    if (position.y >= HEIGHT - BAND) {
        constexpr int COUNT = static_cast<int>(std::size(SPECIAL_VALUES));
        return SPECIAL_VALUES[std::clamp(position.x * COUNT / WIDTH, 0, COUNT - 1)];
    }
    const float light = MAX_LIGHT * static_cast<float>(position.x) / WIDTH;
    const float warmth = static_cast<float>(position.y) / (HEIGHT - BAND);
    return {light, light * (1.0f - 0.6f * warmth), light * (1.0f - warmth), 1.0f};
}

float toneMapped(float light)
{
    constexpr float SCREEN_GAMMA = 2.2f;
    const float compressed = std::isinf(light) ? light : light / (1.0f + std::abs(light));
    return std::copysign(std::pow(std::abs(compressed), 1.0f / SCREEN_GAMMA), light);
}

Rgb toneMapped(const Rgb& light)
{
    return {toneMapped(light.r), toneMapped(light.g), toneMapped(light.b), light.a};
}

Wx::PixelProbe::ProbedPixel probedAt(const Pixel& position)
{
    const Rgb light = lightAt(position);
    return {light, toneMapped(light), light.a, position, L"sRGB"};
}

wxBitmap makePicture()
{
    Expected<Image, String> image = Image::create(WIDTH, HEIGHT, PixelFormat::FLOAT32_RGBA, 1.0f);
    if (!image)
        return {};
    for (int y = 0; y < HEIGHT; ++y) {
        std::byte* row = image->row(HEIGHT - 1 - y).data();
        for (int x = 0; x < WIDTH; ++x, row += sizeof(Rgb)) {
            const Rgb colour = toneMapped(lightAt({x, y}));
            std::memcpy(row, &colour, sizeof(colour));
        }
    }
    return BitmapConverter::zephraImageToWxBitmap(*image);
}

void probeOnHover(wxWindow* picture)
{
    auto* probe = new Wx::PixelProbe(
        picture,
        [picture](const Pixel& position) {
            return probedAt(Wx::toPixel(picture->ScreenToClient(Wx::toWxPoint(position))));
        },
        L"This colour is infinite or not a number");
    const auto follow = [picture, probe](wxMouseEvent& event) {
        probe->updatePosition(Wx::toPixel(picture->ClientToScreen(event.GetPosition())));
        probe->Show();
        event.Skip();
    };
    picture->Bind(wxEVT_MOTION, follow);
    picture->Bind(wxEVT_ENTER_WINDOW, follow);
    picture->Bind(wxEVT_LEAVE_WINDOW, [probe](wxMouseEvent& event) {
        probe->Hide();
        event.Skip();
    });
}

void build(wxWindow* parent, const Log& /*log*/)
{
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(new Wx::StaticText(parent, wxID_ANY,
                                 L"Move the mouse over the picture. The fields at the bottom hold a\n"
                                 L"negative value, NaN, infinity and an alpha of 0.5."),
              0, wxBOTTOM, Wx::scaleByDpi(GAP));
    auto* border = new OskaBorder(parent);
    auto* picture = new Wx::StaticBitmap(border, wxID_ANY, makePicture());
    Wx::setAccessibleName(*picture, L"Gradient with special values");
    border->addChild(picture);
    probeOnHover(picture);
    rows->Add(border);
    parent->SetSizer(rows);
}

Window probeWindow(const wchar_t* title, const Pixel& position)
{
    return {title, [position](wxWindow* owner) -> wxTopLevelWindow* {
                auto* probe = new Wx::PixelProbe(
                    owner, [position](const Pixel&) { return probedAt(position); },
                    L"This colour is infinite or not a number");
                probe->updatePosition({});
                return probe;
            }};
}

const Page PAGE(L"Pixel probe", build,
                {probeWindow(L"Probe window bright", {WIDTH / 2, HEIGHT / 2}),
                 probeWindow(L"Probe window warning", {WIDTH * 3 / 8, HEIGHT - 1})});

} // namespace

} // namespace Nolvex::Gallery
