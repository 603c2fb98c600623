// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/Pixel.h"

#include <wx/event.h>

namespace Nolvex::Viewer {

class ImageView;

/// The keys of a view: arrows, Page Up and Down, Home and End scroll, + and - zoom. With Shift, the arrows
/// change the size of the selection, and with Ctrl and Shift its place; Escape clears it. With Ctrl, the
/// arrows move the cursor of pixels, Home and End move it to the first and the last pixel; without a
/// selection, the arrows with Ctrl and Shift move it by ten pixels. Alt+Left and Alt+Right move the divider.
/// Tab leaves the view. A member of the view.
class ViewKeys : private Noncopyable
{
public:
    explicit ViewKeys(ImageView& view);

private:
    void onKey(wxKeyEvent& event);
    void onKeyHook(wxKeyEvent& event);
    void onCharacter(wxKeyEvent& event);
    bool scrollBy(int key);
    bool moveCursor(const wxKeyEvent& event);
    bool changeSelection(const wxKeyEvent& event);
    bool moveDivider(int key);
    wxRect firstSelection() const;

    ImageView& m_view;
};

} // namespace Nolvex::Viewer
