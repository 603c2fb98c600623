// SPDX-License-Identifier: MIT
#include "apps/viewer/FileContent.h"

#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Io/FileInputStream.h"
#include "NolvexLib/Io/FileSize.h"
#include "NolvexLib/Optional.h"
#include "apps/viewer/platform/AvailableMemory.h"
#include "apps/viewer/reading/PictureReaders.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <system_error>

namespace Nolvex::Viewer {

namespace {

// Reading a piece takes a few milliseconds, and less than a second over a slow network.
constexpr std::size_t PIECE_BYTES = std::size_t(4) << 20;

// The file may have changed since its size was asked for.
const wchar_t* const SHORTER = L"it became shorter while it was read";

Expected<Array<std::byte>, String> readPieces(Io::FileInputStream& stream, std::size_t size,
                                              const Progress& progress)
{
    const auto isStopped = [&](std::size_t done) {
        return progress &&
               !progress(static_cast<float>(double(done) / double(std::max<std::size_t>(1, size))));
    };
    const Unexpected<String> stopped{String(L"it was not read to the end")};
    if (isStopped(0))
        return stopped;
    Array<std::byte> content(size);
    for (std::size_t done = 0; done < size;) {
        if (done > 0 && isStopped(done))
            return stopped;
        const std::size_t count = std::min(PIECE_BYTES, size - done);
        if (!stream.readExactly(content.data() + done, static_cast<std::int64_t>(count)))
            return Unexpected{String(SHORTER)};
        done += count;
    }
    return content;
}

// Only files that are larger than some of the readers take are looked at before they are read.
Optional<String> refusalBySize(const Io::Path& path, std::uint64_t size)
{
    constexpr std::uint64_t MAX_FOR_ALL_READERS = std::numeric_limits<std::int32_t>::max();
    if (size <= PIECE_BYTES)
        return {};
    if (size > Platform::availableMemory())
        return String(L"there is not enough memory for it");
    if (size <= MAX_FOR_ALL_READERS)
        return {};
    Array<std::byte> beginning(MAX_BEGINNING_BYTES);
    Io::FileInputStream stream(path);
    if (!stream.readExactly(beginning.data(), static_cast<std::int64_t>(beginning.size())))
        return String(SHORTER);
    return size > maxFileBytesOf(beginning) ? Optional<String>(L"it is larger than 2 GiB")
                                            : Optional<String>();
}

} // namespace

Expected<Array<std::byte>, String> readFileContent(const Io::Path& path, const Progress& progress)
{
    // The kind of file is checked before the file is opened, since opening a pipe would wait for a program
    // that writes into it.
    std::error_code ignored;
    const std::filesystem::file_status status = std::filesystem::status(path.native(), ignored);
    if (exists(status) && !is_regular_file(status))
        return Unexpected{String(L"it is not a regular file")};
    Io::FileInputStream stream(path);
    const std::uint64_t size = Io::fileSize(path).value_or(0);
    if (const Optional<String> refusal = refusalBySize(path, size))
        return Unexpected{*refusal};
    return readPieces(stream, static_cast<std::size_t>(size), progress);
}

} // namespace Nolvex::Viewer
