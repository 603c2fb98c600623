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

// Without an application object wxWidgets has no display whose clipboard could be opened.
bool hasApplication()
{
    return wxAppConsoleBase::GetInstance() != nullptr;
}

} // namespace

bool Wx::setClipboardData(const String& text)
{
    if (!hasApplication())
        return false;
    wxClipboard* clipboard = wxTheClipboard;
    // wxWidgets asserts if the host has opened the clipboard already.
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
    if (!hasApplication())
        return false;
    // The bitmap is made before the clipboard is opened: other programs wait for the clipboard.
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
