// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/msw/OwnWindowStaticText.h"

#include "NolvexLibWx/LabelExtent.h"

namespace Nolvex {

Platform::OwnWindowStaticText::~OwnWindowStaticText() = default;

wxSize Platform::OwnWindowStaticText::DoGetBestClientSize() const
{
    return labelExtent(*this);
}

} // namespace Nolvex
