// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Polymorphic.h"
#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/widgets/GuiSkin.h"

namespace Nolvex::Wx {

/// A control whose skin can be changed after construction. At first it has a copy of the default skin.
class NOLVEXLIBWX_EXPORT ISkinnable : public Polymorphic
{
public:
    ISkinnable() = default;
    ~ISkinnable() override;

    /// Stores the skin and shows its colours.
    virtual void applySkin(const GuiSkin& skin) = 0;

    /// Returns the current skin.
    const GuiSkin& skin() const { return m_skin; }

protected:
    GuiSkin m_skin = GuiSkin::DEFAULT();
};

} // namespace Nolvex::Wx
