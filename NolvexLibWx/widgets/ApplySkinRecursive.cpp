// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/ApplySkinRecursive.h"

#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "NolvexLibWx/widgets/TextButton.h"

#include <wx/window.h>

namespace Nolvex {

void Wx::applySkinRecursive(wxWindow* window, const GuiSkin& skin)
{
    if (window == nullptr)
        return;
    window->SetBackgroundColour(toWxColour(skin.background));
    window->SetForegroundColour(toWxColour(skin.text));
    if (auto* textButton = dynamic_cast<TextButton*>(window)) {
        textButton->setNormalColour(toWxColour(skin.link));
        textButton->setHoverColour(toWxColour(skin.link));
    }
    for (wxWindow* child : window->GetChildren())
        applySkinRecursive(child, skin);
}

} // namespace Nolvex
