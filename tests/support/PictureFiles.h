// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Io/FileInputStream.h"
#include "NolvexLib/Io/FileSize.h"
#include "NolvexLib/Io/Path.h"
#include "support/TestData.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <string>

namespace Nolvex::Tests {

// The pictures of tests/data/images, which README.md there describes.

inline Io::Path pictureFile(const std::string& name)
{
    return Io::Path(testData() / "images" / name);
}

inline Array<std::byte> contentOf(const Io::Path& path)
{
    Array<std::byte> bytes(Io::fileSize(path).value_or(0));
    Io::FileInputStream stream(path);
    EXPECT_TRUE(stream.readExactly(bytes.data(), static_cast<std::int64_t>(bytes.size())));
    return bytes;
}

/// Returns the undamaged pictures of all kinds that each format has, in the order of their names.
inline Array<Io::Path> picturesOfAllKinds()
{
    Array<Io::Path> files;
    for (const auto& entry : std::filesystem::directory_iterator(pictureFile("formats").native()))
        files.emplace_back(entry.path());
    for (const char* name : {"pattern.bmp", "pattern.gif", "pattern.ico", "pattern.jpg", "pattern.png",
                             "pattern-alpha.png", "pattern.tga", "pattern.tiff", "grey16.png"})
        files.push_back(pictureFile(name));
    std::sort(files.begin(), files.end(),
              [](const Io::Path& a, const Io::Path& b) { return a.native() < b.native(); });
    return files;
}

} // namespace Nolvex::Tests
