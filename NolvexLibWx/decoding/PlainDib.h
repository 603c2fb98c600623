// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Expected.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/decoding/DibHeader.h"

namespace Nolvex::Decoding {

/// Returns the BMP file rewritten without compression, with 24 bits a pixel or, if it has alpha, 32. The file
/// must have run-length encoding, 16 bits a pixel or bit fields, and its pixels must begin at `start`. The
/// error is the rest of a sentence, "it ...".
Expected<Array<std::byte>, String> toPlainBmp(ArrayView<const std::byte> file, const DibHeader& header,
                                              std::size_t start);

} // namespace Nolvex::Decoding
