// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Function.h"
#include "NolvexLib/Noncopyable.h"
#include "apps/picker/PickedColor.h"

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_CORE wxSizer;
class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Picker {

class ChannelSlider;
class ChannelSpinner;

/// A label, a slider and a spinner for one number of a colour. The windows belong to their parent.
class ChannelRow : private Noncopyable
{
public:
    /// Adds the three windows to `row`. `color` must outlive the windows; the row only reads it. `onChange`
    /// is called with each number that the user chooses.
    ChannelRow(wxWindow* parent, wxSizer& row, Channel channel, const PickedColor& color,
               Function<void(Channel, float)> onChange);

    /// Shows the colour anew, and calls nothing. A spinner that the user is just operating shows the number
    /// already.
    void update();

    Channel channel() const { return m_channel; }

    ChannelSlider* slider() const { return m_slider; }

    ChannelSpinner* spinner() const { return m_spinner; }

private:
    void makeSlider(wxWindow* parent);
    void makeSpinner(wxWindow* parent);

    Channel m_channel;
    const PickedColor& m_color;
    Function<void(Channel, float)> m_onChange;
    ChannelSlider* m_slider = nullptr;
    ChannelSpinner* m_spinner = nullptr;
};

} // namespace Nolvex::Picker
