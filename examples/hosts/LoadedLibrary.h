// SPDX-License-Identifier: MIT
#pragma once

/// A shared library that is loaded while the object exists.
class LoadedLibrary
{
public:
    using Run = int (*)();

    explicit LoadedLibrary(const char* file);
    ~LoadedLibrary();

    LoadedLibrary(const LoadedLibrary&) = delete;
    LoadedLibrary& operator=(const LoadedLibrary&) = delete;

    /// Null if the library could not be loaded or has no such function.
    Run function(const char* name) const;

private:
    void* m_handle;
};
