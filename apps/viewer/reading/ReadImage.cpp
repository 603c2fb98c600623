// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/ReadImage.h"

namespace Nolvex::Viewer {

String PictureLayer::label() const
{
    String list;
    for (const String& channel : channels) {
        if (!channel.isEmpty())
            list += (list.isEmpty() ? L"" : L", ") + channel;
    }
    return name.isEmpty() ? list : name + L" (" + list + L")";
}

} // namespace Nolvex::Viewer
