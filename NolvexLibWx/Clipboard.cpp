// SPDX-License-Identifier: MIT
#include "NolvexLibWx/Clipboard.h"

#include "NolvexLibWx/DeviceIndependentBitmap.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/platform/ClipboardImage.h"

#include <wx/app.h>
#include <wx/clipbrd.h>

#include <new>
#include <utility>

namespace Nolvex {

namespace {

// Without an application the toolkit has no display to make its clipboard on.
bool isToolkitUp()
{
    return wxAppConsoleBase::GetInstance() != nullptr;
}

} // namespace

bool Wx::setClipboardData(const String& text)
{
    if (!isToolkitUp())
        return false;
    wxClipboard* clipboard = wxTheClipboard;
    // Opened by the host already: opening it again is an assertion of the toolkit.
    if (clipboard->IsOpened() || !clipboard->Open())
        return false;
    const bool accepted = clipboard->SetData(new wxTextDataObject(toWxString(text)));
    if (accepted)
        clipboard->Flush();
    clipboard->Close();
    return accepted;
}

bool Wx::setClipboardData(const BitmapImpl<Rgb>& image, Flags<SetClipboardData> flags)
{
    if (!isToolkitUp())
        return false;
    // Made before the clipboard is opened: others wait for it.
    try {
        DeviceIndependentBitmap bitmap(image);
        if (flags.has(SetClipboardData::AVOID_GRAYSCALE))
            bitmap.disguiseGrey();
        return !bitmap.isEmpty() && Platform::setClipboardImage(std::move(bitmap));
    } catch (const std::bad_alloc&) {
        return false;
    }
}

} // namespace Nolvex
