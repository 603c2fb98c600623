// SPDX-License-Identifier: MIT
#include "examples/hosts/LoadedLibrary.h"

#include <windows.h>

LoadedLibrary::LoadedLibrary(const char* file) : m_handle(LoadLibraryA(file)) {}

LoadedLibrary::~LoadedLibrary()
{
    if (m_handle != nullptr)
        FreeLibrary(static_cast<HMODULE>(m_handle));
}

LoadedLibrary::Run LoadedLibrary::function(const char* name) const
{
    if (m_handle == nullptr)
        return nullptr;
    return reinterpret_cast<Run>(
        reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(m_handle), name)));
}
