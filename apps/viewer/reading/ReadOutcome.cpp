// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/ReadOutcome.h"

namespace Nolvex::Viewer {

Unexpected<String> readFailure(ReadOutcome outcome)
{
    const bool isStopped = outcome == ReadOutcome::STOPPED;
    return Unexpected{String(isStopped ? L"it was not read to the end" : L"it is damaged or cut off")};
}

} // namespace Nolvex::Viewer
