// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Timer.h"
#include "NolvexLibWx/widgets/ComboBox.h"

#include <string>

namespace Nolvex::Wx {

/// The characters that the user types to select an item. Characters typed in quick succession form the
/// beginning of a text; one character typed again and again finds one item after the other.
class TypedText
{
public:
    /// Adds a character and returns the index of the item that the text finds, or -1. The search begins at
    /// `selected`, or behind it for a new text, and goes round at the end. Capitals make no difference.
    int find(wchar_t character, ArrayView<const ComboBox::Item> items, int selected);

    /// Returns true if the next character continues the text.
    bool isBeingTyped() const;

    void forget() { m_text.clear(); }

private:
    std::wstring m_text; // in small letters
    Timer m_sinceLast;
};

} // namespace Nolvex::Wx
