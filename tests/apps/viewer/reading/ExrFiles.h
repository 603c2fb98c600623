// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"

#include <ImfChannelList.h>
#include <ImfFrameBuffer.h>
#include <ImfHeader.h>
#include <ImfIO.h>
#include <ImfMultiPartOutputFile.h>
#include <ImfOutputPart.h>
#include <ImfPartType.h>
#include <ImfTileDescription.h>
#include <ImfTiledOutputPart.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <string>

namespace Nolvex::Tests {

/// A file that OpenEXR writes into memory.
class ExrMemory : public Imf::OStream
{
public:
    ExrMemory() : OStream("memory") {}

    void write(const char* from, int count) override
    {
        const auto length = static_cast<std::size_t>(count);
        if (content.size() < m_position + length)
            content.resize(m_position + length);
        std::memcpy(content.data() + m_position, from, length);
        m_position += length;
    }

    uint64_t tellp() override { return m_position; }

    void seekp(uint64_t position) override { m_position = static_cast<std::size_t>(position); }

    Array<std::byte> content;

private:
    std::size_t m_position = 0;
};

struct ExrChannel
{
    std::string name;
    Imf::PixelType type = Imf::HALF;
    int sampling = 1;
};

/// Returns the value of a channel, by the place of the channel in ExrPart::channels.
using ExrValue = std::function<double(int x, int y, int channel)>;

/// Returns values from 0 to 1 that halves hold exactly.
inline double exactValue(int x, int y, int channel)
{
    return (((x * 7 + y * 3 + channel * 5) % 64 + 64) % 64) / 64.0;
}

/// A part of an EXR file. The bounds of the windows are inclusive.
struct ExrPart
{
    std::string name;
    Array<ExrChannel> channels{{"R"}, {"G"}, {"B"}};
    Imath::Box2i data{{0, 0}, {20, 12}};
    Imath::Box2i display{{0, 0}, {20, 12}};
    Imf::Compression compression = Imf::ZIP_COMPRESSION;
    Imf::LineOrder order = Imf::INCREASING_Y;
    bool isTiled = false;
    Imf::LevelMode levels = Imf::ONE_LEVEL;
    ExrValue value = exactValue;

    Imf::Header header() const
    {
        Imf::Header header(display, data, 1.0f, Imath::V2f(0, 0), 1.0f, order, compression);
        for (const ExrChannel& channel : channels)
            header.channels().insert(channel.name,
                                     Imf::Channel(channel.type, channel.sampling, channel.sampling));
        if (isTiled)
            header.setTileDescription(Imf::TileDescription(8, 8, levels));
        if (!name.empty())
            header.setName(name);
        header.setType(isTiled ? Imf::TILEDIMAGE : Imf::SCANLINEIMAGE);
        return header;
    }
};

/// The samples of one channel, as wide as OpenEXR wants them.
class ExrSamples
{
public:
    ExrSamples(const ExrPart& part, std::size_t channel, const Imath::Box2i& window)
        : m_channel(part.channels[channel]), m_window(window)
    {
        for (int y = window.min.y; y <= window.max.y; ++y) {
            for (int x = window.min.x; x <= window.max.x; ++x) {
                if (x % m_channel.sampling == 0 && y % m_channel.sampling == 0)
                    append(part.value(x, y, static_cast<int>(channel)));
            }
        }
    }

    Imf::Slice slice()
    {
        const std::size_t size = m_channel.type == Imf::HALF ? 2 : 4;
        const auto width =
            static_cast<std::size_t>((m_window.max.x - m_window.min.x) / m_channel.sampling + 1);
        return Imf::Slice::Make(m_channel.type, m_bytes.data(), m_window, size, size * width,
                                m_channel.sampling, m_channel.sampling);
    }

private:
    void append(double value)
    {
        const auto put = [this](auto number) {
            m_bytes.append(reinterpret_cast<const char*>(&number), sizeof number);
        };
        if (m_channel.type == Imf::HALF)
            put(Imath::half(static_cast<float>(value)).bits());
        else if (m_channel.type == Imf::FLOAT)
            put(static_cast<float>(value));
        else
            put(static_cast<std::uint32_t>(value));
    }

    ExrChannel m_channel;
    Imath::Box2i m_window;
    std::string m_bytes;
};

inline void writeTiles(Imf::MultiPartOutputFile& file, int index, const ExrPart& part)
{
    Imf::TiledOutputPart tiles(file, index);
    for (int level = 0; level < tiles.numLevels(); ++level) {
        Array<ExrSamples> samples;
        Imf::FrameBuffer buffer;
        for (std::size_t i = 0; i < part.channels.size(); ++i)
            samples.emplace_back(part, i, tiles.dataWindowForLevel(level));
        for (std::size_t i = 0; i < part.channels.size(); ++i)
            buffer.insert(part.channels[i].name, samples[i].slice());
        tiles.setFrameBuffer(buffer);
        tiles.writeTiles(0, tiles.numXTiles(level) - 1, 0, tiles.numYTiles(level) - 1, level);
    }
}

inline void writeScanLines(Imf::MultiPartOutputFile& file, int index, const ExrPart& part)
{
    Imf::OutputPart lines(file, index);
    Array<ExrSamples> samples;
    Imf::FrameBuffer buffer;
    for (std::size_t i = 0; i < part.channels.size(); ++i)
        samples.emplace_back(part, i, part.data);
    for (std::size_t i = 0; i < part.channels.size(); ++i)
        buffer.insert(part.channels[i].name, samples[i].slice());
    lines.setFrameBuffer(buffer);
    lines.writePixels(part.data.max.y - part.data.min.y + 1);
}

/// Returns a file with these parts. The headers may be changed before they are written.
inline Array<std::byte> exrFile(const Array<ExrPart>& parts,
                                const std::function<void(Imf::Header&)>& change = {})
{
    ExrMemory memory;
    {
        Array<Imf::Header> headers;
        for (const ExrPart& part : parts) {
            headers.push_back(part.header());
            if (change)
                change(headers.back());
        }
        Imf::MultiPartOutputFile file(memory, headers.data(), static_cast<int>(headers.size()));
        for (std::size_t i = 0; i < parts.size(); ++i) {
            if (parts[i].isTiled)
                writeTiles(file, static_cast<int>(i), parts[i]);
            else
                writeScanLines(file, static_cast<int>(i), parts[i]);
        }
    }
    return memory.content;
}

} // namespace Nolvex::Tests
