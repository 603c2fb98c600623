// SPDX-License-Identifier: MIT
#pragma once

namespace Nolvex::Io {

/// The forms in which file dialogs take lists of file filters.
enum class FileFilterFormat
{
    /// "PNG images (*.png)|*.png|JPEG images (*.jpg;*.jpeg)|*.jpg;*.jpeg"
    WILDCARD = 0,
};

} // namespace Nolvex::Io
