// SPDX-License-Identifier: MIT
#include "NolvexLib/Polymorphic.h"

namespace Nolvex {

Polymorphic::~Polymorphic() = default;

} // namespace Nolvex
