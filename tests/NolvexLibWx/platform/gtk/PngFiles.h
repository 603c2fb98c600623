// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Io/Path.h"

#include <glib.h>
#include <png.h>
#include <zlib.h>

#include <cstdint>
#include <memory>
#include <string>

namespace Nolvex::Tests {

/// Returns the colours of a picture in which red is x, green is y and blue is 9.
inline Array<std::uint8_t> placesAsRgb(std::uint32_t width, std::uint32_t height)
{
    Array<std::uint8_t> bytes(std::size_t(3) * width * height);
    std::uint8_t* to = bytes.data();
    for (std::uint32_t y = 0; y < height; ++y) {
        for (std::uint32_t x = 0; x < width; ++x) {
            *to++ = static_cast<std::uint8_t>(x);
            *to++ = static_cast<std::uint8_t>(y);
            *to++ = 9;
        }
    }
    return bytes;
}

inline std::string encodePng(std::uint32_t width, std::uint32_t height)
{
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = width;
    image.height = height;
    image.format = PNG_FORMAT_RGB;
    const Array<std::uint8_t> colours = placesAsRgb(width, height);
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(image);
    std::string file(size, '\0');
    png_image_write_to_memory(&image, file.data(), &size, 0, colours.data(), 0, nullptr);
    file.resize(size);
    return file;
}

/// Returns a file whose header, with a right checksum, claims another size than the picture has.
inline std::string encodePngThatClaims(std::uint32_t width, std::uint32_t height)
{
    constexpr std::size_t KIND = 12;
    constexpr std::size_t HEADER_END = 29;
    std::string file = encodePng(8, 8);
    const auto write = [&file](std::size_t place, std::uint32_t number) {
        for (int i = 0; i < 4; ++i)
            file[place + static_cast<std::size_t>(i)] = static_cast<char>(number >> (24 - 8 * i));
    };
    write(KIND + 4, width);
    write(KIND + 8, height);
    write(HEADER_END, static_cast<std::uint32_t>(
                          crc32(0, reinterpret_cast<const Bytef*>(file.data() + KIND), HEADER_END - KIND)));
    return file;
}

inline std::string uriOf(const Io::Path& file)
{
    const std::unique_ptr<char, void (*)(gpointer)> uri(
        g_filename_to_uri(file.native().c_str(), nullptr, nullptr), g_free);
    return uri.get();
}

} // namespace Nolvex::Tests
