// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/widgets/ISkinnable.h"

#include <utility>

namespace Nolvex::Wx {

/// Adds a skin to `Control`, a control of wxWidgets. The skin sets the background and foreground colours. The
/// constructor takes the arguments of the control, and stores the default skin without applying it.
template<class Control>
class SkinnableMixin : public Control, public ISkinnable
{
public:
    template<class... Arguments>
    explicit SkinnableMixin(Arguments&&... arguments) : Control(std::forward<Arguments>(arguments)...)
    {}

    void applySkin(const GuiSkin& skin) override
    {
        m_skin = skin;
        this->SetBackgroundColour(toWxColour(skin.background));
        this->SetForegroundColour(toWxColour(skin.text));
    }
};

} // namespace Nolvex::Wx
