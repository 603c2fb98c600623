// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Function.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/Optional.h"
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
    static constexpr int TURN_PERIOD = 60; // milliseconds

    /// The frame must be shown, and must outlive this object.
    Screenshots(GalleryFrame& frame, const Io::Path& folder);

    /// Returns nullopt if more turns are to come, and otherwise the error, which is empty for success.
    Optional<String> takeTurn();

private:
    /// Returns a sentence for the user if the job cannot be done, or else an empty text.
    using Job = Function<String()>;

    void addPage(std::size_t page, int skin);
    void addWindow(const Window& window, int skin);
    void addScene(std::size_t page, const Scene& scene, int skin);
    void addStep(const Scene::Step& step, const String& scene);
    void addPicture(const String& title, int skin, Function<const wxWindow*()> source);
    void showPage(std::size_t page);

    GalleryFrame& m_frame;
    Io::Path m_folder;
    Array<Job> m_jobs;
    std::size_t m_done = 0;
    int m_turnsToWait = 0;
    Function<bool()> m_isReached; // empty unless a step waits for its effect
    String m_awaited;             // the scene of that step
    int m_turnsWaited = 0;
    wxWeakRef<wxTopLevelWindow> m_window; // whose picture is taken next
};

} // namespace Nolvex::Gallery
