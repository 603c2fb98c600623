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

/// How the light of a picture becomes the values that the screen gets.
enum class Encoding : int
{
    GAMMA,  ///< by a power with the gamma of the picture, 2.2 for most pictures
    SRGB,   ///< by the curve of sRGB, which is a straight line near black
    LINEAR, ///< not at all
};

/// Whether each pixel is shown by a colour that stands for its value, and how the values are measured.
enum class FalseColor : int
{
    OFF,
    VALUES, ///< the colours are spread evenly over the values
    STOPS,  ///< the colours are spread evenly over the logarithms of the values to base 2
};

/// How a picture is shown. The picture itself does not change.
struct DisplaySettings
{
    /// In stops: one stop more shows twice the light.
    float exposure = 0.0f;
    Channel channel = Channel::RGB;

    /// The encoded values are raised to the power of 1 / gamma. 1 leaves them as they are.
    float gamma = 1.0f;
    Encoding encoding = Encoding::GAMMA;

    FalseColor falseColor = FalseColor::OFF;
    /// The values, or for FalseColor::STOPS their logarithms to base 2, that the first and the last of the
    /// colours stand for.
    float falseColorFrom = 0.0f;
    float falseColorTo = 1.0f;

    /// Shows a pattern of squares behind transparent pixels instead of the colour of the surround.
    bool checkerboard = false;

    friend bool operator==(const DisplaySettings&, const DisplaySettings&) = default;
};

} // namespace Nolvex::Viewer
