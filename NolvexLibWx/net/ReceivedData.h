// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Variant.h"
#include "NolvexLib/XmlString.h"
#include "NolvexLibWx/net/ReceivedFile.h"
#include "NolvexLibWx/net/ReceivedRawData.h"

namespace Nolvex::Wx::Legacy {

/// One message. The index of the alternative is the message's DataType. A text message is its header, which
/// as received holds the child "DataType" as well.
using ReceivedData = Variant<XmlString, ReceivedFile, ReceivedRawData>;

} // namespace Nolvex::Wx::Legacy
