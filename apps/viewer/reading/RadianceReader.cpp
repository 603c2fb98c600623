// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/RadianceReader.h"

#include "apps/viewer/reading/BlankImage.h"
#include "apps/viewer/reading/ReadOutcome.h"
#include "apps/viewer/reading/StbImage.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>
#include <utility>

namespace Nolvex::Viewer {

namespace {

/// A run of two bytes stands for 127 of the four bytes of a pixel at most.
constexpr std::uint64_t MAX_PIXELS_PER_BYTE = 16;

constexpr int CHANNELS = 3;

/// The bytes of a file, which stb_image asks for. stb_image does not notice that a file ends, and some files
/// would keep it reading zeros for ever. Here the file seems to go on with bytes that end every loop, and
/// isExhausted() tells that it ended too early.
class Source
{
public:
    Source(ArrayView<const std::byte> file, const ReadingProgress& progress)
        : m_rest(file), m_size(file.size()), m_progress(progress)
    {}

    static const stbi_io_callbacks& callbacks()
    {
        static const stbi_io_callbacks CALLBACKS{read, skip, isAtEnd};
        return CALLBACKS;
    }

    bool isExhausted() const { return m_exhausted; }

    bool isStopped() const { return m_stopped; }

private:
    static int read(void* self, char* to, int count)
    {
        return static_cast<Source*>(self)->take(to, static_cast<std::size_t>(std::max(count, 0)));
    }

    static void skip(void* self, int count)
    {
        Source& source = *static_cast<Source*>(self);
        const auto skipped = static_cast<std::size_t>(std::max(count, 0));
        source.m_rest = source.m_rest.subspan(std::min(skipped, source.m_rest.size()));
    }

    static int isAtEnd(void* self) { return static_cast<Source*>(self)->m_exhausted ? 1 : 0; }

    int take(char* to, std::size_t count)
    {
        // stb_image fills a buffer of its own, in which the first bytes always come. It takes whatever comes
        // there, but needs all bytes that it asks for elsewhere.
        if (m_buffer == nullptr)
            m_buffer = to;
        tellProgress();
        const std::size_t taken = std::min(count, m_stopped ? 0 : m_rest.size());
        std::memcpy(to, m_rest.data(), taken);
        m_rest = m_rest.subspan(taken);
        if (taken == count || (taken > 0 && to == m_buffer))
            return static_cast<int>(taken);
        std::memset(to + taken, PADDING, count - taken);
        m_exhausted = true;
        return static_cast<int>(count);
    }

    void tellProgress()
    {
        // The buffer is small, so that most calls are too early for news.
        constexpr std::size_t STEP_BYTES = std::size_t(1) << 20;
        if (m_stopped || !m_progress || m_toldRest - m_rest.size() < STEP_BYTES)
            return;
        m_toldRest = m_rest.size();
        m_stopped = !m_progress(1.0f - static_cast<float>(m_rest.size()) / static_cast<float>(m_size));
    }

    // An empty line, which ends the header, and in a row the number of bytes that follow.
    static constexpr int PADDING = '\n';

    ArrayView<const std::byte> m_rest;
    std::size_t m_size;
    const ReadingProgress& m_progress;
    std::size_t m_toldRest = m_rest.size();
    char* m_buffer = nullptr;
    bool m_exhausted = false;
    bool m_stopped = false;
};

struct StbFree
{
    void operator()(float* pixels) const { stbi_image_free(pixels); }
};

using StbPixels = std::unique_ptr<float, StbFree>;

struct Size
{
    int width = 0;
    int height = 0;
};

std::string_view asText(ArrayView<const std::byte> bytes)
{
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

// The header consists of lines such as SOFTWARE=..., and ends with an empty line.
Array<MetadataEntry> metadataOf(ArrayView<const std::byte> file)
{
    constexpr std::size_t MAX_HEADER_BYTES = std::size_t(64) * 1024;
    Array<MetadataEntry> entries;
    std::string_view rest = asText(file).substr(0, MAX_HEADER_BYTES);
    for (std::size_t end = rest.find('\n'); end != std::string_view::npos && end > 0; end = rest.find('\n')) {
        const std::string_view line = rest.substr(0, end);
        const std::size_t equals = line.find('=');
        if (equals != std::string_view::npos && !line.starts_with('#'))
            entries.push_back(
                {String::fromUtf8(line.substr(0, equals)), String::fromUtf8(line.substr(equals + 1))});
        rest.remove_prefix(end + 1);
    }
    return entries;
}

// The reasons that stb_image gives are those of the format that it tried last.
Unexpected<String> refusal()
{
    return Unexpected{String(L"it is damaged or of a kind that is not read")};
}

Expected<Image, String> toImage(const float* pixels, const Size& size)
{
    Expected<Image, String> image =
        blankImage(size.width, size.height, PixelFormat::FLOAT32_RGB, GAMMA_OF_LIGHT);
    for (std::int32_t y = size.height - 1; image && y >= 0; --y) {
        std::memcpy(image->row(y).data(), pixels, image->rowBytes());
        pixels += static_cast<std::ptrdiff_t>(CHANNELS) * size.width;
    }
    return image;
}

Expected<Image, String> decode(ArrayView<const std::byte> file, const ReadingProgress& progress)
{
    Source source(file, progress);
    Size size;
    const StbPixels pixels(stbi_loadf_from_callbacks(&Source::callbacks(), &source, &size.width, &size.height,
                                                     nullptr, CHANNELS));
    if (source.isStopped())
        return readFailure(ReadOutcome::STOPPED);
    if (source.isExhausted())
        return readFailure(ReadOutcome::DAMAGED);
    if (!pixels)
        return refusal();
    return toImage(pixels.get(), size);
}

} // namespace

Array<String> RadianceReader::extensions() const
{
    return {L"hdr", L"rgbe"};
}

bool RadianceReader::knows(ArrayView<const std::byte> file) const
{
    const std::string_view text = asText(file);
    return text.starts_with("#?RADIANCE") || text.starts_with("#?RGBE");
}

Expected<ReadImage, String> RadianceReader::read(ArrayView<const std::byte> file, std::size_t /*layer*/,
                                                 const ReadingProgress& progress) const
{
    const ReadingProgress noProgress;
    Source header(file, noProgress);
    Size size;
    if (stbi_info_from_callbacks(&Source::callbacks(), &header, &size.width, &size.height, nullptr) == 0)
        return refusal();
    if (size.width < 1 || size.height < 1)
        return Unexpected{String(L"it has no pixels")};
    if (std::uint64_t(size.width) * std::uint64_t(size.height) / MAX_PIXELS_PER_BYTE > file.size())
        return readFailure(ReadOutcome::DAMAGED);
    Expected<Image, String> image = decode(file, progress);
    if (!image)
        return Unexpected{image.error()};
    return ReadImage{.image = std::move(*image), .metadata = metadataOf(file)};
}

} // namespace Nolvex::Viewer
