// SPDX-License-Identifier: MIT
#pragma once

#include <wx/app.h>
#include <wx/cmdline.h>
#include <wx/socket.h>

#include <cstdio>

/// What the sender and the receiver have in common: a program without windows that has the toolkit's sockets
/// and a command line.
class TransferProgram : public wxAppConsole
{
public:
    // The command line is read in OnRun, which decides about the exit code.
    bool OnInit() override { return wxSocketBase::Initialize(); }

    int OnRun() override
    {
        wxCmdLineParser parser(argc, argv);
        parser.SetSwitchChars("-");
        parser.AddSwitch("h", "help", "print this text");
        describeArguments(parser);
        if (parser.Parse(false) != 0)
            return complain("These arguments are not understood.");
        if (!parser.Found("help"))
            return transfer(parser);
        std::fputs(parser.GetUsageString().utf8_str(), stdout);
        return DONE;
    }

    int OnExit() override
    {
        wxSocketBase::Shutdown();
        return wxAppConsole::OnExit();
    }

protected:
    // Exit codes.
    static constexpr int DONE = 0;
    static constexpr int FAILED = 1;
    static constexpr int MISUSED = 2;

    virtual void describeArguments(wxCmdLineParser& parser) = 0;

    /// Returns the exit code.
    virtual int transfer(const wxCmdLineParser& arguments) = 0;

    static int fail(const wxString& sentence)
    {
        std::fprintf(stderr, "%s\n", static_cast<const char*>(sentence.utf8_str()));
        return FAILED;
    }

    static int complain(const wxString& sentence)
    {
        fail(sentence + " Try --help.");
        return MISUSED;
    }

    /// Of an option that is a number within these limits, or has a default.
    static bool readNumber(const wxCmdLineParser& arguments, const wxString& option, long least, long most,
                           long& value)
    {
        return !arguments.Found(option, &value) || (value >= least && value <= most);
    }
};
