// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/String.h"
#include "NolvexLibWx/widgets/OskaBorder.h"

namespace Nolvex::Wx {

class TextCtrl;
class Tooltip;

} // namespace Nolvex::Wx

namespace Nolvex::Viewer {

/// The log of commands and failures, which scrolls to its end. The border of the library frames the text,
/// since the borders of the systems do not fit a dark skin.
class LogPanel : public OskaBorder
{
public:
    explicit LogPanel(wxWindow* parent);

    /// Adds a line.
    void add(const String& message);

    /// True while text of the log is what the keyboard is directed at and selected, so that Copy means this
    /// text.
    bool hasTextToCopy() const;

    void copyText();

    void setTooltips(bool wanted);

private:
    Wx::TextCtrl* m_text;
    Wx::Tooltip* m_tooltip; // owned by the text
};

} // namespace Nolvex::Viewer
