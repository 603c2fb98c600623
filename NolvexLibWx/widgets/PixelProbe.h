// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Function.h"
#include "NolvexLib/Pixel.h"
#include "NolvexLib/Rgb.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/platform/PopupFrame.h"

#include <wx/image.h>

namespace Nolvex::Wx {

class StaticBitmap;
class StaticText;

/// A small frame that follows the mouse over a picture and shows the values of the pixel under the mouse: its
/// position, its colour in linear light, its tone-mapped colour as floats and as bytes, and a swatch of that
/// colour. A function of the caller supplies the values. The caller shows and hides the frame.
///
/// The frame takes neither the keyboard focus nor the mouse, stays in front of the window of its parent, and
/// is destroyed together with the parent. Its colours are those of GuiSkin::DEFAULT() at the construction;
/// applySkinRecursive changes them.
///
/// On Wayland, positions on the screen are relative to the top-level window of the parent, and the frame is a
/// part of that window, which may reach beyond the edges of the window.
///
/// Numbers have a decimal point, whatever the locale of the program.
class NOLVEXLIBWX_EXPORT PixelProbe : public Platform::PopupFrame
{
public:
    struct ProbedPixel
    {
        Rgb original; ///< in linear light
        Rgb toneMapped;
        float alpha = 0.0f; ///< shown as a byte next to the bytes of `toneMapped`
        Pixel position;
        String colourSpace; ///< the name of the colour space of `toneMapped`
    };

    /// `probe` receives the position that is passed to updatePosition, and may be empty. `warningText` is
    /// shown below the values while a colour is infinite or NaN.
    PixelProbe(wxWindow* parent, Function<ProbedPixel(const Pixel&)> probe, String warningText);
    ~PixelProbe() override;

    /// Moves the frame to the right of and below a point of the screen, and shows the values that the
    /// function supplies for that point. Without a function, the frame keeps the values that it shows. If the
    /// function throws an exception, the frame keeps them, too, and the exception reaches the caller. The
    /// function may destroy the frame.
    void updatePosition(Pixel screenPosition);

private:
    void makeControls();
    void layOut();
    void show(const ProbedPixel& pixel);
    void showSwatch(const ProbedPixel& pixel);

    Function<ProbedPixel(const Pixel&)> m_probe;
    String m_warningText;
    wxImage m_swatchImage;
    StaticBitmap* m_swatch = nullptr;
    StaticText* m_position = nullptr;
    StaticText* m_original = nullptr;
    StaticText* m_toneMapped = nullptr;
    StaticText* m_bytes = nullptr;
    StaticText* m_warning = nullptr;
};

} // namespace Nolvex::Wx
