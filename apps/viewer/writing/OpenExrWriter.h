// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Optional.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/widgets/ImageSaveSettings.h"
#include "apps/viewer/Picture.h"
#include "apps/viewer/Progress.h"

#include <iosfwd>

namespace Nolvex::Viewer {

/// Writes an EXR file of one part with the channels R, G, B and, if wanted, A: halves, or floats if the
/// settings ask for 32 bits. The values are linear light, multiplied by alpha, and
/// compressed without loss (ZIP). The picture keeps its place in the frame and, if it is from an EXR file,
/// the attributes that still hold. The settings count
/// as FLT16_LINEAR_RGB if they ask for integers, which the format does not have. Returns the reason for a
/// failure, as the rest of a sentence. If the progress stops the writing, the stream holds a part of the
/// file.
Optional<String> writeOpenExr(std::iostream& stream, const Picture& picture,
                              const Wx::ImageSaveSettings& settings, const Progress& progress);

} // namespace Nolvex::Viewer
