// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/ImageFormat.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/Optional.h"
#include "NolvexLibWx/widgets/ImageSaveSettings.h"
#include "apps/viewer/Preferences.h"

#include <wx/gdicmn.h>

#include <memory>

class WXDLLIMPEXP_FWD_BASE wxConfigBase;
class WXDLLIMPEXP_FWD_CORE wxTopLevelWindow;

namespace Nolvex::Viewer {

/// What the viewer remembers from one run to the next: the place of its window, how the user likes it, the
/// files that were opened last, and how pictures were saved. Without a place to write to, nothing is
/// remembered. A damaged value counts as none.
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

    /// The settings in a file, which is made when there is something to remember. A damaged file is put
    /// aside.
    static std::shared_ptr<wxConfigBase> inFile(const Io::Path& file);

    /// Puts the window where it was, if that place can still be seen. Returns whether it did.
    bool restore(wxTopLevelWindow& window) const;

    void remember(const wxTopLevelWindow& window);

    Preferences preferences() const;

    void setPreferences(const Preferences& preferences);

    /// The folder of the files that were chosen last. Empty if there is none.
    Io::Path lastFolder() const;

    void setLastFolder(const Io::Path& folder);

    /// How the user has chosen last to save pictures in the format.
    Optional<Wx::ImageSaveSettings> saveChoice(ImageFormat format) const;

    void setSaveChoice(ImageFormat format, const Wx::ImageSaveSettings& choice);

    /// The latest first.
    Array<Io::Path> recentFiles() const;

    void addRecentFile(const Io::Path& file);

private:
    bool flag(const wxString& key, bool otherwise) const;
    Optional<int> number(const wxString& key) const;

    std::shared_ptr<wxConfigBase> m_config;
};

} // namespace Nolvex::Viewer
