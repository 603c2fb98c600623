// SPDX-License-Identifier: MIT
#include "NolvexLibWx/detail/NativeDialogMapping.h"

#include "NolvexLib/StopException.h"
#include "NolvexLibWx/MessageDialogButton.h"

#include <wx/defs.h>
#include <wx/toplevel.h>

namespace Nolvex {

namespace {

long buttonStyle(MessageDialogControls controls)
{
    using Wx::MessageDialogButton;
    const bool asksYesNo =
        isListed(controls, MessageDialogButton::YES) && isListed(controls, MessageDialogButton::NO);
    return (asksYesNo ? wxYES_NO : 0) | (isListed(controls, MessageDialogButton::OK) ? wxOK : 0) |
           (isListed(controls, MessageDialogButton::CANCEL) ? wxCANCEL : 0);
}

long iconStyle(Wx::MessageDialogIcon icon)
{
    switch (icon) {
    case Wx::MessageDialogIcon::NONE:
        return wxICON_NONE;
    case Wx::MessageDialogIcon::ERROR:
        return wxICON_ERROR;
    case Wx::MessageDialogIcon::WARNING:
        return wxICON_WARNING;
    case Wx::MessageDialogIcon::INFO:
        return wxICON_INFORMATION;
    case Wx::MessageDialogIcon::QUESTION:
        return wxICON_QUESTION;
    case Wx::MessageDialogIcon::SUCCESS:
        break;
    }
    // Users report the numbers of both errors in this file as a part of the message, so the numbers stay the
    // same when lines move.
    Detail::throwStopException("MessageDialog", 354);
}

} // namespace

long NativeDialogMapping::style(Wx::MessageDialogIcon icon, MessageDialogControls controls)
{
    return buttonStyle(controls) | iconStyle(icon) | wxSTAY_ON_TOP | wxCENTRE;
}

int NativeDialogMapping::controlId(int result)
{
    switch (result) {
    case wxID_OK:
        return Wx::MessageDialogButton::OK.m_controlId;
    case wxID_CANCEL:
        return Wx::MessageDialogButton::CANCEL.m_controlId;
    case wxID_YES:
        return Wx::MessageDialogButton::YES.m_controlId;
    case wxID_NO:
        return Wx::MessageDialogButton::NO.m_controlId;
    default:
        Detail::throwStopException("MessageDialog", 389);
    }
}

} // namespace Nolvex
