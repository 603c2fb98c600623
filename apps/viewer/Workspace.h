// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Flags.h"
#include "NolvexLib/Function.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/String.h"
#include "apps/viewer/Picture.h"

#include <cstddef>
#include <cstdint>

namespace Nolvex::Viewer {

/// Names an open picture for as long as the program runs. No two open pictures ever have the same one.
enum class PictureId : int
{
};

/// Where an open picture is from.
enum class PictureOrigin
{
    FILE,
    DESKTOP, ///< the screen or the clipboard; lost if it is not saved
    SENDER,  ///< a program that can send the picture again
};

/// A picture that the user has opened.
struct OpenPicture
{
    PictureId id;
    /// Empty if the picture was not read from a file and has not been saved either.
    Io::Path file;
    String name;
    /// Null until the picture is read, and again after the memory was needed for others.
    SharedPicture picture;
    PictureOrigin origin = PictureOrigin::FILE;
    /// Counts the looks at the picture, so that those looked at last are kept in memory.
    std::uint64_t lastShown = 0;

    /// True if closing the picture loses it.
    bool isUnsaved() const { return picture && file.isEmpty() && origin == PictureOrigin::DESKTOP; }
};

/// The pictures that are open, which one of them is shown, and with which one it is compared. Lists, tools
/// and the window share the workspace and are told about its changes. To be used on the main thread.
class Workspace : private Noncopyable
{
public:
    enum class Change : unsigned
    {
        LIST = 1,      ///< pictures were opened, closed, renamed, or hidden by the filter
        CURRENT = 2,   ///< another picture is the current one
        PICTURE = 4,   ///< the current picture was read anew, or another layer of it
        REFERENCE = 8, ///< another picture, or another state of it, is the reference
    };

    using Observer = Function<void(Flags<Change>)>;

    /// The observers are called after each change, in the order in which they came. They may change the
    /// workspace.
    void observe(const Observer& observer) { m_observers.push_back(observer); }

    const Array<OpenPicture>& pictures() const { return m_pictures; }

    /// Returns null if there is no such picture any more.
    const OpenPicture* find(PictureId id) const;

    /// Returns null if the file is not open.
    const OpenPicture* findFile(const Io::Path& file) const;

    /// The picture that is shown, or null if there is none.
    const OpenPicture* current() const { return m_current ? find(*m_current) : nullptr; }

    /// The image that is shown, or null.
    SharedPicture currentPicture() const;

    /// The picture with which others are compared, or null if there is none.
    const OpenPicture* reference() const { return m_reference ? find(*m_reference) : nullptr; }

    /// Adds a picture at the end of the list. `picture` may be null if there is a file from which it can be
    /// read. The first picture does not become the current one by itself.
    PictureId add(const Io::Path& file, const SharedPicture& picture,
                  PictureOrigin origin = PictureOrigin::FILE);

    /// Returns the pictures of the files, in their order. Adds those files that are not open yet.
    Array<PictureId> addFiles(const Array<Io::Path>& files);

    /// Closes a picture. If it was the current one, the next one in the list that has been read takes its
    /// place, or the one before.
    void close(PictureId id);

    /// Shows another picture, which must have been read.
    void setCurrent(PictureId id);

    /// Gives the picture another state: read at last, read anew, or another layer.
    void setPicture(PictureId id, const SharedPicture& picture);

    /// Tells in which file the picture is now, whose name it takes.
    void setFile(PictureId id, const Io::Path& file);

    /// `id` is the picture with which others are to be compared, or nullopt for none.
    void setReference(Optional<PictureId> id);

    /// Hides the pictures whose names do not contain the text, upper and lower case being the same. They stay
    /// open.
    void setFilter(const String& text);

    /// Returns whether the filter lets the picture through.
    bool isListed(const OpenPicture& picture) const;

    /// Returns the listed picture that stands `steps` places behind the current one, or before it if the
    /// number is negative. After the last one comes the first one. Nullopt if no other picture is listed.
    Optional<PictureId> neighbour(int steps) const;

    /// Forgets the images of pictures that were not looked at for longest and can be read again from their
    /// files, until those that remain take no more than that many bytes. The current picture and the
    /// reference stay.
    void limitMemory(std::uint64_t bytes);

private:
    OpenPicture* findOwn(PictureId id);
    void tell(Flags<Change> changes);

    Array<Observer> m_observers;
    Array<OpenPicture> m_pictures;
    Optional<PictureId> m_current;
    Optional<PictureId> m_reference;
    String m_filter; // in lower case
    int m_lastId = 0;
    std::uint64_t m_looks = 0;
};

} // namespace Nolvex::Viewer
