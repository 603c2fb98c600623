// SPDX-License-Identifier: MIT
#include "NolvexLibWx/NolvexLibWx.h"
#include "apps/viewer/Picture.h"
#include "apps/viewer/view/SceneRenderer.h"
#include "apps/viewer/view/ViewTransform.h"
#include "support/PairedRatio.h"

#include <wx/dcmemory.h>

#include <chrono>
#include <cmath>
#include <memory>
#include <thread>
#include <utility>

namespace Nolvex::Benchmarks {

namespace {

constexpr Pixel PICTURE{7680, 4320};
const wxSize VIEW(1920, 1080);

// A frame of a screen with 60 pictures in a second.
constexpr std::chrono::milliseconds FRAME_TIME(16);

Viewer::SharedPicture gradient(float alpha)
{
    Image image = *Image::create(PICTURE.x, PICTURE.y, PixelFormat::FLOAT32_RGBA, 2.2f);
    for (int y = 0; y < PICTURE.y; ++y) {
        auto* const row = reinterpret_cast<Rgb*>(image.row(y).data());
        for (int x = 0; x < PICTURE.x; ++x) {
            const float value =
                static_cast<float>(x) * static_cast<float>(y) / static_cast<float>(PICTURE.x * PICTURE.y);
            row[x] = {value, 2.0f * value, std::sqrt(value), alpha};
        }
    }
    return std::make_shared<const Viewer::Picture>(L"gradient", std::move(image));
}

struct Stage
{
    explicit Stage(float alpha = 1.0f) : picture(gradient(alpha))
    {
        LibWx::startup(LibWx::ApplicationType::APPLICATION);
        transform.setViewSize(VIEW);
        transform.setPictureSize(PICTURE);
    }

    ~Stage() { LibWx::shutdown(); }

    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    // Draws the picture as the view does.
    void draw(wxBitmap& screen)
    {
        wxMemoryDC dc(screen);
        const Viewer::Scene scene{.size = VIEW,
                                  .scale = transform.scale(),
                                  .origin = transform.origin(),
                                  .picture = picture,
                                  .comparison = comparison,
                                  .divider = VIEW.x / 3,
                                  .display = display};
        renderer.render(scene)->draw(dc, 1);
    }

    Viewer::SharedPicture picture;
    Viewer::SharedPicture comparison;
    Viewer::DisplaySettings display;
    Viewer::SceneRenderer renderer;
    Viewer::ViewTransform transform;
};

// Shows the picture at a scale, and moves it a little each time. The reduced copies of the picture, which the
// view makes once in the background, are there before the measurement.
Contest panning(const std::shared_ptr<Stage>& stage, double scale)
{
    const auto screen = std::make_shared<wxBitmap>(VIEW);
    // The first scale is that of the whole picture, as for every user.
    for (const double shown : {stage->transform.scale(), scale}) {
        stage->transform.setScale(shown, stage->transform.middle());
        do {
            stage->draw(*screen);
        } while (stage->renderer.isProvisional());
    }
    return {[] { std::this_thread::sleep_for(FRAME_TIME); },
            [stage, screen, step = 7]() mutable {
                step = -step;
                stage->transform.pan(wxRealPoint(step, step));
                stage->draw(*screen);
            }};
}

Contest panning(double scale)
{
    return panning(std::make_shared<Stage>(), scale);
}

// Over the pattern, which does not move with the picture.
Contest panningTransparent(double scale)
{
    const auto stage = std::make_shared<Stage>(0.5f);
    stage->display.checkerboard = true;
    return panning(stage, scale);
}

Contest panningCompared(double scale)
{
    const auto stage = std::make_shared<Stage>();
    stage->comparison = stage->picture->named(L"other");
    return panning(stage, scale);
}

// Zooms in by a little, and out again.
Contest zooming()
{
    const auto stage = std::make_shared<Stage>();
    const auto screen = std::make_shared<wxBitmap>(VIEW);
    do {
        stage->draw(*screen);
    } while (stage->renderer.isProvisional());
    return {[] { std::this_thread::sleep_for(FRAME_TIME); },
            [stage, screen, step = 0]() mutable {
                constexpr int STEPS = 24; // from the size of the view to 4 : 1
                const double factor =
                    step++ % (2 * STEPS) < STEPS ? std::exp2(1.0 / 6.0) : std::exp2(-1.0 / 6.0);
                stage->transform.zoomAt(wxRealPoint(700.0, 300.0), factor);
                stage->draw(*screen);
            }};
}

// Zooms between 1/2 and 1 : 1, where reduced copies are too small.
Contest zoomingBetween()
{
    const auto stage = std::make_shared<Stage>();
    const auto screen = std::make_shared<wxBitmap>(VIEW);
    do {
        stage->draw(*screen);
    } while (stage->renderer.isProvisional());
    stage->transform.setScale(0.52, stage->transform.middle());
    return {[] { std::this_thread::sleep_for(FRAME_TIME); },
            [stage, screen, step = 0]() mutable {
                constexpr int STEPS = 8; // to 0.87
                const double factor =
                    step++ % (2 * STEPS) < STEPS ? std::exp2(1.0 / 11.0) : std::exp2(-1.0 / 11.0);
                stage->transform.zoomAt(wxRealPoint(700.0, 300.0), factor);
                stage->draw(*screen);
            }};
}

// The figures are the time of one frame divided by the time from a movement to its pixels.
const Figure PAN_FIT("viewer_pan_zoom_8k_fit", 1.0, [] { return panning(0.25); });
const Figure PAN_037("viewer_pan_zoom_8k_scale_0.37", 1.0, [] { return panning(0.37); });
const Figure PAN_051("viewer_pan_zoom_8k_scale_0.51", 1.0, [] { return panning(0.51); });
const Figure PAN_06("viewer_pan_zoom_8k_scale_0.6", 1.0, [] { return panning(0.6); });
const Figure PAN_06_ALPHA("viewer_pan_zoom_8k_scale_0.6_alpha", 1.0, [] { return panningTransparent(0.6); });
const Figure PAN_06_DIVIDER("viewer_pan_zoom_8k_scale_0.6_divider", 1.0, [] { return panningCompared(0.6); });
const Figure PAN_075("viewer_pan_zoom_8k_scale_0.75", 1.0, [] { return panning(0.75); });
const Figure PAN_1("viewer_pan_zoom_8k_scale_1", 1.0, [] { return panning(1.0); });
const Figure PAN_3("viewer_pan_zoom_8k_scale_3", 1.0, [] { return panning(3.0); });
const Figure ZOOM_BETWEEN("viewer_pan_zoom_8k_zooming_0.52_0.87", 1.0, zoomingBetween);
const Figure ZOOM("viewer_pan_zoom_8k_zooming", 1.0, zooming);

} // namespace

} // namespace Nolvex::Benchmarks
