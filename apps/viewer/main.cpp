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
#include "apps/viewer/ImageFile.h"
#include "apps/viewer/PictureListening.h"
#include "apps/viewer/Settings.h"
#include "apps/viewer/ViewerFrame.h"

#include <wx/app.h>
#include <wx/config.h>

#include <cstddef>
#include <cstdio>
#include <new>
#include <string>
#include <utility>

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

// Takes the picture of the window after the window system has had time to put it on the screen.
int takeScreenshot(Viewer::ViewerFrame& frame, const Io::Path& file)
{
    constexpr int PERIOD_MS = 100;
    constexpr int TURNS = 5;
    // The mouse may rest on the picture, whose tooltip would then be in the screenshot.
    frame.setTooltips(false);
    int turnsSincePainted = 0;
    const Program::ScreenshotTimer timer(frame, PERIOD_MS, [&]() -> Optional<String> {
        if (!frame.wasPainted() || ++turnsSincePainted < TURNS)
            return {};
        return Program::writeWindowPicture(frame, file);
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

// The pictures that the program begins with.
struct Beginning
{
    Array<Io::Path> files;
    /// The first of the files that could be read, or null.
    Viewer::SharedPicture picture;
    Io::Path file;
    /// Why the files before it could not be read.
    Array<String> failures;
};

Beginning readFirstPicture(Array<Io::Path> files)
{
    Beginning beginning{std::move(files), nullptr, {}, {}};
    for (const Io::Path& file : beginning.files) {
        const Expected<Viewer::SharedPicture, String> picture = Viewer::readPictureFile(file);
        if (picture) {
            beginning.picture = *picture;
            beginning.file = file;
            break;
        }
        beginning.failures.push_back(picture.error());
    }
    return beginning;
}

Viewer::ViewerFrame* makeFrame(const Viewer::CommandLine& line, const Beginning& beginning)
{
    // A window that only writes a picture of itself has nothing to remember.
    auto settings = line.screenshot.isEmpty() ? Viewer::Settings::ofUser() : nullptr;
    auto* frame = new Viewer::ViewerFrame(beginning.picture, beginning.file, Wx::requestScreenRegion,
                                          std::move(settings));
    Program::useIconInDialogs(*frame);
    for (const String& failure : beginning.failures)
        frame->complain(failure);
    // The others are read when they are to be shown.
    const auto others = beginning.files.begin() + static_cast<std::ptrdiff_t>(beginning.failures.size());
    frame->workspace().addFiles(Array<Io::Path>(others, beginning.files.end()));
    return frame;
}

String noPicturesMessage(const Array<Io::Path>& folders)
{
    return L"There are no pictures in \"" + folders.front().nativeStr() + L"\".";
}

int show(const Viewer::CommandLine& line)
{
    if (line.capture)
        return capture();
    const bool isListening = !line.listen.isEmpty();
    Array<Io::Path> files = Viewer::withFoldersOpened(line.pictures);
    if (line.pictures.empty() && !isListening)
        files.push_back(samplePicture());
    const Beginning beginning = readFirstPicture(std::move(files));
    if (!beginning.picture && !isListening)
        return fail(beginning.failures.empty() ? noPicturesMessage(line.pictures)
                                               : beginning.failures.front());
    Viewer::ViewerFrame* const frame = makeFrame(line, beginning);
    if (isListening) {
        const auto address = Viewer::parseListeningAddress(line.listen);
        const auto port = address ? frame->listen(*address) : Unexpected{address.error()};
        if (!port) {
            frame->Destroy();
            return fail(port.error());
        }
        // Programs that start the viewer with port 0 read the port here.
        std::printf("listening at port %d\n", *port);
        std::fflush(stdout);
    }
    frame->Show();
    return line.screenshot.isEmpty() ? LibWx::runEventLoop() : takeScreenshot(*frame, line.screenshot);
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
