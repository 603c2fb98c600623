// SPDX-License-Identifier: MIT
#pragma once

#include <wx/string.h>

namespace Nolvex::Tests {

/// While the object lives, the system writes addresses that begin with "nolvextest:" to a file instead of
/// opening them.
class AddressOpener
{
public:
    AddressOpener();
    ~AddressOpener();
    AddressOpener(const AddressOpener&) = delete;
    AddressOpener& operator=(const AddressOpener&) = delete;

    /// Waits until an address has been opened since the last call, and returns the addresses, a line each.
    /// Returns an empty text if none is opened in time.
    wxString takeOpened() const;

private:
    wxString m_folder;
    wxString m_previous;
};

} // namespace Nolvex::Tests
