// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/String.h"
#include "NolvexLibWx/MessageDialogControl.h"

#include <initializer_list>

namespace Nolvex::Wx {

/// A button of a message dialog. Every character of the label is shown: "&" marks no mnemonic.
class NOLVEXLIBWX_EXPORT MessageDialogButton : public MessageDialogControl
{
public:
    MessageDialogButton(String label, Stack<int> keyCodes);
    MessageDialogButton(String label, int keyCode);

    /// Makes `{}` stand for no key, not for the key code 0.
    MessageDialogButton(String label, std::initializer_list<int> keyCodes);

    ~MessageDialogButton() override;

    /// Returns nothing while the button is disabled.
    Stack<int> keyCodesToBind() const override;

    static const MessageDialogButton OK;     ///< Return and Enter of the numeric keypad; identifier 16002
    static const MessageDialogButton CANCEL; ///< implies FRAME_CLOSE, hence Escape; identifier 16003
    static const MessageDialogButton YES;    ///< the key Y; identifier 16004
    static const MessageDialogButton NO;     ///< the key N; identifier 16005

    // NOLINTBEGIN(readability-identifier-naming): programs know these members by these names
    String m_label;

    /// A dialog reads this when it is constructed. A disabled button is visible, but can neither be clicked
    /// nor be reached by its keys.
    bool m_enabled = true;
    // NOLINTEND(readability-identifier-naming)
};

} // namespace Nolvex::Wx
