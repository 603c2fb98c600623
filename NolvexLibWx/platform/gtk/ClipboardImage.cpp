// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/ClipboardImage.h"

#include <gtk/gtk.h>

#include <array>
#include <cstdint>
#include <memory>
#include <utility>

namespace Nolvex {

namespace {

enum class Form : guint
{
    BMP,
    PNG,
};

// The formats that the clipboard offers. GTK declares these texts as writable, but only reads them.
std::array<GtkTargetEntry, 2> targets()
{
    static char bmp[] = "image/bmp";
    static char png[] = "image/png";
    return {GtkTargetEntry{bmp, 0, static_cast<guint>(Form::BMP)},
            GtkTargetEntry{png, 0, static_cast<guint>(Form::PNG)}};
}

struct Unreference
{
    void operator()(void* object) const { g_object_unref(object); }
};

using SharedBitmap = std::shared_ptr<const DeviceIndependentBitmap>;

using PixbufPointer = std::unique_ptr<GdkPixbuf, Unreference>;

// Makes the picture of the BMP file, whose first row is the bottom row. Returns null if memory runs out.
PixbufPointer toPixbuf(const DeviceIndependentBitmap& bitmap)
{
    const auto [width, height] = bitmap.size();
    PixbufPointer pixbuf(gdk_pixbuf_new(GDK_COLORSPACE_RGB, FALSE, 8, width, height));
    if (pixbuf == nullptr)
        return pixbuf;
    const auto stride = static_cast<std::size_t>(gdk_pixbuf_get_rowstride(pixbuf.get()));
    for (std::int32_t y = 0; y < height; ++y) {
        const std::uint8_t* from = bitmap.row(height - 1 - y);
        guchar* to = gdk_pixbuf_get_pixels(pixbuf.get()) + stride * static_cast<std::size_t>(y);
        for (std::int32_t x = 0; x < width; ++x, from += 3, to += 3) {
            to[0] = from[2];
            to[1] = from[1];
            to[2] = from[0];
        }
    }
    return pixbuf;
}

void send(GtkSelectionData* selection, const guchar* bytes, std::size_t size)
{
    // GTK adds a zero byte and counts the bytes in int.
    if (size < static_cast<std::size_t>(G_MAXINT))
        gtk_selection_data_set(selection, gtk_selection_data_get_target(selection), 8, bytes,
                               static_cast<gint>(size));
}

void sendPng(const DeviceIndependentBitmap& bitmap, GtkSelectionData* selection)
{
    const PixbufPointer pixbuf = toPixbuf(bitmap);
    if (pixbuf == nullptr)
        return;
    gchar* bytes = nullptr;
    gsize size = 0;
    // Low compression is fast, and the program that pastes is waiting.
    if (gdk_pixbuf_save_to_buffer(pixbuf.get(), &bytes, &size, "png", nullptr, "compression", "1", nullptr) ==
        FALSE)
        return;
    send(selection, reinterpret_cast<const guchar*>(bytes), size);
    g_free(bytes);
}

void sendPicture(GtkClipboard* /*clipboard*/, GtkSelectionData* selection, guint form, gpointer owner)
{
    const DeviceIndependentBitmap& bitmap = **static_cast<const SharedBitmap*>(owner);
    if (form == static_cast<guint>(Form::PNG)) {
        sendPng(bitmap, selection);
        return;
    }
    const ArrayView<const std::uint8_t> file = bitmap.fileBytes();
    send(selection, file.data(), file.size());
}

void freePicture(GtkClipboard* /*clipboard*/, gpointer owner)
{
    delete static_cast<SharedBitmap*>(owner);
}

} // namespace

bool Platform::setClipboardImage(DeviceIndependentBitmap bitmap)
{
    if (gdk_display_get_default() == nullptr)
        return false;
    GtkClipboard* clipboard = gtk_clipboard_get(GDK_SELECTION_CLIPBOARD);
    const auto offered = targets();
    const auto count = static_cast<guint>(offered.size());
    // GTK calls sendPicture when a program pastes, and freePicture when the clipboard gets another owner.
    const SharedBitmap picture = std::make_shared<const DeviceIndependentBitmap>(std::move(bitmap));
    auto* const given = new SharedBitmap(picture);
    if (gtk_clipboard_set_with_data(clipboard, offered.data(), count, sendPicture, freePicture, given) ==
        FALSE) {
        // GTK may have lost the clipboard to another program in the meantime, and has then freed the picture.
        if (picture.use_count() > 1)
            delete given;
        return false;
    }
    // A clipboard manager, if one runs, keeps the picture after the program has ended.
    gtk_clipboard_set_can_store(clipboard, offered.data(), static_cast<gint>(count));
    gtk_clipboard_store(clipboard);
    return true;
}

} // namespace Nolvex
