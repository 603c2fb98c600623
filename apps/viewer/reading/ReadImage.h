// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/Pixel.h"
#include "NolvexLib/String.h"
#include "NolvexLibImage/Image.h"
#include "apps/viewer/AlphaKind.h"

#include <memory>

namespace Nolvex::Viewer {

/// A group of channels that belong together and are shown as one image.
struct PictureLayer
{
    /// Empty if the file holds one image only.
    String name;
    /// One name for each channel of the image, in the order of its pixel format.
    Array<String> channels{};

    /// Returns the name for the user. The channels tell what a layer without a name is.
    String label() const;

    friend bool operator==(const PictureLayer&, const PictureLayer&) = default;
};

/// Something that a file tells about its picture, as text for the user.
struct MetadataEntry
{
    String name;
    String value;

    friend bool operator==(const MetadataEntry&, const MetadataEntry&) = default;
};

/// What a file tells about its picture in a form that only its format knows, for a writer of the same format.
class FormatMetadata
{
public:
    virtual ~FormatMetadata() = default;
};

/// An image as a file holds it.
struct ReadImage
{
    Image image;
    /// What the file holds besides and the viewer does not show, each as a sentence.
    Array<String> omissions{};
    Array<MetadataEntry> metadata{};
    /// The place of the image's top left pixel in the frame. Renderers write pixels beyond the frame, or only
    /// a part of the frame.
    Pixel origin{0, 0};
    /// The size of the frame, or nullopt if the image fills the frame.
    Optional<Pixel> frameSize{};
    AlphaKind alpha = AlphaKind::STRAIGHT;
    /// Null if the format has none that can be kept.
    std::shared_ptr<const FormatMetadata> formatMetadata{};
};

} // namespace Nolvex::Viewer
