// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/detail/ModalDialogWatch.h"

#include <utility>

namespace Nolvex {

Wx::ModalDialogWatch::ModalDialogWatch(Function<void()> onOpening) : m_onOpening(std::move(onOpening))
{
    Register();
}

Wx::ModalDialogWatch::~ModalDialogWatch() = default;

int Wx::ModalDialogWatch::Enter(wxDialog* /*dialog*/)
{
    m_onOpening();
    return wxID_NONE; // The dialog opens.
}

} // namespace Nolvex
