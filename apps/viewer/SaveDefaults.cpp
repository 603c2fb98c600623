// SPDX-License-Identifier: MIT
#include "apps/viewer/SaveDefaults.h"

#include "NolvexLib/Array.h"
#include "NolvexLib/ImageFormatDescriptor.h"
#include "NolvexLibImage/Image.h"
#include "apps/viewer/Settings.h"

namespace Nolvex::Viewer {

namespace {

// The colour formats that keep the values of an image, the best one first.
Array<ColorFormat> fittingFormats(PixelFormat format)
{
    using enum ColorFormat;
    switch (format) {
    case PixelFormat::UINT8_GREY:
    case PixelFormat::UINT8_RGB:
    case PixelFormat::UINT8_RGBA:
        return {UINT8_RGB};
    case PixelFormat::UINT16_GREY:
    case PixelFormat::UINT16_RGB:
    case PixelFormat::UINT16_RGBA:
        return {UINT16_RGB, FLT32_LINEAR_RGB};
    case PixelFormat::FLOAT16_GREY:
    case PixelFormat::FLOAT16_RGB:
    case PixelFormat::FLOAT16_RGBA:
        return {FLT16_LINEAR_RGB, FLT32_LINEAR_RGB, UINT16_RGB};
    case PixelFormat::FLOAT32_GREY:
    case PixelFormat::FLOAT32_RGB:
    case PixelFormat::FLOAT32_RGBA:
        return {FLT32_LINEAR_RGB, FLT16_LINEAR_RGB, UINT16_RGB};
    }
    return {};
}

} // namespace

Optional<Wx::ImageSaveSettings> SaveDefaults::getDefaults(ImageFormat format, std::uint32_t flags)
{
    if (const auto chosen = m_chosen.find(format); chosen != m_chosen.end())
        return chosen->second;
    if (Optional<Wx::ImageSaveSettings> remembered = m_settings.saveChoice(format))
        return remembered;
    constexpr std::uint32_t ALPHA = 1;
    const ImageFormatDescriptor& descriptor = getImageFormatDescriptor(format);
    Wx::ImageSaveSettings settings{descriptor.defaultColorFormat, false};
    settings.includeAlpha = (flags & ALPHA) != 0 && Image::getPixelFormatChannelCount(m_picture.format) == 4;
    for (const ColorFormat fitting : fittingFormats(m_picture.format)) {
        if (descriptor.allowedColorFormats.has(fitting)) {
            settings.colorFormat = fitting;
            break;
        }
    }
    return settings;
}

void SaveDefaults::storeSettings(ImageFormat format, const Wx::ImageSaveSettings& settings)
{
    m_chosen[format] = settings;
    m_settings.setSaveChoice(format, settings);
}

} // namespace Nolvex::Viewer
