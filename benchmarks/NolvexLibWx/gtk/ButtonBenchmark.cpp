// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/Button.h"

#include "support/PairedRatio.h"
#include "support/WindowStage.h"

#include <wx/button.h>
#include <wx/dcmemory.h>
#include <wx/sizer.h>

#include <benchmark/benchmark.h>
#include <gtk/gtk.h>

#include <memory>

namespace Nolvex::Benchmarks {

namespace {

constexpr int CONTROLS = 500;
constexpr int PAINTS = 200;
const wxSize FACE(120, 24);

Wx::Button* makeButton(wxWindow* parent)
{
    return new Wx::Button(parent, Wx::GuiSkin::DEFAULT(), wxID_ANY, L"Render", wxBitmap(), wxBitmap(), {},
                          Wx::Button::Behavior::PUSH, true, OskaBorderState::ENABLED);
}

wxWindow* makeBareWindow(wxWindow* parent)
{
    return new wxWindow(parent, wxID_ANY);
}

wxButton* makeNativeButton(wxWindow* parent)
{
    return new wxButton(parent, wxID_ANY, L"Render");
}

// The buttons are made, and destroyed together with their parent, as the controls of a dialog are.
template<auto MAKE>
Work construction(const std::shared_ptr<WindowStage>& stage)
{
    return [stage] {
        auto* parent = new wxPanel(stage->panel());
        for (int i = 0; i < CONTROLS; ++i)
            benchmark::DoNotOptimize(MAKE(parent));
        delete parent;
    };
}

template<auto MAKE_PEER>
Contest construct()
{
    const auto stage = std::make_shared<WindowStage>();
    Contest contest;
    contest.peer = construction<MAKE_PEER>(stage);
    contest.ours = construction<makeButton>(stage);
    return contest;
}

const Figure TO_BARE_WINDOW("button_construction", 0.9, construct<makeBareWindow>);
const Figure TO_NATIVE_BUTTON("button_construction_to_native", 0.9, construct<makeNativeButton>);

struct Surface
{
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, FACE.x, FACE.y);
    cairo_t* context = cairo_create(surface);

    Surface() = default;
    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;

    ~Surface()
    {
        cairo_destroy(context);
        cairo_surface_destroy(surface);
    }
};

// Each button draws itself, without the window's background, into the same kind of memory.
Contest paintFace()
{
    const auto stage = std::make_shared<WindowStage>();
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    wxButton* native = makeNativeButton(stage->panel());
    Wx::Button* own = makeButton(stage->panel());
    for (wxWindow* window : {static_cast<wxWindow*>(native), static_cast<wxWindow*>(own)}) {
        window->SetMinSize(FACE);
        sizer->Add(window);
    }
    stage->panel()->SetSizer(sizer);
    stage->show();
    const auto surface = std::make_shared<Surface>();
    const auto bitmap = std::make_shared<wxBitmap>(FACE.x, FACE.y, 24);
    return {[stage, native, surface] {
                for (int i = 0; i < PAINTS; ++i)
                    gtk_widget_draw(native->GetHandle(), surface->context);
            },
            [stage, own, bitmap] {
                wxMemoryDC dc(*bitmap);
                for (int i = 0; i < PAINTS; ++i)
                    Wx::Button::draw(dc, {{0, 0}, {FACE.x, FACE.y}}, own->face());
            }};
}

const Figure PAINT_FACE("button_paint_face", 3.0, paintFace);

} // namespace

} // namespace Nolvex::Benchmarks
