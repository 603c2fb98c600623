// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Io/Path.h"
#include "NolvexLib/XmlString.h"

namespace Nolvex::Wx::Legacy {

/// A message whose body is a file.
struct ReceivedFile
{
    XmlString header;
    /// Where the body was written; on sending, the file to send.
    Io::Path path;
};

} // namespace Nolvex::Wx::Legacy
