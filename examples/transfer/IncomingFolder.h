// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/String.h"

#include <cstdint>
#include <filesystem>
#include <mutex>
#include <random>
#include <string>

/// The folder that stores received files. A file gets its final name when it is complete. The name given by
/// the sender is only a wish, and no file is overwritten. Any thread may call any function.
class IncomingFolder
{
public:
    /// `maxSize` is the largest size of a file, in bytes.
    IncomingFolder(std::filesystem::path folder, std::int64_t maxSize);

    /// Returns a sentence that says why a file of this size cannot be received. The text is empty if the file
    /// can be received.
    std::string refusal(std::int64_t size) const;

    /// Returns the path of a new file in the folder, which holds the content until the file is complete.
    std::filesystem::path pathOfPart();

    /// Gives the complete file a name close to the sender's wish and returns its path. Raises
    /// std::filesystem::filesystem_error if that is not possible.
    std::filesystem::path keep(const std::filesystem::path& part, const Nolvex::String& wish);

private:
    std::filesystem::path m_folder;
    std::int64_t m_maxSize;
    std::mutex m_mutex;
    std::random_device m_random;
};
