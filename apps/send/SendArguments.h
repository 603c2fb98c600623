// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Expected.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/String.h"

#include <string>

namespace Nolvex::Viewer {

/// What the user of nolvex-send asked for.
struct SendArguments
{
    String host;
    unsigned short port = 0;
    /// The name in the viewer. If it is empty, each picture is named after its file.
    String name;
    Array<Io::Path> files;
    bool help = false;
    bool version = false;
};

/// Reads the arguments, which do not include the program's name. The error is a sentence for the user.
Expected<SendArguments, String> parseSendArguments(const Array<Io::Path>& arguments);

/// Returns the text that --help prints, in UTF-8.
std::string sendUsage();

} // namespace Nolvex::Viewer
