// SPDX-License-Identifier: MIT
#include "apps/viewer/Settings.h"

#include "NolvexLibWx/StringConversions.h"

#include <wx/config.h>
#include <wx/display.h>
#include <wx/fileconf.h>
#include <wx/filename.h>
#include <wx/stdpaths.h>
#include <wx/toplevel.h>

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

namespace Nolvex::Viewer {

namespace {

// The title bar, by which a window is moved, must be seen.
constexpr int MIN_VISIBLE = 64;

wxString recentKey(std::size_t place)
{
    return wxString(L"/recent/") << place;
}

bool canBeSeen(const wxRect& window)
{
    for (unsigned i = 0; i < wxDisplay::GetCount(); ++i) {
        const wxRect seen = wxDisplay(i).GetClientArea().Intersect(window);
        if (seen.width >= MIN_VISIBLE && seen.height >= MIN_VISIBLE && seen.y <= window.y)
            return true;
    }
    return false;
}

} // namespace

Settings::Settings() = default;

Settings::Settings(std::shared_ptr<wxConfigBase> config) : m_config(std::move(config))
{
    // wxConfigBase would put the values of environment variables into names such as "$HOME.png".
    if (m_config)
        m_config->SetExpandEnvVars(false);
}

Settings::~Settings() = default;

std::shared_ptr<wxConfigBase> Settings::ofUser()
{
    wxStandardPaths& paths = wxStandardPaths::Get();
    paths.SetFileLayout(wxStandardPaths::FileLayout_XDG);
    wxFileName file(paths.GetUserConfigDir(), L"settings.ini");
    file.AppendDir(L"nolvex-viewer");
    if (!file.DirExists() && !file.Mkdir(wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL))
        return nullptr;
    return std::make_shared<wxFileConfig>(wxString(), wxString(), file.GetFullPath(), wxString(),
                                          wxCONFIG_USE_LOCAL_FILE);
}

bool Settings::restore(wxTopLevelWindow& window) const
{
    if (!m_config)
        return false;
    const wxRect place(static_cast<int>(m_config->ReadLong(L"/window/x", 0)),
                       static_cast<int>(m_config->ReadLong(L"/window/y", 0)),
                       static_cast<int>(m_config->ReadLong(L"/window/width", 0)),
                       static_cast<int>(m_config->ReadLong(L"/window/height", 0)));
    const bool isKnown = place.width > 0 && place.height > 0 && canBeSeen(place);
    if (isKnown)
        window.SetSize(place);
    if (m_config->ReadBool(L"/window/maximised", false))
        window.Maximize();
    return isKnown;
}

void Settings::remember(const wxTopLevelWindow& window)
{
    if (!m_config || window.IsIconized())
        return;
    m_config->Write(L"/window/maximised", window.IsMaximized());
    if (!window.IsMaximized()) {
        const wxRect place = window.GetRect();
        m_config->Write(L"/window/x", place.x);
        m_config->Write(L"/window/y", place.y);
        m_config->Write(L"/window/width", place.width);
        m_config->Write(L"/window/height", place.height);
    }
    m_config->Flush();
}

Array<Io::Path> Settings::recentFiles() const
{
    Array<Io::Path> files;
    for (std::size_t i = 0; m_config && i < MAX_RECENT_FILES; ++i) {
        const wxString file = m_config->Read(recentKey(i), wxString());
        if (!file.empty())
            files.emplace_back(Wx::toString(file));
    }
    return files;
}

void Settings::addRecentFile(const Io::Path& file)
{
    if (!m_config || file.isEmpty())
        return;
    // The program may be started elsewhere the next time.
    std::error_code failure;
    const Io::Path whole = std::filesystem::absolute(file.native(), failure);
    Array<Io::Path> files = recentFiles();
    std::erase(files, whole);
    files.insert(files.begin(), whole);
    files.resize(std::min(files.size(), MAX_RECENT_FILES));
    for (std::size_t i = 0; i < files.size(); ++i)
        m_config->Write(recentKey(i), Wx::toWxString(files[i].nativeStr()));
    m_config->Flush();
}

} // namespace Nolvex::Viewer
