// SPDX-License-Identifier: MIT
// Sends pictures to a viewer that listens.
#include "apps/program/platform/ProcessArguments.h"
#include "apps/send/SendArguments.h"
#include "apps/viewer/ImageFile.h"
#include "apps/viewer/wire/PictureSender.h"

#include <wx/app.h>
#include <wx/image.h>
#include <wx/init.h>
#include <wx/log.h>
#include <wx/socket.h>

#include <cstdio>
#include <exception>
#include <string>

namespace {

using namespace Nolvex;

constexpr int DONE = 0;
constexpr int FAILED = 1;
constexpr int MISUSED = 2;

int fail(const String& sentence, int status)
{
    std::fprintf(stderr, "nolvex-send: %s\n", sentence.toUtf8().c_str());
    return status;
}

// A file that cannot be read or is refused does not keep the others back.
bool sendFile(Viewer::PictureSender& sender, const Io::Path& file, const String& name)
{
    const Expected<Viewer::SharedPicture, String> picture = Viewer::readPictureFile(file);
    if (!picture) {
        fail(picture.error(), FAILED);
        return false;
    }
    const String& shownName = name.isEmpty() ? (*picture)->name() : name;
    const Optional<String> failure = sender.send(shownName, (*picture)->image(), {}, (*picture)->alpha());
    if (failure)
        fail(L"The picture \"" + shownName + L"\" was not sent. " + *failure, FAILED);
    return !failure;
}

int send(const Viewer::SendArguments& arguments)
{
    Viewer::PictureSender sender;
    if (const Optional<String> failure = sender.connect(arguments.host, arguments.port))
        return fail(*failure, FAILED);
    int status = DONE;
    for (const Io::Path& file : arguments.files) {
        if (!sendFile(sender, file, arguments.name))
            status = FAILED;
        if (!sender.isConnected())
            break;
    }
    return status;
}

int run(const Array<Io::Path>& words)
try {
    const Expected<Viewer::SendArguments, String> arguments = Viewer::parseSendArguments(words);
    if (!arguments)
        return fail(arguments.error(), MISUSED);
    if (arguments->help)
        return std::fputs(Viewer::sendUsage().c_str(), stdout) < 0;
    if (arguments->version)
        return std::puts("nolvex-send " NOLVEX_VERSION) < 0;
    return send(*arguments);

} catch (const std::exception& failure) {
    // The system has run out of memory or threads.
    return fail(String::fromUtf8(failure.what()), FAILED);
}

} // namespace

int main(int argc, char** argv)
{
    wxLog::EnableLogging(false);
    // A console application runs without a display.
    wxAppConsole::SetInstance(new wxAppConsole);
    const wxInitializer wxWidgets;
    if (!wxWidgets || !wxSocketBase::Initialize())
        return fail(L"The network could not be initialised.", FAILED);
    wxInitAllImageHandlers();
    const int status = run(Program::processArguments(argc, argv));
    wxSocketBase::Shutdown();
    return status;
}
