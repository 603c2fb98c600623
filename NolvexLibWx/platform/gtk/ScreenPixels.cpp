// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/ScreenPixels.h"

#include "NolvexLib/Array.h"
#include "NolvexLib/Optional.h"
#include "NolvexLibWx/platform/gtk/Xwayland.h"

#include <gdk/gdk.h>
#include <gdk/gdkx.h>

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XShm.h>

#include <sys/ipc.h>
#include <sys/shm.h>

#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>

// wxScreenDC does not serve here: cairo keeps a copy of the root window and does not learn that other
// programs draw there.

namespace Nolvex {

namespace {

constexpr int BYTES_PER_PIXEL = 4;

// For fewer bytes, sending the pixels costs less than sharing memory.
constexpr std::int64_t SHARED_FROM_BYTES = std::int64_t(128) * 1024;

// GDK ends the program after an X error that is not trapped. The results of the calls show what failed.
class ScopedErrorTrap
{
public:
    explicit ScopedErrorTrap(GdkDisplay* display) : m_display(display)
    {
        gdk_x11_display_error_trap_push(display);
    }

    ~ScopedErrorTrap()
    {
        if (!m_popped)
            gdk_x11_display_error_trap_pop_ignored(m_display);
    }

    ScopedErrorTrap(const ScopedErrorTrap&) = delete;
    ScopedErrorTrap& operator=(const ScopedErrorTrap&) = delete;

    /// Waits for the server and returns whether any request has failed. To be called once.
    bool failed()
    {
        m_popped = true;
        return gdk_x11_display_error_trap_pop(m_display) != 0;
    }

private:
    GdkDisplay* m_display;
    bool m_popped = false;
};

struct Root
{
    GdkDisplay* gdk = nullptr;
    Display* display = nullptr;
    Window window = 0;
    Visual* visual = nullptr;
    unsigned depth = 0;
    /// In the pixels of wxWidgets.
    Bucket area;
    /// The width and height of such a pixel in pixels of the X server.
    int scale = 1;
};

// Asks GDK, which knows the answers: a question to the X server may cost a turn of the scheduler. Returns
// nullopt under XWayland, whose root window shows none of the other windows and reads as black.
Optional<Root> findRoot()
{
    GdkDisplay* gdk = gdk_display_get_default();
    if (gdk == nullptr || !GDK_IS_X11_DISPLAY(gdk) || Platform::isXwayland(gdk))
        return {};
    GdkWindow* window = gdk_get_default_root_window();
    const Screen* screen = gdk_x11_screen_get_xscreen(gdk_window_get_screen(window));
    Root root;
    root.gdk = gdk;
    root.display = gdk_x11_display_get_xdisplay(gdk);
    root.window = screen->root;
    root.visual = screen->root_visual;
    root.depth = static_cast<unsigned>(screen->root_depth);
    root.area.max = {gdk_window_get_width(window), gdk_window_get_height(window)};
    root.scale = gdk_window_get_scale_factor(window);
    return root;
}

struct DestroyImage
{
    void operator()(XImage* image) const { XDestroyImage(image); }
};

using ImagePointer = std::unique_ptr<XImage, DestroyImage>;

// Memory that the X server writes pixels to.
class SharedMemory
{
public:
    SharedMemory(const Root& root, std::size_t size)
        : m_display(GDK_DISPLAY(g_object_ref(root.gdk))), m_size(size)
    {
        if (map())
            m_attached = attach();
    }

    ~SharedMemory()
    {
        if (m_attached && gdk_display_is_closed(m_display) == FALSE)
            XShmDetach(gdk_x11_display_get_xdisplay(m_display), &m_segment);
        if (m_segment.shmaddr != nullptr)
            shmdt(m_segment.shmaddr);
        g_object_unref(m_display);
    }

    SharedMemory(const SharedMemory&) = delete;
    SharedMemory& operator=(const SharedMemory&) = delete;

    bool serves(const Root& root, std::size_t size) const
    {
        return m_attached && m_display == root.gdk && m_size >= size;
    }

    XShmSegmentInfo& segment() { return m_segment; }

private:
    bool map()
    {
        m_segment.shmid = shmget(IPC_PRIVATE, m_size, IPC_CREAT | 0600);
        if (m_segment.shmid == -1)
            return false;
        void* const address = shmat(m_segment.shmid, nullptr, 0);
        if (reinterpret_cast<std::intptr_t>(address) == -1) {
            shmctl(m_segment.shmid, IPC_RMID, nullptr);
            return false;
        }
        m_segment.shmaddr = static_cast<char*>(address);
        m_segment.readOnly = False;
        return true;
    }

    // An X server on another machine refuses.
    bool attach()
    {
        ScopedErrorTrap trap(m_display);
        const bool sent = XShmAttach(gdk_x11_display_get_xdisplay(m_display), &m_segment) != 0;
        const bool attached = !trap.failed() && sent;
        // The system frees the segment once both sides have detached, however they end.
        shmctl(m_segment.shmid, IPC_RMID, nullptr);
        return attached;
    }

    GdkDisplay* m_display;
    std::size_t m_size;
    XShmSegmentInfo m_segment{};
    bool m_attached = false;
};

// A capture that makes new memory takes forty times as long as one that finds some, so the memory is kept for
// callers that capture again and again. A plain pointer owns it: at the end of the process there may be no
// display left to release it with.
SharedMemory* g_sharedMemory = nullptr;
guint g_releaseTimer = 0;
constexpr guint RELEASE_AFTER_SECONDS = 2;

gboolean releaseSharedMemory(gpointer /*unused*/)
{
    delete std::exchange(g_sharedMemory, nullptr);
    g_releaseTimer = 0;
    return G_SOURCE_REMOVE;
}

// Returns null if the X server shares no memory with this program.
SharedMemory* sharedMemory(const Root& root, std::size_t size)
{
    if (g_releaseTimer != 0)
        g_source_remove(g_releaseTimer);
    g_releaseTimer = g_timeout_add_seconds(RELEASE_AFTER_SECONDS, releaseSharedMemory, nullptr);
    if (g_sharedMemory == nullptr || !g_sharedMemory->serves(root, size)) {
        delete std::exchange(g_sharedMemory, nullptr);
        g_sharedMemory = new SharedMemory(root, size);
    }
    return g_sharedMemory->serves(root, size) ? g_sharedMemory : nullptr;
}

// Returns null if the X server has no shared memory. The image is valid until the next call.
ImagePointer fetchSharedImage(const Root& root, Pixel corner, Pixel size)
{
    if (XShmQueryExtension(root.display) == 0)
        return nullptr;
    XShmSegmentInfo unused{};
    ImagePointer image(XShmCreateImage(root.display, root.visual, root.depth, ZPixmap, nullptr, &unused,
                                       static_cast<unsigned>(size.x), static_cast<unsigned>(size.y)));
    if (image == nullptr)
        return nullptr;
    SharedMemory* memory = sharedMemory(root, static_cast<std::size_t>(image->bytes_per_line) *
                                                  static_cast<std::size_t>(image->height));
    if (memory == nullptr)
        return nullptr;
    image->obdata = reinterpret_cast<char*>(&memory->segment());
    image->data = memory->segment().shmaddr;
    ScopedErrorTrap trap(root.gdk);
    const bool sent =
        XShmGetImage(root.display, root.window, image.get(), corner.x, corner.y, AllPlanes) != 0;
    return !trap.failed() && sent ? std::move(image) : nullptr;
}

ImagePointer fetchImage(const Root& root, Pixel corner, Pixel size)
{
    const ScopedErrorTrap trap(root.gdk);
    return ImagePointer(XGetImage(root.display, root.window, corner.x, corner.y,
                                  static_cast<unsigned>(size.x), static_cast<unsigned>(size.y), AllPlanes,
                                  ZPixmap));
}

// One colour channel of a pixel. The mask tells its place in any format of the screen.
class Channel
{
public:
    explicit Channel(unsigned long mask) : m_mask(mask), m_shift(mask == 0 ? 0 : std::countr_zero(mask)) {}

    std::uint8_t byteOf(unsigned long pixel) const
    {
        const unsigned long most = m_mask >> m_shift;
        return static_cast<std::uint8_t>((((pixel & m_mask) >> m_shift) * 255 + most / 2) / most);
    }

private:
    unsigned long m_mask;
    int m_shift;
};

bool isBgrx(const XImage& image, const Visual& visual)
{
    return image.bits_per_pixel == 8 * BYTES_PER_PIXEL && image.byte_order == LSBFirst &&
           visual.red_mask == 0xff0000 && visual.green_mask == 0xff00 && visual.blue_mask == 0xff;
}

// Used for screens of any other format, and for scaled screens, of which the top left pixel of each group
// counts.
void takeSampledRows(const Bucket& area, const Root& root, XImage& image, const Platform::TakeScreenRow& take)
{
    const Visual& visual = *root.visual;
    // Without masks, pixels are indices into a palette. GTK 3 does not run on such screens.
    if (visual.red_mask == 0 || visual.green_mask == 0 || visual.blue_mask == 0)
        return;
    const Channel channels[] = {Channel(visual.blue_mask), Channel(visual.green_mask),
                                Channel(visual.red_mask)};
    Array<std::uint8_t> row(static_cast<std::size_t>(area.width()) * BYTES_PER_PIXEL);
    for (std::int32_t y = 0; y < area.height(); ++y) {
        std::uint8_t* to = row.data();
        for (std::int32_t x = 0; x < area.width(); ++x, to += BYTES_PER_PIXEL) {
            const unsigned long pixel = XGetPixel(&image, x * root.scale, y * root.scale);
            for (int i = 0; i < 3; ++i)
                to[i] = channels[i].byteOf(pixel);
        }
        take({area.min.x, area.min.y + y}, row.data(), area.width());
    }
}

void takeRows(const Bucket& area, const Root& root, XImage& image, const Platform::TakeScreenRow& take)
{
    if (root.scale != 1 || !isBgrx(image, *root.visual)) {
        takeSampledRows(area, root, image, take);
        return;
    }
    auto* row = reinterpret_cast<std::uint8_t*>(image.data);
    for (std::int32_t y = area.min.y; y < area.max.y; ++y, row += image.bytes_per_line)
        take({area.min.x, y}, row, area.width());
}

void readRoot(const Root& root, const Bucket& area, const Platform::TakeScreenRow& take)
{
    const Bucket visible = area.intersected(root.area);
    if (visible.isEmpty())
        return;
    const Pixel corner = visible.min * root.scale;
    const Pixel size = visible.size() * root.scale;
    ImagePointer image;
    if (std::int64_t(size.x) * size.y * BYTES_PER_PIXEL >= SHARED_FROM_BYTES)
        image = fetchSharedImage(root, corner, size);
    if (image == nullptr)
        image = fetchImage(root, corner, size);
    if (image != nullptr)
        takeRows(visible, root, *image, take);
}

} // namespace

bool Platform::isScreenReadable()
{
    return findRoot().has_value();
}

std::int32_t Platform::screenScale()
{
    const Optional<Root> root = findRoot();
    return root ? root->scale : 1;
}

void Platform::readScreen(const Bucket& area, const TakeScreenRow& take)
{
    if (const Optional<Root> root = findRoot())
        readRoot(*root, area, take);
}

void Platform::readScreenPixels(const Bucket& area, const TakeScreenRow& take)
{
    Optional<Root> root = findRoot();
    if (!root)
        return;
    root->area.max = root->area.max * std::exchange(root->scale, 1);
    readRoot(*root, area, take);
}

} // namespace Nolvex
