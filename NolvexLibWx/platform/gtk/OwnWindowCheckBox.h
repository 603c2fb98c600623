// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/MouseCapture.h"

#include <wx/checkbox.h>

namespace Nolvex::Platform {

/// A check box with a window of its own. The toolkit's is a GtkCheckButton, which paints itself, is sent no
/// wxEVT_PAINT and cannot be made small; this one holds its value and answers mouse and keyboard itself, like
/// the system's: a press gives it the focus, a release inside or the Space key toggles it. Whoever derives
/// from it paints it.
class NOLVEXLIBWX_EXPORT OwnWindowCheckBox : public wxCheckBox
{
public:
    OwnWindowCheckBox() = default;
    ~OwnWindowCheckBox() override;

    /// Once, as the toolkit's.
    bool Create(wxWindow* parent, wxWindowID id, const wxString& label,
                const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize, long style = 0,
                const wxValidator& validator = wxDefaultValidator,
                const wxString& name = wxASCII_STR(wxCheckBoxNameStr));

    void SetValue(bool value) override;

    bool GetValue() const override { return m_value == wxCHK_CHECKED; }

    void SetLabel(const wxString& label) override;

protected:
    // All that would reach for the GtkCheckButton.
    void DoSet3StateValue(wxCheckBoxState value) override;

    wxCheckBoxState DoGet3StateValue() const override { return m_value; }

    wxSize DoGetBestSize() const override;
    bool DoSetLabelMarkup(const wxString& markup) override;
    bool GTKWidgetNeedsMnemonic() const override;
    void GTKWidgetDoSetMnemonic(GtkWidget* widget) override;
    void DoEnable(bool enable) override;
    void DoApplyWidgetStyle(GtkRcStyle* style) override;
    GdkWindow* GTKGetWindow(wxArrayGdkWindows& windows) const override;

private:
    void bindEvents();
    void onMouseDown(wxMouseEvent& event);
    void onMouseUp(wxMouseEvent& event);
    void onCaptureLost(wxMouseCaptureLostEvent& event);
    void onFocusChanged(wxFocusEvent& event);
    static void onStateChanged(GtkWidget* widget, unsigned int before, OwnWindowCheckBox* checkBox) noexcept;
    void onKeyDown(wxKeyEvent& event);
    void onKeyUp(wxKeyEvent& event);
    void onChar(wxKeyEvent& event);
    void toggle();

    wxCheckBoxState m_value = wxCHK_UNCHECKED;
    bool m_mousePressed = false;
    bool m_spacePressed = false;
    Wx::MouseCapture m_capture{this};
};

} // namespace Nolvex::Platform
