// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/gtk/ScreenshotFile.h"

#include "NolvexLib/Optional.h"
#include "NolvexLibWx/ScreenCapture.h"

#include <glib.h>
#include <png.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <memory>
#include <new>
#include <utility>

namespace Nolvex {

namespace {

using namespace std::chrono_literals;
using Platform::DesktopAnswer;
using Platform::DesktopPicture;
using std::chrono::system_clock;
using Wx::ScreenCaptureFailure;

// A picture of MAX_SCREEN_REGION_PIXELS that cannot be compressed is not larger.
constexpr std::int64_t MAX_FILE_SIZE = std::int64_t(1) << 30;

// File systems round the time of a file, some of them to two seconds.
constexpr auto FILE_TIME_STEP = 2s;

Unexpected<ScreenCaptureFailure> fail()
{
    return {ScreenCaptureFailure::FAILED};
}

class File : private Noncopyable
{
public:
    // A pipe that nothing writes to must not block the call.
    explicit File(const char* path) : m_descriptor(open(path, O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK))
    {
        m_isRegular = m_descriptor != -1 && fstat(m_descriptor, &m_status) == 0 && S_ISREG(m_status.st_mode);
    }

    ~File()
    {
        if (m_descriptor != -1)
            close(m_descriptor);
    }

    bool isRegular() const { return m_isRegular; }

    std::int64_t size() const { return m_status.st_size; }

    system_clock::time_point changed() const
    {
        const auto since1970 = std::chrono::seconds(m_status.st_mtim.tv_sec) +
                               std::chrono::nanoseconds(m_status.st_mtim.tv_nsec);
        return system_clock::time_point(std::chrono::duration_cast<system_clock::duration>(since1970));
    }

    /// Returns nullopt if the file cannot be read or ends early.
    Optional<Array<png_byte>> read() const
    {
        Array<png_byte> bytes(static_cast<std::size_t>(size()));
        std::size_t done = 0;
        while (done < bytes.size()) {
            const ssize_t count = ::read(m_descriptor, bytes.data() + done, bytes.size() - done);
            if (count == 0 || (count < 0 && errno != EINTR))
                return {};
            done += count > 0 ? static_cast<std::size_t>(count) : 0;
        }
        return bytes;
    }

private:
    int m_descriptor;

    struct stat m_status
    {};

    bool m_isRegular = false;
};

/// Returns null if the address does not name a file of this computer.
std::unique_ptr<char, void (*)(gpointer)> pathOf(const std::string& uri)
{
    char* host = nullptr;
    char* const path = g_filename_from_uri(uri.c_str(), &host, nullptr);
    const std::string onHost = host == nullptr ? "" : host;
    g_free(host);
    std::unique_ptr<char, void (*)(gpointer)> owned(path, g_free);
    if (!onHost.empty() && onHost != "localhost")
        owned.reset();
    return owned;
}

DesktopAnswer decode(const Array<png_byte>& file)
{
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_memory(&image, file.data(), file.size()) == 0)
        return fail();
    const std::unique_ptr<png_image, void (*)(png_image*)> held(&image, png_image_free);
    if (std::uint64_t(image.width) * image.height > Wx::MAX_SCREEN_REGION_PIXELS)
        return Unexpected{ScreenCaptureFailure::TOO_LARGE};
    image.format = PNG_FORMAT_BGRA;
    image.flags |= PNG_IMAGE_FLAG_16BIT_sRGB;
    DesktopPicture picture;
    picture.size = {static_cast<std::int32_t>(image.width), static_cast<std::int32_t>(image.height)};
    picture.bgrx.resize(std::size_t(4) * image.width * image.height);
    if (png_image_finish_read(&image, nullptr, picture.bgrx.data(), 0, nullptr) == 0)
        return fail();
    return picture;
}

DesktopAnswer read(const File& file)
{
    if (file.size() > MAX_FILE_SIZE)
        return Unexpected{ScreenCaptureFailure::TOO_LARGE};
    try {
        const Optional<Array<png_byte>> bytes = file.read();
        return bytes ? decode(*bytes) : fail();
    } catch (const std::bad_alloc&) {
        return Unexpected{ScreenCaptureFailure::TOO_LARGE};
    }
}

} // namespace

DesktopAnswer Platform::takeScreenshotFile(const std::string& uri, system_clock::time_point asked)
{
    const auto path = pathOf(uri);
    if (!path)
        return fail();
    const File file(path.get());
    if (!file.isRegular())
        return fail();
    DesktopAnswer answer = read(file);
    const bool isPicture = answer || answer.error() != ScreenCaptureFailure::FAILED;
    // The picture has been read even if removing the file fails, as in a folder of another user.
    if (isPicture && file.changed() >= asked - FILE_TIME_STEP)
        unlink(path.get());
    return answer;
}

} // namespace Nolvex
