// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Expected.h"
#include "NolvexLib/Function.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/String.h"
#include "apps/viewer/BackgroundTask.h"
#include "apps/viewer/Messages.h"
#include "apps/viewer/Workspace.h"

#include <cstddef>
#include <cstdint>
#include <deque>

namespace Nolvex::Viewer {

/// Opens pictures: puts them into the workspace and reads them, in the background, when they are to be shown.
/// One picture is read at a time, and the user's last wish counts. The layer that was shown last is read
/// again. A file that cannot be read leaves the workspace again if nothing was ever read from it.
class PictureOpening : private Noncopyable
{
public:
    /// What is open takes about this much memory at most. Beyond that, pictures that are not shown are read
    /// from their sources again when they are.
    static constexpr std::uint64_t MAX_MEMORY = std::uint64_t(4) << 30;

    PictureOpening(Workspace& workspace, Messages messages);

    /// Called whenever reading has ended, well or not, and nothing else is to be read. May be empty.
    Function<void()> onEnded;

    /// Lists all of the files and shows the first of them that can be read. Files that are open already are
    /// read again.
    void open(const Array<Io::Path>& files);

    /// Shows a picture of the workspace.
    void show(PictureId id);

    /// Shows the picture so many places further on in the list, and passes over files that cannot be read.
    void step(int steps);

    /// Shows another layer of the current picture.
    void showLayer(std::size_t layer);

    /// Reads a picture's source again, after what is being read, and keeps the layer that is shown. If that
    /// fails, the old state stays. A picture without a source stays as it is.
    void reload(PictureId id);

    /// Adds a picture that has no file, and shows it.
    void showUnsaved(const SharedPicture& picture);

    bool isRunning() const { return m_reading.isRunning(); }

    /// The name of what is being read.
    const String& name() const { return m_name; }

    /// The share that has been read, from 0 to 1.
    float progress() const { return m_reading.progress(); }

    /// Stops reading. What is shown stays.
    void cancel();

    /// Waits until everything that was asked for is shown or has failed.
    void finish();

private:
    struct Arrival
    {
        SharedPicture picture;
        Optional<FileState> sourceState; // from before reading, or nullopt if the source was not read
    };

    using Result = Expected<Arrival, String>;
    using Reading = BackgroundTask<Result>;

    /// Whether a picture that has been read becomes the current one.
    enum class Presentation
    {
        KEEP,
        SHOW,
    };

    static Reading::Work readingOf(const OpenPicture& open);
    void interrupt();
    void goOn();
    void tryNext();
    void begin(PictureId id, Presentation presentation, Reading::Work read);
    void onRead(PictureId id, Presentation presentation, const Result& result);

    Workspace& m_workspace;
    Messages m_messages;
    Reading m_reading;
    std::deque<PictureId> m_candidates; // to be tried until one of them can be shown
    std::deque<PictureId> m_reloads;    // to be read again when nothing else is read
    Optional<PictureId> m_reloading;    // what is being read again
    Optional<PictureId> m_wanted;       // what is being read to be shown
    bool m_readsAgain = false;          // what was asked for is to be read even if it has been read
    String m_name;
};

} // namespace Nolvex::Viewer
