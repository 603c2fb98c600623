// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/Noncopyable.h"

#include <cstddef>
#include <functional>

namespace Nolvex::Tests {

/// While the object lives, new sockets get descriptors of 1,024 and more.
class ScarceDescriptors : private Noncopyable
{
public:
    ScarceDescriptors();
    ~ScarceDescriptors();

    /// Returns false if the system does not number sockets in this way, or does not allow that many to be
    /// open.
    bool isEffective() const { return m_effective; }

private:
    bool m_effective = false;
    Array<int> m_descriptors;
};

/// While the object lives, the process gets no more than some 30 MB of memory in addition to its present
/// memory.
class ScarceMemory : private Noncopyable
{
public:
    ScarceMemory();
    ~ScarceMemory();

    /// Returns false if memory cannot be limited.
    bool isEffective() const { return m_effective; }

private:
    bool m_effective = false;
    unsigned long long m_previous = 0;
};

/// Returns how many of the process's sockets a child process would inherit.
std::size_t inheritableSockets();

/// Calls the function while signals interrupt this thread every few milliseconds. Returns how many signals
/// this thread handled meanwhile, or -1 on systems without signals.
int whileInterrupted(const std::function<void()>& function);

/// Returns `rounds`, or a fraction of it on a system whose calls take long.
int affordableRounds(int rounds);

/// Returns a file that can be opened but takes no byte. The path is empty if the system has no such file.
Io::Path fileOnAFullDisk();

/// Returns a file, in the folder or elsewhere, that no user may write. The path is empty if the system has no
/// such file.
Io::Path unwritableFile(const Io::Path& folder);

/// Returns a file whose content is shorter than its size. The path is empty if the system has no such file.
Io::Path fileShorterThanItsSize();

/// Returns a file with a content although its size is 0. The path is empty if the system has no such file.
Io::Path fileLongerThanItsSize();

} // namespace Nolvex::Tests
