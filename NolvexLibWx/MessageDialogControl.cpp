// SPDX-License-Identifier: MIT
#include "NolvexLibWx/MessageDialogControl.h"

#include "NolvexLibWx/MessageDialogButton.h"

#include <wx/defs.h>

#include <utility>

namespace Nolvex {

namespace {

// Constants, like the counter, are initialised before any constructor of a control runs.
constexpr std::int32_t FIRST_CONTROL_ID = 15'999;

std::int32_t g_nextControlId = FIRST_CONTROL_ID;

} // namespace

Wx::MessageDialogControl::MessageDialogControl(Stack<int> keyCodes)
    : m_controlId(g_nextControlId++), m_keyCodes(std::move(keyCodes))
{}

Wx::MessageDialogControl::~MessageDialogControl() = default;

Stack<int> Wx::MessageDialogControl::keyCodesToBind() const
{
    return m_keyCodes;
}

// The order of these definitions fixes the identifiers from 15999 to 16005, so the buttons are defined here,
// too.
const Wx::MessageDialogControl Wx::MessageDialogControl::OUTSIDE_CLOSE({});
const Wx::MessageDialogControl Wx::MessageDialogControl::FRAME_CLOSE({WXK_ESCAPE});
const Wx::MessageDialogControl Wx::MessageDialogControl::FRAME_ICON({});
const Wx::MessageDialogButton Wx::MessageDialogButton::OK(L"OK", {WXK_RETURN, WXK_NUMPAD_ENTER});
const Wx::MessageDialogButton Wx::MessageDialogButton::CANCEL(L"Cancel", {});
const Wx::MessageDialogButton Wx::MessageDialogButton::YES(L"Yes", 'Y');
const Wx::MessageDialogButton Wx::MessageDialogButton::NO(L"No", 'N');

} // namespace Nolvex
