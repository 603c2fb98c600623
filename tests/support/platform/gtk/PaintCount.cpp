// SPDX-License-Identifier: MIT
#include "support/PaintCount.h"

#include <wx/textctrl.h>

#include <gtk/gtk.h>

namespace Nolvex {

namespace {

using Count = std::shared_ptr<int>;

gboolean onDraw(GtkWidget* /*widget*/, cairo_t* /*context*/, gpointer data)
{
    ++**static_cast<Count*>(data);
    return FALSE;
}

void releaseCount(gpointer data, GClosure* /*closure*/)
{
    delete static_cast<Count*>(data);
}

} // namespace

std::shared_ptr<const int> Tests::countPaintings(wxTextCtrl* text)
{
    const auto count = std::make_shared<int>(0);
    g_signal_connect_data(text->GetHandle(), "draw", G_CALLBACK(&onDraw), new Count(count), &releaseCount,
                          GConnectFlags(0));
    return count;
}

} // namespace Nolvex
