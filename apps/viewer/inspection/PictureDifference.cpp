// SPDX-License-Identifier: MIT
#include "apps/viewer/inspection/PictureDifference.h"

#include "NolvexLibImage/pixels/Conversions.h"
#include "apps/viewer/Light.h"
#include "apps/viewer/RowBands.h"

#include <wx/gdicmn.h>

#include <atomic>
#include <cmath>
#include <limits>
#include <mutex>
#include <utility>
#include <vector>

namespace Nolvex::Viewer {

namespace {

constexpr float SMALLEST_REFERENCE = 0.01f;
constexpr int CHANNELS = 3;

wxRect areaOf(const Picture& picture)
{
    return {picture.origin().x, picture.origin().y, picture.size().x, picture.size().y};
}

template<DifferenceMeasure MEASURE>
float measured(float value, float reference)
{
    const float difference = value - reference;
    if constexpr (MEASURE == DifferenceMeasure::SIGNED)
        return difference;
    else if constexpr (MEASURE == DifferenceMeasure::MAGNITUDE)
        return std::abs(difference);
    else if constexpr (MEASURE == DifferenceMeasure::SQUARED)
        return difference * difference;
    else
        return std::abs(difference) / (std::abs(reference) + SMALLEST_REFERENCE);
}

// What the values of both pictures are made into before they are compared.
struct CommonForm
{
    bool isLight = false;
    bool isAssociated = false;
};

CommonForm commonFormOf(const Picture& picture, const Picture& reference)
{
    return {picture.image().descriptor().gamma != reference.image().descriptor().gamma,
            picture.hasAlpha() && reference.hasAlpha() && picture.alpha() != reference.alpha()};
}

// Reads rows of a picture in the coordinates of its frame.
class FrameRows
{
public:
    FrameRows(const Picture& picture, const CommonForm& form)
        : m_picture(picture),
          m_exponent(form.isLight ? lightExponent(picture.image().descriptor().gamma) : 1.0f),
          m_isDivided(picture.hasAlpha() && picture.alpha() == AlphaKind::ASSOCIATED && m_exponent != 1.0f),
          m_isMultiplied(m_isDivided || (form.isAssociated && picture.alpha() == AlphaKind::STRAIGHT))
    {}

    void read(int x, int y, std::vector<Rgb>& pixels) const
    {
        const Image& image = m_picture.image();
        const ImageDescriptor& descriptor = image.descriptor();
        const auto column = static_cast<std::size_t>(x - m_picture.origin().x);
        const std::byte* const row = image.row(descriptor.height - 1 - (y - m_picture.origin().y)).data();
        Pixels::toRgb(descriptor.format, row + column * Image::getPixelFormatByteCount(descriptor.format),
                      pixels.data(), pixels.size());
        if (m_exponent == 1.0f && !m_isMultiplied)
            return;
        for (Rgb& pixel : pixels)
            pixel = inCommonForm(pixel);
    }

private:
    // Only straight colours can be made into light. Light without alpha stays as it is.
    Rgb inCommonForm(Rgb pixel) const
    {
        const bool isMultiplied = m_isMultiplied && !(m_isDivided && pixel.a == 0.0f);
        if (m_isDivided)
            pixel = dividedByAlpha(pixel);
        for (float* channel : {&pixel.r, &pixel.g, &pixel.b})
            *channel = signedPower(*channel, m_exponent);
        return isMultiplied ? multipliedByAlpha(pixel) : pixel;
    }

    const Picture& m_picture;
    float m_exponent;
    bool m_isDivided;
    bool m_isMultiplied;
};

struct Sums
{
    double measured = 0.0;
    double squared = 0.0;
    std::int64_t finite = 0;
    std::int64_t notFinite = 0;

    Sums& operator+=(const Sums& other)
    {
        measured += other.measured;
        squared += other.squared;
        finite += other.finite;
        notFinite += other.notFinite;
        return *this;
    }
};

// Measures the differences of a row, writes them, three floats for each pixel, and sums them up.
template<DifferenceMeasure MEASURE>
void measureRow(const std::vector<Rgb>& values, const std::vector<Rgb>& references, float* to, Sums& sums)
{
    for (std::size_t i = 0; i < values.size(); ++i, to += CHANNELS) {
        const Rgb& value = values[i];
        const Rgb& reference = references[i];
        to[0] = measured<MEASURE>(value.r, reference.r);
        to[1] = measured<MEASURE>(value.g, reference.g);
        to[2] = measured<MEASURE>(value.b, reference.b);
        const double r = value.r - reference.r;
        const double g = value.g - reference.g;
        const double b = value.b - reference.b;
        const double squared = r * r + g * g + b * b;
        if (!std::isfinite(squared)) {
            ++sums.notFinite;
            continue;
        }
        sums.measured += double(to[0]) + double(to[1]) + double(to[2]);
        sums.squared += squared;
        ++sums.finite;
    }
}

using MeasureRow = void (*)(const std::vector<Rgb>&, const std::vector<Rgb>&, float*, Sums&);

MeasureRow measureOf(DifferenceMeasure measure)
{
    switch (measure) {
    case DifferenceMeasure::SIGNED:
        return measureRow<DifferenceMeasure::SIGNED>;
    case DifferenceMeasure::MAGNITUDE:
        return measureRow<DifferenceMeasure::MAGNITUDE>;
    case DifferenceMeasure::SQUARED:
        return measureRow<DifferenceMeasure::SQUARED>;
    case DifferenceMeasure::PROPORTION:
        break;
    }
    return measureRow<DifferenceMeasure::PROPORTION>;
}

double psnrOf(const Sums& sums)
{
    if (sums.finite == 0)
        return std::numeric_limits<double>::quiet_NaN();
    if (sums.squared <= 0.0)
        return std::numeric_limits<double>::infinity();
    return 10.0 * std::log10(double(sums.finite) * CHANNELS / sums.squared);
}

// Fills the image with the differences. Returns nothing if the progress stopped the work.
Optional<Sums> measureAll(Image& image, const wxRect& area, const FrameRows& values,
                          const FrameRows& references, MeasureRow measure, const Progress& progress)
{
    Sums all;
    std::mutex mutex;
    std::atomic<bool> isStopped = false;
    std::atomic<int> rowsDone = 0;
    runInBands(area.height, [&](int first, int end) {
        std::vector<Rgb> valueRow(static_cast<std::size_t>(area.width));
        std::vector<Rgb> referenceRow(valueRow.size());
        Sums sums;
        for (int y = first; y < end && !isStopped; ++y) {
            values.read(area.x, area.y + y, valueRow);
            references.read(area.x, area.y + y, referenceRow);
            measure(valueRow, referenceRow, reinterpret_cast<float*>(image.row(area.height - 1 - y).data()),
                    sums);
            ++rowsDone;
            // The progress is called by one thread alone.
            if (first == 0 && progress && !progress(float(rowsDone) / float(area.height)))
                isStopped = true;
        }
        const std::lock_guard lock(mutex);
        all += sums;
    });
    return isStopped ? Optional<Sums>() : all;
}

} // namespace

Expected<PictureDifference, String> differenceOf(const Picture& picture, const Picture& reference,
                                                 DifferenceMeasure measure, const Progress& progress)
{
    const wxRect area = areaOf(picture).Intersect(areaOf(reference));
    if (area.IsEmpty())
        return Unexpected{String(L"The picture and the reference have no pixel in common.")};
    const CommonForm form = commonFormOf(picture, reference);
    Expected<Image, String> image =
        Image::create(area.width, area.height, PixelFormat::FLOAT32_RGB,
                      form.isLight ? GAMMA_OF_LIGHT : picture.image().descriptor().gamma);
    if (!image)
        return Unexpected{image.error()};
    const Optional<Sums> sums =
        measureAll(*image, area, {picture, form}, {reference, form}, measureOf(measure), progress);
    if (!sums)
        return Unexpected{String(L"The comparison was stopped.")};
    PictureDifference difference;
    ReadImage content{std::move(*image)};
    content.origin = {area.x, area.y};
    content.frameSize = picture.frameSize();
    difference.picture = std::make_shared<const Picture>(picture.name() + L" \u2212 " + reference.name(),
                                                         std::move(content), nullptr, 0);
    const double count = double(sums->finite) * CHANNELS;
    difference.mean = count > 0.0 ? sums->measured / count : std::numeric_limits<double>::quiet_NaN();
    difference.psnr = psnrOf(*sums);
    difference.notFiniteCount = sums->notFinite;
    return difference;
}

} // namespace Nolvex::Viewer
