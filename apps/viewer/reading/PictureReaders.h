// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/ArrayView.h"
#include "NolvexLib/String.h"
#include "apps/viewer/reading/PictureReader.h"

#include <cstddef>
#include <cstdint>

namespace Nolvex::Viewer {

/// Returns the reader for a file with this content. The last reader takes every file that no other reader
/// knows, so that there always is one.
const PictureReader& readerFor(ArrayView<const std::byte> file);

/// The readers know their files by so many bytes at the beginning.
inline constexpr std::size_t MAX_BEGINNING_BYTES = 4096;

/// Returns the size of the largest files with this beginning that can be read.
std::uint64_t maxFileBytesOf(ArrayView<const std::byte> beginning);

/// Returns the usual extensions of the files that can be read, without the dot.
Array<String> readableExtensions();

} // namespace Nolvex::Viewer
