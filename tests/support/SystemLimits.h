// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/Noncopyable.h"

#include <cstddef>
#include <functional>

namespace Nolvex::Tests {

/// While it lives, new sockets get numbers of 1,024 and more.
class ScarceDescriptors : private Noncopyable
{
public:
    ScarceDescriptors();
    ~ScarceDescriptors();

    /// False where sockets are not numbered like that, or not that many may be open.
    bool isEffective() const { return m_isEffective; }

private:
    bool m_isEffective = false;
    Array<int> m_descriptors;
};

/// While it lives, the process gets no more than some 30 MB of memory in addition to what it has.
class ScarceMemory : private Noncopyable
{
public:
    ScarceMemory();
    ~ScarceMemory();

    /// False where memory cannot be limited.
    bool isEffective() const { return m_isEffective; }

private:
    bool m_isEffective = false;
    unsigned long long m_previous = 0;
};

/// How many of the process's sockets a child process would inherit.
std::size_t inheritableSockets();

/// Calls the function while signals, where there are any, interrupt this thread every few milliseconds.
/// Returns how many of them this thread handled meanwhile, -1 where there are no signals.
int whileInterrupted(const std::function<void()>& function);

/// `rounds`, or a fraction of it where each call of the system takes long.
int affordableRounds(int rounds);

/// A file that can be opened, but takes no byte; empty where there is none.
Io::Path fileOnAFullDisk();

/// A file in the folder, or elsewhere, that nobody may write; empty where there is none.
Io::Path unwritableFile(const Io::Path& folder);

/// A file that holds less than its size says; empty where there is none.
Io::Path fileShorterThanItsSize();

/// A file that holds more than its size, 0, says; empty where there is none.
Io::Path fileLongerThanItsSize();

} // namespace Nolvex::Tests
