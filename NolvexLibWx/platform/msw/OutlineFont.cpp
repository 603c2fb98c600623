// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/OutlineFont.h"

#include "NolvexLib/Array.h"

#include <wx/fontutil.h>
#include <wx/msw/private.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace Nolvex {

namespace {

/// Returns an empty text for a font without outlines.
wxString outlineFamily(const wxFont& font)
{
    const MemoryHDC dc;
    const SelectInHDC selected(dc, GetHfontOf(font));
    Array<std::byte> metrics(::GetOutlineTextMetricsW(dc, 0, nullptr));
    OUTLINETEXTMETRICW head;
    if (metrics.size() < sizeof(head))
        return {};
    ::GetOutlineTextMetricsW(dc, static_cast<UINT>(metrics.size()),
                             reinterpret_cast<OUTLINETEXTMETRICW*>(metrics.data()));
    std::memcpy(&head, metrics.data(), sizeof(head));
    // Windows stores the offset of the name in this pointer.
    const auto offset = reinterpret_cast<std::uintptr_t>(head.otmpFamilyName);
    return reinterpret_cast<const wchar_t*>(metrics.data() + offset);
}

} // namespace

wxFont Platform::outlineFont(const wxFont& font)
{
    const wxString family = outlineFamily(font);
    if (family.empty() || family == font.GetFaceName())
        return font;
    wxNativeFontInfo info = *font.GetNativeFontInfo();
    info.SetFaceName(family);
    return wxFont(info);
}

} // namespace Nolvex
