// SPDX-License-Identifier: MIT
#include "support/InputContexts.h"

#include <gtk/gtk.h>

#include <algorithm>
#include <vector>

namespace Nolvex::Tests {

namespace {

void (*g_originalConstructed)(GObject*) = nullptr;
std::vector<GObject*> g_contexts; // with a reference to each

GObjectClass* contextClass()
{
    return static_cast<GObjectClass*>(g_type_class_ref(GTK_TYPE_IM_MULTICONTEXT));
}

void onConstructed(GObject* context) noexcept
{
    g_originalConstructed(context);
    g_contexts.push_back(static_cast<GObject*>(g_object_ref(context)));
}

bool isInUse(GObject* context)
{
    const guint commit = g_signal_lookup("commit", GTK_TYPE_IM_CONTEXT);
    return context->ref_count > 1 || g_signal_has_handler_pending(context, commit, 0, TRUE) != FALSE;
}

} // namespace

bool InputContexts::areMade()
{
    return true;
}

InputContexts::InputContexts()
{
    g_originalConstructed = contextClass()->constructed;
    contextClass()->constructed = onConstructed;
}

InputContexts::~InputContexts()
{
    contextClass()->constructed = g_originalConstructed;
    for (GObject* context : g_contexts)
        g_object_unref(context);
    g_contexts.clear();
}

int InputContexts::inUse() const
{
    return static_cast<int>(std::ranges::count_if(g_contexts, isInUse));
}

} // namespace Nolvex::Tests
