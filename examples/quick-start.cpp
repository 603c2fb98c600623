// SPDX-License-Identifier: MIT
// The smallest program: a float image in a bevelled border.
#include "NolvexLib/BitmapImpl.h"
#include "NolvexLib/Exception.h"
#include "NolvexLib/Rgb.h"
#include "NolvexLibWx/BitmapConversions.h"
#include "NolvexLibWx/NolvexLibWx.h"
#include "NolvexLibWx/widgets/ApplySkinRecursive.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "NolvexLibWx/widgets/OskaBorder.h"

#include <wx/frame.h>
#include <wx/statbmp.h>

#include <cstdio>

namespace {

Nolvex::BitmapImpl<Nolvex::Rgb> gradient(int width, int height)
{
    Nolvex::BitmapImpl<Nolvex::Rgb> image(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            image.at(x, y) = {float(x) / float(width), float(y) / float(height), 0.4f, 1.0f};
    }
    return image;
}

void showWindow()
{
    using namespace Nolvex;
    auto* frame = new wxFrame(nullptr, wxID_ANY, "Quick start");
    auto* border = new OskaBorder(frame);
    border->addChild(new wxStaticBitmap(border, wxID_ANY, Wx::toWxBitmap(gradient(320, 200), false)));
    Wx::applySkinRecursive(frame, Wx::GuiSkin::DEFAULT());
    frame->SetClientSize(border->GetBestSize());
    frame->Show();
}

} // namespace

int main()
{
    try {
        Nolvex::LibWx::startup(Nolvex::LibWx::ApplicationType::APPLICATION);
    } catch (const Nolvex::Exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
    showWindow();
    const int result = Nolvex::LibWx::runEventLoop();
    Nolvex::LibWx::shutdown();
    return result;
}
