// SPDX-License-Identifier: MIT
#include "apps/gallery/Skins.h"

namespace Nolvex::Gallery {

// The check mark is white in every skin, so that "Paper" is a brown paper, dark enough for white.
const std::array<NamedSkin, SKIN_COUNT>& builtInSkins()
{
    static const std::array<NamedSkin, SKIN_COUNT> ALL{NamedSkin{L"Dark", Wx::GuiSkin::DEFAULT()},
                                                       NamedSkin{L"Paper",
                                                                 {.text = {26, 20, 12},
                                                                  .disabledText = {108, 86, 62},
                                                                  .background = {166, 138, 106},
                                                                  .darkBackground = {132, 106, 78},
                                                                  .accentText = {255, 255, 255},
                                                                  .accent = {96, 48, 20},
                                                                  .pressedBackground = {186, 160, 128},
                                                                  .link = {110, 16, 16},
                                                                  .highlight = {255, 224, 160}}}};
    return ALL;
}

} // namespace Nolvex::Gallery
