// SPDX-License-Identifier: MIT
#include "apps/viewer/writing/TiffWriter.h"

#include "NolvexLib/Array.h"
#include "apps/viewer/writing/RowEncoder.h"

#include <tiffio.h>

#include <cstdint>
#include <iostream>
#include <memory>

namespace Nolvex::Viewer {

namespace {

// Files beyond 4 GiB need the form with addresses of 64 bits. The compressed size is not known in advance.
constexpr std::uint64_t MAX_CLASSIC_BYTES = std::uint64_t(4) << 30;
constexpr int BYTE_BITS = 8;

std::iostream& streamOf(thandle_t handle)
{
    return *static_cast<std::iostream*>(handle);
}

tmsize_t readBytes(thandle_t handle, void* bytes, tmsize_t count)
{
    std::iostream& stream = streamOf(handle);
    stream.read(static_cast<char*>(bytes), count);
    const auto read = static_cast<tmsize_t>(stream.gcount());
    if (stream.eof())
        stream.clear();
    return read;
}

tmsize_t writeBytes(thandle_t handle, void* bytes, tmsize_t count)
{
    return streamOf(handle).write(static_cast<const char*>(bytes), count) ? count : 0;
}

toff_t seekTo(thandle_t handle, toff_t offset, int origin)
{
    constexpr auto FAILURE = static_cast<toff_t>(-1);
    std::iostream& stream = streamOf(handle);
    const auto direction = origin == SEEK_SET   ? std::ios::beg
                           : origin == SEEK_CUR ? std::ios::cur
                                                : std::ios::end;
    // A file stream has one position for reading and writing.
    if (!stream.seekp(static_cast<std::streamoff>(offset), direction))
        return FAILURE;
    return static_cast<toff_t>(stream.tellp());
}

int closeNothing(thandle_t)
{
    return 0;
}

toff_t sizeOf(thandle_t handle)
{
    std::iostream& stream = streamOf(handle);
    const std::streampos position = stream.tellp();
    stream.seekp(0, std::ios::end);
    const std::streampos size = stream.tellp();
    stream.seekp(position);
    return static_cast<toff_t>(size);
}

int mapNothing(thandle_t, void**, toff_t*)
{
    return 0;
}

void unmapNothing(thandle_t, void*, toff_t) {}

int keepSilent(TIFF*, void*, const char*, const char*, va_list)
{
    return 1;
}

struct Closer
{
    void operator()(TIFF* file) const { TIFFClose(file); }
};

using TiffFile = std::unique_ptr<TIFF, Closer>;

TiffFile openTiff(std::iostream& stream, bool isLarge)
{
    TIFFOpenOptions* const options = TIFFOpenOptionsAlloc();
    if (options == nullptr)
        return {};
    TIFFOpenOptionsSetErrorHandlerExtR(options, keepSilent, nullptr);
    TIFFOpenOptionsSetWarningHandlerExtR(options, keepSilent, nullptr);
    TiffFile file(TIFFClientOpenExt("picture", isLarge ? "w8" : "w", &stream, readBytes, writeBytes, seekTo,
                                    closeNothing, sizeOf, mapNothing, unmapNothing, options));
    TIFFOpenOptionsFree(options);
    return file;
}

void describe(TIFF* file, const FileRows& rows, bool isFloat)
{
    TIFFSetField(file, TIFFTAG_IMAGEWIDTH, static_cast<std::uint32_t>(rows.size().x));
    TIFFSetField(file, TIFFTAG_IMAGELENGTH, static_cast<std::uint32_t>(rows.size().y));
    TIFFSetField(file, TIFFTAG_SAMPLESPERPIXEL, rows.channelCount());
    TIFFSetField(file, TIFFTAG_BITSPERSAMPLE, static_cast<int>(rows.channelBytes()) * BYTE_BITS);
    TIFFSetField(file, TIFFTAG_SAMPLEFORMAT, isFloat ? SAMPLEFORMAT_IEEEFP : SAMPLEFORMAT_UINT);
    TIFFSetField(file, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_RGB);
    TIFFSetField(file, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(file, TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT);
    TIFFSetField(file, TIFFTAG_COMPRESSION, COMPRESSION_ADOBE_DEFLATE);
    TIFFSetField(file, TIFFTAG_PREDICTOR, isFloat ? PREDICTOR_FLOATINGPOINT : PREDICTOR_HORIZONTAL);
    TIFFSetField(file, TIFFTAG_ROWSPERSTRIP, TIFFDefaultStripSize(file, 0));
}

void describeAlpha(TIFF* file, Optional<AlphaKind> alpha)
{
    if (!alpha)
        return;
    const std::uint16_t kind =
        alpha == AlphaKind::ASSOCIATED ? EXTRASAMPLE_ASSOCALPHA : EXTRASAMPLE_UNASSALPHA;
    TIFFSetField(file, TIFFTAG_EXTRASAMPLES, 1, &kind);
}

// Returns whether libtiff took every row.
bool writeRows(TIFF* file, FileRows& rows, const Progress& progress)
{
    Array<std::byte> row(rows.rowBytes());
    const int height = rows.size().y;
    for (int y = 0; y < height; ++y) {
        if (!progress(static_cast<float>(y) / static_cast<float>(height)))
            return true;
        rows.encode(y, row.data());
        if (TIFFWriteScanline(file, row.data(), static_cast<std::uint32_t>(y), 0) < 0)
            return false;
    }
    return TIFFFlush(file) != 0;
}

bool isFloatFormat(ColorFormat format)
{
    return format == ColorFormat::FLT16_LINEAR_RGB || format == ColorFormat::FLT32_LINEAR_RGB;
}

// Floats keep the values of the picture. Integers cannot: multiplied colours would lose their last bits, and
// programs disagree about whether light or encoded values are multiplied.
AlphaKind alphaOf(const Picture& picture, ColorFormat format)
{
    return isFloatFormat(format) && picture.hasAlpha() ? picture.alpha() : AlphaKind::STRAIGHT;
}

Optional<String> writeFile(std::iostream& stream, FileRows& rows, bool isFloat, Optional<AlphaKind> alpha,
                           const Progress& progress)
{
    const std::uint64_t bytes = rows.rowBytes() * static_cast<std::uint64_t>(rows.size().y);
    const TiffFile file = openTiff(stream, bytes >= MAX_CLASSIC_BYTES);
    if (file) {
        describe(file.get(), rows, isFloat);
        describeAlpha(file.get(), alpha);
        if (writeRows(file.get(), rows, progress))
            return {};
    }
    return String(L"the file cannot be written");
}

} // namespace

Optional<String> writeTiff(std::iostream& stream, const Picture& picture,
                           const Wx::ImageSaveSettings& settings, const Progress& progress)
{
    const Optional<AlphaKind> alpha =
        settings.includeAlpha ? alphaOf(picture, settings.colorFormat) : Optional<AlphaKind>();
    RowEncoder rows(picture, settings.colorFormat, alpha);
    return writeFile(stream, rows, isFloatFormat(settings.colorFormat), alpha, progress);
}

Optional<String> writeTiff(std::iostream& stream, FileRows& rows, const Progress& progress)
{
    const bool hasAlpha = rows.channelCount() == 4;
    return writeFile(stream, rows, false,
                     hasAlpha ? Optional<AlphaKind>(AlphaKind::STRAIGHT) : Optional<AlphaKind>(), progress);
}

} // namespace Nolvex::Viewer
