// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/AccessibleControl.h"

namespace Nolvex::Viewer {

class ImageView;

/// Tells assistive technology about a view: the scale, or the place and the values of the pixel that the
/// keyboard has chosen, and the range of false colour.
class ViewAccount : public Wx::AccessibleControl
{
public:
    explicit ViewAccount(const ImageView& view) : m_view(view) {}

    Wx::AccessibleRole role() const override { return Wx::AccessibleRole::IMAGE; }

    String name() const override;
    String valueText() const override;

private:
    const ImageView& m_view;
};

} // namespace Nolvex::Viewer
