// SPDX-License-Identifier: MIT
#include "examples/hosts/LoadedLibrary.h"

#include <dlfcn.h>

LoadedLibrary::LoadedLibrary(const char* file) : m_handle(dlopen(file, RTLD_NOW)) {}

LoadedLibrary::~LoadedLibrary()
{
    if (m_handle != nullptr)
        dlclose(m_handle);
}

LoadedLibrary::Run LoadedLibrary::function(const char* name) const
{
    return m_handle == nullptr ? nullptr : reinterpret_cast<Run>(dlsym(m_handle, name));
}
