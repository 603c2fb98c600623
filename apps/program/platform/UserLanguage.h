// SPDX-License-Identifier: MIT
#pragma once

namespace Nolvex::Program {

/// Lets the dialogs and the input methods of the system speak the user's language. Numbers and dates stay as
/// they are in every country. To be called before the library is started.
void useLanguageOfUser();

} // namespace Nolvex::Program
