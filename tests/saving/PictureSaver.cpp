// SPDX-License-Identifier: MIT
// PictureSaver FROM TO COLOURS ALPHA: reads a picture and saves it as the viewer does. COLOURS is uint8,
// uint16, half or float, and ALPHA is alpha or opaque. Prints what the viewer would say of the picture that
// it has read.
#include "apps/program/platform/ProcessArguments.h"
#include "apps/viewer/ImageFile.h"
#include "apps/viewer/writing/PictureWriter.h"

#include <wx/app.h>
#include <wx/image.h>
#include <wx/init.h>
#include <wx/log.h>

#include <cstdio>

namespace {

using namespace Nolvex;

int fail(const String& sentence)
{
    std::fprintf(stderr, "%s\n", sentence.toUtf8().c_str());
    return 1;
}

Optional<ColorFormat> coloursOf(const String& name)
{
    if (name == L"uint8")
        return ColorFormat::UINT8_RGB;
    if (name == L"uint16")
        return ColorFormat::UINT16_RGB;
    if (name == L"half")
        return ColorFormat::FLT16_LINEAR_RGB;
    return name == L"float" ? ColorFormat::FLT32_LINEAR_RGB : Optional<ColorFormat>();
}

int save(const Array<Io::Path>& arguments)
{
    const Optional<ColorFormat> colours = coloursOf(arguments[2].nativeStr());
    const Optional<ImageFormat> format = Viewer::writableFormatOf(arguments[1]);
    if (!colours || !format)
        return fail(L"The format or its colours are unknown.");
    const Expected<Viewer::SharedPicture, String> picture = Viewer::readPictureFile(arguments[0]);
    if (!picture)
        return fail(picture.error());
    std::printf("%s\n", Viewer::openedMessage(**picture).toUtf8().c_str());
    const bool alpha = arguments[3].nativeStr() == L"alpha";
    const Optional<String> failure = Viewer::writePictureFile(arguments[1], **picture, *format,
                                                              {*colours, alpha}, [](float) { return true; });
    return failure ? fail(*failure) : 0;
}

} // namespace

int main(int argc, char** argv)
{
    wxLog::EnableLogging(false);
    wxAppConsole::SetInstance(new wxAppConsole);
    const wxInitializer wxWidgets;
    if (!wxWidgets)
        return 1;
    wxInitAllImageHandlers();
    const Array<Io::Path> arguments = Program::processArguments(argc, argv);
    return arguments.size() == 4 ? save(arguments) : 2;
}
