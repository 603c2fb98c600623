// SPDX-License-Identifier: MIT
#include "support/AddressOpener.h"

#include "support/Events.h"

#include <wx/ffile.h>
#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/utils.h>

#include <sys/stat.h>

namespace Nolvex {

// No desktop knows the scheme, and wxWidgets then runs xdg-open. The test therefore puts a program of that
// name in front of the PATH.
Tests::AddressOpener::AddressOpener() : m_folder(wxFileName::CreateTempFileName("nolvex-opener"))
{
    wxRemoveFile(m_folder);
    wxMkdir(m_folder);
    const wxString program = m_folder + "/xdg-open";
    wxFFile(program, "w").Write("#!/bin/sh\nprintf '%s\\n' \"$1\" >>\"${0%/*}/opened\"\n");
    chmod(program.utf8_str(), S_IRWXU);
    wxGetEnv("PATH", &m_previous);
    wxSetEnv("PATH", m_folder + ":" + m_previous);
}

Tests::AddressOpener::~AddressOpener()
{
    wxSetEnv("PATH", m_previous);
    wxFileName::Rmdir(m_folder, wxPATH_RMDIR_RECURSIVE);
}

wxString Tests::AddressOpener::takeOpened() const
{
    const wxString file = m_folder + "/opened";
    wxString lines;
    pumpUntil([&] {
        wxFFile opened;
        return wxFileExists(file) && opened.Open(file) && opened.ReadAll(&lines) && lines.EndsWith("\n");
    });
    wxRemoveFile(file);
    return lines;
}

} // namespace Nolvex
