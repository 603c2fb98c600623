// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Expected.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/String.h"

#include <string>

namespace Nolvex::Viewer {

/// What the user asked for on the command line.
struct CommandLine
{
    /// The pictures to open, and folders with pictures. None stands for the bundled sample.
    Array<Io::Path> pictures;
    /// The file to which a picture of the window is written before the program ends. If the path is empty,
    /// the window stays open.
    Io::Path screenshot;
    /// Begin with a picture of the screen.
    bool capture = false;
    /// Where to listen for pictures, as parseListeningAddress() takes it. Empty for nowhere.
    String listen;
    bool help = false;
    bool version = false;
};

/// Reads the arguments, which do not include the program's name. The error is a text for the user.
Expected<CommandLine, String> parseCommandLine(const Array<Io::Path>& arguments);

/// Returns the text that --help prints, in UTF-8.
std::string usage();

} // namespace Nolvex::Viewer
