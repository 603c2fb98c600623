// SPDX-License-Identifier: MIT
#include "NolvexLibWx/NolvexLibWx.h"
#include "apps/viewer/Picture.h"
#include "apps/viewer/view/SceneRenderer.h"
#include "support/PairedRatio.h"

#include <wx/dcmemory.h>

#include <chrono>
#include <cmath>
#include <memory>
#include <thread>
#include <utility>

namespace Nolvex::Benchmarks {

namespace {

constexpr int WIDTH = 1920;
constexpr int HEIGHT = 1080;

// A frame of a screen with 60 pictures in a second.
constexpr std::chrono::milliseconds FRAME_TIME(16);

Viewer::SharedPicture gradient()
{
    Image image = *Image::create(WIDTH, HEIGHT, PixelFormat::FLOAT32_RGBA, 2.2f);
    for (int y = 0; y < HEIGHT; ++y) {
        auto* const row = reinterpret_cast<Rgb*>(image.row(y).data());
        for (int x = 0; x < WIDTH; ++x) {
            const float value = static_cast<float>(x * y) / (WIDTH * HEIGHT);
            row[x] = {value, 2.0f * value, std::sqrt(value), 1.0f};
        }
    }
    return std::make_shared<const Viewer::Picture>(L"gradient", std::move(image));
}

// Draws the whole picture as the view does, with another exposure each time.
Contest steppingTheExposure()
{
    struct Stage
    {
        Stage() { LibWx::startup(LibWx::ApplicationType::APPLICATION); }

        ~Stage() { LibWx::shutdown(); }

        Stage(const Stage&) = delete;
        Stage& operator=(const Stage&) = delete;

        Viewer::SharedPicture picture = gradient();
        Viewer::SceneRenderer renderer;
        Viewer::DisplaySettings settings;
    };

    const auto stage = std::make_shared<Stage>();
    const auto screen = std::make_shared<wxBitmap>(WIDTH, HEIGHT);
    return {[] { std::this_thread::sleep_for(FRAME_TIME); },
            [stage, screen] {
                stage->settings.exposure =
                    stage->settings.exposure > 4.0f ? -4.0f : stage->settings.exposure + 0.05f;
                wxMemoryDC dc(*screen);
                const Viewer::Scene scene{
                    .size = {WIDTH, HEIGHT}, .picture = stage->picture, .display = stage->settings};
                stage->renderer.render(scene)->draw(dc, 1);
            }};
}

// The figure is the time of one frame divided by the time from the change of the exposure to its pixels.
const Figure EXPOSURE_STEP("viewer_exposure_step_1080p", 1.0, steppingTheExposure);

} // namespace

} // namespace Nolvex::Benchmarks
