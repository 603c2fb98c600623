// SPDX-License-Identifier: MIT
#include "apps/viewer/view/SceneRows.h"

#include <algorithm>
#include <utility>

namespace Nolvex::Viewer {

namespace {

constexpr int BAND_PIXELS = 1 << 21; // enough work for several threads, in 8 MiB

// The pattern behind transparent pixels begins anew in each band, and so each band has to be as high as a
// whole number of repetitions.
int bandHeightFor(const Scene& scene)
{
    const int repetition = 2 * std::max(scene.backdrop.checkLength, 1);
    const int wanted = BAND_PIXELS / std::max(scene.size.x, 1);
    return (wanted / repetition + 1) * repetition;
}

} // namespace

SceneRows::SceneRows(Scene scene) : m_scene(std::move(scene)), m_bandHeight(bandHeightFor(m_scene)) {}

void SceneRows::encode(std::int32_t rowFromTop, std::byte* destination)
{
    const int first = rowFromTop / m_bandHeight * m_bandHeight;
    if (first != m_bandFirst)
        drawBand(first);
    const auto width = static_cast<std::size_t>(m_scene.size.x);
    const std::uint32_t* pixel = m_band.data() + static_cast<std::size_t>(rowFromTop - first) * width;
    for (const std::uint32_t* const end = pixel + width; pixel != end; ++pixel) {
        for (const int shift : {16, 8, 0})
            *destination++ = static_cast<std::byte>(*pixel >> shift);
    }
}

void SceneRows::drawBand(int first)
{
    Scene band = m_scene;
    band.size.y = std::min(m_bandHeight, m_scene.size.y - first);
    band.origin.y -= first;
    m_bandFirst = -1; // until the band is there, of which memory may be short
    m_band.resize(static_cast<std::size_t>(band.size.x) * static_cast<std::size_t>(band.size.y));
    drawScene(band, Platform::PixelRows(band.size, m_band.data(), band.size.x));
    m_bandFirst = first;
}

} // namespace Nolvex::Viewer
