// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Expected.h"
#include "NolvexLib/String.h"
#include "apps/viewer/Picture.h"
#include "apps/viewer/Progress.h"

#include <cstdint>

namespace Nolvex::Viewer {

/// How the difference of a value from the value of the reference is measured.
enum class DifferenceMeasure
{
    SIGNED,     ///< value - reference
    MAGNITUDE,  ///< |value - reference|
    SQUARED,    ///< (value - reference)^2
    PROPORTION, ///< |value - reference| / (|reference| + 0.01), which stays finite where the reference is
                ///< black
};

/// What is different between two pictures.
struct PictureDifference
{
    /// The measured difference of each pixel that both pictures have, in the place of these pixels in the
    /// frame.
    SharedPicture picture;
    /// The mean of the measure over all pixels and colour channels with finite values.
    double mean = 0.0;
    /// The peak signal-to-noise ratio in decibels: 10 log10(1 / mean squared difference), 1 being the peak.
    /// Infinite if there is no difference. This and the mean are NaN if no pixel is finite.
    double psnr = 0.0;
    /// The number of pixels left out of the means because they are infinite or NaN in one of the pictures.
    std::int64_t notFiniteCount = 0;
};

/// Compares a picture with a reference of the same size or another. The stored values are compared if both
/// have the same gamma, and linear light otherwise. If the colours of one are multiplied by alpha and those
/// of the other are not, they are multiplied before the comparison. Alpha is not compared. The error is a
/// sentence for the user. Any thread may call the function.
Expected<PictureDifference, String> differenceOf(const Picture& picture, const Picture& reference,
                                                 DifferenceMeasure measure, const Progress& progress);

} // namespace Nolvex::Viewer
