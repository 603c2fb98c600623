// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/BitmapImpl.h"
#include "NolvexLib/Exception.h"
#include "NolvexLib/Rgb.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/Clipboard.h"
#include "NolvexLibWx/NolvexLibWx.h"

#include <cstring>

namespace Nolvex::Tests {

// The text and the picture of the tests that ask whether a copy stays on the clipboard after its program has
// ended.

constexpr char COPY_ARGUMENT[] = "--copy-and-end";
constexpr char COPY_TEXT[] = "text";
constexpr char COPY_PICTURE[] = "picture";

inline String textToLeave()
{
    return L"left behind, \u00fcber all";
}

inline BitmapImpl<Rgb> pictureToLeave()
{
    BitmapImpl<Rgb> picture(90, 70, {0.2f, 0.4f, 0.6f, 1.0f});
    picture.at(3, 5) = {1.0f, 0.0f, 0.8f, 1.0f};
    return picture;
}

/// Copies the text or the picture in a process that ends afterwards. Returns the exit status of the process.
inline int copyAndEnd(const char* what)
{
    try {
        LibWx::startup(LibWx::ApplicationType::APPLICATION);
    } catch (const Exception&) {
        return 1;
    }
    const bool copied = std::strcmp(what, COPY_TEXT) == 0 ? Wx::setClipboardData(textToLeave())
                                                          : Wx::setClipboardData(pictureToLeave(), {});
    LibWx::shutdown();
    return copied ? 0 : 1;
}

} // namespace Nolvex::Tests
