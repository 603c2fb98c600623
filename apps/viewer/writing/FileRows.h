// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"

#include <wx/gdicmn.h>

#include <cstddef>
#include <cstdint>

namespace Nolvex::Viewer {

/// The rows of a picture as a file holds them: three colours for each pixel, and alpha if there are four
/// channels, as numbers in the byte order of this machine.
class FileRows : private Noncopyable
{
public:
    virtual ~FileRows() = default;

    virtual wxSize size() const = 0;

    virtual int channelCount() const = 0;

    virtual std::size_t channelBytes() const = 0;

    std::size_t rowBytes() const
    {
        return static_cast<std::size_t>(size().x) * static_cast<std::size_t>(channelCount()) * channelBytes();
    }

    /// Writes the row, counted from the top, to `destination`, which has room for rowBytes(). Fastest if the
    /// rows are asked for from the top to the bottom.
    virtual void encode(std::int32_t rowFromTop, std::byte* destination) = 0;
};

} // namespace Nolvex::Viewer
