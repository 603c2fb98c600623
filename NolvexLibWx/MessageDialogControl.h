// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Polymorphic.h"
#include "NolvexLib/Stack.h"
#include "NolvexLibWx/Export.h"

#include <cstdint>

namespace Nolvex::Wx {

/// Something that can end a message dialog: a button (MessageDialogButton), or the frame and the keys.
///
/// A dialog is given a list of pointers to controls and returns the identifier of the control that ended the
/// dialog. Controls are compared by their addresses. They are constructed on one thread, usually when the
/// program starts, and must outlive every dialog that lists them.
class NOLVEXLIBWX_EXPORT MessageDialogControl : public Polymorphic
{
public:
    /// Gives the control the next free identifier. `keyCodes` are those of wxKeyEvent::GetKeyCode().
    explicit MessageDialogControl(Stack<int> keyCodes);
    ~MessageDialogControl() override;
    MessageDialogControl(const MessageDialogControl&) = delete;
    MessageDialogControl& operator=(const MessageDialogControl&) = delete;

    /// Returns the key codes that end the dialog by this control.
    virtual Stack<int> keyCodesToBind() const;

    /// For the dialogs of the program's own windows, which are closed by a click outside. A message dialog
    /// accepts this control and does nothing with it. Identifier 15999.
    static const MessageDialogControl OUTSIDE_CLOSE;

    /// Gives the frame a close box, and lets Escape close the dialog. Identifier 16000, which is also the
    /// result of every other way to close the frame, even if this control is not listed.
    static const MessageDialogControl FRAME_CLOSE;

    /// Gives the frame a system menu and the icon of MessageDialog::overrideFrameIcon. Identifier 16001.
    static const MessageDialogControl FRAME_ICON;

    // NOLINTBEGIN(readability-identifier-naming): programs know these members by these names
    const std::int32_t m_controlId;
    Stack<int> m_keyCodes;
    // NOLINTEND(readability-identifier-naming)
};

} // namespace Nolvex::Wx
