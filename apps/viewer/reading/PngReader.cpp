// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/PngReader.h"

#include "apps/viewer/reading/BlankImage.h"
#include "apps/viewer/reading/NumberText.h"
#include "apps/viewer/reading/Omissions.h"
#include "apps/viewer/reading/ReadOutcome.h"

#include <png.h>

#include <bit>
#include <cmath>
#include <csetjmp>
#include <cstdint>
#include <cstring>
#include <string>
#include <utility>

namespace Nolvex::Viewer {

namespace {

constexpr std::size_t SIGNATURE_BYTES = 8;
constexpr int BYTE_BITS = 8;
constexpr std::int32_t MAX_LENGTH = 0x7fff'ffff; // of a side

// The exponent by which files for usual displays are encoded is 1 divided by this.
constexpr double DISPLAY_EXPONENT = 2.2;
constexpr double GAMMA_TOLERANCE = 0.05;

std::uint32_t numberAt(ArrayView<const std::byte> bytes)
{
    std::uint32_t number = 0;
    for (const std::byte byte : bytes.first(sizeof number))
        number = number << BYTE_BITS | std::to_integer<std::uint32_t>(byte);
    return number;
}

// Returns the number of frames of an animation, which a chunk before the pixels tells, or 1.
std::uint32_t frameCount(ArrayView<const std::byte> file)
{
    constexpr std::size_t TYPE = 4; // where the name of a chunk begins, after the length of its data
    constexpr std::size_t DATA = 8;
    constexpr std::size_t CHECKSUM_BYTES = 4;
    file = file.subspan(SIGNATURE_BYTES);
    while (file.size() > DATA + sizeof(std::uint32_t)) {
        const char* const type = reinterpret_cast<const char*>(file.data()) + TYPE;
        if (std::memcmp(type, "acTL", DATA - TYPE) == 0)
            return numberAt(file.subspan(DATA));
        const std::uint64_t length = std::uint64_t(numberAt(file)) + DATA + CHECKSUM_BYTES;
        if (std::memcmp(type, "IDAT", DATA - TYPE) == 0 || length > file.size())
            break;
        file = file.subspan(static_cast<std::size_t>(length));
    }
    return 1;
}

struct Source
{
    ArrayView<const std::byte> rest;
};

void readBytes(png_structp png, png_bytep to, png_size_t count)
{
    auto& source = *static_cast<Source*>(png_get_io_ptr(png));
    if (count > source.rest.size())
        png_error(png, "the file ends");
    std::memcpy(to, source.rest.data(), count);
    source.rest = source.rest.subspan(count);
}

[[noreturn]] void giveUp(png_structp png, png_const_charp)
{
    png_longjmp(png, 1);
}

void ignoreWarning(png_structp, png_const_charp) {}

// libpng reports a failure by a jump back to setjmp, past the destructors of what was made since. Nothing
// with a destructor is made between.
class PngFile
{
public:
    explicit PngFile(ArrayView<const std::byte> file)
        : m_source{file},
          m_png(png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, giveUp, ignoreWarning)),
          m_info(m_png == nullptr ? nullptr : png_create_info_struct(m_png))
    {
        if (m_info == nullptr)
            return;
        png_set_read_fn(m_png, &m_source, readBytes);
        png_set_user_limits(m_png, MAX_LENGTH, MAX_LENGTH);
    }

    ~PngFile() { png_destroy_read_struct(&m_png, &m_info, nullptr); }

    PngFile(const PngFile&) = delete;
    PngFile& operator=(const PngFile&) = delete;

    bool readHeader()
    {
        if (m_info == nullptr || setjmp(png_jmpbuf(m_png)) != 0) // NOLINT(cert-err52-cpp): libpng's way
            return false;
        png_read_info(m_png, m_info);
        chooseFormat();
        m_passes = png_set_interlace_handling(m_png);
        png_read_update_info(m_png, m_info);
        return true;
    }

    std::int32_t width() const { return static_cast<std::int32_t>(png_get_image_width(m_png, m_info)); }

    std::int32_t height() const { return static_cast<std::int32_t>(png_get_image_height(m_png, m_info)); }

    /// Returns whether so many pixels can come from a file of that size.
    bool fits(std::size_t fileSize) const
    {
        const std::uint64_t rowBytes =
            (static_cast<std::uint64_t>(width()) * m_pixelBitsInFile + BYTE_BITS - 1) / BYTE_BITS;
        return rowBytes * static_cast<std::uint64_t>(height()) / MAX_INFLATION <= fileSize;
    }

    PixelFormat format() const
    {
        const bool isWide = png_get_bit_depth(m_png, m_info) > BYTE_BITS;
        switch (png_get_channels(m_png, m_info)) {
        case 1:
            return isWide ? PixelFormat::UINT16_GREY : PixelFormat::UINT8_GREY;
        case 3:
            return isWide ? PixelFormat::UINT16_RGB : PixelFormat::UINT8_RGB;
        default:
            return isWide ? PixelFormat::UINT16_RGBA : PixelFormat::UINT8_RGBA;
        }
    }

    /// Returns the gamma of the image: that of the display unless the file says otherwise.
    float gamma() const
    {
        double encoding = 0.0;
        if (png_get_valid(m_png, m_info, PNG_INFO_sRGB | PNG_INFO_iCCP) != 0 ||
            png_get_gAMA(m_png, m_info, &encoding) == 0)
            return GAMMA_OF_ENCODED;
        const double gamma = encoding * DISPLAY_EXPONENT;
        const bool isSound = gamma > GAMMA_TOLERANCE && gamma < 1 / GAMMA_TOLERANCE;
        return isSound && std::abs(gamma - 1.0) > GAMMA_TOLERANCE ? static_cast<float>(gamma)
                                                                  : GAMMA_OF_ENCODED;
    }

    /// Returns the texts of the file. Those after the pixels are there once the rows have been read.
    Array<MetadataEntry> metadata() const
    {
        Array<MetadataEntry> entries;
        png_textp texts = nullptr;
        const int count = png_get_text(m_png, m_info, &texts, nullptr);
        for (int i = 0; i < count; ++i)
            entries.push_back({latin1(texts[i].key), valueOf(texts[i])});
        double encoding = 0.0;
        if (png_get_gAMA(m_png, m_info, &encoding) != 0)
            entries.push_back({L"gamma", String::fromUtf8(numberText(encoding))});
        return entries;
    }

    ReadOutcome readRows(Image& image, const ReadingProgress& progress)
    {
        if (setjmp(png_jmpbuf(m_png)) != 0) // NOLINT(cert-err52-cpp): libpng's way
            return ReadOutcome::DAMAGED;
        const std::int32_t rows = image.descriptor().height;
        for (int pass = 0; pass < m_passes; ++pass) {
            for (std::int32_t y = 0; y < rows; ++y) {
                if (progress && !progress(shareDone(pass, y, rows)))
                    return ReadOutcome::STOPPED;
                png_read_row(m_png, reinterpret_cast<png_bytep>(image.row(rows - 1 - y).data()), nullptr);
            }
        }
        png_read_end(m_png, m_info);
        return ReadOutcome::DONE;
    }

private:
    static String latin1(const char* text)
    {
        std::wstring wide;
        for (; *text != '\0'; ++text)
            wide += static_cast<wchar_t>(static_cast<unsigned char>(*text));
        return wide;
    }

    static String valueOf(const png_text& entry)
    {
        if (entry.text == nullptr)
            return {};
        const bool isUtf8 = entry.compression >= PNG_ITXT_COMPRESSION_NONE;
        return isUtf8 ? String::fromUtf8(entry.text) : latin1(entry.text);
    }

    // Asks libpng for 8 or 16 bits for each of 1, 3 or 4 channels.
    void chooseFormat()
    {
        m_pixelBitsInFile = std::uint64_t(png_get_channels(m_png, m_info)) * png_get_bit_depth(m_png, m_info);
        png_set_expand(m_png);
        const int colours = png_get_color_type(m_png, m_info);
        const bool hasAlpha =
            (colours & PNG_COLOR_MASK_ALPHA) != 0 || png_get_valid(m_png, m_info, PNG_INFO_tRNS) != 0;
        if ((colours & PNG_COLOR_MASK_COLOR) == 0 && hasAlpha)
            png_set_gray_to_rgb(m_png);
        if (std::endian::native == std::endian::little)
            png_set_swap(m_png);
    }

    float shareDone(int pass, std::int32_t row, std::int32_t rows) const
    {
        const double done = static_cast<double>(pass) + static_cast<double>(row) / rows;
        return static_cast<float>(done / m_passes);
    }

    Source m_source;
    png_structp m_png;
    png_infop m_info;
    std::uint64_t m_pixelBitsInFile = 0;
    int m_passes = 1;
};

} // namespace

Array<String> PngReader::extensions() const
{
    return {L"png"};
}

bool PngReader::knows(ArrayView<const std::byte> file) const
{
    return file.size() >= SIGNATURE_BYTES &&
           png_sig_cmp(reinterpret_cast<png_const_bytep>(file.data()), 0, SIGNATURE_BYTES) == 0;
}

Expected<ReadImage, String> PngReader::read(ArrayView<const std::byte> file, std::size_t /*layer*/,
                                            const ReadingProgress& progress) const
{
    PngFile png(file);
    if (!png.readHeader() || !png.fits(file.size()))
        return readFailure(ReadOutcome::DAMAGED);
    Expected<Image, String> image = blankImage(png.width(), png.height(), png.format(), png.gamma());
    if (!image)
        return Unexpected{image.error()};
    const ReadOutcome outcome = png.readRows(*image, progress);
    if (outcome != ReadOutcome::DONE)
        return readFailure(outcome);
    return ReadImage{
        .image = std::move(*image), .omissions = omittedFrames(frameCount(file)), .metadata = png.metadata()};
}

} // namespace Nolvex::Viewer
