// SPDX-License-Identifier: MIT
#include "apps/viewer/inspection/HistogramView.h"

#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/widgets/GuiSkin.h"

#include <wx/bitmap.h>
#include <wx/dcbuffer.h>

#include <algorithm>
#include <cmath>

namespace Nolvex::Viewer {

namespace {

const wxSize MIN_VIEW_SIZE(200, 96);
constexpr std::size_t COLOURS = 3;
constexpr std::uint8_t DARK = 50;
constexpr std::uint8_t BRIGHT = 220;

using Columns = Array<std::int64_t>;

// Adds up the parts of a histogram that share a column, or spreads them over several columns.
Columns columnsOf(const ChannelStatistics& channel, int width)
{
    Columns columns(static_cast<std::size_t>(width));
    const std::size_t count = std::max(columns.size(), ChannelStatistics::BINS);
    for (std::size_t i = 0; i < count; ++i) {
        std::int64_t& column = columns[i * columns.size() / count];
        const std::int64_t bin = channel.histogram[i * ChannelStatistics::BINS / count];
        column = columns.size() > ChannelStatistics::BINS ? bin : column + bin;
    }
    return columns;
}

// Both ends hold what is black and what is beyond white, often most of the picture, and would make all else
// invisible.
std::int64_t highestInside(const Columns& columns)
{
    if (columns.size() < 3)
        return 0;
    return *std::max_element(columns.begin() + 1, columns.end() - 1);
}

int heightOf(std::int64_t count, std::int64_t highest, int height)
{
    if (count <= 0)
        return 0;
    const double share = std::sqrt(std::min(1.0, double(count) / double(std::max<std::int64_t>(1, highest))));
    return std::max(1, static_cast<int>(std::lround(share * height)));
}

// The numbers of the picture stand in the text below the histogram.
class HistogramAccount : public Wx::AccessibleControl
{
public:
    explicit HistogramAccount(const HistogramView& /*view*/) {}

    Wx::AccessibleRole role() const override { return Wx::AccessibleRole::IMAGE; }

    String name() const override { return L"Histogram"; }
};

} // namespace

wxImage drawHistogram(const PictureStatistics& statistics, const wxSize& size, const wxColour& background)
{
    wxImage picture(size.x, size.y, false);
    picture.SetRGB(wxRect(size), background.Red(), background.Green(), background.Blue());
    if (statistics.channels.empty())
        return picture;
    Array<Columns> columns;
    std::int64_t highest = 0;
    for (std::size_t i = 0; i < COLOURS; ++i) {
        // Grey is a colour in which all three are the same.
        columns.push_back(
            columnsOf(statistics.channels[statistics.channels.size() < COLOURS ? 0 : i], size.x));
        highest = std::max(highest, highestInside(columns.back()));
    }
    for (int x = 0; x < size.x; ++x) {
        int heights[COLOURS];
        for (std::size_t i = 0; i < COLOURS; ++i)
            heights[i] = heightOf(columns[i][static_cast<std::size_t>(x)], highest, size.y);
        const int top = *std::max_element(std::begin(heights), std::end(heights));
        for (int y = 0; y < top; ++y) {
            const auto channel = [&](std::size_t i) { return y < heights[i] ? BRIGHT : DARK; };
            picture.SetRGB(x, size.y - 1 - y, channel(0), channel(1), channel(2));
        }
    }
    return picture;
}

HistogramView::HistogramView(wxWindow* parent) : wxPanel(parent)
{
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    SetMinSize(Wx::scaleByDpi(MIN_VIEW_SIZE));
    Wx::describeAs<HistogramAccount>(*this);
    Bind(wxEVT_PAINT, &HistogramView::onPaint, this);
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        Refresh();
        event.Skip();
    });
}

void HistogramView::setStatistics(const Optional<PictureStatistics>& statistics)
{
    m_statistics = statistics;
    Refresh();
}

void HistogramView::onPaint(wxPaintEvent& /*event*/)
{
    wxAutoBufferedPaintDC dc(this);
    const wxColour background = Wx::toWxColour(Wx::GuiSkin::DEFAULT().darkBackground);
    dc.SetBackground(background);
    dc.Clear();
    const wxSize size = GetClientSize();
    if (m_statistics && size.x > 0 && size.y > 0)
        dc.DrawBitmap(wxBitmap(drawHistogram(*m_statistics, size, background)), 0, 0);
}

} // namespace Nolvex::Viewer
