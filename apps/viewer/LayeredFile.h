// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Expected.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/String.h"
#include "apps/viewer/reading/PictureReader.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace Nolvex::Viewer {

/// The content of a file and the layers in it, which can be read one by one. The object never changes, and
/// its functions may be called on any thread.
class LayeredFile : private Noncopyable
{
public:
    /// Reads the header of the file. The error is the rest of a sentence about the file.
    static Expected<std::shared_ptr<const LayeredFile>, String> open(Array<std::byte> content);

    /// The memory that the content of the file takes.
    std::uint64_t byteCount() const { return m_content.size(); }

    /// At least one layer, the main layer first.
    const Array<PictureLayer>& layers() const { return m_layers; }

    /// The error is the rest of a sentence about the file.
    Expected<ReadImage, String> read(std::size_t layer, const ReadingProgress& progress) const;

private:
    LayeredFile(Array<std::byte> content, const PictureReader& reader, Array<PictureLayer> layers);

    Array<std::byte> m_content;
    const PictureReader& m_reader;
    Array<PictureLayer> m_layers;
};

} // namespace Nolvex::Viewer
