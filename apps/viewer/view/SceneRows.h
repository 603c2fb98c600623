// SPDX-License-Identifier: MIT
#pragma once

#include "apps/viewer/view/SceneRenderer.h"
#include "apps/viewer/writing/FileRows.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Nolvex::Viewer {

/// Makes the rows of a file from a scene: the pixels that a view shows, in three bytes each. Only a band of
/// the scene is in memory at a time. The scene is not reduced, and rows from the top to the bottom are made
/// once each.
class SceneRows : public FileRows
{
public:
    explicit SceneRows(Scene scene);

    wxSize size() const override { return m_scene.size; }

    int channelCount() const override { return 3; }

    std::size_t channelBytes() const override { return 1; }

    /// Throws std::bad_alloc if memory has run out.
    void encode(std::int32_t rowFromTop, std::byte* destination) override;

private:
    void drawBand(int first);

    Scene m_scene;
    int m_bandHeight;
    int m_bandFirst = -1; // the top row of the band in memory; -1 before there is one
    std::vector<std::uint32_t> m_band;
};

} // namespace Nolvex::Viewer
