// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/OpenExrFile.h"

#include <Iex.h>
#include <ImfThreading.h>
#include <ImfVersion.h>

#include <algorithm>
#include <bit>
#include <cstring>
#include <string_view>
#include <thread>

namespace Nolvex::Viewer {

namespace {

constexpr std::size_t MAGIC_BYTES = 4;
constexpr std::size_t NUMBER_BYTES = 4; // of the version and of the size of an attribute
constexpr std::size_t MAX_NAME_LENGTH = 255;

std::uint32_t numberAt(ArrayView<const std::byte> bytes)
{
    std::uint32_t number = 0;
    for (std::size_t i = NUMBER_BYTES; i-- > 0;)
        number = number << 8 | std::to_integer<std::uint32_t>(bytes[i]);
    return number;
}

// Removes a text and the 0 after it from the front. Returns the length of the text, or more than
// MAX_NAME_LENGTH if there is no such text.
std::size_t skipName(ArrayView<const std::byte>& bytes)
{
    const std::size_t length =
        static_cast<std::size_t>(std::find(bytes.begin(), bytes.end(), std::byte(0)) - bytes.begin());
    if (length == bytes.size() || length > MAX_NAME_LENGTH)
        return MAX_NAME_LENGTH + 1;
    bytes = bytes.subspan(length + 1);
    return length;
}

// Removes the attributes of a header from the front.
bool skipAttributes(ArrayView<const std::byte>& bytes)
{
    for (;;) {
        const std::size_t name = skipName(bytes);
        if (name == 0)
            return true;
        if (name > MAX_NAME_LENGTH || skipName(bytes) > MAX_NAME_LENGTH || bytes.size() < NUMBER_BYTES)
            return false;
        const std::uint32_t size = numberAt(bytes);
        if (size > bytes.size() - NUMBER_BYTES)
            return false;
        bytes = bytes.subspan(NUMBER_BYTES + size);
    }
}

// OpenEXR allocates the memory for an attribute of an unknown type before it notices that the file is shorter
// than the attribute claims.
bool hasWholeHeaders(ArrayView<const std::byte> bytes)
{
    if (bytes.size() < MAGIC_BYTES + NUMBER_BYTES)
        return false;
    const std::uint32_t version = numberAt(bytes.subspan(MAGIC_BYTES));
    bytes = bytes.subspan(MAGIC_BYTES + NUMBER_BYTES);
    const bool isMultiPart = Imf::isMultiPart(static_cast<int>(version));
    do {
        if (!skipAttributes(bytes))
            return false;
    } while (isMultiPart && !bytes.empty() && bytes[0] != std::byte(0));
    return !isMultiPart || !bytes.empty();
}

int threadCount()
{
    // The threads start when the first file is read, and stay.
    static const int COUNT = [] {
        const int cores = std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
        Imf::setGlobalThreadCount(cores);
        return cores;
    }();
    return COUNT;
}

ArrayView<const std::byte> checkedHeaders(ArrayView<const std::byte> bytes)
{
    if (!hasWholeHeaders(bytes))
        throw Iex::InputExc("The file ends in its header.");
    return bytes;
}

} // namespace

OpenExrStream::OpenExrStream(ArrayView<const std::byte> bytes) : IStream("the file"), m_bytes(bytes) {}

bool OpenExrStream::read(char* to, int count)
{
    const char* from = readMemoryMapped(count);
    if (count > 0)
        std::memcpy(to, from, static_cast<std::size_t>(count));
    return m_position < m_bytes.size();
}

char* OpenExrStream::readMemoryMapped(int count)
{
    if (count < 0 || m_position > m_bytes.size() ||
        static_cast<uint64_t>(count) > m_bytes.size() - m_position)
        throw Iex::InputExc("The file ends too early.");
    const std::byte* from = m_bytes.data() + m_position;
    m_position += static_cast<uint64_t>(count);
    // OpenEXR asks for memory that can be written to, and does not write there.
    return const_cast<char*>(
        reinterpret_cast<const char*>(from)); // NOLINT(cppcoreguidelines-pro-type-const-cast)
}

bool OpenExrFile::knows(ArrayView<const std::byte> bytes)
{
    return bytes.size() >= MAGIC_BYTES && Imf::isImfMagic(reinterpret_cast<const char*>(bytes.data()));
}

OpenExrFile::OpenExrFile(ArrayView<const std::byte> bytes)
    : m_bytes(checkedHeaders(bytes)), m_stream(bytes), m_parts(m_stream, threadCount())
{}

} // namespace Nolvex::Viewer
