// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Expected.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/String.h"

#include <cstddef>
#include <cstdint>

namespace Nolvex::Viewer {

/// The header of a PSD or PSB file, and the data of its merged image. Each channel is a plane of rows from
/// top to bottom, whose numbers have their upper byte first.
class PsdFile
{
public:
    static bool knows(ArrayView<const std::byte> bytes);

    /// Reads the header. The error is the rest of a sentence about the file.
    static Expected<PsdFile, String> open(ArrayView<const std::byte> bytes);

    std::int32_t width() const { return m_width; }

    std::int32_t height() const { return m_height; }

    int channels() const { return m_channels; }

    int bits() const { return m_bits; }

    bool isGrey() const { return m_isGrey; }

    /// Returns whether the channel after the colours is the transparency of the layers. The colours are mixed
    /// with white then.
    bool hasMergedTransparency() const { return m_hasMergedTransparency; }

    int layerCount() const { return m_layerCount; }

    std::size_t rowBytes() const { return static_cast<std::size_t>(m_width) * (m_bits / BYTE_BITS); }

    /// Returns whether the file is long enough for the image.
    bool fits() const;

    /// Reads the next row into memory for rowBytes(). All rows of a channel come before the next channel.
    /// Returns false if the data are damaged or end.
    bool takeRow(ArrayView<std::byte> row);

private:
    class Header;

    static constexpr int BYTE_BITS = 8;

    PsdFile() = default;
    Optional<String> takeHeader(Header& header); // returns why the file cannot be read
    void takeLayers(Header& header);
    static bool unpackRow(ArrayView<const std::byte> packed, ArrayView<std::byte> row);

    std::int32_t m_width = 0;
    std::int32_t m_height = 0;
    int m_channels = 0;
    int m_bits = 0;
    int m_layerCount = 0;
    bool m_isLarge = false; // a PSB file, in which lengths are longer
    bool m_isGrey = false;
    bool m_isPacked = false;
    bool m_hasMergedTransparency = false;
    ArrayView<const std::byte> m_packedLengths; // of the rows that have not been taken
    ArrayView<const std::byte> m_data;          // the same
};

} // namespace Nolvex::Viewer
