// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "apps/viewer/HalfFloat.h"

#include <tiffio.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <ostream>
#include <string>

namespace Nolvex::Tests {

inline constexpr int TIFF_WIDTH = 21;
inline constexpr int TIFF_HEIGHT = 13;

/// What a file of the tests is like.
struct TiffKind
{
    int bits = 16;
    bool isFloat = false;
    int colours = 3;
    int alpha = -1; // the kind of the extra sample, or -1
    bool isPlanar = false;
    bool isTiled = false;
    int orientation = ORIENTATION_TOPLEFT;
    int compression = COMPRESSION_NONE;
    int photometric = -1;
    bool isBigEndian = false;
};

inline std::ostream& operator<<(std::ostream& stream, const TiffKind& kind)
{
    return stream << kind.bits << (kind.isFloat ? " bits float, " : " bits, ") << kind.colours
                  << " colours, alpha " << kind.alpha << (kind.isPlanar ? ", planar" : "")
                  << (kind.isTiled ? ", tiled" : "") << ", orientation " << kind.orientation
                  << ", compression " << kind.compression << (kind.isBigEndian ? ", big endian" : "");
}

/// Returns the sample of a pixel, from 0 to 1. The last sample is alpha, which is not 0.
inline float tiffSampleAt(int x, int y, int sample, bool isAlpha)
{
    return isAlpha ? 0.25f + static_cast<float>(x) / 32.0f
                   : static_cast<float>((x * 7 + y * 3 + sample * 5) % 64) / 64.0f;
}

inline void putSample(const TiffKind& kind, float value, std::string& to)
{
    const auto put = [&to](auto number) { to.append(reinterpret_cast<const char*>(&number), sizeof number); };
    if (kind.isFloat && kind.bits == 16)
        put(Viewer::toHalf(value));
    else if (kind.isFloat && kind.bits == 32)
        put(value);
    else if (kind.isFloat)
        put(static_cast<double>(value));
    else if (kind.bits == 8)
        put(static_cast<std::uint8_t>(std::lround(value * 255.0f)));
    else if (kind.bits == 16)
        put(static_cast<std::uint16_t>(std::lround(value * 65535.0f)));
    else
        put(static_cast<std::uint32_t>(std::llround(static_cast<double>(value) * 4294967295.0)));
}

/// A file that libtiff writes into memory.
class MemoryTiff
{
public:
    // Opening writes the header already.
    explicit MemoryTiff(const char* mode)
    {
        handle = TIFFClientOpen("memory", mode, this, read, write, seek, close, size, nullptr, nullptr);
    }

    TIFF* handle = nullptr;
    std::string content;

private:
    static MemoryTiff& self(thandle_t handle) { return *static_cast<MemoryTiff*>(handle); }

    static tmsize_t read(thandle_t handle, void* to, tmsize_t count)
    {
        const std::string part =
            self(handle).content.substr(self(handle).m_position, static_cast<std::size_t>(count));
        std::memcpy(to, part.data(), part.size());
        self(handle).m_position += part.size();
        return static_cast<tmsize_t>(part.size());
    }

    static tmsize_t write(thandle_t handle, void* from, tmsize_t count)
    {
        MemoryTiff& file = self(handle);
        const auto length = static_cast<std::size_t>(count);
        file.content.resize(std::max(file.content.size(), file.m_position + length));
        std::memcpy(file.content.data() + file.m_position, from, length);
        file.m_position += length;
        return count;
    }

    static toff_t seek(thandle_t handle, toff_t offset, int origin)
    {
        MemoryTiff& file = self(handle);
        const std::size_t base = origin == SEEK_SET   ? 0
                                 : origin == SEEK_CUR ? file.m_position
                                                      : file.content.size();
        file.m_position = base + static_cast<std::size_t>(offset);
        file.content.resize(std::max(file.content.size(), file.m_position));
        return file.m_position;
    }

    static int close(thandle_t) { return 0; }

    static toff_t size(thandle_t handle) { return self(handle).content.size(); }

    std::size_t m_position = 0;
};

inline void describe(TIFF* file, const TiffKind& kind)
{
    const int samples = kind.colours + (kind.alpha >= 0 ? 1 : 0);
    TIFFSetField(file, TIFFTAG_IMAGEWIDTH, TIFF_WIDTH);
    TIFFSetField(file, TIFFTAG_IMAGELENGTH, TIFF_HEIGHT);
    TIFFSetField(file, TIFFTAG_BITSPERSAMPLE, kind.bits);
    TIFFSetField(file, TIFFTAG_SAMPLEFORMAT, kind.isFloat ? SAMPLEFORMAT_IEEEFP : SAMPLEFORMAT_UINT);
    TIFFSetField(file, TIFFTAG_SAMPLESPERPIXEL, samples);
    TIFFSetField(file, TIFFTAG_PLANARCONFIG, kind.isPlanar ? PLANARCONFIG_SEPARATE : PLANARCONFIG_CONTIG);
    TIFFSetField(file, TIFFTAG_ORIENTATION, kind.orientation);
    TIFFSetField(file, TIFFTAG_COMPRESSION, kind.compression);
    const int usual = kind.colours == 3 ? PHOTOMETRIC_RGB : PHOTOMETRIC_MINISBLACK;
    TIFFSetField(file, TIFFTAG_PHOTOMETRIC, kind.photometric >= 0 ? kind.photometric : usual);
    if (kind.alpha >= 0) {
        const auto meaning = static_cast<std::uint16_t>(kind.alpha);
        TIFFSetField(file, TIFFTAG_EXTRASAMPLES, 1, &meaning);
    }
}

/// Returns the samples of an area. Beyond the edges they are 1.
inline std::string samplesOf(const TiffKind& kind, int left, int top, int width, int height, int plane)
{
    std::string samples;
    const int count = kind.colours + (kind.alpha >= 0 ? 1 : 0);
    for (int y = top; y < top + height; ++y) {
        for (int x = left; x < left + width; ++x) {
            for (int i = 0; i < count; ++i) {
                if (plane >= 0 && i != plane)
                    continue;
                const bool isInside = x < TIFF_WIDTH && y < TIFF_HEIGHT;
                putSample(kind, isInside ? tiffSampleAt(x, y, i, i == kind.colours) : 1.0f, samples);
            }
        }
    }
    return samples;
}

inline void writePixels(TIFF* file, const TiffKind& kind)
{
    constexpr int TILE = 16;
    constexpr int STRIP_ROWS = 5;
    const int planes = kind.isPlanar ? kind.colours + (kind.alpha >= 0 ? 1 : 0) : 1;
    const int width = kind.isTiled ? TILE : TIFF_WIDTH;
    const int height = kind.isTiled ? TILE : STRIP_ROWS;
    for (int plane = 0; plane < planes; ++plane) {
        for (int y = 0; y < TIFF_HEIGHT; y += height) {
            for (int x = 0; x < TIFF_WIDTH; x += width) {
                const int rows = kind.isTiled ? height : std::min(height, TIFF_HEIGHT - y);
                std::string block = samplesOf(kind, x, y, width, rows, kind.isPlanar ? plane : -1);
                const auto sample = static_cast<std::uint16_t>(plane);
                if (kind.isTiled)
                    TIFFWriteTile(file, block.data(), static_cast<std::uint32_t>(x),
                                  static_cast<std::uint32_t>(y), 0, sample);
                else
                    TIFFWriteEncodedStrip(file, TIFFComputeStrip(file, static_cast<std::uint32_t>(y), sample),
                                          block.data(), static_cast<tmsize_t>(block.size()));
            }
        }
    }
}

inline Array<std::byte> tiffFile(const TiffKind& kind, int pages = 1, const std::string& description = {})
{
    MemoryTiff file(kind.isBigEndian ? "wb" : "wl");
    for (int page = 0; page < pages; ++page) {
        describe(file.handle, kind);
        if (!description.empty()) {
            TIFFSetField(file.handle, TIFFTAG_IMAGEDESCRIPTION, description.c_str());
            TIFFSetField(file.handle, TIFFTAG_XRESOLUTION, 72.5);
        }
        if (kind.isTiled) {
            TIFFSetField(file.handle, TIFFTAG_TILEWIDTH, 16);
            TIFFSetField(file.handle, TIFFTAG_TILELENGTH, 16);
        } else {
            TIFFSetField(file.handle, TIFFTAG_ROWSPERSTRIP, 5);
        }
        writePixels(file.handle, kind);
        TIFFWriteDirectory(file.handle);
    }
    TIFFClose(file.handle);
    Array<std::byte> bytes(file.content.size());
    std::memcpy(bytes.data(), file.content.data(), bytes.size());
    return bytes;
}

} // namespace Nolvex::Tests
