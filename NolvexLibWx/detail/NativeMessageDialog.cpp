// SPDX-License-Identifier: MIT
#include "NolvexLibWx/detail/NativeMessageDialog.h"

#include "NolvexLib/GuiDisabler.h"
#include "NolvexLibWx/DialogParentWrapper.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/detail/NativeDialogMapping.h"
#include "NolvexLibWx/platform/DialogThread.h"

#include <wx/msgdlg.h>

#include <cstddef>
#include <optional>

namespace Nolvex {

namespace {

using Controls = ArrayView<const Wx::MessageDialogControl* const>;

// GTK takes seconds for a text of a megabyte, and the buttons would be far below the screen.
String shortened(const String& message)
{
    constexpr std::size_t MAX_LENGTH = 10'000;
    return message.length() <= MAX_LENGTH ? message : message.getSubstr(0, MAX_LENGTH) + L"\u2026";
}

int showModal(WindowHandle owner, const String& title, const String& message, long style)
{
    std::optional<GuiDisabler> disabler;
    std::optional<Wx::DialogParentWrapper> parent;
    if (owner) {
        disabler.emplace();
        parent.emplace(owner);
    }
    // A wrapper has no window if the owner does not exist.
    wxWindow* const usable = parent && parent->GetHandle() != nullptr ? &*parent : nullptr;
    wxMessageDialog dialog(usable, Wx::toWxString(shortened(message)), Wx::toWxString(title), style);
    return dialog.ShowModal();
}

} // namespace

int NativeMessageDialog::show(WindowHandle owner, const String& title, const String& message,
                              Wx::MessageDialogIcon icon, Controls controls)
{
    const long chosenStyle = NativeDialogMapping::style(icon, controls);
    int result = wxID_NONE;
    const bool shown = Platform::showOffMainThread(
        mainThreadCalls(), [&] { result = showModal(owner, title, message, chosenStyle); });
    return shown ? NativeDialogMapping::controlId(result) : Wx::MessageDialogControl::FRAME_CLOSE.m_controlId;
}

WaitingCalls& NativeMessageDialog::mainThreadCalls()
{
    // Never destroyed: threads that outlive main() may still ask.
    static WaitingCalls& calls = *new WaitingCalls;
    return calls;
}

} // namespace Nolvex
