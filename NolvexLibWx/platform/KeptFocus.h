// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"

#include <memory>

namespace Nolvex::Platform {

/// Puts the keyboard focus back to where it was at the construction. GTK takes the focus away from the field
/// of every window that is disabled, and Windows gives another program's window the focus when a dialog is
/// closed while all windows of this program are disabled.
class KeptFocus : private Noncopyable
{
public:
    KeptFocus();
    ~KeptFocus();

private:
    struct Places;
    std::unique_ptr<Places> m_places;
};

} // namespace Nolvex::Platform
