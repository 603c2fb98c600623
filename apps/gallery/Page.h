// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Function.h"
#include "NolvexLib/String.h"

class wxWindow;

namespace Nolvex::Gallery {

/// Where a page writes what its controls report.
using Log = Function<void(const String&)>;

/// A page of the gallery: a family of controls in all their states. Defining one registers it:
///
///     const Page BORDERS(L"Borders", [](wxWindow* parent, const Log& log) { ... });
struct Page
{
    /// `build` fills `parent`, an empty panel that it gives a sizer.
    Page(String pageTitle, Function<void(wxWindow* parent, const Log& log)> pageBuild);

    String title;
    Function<void(wxWindow* parent, const Log& log)> build;
};

/// All pages, in the order of their titles.
Array<Page> allPages();

} // namespace Nolvex::Gallery
