// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Function.h"
#include "NolvexLib/Noncopyable.h"

#include <wx/modalhook.h>

namespace Nolvex::Wx {

/// Calls a function each time a modal dialog is about to open, a native one included. Windows that float
/// above the others use the watch to get out of the dialog's way.
class ModalDialogWatch : private wxModalDialogHook, private Noncopyable
{
public:
    explicit ModalDialogWatch(Function<void()> onOpening);
    ~ModalDialogWatch() override;

private:
    int Enter(wxDialog* dialog) override;

    Function<void()> m_onOpening;
};

} // namespace Nolvex::Wx
