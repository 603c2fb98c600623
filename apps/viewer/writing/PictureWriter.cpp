// SPDX-License-Identifier: MIT
#include "apps/viewer/writing/PictureWriter.h"

#include "NolvexLib/ImageFormatDescriptor.h"
#include "apps/program/ReplacementFile.h"
#include "apps/viewer/writing/FileRows.h"
#include "apps/viewer/writing/OpenExrWriter.h"
#include "apps/viewer/writing/PngWriter.h"
#include "apps/viewer/writing/TiffWriter.h"
#include "apps/viewer/writing/WxImageWriter.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <new>

namespace Nolvex::Viewer {

namespace {

// wxBITMAP_TYPE_INVALID stands for formats that wxWidgets does not write here.
wxBitmapType bitmapTypeOf(ImageFormat format)
{
    switch (format) {
    case ImageFormat::JPEG:
        return wxBITMAP_TYPE_JPEG;
    case ImageFormat::BMP:
        return wxBITMAP_TYPE_BMP;
    case ImageFormat::TARGA:
        return wxBITMAP_TYPE_TGA;
    case ImageFormat::GIF:
        return wxBITMAP_TYPE_GIF;
    case ImageFormat::ICO:
        return wxBITMAP_TYPE_ICO;
    default:
        return wxBITMAP_TYPE_INVALID;
    }
}

Optional<String> refuseFormat()
{
    return String(L"the viewer cannot write this format");
}

Optional<String> encode(std::iostream& stream, const Picture& picture, ImageFormat format,
                        const Wx::ImageSaveSettings& settings, const Progress& progress)
{
    const wxBitmapType type = bitmapTypeOf(format);
    if (type != wxBITMAP_TYPE_INVALID)
        return writeByWxImage(stream, picture, type, settings.includeAlpha && writesAlpha(format));
    switch (format) {
    case ImageFormat::PNG:
        return writePng(stream, picture, settings, progress);
    case ImageFormat::TIFF:
        return writeTiff(stream, picture, settings, progress);
    case ImageFormat::EXR:
        return writeOpenExr(stream, picture, settings, progress);
    default:
        return refuseFormat();
    }
}

Optional<String> encodeRows(std::iostream& stream, FileRows& rows, ImageFormat format,
                            const Progress& progress)
{
    // A frame may be much larger than the image that lies in it.
    if (std::int64_t(rows.size().x) * rows.size().y > Image::MAX_PIXEL_COUNT)
        return String(L"the picture is too large");
    const wxBitmapType type = bitmapTypeOf(format);
    if (type != wxBITMAP_TYPE_INVALID)
        return writeByWxImage(stream, rows, type);
    switch (format) {
    case ImageFormat::PNG:
        return writePng(stream, rows, progress);
    case ImageFormat::TIFF:
        return writeTiff(stream, rows, progress);
    default:
        return refuseFormat();
    }
}

// Calls `encodeTo` with a stream and a progress, and puts a whole file in the place of the old one.
template<class Encode>
Optional<String> replaceFile(const Io::Path& file, const Progress& progress, const Encode& encodeTo)
{
    bool isStopped = false;
    const Progress watched = [&](float share) { return !(isStopped = !progress(share)); };
    Optional<String> failure;
    try {
        Program::ReplacementFile replacement(file);
        failure = replacement.isOpen() ? encodeTo(replacement.stream(), watched)
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

} // namespace

const Array<ImageFormat>& writableFormats()
{
    static const Array<ImageFormat> FORMATS = {ImageFormat::PNG,  ImageFormat::TIFF, ImageFormat::EXR,
                                               ImageFormat::JPEG, ImageFormat::BMP,  ImageFormat::TARGA,
                                               ImageFormat::GIF,  ImageFormat::ICO};
    return FORMATS;
}

const Array<ImageFormat>& writableByteFormats()
{
    static const Array<ImageFormat> FORMATS = [] {
        Array<ImageFormat> formats = writableFormats();
        std::erase(formats, ImageFormat::EXR);
        return formats;
    }();
    return FORMATS;
}

Array<Io::FileFilter> filtersOf(const Array<ImageFormat>& formats)
{
    Array<Io::FileFilter> filters;
    for (const ImageFormat format : formats) {
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
    return replaceFile(file, progress, [&](std::iostream& stream, const Progress& watched) {
        return encode(stream, picture, format, settings, watched);
    });
}

Optional<String> writeRowsFile(const Io::Path& file, FileRows& rows, ImageFormat format,
                               const Progress& progress)
{
    return replaceFile(file, progress, [&](std::iostream& stream, const Progress& watched) {
        return encodeRows(stream, rows, format, watched);
    });
}

} // namespace Nolvex::Viewer
