// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/String.h"

#include <cstdint>
#include <filesystem>
#include <mutex>
#include <random>
#include <string>

/// The folder in which received files are stored. A file gets its name when it is whole. The name that the
/// sender gives it is only a wish, and no file is overwritten. Any thread may call any function.
class IncomingFolder
{
public:
    /// `maxSize` is that of one file, in bytes.
    IncomingFolder(std::filesystem::path folder, std::int64_t maxSize);

    /// Why a file of this size cannot be received, as a sentence; empty if it can.
    std::string refusal(std::int64_t size) const;

    /// The path of a new file in the folder, to be written until it is whole.
    std::filesystem::path pathOfPart();

    /// Gives the whole file a name near to the sender's wish and returns its path. Raises
    /// std::filesystem::filesystem_error if that is not possible.
    std::filesystem::path keep(const std::filesystem::path& part, const Nolvex::String& wish);

private:
    std::filesystem::path m_folder;
    std::int64_t m_maxSize;
    std::mutex m_mutex;
    std::random_device m_random;
};
