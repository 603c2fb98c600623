// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Function.h"
#include "NolvexLib/String.h"

class wxTopLevelWindow;
class wxWindow;

namespace Nolvex::Gallery {

/// Writes a line into the log of the gallery.
using Log = Function<void(const String&)>;

/// A window of its own, such as a dialog, that the gallery takes a picture of.
struct Window
{
    String title;
    /// Makes the window, which is hidden at first and destroys itself when it is closed.
    Function<wxTopLevelWindow*(wxWindow* owner)> make;
};

/// A page of the gallery: a family of controls in all their states. The definition of a page registers it:
///
///     const Page BORDERS(L"Borders", [](wxWindow* parent, const Log& log) { ... });
struct Page
{
    /// `pageBuild` receives an empty panel, which it fills with controls and a sizer.
    Page(String pageTitle, Function<void(wxWindow* parent, const Log& log)> pageBuild,
         Array<Window> pageWindows = {});

    String title;
    Function<void(wxWindow* parent, const Log& log)> build;
    Array<Window> windows; ///< that the page's controls open
};

/// Returns all pages in the order of their titles.
Array<Page> allPages();

} // namespace Nolvex::Gallery
