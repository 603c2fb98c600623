// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/AutoSizedButton.h"

#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/FontSetup.h"

#include <wx/dcclient.h>
#include <wx/image.h>
#include <wx/weakref.h>

#include <algorithm>
#include <utility>

namespace Nolvex {

namespace {

constexpr Pixel LABEL_PADDING{10, 10};
constexpr int FRAME_ALLOWANCE = 4;
constexpr int FRAME_ALLOWANCE_WITHOUT_FRAME = 2;

wxBitmap resized(const wxBitmap& icon, int length)
{
    if (length < 1)
        return {};
    wxImage image = icon.ConvertToImage();
    image.Rescale(length, length, wxIMAGE_QUALITY_HIGH);
    return {image};
}

wxSize extent(const wxBitmap& bitmap)
{
    return bitmap.IsOk() ? bitmap.GetSize() : wxSize(0, 0);
}

} // namespace

Wx::AutoSizedButton::AutoSizedButton(wxWindow* parent, const wxString& label, int minWidth, int minHeight)
    : Button(parent, GuiSkin::DEFAULT(), wxID_ANY, label, wxBitmap(), wxBitmap(), {}, Behavior::PUSH, true,
             OskaBorderState::ENABLED),
      m_minWidth(minWidth),
      m_minHeight(minHeight)
{
    updateMinimumSize();
    m_clickCallback = [this] { onClicked(); };
}

Wx::AutoSizedButton::~AutoSizedButton() = default;

void Wx::AutoSizedButton::SetLabel(const wxString& label)
{
    Button::SetLabel(label);
    updateMinimumSize();
}

bool Wx::AutoSizedButton::Enable(bool enable)
{
    const bool changed = Button::Enable(enable);
    repaintNow();
    return changed;
}

void Wx::AutoSizedButton::setClickCallback(Function<void()> onClick)
{
    m_ownClickCallback = std::move(onClick);
}

bool Wx::AutoSizedButton::setEnabledIcon(const wxBitmap& icon, Optional<int> size)
{
    return setIcon(m_bitmap, icon, size);
}

bool Wx::AutoSizedButton::setDisabledIcon(const wxBitmap& icon, Optional<int> size)
{
    return setIcon(m_bitmapWhenDisabled, icon, size);
}

bool Wx::AutoSizedButton::setIcon(wxBitmap& destination, const wxBitmap& icon, Optional<int> size)
{
    const int factor = scaleByDpi(1);
    if (size && *size > MAX_ICON_LENGTH / factor)
        return false;
    destination = icon.IsOk() && size ? resized(icon, std::max(*size, 0) * factor) : scaleByDpi(icon);
    updateMinimumSize();
    repaintNow();
    return true;
}

void Wx::AutoSizedButton::updateMinimumSize()
{
    wxSize icon = extent(m_bitmap);
    icon.IncTo(extent(m_bitmapWhenDisabled));
    wxClientDC dc(this);
    dc.SetFont(setDefaultFontSize(dc.GetFont(), 1.0f));
    wxSize text = dc.GetTextExtent(m_label);
    if (text.x >= 1) {
        const Pixel padding = scaleByDpi(LABEL_PADDING);
        text.IncBy(padding.x, padding.y);
    }
    const int frame =
        m_state.has(OskaBorderState::NO_FRAME) ? FRAME_ALLOWANCE_WITHOUT_FRAME : FRAME_ALLOWANCE;
    const int width = std::max({scaleByDpi(m_minWidth), text.x + frame + icon.x, 0});
    const int height = std::max({scaleByDpi(m_minHeight), 0, icon.y + frame, text.y + frame});
    SetMinSize(wxSize(width, height));
}

void Wx::AutoSizedButton::onClicked()
{
    const wxWeakRef<AutoSizedButton> self(this);
    if (m_ownClickCallback)
        m_ownClickCallback();
    if (self)
        repaintNow();
}

void Wx::AutoSizedButton::repaintNow()
{
    Refresh(true, nullptr);
    Update();
}

} // namespace Nolvex
