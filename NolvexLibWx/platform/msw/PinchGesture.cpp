// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/PinchGesture.h"

namespace Nolvex {

class Platform::PinchGesture::Source
{};

Platform::PinchGesture::PinchGesture(wxWindow& /*window*/) {}

Platform::PinchGesture::~PinchGesture() = default;

} // namespace Nolvex
