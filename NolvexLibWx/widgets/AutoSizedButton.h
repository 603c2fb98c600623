// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Optional.h"
#include "NolvexLibWx/widgets/Button.h"

namespace Nolvex::Wx {

/// A push button in the default skin whose minimum size follows its label and its icons. A change leaves the
/// current size to the sizer of the parent, which applies the new minimum at its next layout.
class NOLVEXLIBWX_EXPORT AutoSizedButton : public Button
{
public:
    /// `minWidth` and `minHeight` are in design units.
    AutoSizedButton(wxWindow* parent, const wxString& label, int minWidth, int minHeight);
    ~AutoSizedButton() override;

    void SetLabel(const wxString& label) override;
    bool Enable(bool enable = true) override;

    void setClickCallback(Function<void()> onClick);

    /// The longest side of a resized icon, in pixels of the screen. A square of that side takes 800 MB.
    static constexpr int MAX_ICON_LENGTH = 16'384;

    /// Sets the icon of the enabled button; the disabled button does not show this icon. With a `size`, the
    /// icon is resized to a square of `size` times the whole factor of the screen's scale, in pixels; without
    /// a `size`, the icon is enlarged by that factor. An invalid icon, or a size below 1, removes the icon.
    /// Returns false, and changes nothing, if the square would be longer than MAX_ICON_LENGTH.
    bool setEnabledIcon(const wxBitmap& icon, Optional<int> size = {});

    /// Sets the icon of the disabled button in the same way.
    bool setDisabledIcon(const wxBitmap& icon, Optional<int> size = {});

private:
    void onIconChanged();
    void updateMinimumSize();
    void onClicked();
    void repaintNow();

    int m_minWidth;
    int m_minHeight;
    Function<void()> m_ownClickCallback;
};

} // namespace Nolvex::Wx
