// SPDX-License-Identifier: MIT
#include "apps/viewer/view/PictureRenderer.h"

#include "NolvexLibImage/pixels/Conversions.h"
#include "apps/viewer/view/AxisSampling.h"
#include "apps/viewer/view/Development.h"
#include "apps/viewer/view/PixelCanvas.h"
#include "apps/viewer/view/Pyramid.h"
#include "apps/viewer/RowBands.h"
#include "apps/viewer/view/ScreenEncoder.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace Nolvex::Viewer {

namespace {

constexpr int COLOUR_BYTES = PixelCanvas::COLOUR_BYTES;
constexpr int OPAQUE = 255;

using PixelRow = std::vector<Rgb>;
using Bytes = std::vector<std::uint8_t>;

std::size_t sizeOf(int count)
{
    return static_cast<std::size_t>(count);
}

// The sampling of both directions, and the copy of the image that the samples count in.
struct Plan
{
    const Pyramid::Level* level; // null for the image itself
    AxisSampling across;
    AxisSampling down;
    bool isAveraged;

    // The pixels of the view that show the image
    wxRect area() const { return {across.first(), down.first(), across.count(), down.count()}; }

    // Enlarged pixels are made once, and repeated as bytes.
    bool isEnlarged() const { return across.sourceEnd() - across.sourceFirst() < across.count(); }
};

Plan makePlan(const ShownImage& shown, const wxRect& clip)
{
    const ImageDescriptor& size = shown.image.descriptor();
    const AxisSampling::Layout across{size.width, shown.scale, shown.origin.x, clip.x, clip.x + clip.width};
    const AxisSampling::Layout down{size.height, shown.scale, shown.origin.y, clip.y, clip.y + clip.height};
    const Pyramid::Level* level = shown.pyramid == nullptr ? nullptr : shown.pyramid->levelFor(shown.scale);
    // An average of more than a few pixels of the image itself would take too long.
    constexpr double MIN_SCALE_OF_AVERAGES = 0.25;
    const bool isAveraged =
        shown.scale < 1.0 &&
        (level != nullptr || shown.scale >= 0.5 ||
         (shown.pyramid != nullptr && shown.pyramid->isReady() && shown.scale > MIN_SCALE_OF_AVERAGES));
    const int shift = level == nullptr ? 0 : level->shift;
    if (isAveraged) {
        return {level, AxisSampling::averaged(across, shift), AxisSampling::averaged(down, shift), true};
    }
    return {nullptr, AxisSampling::picked(across), AxisSampling::picked(down), false};
}

// The rows of the image, or of a copy, as floats. Only the columns that take part are converted, and the rows
// that the next row of the view needs again are kept.
class SourceRows
{
public:
    SourceRows(const Image& image, const Plan& plan)
        : m_image(image),
          m_level(plan.level),
          m_first(plan.across.sourceFirst()),
          m_count(plan.across.sourceEnd() - m_first),
          m_kept(m_level == nullptr ? sizeOf(plan.down.maxCount()) + 1 : 0)
    {}

    const Rgb* row(int y)
    {
        if (m_level != nullptr)
            return m_level->row(y) + m_first;
        Kept& kept = m_kept[sizeOf(y) % m_kept.size()];
        if (kept.y != y) {
            kept.pixels.resize(sizeOf(m_count));
            readPixels(m_image, {m_first, y}, kept.pixels.data(), sizeOf(m_count));
            kept.y = y;
        }
        return kept.pixels.data();
    }

    int first() const { return m_first; }

    int count() const { return m_count; }

private:
    struct Kept
    {
        int y = -1;
        PixelRow pixels;
    };

    const Image& m_image;
    const Pyramid::Level* m_level;
    int m_first;
    int m_count;
    std::vector<Kept> m_kept;
};

// What all threads share.
struct Job
{
    const ShownImage& shown;
    const Backdrop& backdrop;
    const Plan& plan;
    const Development& development;
    const ScreenEncoder& encoder;
    PixelCanvas& canvas;
};

// Draws rows one after the other, on one thread.
class RowDrawer
{
public:
    explicit RowDrawer(const Job& job)
        : m_job(job),
          m_rows(job.shown.image, job.plan),
          m_pixels(sizeOf(job.plan.isEnlarged() ? m_rows.count() : job.plan.across.count())),
          m_sums(job.plan.isAveraged ? sizeOf(m_rows.count()) : 0),
          m_sourceColours(job.plan.isEnlarged() ? sizeOf(m_rows.count()) * COLOUR_BYTES : 0),
          m_sourceAlpha(job.plan.isEnlarged() && isTransparent() ? sizeOf(m_rows.count()) : 0),
          m_alpha(isTransparent() ? sizeOf(job.plan.across.count()) : 0)
    {}

    void draw(int index)
    {
        const Plan& plan = m_job.plan;
        const int y = plan.down.first() + index;
        std::uint8_t* const colours = m_job.canvas.row(y) + sizeOf(plan.across.first()) * COLOUR_BYTES;
        const Sample& sample = plan.down.sample(index);
        if (plan.isEnlarged()) {
            repeat(sample.first, colours);
        } else {
            if (plan.isAveraged)
                average(sample);
            else
                pick(sample.first);
            m_job.development.apply(m_pixels.data(), m_pixels.size());
            m_job.encoder.encode(m_pixels.data(), colours, orNull(m_alpha), m_pixels.size());
        }
        if (isTransparent())
            blend(y, colours);
        PixelCanvas::swapToNativeOrder(colours, plan.across.count());
    }

private:
    static std::uint8_t* orNull(Bytes& bytes) { return bytes.empty() ? nullptr : bytes.data(); }

    bool isTransparent() const { return m_job.development.isTransparent(); }

    void repeat(int sourceY, std::uint8_t* colours)
    {
        if (m_sourceY != sourceY) {
            std::copy_n(m_rows.row(sourceY), m_pixels.size(), m_pixels.data());
            m_job.development.apply(m_pixels.data(), m_pixels.size());
            m_job.encoder.encode(m_pixels.data(), m_sourceColours.data(), orNull(m_sourceAlpha),
                                 m_pixels.size());
            m_sourceY = sourceY;
        }
        const AxisSampling& across = m_job.plan.across;
        for (int x = 0; x < across.count(); ++x) {
            const std::size_t source = sizeOf(across.sample(x).first - m_rows.first());
            std::copy_n(&m_sourceColours[source * COLOUR_BYTES], COLOUR_BYTES, colours + x * COLOUR_BYTES);
            if (isTransparent())
                m_alpha[sizeOf(x)] = m_sourceAlpha[source];
        }
    }

    // Reads single pixels: of a reduced image only some are shown.
    void pick(int sourceY)
    {
        const AxisSampling& across = m_job.plan.across;
        if (m_rows.count() == across.count()) {
            std::copy_n(m_rows.row(sourceY), m_pixels.size(), m_pixels.data());
            return;
        }
        for (int x = 0; x < across.count(); ++x)
            readPixels(m_job.shown.image, {across.sample(x).first, sourceY}, &m_pixels[sizeOf(x)], 1);
    }

    void average(const Sample& sample)
    {
        const Rgb* const sums = sample.count == 1 ? m_rows.row(sample.first) : addRows(sample);
        const AxisSampling& across = m_job.plan.across;
        for (int x = 0; x < across.count(); ++x) {
            const Sample& part = across.sample(x);
            const Rgb* const source = sums + (part.first - m_rows.first());
            Rgb sum = part.count == 1 ? source[0] : source[0] * part.firstWeight;
            for (int i = 1; i < part.count; ++i)
                sum = sum + source[i] * part.weightOf(i);
            m_pixels[sizeOf(x)] = sum;
        }
    }

    const Rgb* addRows(const Sample& sample)
    {
        const std::size_t count = m_sums.size();
        const Rgb* row = m_rows.row(sample.first);
        for (std::size_t x = 0; x < count; ++x)
            m_sums[x] = row[x] * sample.firstWeight;
        for (int i = 1; i < sample.count; ++i) {
            row = m_rows.row(sample.first + i);
            const float weight = sample.weightOf(i);
            for (std::size_t x = 0; x < count; ++x)
                m_sums[x] = m_sums[x] + row[x] * weight;
        }
        return m_sums.data();
    }

    void blend(int y, std::uint8_t* colours) const
    {
        const bool isChecked = m_job.shown.settings.checkerboard;
        for (int x = 0; x < m_job.plan.across.count(); ++x, colours += COLOUR_BYTES) {
            const int alpha = m_alpha[sizeOf(x)];
            if (alpha == OPAQUE)
                continue;
            const RgbBytes behind = m_job.backdrop.colorAt(m_job.plan.across.first() + x, y, isChecked);
            const auto mixed = [alpha](int colour, int other) {
                return static_cast<std::uint8_t>((colour * alpha + other * (OPAQUE - alpha) + OPAQUE / 2) /
                                                 OPAQUE);
            };
            colours[0] = mixed(colours[0], behind.r);
            colours[1] = mixed(colours[1], behind.g);
            colours[2] = mixed(colours[2], behind.b);
        }
    }

    const Job& m_job;
    SourceRows m_rows;
    PixelRow m_pixels;
    PixelRow m_sums;
    Bytes m_sourceColours; // of the row m_sourceY of an enlarged image
    Bytes m_sourceAlpha;
    Bytes m_alpha;
    int m_sourceY = -1;
};

} // namespace

RgbBytes Backdrop::colorAt(int x, int y, bool isChecked) const
{
    if (!isChecked)
        return surround;
    return (x / checkLength + y / checkLength) % 2 == 0 ? LIGHT_CHECK : DARK_CHECK;
}

void drawImage(const ShownImage& shown, const Backdrop& backdrop, const wxRect& clip, PixelCanvas& canvas)
{
    const Plan plan = makePlan(shown, clip.Intersect(wxRect(canvas.size())));
    if (plan.area().IsEmpty())
        return;
    const Development development(shown.image.descriptor(), shown.settings);
    const ScreenEncoder encoder(development.curve(), sizeOf(plan.across.count()) * sizeOf(plan.down.count()));
    const Job job{shown, backdrop, plan, development, encoder, canvas};
    runInBands(plan.down.count(), [&](int first, int end) {
        RowDrawer drawer(job);
        for (int index = first; index < end; ++index)
            drawer.draw(index);
    });
}

void fillWith(const RgbBytes& color, const wxRect& rect, PixelCanvas& canvas)
{
    const wxRect area = rect.Intersect(wxRect(canvas.size()));
    if (area.IsEmpty())
        return;
    Bytes row(sizeOf(area.width) * COLOUR_BYTES);
    for (std::size_t i = 0; i < row.size(); i += COLOUR_BYTES) {
        row[i] = color.r;
        row[i + 1] = color.g;
        row[i + 2] = color.b;
    }
    PixelCanvas::swapToNativeOrder(row.data(), area.width);
    for (int y = area.y; y < area.y + area.height; ++y)
        std::memcpy(canvas.row(y) + sizeOf(area.x) * COLOUR_BYTES, row.data(), row.size());
}

} // namespace Nolvex::Viewer
