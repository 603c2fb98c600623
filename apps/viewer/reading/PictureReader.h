// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Expected.h"
#include "NolvexLib/String.h"
#include "apps/viewer/Light.h"
#include "apps/viewer/Progress.h"
#include "apps/viewer/reading/ReadImage.h"

#include <cstddef>
#include <cstdint>
#include <limits>

namespace Nolvex::Viewer {

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

    /// Returns whether a file that begins so may be for this reader.
    virtual bool mayKnow(ArrayView<const std::byte> beginning) const { return knows(beginning); }

    /// The size of the largest files that the reader reads.
    virtual std::uint64_t maxFileBytes() const { return std::numeric_limits<std::uint64_t>::max(); }

    /// Returns what the file holds, the main layer first. A reader of files that hold one image only need not
    /// implement this function, which then returns one layer without names.
    virtual Expected<Array<PictureLayer>, String> layers(ArrayView<const std::byte> file) const;

    /// Reads a layer by its place in layers().
    virtual Expected<ReadImage, String> read(ArrayView<const std::byte> file, std::size_t layer,
                                             const ReadingProgress& progress) const = 0;
};

} // namespace Nolvex::Viewer
