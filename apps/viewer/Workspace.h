// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Flags.h"
#include "NolvexLib/Function.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/String.h"
#include "apps/viewer/FileState.h"
#include "apps/viewer/Picture.h"

#include <cstddef>
#include <cstdint>
#include <limits>

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
    PictureId id{};
    /// The file that has the name of the picture: the one that it was read from, or saved as last. Empty if
    /// there is neither.
    Io::Path file;
    String name;
    /// Null until the picture is read, and again after the memory was needed for others.
    SharedPicture picture;
    PictureOrigin origin = PictureOrigin::FILE;
    /// The file that gives the same picture when it is read again. A file that the picture was saved as is
    /// not one, since many formats keep less than the picture has. Empty if there is no such file.
    Io::Path source;
    /// The state of the source when the picture was last read, as far as it is known.
    Optional<FileState> sourceState;
    /// The name of the layer that was shown last, by which it is read again.
    String layer;
    /// True once there has been a picture.
    bool wasRead = false;
    /// Counts the looks at the picture, so that those looked at last are kept in memory.
    std::uint64_t lastShown = 0;

    bool canBeReadAgain() const { return !source.isEmpty(); }

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

    /// Returns the picture that was read from the file, by whatever path, or null if there is none.
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

    /// Returns the pictures of the files, in their order. Adds those files that are not open yet. Several
    /// paths of one file, such as a symbolic link and what it stands for, have one picture.
    Array<PictureId> addFiles(const Array<Io::Path>& files);

    /// Closes a picture. If it was the current one, the next one in the list that has been read takes its
    /// place, or the one before.
    void close(PictureId id);

    /// Shows another picture, which must have been read.
    void setCurrent(PictureId id);

    /// Gives the picture another state: read at last, read anew, or another layer. The entry keeps its name.
    /// `sourceState` is the state of the source if the picture was read from there, and nullopt if not.
    void setPicture(PictureId id, const SharedPicture& picture, const Optional<FileState>& sourceState = {});

    /// Tells as which file the picture was saved, whose name it takes. A picture that was saved over its
    /// source has none any more.
    void setFile(PictureId id, const Io::Path& file);

    /// `id` is the picture with which others are to be compared, or nullopt for none.
    void setReference(Optional<PictureId> id);

    /// Hides the pictures whose names do not contain the text, upper and lower case being the same. They stay
    /// open.
    void setFilter(const String& text);

    /// Returns whether the filter lets the picture through.
    bool isListed(const OpenPicture& picture) const;

    /// Returns the listed picture that stands `steps` places behind `from`, or before it if the number is
    /// negative. After the last one comes the first one. Nullopt if that is `from` itself. Without `from` the
    /// places count from the current picture.
    Optional<PictureId> neighbour(int steps, Optional<PictureId> from = {}) const;

    /// From now on, whenever a picture comes, forgets the images of pictures that were not looked at for
    /// longest and can be read again from their sources, until those that remain take no more than that many
    /// bytes. The current picture, the reference and the picture that has come stay.
    void limitMemory(std::uint64_t bytes);

private:
    OpenPicture* findOwn(PictureId id);
    void makeRoomFor(Optional<PictureId> newest);
    void tell(Flags<Change> changes);

    Array<Observer> m_observers;
    Array<OpenPicture> m_pictures;
    Optional<PictureId> m_current;
    Optional<PictureId> m_reference;
    String m_filter; // in lower case
    std::uint64_t m_maxBytes = std::numeric_limits<std::uint64_t>::max();
    int m_lastId = 0;
    std::uint64_t m_looks = 0;
};

} // namespace Nolvex::Viewer
