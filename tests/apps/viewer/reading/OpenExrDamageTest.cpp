// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/OpenExrReader.h"

#include "apps/viewer/reading/ExrFiles.h"

#include <gtest/gtest.h>

#include <ImfDeepFrameBuffer.h>
#include <ImfDeepScanLineOutputPart.h>
#include <ImfOpaqueAttribute.h>
#include <ImfStringAttribute.h>

#include <algorithm>
#include <random>
#include <string>
#include <string_view>

using namespace Nolvex;
using Tests::exrFile;
using Tests::ExrPart;
using Viewer::OpenExrReader;
using Viewer::ReadImage;

namespace {

Expected<ReadImage, String> readLayer(ArrayView<const std::byte> file, std::size_t layer = 0)
{
    const auto layers = OpenExrReader().layers(file);
    if (!layers)
        return Unexpected{layers.error()};
    return OpenExrReader().read(file, layer, {});
}

void writeDeepPart(Imf::MultiPartOutputFile& file, int index, int width, int height)
{
    const auto pixels = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    Array<unsigned> counts(pixels, 1);
    float depth = 5.0f;
    Array<float*> samples(pixels, &depth);
    Imf::DeepFrameBuffer buffer;
    buffer.insertSampleCountSlice(Imf::Slice(Imf::UINT, reinterpret_cast<char*>(counts.data()),
                                             sizeof(unsigned), sizeof(unsigned) * width));
    buffer.insert("Z", Imf::DeepSlice(Imf::FLOAT, reinterpret_cast<char*>(samples.data()), sizeof(float*),
                                      sizeof(float*) * width, sizeof(float)));
    Imf::DeepScanLineOutputPart part(file, index);
    part.setFrameBuffer(buffer);
    part.writePixels(height);
}

// Returns a file with a deep part, and with an ordinary part before it if `isMixed`.
Array<std::byte> deepFile(bool isMixed)
{
    ExrPart flat;
    flat.name = "flat";
    // All parts of a file must have the same frame.
    Imf::Header deep(flat.display, Imath::Box2i({0, 0}, {3, 2}));
    deep.setName("deep");
    deep.setType(Imf::DEEPSCANLINE);
    deep.compression() = Imf::ZIPS_COMPRESSION;
    deep.channels().insert("Z", Imf::Channel(Imf::FLOAT));
    Array<Imf::Header> headers{deep};
    if (isMixed)
        headers.insert(headers.begin(), flat.header());
    Tests::ExrMemory memory;
    {
        Imf::MultiPartOutputFile file(memory, headers.data(), static_cast<int>(headers.size()));
        if (isMixed)
            Tests::writeScanLines(file, 0, flat);
        writeDeepPart(file, isMixed ? 1 : 0, 4, 3);
    }
    return memory.content;
}

// Small files of several kinds with one part.
Array<Array<std::byte>> simpleFiles()
{
    Array<Array<std::byte>> files;
    for (const bool isTiled : {false, true}) {
        for (int compression = 0; compression < Imf::NUM_COMPRESSION_METHODS; ++compression) {
            ExrPart part;
            part.channels = {{"R"}, {"G", Imf::FLOAT}, {"B"}, {"Z", Imf::UINT}};
            part.compression = static_cast<Imf::Compression>(compression);
            part.isTiled = isTiled;
            files.push_back(exrFile({part}));
        }
    }
    return files;
}

// The same files, and files with several parts.
Array<Array<std::byte>> soundFiles()
{
    Array<Array<std::byte>> files = simpleFiles();
    ExrPart first;
    first.name = "first";
    ExrPart second;
    second.name = "second";
    second.isTiled = true;
    second.levels = Imf::MIPMAP_LEVELS;
    files.push_back(exrFile({first, second}));
    files.push_back(deepFile(true));
    return files;
}

// Overwrites the number that stands `offset` bytes after a text of the file.
void patchNumber(Array<std::byte>& file, std::string_view text, std::size_t offset, std::uint32_t number)
{
    const auto* first = reinterpret_cast<const std::byte*>(text.data());
    const auto place = std::search(file.begin(), file.end(), first, first + text.size());
    ASSERT_NE(place, file.end());
    for (std::size_t i = 0; i < sizeof number; ++i)
        *(place + static_cast<std::ptrdiff_t>(text.size() + offset + i)) =
            static_cast<std::byte>(number >> 8 * i);
}

} // namespace

TEST(OpenExrDamageTest, everyCut_isAnError)
{
    for (const Array<std::byte>& whole : simpleFiles()) {
        ASSERT_TRUE(readLayer(whole).hasValue());
        for (std::size_t length = 0; length < whole.size(); length += 1 + length % 7) {
            const auto read = readLayer(ArrayView<const std::byte>(whole).first(length));
            ASSERT_FALSE(read.hasValue()) << length;
            EXPECT_EQ(read.error().find(L"it is damaged or cut off"), 0u) << read.error().toUtf8();
        }
    }
}

TEST(OpenExrDamageTest, cutPart_isAnErrorWhileAnotherIsShown)
{
    ExrPart first;
    first.name = "first";
    ExrPart second;
    second.name = "second";
    Array<std::byte> file = exrFile({first, second});
    file.resize(file.size() - 5);
    EXPECT_TRUE(readLayer(file, 0).hasValue());
    EXPECT_FALSE(readLayer(file, 1).hasValue());
}

TEST(OpenExrDamageTest, mutatedFiles_areReadOrRefused)
{
    std::mt19937 random(16); // NOLINT(cert-msc51-cpp): the same files in every run
    for (const Array<std::byte>& whole : soundFiles()) {
        for (int run = 0; run < 300; ++run) {
            Array<std::byte> file = whole;
            for (int i = 0; i < 3; ++i)
                file[random() % file.size()] = static_cast<std::byte>(random());
            const auto read = readLayer(file, random() % 3);
            EXPECT_TRUE(read.hasValue() || !read.error().isEmpty());
        }
    }
}

TEST(OpenExrDamageTest, sizeThatTheFileCannotFill_isRefusedBeforeMemoryIsTaken)
{
    for (const Imf::Compression compression : {Imf::NO_COMPRESSION, Imf::PIZ_COMPRESSION}) {
        ExrPart part;
        part.compression = compression;
        // One row, so that the number of chunks stays right.
        part.data.max.y = part.data.min.y;
        Array<std::byte> file = exrFile({part});
        // After the type, the size and the corner at the top left.
        patchNumber(file, std::string_view("dataWindow", 11), 6 + 4 + 8, 1'000'000'000);
        const auto read = readLayer(file);
        ASSERT_FALSE(read.hasValue());
        EXPECT_EQ(read.error().find(L"it is damaged or cut off"), 0u) << read.error().toUtf8();
    }
}

TEST(OpenExrDamageTest, attributeThatTheFileCannotFill_isRefusedBeforeMemoryIsTaken)
{
    Array<std::byte> file = exrFile(
        {ExrPart()}, [](Imf::Header& header) { header.insert("big", Imf::OpaqueAttribute("unheardOf")); });
    patchNumber(file, std::string_view("unheardOf", 10), 0, 0x7fff'ffff);
    const auto read = readLayer(file);
    ASSERT_FALSE(read.hasValue());
    EXPECT_EQ(read.error(), String(L"it is damaged or cut off (The file ends in its header)"));
}

TEST(OpenExrDamageTest, missingRows_areRefused)
{
    ExrPart part;
    Tests::ExrMemory memory;
    {
        const Imf::Header header = part.header();
        Imf::MultiPartOutputFile file(memory, &header, 1);
    }
    const auto read = readLayer(memory.content);
    ASSERT_FALSE(read.hasValue());
    EXPECT_EQ(read.error(), String(L"it is damaged or cut off (some of its pixels are missing)"));
}

TEST(OpenExrDamageTest, deepPixels_areToldOrRefused)
{
    const auto mixed = readLayer(deepFile(true));
    ASSERT_TRUE(mixed.hasValue());
    EXPECT_EQ(mixed->omissions, (Array<String>{L"It has a part with deep pixels, which is not shown."}));
    const auto deep = readLayer(deepFile(false));
    ASSERT_FALSE(deep.hasValue());
    EXPECT_EQ(deep.error(), String(L"it holds deep pixels only, which are not shown"));
}
