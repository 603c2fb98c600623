// SPDX-License-Identifier: MIT
#include "support/AddressOpener.h"

#include "support/Events.h"

#include <wx/ffile.h>
#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/msw/registry.h>

namespace Nolvex {

namespace {

constexpr wxRegKey::StdKey CURRENT_USER = wxRegKey::HKCU;
constexpr wxRegKey::StdKey ALL_CLASSES = wxRegKey::HKCR;

wxRegKey usersKey()
{
    return {CURRENT_USER, L"Software\\Classes\\nolvextest"};
}

wxRegKey commonKey()
{
    return {ALL_CLASSES, L"nolvextest"};
}

void setCommand(wxRegKey key, const wxString& command)
{
    key.Create();
    key.SetValue(L"URL Protocol", L"");
    wxRegKey commandKey(key, L"shell\\open\\command");
    commandKey.Create();
    commandKey.SetValue(L"", command);
}

void remove(wxRegKey key)
{
    if (key.Exists())
        key.DeleteSelf();
}

} // namespace

Tests::AddressOpener::AddressOpener() : m_folder(wxFileName::CreateTempFileName("nolvex-opener"))
{
    wxRemoveFile(m_folder);
    wxMkdir(m_folder);
    const wxString command = L"cmd.exe /c echo %1>>\"" + m_folder + L"\\opened\"";
    setCommand(usersKey(), command);
    // Some systems ignore the classes of the user, so that the common class is set, too.
    if (!commonKey().Exists())
        setCommand(commonKey(), command);
}

Tests::AddressOpener::~AddressOpener()
{
    remove(usersKey());
    remove(commonKey());
    wxFileName::Rmdir(m_folder, wxPATH_RMDIR_RECURSIVE);
}

wxString Tests::AddressOpener::takeOpened() const
{
    const wxString file = m_folder + L"\\opened";
    wxString lines;
    // The program that writes the file may still have it open.
    pumpUntil([&] {
        wxFFile opened;
        return wxFileExists(file) && opened.Open(file, L"r") && opened.ReadAll(&lines) &&
               lines.EndsWith("\n");
    });
    wxRemoveFile(file);
    return lines;
}

} // namespace Nolvex
