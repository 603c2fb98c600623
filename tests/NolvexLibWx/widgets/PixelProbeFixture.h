// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLibWx/widgets/PixelProbe.h"
#include "NolvexLibWx/widgets/StaticBitmap.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "support/FrameFixture.h"

#include <wx/weakref.h>

namespace Nolvex::Tests {

/// A probe over the panel of a frame. The probe shows `pixel`.
struct PixelProbeFixture : FrameFixture
{
    static constexpr Pixel PLACE{150, 160};

    Wx::PixelProbe::ProbedPixel pixel{{0.25f, 0.5f, 1.0f, 1.0f}, {0.5f, 0.7f, 1.0f, 1.0f}, 1.0f, {}, L"sRGB"};
    Pixel asked; ///< the position that the probe has asked for last
    wxWeakRef<Wx::PixelProbe> probe = new Wx::PixelProbe(
        panel,
        [this](const Pixel& position) {
            asked = position;
            return pixel;
        },
        L"Not a number");

    /// The texts in the order of their construction: position, original, tone-mapped, bytes, warning.
    Wx::StaticText* text(std::size_t index) const
    {
        Array<Wx::StaticText*> texts;
        for (wxWindow* child : probe->GetChildren()) {
            if (auto* found = dynamic_cast<Wx::StaticText*>(child))
                texts.push_back(found);
        }
        return texts.at(index);
    }

    wxString positionLabel() const { return text(0)->GetLabel(); }

    wxString originalLabel() const { return text(1)->GetLabel(); }

    wxString toneMappedLabel() const { return text(2)->GetLabel(); }

    wxString bytesLabel() const { return text(3)->GetLabel(); }

    Wx::StaticText* warning() const { return text(4); }

    Wx::StaticBitmap* swatch() const
    {
        for (wxWindow* child : probe->GetChildren()) {
            if (auto* found = dynamic_cast<Wx::StaticBitmap*>(child))
                return found;
        }
        return nullptr;
    }

    void update() const { probe->updatePosition(PLACE); }

    void showProbe() const
    {
        showFrame();
        update();
        probe->Show();
        EXPECT_TRUE(pumpUntil([this] { return probe->IsShownOnScreen(); }));
        pumpEvents(100);
    }
};

} // namespace Nolvex::Tests
