// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Optional.h"
#include "apps/viewer/inspection/PictureStatistics.h"

#include <wx/image.h>
#include <wx/panel.h>

namespace Nolvex::Viewer {

/// Returns a picture of the histograms of the colours, one above the other: where they overlap, their colours
/// add up. A column stands for one or more values, from the smallest at the left. The height grows with the
/// square root of the count, so that rare values can be seen, too. `background` fills the rest.
wxImage drawHistogram(const PictureStatistics& statistics, const wxSize& size, const wxColour& background);

/// Shows the histograms of a picture, in the colours of the default skin.
class HistogramView : public wxPanel
{
public:
    explicit HistogramView(wxWindow* parent);

    /// Nullopt shows the background alone.
    void setStatistics(const Optional<PictureStatistics>& statistics);

private:
    void onPaint(wxPaintEvent& event);

    Optional<PictureStatistics> m_statistics;
};

} // namespace Nolvex::Viewer
