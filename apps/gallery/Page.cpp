// SPDX-License-Identifier: MIT
#include "apps/gallery/Page.h"

#include <algorithm>
#include <utility>

namespace Nolvex::Gallery {

namespace {

Array<Page>& registry()
{
    static Array<Page> pages;
    return pages;
}

} // namespace

Page::Page(String pageTitle, Function<void(wxWindow* parent, const Log& log)> pageBuild,
           Array<Window> pageWindows, Array<Scene> pageScenes, Family pageFamily)
    : title(std::move(pageTitle)),
      build(std::move(pageBuild)),
      windows(std::move(pageWindows)),
      scenes(std::move(pageScenes)),
      family(pageFamily)
{
    registry().push_back(*this);
}

Array<Page> allPages()
{
    Array<Page> pages = registry();
    std::ranges::sort(pages, {}, &Page::title);
    return pages;
}

} // namespace Nolvex::Gallery
