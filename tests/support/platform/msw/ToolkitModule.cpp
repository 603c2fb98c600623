// SPDX-License-Identifier: MIT
#include "support/NativeTraits.h"

#include "NolvexLib/WinApi/ModuleHandle.h"

#include <wx/msw/private.h>

bool Nolvex::Tests::toolkitKnowsItsModule()
{
    const void* inToolkit = reinterpret_cast<const void*>(&wxSetInstance);
    return wxGetInstance() != nullptr && wxGetInstance() == Nolvex::WinApi::getModuleHandle(inToolkit) &&
           wxGetInstance() != GetModuleHandleW(nullptr);
}
