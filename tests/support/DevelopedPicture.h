// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibImage/Image.h"
#include "apps/viewer/view/Development.h"
#include "apps/viewer/view/ScreenEncoder.h"

#include <wx/image.h>

#include <cmath>
#include <cstddef>
#include <vector>

namespace Nolvex::Tests {

/// Returns the part of the image that the rectangle covers as the viewer shows it with the settings, with the
/// image's alpha instead of a background. Rows count from the top, and the part must lie within the image.
inline wxImage develop(const Image& image, const Viewer::DisplaySettings& settings, const wxRect& part)
{
    const Viewer::Development development(image.descriptor(), settings);
    const auto width = static_cast<std::size_t>(part.width);
    const Viewer::ScreenEncoder encoder(development.curve(), width * static_cast<std::size_t>(part.height));
    wxImage result(part.width, part.height, false);
    if (development.isTransparent())
        result.SetAlpha();
    std::vector<Rgb> row(width);
    for (int y = 0; y < part.height; ++y) {
        const std::size_t done = static_cast<std::size_t>(y) * width;
        Viewer::readPixels(image, {part.x, part.y + y}, row.data(), width);
        development.apply(row.data(), width);
        encoder.encode(row.data(), result.GetData() + 3 * done, width);
        for (std::size_t x = 0; x < width && result.HasAlpha(); ++x) {
            const float alpha = row[x].a > 0.0f ? std::fmin(row[x].a, 1.0f) : 0.0f;
            result.GetAlpha()[done + x] = static_cast<unsigned char>(std::lrint(alpha * 255.0f));
        }
    }
    return result;
}

} // namespace Nolvex::Tests
