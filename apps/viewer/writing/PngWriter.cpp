// SPDX-License-Identifier: MIT
#include "apps/viewer/writing/PngWriter.h"

#include "NolvexLib/Array.h"
#include "apps/viewer/writing/RowEncoder.h"

#include <png.h>

#include <bit>
#include <csetjmp>
#include <ostream>

namespace Nolvex::Viewer {

namespace {

constexpr int BYTE_BITS = 8;

void writeBytes(png_structp png, png_bytep bytes, png_size_t count)
{
    auto& stream = *static_cast<std::ostream*>(png_get_io_ptr(png));
    if (!stream.write(reinterpret_cast<const char*>(bytes), static_cast<std::streamsize>(count)))
        png_error(png, "the stream failed");
}

void flushBytes(png_structp) {}

[[noreturn]] void giveUp(png_structp png, png_const_charp)
{
    png_longjmp(png, 1);
}

void ignoreWarning(png_structp, png_const_charp) {}

class PngFile
{
public:
    // The rows are asked about here, because GCC 12 takes three channels for four after setjmp.
    PngFile(std::ostream& stream, const FileRows& rows)
        : m_size(rows.size()),
          m_bits(static_cast<int>(rows.channelBytes()) * BYTE_BITS),
          m_colourType(rows.channelCount() == 4 ? PNG_COLOR_TYPE_RGB_ALPHA : PNG_COLOR_TYPE_RGB),
          m_png(png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, giveUp, ignoreWarning)),
          m_info(m_png == nullptr ? nullptr : png_create_info_struct(m_png))
    {
        if (m_info != nullptr)
            png_set_write_fn(m_png, &stream, writeBytes, flushBytes);
    }

    ~PngFile() { png_destroy_write_struct(&m_png, &m_info); }

    PngFile(const PngFile&) = delete;
    PngFile& operator=(const PngFile&) = delete;

    // libpng reports a failure by a jump back to setjmp, past the destructors of what was made since. Nothing
    // with a destructor is made here.
    bool write(FileRows& rows, Array<std::byte>& row, const Progress& progress)
    {
        if (m_info == nullptr || setjmp(png_jmpbuf(m_png)) != 0) // NOLINT(cert-err52-cpp): libpng's way
            return false;
        writeHeader();
        for (int y = 0; y < m_size.y; ++y) {
            if (!progress(static_cast<float>(y) / static_cast<float>(m_size.y)))
                return true;
            rows.encode(y, row.data());
            png_write_row(m_png, reinterpret_cast<png_const_bytep>(row.data()));
        }
        png_write_end(m_png, m_info);
        return true;
    }

private:
    void writeHeader()
    {
        png_set_IHDR(m_png, m_info, static_cast<png_uint_32>(m_size.x), static_cast<png_uint_32>(m_size.y),
                     m_bits, m_colourType, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                     PNG_FILTER_TYPE_DEFAULT);
        png_set_sRGB(m_png, m_info, PNG_sRGB_INTENT_PERCEPTUAL);
        png_write_info(m_png, m_info);
        if (m_bits > BYTE_BITS && std::endian::native == std::endian::little)
            png_set_swap(m_png);
    }

    wxSize m_size;
    int m_bits;
    int m_colourType;
    png_structp m_png;
    png_infop m_info;
};

} // namespace

Optional<String> writePng(std::ostream& stream, const Picture& picture, const Wx::ImageSaveSettings& settings,
                          const Progress& progress)
{
    RowEncoder rows(picture, settings.colorFormat,
                    settings.includeAlpha ? Optional<AlphaKind>(AlphaKind::STRAIGHT) : Optional<AlphaKind>());
    return writePng(stream, rows, progress);
}

Optional<String> writePng(std::ostream& stream, FileRows& rows, const Progress& progress)
{
    Array<std::byte> row(rows.rowBytes());
    PngFile file(stream, rows);
    if (file.write(rows, row, progress))
        return {};
    return String(L"the file cannot be written");
}

} // namespace Nolvex::Viewer
