// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"

#include <wx/string.h>

#include <functional>

typedef struct _GtkWidget GtkWidget;

namespace Nolvex::Platform {

/// The letter that, together with Alt, works a control from anywhere in its top-level window. GTK knows it
/// only of a GtkLabel; this class makes it known for a widget that paints its label itself.
class Mnemonic : private Noncopyable
{
public:
    /// `onStruck` is called with whether the control is to be worked. It only gets the focus if several
    /// controls share the letter. The widget must outlive this object.
    Mnemonic(GtkWidget* widget, std::function<void(bool works)> onStruck);
    ~Mnemonic();

    /// Takes the letter from a label that marks it with "&"; a label without one has none.
    void setLabel(const wxString& label);

private:
    static void onHierarchyChanged(GtkWidget* widget, GtkWidget* previous, Mnemonic* self) noexcept;
    static int onMnemonic(GtkWidget* widget, int isShared, Mnemonic* self) noexcept;
    void addTo(GtkWidget* topLevel) const;
    void removeFrom(GtkWidget* topLevel) const;

    GtkWidget* m_widget;
    std::function<void(bool)> m_onStruck;
    unsigned m_key = 0; // 0 for none
};

} // namespace Nolvex::Platform
