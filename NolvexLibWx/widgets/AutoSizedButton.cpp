// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/AutoSizedButton.h"

#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/FontSetup.h"
#include "NolvexLibWx/paint/DensePixels.h"

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

wxBitmap resized(const wxBitmap& icon, int length, int density)
{
    if (length < 1)
        return {};
    wxImage image = icon.ConvertToImage();
    image.Rescale(length * density, length * density, wxIMAGE_QUALITY_HIGH);
    return denseBitmap(image, density);
}

// Returns nullopt if the icon cannot have that size.
Optional<wxBitmap> fitted(const wxBitmap& icon, Optional<int> size, int density)
{
    const int factor = Wx::scaleByDpi(1);
    if (!size)
        return Wx::scaleByDpi(icon);
    if (*size > Wx::AutoSizedButton::MAX_ICON_LENGTH / (factor * density))
        return {};
    return icon.IsOk() ? resized(icon, std::max(*size, 0) * factor, density) : icon;
}

} // namespace

Wx::AutoSizedButton::AutoSizedButton(wxWindow* parent, const wxString& label, int minWidth, int minHeight)
    : Button(
          parent, GuiSkin::DEFAULT(), wxID_ANY, label, wxBitmap(), wxBitmap(), [this] { onClicked(); },
          Behavior::PUSH, true, OskaBorderState::ENABLED),
      m_minWidth(minWidth),
      m_minHeight(minHeight)
{
    updateMinimumSize();
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
    const Optional<wxBitmap> bitmap = fitted(icon, size, screenDensity(*this));
    if (bitmap) {
        setBitmap(*bitmap);
        onIconChanged();
    }
    return bitmap.has_value();
}

bool Wx::AutoSizedButton::setDisabledIcon(const wxBitmap& icon, Optional<int> size)
{
    const Optional<wxBitmap> bitmap = fitted(icon, size, screenDensity(*this));
    if (bitmap) {
        setBitmapWhenDisabled(*bitmap);
        onIconChanged();
    }
    return bitmap.has_value();
}

void Wx::AutoSizedButton::onIconChanged()
{
    updateMinimumSize();
    repaintNow();
}

void Wx::AutoSizedButton::updateMinimumSize()
{
    wxSize icon = screenSize(bitmap());
    icon.IncTo(screenSize(bitmapWhenDisabled()));
    wxClientDC dc(this);
    dc.SetFont(setDefaultFontSize(dc.GetFont(), 1.0f));
    wxSize text = dc.GetTextExtent(GetLabel());
    if (text.x >= 1) {
        const Pixel padding = scaleByDpi(LABEL_PADDING);
        text.IncBy(padding.x, padding.y);
    }
    const int frame =
        borderState().has(OskaBorderState::NO_FRAME) ? FRAME_ALLOWANCE_WITHOUT_FRAME : FRAME_ALLOWANCE;
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
