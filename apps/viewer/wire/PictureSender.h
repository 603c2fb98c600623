// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Bucket.h"
#include "NolvexLib/ByteArray.h"
#include "NolvexLib/Function.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/String.h"
#include "NolvexLibImage/Image.h"
#include "NolvexLibWx/net/TcpClient.h"
#include "apps/viewer/AlphaKind.h"
#include "apps/viewer/wire/WireCommand.h"

#include <atomic>
#include <chrono>
#include <memory>
#include <mutex>

namespace Nolvex::Viewer {

/// Sends pictures to a viewer, as docs/picture-protocol.md describes. All functions wait for the viewer, and
/// return why they failed, as a sentence for the user. One thread uses the object; `cancel` may be called on
/// any.
///
/// A refusal of the viewer leaves the connection as it was. After any other failure there is no connection.
class PictureSender : private Noncopyable
{
public:
    /// Called from time to time with the share that is done, from 0 to 1. Returns false to stop the sending;
    /// the picture then stays as it is.
    using Progress = Function<bool(float)>;

    /// The longest time in which the viewer may take nothing or not answer.
    explicit PictureSender(std::chrono::seconds patience = std::chrono::seconds(30)) : m_patience(patience) {}

    Optional<String> connect(const String& host, unsigned short port);

    bool isConnected() const { return m_client && m_client->isOpen(); }

    /// Sends a whole picture, which replaces an open picture of the same name. The viewer shows the part
    /// that has come.
    Optional<String> send(const String& name, const Image& image, const Progress& progress = {},
                          AlphaKind alpha = AlphaKind::STRAIGHT);

    /// Opens a picture whose pixels are all zero.
    Optional<String> create(const String& name, const ImageDescriptor& descriptor,
                            AlphaKind alpha = AlphaKind::STRAIGHT);

    /// Sends a rectangle of an image to the same place of the open picture, whose size and format must be
    /// those of the image. The top left pixel is (0, 0).
    Optional<String> sendRectangle(const String& name, const Image& image, const Bucket& area);

    /// Tells how much of the picture is done, from 0 to 1. With 1 the picture is complete.
    Optional<String> tellProgress(const String& name, float share);

    Optional<String> close(const String& name);

    /// Ends the connection. What is being sent fails soon.
    void cancel();

private:
    Optional<String> write(const WireCommand& command, ArrayView<const std::byte> pixels);
    Optional<String> readAnswer();
    Optional<String> readAnswers(int mayBeMissing);
    Optional<String> ask(const WireCommand& command);
    Optional<String> sendAtOnce(const WireCommand& command, const Image& image, const Progress& progress);
    Optional<String> sendBands(const String& name, const Image& image, const Bucket& area,
                               const Progress& progress);
    Optional<String> fail(const wchar_t* sentence);
    void copyRows(const Image& image, const Bucket& area);

    std::chrono::seconds m_patience;
    std::mutex m_clientMutex; // guards the pointer against `cancel`
    std::unique_ptr<Wx::Legacy::TcpClient> m_client;
    std::atomic<bool> m_isCancelled = false;
    ByteArray m_pixels;       // of the band that is being sent
    int m_missingAnswers = 0; // to what was sent
};

} // namespace Nolvex::Viewer
