// SPDX-License-Identifier: MIT
#pragma once

namespace Nolvex::Io {

/// The forms in which lists of file filters are handed to file dialogs.
enum class FileFilterFormat
{
    /// "PNG images (*.png)|*.png|JPEG images (*.jpg;*.jpeg)|*.jpg;*.jpeg"
    WILDCARD = 0,
};

} // namespace Nolvex::Io
