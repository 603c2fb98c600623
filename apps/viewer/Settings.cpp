// SPDX-License-Identifier: MIT
#include "apps/viewer/Settings.h"

#include "NolvexLib/ColorFormat.h"
#include "NolvexLib/ImageFormatDescriptor.h"
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/StringConversions.h"
#include "apps/viewer/SettingsFile.h"

#include <wx/colour.h>
#include <wx/config.h>
#include <wx/display.h>
#include <wx/fileconf.h>
#include <wx/filename.h>
#include <wx/log.h>
#include <wx/stdpaths.h>
#include <wx/toplevel.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <system_error>
#include <utility>

namespace Nolvex::Viewer {

namespace {

// The title bar, by which a window is moved, must be seen.
constexpr int MIN_VISIBLE = 64;

// Places and sizes on the screen are smaller.
constexpr long MAX_NUMBER = 32767;

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

wxString saveKey(ImageFormat format)
{
    return L"/save/" + Wx::toWxString(getImageFormatDescriptor(format).extensions.front()) + L"/";
}

// A file that cannot be written is no reason for the message boxes that wxFileConfig would open.
void flush(wxConfigBase& config)
{
    const wxLogNull quiet;
    config.Flush();
}

struct EncodingName
{
    Encoding encoding;
    const wchar_t* name;
};

constexpr EncodingName ENCODINGS[] = {
    {Encoding::GAMMA, L"gamma"}, {Encoding::SRGB, L"srgb"}, {Encoding::LINEAR, L"linear"}};

} // namespace

Settings::Settings() = default;

Settings::Settings(std::shared_ptr<wxConfigBase> config) : m_config(std::move(config))
{
    // wxConfigBase would put the values of environment variables into names such as "$HOME.png".
    if (m_config)
        m_config->SetExpandEnvVars(false);
}

Settings::~Settings()
{
    // wxFileConfig writes the file when it is destroyed.
    const wxLogNull quiet;
    m_config.reset();
}

std::shared_ptr<wxConfigBase> Settings::ofUser()
{
    wxStandardPaths& paths = wxStandardPaths::Get();
    paths.SetFileLayout(wxStandardPaths::FileLayout_XDG);
    wxFileName file(paths.GetUserConfigDir(), L"settings.ini");
    file.AppendDir(L"nolvex-viewer");
    const wxLogNull quiet;
    if (!file.DirExists() && !file.Mkdir(wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL))
        return nullptr;
    return inFile(Io::Path(Wx::toString(file.GetFullPath())));
}

std::shared_ptr<wxConfigBase> Settings::inFile(const Io::Path& file)
{
    putAsideIfDamaged(file);
    const wxLogNull quiet;
    return std::make_shared<wxFileConfig>(wxString(), wxString(), Wx::toWxString(file.nativeStr()),
                                          wxString(), wxCONFIG_USE_LOCAL_FILE);
}

bool Settings::restore(wxTopLevelWindow& window) const
{
    if (!m_config)
        return false;
    const wxRect place(number(L"/window/x").value_or(0), number(L"/window/y").value_or(0),
                       number(L"/window/width").value_or(0), number(L"/window/height").value_or(0));
    const bool isKnown = place.width > 0 && place.height > 0 && canBeSeen(place);
    if (isKnown)
        window.SetSize(place);
    if (flag(L"/window/maximised", false))
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
    flush(*m_config);
}

// wxConfigBase complains about other numbers than 0 and 1 in a message box.
bool Settings::flag(const wxString& key, bool otherwise) const
{
    const Optional<int> value = number(key);
    const bool isKnown = value.has_value() && (*value == 0 || *value == 1);
    return isKnown ? *value == 1 : otherwise;
}

Optional<int> Settings::number(const wxString& key) const
{
    long value = 0;
    if (!m_config || !m_config->Read(key, wxString()).ToCLong(&value) || std::abs(value) > MAX_NUMBER)
        return {};
    return static_cast<int>(value);
}

Preferences Settings::preferences() const
{
    Preferences preferences;
    if (!m_config)
        return preferences;
    preferences.picturesPanel = flag(L"/panels/pictures", preferences.picturesPanel);
    preferences.informationPanel = flag(L"/panels/information", preferences.informationPanel);
    preferences.tooltips = flag(L"/look/tooltips", preferences.tooltips);
    preferences.lightSurround = flag(L"/look/light-surround", preferences.lightSurround);
    preferences.checkerboard = flag(L"/look/checkerboard", preferences.checkerboard);
    const wxColour surround(m_config->Read(L"/look/surround", wxString()));
    if (surround.IsOk())
        preferences.surround = Wx::toRgbBytes(surround);
    const wxString encoding = m_config->Read(L"/look/encoding", wxString());
    const auto* const known =
        std::ranges::find_if(ENCODINGS, [&](const EncodingName& named) { return encoding == named.name; });
    if (known != std::end(ENCODINGS))
        preferences.encoding = known->encoding;
    return preferences;
}

void Settings::setPreferences(const Preferences& preferences)
{
    if (!m_config)
        return;
    m_config->Write(L"/panels/pictures", preferences.picturesPanel);
    m_config->Write(L"/panels/information", preferences.informationPanel);
    m_config->Write(L"/look/tooltips", preferences.tooltips);
    m_config->Write(L"/look/light-surround", preferences.lightSurround);
    m_config->Write(L"/look/checkerboard", preferences.checkerboard);
    m_config->Write(L"/look/surround",
                    preferences.surround
                        ? Wx::toWxColour(*preferences.surround).GetAsString(wxC2S_HTML_SYNTAX)
                        : wxString());
    const auto* const named = std::ranges::find(ENCODINGS, preferences.encoding, &EncodingName::encoding);
    m_config->Write(L"/look/encoding", wxString(named->name));
    flush(*m_config);
}

Io::Path Settings::lastFolder() const
{
    return m_config ? Io::Path(Wx::toString(m_config->Read(L"/folder", wxString()))) : Io::Path();
}

void Settings::setLastFolder(const Io::Path& folder)
{
    if (!m_config || folder.isEmpty())
        return;
    m_config->Write(L"/folder", Wx::toWxString(folder.nativeStr()));
    flush(*m_config);
}

Optional<Wx::ImageSaveSettings> Settings::saveChoice(ImageFormat format) const
{
    if (!m_config)
        return {};
    const Optional<ColorFormat> color =
        getColorFormatFromName(Wx::toString(m_config->Read(saveKey(format) + L"colors", wxString())));
    if (!color || !getImageFormatDescriptor(format).allowedColorFormats.has(*color))
        return {};
    return Wx::ImageSaveSettings{*color, flag(saveKey(format) + L"alpha", false)};
}

void Settings::setSaveChoice(ImageFormat format, const Wx::ImageSaveSettings& choice)
{
    if (!m_config)
        return;
    m_config->Write(saveKey(format) + L"colors", Wx::toWxString(getColorFormatName(choice.colorFormat)));
    m_config->Write(saveKey(format) + L"alpha", choice.includeAlpha);
    flush(*m_config);
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
    flush(*m_config);
}

} // namespace Nolvex::Viewer
