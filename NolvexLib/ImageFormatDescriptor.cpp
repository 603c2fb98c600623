// SPDX-License-Identifier: MIT
#include "NolvexLib/ImageFormatDescriptor.h"

#include "NolvexLib/StopException.h"

#include <algorithm>
#include <array>
#include <utility>

namespace Nolvex {

namespace {

using Table = std::array<ImageFormatDescriptor, IMAGE_FORMAT_COUNT>;

constexpr ColorFormat U8 = ColorFormat::UINT8_RGB;
constexpr ColorFormat U16 = ColorFormat::UINT16_RGB;
constexpr ColorFormat F16 = ColorFormat::FLT16_LINEAR_RGB;
constexpr ColorFormat F32 = ColorFormat::FLT32_LINEAR_RGB;

enum class Alpha
{
    NO,
    YES,
};

// The first colour format is the default format.
ImageFormatDescriptor describe(ImageFormat format, const wchar_t* name, const wchar_t* mimeType,
                               Array<String> extensions, std::initializer_list<ColorFormat> colorFormats,
                               Alpha alpha)
{
    ImageFormatDescriptor descriptor{
        format, name, mimeType, std::move(extensions), {}, colorFormats, *colorFormats.begin()};
    descriptor.flags.set(ImageFormatFlag::SUPPORTS_ALPHA, alpha == Alpha::YES);
    descriptor.flags.set(ImageFormatFlag::HAS_SAVE_OPTIONS, alpha == Alpha::YES || colorFormats.size() > 1);
    return descriptor;
}

Table makeTable()
{
    using enum ImageFormat;
    using enum Alpha;
    // clang-format off
    return {
        describe(BMP, L"BMP", L"image/bmp", {L"bmp", L"dib"}, {U8}, YES),
        describe(PNG, L"PNG", L"image/png", {L"png"}, {U8, U16}, YES),
        describe(JPEG, L"JPEG", L"image/jpeg", {L"jpg", L"jpeg", L"jpe"}, {U8}, NO),
        describe(EXR, L"OpenEXR", L"image/x-exr", {L"exr"}, {F16, F32}, YES),
        describe(GIF, L"GIF", L"image/gif", {L"gif"}, {U8}, NO),
        describe(TARGA, L"Targa", L"image/x-targa", {L"tga", L"targa"}, {U8}, YES),
        describe(TIFF, L"TIFF", L"image/tiff", {L"tif", L"tiff"}, {U8, U16, F16, F32}, YES),
        describe(RADIANCE, L"Radiance HDR", L"image/vnd.radiance", {L"hdr", L"rgbe"}, {F32}, NO),
        describe(CINEON, L"Cineon", L"image/x-cineon", {L"cin"}, {U16}, NO),
        describe(DDS, L"DirectDraw Surface", L"image/vnd-ms.dds", {L"dds"}, {U8, U16, F16, F32}, YES),
        describe(ICO, L"Windows icon", L"image/vnd.microsoft.icon", {L"ico"}, {U8}, YES),
        describe(IFF, L"IFF", L"image/x-iff", {L"iff"}, {U8, U16}, YES),
        describe(JPEG2000, L"JPEG 2000", L"image/jp2", {L"jp2", L"j2k", L"j2c"}, {U8, U16}, YES),
        describe(PHOTOSHOP, L"Photoshop", L"image/vnd.adobe.photoshop", {L"psd", L"psb"}, {U8, U16, F32}, YES),
        describe(RLA, L"RLA", L"image/x-rla", {L"rla"}, {U8, U16, F32}, YES),
        describe(SGI, L"SGI", L"image/x-sgi", {L"sgi", L"rgb", L"rgba", L"bw"}, {U8, U16}, YES),
        describe(TX, L"Tiled texture", L"image/x-tx", {L"tx"}, {U8, U16, F16, F32}, YES),
    };
    // clang-format on
}

const Table& table()
{
    static const Table TABLE = makeTable();
    return TABLE;
}

// The C library's functions would follow the host's locale.
constexpr wchar_t toLowerAscii(wchar_t unit)
{
    return unit >= L'A' && unit <= L'Z' ? static_cast<wchar_t>(unit - L'A' + L'a') : unit;
}

bool isExtension(StringView text, StringView lowerCaseExtension)
{
    return std::ranges::equal(text.view(), lowerCaseExtension.view(), {}, toLowerAscii);
}

} // namespace

const ImageFormatDescriptor& getImageFormatDescriptor(ImageFormat format)
{
    const auto index = static_cast<std::size_t>(format);
    if (index >= table().size())
        Detail::throwStopException("ImageFormatDescriptor", __LINE__);
    return table()[index];
}

Optional<ImageFormat> getImageFormatFromExtension(StringView extension)
{
    for (const ImageFormatDescriptor& descriptor : table()) {
        for (const String& known : descriptor.extensions) {
            if (isExtension(extension, known))
                return descriptor.format;
        }
    }
    return {};
}

} // namespace Nolvex
