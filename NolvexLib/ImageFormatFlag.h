// SPDX-License-Identifier: MIT
#pragma once

namespace Nolvex {

/// What an image file format is capable of.
enum class ImageFormatFlag
{
    /// Saving leaves a choice: there is more than one colour format, or alpha may be kept or left out.
    HAS_SAVE_OPTIONS = 2,
    /// Each pixel may have an alpha of its own, in more steps than two.
    SUPPORTS_ALPHA = 0x100,
};

} // namespace Nolvex
