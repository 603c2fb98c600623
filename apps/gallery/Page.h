// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Function.h"
#include "NolvexLib/String.h"
#include "apps/gallery/Scene.h"

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

/// The heading under which a page is listed.
enum class Family : int
{
    CONTROLS,
    TEXTS,
    DIALOGS,
    LOOKS,
};

/// A page of the gallery: a family of controls in all their states. The definition of a page registers it:
///
///     const Page BORDERS(L"Borders", [](wxWindow* parent, const Log& log) { ... });
struct Page
{
    /// `pageBuild` receives an empty panel, which it fills with controls and a sizer.
    Page(String pageTitle, Function<void(wxWindow* parent, const Log& log)> pageBuild,
         Array<Window> pageWindows = {}, Array<Scene> pageScenes = {}, Family pageFamily = Family::CONTROLS);

    String title;
    Function<void(wxWindow* parent, const Log& log)> build;
    Array<Window> windows; ///< that the page's controls open
    Array<Scene> scenes;   ///< of the page's controls under the user's hand
    Family family;
};

/// Returns all pages in the order of their titles.
Array<Page> allPages();

} // namespace Nolvex::Gallery
