// SPDX-License-Identifier: MIT
#include "apps/send/SendArguments.h"

#include "NolvexLibWx/StringConversions.h"
#include "apps/program/ArgumentPath.h"
#include "apps/program/CapturedMessages.h"
#include "apps/viewer/wire/WireCommand.h"

#include <wx/cmdline.h>

#include <utility>

namespace Nolvex::Viewer {

namespace {

// The parser keeps the texts that it is given as they are. This class keeps the parser together with them.
class Parser
{
public:
    explicit Parser(const Array<Io::Path>& arguments) : m_texts{L"nolvex-send"}
    {
        m_parser.SetSwitchChars("-");
        m_parser.SetLogo("Sends pictures to a viewer that listens.\n");
        m_parser.AddLongOption("host", "name or address of the viewer's computer (127.0.0.1)");
        m_parser.AddLongOption("port",
                               wxString::Format("port of the viewer (%u)", unsigned{DEFAULT_WIRE_PORT}));
        m_parser.AddLongOption("name", "name of the picture in the viewer (that of the file)");
        m_parser.AddLongSwitch("version", "print the version");
        m_parser.AddSwitch("h", "help", "print this text");
        m_parser.AddParam("FILE", wxCMD_LINE_VAL_STRING,
                          wxCMD_LINE_PARAM_OPTIONAL | wxCMD_LINE_PARAM_MULTIPLE);
        for (const Io::Path& argument : arguments)
            m_texts.push_back(argument.nativeStr());
        for (const String& text : m_texts)
            m_pointers.push_back(const_cast<wchar_t*>(text.c_str())); // The parser only reads the texts.
        m_parser.SetCmdLine(static_cast<int>(m_pointers.size()), m_pointers.data());
    }

    wxCmdLineParser& operator*() { return m_parser; }

    wxCmdLineParser* operator->() { return &m_parser; }

private:
    Array<String> m_texts;
    Array<wchar_t*> m_pointers;
    wxCmdLineParser m_parser;
};

Unexpected<String> misuse(const String& sentence)
{
    return {sentence + L" Try --help."};
}

} // namespace

Expected<SendArguments, String> parseSendArguments(const Array<Io::Path>& arguments)
{
    const Program::CapturedMessages messages;
    Parser parser(arguments);
    if (parser->Parse(false) != 0)
        return misuse(messages.text() + L".");
    SendArguments result;
    result.help = parser->Found("help");
    result.version = parser->Found("version");
    wxString host = "127.0.0.1";
    wxString name;
    wxString portText;
    unsigned long port = DEFAULT_WIRE_PORT;
    parser->Found("host", &host);
    if (parser->Found("port", &portText) && (!portText.ToULong(&port) || port < 1 || port > 65535))
        return misuse(L"--port takes 1 to 65535.");
    const bool hasName = parser->Found("name", &name);
    result.host = Wx::toString(host);
    result.port = static_cast<unsigned short>(port);
    result.name = Wx::toString(name);
    for (std::size_t i = 0; i < parser->GetParamCount(); ++i)
        result.files.push_back(Program::argumentPath(Wx::toString(parser->GetParam(i)), arguments));
    if (result.help || result.version)
        return result;
    if (result.files.empty())
        return misuse(L"A file is needed.");
    if (hasName && (name.empty() || result.files.size() > 1))
        return misuse(L"--name names one picture.");
    return result;
}

std::string sendUsage()
{
    Parser parser({});
    return Wx::toString(parser->GetUsageString()).toUtf8();
}

} // namespace Nolvex::Viewer
