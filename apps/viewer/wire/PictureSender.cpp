// SPDX-License-Identifier: MIT
#include "apps/viewer/wire/PictureSender.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <string>
#include <utility>

namespace Nolvex::Viewer {

namespace {

using Wx::Legacy::DataCompression;
using Wx::Legacy::DataType;
using Wx::Legacy::SocketAddress;
using Wx::Legacy::SocketResult;
using Wx::Legacy::TcpClient;

constexpr unsigned CONNECT_SECONDS = 10;

// Bands of this size stay in the caches of the processors that send and receive them.
constexpr std::int64_t BAND_BYTES = std::int64_t{1} << 19;

// So many messages are sent before the answer to the first of them is waited for.
constexpr int MAX_MISSING_ANSWERS = 4;

const wchar_t* const CANCELLED = L"The sending was cancelled.";

WireCommand commandOf(WireAction action, const String& name)
{
    WireCommand command;
    command.action = action;
    command.name = name;
    return command;
}

Bucket boundsOf(const ImageDescriptor& descriptor)
{
    return {{0, 0}, {descriptor.width, descriptor.height}};
}

WireCommand beginning(WireAction action, const String& name, const ImageDescriptor& descriptor,
                      AlphaKind alpha)
{
    WireCommand command = commandOf(action, name);
    command.area = boundsOf(descriptor);
    command.format = descriptor.format;
    command.gamma = descriptor.gamma;
    if (Image::getPixelFormatChannelCount(descriptor.format) == 4)
        command.alpha = alpha;
    return command;
}

} // namespace

Optional<String> PictureSender::connect(const String& host, unsigned short port)
{
    m_isCancelled = false;
    const SocketAddress address(host, port);
    if (!address.hasHost())
        return L"The host \"" + host + L"\" is unknown.";
    auto client = std::make_unique<TcpClient>(address, CONNECT_SECONDS);
    const bool isOpen = client->isOpen();
    const std::lock_guard lock(m_clientMutex);
    m_client = std::move(client);
    m_missingAnswers = 0;
    if (m_isCancelled)
        return fail(L"");
    if (!isOpen)
        return L"There is no viewer that listens on port " + String(std::to_wstring(port)) + L" of \"" +
               host + L"\".";
    return {};
}

void PictureSender::cancel()
{
    m_isCancelled = true;
    const std::lock_guard lock(m_clientMutex);
    if (m_client)
        m_client->beginClose();
}

Optional<String> PictureSender::fail(const wchar_t* sentence)
{
    if (m_client)
        m_client->beginClose();
    return String(m_isCancelled ? CANCELLED : sentence);
}

Optional<String> PictureSender::create(const String& name, const ImageDescriptor& descriptor, AlphaKind alpha)
{
    return ask(beginning(WireAction::CREATE, name, descriptor, alpha));
}

Optional<String> PictureSender::tellProgress(const String& name, float share)
{
    WireCommand command = commandOf(WireAction::PROGRESS, name);
    command.progress = std::clamp(share, 0.0f, 1.0f);
    return ask(command);
}

Optional<String> PictureSender::close(const String& name)
{
    return ask(commandOf(WireAction::CLOSE, name));
}

Optional<String> PictureSender::send(const String& name, const Image& image, const Progress& progress,
                                     AlphaKind alpha)
{
    const Bucket bounds = boundsOf(image.descriptor());
    const Progress told = progress ? progress : [](float) { return true; };
    if (pixelBytes(bounds, image.descriptor().format) <= BAND_BYTES)
        return sendAtOnce(beginning(WireAction::OPEN, name, image.descriptor(), alpha), image, told);
    if (Optional<String> failure = create(name, image.descriptor(), alpha))
        return failure;
    return sendBands(name, image, bounds, told);
}

// The viewer never shows a part of the picture.
Optional<String> PictureSender::sendAtOnce(const WireCommand& command, const Image& image,
                                           const Progress& progress)
{
    if (!progress(0.0f))
        return String(CANCELLED);
    copyRows(image, command.area);
    Optional<String> failure = write(command, m_pixels);
    if (!failure)
        failure = readAnswers(0);
    if (!failure)
        progress(1.0f);
    return failure;
}

Optional<String> PictureSender::sendRectangle(const String& name, const Image& image, const Bucket& area)
{
    if (area.isEmpty() || area.intersected(boundsOf(image.descriptor())) != area)
        return String(L"The rectangle is not inside of the picture.");
    return sendBands(name, image, area, {});
}

// Tells the progress with the bands if there is a function for it.
Optional<String> PictureSender::sendBands(const String& name, const Image& image, const Bucket& area,
                                          const Progress& progress)
{
    WireCommand command = commandOf(WireAction::UPDATE, name);
    const Bucket firstRow{area.min, {area.max.x, area.min.y + 1}};
    const std::int64_t rowBytes = pixelBytes(firstRow, image.descriptor().format);
    const auto bandRows =
        static_cast<std::int32_t>(std::clamp<std::int64_t>(BAND_BYTES / rowBytes, 1, area.height()));
    for (std::int32_t y = area.min.y; y < area.max.y; y += bandRows) {
        command.area = {{area.min.x, y}, {area.max.x, std::min(y + bandRows, area.max.y)}};
        if (progress) {
            command.progress =
                static_cast<float>(command.area.max.y - area.min.y) / static_cast<float>(area.height());
            if (!progress(static_cast<float>(y - area.min.y) / static_cast<float>(area.height()))) {
                static_cast<void>(readAnswers(0));
                return String(CANCELLED);
            }
        }
        copyRows(image, command.area);
        if (Optional<String> failure = write(command, m_pixels))
            return failure;
        if (Optional<String> failure = readAnswers(MAX_MISSING_ANSWERS))
            return failure;
    }
    Optional<String> failure = readAnswers(0);
    if (!failure && progress)
        progress(1.0f);
    return failure;
}

// The rows of an image begin with the lowest, and those of a message with the highest.
void PictureSender::copyRows(const Image& image, const Bucket& area)
{
    const PixelFormat format = image.descriptor().format;
    const std::size_t pixelSize = Image::getPixelFormatByteCount(format);
    const std::size_t rowSize = static_cast<std::size_t>(area.width()) * pixelSize;
    m_pixels.resize(rowSize * static_cast<std::size_t>(area.height()));
    std::byte* target = m_pixels.data();
    for (std::int32_t y = area.min.y; y < area.max.y; ++y, target += rowSize) {
        const ArrayView<const std::byte> row = image.row(image.descriptor().height - 1 - y);
        std::memcpy(target, row.data() + static_cast<std::size_t>(area.min.x) * pixelSize, rowSize);
    }
    static_assert(std::endian::native == std::endian::little, "the channels travel as they are in memory");
}

Optional<String> PictureSender::ask(const WireCommand& command)
{
    if (Optional<String> failure = write(command, {}))
        return failure;
    return readAnswers(0);
}

Optional<String> PictureSender::write(const WireCommand& command, ArrayView<const std::byte> pixels)
{
    if (!isConnected())
        return fail(L"There is no connection to a viewer.");
    const XmlString header = composeWireCommand(command);
    const std::int64_t limit = std::chrono::milliseconds(m_patience).count();
    const SocketResult result =
        pixels.empty()
            ? m_client->writeString(header, limit)
            : m_client->writeRawMemory(pixels, header, DataCompression::None, DataType::RawData, limit);
    ++m_missingAnswers;
    if (result == SocketResult::Success)
        return {};
    return fail(result == SocketResult::Timeout ? L"The viewer takes no more pixels."
                                                : L"The viewer has ended the connection.");
}

// Waits for answers until no more than that many are missing. Returns the first refusal.
Optional<String> PictureSender::readAnswers(int mayBeMissing)
{
    Optional<String> refusal;
    while (m_missingAnswers > mayBeMissing) {
        Optional<String> failure = readAnswer();
        if (!failure)
            continue;
        if (!isConnected())
            return refusal ? refusal : failure;
        if (!refusal)
            refusal = std::move(failure);
        mayBeMissing = 0; // the next command must not be given the answers to these
    }
    return refusal;
}

Optional<String> PictureSender::readAnswer()
{
    if (!m_client->waitForMessage(m_patience))
        return fail(m_client->isOpen() ? L"The viewer does not answer."
                                       : L"The viewer has ended the connection.");
    XmlString answer;
    if (m_client->readString(answer) != SocketResult::Success)
        return fail(L"The answer of the viewer could not be read.");
    --m_missingAnswers;
    return parseWireAnswer(answer);
}

} // namespace Nolvex::Viewer
