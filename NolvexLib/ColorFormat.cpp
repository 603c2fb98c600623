// SPDX-License-Identifier: MIT
#include "NolvexLib/ColorFormat.h"

#include "NolvexLib/StopException.h"

#include <array>

namespace Nolvex {

namespace {

struct NamedFormat
{
    ColorFormat format;
    StringView name;
};

constexpr std::array NAMES = {
    NamedFormat{ColorFormat::DEFAULT, L"DEFAULT"},
    NamedFormat{ColorFormat::UINT8_RGB, L"UINT8_RGB"},
    NamedFormat{ColorFormat::UINT16_RGB, L"UINT16_RGB"},
    NamedFormat{ColorFormat::FLT16_LINEAR_RGB, L"FLT16_LINEAR_RGB"},
    NamedFormat{ColorFormat::FLT32_LINEAR_RGB, L"FLT32_LINEAR_RGB"},
};

} // namespace

String getColorFormatName(ColorFormat format)
{
    for (const NamedFormat& named : NAMES) {
        if (named.format == format)
            return String(named.name);
    }
    Detail::throwStopException("ColorFormat", __LINE__);
}

Optional<ColorFormat> getColorFormatFromName(StringView name)
{
    for (const NamedFormat& named : NAMES) {
        if (named.name == name)
            return named.format;
    }
    return {};
}

} // namespace Nolvex
