// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Stack.h"
#include "NolvexLib/String.h"
#include "NolvexLib/WindowHandle.h"
#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/MessageDialogButton.h"
#include "NolvexLibWx/MessageDialogIcon.h"

#include <wx/dialog.h>

#include <memory>

namespace Nolvex {
class ModalEnd;
} // namespace Nolvex

namespace Nolvex::Wx {

class AutoSizedButton;
class StaticBitmap;
class StaticText;

/// A message with an icon and a row of buttons, in the default skin. The functions below are simpler to use.
///
/// The dialog ends when the user clicks a button, presses one of the keys of a listed control or closes the
/// frame, and when the owner is destroyed. A modal dialog then returns the identifier of the control, and
/// any other dialog takes the identifier as its return code and destroys itself. Closing the frame and
/// destroying the owner count as FRAME_CLOSE, whether or not that control is listed.
class NOLVEXLIBWX_EXPORT MessageDialog : public wxDialog
{
public:
    /// The owner is any native top-level window, or null. The dialog stays in front of the owner, and is
    /// placed above the middle of the owner. An icon outside the enumeration is no icon. A message that would
    /// make the dialog higher than the monitor is cut off and ends with an ellipsis.
    MessageDialog(WindowHandle owner, const String& title, const String& message, MessageDialogIcon icon,
                  ArrayView<const MessageDialogControl* const> controls);
    ~MessageDialog() override;

    void EndModal(int controlId) override;

    /// Sets the icon of the frame of all further dialogs that list FRAME_ICON. There is none at first.
    static void overrideFrameIcon(const wxBitmap& bitmap);

private:
    void create(WindowHandle owner, const String& title, String message, MessageDialogIcon icon,
                Stack<const MessageDialogControl*> controls);
    void createText(const String& message);
    void createIcon(MessageDialogIcon icon);
    void createButtons(const Stack<const MessageDialogControl*>& controls);
    void layOut();
    void bindKeys(const Stack<const MessageDialogControl*>& controls);
    void fitAndPlace();
    void end(int controlId);

    StaticText* m_text = nullptr;
    StaticBitmap* m_icon = nullptr; // null if there is no icon
    Stack<AutoSizedButton*> m_buttons;
    std::unique_ptr<ModalEnd> m_ending;
};

// The functions below return when the user has answered. They may be called on any thread. On a thread other
// than the main thread they show the native message dialog of the system, which knows only the predefined
// controls and no icon SUCCESS (StopException). On GTK the main thread shows that dialog; if the main thread
// leaves its event loop before, the functions return as if the frame had been closed. So they do at once
// while the library is not started.

/// Shows a message with the button "OK". Returns true for the button, and false if the frame was closed.
NOLVEXLIBWX_EXPORT bool showOkDialog(WindowHandle owner, const String& title, const String& message,
                                     MessageDialogIcon icon);

/// Asks with the buttons "OK" and "Cancel". Returns true for "OK".
NOLVEXLIBWX_EXPORT bool showOkCancelDialog(WindowHandle owner, const String& title, const String& message,
                                           MessageDialogIcon icon);

/// Asks with the buttons "Yes" and "No". Returns true for "Yes". Escape does nothing.
NOLVEXLIBWX_EXPORT bool showYesNoDialog(WindowHandle owner, const String& title, const String& message,
                                        MessageDialogIcon icon);

namespace Detail {

/// Shows a dialog with the listed controls and FRAME_ICON, and returns the identifier of the control that
/// ended the dialog.
NOLVEXLIBWX_EXPORT int showMessageDialogImpl(WindowHandle owner, const String& title, const String& message,
                                             MessageDialogIcon icon,
                                             ArrayView<const MessageDialogControl* const> controls);

} // namespace Detail

} // namespace Nolvex::Wx
