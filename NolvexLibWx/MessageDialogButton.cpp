// SPDX-License-Identifier: MIT
#include "NolvexLibWx/MessageDialogButton.h"

#include <utility>

namespace Nolvex {

Wx::MessageDialogButton::MessageDialogButton(String label, Stack<int> keyCodes)
    : MessageDialogControl(std::move(keyCodes)), m_label(std::move(label))
{}

Wx::MessageDialogButton::MessageDialogButton(String label, int keyCode)
    : MessageDialogButton(std::move(label), Stack<int>{keyCode})
{}

Wx::MessageDialogButton::MessageDialogButton(String label, std::initializer_list<int> keyCodes)
    : MessageDialogButton(std::move(label), Stack<int>(keyCodes))
{}

Wx::MessageDialogButton::~MessageDialogButton() = default;

Stack<int> Wx::MessageDialogButton::keyCodesToBind() const
{
    return m_enabled ? m_keyCodes : Stack<int>();
}

} // namespace Nolvex
