// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace Nolvex::Viewer {

/// A format that OpenImageIO reads for the viewer.
struct OtherFormat
{
    const char* name;       ///< of OpenImageIO's reader
    std::string_view magic; ///< what the files begin with

    bool knows(ArrayView<const std::byte> file) const
    {
        return file.size() >= magic.size() &&
               std::equal(magic.begin(), magic.end(), reinterpret_cast<const char*>(file.data()));
    }
};

inline constexpr std::array<OtherFormat, 12> OTHER_FORMATS{{
    {"cineon", {"\x80\x2a\x5f\xd7", 4}},
    {"cineon", {"\xd7\x5f\x2a\x80", 4}},
    {"dds", "DDS "},
    {"dpx", "SDPX"},
    {"dpx", "XPDS"},
    {"fits", "SIMPLE  ="},
    {"iff", "FOR4"},
    {"jpeg2000", {"\0\0\0\x0cjP  \r\n\x87\n", 12}},
    {"jpeg2000", {"\xff\x4f\xff\x51", 4}},
    {"sgi", {"\x01\xda\x00", 3}},
    {"sgi", {"\x01\xda\x01", 3}},
    {"softimage", {"\x53\x80\xf6\x34", 4}},
}};

/// Returns null if the file has none of the formats.
inline const OtherFormat* otherFormatOf(ArrayView<const std::byte> file)
{
    const auto* const found = std::find_if(OTHER_FORMATS.begin(), OTHER_FORMATS.end(),
                                           [file](const OtherFormat& format) { return format.knows(file); });
    return found == OTHER_FORMATS.end() ? nullptr : found;
}

/// The function of the module. Returns the reader, or null if the module is of another version of the viewer.
using OtherFormatsFunction = const class PictureReader* (*)(const char* version);
inline constexpr char OTHER_FORMATS_FUNCTION[] = "nolvexOtherFormatsReader";

} // namespace Nolvex::Viewer
