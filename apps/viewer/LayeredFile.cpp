// SPDX-License-Identifier: MIT
#include "apps/viewer/LayeredFile.h"

#include "apps/viewer/reading/PictureReaders.h"

#include <utility>

namespace Nolvex::Viewer {

LayeredFile::LayeredFile(Array<std::byte> content, const PictureReader& reader, Array<PictureLayer> layers)
    : m_content(std::move(content)), m_reader(reader), m_layers(std::move(layers))
{}

Expected<std::shared_ptr<const LayeredFile>, String> LayeredFile::open(Array<std::byte> content)
{
    const PictureReader& reader = readerFor(content);
    if (content.size() > reader.maxFileBytes())
        return Unexpected{String(L"it is larger than the files of its kind that can be read")};
    Expected<Array<PictureLayer>, String> layers = reader.layers(content);
    if (!layers)
        return Unexpected{layers.error()};
    if (layers->empty())
        return Unexpected{String(L"it holds no image")};
    return std::shared_ptr<const LayeredFile>(
        new LayeredFile(std::move(content), reader, std::move(*layers)));
}

Expected<ReadImage, String> LayeredFile::read(std::size_t layer, const ReadingProgress& progress) const
{
    return m_reader.read(m_content, layer, progress);
}

} // namespace Nolvex::Viewer
