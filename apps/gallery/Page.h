// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Function.h"
#include "NolvexLib/String.h"

class wxWindow;

namespace Nolvex::Gallery {

/// Writes a line into the log of the gallery.
using Log = Function<void(const String&)>;

/// A page of the gallery: a family of controls in all their states. The definition of a page registers it:
///
///     const Page BORDERS(L"Borders", [](wxWindow* parent, const Log& log) { ... });
struct Page
{
    /// `pageBuild` receives an empty panel, which it fills with controls and a sizer.
    Page(String pageTitle, Function<void(wxWindow* parent, const Log& log)> pageBuild);

    String title;
    Function<void(wxWindow* parent, const Log& log)> build;
};

/// Returns all pages in the order of their titles.
Array<Page> allPages();

} // namespace Nolvex::Gallery
