// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/widgets/ISkinnable.h"

#include <utility>

namespace Nolvex::Wx {

/// A control of the toolkit, `Control`, with a skin: its background and foreground colours follow it.
/// Constructed like the control; the default skin is stored then but not applied.
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
