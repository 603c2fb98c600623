// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/openimageio/OpenImageIoReader.h"

#include "apps/viewer/reading/BlankImage.h"
#include "apps/viewer/reading/Omissions.h"
#include "apps/viewer/reading/ReadOutcome.h"
#include "apps/viewer/reading/openimageio/OtherFormats.h"
#include "apps/viewer/reading/openimageio/TemporaryFile.h"

#include <OpenImageIO/filesystem.h>
#include <OpenImageIO/imageio.h>

#include <algorithm>
#include <exception>
#include <memory>
#include <new>
#include <string>
#include <utility>

namespace Nolvex::Viewer {

namespace {

constexpr int MAX_CHANNELS = 4;
constexpr int ALPHA_CHANNEL = 3;

/// A file in memory that OpenImageIO has opened. Some of its readers want a file on a disk.
class OpenedFile
{
public:
    OpenedFile(const OtherFormat& format, ArrayView<const std::byte> bytes)
        : m_memory(bytes.data(), bytes.size()), m_input(OIIO::ImageInput::create(format.name))
    {
        if (!m_input)
            return;
        OIIO::ImageSpec wishes;
        wishes.attribute("oiio:UnassociatedAlpha", 1); // lets straight colours be as they are
        if (m_input->supports("ioproxy")) {
            m_opened = m_input->set_ioproxy(&m_memory) && m_input->open("picture", m_spec, wishes);
        } else {
            m_file = std::make_unique<TemporaryFile>(bytes);
            m_opened = m_file->isOk() && m_input->open(m_file->name(), m_spec, wishes);
        }
    }

    ~OpenedFile()
    {
        if (m_input)
            m_input->close();
    }

    OpenedFile(const OpenedFile&) = delete;
    OpenedFile& operator=(const OpenedFile&) = delete;

    bool isOpen() const { return m_opened; }

    const OIIO::ImageSpec& spec() const { return m_spec; }

    OIIO::ImageInput& input() { return *m_input; }

private:
    OIIO::Filesystem::IOMemReader m_memory;
    std::unique_ptr<TemporaryFile> m_file;
    std::unique_ptr<OIIO::ImageInput> m_input;
    OIIO::ImageSpec m_spec;
    bool m_opened = false;
};

/// How the channels of a file become those of an image.
struct Layout
{
    OIIO::TypeDesc type;
    int channels; ///< of the file, that are read
    PixelFormat format;
};

Layout layoutOf(const OIIO::ImageSpec& spec)
{
    using enum PixelFormat;
    Layout layout{OIIO::TypeDesc::FLOAT, std::min(spec.nchannels, MAX_CHANNELS), FLOAT32_GREY};
    PixelFormat formats[] = {FLOAT32_GREY, FLOAT32_RGB, FLOAT32_RGBA};
    if (spec.format == OIIO::TypeDesc::UINT8) {
        layout.type = spec.format;
        std::copy_n(std::begin({UINT8_GREY, UINT8_RGB, UINT8_RGBA}), 3, formats);
    } else if (spec.format == OIIO::TypeDesc::UINT16) {
        layout.type = spec.format;
        std::copy_n(std::begin({UINT16_GREY, UINT16_RGB, UINT16_RGBA}), 3, formats);
    } else if (spec.format == OIIO::TypeDesc::HALF) {
        layout.type = spec.format;
        std::copy_n(std::begin({FLOAT16_GREY, FLOAT16_RGB, FLOAT16_RGBA}), 3, formats);
    }
    // Without an alpha at its place the fourth channel is not shown, and of two channels the first is.
    if (layout.channels == MAX_CHANNELS && spec.alpha_channel != ALPHA_CHANNEL)
        layout.channels = 3;
    if (layout.channels == 2)
        layout.channels = 1;
    layout.format = formats[layout.channels == 1 ? 0 : layout.channels == 3 ? 1 : 2];
    return layout;
}

float gammaOf(const OIIO::ImageSpec& spec)
{
    const std::string space(spec.get_string_attribute("oiio:ColorSpace"));
    const bool isFloat = spec.format.is_floating_point();
    if (space == "Linear" || space == "linear" || (space.empty() && isFloat))
        return GAMMA_OF_LIGHT;
    // The values become light by this exponent.
    const float exponent = spec.get_float_attribute("oiio:Gamma");
    constexpr float MAX_EXPONENT = 22.0f;
    return exponent > 1.0f / MAX_EXPONENT && exponent < MAX_EXPONENT ? GAMMA_OF_LIGHT / exponent
                                                                     : GAMMA_OF_ENCODED;
}

bool fits(const OIIO::ImageSpec& spec, std::size_t fileSize)
{
    // JPEG 2000 makes less of a picture of one colour than deflate.
    constexpr double MAX_BYTES_OF_ONE = 16.0 * static_cast<double>(MAX_INFLATION);
    const double bytes = double(spec.width) * spec.height * static_cast<double>(spec.pixel_bytes());
    return spec.width > 0 && spec.height > 0 && spec.depth <= 1 && spec.nchannels > 0 &&
           bytes <= MAX_BYTES_OF_ONE * static_cast<double>(fileSize);
}

struct Watched
{
    const ReadingProgress& progress;
    bool isStopped = false;
};

// Returns true to stop.
bool tellProgress(void* data, float share)
{
    auto& watched = *static_cast<Watched*>(data);
    watched.isStopped = watched.progress && !watched.progress(share);
    return watched.isStopped;
}

// OpenImageIO counts rows from the top, and an image from the bottom.
ReadOutcome readRows(OIIO::ImageInput& input, const Layout& layout, Image& image,
                     const ReadingProgress& progress)
{
    const ImageDescriptor& size = image.descriptor();
    const auto rowStep = -static_cast<OIIO::stride_t>(image.rowBytes());
    Watched watched{progress};
    const bool isRead =
        input.read_image(0, 0, 0, layout.channels, layout.type, image.row(size.height - 1).data(),
                         OIIO::AutoStride, rowStep, OIIO::AutoStride, tellProgress, &watched);
    if (watched.isStopped)
        return ReadOutcome::STOPPED;
    return isRead ? ReadOutcome::DONE : ReadOutcome::DAMAGED;
}

Array<MetadataEntry> metadataOf(const OIIO::ImageSpec& spec)
{
    constexpr std::size_t MAX_VALUE_BYTES = 4096; // longer values are tables
    Array<MetadataEntry> entries;
    for (const OIIO::ParamValue& attribute : spec.extra_attribs) {
        const std::string value = attribute.get_string();
        if (!attribute.name().string().starts_with("oiio:") && value.size() <= MAX_VALUE_BYTES)
            entries.push_back({String::fromUtf8(attribute.name().string()), String::fromUtf8(value)});
    }
    return entries;
}

Array<String> omissionsOf(OIIO::ImageInput& input, const OIIO::ImageSpec& spec, const Layout& layout)
{
    Array<String> omissions = omittedChannels(spec.nchannels - layout.channels);
    if (input.seek_subimage(1, 0))
        omissions.push_back(L"It has more pictures, of which the first is shown.");
    static_cast<void>(input.geterror());
    return omissions;
}

Expected<ReadImage, String> readFile(const OtherFormat& format, ArrayView<const std::byte> bytes,
                                     const ReadingProgress& progress)
{
    OpenedFile file(format, bytes);
    if (!file.isOpen() || !fits(file.spec(), bytes.size()))
        return readFailure(ReadOutcome::DAMAGED);
    const OIIO::ImageSpec spec = file.spec();
    const Layout layout = layoutOf(spec);
    Expected<Image, String> image = blankImage(spec.width, spec.height, layout.format, gammaOf(spec));
    if (!image)
        return Unexpected{image.error()};
    const ReadOutcome outcome = readRows(file.input(), layout, *image, progress);
    if (outcome != ReadOutcome::DONE)
        return readFailure(outcome);
    ReadImage read{.image = std::move(*image),
                   .omissions = omissionsOf(file.input(), spec, layout),
                   .metadata = metadataOf(spec),
                   .origin = {spec.x - spec.full_x, spec.y - spec.full_y}};
    if (spec.full_width > 0 && spec.full_height > 0 &&
        (read.origin != Pixel{0, 0} || spec.full_width != spec.width || spec.full_height != spec.height))
        read.frameSize = Pixel{spec.full_width, spec.full_height};
    read.alpha =
        spec.get_int_attribute("oiio:UnassociatedAlpha") != 0 ? AlphaKind::STRAIGHT : AlphaKind::ASSOCIATED;
    return read;
}

} // namespace

bool OpenImageIoReader::knows(ArrayView<const std::byte> file) const
{
    return otherFormatOf(file) != nullptr;
}

Expected<ReadImage, String> OpenImageIoReader::read(ArrayView<const std::byte> file, std::size_t /*layer*/,
                                                    const ReadingProgress& progress) const
{
    const OtherFormat* const format = otherFormatOf(file);
    if (format == nullptr)
        return readFailure(ReadOutcome::DAMAGED);
    try {
        return readFile(*format, file, progress);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception&) {
        return readFailure(ReadOutcome::DAMAGED);
    }
}

} // namespace Nolvex::Viewer
