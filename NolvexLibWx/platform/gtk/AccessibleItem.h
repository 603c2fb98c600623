// SPDX-License-Identifier: MIT
#pragma once

#include <gtk/gtk.h>

#include <vector>

namespace Nolvex::Wx {

class AccessibleRecord;

} // namespace Nolvex::Wx

namespace Nolvex::Platform {

/// The accessible objects of the items of one control, such as the choices of a combo box. An item has no
/// widget of its own; the control's account answers for it.
class AccessibleItems
{
public:
    AccessibleItems(GtkWidget* widget, Wx::AccessibleRecord& record);
    ~AccessibleItems();

    AccessibleItems(const AccessibleItems&) = delete;
    AccessibleItems& operator=(const AccessibleItems&) = delete;

    /// Returns the object of an item, which is created at the first call. The caller gets no reference.
    AtkObject* item(int index);

    /// Announces names that have changed, and withdraws the objects of items that no longer exist.
    void update(int count);

    /// Announces that another item is selected.
    void updateSelection();

private:
    GtkWidget* m_widget;
    Wx::AccessibleRecord& m_record;
    std::vector<AtkObject*> m_items; // null until asked for
};

} // namespace Nolvex::Platform
