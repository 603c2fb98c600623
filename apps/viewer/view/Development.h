// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Pixel.h"
#include "NolvexLib/Rgb.h"
#include "NolvexLibImage/Image.h"
#include "apps/viewer/DisplaySettings.h"
#include "apps/viewer/view/ColorMap.h"
#include "apps/viewer/view/ScreenCurve.h"

#include <cstddef>

namespace Nolvex::Viewer {

/// Makes what the screen shows out of the pixels of an image, as the settings ask for.
///
/// Exposure multiplies the light by 2 to the power of the exposure. An image with the gamma 2.2 stores light.
/// The values of every other gamma g become light by the exponent 2.2 / g; they are multiplied by 2 to the
/// power of exposure * g / 2.2, which does the same to their light. Alpha has no exposure.
///
/// One channel is shown in grey and without transparency. Luminance weights the colours by 0.2126, 0.7152 and
/// 0.0722, the weights of ITU-R BT.709. Alpha is shown as it is, without the image's gamma.
///
/// Light is encoded by the gamma of the image or by the curve of sRGB. Values that are encoded for the screen
/// already stay as they are in both cases; with the linear encoding, it is their light that is shown.
///
/// False colour shows the light of the channel, with RGB that of the luminance, after the exposure.
class Development
{
public:
    Development(const ImageDescriptor& image, const DisplaySettings& settings);

    /// Changes pixels with the values of the image to pixels that only need to be encoded.
    void apply(Rgb* pixels, std::size_t count) const;

    /// The curve that encodes the changed pixels for the screen. What lies behind transparent pixels belongs
    /// before the curve: there the colours are added up as light, or as the encoded values that the image
    /// has.
    const ScreenCurve& curve() const { return m_curve; }

    /// True if the changed pixels have the image's transparency.
    bool isTransparent() const { return m_transparent; }

private:
    void applyFalseColor(Rgb* pixels, std::size_t count) const;
    void applyChannel(Rgb* pixels, std::size_t count) const;

    Channel m_channel;
    bool m_falseColor;
    bool m_transparent;
    float m_lightExponent; // makes light of the values of the image
    float m_factor;
    ScreenCurve m_curve;
    ColorMap m_map;
};

/// The values of one pixel.
struct PixelValues
{
    Rgb light; ///< as the image has them, in linear light
    Rgb shown; ///< encoded for the screen; beyond the range from 0 to 1 if the screen cannot show the values
};

/// Returns the weighted sum of the colours that is as bright as the pixel (ITU-R BT.709).
float luminance(const Rgb& pixel);

/// Reads `count` pixels of one row, from `start` on. Row 0 is the top row. All of them must lie within the
/// image.
void readPixels(const Image& image, const Pixel& start, Rgb* pixels, std::size_t count);

/// Returns the values of a pixel as they are stored, without a background. Row 0 is the top row, and the
/// position must lie within the image. Negative values are encoded like positive ones and keep their sign.
PixelValues developPixel(const Image& image, const DisplaySettings& settings, Pixel position);

} // namespace Nolvex::Viewer
