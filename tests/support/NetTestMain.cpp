// SPDX-License-Identifier: MIT
// Runs the tests of the network with wxWidgets set up as in a program without a display.
#include <wx/app.h>
#include <wx/debug.h>
#include <wx/init.h>
#include <wx/log.h>
#include <wx/socket.h>

#include <gtest/gtest.h>

#include <cstdio>

namespace {

void failOnAssert(const wxString& file, int line, const wxString& function, const wxString& condition,
                  const wxString& message)
{
    ADD_FAILURE() << "toolkit assertion " << condition.utf8_str() << " in " << function.utf8_str() << ", "
                  << file.utf8_str() << ':' << line << ": " << message.utf8_str();
}

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    wxSetAssertHandler(failOnAssert);
    wxLog::EnableLogging(false);
    wxAppConsole::SetInstance(new wxAppConsole);
    if (!wxInitialize() || !wxSocketBase::Initialize()) {
        std::fputs("The toolkit's sockets could not be initialised.\n", stderr);
        return 1;
    }
    const int result = RUN_ALL_TESTS();
    wxSocketBase::Shutdown();
    wxUninitialize();
    return result;
}
