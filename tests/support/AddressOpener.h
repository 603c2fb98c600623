// SPDX-License-Identifier: MIT
#pragma once

#include <wx/string.h>

namespace Nolvex::Tests {

/// While it lives, the system opens addresses that begin with "nolvextest:" by writing them down.
class AddressOpener
{
public:
    AddressOpener();
    ~AddressOpener();
    AddressOpener(const AddressOpener&) = delete;
    AddressOpener& operator=(const AddressOpener&) = delete;

    /// The lines of what was opened since the last call, waiting until there is something; empty when nothing
    /// comes.
    wxString takeOpened() const;

private:
    wxString m_folder;
    wxString m_previous;
};

} // namespace Nolvex::Tests
