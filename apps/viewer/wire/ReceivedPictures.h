// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Function.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/String.h"
#include "NolvexLibImage/Image.h"
#include "apps/viewer/wire/ReceivedPicture.h"
#include "apps/viewer/wire/WireCommand.h"
#include "apps/viewer/wire/WireLimits.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <set>

namespace Nolvex::Viewer {

class Picture;

/// Something that the viewer must be told about a picture.
struct PictureNews
{
    enum class End
    {
        NONE,
        CLOSED, // by the sender
        LOST,   // the picture's last connection ended before the picture was complete
    };

    String name;
    /// The new state of the pixels. There is none if only the progress has changed, or nothing but the end
    /// has come.
    std::unique_ptr<Image> image;
    AlphaKind alpha = AlphaKind::STRAIGHT;
    /// The picture that has the image, if the owner of the ReceivedPictures has made one of it.
    std::shared_ptr<const Picture> picture;
    /// The smallest rectangle that holds all changes since the last news.
    Bucket changed;
    float progress = 0.0f;
    bool isComplete = false;
    End end = End::NONE;
    /// Why the picture was lost.
    String text;
};

/// The pictures that connections send: carries the commands out and collects the news for the viewer. Knows
/// neither sockets nor threads nor windows.
///
/// A picture belongs to all connections that have opened, created or changed it. Its name is free again when
/// it is closed, when `forget` is called, and when the last of its connections ends. What the viewer was
/// given until then is the viewer's own.
class ReceivedPictures : private Noncopyable
{
public:
    using Connection = std::uint64_t;
    /// Moves the image out of the news of a complete picture, and returns access to it for later changes.
    using Keep = Function<std::shared_ptr<const Image>(PictureNews&)>;

    explicit ReceivedPictures(const WireLimits& limits) : m_limits(limits) {}

    /// Carries out the command in a header. `pixels` is the body of the message, or empty. Returns why the
    /// command was refused, as a sentence for the sender; nothing has changed then.
    Optional<String> apply(Connection connection, const XmlString& header, ArrayView<const std::byte> pixels);

    /// Tells that a connection has ended, with the reason as a sentence.
    void endConnection(Connection connection, const String& reason);

    /// Lets go of a picture and of news about it. The name is unknown from now on.
    void forget(const String& name);

    bool hasNews() const;

    /// Returns whether there are news of complete pictures, of ends or of progress alone.
    bool hasNewsWithoutCopy() const;

    /// Returns all news in their order, and calls `keep` for each image of a picture that is complete but may
    /// still be changed. Incomplete pictures with new pixels must be copied: without `mayCopy` they, and
    /// those for whose copy there is not enough memory, have their news later.
    Array<PictureNews> takeNews(const Keep& keep, bool mayCopy = true);

    /// The pixels of all pictures, and of those that have ended and have not been taken yet.
    std::int64_t totalBytes() const;

private:
    struct Entry
    {
        ReceivedPicture picture;
        std::set<Connection> users;
    };

    Optional<String> carryOut(Connection connection, const WireCommand& command,
                              ArrayView<const std::byte> pixels);
    Optional<String> begin(Connection connection, const WireCommand& command,
                           ArrayView<const std::byte> pixels);
    Optional<String> change(Connection connection, const WireCommand& command,
                            ArrayView<const std::byte> pixels);
    Optional<String> close(const String& name);
    Optional<String> checkRoom(const WireCommand& command) const;
    void leave(const String& name, Entry entry, const String& reason);

    WireLimits m_limits;
    std::map<String, Entry> m_pictures;
    Array<PictureNews> m_ends; // of pictures that have left m_pictures
};

} // namespace Nolvex::Viewer
