// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/WebPReader.h"

#include "apps/viewer/reading/BlankImage.h"
#include "apps/viewer/reading/Omissions.h"
#include "apps/viewer/reading/ReadOutcome.h"

#include <webp/decode.h>
#include <webp/demux.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>

namespace Nolvex::Viewer {

namespace {

const std::uint8_t* dataOf(ArrayView<const std::byte> bytes)
{
    return reinterpret_cast<const std::uint8_t*>(bytes.data());
}

struct DemuxerDeleter
{
    void operator()(WebPDemuxer* demuxer) const { WebPDemuxDelete(demuxer); }
};

/// The frames of a file.
class Frames
{
public:
    explicit Frames(ArrayView<const std::byte> file)
    {
        const WebPData data{dataOf(file), file.size()};
        m_demuxer.reset(WebPDemux(&data));
        m_hasFirst = m_demuxer && WebPDemuxGetFrame(m_demuxer.get(), 1, &m_first) != 0;
    }

    ~Frames()
    {
        if (m_hasFirst)
            WebPDemuxReleaseIterator(&m_first);
    }

    Frames(const Frames&) = delete;
    Frames& operator=(const Frames&) = delete;

    bool hasFirst() const { return m_hasFirst && m_first.complete != 0; }

    const WebPIterator& first() const { return m_first; }

    std::uint32_t count() const { return number(WEBP_FF_FRAME_COUNT); }

    Pixel canvasSize() const
    {
        return {static_cast<std::int32_t>(number(WEBP_FF_CANVAS_WIDTH)),
                static_cast<std::int32_t>(number(WEBP_FF_CANVAS_HEIGHT))};
    }

private:
    std::uint32_t number(WebPFormatFeature feature) const { return WebPDemuxGetI(m_demuxer.get(), feature); }

    std::unique_ptr<WebPDemuxer, DemuxerDeleter> m_demuxer;
    WebPIterator m_first{};
    bool m_hasFirst = false;
};

// Decodes straight into the image.
bool decodeInto(Image& image, const WebPData& frame)
{
    WebPDecoderConfig config;
    if (WebPInitDecoderConfig(&config) == 0)
        return false;
    config.options.flip = 1; // the bottom row comes first
    config.options.use_threads = 1;
    config.output.colorspace = image.descriptor().format == PixelFormat::UINT8_RGBA ? MODE_RGBA : MODE_RGB;
    config.output.is_external_memory = 1;
    config.output.u.RGBA.rgba = reinterpret_cast<std::uint8_t*>(image.row(0).data());
    config.output.u.RGBA.stride = static_cast<int>(image.rowBytes());
    config.output.u.RGBA.size = image.rowBytes() * static_cast<std::size_t>(image.descriptor().height);
    const bool isDone = WebPDecode(frame.bytes, frame.size, &config) == VP8_STATUS_OK;
    WebPFreeDecBuffer(&config.output);
    return isDone;
}

ReadImage withSurroundings(Image image, const Frames& frames)
{
    ReadImage read{.image = std::move(image), .omissions = omittedFrames(frames.count())};
    const Pixel size{read.image.descriptor().width, read.image.descriptor().height};
    read.origin = {frames.first().x_offset, frames.first().y_offset};
    if (size != frames.canvasSize())
        read.frameSize = frames.canvasSize();
    return read;
}

} // namespace

Array<String> WebPReader::extensions() const
{
    return {L"webp"};
}

bool WebPReader::knows(ArrayView<const std::byte> file) const
{
    const std::string_view text(reinterpret_cast<const char*>(file.data()), file.size());
    return text.starts_with("RIFF") && text.substr(std::min<std::size_t>(8, text.size())).starts_with("WEBP");
}

// A file of some bytes may hold a picture of one colour and any size, so that the size of the file tells
// nothing. The format limits the sides to 16384 pixels.
Expected<ReadImage, String> WebPReader::read(ArrayView<const std::byte> file, std::size_t /*layer*/,
                                             const ReadingProgress& /*progress*/) const
{
    const Frames frames(file);
    WebPBitstreamFeatures features{};
    if (!frames.hasFirst() || WebPGetFeatures(frames.first().fragment.bytes, frames.first().fragment.size,
                                              &features) != VP8_STATUS_OK)
        return readFailure(ReadOutcome::DAMAGED);
    Expected<Image, String> image = blankImage(
        features.width, features.height,
        features.has_alpha != 0 ? PixelFormat::UINT8_RGBA : PixelFormat::UINT8_RGB, GAMMA_OF_ENCODED);
    if (!image)
        return Unexpected{image.error()};
    if (!decodeInto(*image, frames.first().fragment))
        return readFailure(ReadOutcome::DAMAGED);
    return withSurroundings(std::move(*image), frames);
}

} // namespace Nolvex::Viewer
