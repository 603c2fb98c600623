// SPDX-License-Identifier: MIT
#include "NolvexLibWx/detail/NativeMessageDialog.h"

#include "NolvexLib/GuiDisabler.h"
#include "NolvexLib/MainThread.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/detail/DialogOwner.h"
#include "NolvexLibWx/detail/MessageCut.h"
#include "NolvexLibWx/detail/NativeDialogMapping.h"
#include "NolvexLibWx/platform/DialogThread.h"

#include <wx/msgdlg.h>
#include <wx/scopeguard.h>

#include <cstddef>
#include <optional>

namespace Nolvex {

namespace {

using Controls = ArrayView<const Wx::MessageDialogControl* const>;

// GTK takes seconds for a text of a megabyte, and the buttons would be far below the screen.
String shortened(const String& message)
{
    constexpr std::size_t MAX_LENGTH = 10'000;
    if (message.length() <= MAX_LENGTH)
        return message;
    return message.getSubstr(0, MessageCut::cutLength(message.wstr(), MAX_LENGTH)) + L"\u2026";
}

// The dialog that the main thread shows, or null.
DialogOwner* g_shownOnMainThread = nullptr;

// Returns the result of the dialog, or wxID_NONE if the program has ended the dialog.
int showModal(WindowHandle owner, const String& title, const String& message, long style)
{
    std::optional<GuiDisabler> disabler;
    if (owner)
        disabler.emplace();
    DialogOwner dialogOwner(owner);
    wxWindow* const parent = owner ? dialogOwner.parent() : nullptr;
    // wxMSW asks a parent for its layout, so an owner that is gone is no parent.
    const bool hasWindow = parent != nullptr && parent->GetHandle() != nullptr;
    wxMessageDialog dialog(hasWindow ? parent : nullptr, Wx::toWxString(shortened(message)),
                           Wx::toWxString(title), style);
    if (isMainThread())
        g_shownOnMainThread = &dialogOwner;
    const wxScopeGuard forget = wxMakeGuard([] {
        if (isMainThread())
            g_shownOnMainThread = nullptr;
    });
    const int result = dialogOwner.showModal(dialog);
    return dialogOwner.isCancelled() ? wxID_NONE : result;
}

} // namespace

int NativeMessageDialog::show(WindowHandle owner, const String& title, const String& message,
                              Wx::MessageDialogIcon icon, Controls controls)
{
    const long chosenStyle = NativeDialogMapping::style(icon, controls);
    int result = wxID_NONE;
    const bool shown = Platform::showOffMainThread(
        mainThreadCalls(), [&] { result = showModal(owner, title, message, chosenStyle); });
    return shown && result != wxID_NONE ? NativeDialogMapping::controlId(result)
                                        : Wx::MessageDialogControl::FRAME_CLOSE.m_controlId;
}

void NativeMessageDialog::cancelShown()
{
    if (g_shownOnMainThread != nullptr)
        g_shownOnMainThread->cancel();
}

WaitingCalls& NativeMessageDialog::mainThreadCalls()
{
    // Never destroyed: threads that outlive main() may still ask.
    static WaitingCalls& calls = *new WaitingCalls;
    return calls;
}

} // namespace Nolvex
