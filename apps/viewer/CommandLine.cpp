// SPDX-License-Identifier: MIT
#include "apps/viewer/CommandLine.h"

namespace Nolvex::Viewer {

namespace {

Unexpected<String> error(const String& text)
{
    return {text + L" Try --help."};
}

} // namespace

Expected<CommandLine, String> parseCommandLine(const Array<Io::Path>& arguments)
{
    CommandLine line;
    bool optionsEnded = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const String text = arguments[i].nativeStr();
        if (!optionsEnded && text == L"--") {
            optionsEnded = true;
        } else if (!optionsEnded && (text == L"--help" || text == L"-h")) {
            line.help = true;
        } else if (!optionsEnded && text == L"--version") {
            line.version = true;
        } else if (!optionsEnded && text == L"--screenshot") {
            if (++i == arguments.size())
                return error(L"--screenshot needs the name of the file to write.");
            line.screenshot = arguments[i];
        } else if (!optionsEnded && text.length() > 1 && text[0] == L'-') {
            return error(L"There is no option " + text + L".");
        } else if (line.picture.isEmpty()) {
            line.picture = arguments[i];
        } else {
            return error(L"One picture at a time, please.");
        }
    }
    return line;
}

const char* usage()
{
    return "usage: nolvex-viewer [--screenshot FILE.png] [PICTURE]\n"
           "\n"
           "Shows a picture (PNG, JPEG, BMP, GIF, TIFF, TGA, ICO, PFM), or a bundled sample.\n"
           "\n"
           "  --screenshot FILE.png  write what the window shows to a file, then end\n"
           "  --version              print the version\n"
           "  --help                 print this text\n";
}

} // namespace Nolvex::Viewer
