// SPDX-License-Identifier: MIT
#include "apps/viewer/LossQuestion.h"

#include "NolvexLib/Array.h"
#include "NolvexLibWx/MessageDialog.h"
#include "NolvexLibWx/NativeWindows.h"

#include <wx/window.h>

namespace Nolvex::Viewer {

namespace {

// Controls take identifiers from a counter that knows one thread only, and are made once.
const Wx::MessageDialogButton& saveButton()
{
    static const Wx::MessageDialogButton BUTTON(L"Save...", {WXK_RETURN, WXK_NUMPAD_ENTER, 'S'});
    return BUTTON;
}

const Wx::MessageDialogButton& discardButton()
{
    static const Wx::MessageDialogButton BUTTON(L"Don't save", 'D');
    return BUTTON;
}

} // namespace

LossAnswer askAboutLoss(const wxWindow& window)
{
    const Array<const Wx::MessageDialogControl*> controls = {&saveButton(), &discardButton(),
                                                             &Wx::MessageDialogButton::CANCEL};
    const int answer =
        Wx::Detail::showMessageDialogImpl(Wx::getWindowNativeHandle(&window), L"Unsaved picture",
                                          L"The picture has not been saved, and will be lost. Save it first?",
                                          Wx::MessageDialogIcon::QUESTION, controls);
    if (answer == saveButton().m_controlId)
        return LossAnswer::SAVE;
    return answer == discardButton().m_controlId ? LossAnswer::DISCARD : LossAnswer::CANCEL;
}

} // namespace Nolvex::Viewer
