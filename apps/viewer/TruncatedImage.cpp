// SPDX-License-Identifier: MIT
#include "apps/viewer/TruncatedImage.h"

#include <cstdint>
#include <string_view>

namespace Nolvex::Viewer {

namespace {

// Reads on and on; behind the end there are zeros, and `ended` is set.
class Reader
{
public:
    explicit Reader(ArrayView<const std::byte> bytes) : m_bytes(bytes) {}

    bool ended() const { return m_position > m_bytes.size(); }

    unsigned byte()
    {
        const std::size_t at = m_position++;
        return at < m_bytes.size() ? std::to_integer<unsigned>(m_bytes[at]) : 0;
    }

    unsigned bigEndian16()
    {
        const unsigned high = byte();
        return high << 8 | byte();
    }

    void skip(std::size_t count) { m_position += count; }

private:
    ArrayView<const std::byte> m_bytes;
    std::size_t m_position = 0;
};

constexpr unsigned JPEG_END = 0xD9;
constexpr unsigned JPEG_FIRST_STANDALONE = 0xD0; // the restart markers and the start marker carry no length
constexpr unsigned JPEG_LAST_STANDALONE = 0xD8;

// The next marker, past entropy-coded data: in it a 0xFF byte is followed by 0.
unsigned nextJpegMarker(Reader& reader)
{
    while (!reader.ended()) {
        if (reader.byte() != 0xFF)
            continue;
        unsigned marker = reader.byte();
        while (marker == 0xFF && !reader.ended())
            marker = reader.byte();
        if (marker != 0)
            return marker;
    }
    return 0;
}

bool jpegIsTruncated(Reader reader)
{
    while (!reader.ended()) {
        const unsigned marker = nextJpegMarker(reader);
        if (marker == JPEG_END)
            return reader.ended();
        if (marker >= JPEG_FIRST_STANDALONE && marker <= JPEG_LAST_STANDALONE)
            continue;
        const unsigned length = reader.bigEndian16();
        reader.skip(length < 2 ? 0 : length - 2);
    }
    return true;
}

std::size_t gifColourTableSize(unsigned flags)
{
    return (flags & 0x80) != 0 ? std::size_t(3) << ((flags & 7) + 1) : 0;
}

void skipGifBlocks(Reader& reader)
{
    for (unsigned length = reader.byte(); length != 0 && !reader.ended(); length = reader.byte())
        reader.skip(length);
}

bool gifIsTruncated(Reader reader)
{
    constexpr unsigned EXTENSION = 0x21;
    constexpr unsigned IMAGE = 0x2C;
    reader.skip(10);
    const unsigned flags = reader.byte();
    reader.skip(2 + gifColourTableSize(flags));
    while (!reader.ended()) {
        const unsigned block = reader.byte();
        if (block == EXTENSION) {
            reader.skip(1);
        } else if (block == IMAGE) {
            reader.skip(8);
            reader.skip(gifColourTableSize(reader.byte()) + 1);
        } else {
            return reader.ended(); // the trailer, or garbage that the decoder judges
        }
        skipGifBlocks(reader);
    }
    return true;
}

} // namespace

bool isTruncatedImage(ArrayView<const std::byte> bytes)
{
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    if (text.starts_with("\xFF\xD8\xFF"))
        return jpegIsTruncated(Reader(bytes));
    if (text.starts_with("GIF8"))
        return gifIsTruncated(Reader(bytes));
    return false;
}

} // namespace Nolvex::Viewer
