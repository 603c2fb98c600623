// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Bucket.h"
#include "NolvexLib/Expected.h"
#include "NolvexLib/String.h"
#include "NolvexLibImage/Image.h"
#include "apps/viewer/AlphaKind.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace Nolvex::Viewer {

/// A picture that is put together from the rectangles that arrive.
///
/// The pixels of a picture that is complete are not kept twice: `takeImage` gives them away, and `lend`
/// returns access to them, of which the next rectangle makes a copy.
class ReceivedPicture
{
public:
    /// All pixels are zero. The error is a sentence.
    static Expected<ReceivedPicture, String> create(Pixel size, PixelFormat format, float gamma,
                                                    AlphaKind alpha = AlphaKind::STRAIGHT);

    const ImageDescriptor& descriptor() const { return m_descriptor; }

    AlphaKind alpha() const { return m_alpha; }

    Bucket bounds() const { return {{0, 0}, {m_descriptor.width, m_descriptor.height}}; }

    /// The memory that the pixels take.
    std::int64_t byteCount() const;

    /// Takes pixels in the format of the picture, the top row first and each channel in little-endian order.
    /// The area must be inside of the picture and not empty, and the pixels must fill it. Throws
    /// std::bad_alloc.
    void write(const Bucket& area, ArrayView<const std::byte> pixels);

    /// From 0 to 1, where 1 stands for a complete picture.
    float progress() const { return m_progress; }

    void setProgress(float progress);

    bool isComplete() const { return m_progress >= 1.0f; }

    /// Returns whether pixels have changed since the last `takeImage`, or there was none.
    bool hasNewPixels() const { return !m_changed.isEmpty(); }

    /// Returns whether the progress has changed since the last `noteTold`.
    bool hasNewProgress() const { return m_hasNewProgress; }

    /// The smallest rectangle that holds all new pixels.
    const Bucket& changedArea() const { return m_changed; }

    /// Returns the new state of the pixels. That of a complete picture must be lent back at once. Throws
    /// std::bad_alloc.
    Image takeImage();

    /// Returns whether the pixels were given away and not lent back.
    bool hasGivenPixels() const { return m_image.descriptor().width == 0 && !m_lent; }

    void lend(std::shared_ptr<const Image> image) { m_lent = std::move(image); }

    void noteTold() { m_hasNewProgress = false; }

private:
    ReceivedPicture(Image image, AlphaKind alpha);

    Image& writable();
    Image copy() const;

    ImageDescriptor m_descriptor;
    AlphaKind m_alpha;
    Image m_image;                       // of 0 x 0 pixels while they are given away
    std::shared_ptr<const Image> m_lent; // has the pixels that were given away
    bool m_isBlank = true;
    Bucket m_changed;
    float m_progress = 0.0f;
    bool m_hasNewProgress = true;
};

} // namespace Nolvex::Viewer
