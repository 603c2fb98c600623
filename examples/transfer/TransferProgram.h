// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/String.h"

#include <wx/cmdline.h>

/// The base of the sender and the receiver: a program without windows that uses a command line and the
/// sockets of wxWidgets.
class TransferProgram
{
public:
    TransferProgram() = default;
    virtual ~TransferProgram() = default;
    TransferProgram(const TransferProgram&) = delete;
    TransferProgram& operator=(const TransferProgram&) = delete;

    /// Runs the program and returns its exit code.
    int run(int argc, char** argv);

protected:
    // Exit codes.
    static constexpr int DONE = 0;
    static constexpr int FAILED = 1;
    static constexpr int MISUSED = 2;

    virtual void describeArguments(wxCmdLineParser& parser) = 0;

    /// Sends or receives, and returns the exit code.
    virtual int transfer(const wxCmdLineParser& arguments) = 0;

    /// Prints the sentence on the standard error and returns FAILED.
    static int fail(const Nolvex::String& sentence);

    /// Prints the sentence, which explains an error in the command line, on the standard error and returns
    /// MISUSED.
    static int complain(const Nolvex::String& sentence);

    /// Reads the option if it was given. Returns false if its value is not within these limits.
    [[nodiscard]] static bool readNumber(const wxCmdLineParser& arguments, const wxString& option,
                                         wxLongLong_t min, wxLongLong_t max, wxLongLong_t& value);

private:
    int runWith(wxCmdLineParser& parser);
};
