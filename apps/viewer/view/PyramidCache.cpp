// SPDX-License-Identifier: MIT
#include "apps/viewer/view/PyramidCache.h"

#include <algorithm>
#include <numeric>

namespace Nolvex::Viewer {

std::shared_ptr<const Pyramid> PyramidCache::of(const SharedPicture& picture)
{
    letGo();
    const Image* const image = &picture->image();
    const auto found = std::ranges::find(m_entries, image, &Entry::image);
    if (found != m_entries.end()) {
        std::rotate(found, found + 1, m_entries.end());
        m_entries.back().picture = picture;
    } else {
        m_entries.push_back({picture, image, picture, std::make_shared<Pyramid>(*image)});
    }
    std::shared_ptr<const Pyramid> pyramid = m_entries.back().pyramid;
    letGo();
    return pyramid;
}

bool PyramidCache::isBusy() const
{
    return std::ranges::any_of(m_entries, [](const Entry& entry) { return !entry.pyramid->isReady(); });
}

void PyramidCache::letGo()
{
    for (Entry& entry : m_entries) {
        if (entry.pyramid->isReady())
            entry.used.reset();
    }
    std::erase_if(m_entries, [](const Entry& entry) { return entry.picture.expired(); });
    const auto bytes = [this] {
        return std::accumulate(
            m_entries.begin(), m_entries.end(), std::size_t(0),
            [](std::size_t sum, const Entry& entry) { return sum + entry.pyramid->byteCount(); });
    };
    while (m_entries.size() > 1 && bytes() > MAX_BYTES)
        m_entries.erase(m_entries.begin());
}

} // namespace Nolvex::Viewer
