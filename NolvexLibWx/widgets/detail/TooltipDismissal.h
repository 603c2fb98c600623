// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Noncopyable.h"

#include <wx/eventfilter.h>

#include <memory>

namespace Nolvex::Wx {

class ModalDialogWatch;
class Tooltip;

/// Dismisses all tooltips of the process when the user turns to something else: presses a key or a mouse
/// button in any window, or opens a menu, or when a modal dialog is about to open. Watches only while there
/// are tooltips.
class TooltipDismissal : private wxEventFilter, private Noncopyable
{
public:
    static TooltipDismissal& instance();

    ~TooltipDismissal() override;

    void add(Tooltip* tooltip);
    void remove(Tooltip* tooltip);

private:
    TooltipDismissal();

    int FilterEvent(wxEvent& event) override;
    void dismissAll();

    Array<Tooltip*> m_tooltips;
    std::unique_ptr<ModalDialogWatch> m_modalDialogs;
};

} // namespace Nolvex::Wx
