// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Pixel.h"
#include "NolvexLib/String.h"
#include "NolvexLibImage/Image.h"
#include "apps/viewer/reading/ReadImage.h"

#include <cstddef>
#include <memory>

namespace Nolvex::Viewer {

class LayeredFile;

/// The viewer's document: the image in the format and gamma of its source, its name, and what its file tells
/// about it. A picture shows one layer of its file; the same file's other layers are pictures of their own.
/// The window, the clipboard and every tool share the same object, which never changes after its
/// construction.
class Picture
{
public:
    /// A picture that is not from a file.
    explicit Picture(String name, Image image, AlphaKind alpha = AlphaKind::STRAIGHT);

    /// A layer of a file. Only a file with several layers is kept, since there is nothing more to read from
    /// the others.
    Picture(String name, ReadImage read, const std::shared_ptr<const LayeredFile>& file, std::size_t layer);

    const String& name() const { return m_name; }

    const Image& image() const { return m_content->image; }

    /// What the colours stand for if the image has alpha.
    AlphaKind alpha() const { return m_content->alpha; }

    bool hasAlpha() const { return Image::getPixelFormatChannelCount(image().descriptor().format) == 4; }

    Pixel size() const { return {image().descriptor().width, image().descriptor().height}; }

    /// The place of the image's top left pixel in the frame, which is (0, 0) unless a renderer has written
    /// more or less than the frame.
    Pixel origin() const { return m_content->origin; }

    Pixel frameSize() const { return m_content->frameSize.value_or(size()); }

    /// One name for each channel of the image.
    const Array<String>& channels() const { return m_layers[m_layer].channels; }

    /// The layers of the file. At least one, the name of which is empty if there is only one.
    const Array<PictureLayer>& layers() const { return m_layers; }

    /// The shown one of the layers.
    std::size_t layer() const { return m_layer; }

    /// The file with the other layers, or null if there are none.
    const std::shared_ptr<const LayeredFile>& file() const { return m_file; }

    const Array<String>& omissions() const { return m_content->omissions; }

    const Array<MetadataEntry>& metadata() const { return m_content->metadata; }

    /// Null if there is nothing that a writer of the same format could keep.
    const FormatMetadata* formatMetadata() const { return m_content->formatMetadata.get(); }

    /// Returns the same picture with another name. Both share the image.
    std::shared_ptr<const Picture> named(String name) const;

    /// Returns the size as text, such as "640 x 480", with a multiplication sign.
    String sizeText() const;

private:
    String m_name;
    std::shared_ptr<const ReadImage> m_content;
    Array<PictureLayer> m_layers;
    std::size_t m_layer = 0;
    std::shared_ptr<const LayeredFile> m_file;
};

/// Null stands for no picture.
using SharedPicture = std::shared_ptr<const Picture>;

} // namespace Nolvex::Viewer
