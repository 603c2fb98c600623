// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/OtherFormatsReader.h"

#include "NolvexLib/Io/FileSize.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/Version.h"
#include "NolvexLibWx/StringConversions.h"
#include "apps/program/platform/ProcessArguments.h"
#include "apps/viewer/reading/openimageio/OtherFormats.h"

#include <wx/dynlib.h>

namespace Nolvex::Viewer {

namespace {

// The module lies beside the program in a build folder, and in a folder of its own in an installation.
Optional<Io::Path> moduleFile()
{
    const Io::Path folder = Program::programFile().parentDirectory();
    const Io::Path name(L"nolvex-openimageio.so");
    for (const Io::Path& file :
         {folder / name, folder.parentDirectory() / Io::Path(NOLVEX_MODULE_FOLDER) / name}) {
        if (Io::fileSize(file))
            return file;
    }
    return {};
}

const PictureReader* loadModule()
{
    wxDynamicLibrary library;
    const Optional<Io::Path> file = moduleFile();
    if (!file || !library.Load(Wx::toWxString(file->nativeStr()), wxDL_NOW | wxDL_VERBATIM | wxDL_QUIET))
        return nullptr;
    // The module stays loaded until the process ends, since its libraries have threads.
    const wxDllType module = library.Detach();
    const auto function = reinterpret_cast<OtherFormatsFunction>(
        wxDynamicLibrary::RawGetSymbol(module, OTHER_FORMATS_FUNCTION));
    return function != nullptr ? function(NOLVEX_VERSION) : nullptr;
}

// Returns null if there is no module, or if the system lacks a library that the module needs.
const PictureReader* moduleReader()
{
    static const PictureReader* const READER = loadModule();
    return READER;
}

} // namespace

Array<String> OtherFormatsReader::extensions() const
{
    static const bool HAS_MODULE = moduleFile().has_value();
    if (!HAS_MODULE)
        return {};
    return {L"bw", L"dpx", L"fits", L"j2c", L"j2k", L"jp2", L"rgb", L"rgba", L"sgi"};
}

bool OtherFormatsReader::mayKnow(ArrayView<const std::byte> beginning) const
{
    return otherFormatOf(beginning) != nullptr;
}

bool OtherFormatsReader::knows(ArrayView<const std::byte> file) const
{
    return mayKnow(file) && moduleReader() != nullptr;
}

Expected<ReadImage, String> OtherFormatsReader::read(ArrayView<const std::byte> file, std::size_t layer,
                                                     const ReadingProgress& progress) const
{
    const PictureReader* const reader = moduleReader();
    if (reader == nullptr)
        return Unexpected{String(L"the viewer was built without OpenImageIO, which reads such files")};
    return reader->read(file, layer, progress);
}

} // namespace Nolvex::Viewer
