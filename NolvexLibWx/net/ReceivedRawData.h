// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ByteArray.h"
#include "NolvexLib/XmlString.h"

namespace Nolvex::Wx::Legacy {

/// A message whose body is a block of memory.
struct ReceivedRawData
{
    XmlString header;
    ByteArray data;
};

} // namespace Nolvex::Wx::Legacy
