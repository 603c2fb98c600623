// SPDX-License-Identifier: MIT
// PictureReceiver FOLDER: a viewer without a window. Prints the line "port N", and a line for everything that
// the server of pictures tells. The pixels of each state of a picture are written to a file of the folder as
// they travel, and the line tells the file. Ends when a picture with the name "end" is closed.
#include "apps/program/platform/ProcessArguments.h"
#include "apps/viewer/wire/PictureServer.h"

#include <wx/app.h>
#include <wx/init.h>
#include <wx/log.h>
#include <wx/socket.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

namespace {

using namespace Nolvex;

void print(const std::string& line)
{
    std::printf("%s\n", line.c_str());
    std::fflush(stdout);
}

void writePixels(const Image& image, const std::filesystem::path& file)
{
    std::ofstream stream(file, std::ios::binary);
    for (std::int32_t y = image.descriptor().height; y-- > 0;) {
        const ArrayView<const std::byte> row = image.row(y);
        stream.write(reinterpret_cast<const char*>(row.data()), static_cast<std::streamsize>(row.size()));
    }
}

int receive(const std::filesystem::path& folder)
{
    bool hasEnded = false;
    int files = 0;
    Viewer::PictureServer server(
        {.received =
             [&](const Viewer::ArrivedPicture& arrived) {
                 const std::string file = std::to_string(files++) + ".raw";
                 const Image& image = arrived.picture->image();
                 writePixels(image, folder / file);
                 const ImageDescriptor& descriptor = image.descriptor();
                 print(
                     "received " + file + " " + std::to_string(descriptor.width) + " " +
                     std::to_string(descriptor.height) + " " +
                     std::to_string(static_cast<int>(descriptor.format)) + " " +
                     std::to_string(descriptor.gamma) + " " + std::to_string(arrived.progress) + " " +
                     (arrived.picture->alpha() == Viewer::AlphaKind::STRAIGHT ? "straight " : "associated ") +
                     (arrived.isComplete ? "complete " : "incomplete ") + arrived.name.toUtf8());
             },
         .progressed =
             [](const String& name, float progress) {
                 print("progressed " + std::to_string(progress) + " " + name.toUtf8());
             },
         .closed =
             [&](const String& name) {
                 print("closed " + name.toUtf8());
                 hasEnded = name == L"end";
             },
         .connectionLost = [](const String& name, const String& /*text*/) { print("lost " + name.toUtf8()); },
         .failed = [](const String& text) { print("failed " + text.toUtf8()); }});
    const Expected<unsigned short, String> port = server.start();
    if (!port)
        return 1;
    print("port " + std::to_string(*port));
    while (!hasEnded) {
        wxAppConsole::GetInstance()->ProcessPendingEvents();
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    wxLog::EnableLogging(false);
    wxAppConsole::SetInstance(new wxAppConsole);
    const wxInitializer wxWidgets;
    if (!wxWidgets || !wxSocketBase::Initialize())
        return 1;
    const Array<Io::Path> arguments = Program::processArguments(argc, argv);
    const int result = arguments.size() == 1 ? receive(arguments[0].native()) : 2;
    wxSocketBase::Shutdown();
    return result;
}
