// SPDX-License-Identifier: MIT
#include "apps/viewer/writing/OpenExrWriter.h"

#include "NolvexLib/Array.h"
#include "apps/viewer/reading/OpenExrMetadata.h"
#include "apps/viewer/writing/RowEncoder.h"

#include <ImfChannelList.h>
#include <ImfFrameBuffer.h>
#include <ImfHeader.h>
#include <ImfIO.h>
#include <ImfOutputFile.h>

#include <algorithm>
#include <exception>
#include <iostream>

namespace Nolvex::Viewer {

namespace {

constexpr const char* CHANNELS[] = {"R", "G", "B", "A"};

// As many rows as a block of the compression has.
constexpr int BLOCK_ROWS = 16;

class StreamAdapter : public Imf::OStream
{
public:
    explicit StreamAdapter(std::iostream& stream) : Imf::OStream("picture"), m_stream(stream) {}

    // OpenEXR expects an exception if the bytes cannot be written.
    void write(const char bytes[], int count) override
    {
        if (!m_stream.write(bytes, count))
            throw std::ios_base::failure("not written");
    }

    std::uint64_t tellp() override { return static_cast<std::uint64_t>(std::streamoff(m_stream.tellp())); }

    void seekp(std::uint64_t position) override { m_stream.seekp(static_cast<std::streamoff>(position)); }

private:
    std::iostream& m_stream;
};

// Writes the rows of an image to a file, a block at a time.
class BlockWriter
{
public:
    BlockWriter(Imf::OutputFile& file, RowEncoder& rows, Imf::PixelType type)
        : m_file(file), m_rows(rows), m_type(type), m_block(rows.rowBytes() * BLOCK_ROWS)
    {}

    void write(int first, int end)
    {
        for (int y = first; y < end; ++y)
            m_rows.encode(y, m_block.data() + static_cast<std::size_t>(y - first) * m_rows.rowBytes());
        m_file.setFrameBuffer(bufferFrom(first));
        m_file.writePixels(end - first);
    }

private:
    // OpenEXR counts rows from the first row of the picture, and so before the start of the block.
    Imf::FrameBuffer bufferFrom(int first)
    {
        Imf::FrameBuffer buffer;
        const std::size_t pixel = m_rows.channelBytes() * static_cast<std::size_t>(m_rows.channelCount());
        char* const start = reinterpret_cast<char*>(m_block.data());
        for (int channel = 0; channel < m_rows.channelCount(); ++channel) {
            const std::size_t offset = m_rows.channelBytes() * static_cast<std::size_t>(channel);
            const Imath::Box2i& window = m_file.header().dataWindow();
            const Imath::Box2i rows(Imath::V2i(window.min.x, window.min.y + first),
                                    Imath::V2i(window.max.x, window.min.y + first + BLOCK_ROWS - 1));
            buffer.insert(CHANNELS[channel],
                          Imf::Slice::Make(m_type, start + offset, rows, pixel, m_rows.rowBytes()));
        }
        return buffer;
    }

    Imf::OutputFile& m_file;
    RowEncoder& m_rows;
    Imf::PixelType m_type;
    Array<std::byte> m_block;
};

// The frame stays where it was in the file that the picture is from.
Imath::V2i framePlace(const OpenExrHeader* old)
{
    return old == nullptr ? Imath::V2i(0, 0) : old->header().displayWindow().min;
}

Imath::Box2i boxOf(const Imath::V2i& place, const Pixel& size)
{
    return {place, Imath::V2i(place.x + size.x - 1, place.y + size.y - 1)};
}

Imf::Header headerOf(const Picture& picture, const RowEncoder& rows, Imf::PixelType type)
{
    const auto* const old = dynamic_cast<const OpenExrHeader*>(picture.formatMetadata());
    const Imath::V2i place = framePlace(old);
    const Imath::V2i origin(picture.origin().x, picture.origin().y);
    Imf::Header header(boxOf(place, picture.frameSize()), boxOf(place + origin, picture.size()));
    if (old != nullptr)
        copyLastingAttributes(old->header(), header);
    header.compression() = Imf::ZIP_COMPRESSION;
    for (int channel = 0; channel < rows.channelCount(); ++channel)
        header.channels().insert(CHANNELS[channel], Imf::Channel(type));
    return header;
}

} // namespace

Optional<String> writeOpenExr(std::iostream& stream, const Picture& picture,
                              const Wx::ImageSaveSettings& settings, const Progress& progress)
{
    const bool isFloat = settings.colorFormat == ColorFormat::FLT32_LINEAR_RGB;
    const Imf::PixelType type = isFloat ? Imf::FLOAT : Imf::HALF;
    RowEncoder rows(picture, isFloat ? ColorFormat::FLT32_LINEAR_RGB : ColorFormat::FLT16_LINEAR_RGB,
                    settings.includeAlpha ? Optional<AlphaKind>(AlphaKind::ASSOCIATED)
                                          : Optional<AlphaKind>());
    const int height = picture.size().y;
    try {
        StreamAdapter adapter(stream);
        Imf::OutputFile file(adapter, headerOf(picture, rows, type));
        BlockWriter blocks(file, rows, type);
        for (int y = 0; y < height; y += BLOCK_ROWS) {
            if (!progress(static_cast<float>(y) / static_cast<float>(height)))
                return {};
            blocks.write(y, std::min(y + BLOCK_ROWS, height));
        }
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception&) {
        return String(L"the file cannot be written");
    }
    if (!stream.flush())
        return String(L"the file cannot be written");
    return {};
}

} // namespace Nolvex::Viewer
