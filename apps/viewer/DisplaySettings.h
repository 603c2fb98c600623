// SPDX-License-Identifier: MIT
#pragma once

namespace Nolvex::Viewer {

/// What the viewer shows of each pixel.
enum class Channel : int
{
    RGB,
    RED,
    GREEN,
    BLUE,
    ALPHA,
    LUMINANCE,
};

/// How a picture is shown. The picture itself does not change.
struct DisplaySettings
{
    /// In stops: one stop more shows twice the light.
    float exposure = 0.0f;
    Channel channel = Channel::RGB;

    friend bool operator==(const DisplaySettings&, const DisplaySettings&) = default;
};

} // namespace Nolvex::Viewer
