// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Export.h"

#include <wx/stattext.h>

namespace Nolvex::Platform {

/// The toolkit's label, which has a window of its own here, measured as it is painted: the toolkit would
/// leave no room for a "&".
class NOLVEXLIBWX_EXPORT OwnWindowStaticText : public wxStaticText
{
public:
    using wxStaticText::wxStaticText;
    ~OwnWindowStaticText() override;

protected:
    wxSize DoGetBestClientSize() const override;
};

} // namespace Nolvex::Platform
