// SPDX-License-Identifier: MIT
#include "apps/viewer/CommandLine.h"

#include "NolvexLibWx/StringConversions.h"
#include "apps/program/ArgumentPath.h"
#include "apps/program/CapturedMessages.h"

#include <wx/cmdline.h>

namespace Nolvex::Viewer {

namespace {

void describe(wxCmdLineParser& parser)
{
    parser.SetSwitchChars("-");
    parser.SetLogo(
        "Shows pictures (EXR, HDR, PFM, PNG, TIFF, JPEG, WebP and others), or a bundled sample.\n");
    parser.AddLongOption("screenshot", "write what the window shows to this PNG file, then end");
    parser.AddLongSwitch("capture", "begin with a picture of the screen");
    parser.AddLongOption("listen",
                         "show the pictures that are sent to this PORT of the computer, or HOST:PORT");
    parser.AddLongSwitch("version", "print the version");
    parser.AddSwitch("h", "help", "print this text");
    parser.AddParam("PICTURE or FOLDER", wxCMD_LINE_VAL_STRING,
                    wxCMD_LINE_PARAM_OPTIONAL | wxCMD_LINE_PARAM_MULTIPLE);
}

void setArguments(wxCmdLineParser& parser, const Array<Io::Path>& arguments)
{
    Array<String> texts{L"nolvex-viewer"};
    for (const Io::Path& argument : arguments)
        texts.push_back(argument.nativeStr());
    Array<wchar_t*> pointers;
    for (const String& text : texts)
        pointers.push_back(const_cast<wchar_t*>(text.c_str())); // The parser only reads the texts.
    parser.SetCmdLine(static_cast<int>(pointers.size()), pointers.data());
}

} // namespace

Expected<CommandLine, String> parseCommandLine(const Array<Io::Path>& arguments)
{
    const Program::CapturedMessages messages;
    wxCmdLineParser parser;
    describe(parser);
    setArguments(parser, arguments);
    if (parser.Parse(false) != 0)
        return Unexpected{messages.text() + L". Try --help."};
    CommandLine line;
    line.capture = parser.Found("capture");
    line.help = parser.Found("help");
    line.version = parser.Found("version");
    wxString text;
    if (parser.Found("screenshot", &text))
        line.screenshot = Program::argumentPath(Wx::toString(text), arguments);
    if (parser.Found("listen", &text))
        line.listen = Wx::toString(text);
    for (std::size_t i = 0; i < parser.GetParamCount(); ++i)
        line.pictures.push_back(Program::argumentPath(Wx::toString(parser.GetParam(i)), arguments));
    if (line.capture && !(line.pictures.empty() && line.screenshot.isEmpty()))
        return Unexpected{String(L"--capture stands alone. Try --help.")};
    return line;
}

std::string usage()
{
    wxCmdLineParser parser;
    describe(parser);
    setArguments(parser, {});
    return Wx::toString(parser.GetUsageString()).toUtf8();
}

} // namespace Nolvex::Viewer
