// SPDX-License-Identifier: MIT
#include "apps/viewer/view/PictureRenderer.h"

#include "NolvexLibImage/pixels/Conversions.h"
#include "apps/viewer/RowBands.h"
#include "apps/viewer/platform/PixelRows.h"
#include "apps/viewer/view/AxisSampling.h"
#include "apps/viewer/view/Development.h"
#include "apps/viewer/view/Pyramid.h"
#include "apps/viewer/view/ScreenEncoder.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace Nolvex::Viewer {

namespace {

using Platform::PixelRows;

constexpr int COLOUR_BYTES = 3;

using PixelRow = std::vector<Rgb>;
using Bytes = std::vector<std::uint8_t>;

std::size_t sizeOf(int count)
{
    return static_cast<std::size_t>(count);
}

std::uint32_t packed(std::uint32_t red, std::uint32_t green, std::uint32_t blue)
{
    return red << 16 | green << 8 | blue;
}

// The mean of opaque pixels may be a little less than 1.
bool areOpaque(const PixelRow& pixels)
{
    constexpr float MIN_ALPHA = 254.5f / 255.0f;
    bool areAll = true;
    // The loop ends at no pixel before the last, so that the compiler can use the vector instructions.
    for (const Rgb& pixel : pixels)
        areAll &= pixel.a >= MIN_ALPHA;
    return areAll;
}

// The colours behind transparent pixels, as they are before the curve.
std::array<Rgb, 2> valuesOf(const std::array<RgbBytes, 2>& colors, const ScreenCurve& curve)
{
    const auto valueOf = [&curve](std::uint8_t byte) {
        return curve.before(static_cast<float>(byte) / 255.0f);
    };
    std::array<Rgb, 2> values;
    for (std::size_t i = 0; i < colors.size(); ++i)
        values[i] = {valueOf(colors[i].r), valueOf(colors[i].g), valueOf(colors[i].b), 1.0f};
    return values;
}

void pack(const std::uint8_t* colours, std::uint32_t* to, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i, colours += COLOUR_BYTES)
        to[i] = packed(colours[0], colours[1], colours[2]);
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

// Enlarges a copy of the image.
Plan makeDraft(const Pyramid::Level& level, AxisSampling::Layout across, AxisSampling::Layout down)
{
    across.size = level.width;
    down.size = level.height;
    for (AxisSampling::Layout* const layout : {&across, &down})
        layout->scale = std::ldexp(layout->scale, level.shift);
    return {&level, AxisSampling::picked(across), AxisSampling::picked(down), false};
}

constexpr double MAX_SCALE_OF_COPIES = 0.5;

Plan makePlan(const ShownImage& shown, const wxRect& clip)
{
    const ImageDescriptor& size = shown.image.descriptor();
    const AxisSampling::Layout across{size.width, shown.scale, shown.origin.x, clip.x, clip.x + clip.width};
    const AxisSampling::Layout down{size.height, shown.scale, shown.origin.y, clip.y, clip.y + clip.height};
    if (shown.pyramid != nullptr && shown.scale > MAX_SCALE_OF_COPIES && shown.scale < 1.0) {
        if (const Pyramid::Level* const largest = shown.pyramid->levelFor(MAX_SCALE_OF_COPIES))
            return makeDraft(*largest, across, down);
    }
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

    // Copies a row, which will not be needed again.
    void read(int y, Rgb* pixels) const
    {
        if (m_level != nullptr)
            std::copy_n(m_level->row(y) + m_first, m_count, pixels);
        else
            readPixels(m_image, {m_first, y}, pixels, sizeOf(m_count));
    }

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
    std::array<Rgb, 2> behind; // the colours of the backdrop before the curve
    const Plan& plan;
    const Development& development;
    const ScreenEncoder& encoder;
    const PixelRows& rows;
};

// Draws rows one after the other, on one thread.
class RowDrawer
{
public:
    explicit RowDrawer(const Job& job)
        : m_job(job),
          m_plan(job.plan),
          m_rows(job.shown.image, job.plan),
          m_enlarged(job.plan.isEnlarged()),
          m_pixels(sizeOf(m_enlarged ? m_rows.count() : job.plan.across.count())),
          m_sums(m_plan.isAveraged ? sizeOf(m_rows.count()) : 0),
          m_laidOver(m_enlarged && job.development.isTransparent() ? m_pixels.size() : 0),
          m_colours(m_pixels.size() * COLOUR_BYTES)
    {
        // Divisions of each pixel's place would take longer than everything else.
        for (int x = 0; x < m_plan.across.count() && hasPattern(); ++x)
            m_squares.push_back(
                static_cast<std::uint8_t>(job.backdrop.squareAt(m_plan.across.first() + x, 0)));
        for (auto& packed : m_packed)
            packed.resize(m_enlarged ? m_pixels.size() : 0);
    }

    void draw(int index)
    {
        const int y = m_plan.down.first() + index;
        const Sample& sample = m_plan.down.sample(index);
        std::uint32_t* const to = m_job.rows.row(y) + m_plan.across.first();
        if (m_enlarged) {
            repeat(sample.first, y, to);
            return;
        }
        if (m_plan.isAveraged)
            average(sample);
        else
            pick(sample.first);
        develop();
        if (!m_opaque)
            layOver(y);
        encode(m_pixels, to);
    }

private:
    // Many pictures have an alpha channel, but few have transparent pixels.
    void develop()
    {
        m_job.development.apply(m_pixels.data(), m_pixels.size());
        m_opaque = !m_job.development.isTransparent() || areOpaque(m_pixels);
    }

    void encode(const PixelRow& pixels, std::uint32_t* to)
    {
        m_job.encoder.encode(pixels.data(), m_colours.data(), pixels.size());
        pack(m_colours.data(), to, pixels.size());
    }

    // Shows each pixel of a row of the source as often as the scale demands.
    void repeat(int sourceY, int y, std::uint32_t* to)
    {
        if (m_sourceY != sourceY) {
            m_sourceY = sourceY;
            m_drawnRow = nullptr;
            m_rows.read(sourceY, m_pixels.data());
            encodeForRepeating();
        }
        if ((m_opaque || !hasPattern()) && m_drawnRow != nullptr) {
            std::copy_n(m_drawnRow, m_plan.across.count(), to);
            return;
        }
        if (m_opaque || !hasPattern()) {
            const std::uint32_t* const packed = m_packed[0].data();
            for (int x = 0; x < m_plan.across.count(); ++x)
                to[x] = packed[sourceIndex(x)];
        } else {
            const std::size_t rowSquare = m_job.backdrop.squareAt(0, y);
            for (int x = 0; x < m_plan.across.count(); ++x)
                to[x] = m_packed[m_squares[sizeOf(x)] ^ rowSquare][sourceIndex(x)];
        }
        m_drawnRow = to;
    }

    // Transparent pixels are laid over each of the colours that may be behind them.
    void encodeForRepeating()
    {
        develop();
        if (m_opaque) {
            encode(m_pixels, m_packed[0].data());
            return;
        }
        const std::size_t squares = hasPattern() ? m_packed.size() : 1;
        for (std::size_t square = 0; square < squares; ++square) {
            std::transform(m_pixels.begin(), m_pixels.end(), m_laidOver.begin(), [&](const Rgb& pixel) {
                return over(pixel, m_job.shown.alpha, m_job.behind[square]);
            });
            encode(m_laidOver, m_packed[square].data());
        }
    }

    // Takes single pixels: of a reduced image only some are shown.
    void pick(int sourceY)
    {
        const AxisSampling& across = m_plan.across;
        if (m_rows.count() == across.count()) {
            m_rows.read(sourceY, m_pixels.data());
            return;
        }
        for (int x = 0; x < across.count(); ++x)
            readPixels(m_job.shown.image, {across.sample(x).first, sourceY}, &m_pixels[sizeOf(x)], 1);
    }

    void average(const Sample& sample)
    {
        const Rgb* const sums = sample.count == 1 ? m_rows.row(sample.first) : addRows(sample);
        const AxisSampling& across = m_plan.across;
        for (int x = 0; x < across.count(); ++x) {
            const Sample& part = across.sample(x);
            m_pixels[sizeOf(x)] = averageOf(part, sums + (part.first - m_rows.first()));
        }
    }

    static Rgb averageOf(const Sample& sample, const Rgb* source)
    {
        switch (sample.count) {
        case 1:
            return source[0];
        case 2:
            return source[0] * sample.firstWeight + source[1] * sample.lastWeight;
        case 3:
            return source[0] * sample.firstWeight + source[1] * sample.weight + source[2] * sample.lastWeight;
        default:
            break;
        }
        Rgb sum = source[0] * sample.firstWeight;
        for (int i = 1; i < sample.count; ++i)
            sum = sum + source[i] * sample.weightOf(i);
        return sum;
    }

    const Rgb* addRows(const Sample& sample)
    {
        const std::size_t count = m_sums.size();
        Rgb* const sums = m_sums.data();
        const Rgb* const first = m_rows.row(sample.first);
        const Rgb* const second = m_rows.row(sample.first + 1);
        const float weight = sample.weightOf(1);
        for (std::size_t x = 0; x < count; ++x)
            sums[x] = first[x] * sample.firstWeight + second[x] * weight;
        for (int i = 2; i < sample.count; ++i)
            addRow(m_rows.row(sample.first + i), sample.weightOf(i));
        return sums;
    }

    void addRow(const Rgb* row, float weight)
    {
        Rgb* const sums = m_sums.data();
        for (std::size_t x = 0; x < m_sums.size(); ++x)
            sums[x] = sums[x] + row[x] * weight;
    }

    // Adds what lies behind the pixels of a row of the view.
    void layOver(int y)
    {
        const std::size_t rowSquare = hasPattern() ? m_job.backdrop.squareAt(0, y) : 0;
        for (std::size_t x = 0; x < m_pixels.size(); ++x) {
            const std::size_t square = hasPattern() ? m_squares[x] ^ rowSquare : 0;
            m_pixels[x] = over(m_pixels[x], m_job.shown.alpha, m_job.behind[square]);
        }
    }

    bool hasPattern() const { return m_job.shown.settings.checkerboard; }

    std::size_t sourceIndex(int x) const { return sizeOf(m_plan.across.sample(x).first - m_rows.first()); }

    const Job& m_job;
    const Plan& m_plan;
    SourceRows m_rows;
    bool m_enlarged;
    PixelRow m_pixels; // of the view, or of the source if the image is enlarged
    PixelRow m_sums;
    std::vector<std::uint8_t> m_squares; // which square of the pattern lies in each column of the row 0
    PixelRow m_laidOver;                 // m_pixels of an enlarged image over a colour of the backdrop
    Bytes m_colours;
    // The row m_sourceY of an enlarged image, over each of the colours of the backdrop if it is transparent.
    std::array<std::vector<std::uint32_t>, 2> m_packed;
    bool m_opaque = true; // all of m_pixels
    int m_sourceY = -1;
    const std::uint32_t* m_drawnRow = nullptr; // a row of the view that shows m_sourceY
};

} // namespace

std::array<RgbBytes, 2> Backdrop::colors(bool isChecked) const
{
    if (isChecked)
        return {LIGHT_CHECK, DARK_CHECK};
    return {surround, surround};
}

std::size_t Backdrop::squareAt(int x, int y) const
{
    return static_cast<std::size_t>((x / checkLength + y / checkLength) % 2);
}

void drawImage(const ShownImage& shown, const Backdrop& backdrop, const wxRect& clip, const PixelRows& rows)
{
    const Plan plan = makePlan(shown, clip.Intersect(wxRect(rows.size())));
    if (plan.area().IsEmpty())
        return;
    const Development development(shown.image.descriptor(), shown.settings);
    const ScreenEncoder encoder(development.curve(), sizeOf(plan.across.count()) * sizeOf(plan.down.count()));
    const std::array<Rgb, 2> behind =
        valuesOf(backdrop.colors(shown.settings.checkerboard), development.curve());
    const Job job{shown, backdrop, behind, plan, development, encoder, rows};
    runInBands(plan.down.count(), [&](int first, int end) {
        RowDrawer drawer(job);
        for (int index = first; index < end; ++index)
            drawer.draw(index);
    });
}

wxRect drawnArea(const ShownImage& shown, const wxRect& clip)
{
    return makePlan(shown, clip).area();
}

void fillWith(const RgbBytes& color, const wxRect& rect, const PixelRows& rows)
{
    const wxRect area = rect.Intersect(wxRect(rows.size()));
    if (area.IsEmpty())
        return;
    for (int y = area.y; y < area.y + area.height; ++y)
        std::fill_n(rows.row(y) + area.x, area.width, packed(color.r, color.g, color.b));
}

} // namespace Nolvex::Viewer
