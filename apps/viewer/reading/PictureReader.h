// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Expected.h"
#include "NolvexLib/String.h"
#include "apps/viewer/Progress.h"
#include "apps/viewer/reading/ReadImage.h"

#include <cstddef>

namespace Nolvex::Viewer {

/// The gamma of images that hold linear light, and of those that are encoded for the display.
inline constexpr float LINEAR_GAMMA = 2.2f;
inline constexpr float DISPLAY_GAMMA = 1.0f;

/// Told while a picture is read.
using ReadingProgress = Progress;

/// Reads the pictures of one family of file formats. A reader has no state, and its functions may be called
/// on any thread.
///
/// A file may hold anything. A reader refuses what is damaged, before it allocates more memory than the bytes
/// of the file can stand for. The error is the rest of a sentence about the file, "it ...".
class PictureReader
{
public:
    virtual ~PictureReader() = default;

    /// The usual extensions of the files, without the dot.
    virtual Array<String> extensions() const = 0;

    /// Returns whether a file with this content is for this reader. Looks at the header alone.
    virtual bool knows(ArrayView<const std::byte> file) const = 0;

    /// Returns what the file holds, the main layer first. A reader of files that hold one image only need not
    /// implement this function, which then returns one layer without names.
    virtual Expected<Array<PictureLayer>, String> layers(ArrayView<const std::byte> file) const;

    /// Reads a layer by its place in layers().
    virtual Expected<ReadImage, String> read(ArrayView<const std::byte> file, std::size_t layer,
                                             const ReadingProgress& progress) const = 0;
};

} // namespace Nolvex::Viewer
