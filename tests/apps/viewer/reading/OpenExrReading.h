// SPDX-License-Identifier: MIT
#pragma once

#include "apps/viewer/reading/ExrFiles.h"
#include "apps/viewer/reading/OpenExrReader.h"

#include <gtest/gtest.h>

namespace Nolvex::Tests {

inline Expected<Viewer::ReadImage, String> readLayer(ArrayView<const std::byte> file, std::size_t layer = 0)
{
    return Viewer::OpenExrReader().read(file, layer, {});
}

inline float channelOf(const Rgb& pixel, int channel)
{
    return channel == 0 ? pixel.r : channel == 1 ? pixel.g : channel == 2 ? pixel.b : pixel.a;
}

/// Expects that the channels of the image are these channels of the part.
inline void expectPixels(const Viewer::ReadImage& read, const ExrPart& part, const Array<int>& channels,
                         float tolerance = 0.0f)
{
    const int height = part.data.max.y - part.data.min.y + 1;
    ASSERT_EQ(read.image.descriptor().width, part.data.max.x - part.data.min.x + 1);
    ASSERT_EQ(read.image.descriptor().height, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < read.image.descriptor().width; ++x) {
            const Rgb pixel = read.image.getRgba(x, height - 1 - y);
            for (std::size_t i = 0; i < channels.size(); ++i) {
                const auto wanted =
                    static_cast<float>(part.value(x + part.data.min.x, y + part.data.min.y, channels[i]));
                ASSERT_NEAR(channelOf(pixel, static_cast<int>(i)), wanted, tolerance)
                    << x << ", " << y << ", channel " << i << ", compression " << part.compression;
            }
        }
    }
}

inline ExrPart partOf(const Array<ExrChannel>& channels)
{
    ExrPart part;
    part.channels = channels;
    return part;
}

/// Returns a text of the metadata.
inline String valueOf(const Viewer::ReadImage& read, const wchar_t* name)
{
    for (const Viewer::MetadataEntry& entry : read.metadata) {
        if (entry.name == name)
            return entry.value;
    }
    return L"(missing)";
}

} // namespace Nolvex::Tests
