// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Optional.h"
#include "NolvexLib/String.h"
#include "apps/viewer/BackgroundTask.h"
#include "apps/viewer/Picture.h"
#include "apps/viewer/inspection/PictureStatistics.h"

#include <wx/panel.h>

namespace Nolvex::Wx {

class TextCtrl;

} // namespace Nolvex::Wx

namespace Nolvex::Viewer {

class HistogramView;

/// Tells about a picture: its histogram, its statistics, the numbers of a comparison and its metadata. The
/// pixels are looked at in the background, and only while the panel is shown. If another state of the same
/// picture comes meanwhile, the pixels are looked at once more after that.
class InformationPanel : public wxPanel
{
public:
    explicit InformationPanel(wxWindow* parent);
    ~InformationPanel() override;

    /// Tells about another picture, or another part of it, which counts rows from the top and lies within the
    /// picture. Null tells nothing.
    void setPicture(const SharedPicture& picture, const Optional<wxRect>& selection);

    /// Lines with the numbers of a comparison, or an empty text.
    void setComparison(const String& text);

    bool Show(bool show = true) override;

    /// Waits until everything is told. For tests.
    void finish();

    String text() const;

private:
    void update();
    void showText();

    HistogramView* m_histogram;
    Wx::TextCtrl* m_text;
    SharedPicture m_picture;
    Optional<wxRect> m_selection;
    Optional<PictureStatistics> m_statistics;
    String m_comparison;
    bool m_outdated = true;
    BackgroundTask<Optional<PictureStatistics>> m_task;
};

} // namespace Nolvex::Viewer
