// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Function.h"
#include "apps/viewer/Picture.h"

#include <wx/panel.h>

#include <cstddef>

namespace Nolvex::Wx {

class ComboBox;

} // namespace Nolvex::Wx

namespace Nolvex::Viewer {

/// A row with the layers of a picture's file, from which the user chooses. The row is hidden while the
/// picture has one layer only.
class LayerBar : public wxPanel
{
public:
    /// `choose` is called with the place of the layer that the user has chosen, and `relayout` after the row
    /// has been shown or hidden.
    LayerBar(wxWindow* parent, const Function<void(std::size_t)>& choose, const Function<void()>& relayout);

    /// Shows the layers of another picture, or none for null.
    void setPicture(const SharedPicture& picture);

private:
    Function<void()> m_relayout;
    Wx::ComboBox* m_layer;
    Array<PictureLayer> m_layers;
};

} // namespace Nolvex::Viewer
