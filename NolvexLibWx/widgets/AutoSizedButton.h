// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Optional.h"
#include "NolvexLibWx/widgets/Button.h"

namespace Nolvex::Wx {

/// A push button in the default skin whose minimum size follows its label and its icons. The size it has now
/// is the parent's sizer's business: lay the parent out after a change.
class NOLVEXLIBWX_EXPORT AutoSizedButton : public Button
{
public:
    /// `minWidth` and `minHeight` in design units.
    AutoSizedButton(wxWindow* parent, const wxString& label, int minWidth, int minHeight);
    ~AutoSizedButton() override;

    void SetLabel(const wxString& label) override;
    bool Enable(bool enable = true) override;

    void setClickCallback(Function<void()> onClick);

    /// The icon of the enabled button: resized to a square of `size` pixels, times the whole factor of the
    /// screen's scale, or else just enlarged by that factor. An invalid icon, or a size below 1 or above
    /// 4,096, is none. The disabled button does not show it.
    void setEnabledIcon(const wxBitmap& icon, Optional<int> size = {});

    /// The icon of the disabled button, likewise.
    void setDisabledIcon(const wxBitmap& icon, Optional<int> size = {});

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
