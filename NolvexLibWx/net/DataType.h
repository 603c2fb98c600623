// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace Nolvex::Wx::Legacy {

/// The kinds of messages. The value travels in every header and is the index of the alternative of
/// ReceivedData that the receiver fills.
enum class DataType : std::int32_t
{
    XmlString = 0,
    File = 1,
    RawData = 2,
};

} // namespace Nolvex::Wx::Legacy
