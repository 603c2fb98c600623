// SPDX-License-Identifier: MIT
// Runs the tests of a program with windows inside one start and stop of the library.
#include "NolvexLib/Exception.h"
#include "NolvexLibWx/NolvexLibWx.h"
#include "NolvexLibWx/StringConversions.h"
#include "support/ClipboardReading.h"
#include "support/TemporaryFolder.h"

#include <wx/app.h>
#include <wx/debug.h>
#include <wx/evtloop.h>
#include <wx/uilocale.h>
#include <wx/utils.h>

#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>

namespace {

// An assertion of wxWidgets fails the test. The usual dialog would stop the run.
void failOnAssert(const wxString& file, int line, const wxString& function, const wxString& condition,
                  const wxString& message)
{
    ADD_FAILURE() << "toolkit assertion " << condition.utf8_str() << " in " << function.utf8_str() << ", "
                  << file.utf8_str() << ':' << line << ": " << message.utf8_str();
}

// The file dialogs of GTK remember files and settings, which must not be those of the user. GTK reads the
// variables when it starts.
void keepSettingsOfDesktopIn(const Nolvex::Io::Path& folder)
{
    wxSetEnv("XDG_DATA_HOME", Nolvex::Wx::toWxString(folder.nativeStr()));
    wxSetEnv("GSETTINGS_BACKEND", "memory");
}

// The tests run in the C locale, unless the variable asks for a host that uses the language of the user.
bool isHostInLanguageOfUser()
{
    return wxGetEnv("NOLVEX_TEST_LANGUAGE_OF_USER", nullptr);
}

} // namespace

int main(int argc, char** argv)
{
    if (const Nolvex::Optional<int> status = Nolvex::Tests::useClipboardForParent(argc, argv))
        return *status;
    testing::InitGoogleTest(&argc, argv);
    wxSetAssertHandler(failOnAssert);
    const Nolvex::Tests::TemporaryFolder settings;
    keepSettingsOfDesktopIn(settings.path());
    if (isHostInLanguageOfUser())
        std::setlocale(LC_ALL, ""); // GTK looks at the locale when it starts.
    try {
        Nolvex::LibWx::startup(Nolvex::LibWx::ApplicationType::APPLICATION);
    } catch (const Nolvex::Exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
    if (isHostInLanguageOfUser())
        wxUILocale::UseDefault(); // from right to left, if the language is
    int result = 0;
    {
        wxEventLoop loop;
        const wxEventLoopActivator active(&loop);
        result = RUN_ALL_TESTS();
    }
    Nolvex::LibWx::shutdown();
    return result;
}
