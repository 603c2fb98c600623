// SPDX-License-Identifier: MIT
#pragma once

#include "apps/viewer/Picture.h"
#include "apps/viewer/view/Pyramid.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace Nolvex::Viewer {

/// The reduced copies of the pictures that were shown last, so that stepping between pictures makes them only
/// once. Copies that were not needed for the longest time are thrown away when all of them take too much
/// memory.
class PyramidCache
{
public:
    static constexpr std::size_t MAX_BYTES = std::size_t(768) << 20;

    /// Returns the copies for a picture, the making of which may have just begun. Keeps the copies of this
    /// picture at least until the next call.
    std::shared_ptr<const Pyramid> of(const SharedPicture& picture);

    /// True while copies are being made on a thread.
    bool isBusy() const;

    /// The number of pictures with copies.
    std::size_t count() const { return m_entries.size(); }

private:
    struct Entry
    {
        std::weak_ptr<const Picture> picture;
        const Image* image; // which pictures of different names may share
        SharedPicture used; // keeps the image while the copies are made
        std::shared_ptr<Pyramid> pyramid;
    };

    void letGo();

    std::vector<Entry> m_entries; // the last one was used last
};

} // namespace Nolvex::Viewer
