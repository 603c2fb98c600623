// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/String.h"

#include <wx/msgout.h>
#include <wx/string.h>

namespace Nolvex::Program {

/// Takes the messages that wxWidgets writes to the current message output, such as the errors of
/// wxCmdLineParser, while the object exists.
class CapturedMessages : public wxMessageOutput
{
public:
    CapturedMessages() : m_previous(Set(this)) {}

    ~CapturedMessages() override { Set(m_previous); }

    CapturedMessages(const CapturedMessages&) = delete;
    CapturedMessages& operator=(const CapturedMessages&) = delete;

    void Output(const wxString& text) override { m_text += text; }

    /// Returns the messages without the space at their end.
    String text() const;

private:
    wxMessageOutput* m_previous;
    wxString m_text;
};

} // namespace Nolvex::Program
