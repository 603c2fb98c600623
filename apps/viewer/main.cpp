// SPDX-License-Identifier: MIT
// The image viewer: shows a picture through the library, from the file to the screen.
#include "NolvexLib/Exception.h"
#include "NolvexLib/Io/FileSize.h"
#include "NolvexLib/Version.h"
#include "NolvexLibWx/NolvexLibWx.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "apps/program/DialogIcon.h"
#include "apps/program/ScreenshotTimer.h"
#include "apps/program/SystemParts.h"
#include "apps/program/WindowPicture.h"
#include "apps/program/platform/ErrorReport.h"
#include "apps/program/platform/ProcessArguments.h"
#include "apps/program/platform/UserLanguage.h"
#include "apps/viewer/CommandLine.h"
#include "apps/viewer/PictureListening.h"
#include "apps/viewer/Settings.h"
#include "apps/viewer/ViewerFrame.h"

#include <wx/app.h>
#include <wx/config.h>
#include <wx/stopwatch.h>
#include <wx/utils.h>

#include <cstdio>
#include <new>
#include <string>

namespace {

using namespace Nolvex;

int fail(const std::string& message)
{
    Program::reportError("nolvex-viewer", message);
    return 1;
}

int fail(const String& message)
{
    return fail(message.toUtf8());
}

// The sample lies beside the program on Windows and in a build folder, and in the share folder of an
// installation on Linux.
Io::Path samplePicture()
{
    const Io::Path folder = Program::programFile().parentDirectory();
    Io::Path beside = folder / Io::Path(L"sample.pfm");
    if (Io::fileSize(beside))
        return beside;
    return folder.parentDirectory() / Io::Path(L"share/nolvexlibwx/sample.pfm");
}

// Begins with the pictures of the command line, or with the sample. A picture that is read in a moment
// appears together with the window.
void begin(Viewer::ViewerFrame& frame, const Viewer::CommandLine& line)
{
    constexpr long MOMENT_MS = 200;
    constexpr unsigned long PERIOD_MS = 5;
    if (!line.pictures.empty())
        frame.beginWith(line.pictures);
    else if (line.listen.isEmpty())
        frame.beginWith({samplePicture()});
    const wxStopWatch watch;
    while (frame.isReading() && watch.Time() < MOMENT_MS) {
        wxTheApp->ProcessPendingEvents();
        wxMilliSleep(PERIOD_MS);
    }
    frame.Show();
}

// Takes the picture of the window after the picture has been read, and the window system has had time to put
// it on the screen. A viewer that listens needs no picture.
int takeScreenshot(Viewer::ViewerFrame& frame, const Viewer::CommandLine& line)
{
    constexpr int PERIOD_MS = 100;
    constexpr int TURNS = 5;
    // The mouse may rest on the picture, whose tooltip would then be in the screenshot.
    frame.setTooltips(false);
    Optional<String> failure;
    frame.onComplaint = [&failure](const String& message) { failure = failure.value_or(message); };
    begin(frame, line);
    int turnsSincePainted = 0;
    const Program::ScreenshotTimer timer(frame, PERIOD_MS, [&]() -> Optional<String> {
        if (frame.isReading() || !frame.wasPainted())
            return {};
        if (failure && line.listen.isEmpty() && frame.workspace().current() == nullptr)
            return failure;
        if (++turnsSincePainted < TURNS)
            return {};
        return Program::writeWindowPicture(frame, line.screenshot);
    });
    LibWx::runEventLoop();
    return timer.error().isEmpty() ? 0 : fail(timer.error());
}

// The window appears together with the picture, so that the picture shows the screen without the window.
int capture()
{
    auto* frame = new Viewer::ViewerFrame(nullptr);
    Program::useIconInDialogs(*frame);
    frame->captureScreen();
    return LibWx::runEventLoop();
}

Optional<String> listen(Viewer::ViewerFrame& frame, const String& text)
{
    const auto address = Viewer::parseListeningAddress(text);
    const auto port = address ? frame.listen(*address) : Unexpected{address.error()};
    if (!port)
        return port.error();
    // Programs that start the viewer with port 0 read the port here.
    std::printf("listening at port %d\n", *port);
    std::fflush(stdout);
    return {};
}

int show(const Viewer::CommandLine& line)
{
    if (line.capture)
        return capture();
    const bool isScreenshot = !line.screenshot.isEmpty();
    // A window that only writes a picture of itself has nothing to remember.
    auto* const frame = new Viewer::ViewerFrame(nullptr, {}, Wx::requestScreenRegion,
                                                isScreenshot ? nullptr : Viewer::Settings::ofUser());
    Program::useIconInDialogs(*frame);
    if (!line.listen.isEmpty()) {
        if (const Optional<String> failure = listen(*frame, line.listen)) {
            frame->Destroy();
            return fail(*failure);
        }
    }
    if (isScreenshot)
        return takeScreenshot(*frame, line);
    begin(*frame, line);
    return LibWx::runEventLoop();
}

} // namespace

int main(int argc, char** argv)
{
    const Expected<Viewer::CommandLine, String> line =
        Viewer::parseCommandLine(Program::processArguments(argc, argv));
    if (!line)
        return fail(line.error());
    if (line->help)
        return std::fputs(Viewer::usage().c_str(), stdout) < 0;
    if (line->version)
        return std::puts("nolvex-viewer " NOLVEX_VERSION) < 0;
    Program::useLanguageOfUser();
    try {
        LibWx::startup(LibWx::ApplicationType::APPLICATION);
    } catch (const Exception& failure) {
        return fail(std::string(failure.what()));
    }
    // Desktops look for the desktop file of this name when a window appears.
    wxTheApp->SetAppDisplayName(L"nolvex-viewer");
    Program::matchSystemParts(Wx::GuiSkin::DEFAULT());
    int result = 1;
    try {
        result = show(*line);
    } catch (const std::bad_alloc&) {
        fail(std::string("There is not enough memory for the picture."));
    }
    LibWx::shutdown();
    return result;
}
