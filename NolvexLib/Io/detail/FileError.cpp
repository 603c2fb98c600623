// SPDX-License-Identifier: MIT
#include "NolvexLib/Io/detail/FileError.h"

#include "NolvexLib/Exception.h"

#include <cerrno>
#include <string>
#include <string_view>
#include <system_error>

namespace Nolvex {

namespace {

// The system ends the name at the zero and would open another file.
bool hasZero(const Io::Path& path)
{
    const auto& name = path.native().native();
    return name.find(std::filesystem::path::value_type()) != name.npos;
}

} // namespace

void Detail::throwFileError(const Io::Path& path, std::string_view failure, int error)
{
    // The texts of the C library have the encoding of the locale, which need not be UTF-8.
    const String reason = String::fromUtf8(std::generic_category().message(error));
    // A zero in the name would end the message.
    String name = path.nativeStr();
    name.replaceAll(StringView(std::wstring_view(L"\0", 1)), L"\xFFFD");
    std::string message = "The file \"" + name.toUtf8() + "\" ";
    message.append(failure).append(": ").append(reason.toUtf8()).append(".");
    throw Exception(message);
}

std::FILE* Detail::openFileOrThrow(const Io::Path& path, FileMode mode)
{
    errno = EINVAL;
    std::FILE* const file = hasZero(path) ? nullptr : openFile(path.native(), mode);
    if (file == nullptr) {
        const int error = errno;
        throwFileError(path, mode == FileMode::READ ? "cannot be opened" : "cannot be opened for writing",
                       error);
    }
    return file;
}

} // namespace Nolvex
