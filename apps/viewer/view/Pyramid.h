// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/Rgb.h"
#include "NolvexLibImage/Image.h"

#include <atomic>
#include <cstddef>
#include <future>
#include <memory>
#include <vector>

namespace Nolvex::Viewer {

/// Reduced copies of an image, each half as wide and half as high as the one before. A view that shows the
/// image reduced averages a few pixels of the copy that is a little larger, instead of all pixels of the
/// image or of single ones, which would sparkle when the picture moves.
///
/// The pixels are averages of the values that the image stores. The average of an area with a NaN is NaN, so
/// that no such pixel gets lost.
class Pyramid : private Noncopyable
{
public:
    struct FreeMemory
    {
        void operator()(Rgb* memory) const;
    };

    /// One copy, with the top row first.
    struct Level
    {
        int shift = 0; ///< each pixel is the average of up to 2^shift x 2^shift pixels of the image
        int width = 0;
        int height = 0;
        std::unique_ptr<Rgb, FreeMemory> pixels;

        const Rgb* row(int y) const { return pixels.get() + static_cast<std::size_t>(y) * width; }

        Rgb* row(int y) { return pixels.get() + static_cast<std::size_t>(y) * width; }

        std::size_t byteCount() const { return static_cast<std::size_t>(width) * height * sizeof(Rgb); }
    };

    /// The most memory that the largest copy may take. All others take a third of it. Larger copies of huge
    /// images are left out.
    static constexpr std::size_t MAX_LEVEL_BYTES = std::size_t(256) << 20;

    /// Images of this many pixels are reduced at once, larger ones on a thread.
    static constexpr std::size_t MAX_PIXELS_AT_ONCE = std::size_t(2) << 20;

    /// Begins to make the copies. The image must outlive the object.
    explicit Pyramid(const Image& image, std::size_t maxLevelBytes = MAX_LEVEL_BYTES);

    /// Ends the thread.
    ~Pyramid();

    /// True when all copies are there. Until then there are none.
    bool isReady() const { return m_ready; }

    void wait() const;

    /// Returns the copy from which the image is to be shown at a scale, or null for the image itself.
    const Level* levelFor(double scale) const;

    /// The memory that the copies take, or will take.
    std::size_t byteCount() const { return m_byteCount; }

private:
    void plan(std::size_t maxLevelBytes);
    void make();
    void reduceImage(Level& level) const;
    void reduceLevel(const Level& from, Level& level) const;

    const Image& m_image;
    std::vector<Level> m_levels;
    std::size_t m_byteCount = 0;
    std::atomic<bool> m_ready = false;
    std::atomic<bool> m_cancelled = false;
    std::future<void> m_work;
};

} // namespace Nolvex::Viewer
