// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace Nolvex::Viewer {

/// The pixels of a row or column of a picture that make one pixel of a view.
struct Sample
{
    int first = 0;    ///< the first pixel of the picture
    int count = 1;    ///< so many pixels from there
    float weight = 1; ///< of the pixels between the first and the last
    float firstWeight = 1;
    float lastWeight = 1; ///< not used if there is one pixel only

    /// The weight of the pixel `first + index`. All weights add up to 1.
    float weightOf(int index) const
    {
        if (index == 0)
            return firstWeight;
        return index == count - 1 ? lastWeight : weight;
    }
};

/// How the pixels of a view are made from those of a picture in one direction.
class AxisSampling
{
public:
    /// A picture of `size` pixels begins at the place `origin` of the view. `scale` is the length in the view
    /// of one pixel of the picture. `viewFirst` and `viewEnd` limit the part of the view.
    struct Layout
    {
        int size = 0;
        double scale = 1.0;
        double origin = 0.0;
        int viewFirst = 0;
        int viewEnd = 0;
    };

    /// Each pixel of the view shows the pixel of the picture that lies at its middle.
    static AxisSampling picked(const Layout& layout);

    /// Each pixel of the view shows the average of the part of the picture that it covers. The samples count
    /// the pixels of a reduced copy, each of which stands for 2^shift pixels of the picture.
    static AxisSampling averaged(const Layout& layout, int shift);

    /// The pixels of the view that show the picture. A picture that is thinner than a pixel of the view
    /// takes one pixel.
    int first() const { return m_first; }

    int end() const { return m_first + count(); }

    int count() const { return static_cast<int>(m_samples.size()); }

    /// The sample for the pixel of the view `first() + index`.
    const Sample& sample(int index) const { return m_samples[static_cast<std::size_t>(index)]; }

    // The pixels of the picture that take part.

    int sourceFirst() const { return m_samples.front().first; }

    int sourceEnd() const { return m_samples.back().first + m_samples.back().count; }

    /// The largest number of pixels in one sample.
    int maxCount() const;

private:
    explicit AxisSampling(const Layout& layout);

    int m_first;
    std::vector<Sample> m_samples;
};

} // namespace Nolvex::Viewer
