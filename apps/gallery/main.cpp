// SPDX-License-Identifier: MIT
// The gallery shows every control in every state. With --screenshots FOLDER it writes pictures of each page,
// each dialog and each state of the controls, in each skin, to the folder and ends. It moves the mouse for
// that.
#include "NolvexLib/Exception.h"
#include "NolvexLibWx/NolvexLibWx.h"
#include "apps/gallery/GalleryFrame.h"
#include "apps/gallery/Hand.h"
#include "apps/gallery/Screenshots.h"
#include "apps/program/DialogIcon.h"
#include "apps/program/ScreenshotTimer.h"
#include "apps/program/platform/ErrorReport.h"
#include "apps/program/platform/ProcessArguments.h"
#include "apps/program/platform/UserLanguage.h"

#include <cstdio>
#include <filesystem>
#include <new>

namespace {

using namespace Nolvex;

int fail(const String& message)
{
    Program::reportError("nolvex-gallery", message.toUtf8());
    return 1;
}

int show(const Io::Path& screenshots)
{
    auto* frame = new Gallery::GalleryFrame;
    Program::useIconInDialogs(*frame);
    frame->Show();
    if (screenshots.isEmpty())
        return LibWx::runEventLoop();
    frame->Raise();
    Gallery::Hand::rest();
    Gallery::Screenshots pictures(*frame, screenshots);
    const Program::ScreenshotTimer timer(*frame, Gallery::Screenshots::TURN_PERIOD,
                                         [&] { return pictures.takeTurn(); });
    LibWx::runEventLoop();
    return timer.error().isEmpty() ? 0 : fail(timer.error());
}

} // namespace

int main(int argc, char** argv)
{
    const Array<Io::Path> arguments = Program::processArguments(argc, argv);
    const bool takesPictures = arguments.size() == 2 && arguments[0] == Io::Path(L"--screenshots");
    if (!arguments.empty() && !takesPictures)
        return fail(L"usage: nolvex-gallery [--screenshots FOLDER]");
    const Io::Path folder = takesPictures ? arguments[1] : Io::Path();
    if (takesPictures && !std::filesystem::is_directory(folder.native()))
        return fail(L"There is no folder \"" + folder.nativeStr() + L"\".");
    Program::useLanguageOfUser();
    try {
        LibWx::startup(LibWx::ApplicationType::APPLICATION);
    } catch (const Exception& failure) {
        return fail(String::fromUtf8(failure.what()));
    }
    int result = 1;
    try {
        result = show(folder);
    } catch (const std::bad_alloc&) {
        fail(L"There is not enough memory for the gallery.");
    }
    LibWx::shutdown();
    return result;
}
