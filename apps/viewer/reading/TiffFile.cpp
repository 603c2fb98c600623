// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/TiffFile.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>

namespace Nolvex::Viewer {

namespace {

tmsize_t writeNothing(thandle_t, void*, tmsize_t)
{
    return 0;
}

int closeNothing(thandle_t)
{
    return 0;
}

int mapNothing(thandle_t, void**, toff_t*)
{
    return 0;
}

void unmapNothing(thandle_t, void*, toff_t) {}

// libtiff would print its messages.
int keepSilent(TIFF*, void*, const char*, const char*, va_list)
{
    return 1;
}

} // namespace

TiffFile::TiffFile(ArrayView<const std::byte> bytes) : m_bytes(bytes)
{
    TIFFOpenOptions* const options = TIFFOpenOptionsAlloc();
    if (options == nullptr)
        return;
    TIFFOpenOptionsSetErrorHandlerExtR(options, keepSilent, nullptr);
    TIFFOpenOptionsSetWarningHandlerExtR(options, keepSilent, nullptr);
    m_handle.reset(TIFFClientOpenExt("picture", "r", this, readBytes, writeNothing, seekTo, closeNothing,
                                     sizeOf, mapNothing, unmapNothing, options));
    TIFFOpenOptionsFree(options);
}

TiffFile::~TiffFile() = default;

std::uint32_t TiffFile::number(std::uint32_t tag) const
{
    std::uint32_t value = 0;
    return TIFFGetFieldDefaulted(m_handle.get(), tag, &value) != 0 ? value : 0;
}

std::uint16_t TiffFile::shortNumber(std::uint16_t tag) const
{
    std::uint16_t value = 0;
    return TIFFGetFieldDefaulted(m_handle.get(), tag, &value) != 0 ? value : std::uint16_t(0);
}

tmsize_t TiffFile::readBytes(thandle_t self, void* to, tmsize_t count)
{
    auto& file = *static_cast<TiffFile*>(self);
    const std::uint64_t left =
        file.m_bytes.size() - std::min<std::uint64_t>(file.m_position, file.m_bytes.size());
    const std::uint64_t read =
        std::min<std::uint64_t>(left, static_cast<std::uint64_t>(std::max<tmsize_t>(count, 0)));
    if (read > 0)
        std::memcpy(to, file.m_bytes.data() + file.m_position, static_cast<std::size_t>(read));
    file.m_position += read;
    return static_cast<tmsize_t>(read);
}

toff_t TiffFile::seekTo(thandle_t self, toff_t offset, int origin)
{
    auto& file = *static_cast<TiffFile*>(self);
    const std::uint64_t base = origin == SEEK_SET   ? 0
                               : origin == SEEK_CUR ? file.m_position
                                                    : file.m_bytes.size();
    file.m_position = base + offset;
    return file.m_position;
}

toff_t TiffFile::sizeOf(thandle_t self)
{
    return static_cast<TiffFile*>(self)->m_bytes.size();
}

} // namespace Nolvex::Viewer
