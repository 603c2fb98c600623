// SPDX-License-Identifier: MIT
#include "apps/viewer/view/Pyramid.h"

#include "apps/viewer/RowBands.h"
#include "apps/viewer/view/Development.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <system_error>

namespace Nolvex::Viewer {

namespace {

int halved(int size, int times)
{
    return static_cast<int>((std::int64_t(size) + (std::int64_t(1) << times) - 1) >> times);
}

void addRow(const Rgb* from, Rgb* sums, int count)
{
    for (int x = 0; x < count; ++x)
        sums[x] = sums[x] + from[x];
}

// Adds up groups of 2^shift neighbours of a row, the last of which may be smaller, and divides by their
// number and the number of rows.
void averageGroups(const Rgb* sums, int count, int shift, int rows, Rgb* averages)
{
    const int group = 1 << shift;
    for (int first = 0; first < count; first += group) {
        const int members = std::min(group, count - first);
        Rgb sum = sums[first];
        for (int x = first + 1; x < first + members; ++x)
            sum = sum + sums[x];
        *averages++ = sum * (1.0f / static_cast<float>(members * rows));
    }
}

} // namespace

void Pyramid::FreeMemory::operator()(Rgb* memory) const
{
    std::free(memory); // NOLINT(cppcoreguidelines-no-malloc): pixels that a vector would clear first
}

Pyramid::Pyramid(const Image& image, std::size_t maxLevelBytes) : m_image(image)
{
    plan(maxLevelBytes);
    const ImageDescriptor& size = image.descriptor();
    if (static_cast<std::size_t>(size.width) * size.height <= MAX_PIXELS_AT_ONCE) {
        make();
        return;
    }
    try {
        m_work = std::async(std::launch::async, [this] { make(); });
    } catch (const std::system_error&) {
        make(); // no thread can be had
    }
}

Pyramid::~Pyramid()
{
    m_cancelled = true;
    if (m_work.valid())
        m_work.wait();
}

void Pyramid::wait() const
{
    if (m_work.valid())
        m_work.wait();
}

void Pyramid::plan(std::size_t maxLevelBytes)
{
    const ImageDescriptor& size = m_image.descriptor();
    for (int shift = 1; std::max(size.width, size.height) >> (shift - 1) > 1; ++shift) {
        Level level{shift, halved(size.width, shift), halved(size.height, shift), nullptr};
        if (level.byteCount() > maxLevelBytes)
            continue;
        m_byteCount += level.byteCount();
        m_levels.push_back(std::move(level));
    }
}

// Without enough memory there are no copies, and the view shows single pixels of the image.
void Pyramid::make()
{
    try {
        const Level* previous = nullptr;
        for (Level& level : m_levels) {
            // NOLINTNEXTLINE(cppcoreguidelines-no-malloc): see FreeMemory
            level.pixels.reset(static_cast<Rgb*>(std::malloc(level.byteCount())));
            if (!level.pixels)
                throw std::bad_alloc();
            if (previous != nullptr)
                reduceLevel(*previous, level);
            else
                reduceImage(level);
            previous = &level;
        }
    } catch (const std::exception&) {
        m_levels.clear();
    }
    m_ready = true;
}

void Pyramid::reduceImage(Level& level) const
{
    const ImageDescriptor& size = m_image.descriptor();
    const auto width = static_cast<std::size_t>(size.width);
    runInBands(level.height, [&](int first, int end) {
        std::vector<Rgb> row(width);
        std::vector<Rgb> sums(width);
        for (int y = first; y < end && !m_cancelled; ++y) {
            const int top = y << level.shift;
            const int rows = std::min(1 << level.shift, size.height - top);
            readPixels(m_image, {0, top}, sums.data(), width);
            for (int i = 1; i < rows; ++i) {
                readPixels(m_image, {0, top + i}, row.data(), width);
                addRow(row.data(), sums.data(), size.width);
            }
            averageGroups(sums.data(), size.width, level.shift, rows, level.row(y));
        }
    });
}

void Pyramid::reduceLevel(const Level& from, Level& level) const
{
    runInBands(level.height, [&](int first, int end) {
        std::vector<Rgb> sums(static_cast<std::size_t>(from.width));
        for (int y = first; y < end && !m_cancelled; ++y) {
            const int rows = std::min(2, from.height - 2 * y);
            std::copy_n(from.row(2 * y), from.width, sums.data());
            if (rows == 2)
                addRow(from.row(2 * y + 1), sums.data(), from.width);
            averageGroups(sums.data(), from.width, 1, rows, level.row(y));
        }
    });
}

const Pyramid::Level* Pyramid::levelFor(double scale) const
{
    if (!m_ready || m_levels.empty() || !(scale > 0.0))
        return nullptr;
    constexpr double INEXACTNESS = 1e-9; // of a scale that is meant to be a power of two
    const int wanted = static_cast<int>(std::floor(-std::log2(scale) + INEXACTNESS));
    const int smallest = m_levels.front().shift;
    // Of a huge image the wanted copy may have been left out. The next one, a little too coarse, is good
    // enough, since averages of the image itself would take too long.
    if (wanted < std::max(1, smallest - 1))
        return nullptr;
    const int index = std::clamp(wanted - smallest, 0, static_cast<int>(m_levels.size()) - 1);
    return &m_levels[static_cast<std::size_t>(index)];
}

} // namespace Nolvex::Viewer
