// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/ApplySkinRecursive.h"

#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/widgets/GuiSkin.h"

#include <wx/window.h>

namespace Nolvex {

void Wx::applySkinRecursive(wxWindow* window, const GuiSkin& skin)
{
    window->SetBackgroundColour(toWxColour(skin.background));
    window->SetForegroundColour(toWxColour(skin.text));
    for (wxWindow* child : window->GetChildren())
        applySkinRecursive(child, skin);
}

} // namespace Nolvex
