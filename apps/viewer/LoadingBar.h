// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Function.h"

#include <wx/panel.h>
#include <wx/timer.h>

class WXDLLIMPEXP_FWD_CORE wxGauge;

namespace Nolvex::Wx {

class StaticText;

} // namespace Nolvex::Wx

namespace Nolvex::Viewer {

class PictureOpening;

/// A row that tells which picture is being read and how much of it has been, with a button that stops the
/// reading. The row is hidden while nothing is read, and also for the first moment, since most pictures are
/// there before a row could be seen.
class LoadingBar : public wxPanel
{
public:
    /// `relayout` is called after the row has been shown or hidden. The pictures must outlive the row.
    LoadingBar(wxWindow* parent, PictureOpening& opening, const Function<void()>& relayout);

    ~LoadingBar() override;

    /// Looks whether something is being read. The row does so by itself from time to time.
    void update();

private:
    PictureOpening& m_opening;
    Function<void()> m_relayout;
    wxTimer m_timer;
    Wx::StaticText* m_name;
    wxGauge* m_share;
    int m_looks = 0; // that have found the same reading
};

} // namespace Nolvex::Viewer
