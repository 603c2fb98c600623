// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/BitmapImpl.h"
#include "NolvexLib/Function.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/Rgb.h"
#include "NolvexLib/String.h"
#include "apps/gallery/Page.h"

#include <wx/toplevel.h>
#include <wx/weakref.h>

#include <cstddef>

namespace Nolvex::Gallery {

class GalleryFrame;

/// Takes pictures of everything that the gallery shows, one turn at a time: in each skin of each page, of the
/// windows that the page opens, and of its controls at rest and in each scene. The files are called
/// "Buttons-Dark.png", "Message-dialog-Error-Dark.png", "State-Buttons-at-rest-Dark.png" and
/// "State-Buttons-pressed-Dark.png".
class Screenshots
{
public:
    static constexpr int TURN_PERIOD = 20; // milliseconds

    /// The frame must be shown, and must outlive this object.
    Screenshots(GalleryFrame& frame, const Io::Path& folder);

    /// Returns nullopt if more turns are to come, and otherwise the error, which is empty for success.
    Optional<String> takeTurn();

private:
    /// Returns a sentence for the user if the job cannot be done, or else an empty text.
    using Job = Function<String()>;

    /// A source returns the window of a picture, or null if the window has been closed.
    using Source = Function<const wxWindow*()>;

    void addPage(std::size_t page, int skin);
    void addWindow(const Window& window, int skin);
    void addScene(std::size_t page, const Scene& scene, int skin);
    void addStep(const Scene::Step& step, const String& scene);
    void addSettling(const Source& source, const String& title);
    void addPicture(const String& title, int skin, const Source& source);
    void addCheck(std::size_t page, const Scene& scene, std::size_t firstJob);
    void addRest(std::size_t page);
    void showPage(std::size_t page);
    void awaitPaintOf(wxWindow& window);
    void await(const String& what, Function<bool()> isReached);

    GalleryFrame& m_frame;
    Io::Path m_folder;
    Array<Job> m_jobs;
    std::size_t m_done = 0;
    int m_turnsToWait = 0;
    Function<bool()> m_isReached; // empty unless a job waits for its effect
    String m_awaited;             // the state that this job belongs to, for the user
    int m_turnsWaited = 0;
    BitmapImpl<Rgb> m_seen;               // on the screen, in the turn before
    int m_attempts = 0;                   // at the scene
    wxWeakRef<wxTopLevelWindow> m_window; // whose picture is taken next
};

} // namespace Nolvex::Gallery
