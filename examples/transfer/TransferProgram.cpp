// SPDX-License-Identifier: MIT
#include "examples/transfer/TransferProgram.h"

#include "examples/transfer/platform/CommandLine.h"

#include <wx/app.h>
#include <wx/init.h>
#include <wx/log.h>
#include <wx/socket.h>

#include <cstdio>
#include <exception>
#include <string>
#include <vector>

int TransferProgram::run(int argc, char** argv)
{
    wxLog::EnableLogging(false);
    // A console application runs without a display.
    wxAppConsole::SetInstance(new wxAppConsole);
    const wxInitializer wxWidgets;
    if (!wxWidgets || !wxSocketBase::Initialize())
        return fail(L"The network could not be initialised.");

    std::vector<std::wstring> arguments = commandLineArguments(argc, argv);
    std::vector<wchar_t*> words;
    words.reserve(arguments.size());
    for (std::wstring& argument : arguments)
        words.push_back(argument.data());
    wxCmdLineParser parser(static_cast<int>(words.size()), words.data());
    const int exitCode = runWith(parser);
    wxSocketBase::Shutdown();
    return exitCode;
}

int TransferProgram::runWith(wxCmdLineParser& parser)
try {
    parser.SetSwitchChars("-");
    parser.AddSwitch("h", "help", "print this text");
    describeArguments(parser);
    if (parser.Parse(false) != 0)
        return complain(L"These arguments are not understood.");
    if (!parser.Found("help"))
        return transfer(parser);
    std::fputs(parser.GetUsageString().utf8_str(), stdout);
    return DONE;

} catch (const std::exception& failure) {
    // The system has run out of memory or threads.
    return fail(Nolvex::String::fromUtf8(failure.what()));
}

int TransferProgram::fail(const Nolvex::String& sentence)
{
    std::fprintf(stderr, "%s\n", sentence.toUtf8().c_str());
    return FAILED;
}

int TransferProgram::complain(const Nolvex::String& sentence)
{
    fail(sentence + L" Try --help.");
    return MISUSED;
}

// wxCmdLineParser reads numbers as long, which has 32 bits on Windows.
bool TransferProgram::readNumber(const wxCmdLineParser& arguments, const wxString& option, wxLongLong_t min,
                                 wxLongLong_t max, wxLongLong_t& value)
{
    wxString text;
    return !arguments.Found(option, &text) || (text.ToLongLong(&value) && value >= min && value <= max);
}
