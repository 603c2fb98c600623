// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Expected.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/decoding/DibHeader.h"

namespace Nolvex::Decoding {

/// The BMP file written anew with 24 bits a pixel, or 32 where it has alpha, and without compression. For
/// files with run-length encoding, with 16 bits a pixel or with bit fields, whose pixels start at `start`.
/// The error is a part of a sentence: "it ...".
Expected<Array<std::byte>, String> toPlainBmp(ArrayView<const std::byte> file, const DibHeader& header,
                                              std::size_t start);

} // namespace Nolvex::Decoding
