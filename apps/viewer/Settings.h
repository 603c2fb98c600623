// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/Noncopyable.h"

#include <wx/gdicmn.h>

#include <memory>

class WXDLLIMPEXP_FWD_BASE wxConfigBase;
class WXDLLIMPEXP_FWD_CORE wxTopLevelWindow;

namespace Nolvex::Viewer {

/// What the viewer remembers from one run to the next: the place of its window and the files that were opened
/// last. Without a place to write to, nothing is remembered.
class Settings : private Noncopyable
{
public:
    static constexpr std::size_t MAX_RECENT_FILES = 9;

    /// Remembers nothing.
    Settings();

    explicit Settings(std::shared_ptr<wxConfigBase> config);

    ~Settings();

    /// The settings of the user who runs the program. The library must be started.
    static std::shared_ptr<wxConfigBase> ofUser();

    /// Puts the window where it was, if that place can still be seen. Returns whether it did.
    bool restore(wxTopLevelWindow& window) const;

    void remember(const wxTopLevelWindow& window);

    /// The latest first.
    Array<Io::Path> recentFiles() const;

    void addRecentFile(const Io::Path& file);

private:
    std::shared_ptr<wxConfigBase> m_config;
};

} // namespace Nolvex::Viewer
