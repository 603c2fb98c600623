// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"

#include <tiffio.h>

#include <cstddef>
#include <cstdint>
#include <memory>

namespace Nolvex::Viewer {

struct TiffCloser
{
    void operator()(TIFF* file) const { TIFFClose(file); }
};

using TiffHandle = std::unique_ptr<TIFF, TiffCloser>;

/// A TIFF file in memory that libtiff reads. Must not be moved while the handle is in use.
class TiffFile
{
public:
    explicit TiffFile(ArrayView<const std::byte> bytes);
    ~TiffFile();
    TiffFile(const TiffFile&) = delete;
    TiffFile& operator=(const TiffFile&) = delete;

    /// Null if libtiff does not take the file.
    TIFF* handle() const { return m_handle.get(); }

    /// Returns a number of the first directory, or the default that the format gives to it.
    std::uint32_t number(std::uint32_t tag) const;
    std::uint16_t shortNumber(std::uint16_t tag) const;

private:
    static tmsize_t readBytes(thandle_t self, void* to, tmsize_t count);
    static toff_t seekTo(thandle_t self, toff_t offset, int origin);
    static toff_t sizeOf(thandle_t self);

    ArrayView<const std::byte> m_bytes;
    std::uint64_t m_position = 0;
    TiffHandle m_handle;
};

} // namespace Nolvex::Viewer
