// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/Press.h"

#include <wx/checkbox.h>

#include <memory>

namespace Nolvex::Platform {

class Mnemonic;

/// A check box with a window of its own, painted by the class that derives from it. The check box of
/// wxWidgets is a GtkCheckButton, which paints itself, is sent no wxEVT_PAINT and cannot be made small. This
/// class holds its value and answers mouse and keyboard itself, as GtkCheckButton does: a press gives it the
/// focus, and a release inside, the Space key and Alt with the letter of its mnemonic toggle it.
class NOLVEXLIBWX_EXPORT OwnWindowCheckBox : public wxCheckBox
{
public:
    OwnWindowCheckBox();
    ~OwnWindowCheckBox() override;

    /// Must be called once, like wxCheckBox::Create.
    bool Create(wxWindow* parent, wxWindowID id, const wxString& label,
                const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize, long style = 0,
                const wxValidator& validator = wxDefaultValidator,
                const wxString& name = wxASCII_STR(wxCheckBoxNameStr));

    void SetValue(bool value) override;

    bool GetValue() const override { return m_value == wxCHK_CHECKED; }

    void SetLabel(const wxString& label) override;

protected:
    // The overrides of all functions that would use the GtkCheckButton.
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
    void updateMnemonic();
    void onMouseDown(wxMouseEvent& event);
    void onMouseUp(wxMouseEvent& event);
    void onCaptureLost(wxMouseCaptureLostEvent& event);
    void onFocusChanged(wxFocusEvent& event);
    void onKeyDown(wxKeyEvent& event);
    void onKeyUp(wxKeyEvent& event);
    void onChar(wxKeyEvent& event);
    void onMnemonic(bool works);
    void toggle();

    wxCheckBoxState m_value = wxCHK_UNCHECKED;
    Wx::Press m_press{this};
    std::unique_ptr<Mnemonic> m_mnemonic;
};

} // namespace Nolvex::Platform
