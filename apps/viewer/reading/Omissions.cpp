// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/Omissions.h"

#include <string>

namespace Nolvex::Viewer {

Array<String> omittedFrames(std::uint64_t count)
{
    if (count < 2)
        return {};
    return {L"It has " + String(std::to_wstring(count)) + L" frames, of which the first is shown."};
}

Array<String> omittedChannels(int count)
{
    if (count < 1)
        return {};
    if (count == 1)
        return {L"It has one more channel, which is not shown."};
    return {L"It has " + String(std::to_wstring(count)) + L" more channels, which are not shown."};
}

} // namespace Nolvex::Viewer
