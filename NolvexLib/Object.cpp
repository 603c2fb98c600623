// SPDX-License-Identifier: MIT
#include "NolvexLib/Object.h"

namespace Nolvex {

Object::~Object() = default;

} // namespace Nolvex
