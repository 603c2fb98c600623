// SPDX-License-Identifier: MIT
#include "apps/viewer/writing/PictureWriter.h"

#include "NolvexLib/ImageFormatDescriptor.h"
#include "apps/program/ReplacementFile.h"
#include "apps/viewer/writing/OpenExrWriter.h"
#include "apps/viewer/writing/PngWriter.h"
#include "apps/viewer/writing/TiffWriter.h"
#include "apps/viewer/writing/WxImageWriter.h"

#include <algorithm>
#include <exception>
#include <new>

namespace Nolvex::Viewer {

namespace {

Optional<String> encode(std::iostream& stream, const Picture& picture, ImageFormat format,
                        const Wx::ImageSaveSettings& settings, const Progress& progress)
{
    const bool alpha = settings.includeAlpha && writesAlpha(format);
    switch (format) {
    case ImageFormat::PNG:
        return writePng(stream, picture, settings, progress);
    case ImageFormat::TIFF:
        return writeTiff(stream, picture, settings, progress);
    case ImageFormat::EXR:
        return writeOpenExr(stream, picture, settings, progress);
    case ImageFormat::JPEG:
        return writeByWxImage(stream, picture, wxBITMAP_TYPE_JPEG, alpha);
    case ImageFormat::BMP:
        return writeByWxImage(stream, picture, wxBITMAP_TYPE_BMP, alpha);
    case ImageFormat::TARGA:
        return writeByWxImage(stream, picture, wxBITMAP_TYPE_TGA, alpha);
    case ImageFormat::GIF:
        return writeByWxImage(stream, picture, wxBITMAP_TYPE_GIF, alpha);
    case ImageFormat::ICO:
        return writeByWxImage(stream, picture, wxBITMAP_TYPE_ICO, alpha);
    default:
        return String(L"the viewer cannot write this format");
    }
}

} // namespace

const Array<ImageFormat>& writableFormats()
{
    static const Array<ImageFormat> FORMATS = {ImageFormat::PNG,  ImageFormat::TIFF, ImageFormat::EXR,
                                               ImageFormat::JPEG, ImageFormat::BMP,  ImageFormat::TARGA,
                                               ImageFormat::GIF,  ImageFormat::ICO};
    return FORMATS;
}

Array<Io::FileFilter> writableFilters()
{
    Array<Io::FileFilter> filters;
    for (const ImageFormat format : writableFormats()) {
        const ImageFormatDescriptor& descriptor = getImageFormatDescriptor(format);
        Io::FileFilter filter{descriptor.name, {}};
        for (const String& extension : descriptor.extensions)
            filter.patterns.push_back(L"*." + extension);
        filters.push_back(std::move(filter));
    }
    return filters;
}

Optional<ImageFormat> writableFormatOf(const Io::Path& file)
{
    const Optional<ImageFormat> format = getImageFormatFromExtension(file.extension());
    const bool isWritable = format && std::ranges::count(writableFormats(), *format) > 0;
    return isWritable ? format : Optional<ImageFormat>();
}

bool writesAlpha(ImageFormat format)
{
    // wxWidgets leaves alpha out of BMP files.
    return format != ImageFormat::BMP &&
           getImageFormatDescriptor(format).flags.has(ImageFormatFlag::SUPPORTS_ALPHA);
}

Optional<String> writePictureFile(const Io::Path& file, const Picture& picture, ImageFormat format,
                                  const Wx::ImageSaveSettings& settings, const Progress& progress)
{
    bool isStopped = false;
    const Progress watched = [&](float share) { return !(isStopped = !progress(share)); };
    Optional<String> failure;
    try {
        Program::ReplacementFile replacement(file);
        failure = replacement.isOpen() ? encode(replacement.stream(), picture, format, settings, watched)
                                       : String(L"no file of this name can be created there");
        if (!failure && !isStopped && watched(1.0f) && !replacement.commit())
            failure = String(L"the file cannot be written");
    } catch (const std::bad_alloc&) {
        failure = String(L"there is not enough memory");
    } catch (const std::exception&) {
        failure = String(L"the file cannot be written"); // such as a system without random numbers
    }
    if (failure)
        return L"The picture was not saved as \"" + file.nativeStr() + L"\": " + *failure + L".";
    return isStopped ? String() : Optional<String>();
}

} // namespace Nolvex::Viewer
