// SPDX-License-Identifier: MIT
#include "NolvexLibWx/decoding/SoundImage.h"

#include "Refusals.h"
#include "support/PictureFiles.h"

#include <wx/image.h>
#include <wx/log.h>
#include <wx/mstream.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>

using namespace Nolvex;
using Decoding::checkGif;
using Tests::contentOf;
using Tests::firstOf;
using Tests::pictureFile;

namespace {

constexpr std::uint32_t CLEAR = 256;
constexpr std::uint32_t END = 257;

/// Writes the codes of a GIF of 256 shades of grey.
class GifWriter
{
public:
    GifWriter(int width, int height)
    {
        write({'G', 'I', 'F', '8', '9', 'a'});
        write({width & 0xFF, width >> 8, height & 0xFF, height >> 8, 0xF7, 0, 0});
        for (int shade = 0; shade < 256; ++shade)
            write({shade, shade, shade});
        write({',', 0, 0, 0, 0, width & 0xFF, width >> 8, height & 0xFF, height >> 8, 0, 8});
    }

    void code(std::uint32_t value)
    {
        m_pending |= value << m_pendingBits;
        m_pendingBits += m_bits;
        for (; m_pendingBits >= 8; m_pendingBits -= 8) {
            addData(m_pending & 0xFF);
            m_pending >>= 8;
        }
        followTable(value);
    }

    bool isTableFull() const { return m_free == TABLE_SIZE; }

    Array<std::byte> finish()
    {
        if (m_pendingBits > 0)
            addData(m_pending & 0xFF);
        writeBlock();
        write({0, ';'});
        return m_file;
    }

private:
    static constexpr std::uint32_t TABLE_SIZE = 4096;

    void write(std::initializer_list<int> bytes)
    {
        for (const int byte : bytes)
            m_file.push_back(static_cast<std::byte>(byte));
    }

    void addData(std::uint32_t byte)
    {
        m_block.push_back(static_cast<std::byte>(byte));
        if (m_block.size() == 255)
            writeBlock();
    }

    void writeBlock()
    {
        if (m_block.empty())
            return;
        write({static_cast<int>(m_block.size())});
        m_file.insert(m_file.end(), m_block.begin(), m_block.end());
        m_block.clear();
    }

    /// Each code but the first behind a clear code adds a string to the table.
    void followTable(std::uint32_t value)
    {
        if (value == CLEAR) {
            m_free = END + 1;
            m_bits = 9;
            m_first = true;
        } else if (m_first) {
            m_first = false;
        } else if (m_free < TABLE_SIZE && ++m_free == 1u << m_bits && m_bits < 12) {
            ++m_bits;
        }
    }

    Array<std::byte> m_file;
    Array<std::byte> m_block;
    std::uint32_t m_pending = 0;
    std::uint32_t m_pendingBits = 0;
    std::uint32_t m_bits = 9;
    std::uint32_t m_free = END + 1;
    bool m_first = true;
};

int shadeOf(int pixel)
{
    return pixel * 7 % 256;
}

enum class Clearing
{
    WHEN_FULL,
    NEVER,
};

/// Returns a GIF with a code for each pixel, whose table is full after 3,839 pixels.
Array<std::byte> gifOf(int width, int height, Clearing clearing)
{
    GifWriter writer(width, height);
    writer.code(CLEAR);
    for (int pixel = 0; pixel < width * height; ++pixel) {
        if (clearing == Clearing::WHEN_FULL && writer.isTableFull())
            writer.code(CLEAR);
        writer.code(static_cast<std::uint32_t>(shadeOf(pixel)));
    }
    writer.code(END);
    return writer.finish();
}

Array<std::byte> gifOfCodes(std::initializer_list<std::uint32_t> codes)
{
    GifWriter writer(4, 4);
    for (const std::uint32_t code : codes)
        writer.code(code);
    return writer.finish();
}

/// Returns the picture as wxWidgets decodes the bytes, or an invalid picture.
wxImage decodedByWxWidgets(ArrayView<const std::byte> bytes)
{
    const wxLogNull silence;
    wxMemoryInputStream stream(bytes.data(), bytes.size());
    wxImage image;
    image.LoadFile(stream, wxBITMAP_TYPE_GIF);
    return image;
}

String errorOf(ArrayView<const std::byte> file)
{
    return Tests::errorOf(checkGif, file);
}

} // namespace

TEST(GifCheckTest, tableThatIsClearedWhenFull_isAccepted)
{
    const Array<std::byte> file = gifOf(100, 80, Clearing::WHEN_FULL);
    const Decoding::CheckedImage image = checkGif(file);
    ASSERT_TRUE(image.hasValue());
    const wxImage decoded = decodedByWxWidgets(image->bytes());
    ASSERT_EQ(decoded.GetSize(), wxSize(100, 80));
    for (int pixel = 0; pixel < 100 * 80; ++pixel)
        ASSERT_EQ(decoded.GetRed(pixel % 100, pixel / 100), shadeOf(pixel)) << pixel;
}

TEST(GifCheckTest, pictureThatEndsWithAFullTable_isAccepted)
{
    const Array<std::byte> file = gifOf(11, 349, Clearing::NEVER);
    EXPECT_EQ(errorOf(file), String());
    EXPECT_TRUE(decodedByWxWidgets(file).IsOk());
}

TEST(GifCheckTest, tableThatStaysFull_isRefusedWithItsReason)
{
    const Array<std::byte> file = gifOf(64, 60, Clearing::NEVER);
    EXPECT_EQ(errorOf(file), L"it goes on with a full table of codes, which is not supported");
    EXPECT_FALSE(decodedByWxWidgets(file).IsOk()) << "wxWidgets decodes this form now";
}

TEST(GifCheckTest, cutFile_isShort)
{
    const Array<std::byte> file = contentOf(pictureFile("pattern.gif"));
    EXPECT_EQ(errorOf(file), String());
    for (const std::size_t size : {std::size_t(12), std::size_t(400), file.size() / 2, file.size() - 20})
        EXPECT_EQ(errorOf(firstOf(file, size)), Tests::ENDS_EARLY) << size;
}

TEST(GifCheckTest, missingTrailer_isNoFault)
{
    const Array<std::byte> file = contentOf(pictureFile("pattern.gif"));
    EXPECT_EQ(errorOf(firstOf(file, file.size() - 1)), String());
}

TEST(GifCheckTest, endCodeBeforeTheLastPixel_isShort)
{
    EXPECT_EQ(errorOf(gifOfCodes({CLEAR, 1, 2, 3, END})), Tests::ENDS_EARLY);
}

TEST(GifCheckTest, codeThatTheTableDoesNotHave_isDamage)
{
    EXPECT_EQ(errorOf(gifOfCodes({CLEAR, 1, 400})), Tests::IS_DAMAGED);
    EXPECT_EQ(errorOf(gifOfCodes({CLEAR, 258})), Tests::IS_DAMAGED) << "a repetition of nothing";
    // 258 repeats the first pixel twice, 259 three times, and so on: 1 + 2 + 3 + 4 + 5 and then one.
    EXPECT_EQ(errorOf(gifOfCodes({CLEAR, 1, 258, 259, 260, 261, 1, END})), String());
}

TEST(GifCheckTest, acceptedFile_endsBehindItsFirstFrame)
{
    const Array<std::byte> file = contentOf(pictureFile("formats/animated.gif"));
    const Decoding::CheckedImage image = checkGif(file);
    ASSERT_TRUE(image.hasValue());
    EXPECT_LT(image->bytes().size(), file.size());
    EXPECT_EQ(image->bytes().back(), std::byte(';'));
}
