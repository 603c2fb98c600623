// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/detail/SpinnerArrow.h"

#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/MemoryImages.h"
#include "NolvexLibWx/detail/LabelledAccount.h"
#include "NolvexLibWx/platform/HoverWatch.h"
#include "NolvexLibWx/resources/ControlArrows.h"

#include <wx/log.h>

#include <array>
#include <cstddef>
#include <iterator>

namespace Nolvex {

namespace {

using Pictures = std::array<wxBitmap, std::size(Resources::SPINNER_ARROWS)>;

void decode(Pictures& pictures)
{
    const wxLogNull silence;
    for (std::size_t i = 0; i < pictures.size(); ++i)
        pictures[i] = Wx::scaleByDpi(Wx::convertMemoryToBitmap(
            Resources::SPINNER_ARROWS[i], Resources::SPINNER_ARROWS_SIZE, wxBITMAP_TYPE_ANY));
}

} // namespace

Wx::Detail::SpinnerArrow::SpinnerArrow(wxWindow* spinner, bool up)
    : StaticBitmap(spinner, wxID_ANY, picture(up, Look::NORMAL)), m_up(up)
{
    Platform::watchHover(*this);
    // The spinner itself tells its value and takes a new one, so that an arrow is nothing but decoration.
    describeAs<LabelledAccount, AccessibleRole::BORDER>(*this);
}

Wx::Detail::SpinnerArrow::~SpinnerArrow() = default;

const wxBitmap& Wx::Detail::SpinnerArrow::picture(bool up, Look look)
{
    static Pictures pictures;
    if (!pictures.front().IsOk())
        decode(pictures);
    return pictures[static_cast<std::size_t>(look) * 2 + (up ? 0 : 1)];
}

} // namespace Nolvex
