// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Bucket.h"
#include "NolvexLib/Expected.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/String.h"
#include "NolvexLib/StringView.h"
#include "NolvexLib/XmlString.h"
#include "NolvexLibImage/PixelFormat.h"
#include "apps/viewer/AlphaKind.h"

#include <cstdint>

namespace Nolvex::Viewer {

// The headers of docs/picture-protocol.md, apart from any connection.

/// The port on which a viewer listens, and to which a sender connects, unless the user tells another.
inline constexpr unsigned short DEFAULT_WIRE_PORT = 41'230;

enum class WireAction
{
    OPEN,     // a whole picture, with its pixels
    CREATE,   // a picture whose pixels will come as updates
    UPDATE,   // pixels of a rectangle
    PROGRESS, // how much of a picture is done
    CLOSE,
};

/// What a sender asks for. The action decides which members count.
struct WireCommand
{
    WireAction action = WireAction::OPEN;
    String name;
    /// The rectangle of an update; otherwise the size of the picture, with the corner (0, 0).
    Bucket area;
    PixelFormat format = PixelFormat::UINT8_RGB;
    float gamma = 1.0f;
    /// What the colours of a picture with alpha stand for.
    AlphaKind alpha = AlphaKind::STRAIGHT;
    /// From 0 to 1, where 1 stands for a complete picture.
    Optional<float> progress;
};

/// Returns whether pixels travel with the command.
bool hasPixels(WireAction action);

/// Reads a header. Every command that is returned keeps the limits on names, sides, gamma and progress. The
/// error is a sentence for the sender.
Expected<WireCommand, String> parseWireCommand(const XmlString& header);

XmlString composeWireCommand(const WireCommand& command);

/// Composes the answer to a command; without a failure the command was carried out.
XmlString composeWireAnswer(const Optional<String>& failure);

/// Returns the failure that the answer tells. What is no answer is a failure, too.
Optional<String> parseWireAnswer(const XmlString& answer);

/// Returns the number of bytes that the pixels of a rectangle take. The area must not be empty.
std::int64_t pixelBytes(const Bucket& area, PixelFormat format);

/// The gamma of a picture whose sender tells none.
float usualGamma(PixelFormat format);

} // namespace Nolvex::Viewer
