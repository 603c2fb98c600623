// SPDX-License-Identifier: MIT
#pragma once

namespace Nolvex {

/// The capabilities of an image file format.
enum class ImageFormatFlag
{
    /// The user has a choice when saving: there are several colour formats, or alpha may be kept or left out.
    HAS_SAVE_OPTIONS = 2,
    /// Each pixel has an alpha of its own, with more than two steps.
    SUPPORTS_ALPHA = 0x100,
};

} // namespace Nolvex
