// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"

#include <wx/string.h>

#include <functional>

typedef struct _GtkWidget GtkWidget;

namespace Nolvex::Platform {

/// The letter that, together with Alt, activates a control from anywhere in its top-level window. GTK
/// supports such letters only for a GtkLabel; this class adds them to a widget that paints its label itself.
class Mnemonic : private Noncopyable
{
public:
    /// `onStruck` is called with true if the control is to be activated, and with false if it only gets the
    /// focus because several controls share the letter. The widget must outlive this object.
    Mnemonic(GtkWidget* widget, std::function<void(bool works)> onStruck);
    ~Mnemonic();

    /// Takes the letter after the "&" of a label; a label without "&" has no letter.
    void setLabel(const wxString& label);

private:
    static void onHierarchyChanged(GtkWidget* widget, GtkWidget* previous, Mnemonic* self) noexcept;
    static int onMnemonic(GtkWidget* widget, int isShared, Mnemonic* self) noexcept;
    void addTo(GtkWidget* topLevel) const;
    void removeFrom(GtkWidget* topLevel) const;

    GtkWidget* m_widget;
    std::function<void(bool)> m_onStruck;
    unsigned m_key = 0; // 0 if there is no letter
};

} // namespace Nolvex::Platform
