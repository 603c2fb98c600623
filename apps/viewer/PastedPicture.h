// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Expected.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/String.h"
#include "apps/viewer/Picture.h"

namespace Nolvex::Viewer {

/// What the clipboard holds for the viewer: files, or else a picture. Never both.
struct PastedContent
{
    Array<Io::Path> files;
    SharedPicture picture;
};

/// Takes the content of the clipboard. The error is a sentence for the user.
Expected<PastedContent, String> pasteFromClipboard();

} // namespace Nolvex::Viewer
