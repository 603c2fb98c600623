// SPDX-License-Identifier: MIT
#include "apps/viewer/LayerBar.h"

#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/widgets/ComboBox.h"
#include "NolvexLibWx/widgets/StaticText.h"

#include <wx/sizer.h>

namespace Nolvex::Viewer {

namespace {

constexpr int GAP = 6;
constexpr int WIDTH = 240;

} // namespace

LayerBar::LayerBar(wxWindow* parent, const Function<void(std::size_t)>& choose,
                   const Function<void()>& relayout)
    : wxPanel(parent), m_relayout(relayout)
{
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(new Wx::StaticText(this, wxID_ANY, L"Layer"), 0, wxALIGN_CENTRE_VERTICAL | wxRIGHT,
             Wx::scaleByDpi(GAP));
    m_layer = new Wx::ComboBox(
        this, wxID_ANY, WIDTH, [choose](int layer) { choose(static_cast<std::size_t>(layer)); }, {}, true);
    Wx::setAccessibleName(*m_layer, L"Layer");
    row->Add(m_layer, 0, wxALIGN_CENTRE_VERTICAL);
    SetSizer(row);
    Hide();
}

void LayerBar::setPicture(const SharedPicture& picture)
{
    const Array<PictureLayer> layers = picture ? picture->layers() : Array<PictureLayer>();
    if (layers != m_layers) {
        m_layers = layers;
        Array<Wx::ComboBox::Item> items;
        for (std::size_t i = 0; i < layers.size(); ++i)
            items.push_back({layerLabel(layers[i]), static_cast<std::int32_t>(i), {}});
        m_layer->setData(items);
    }
    m_layer->selectId(picture ? static_cast<int>(picture->layer()) : -1, false);
    const bool show = layers.size() > 1;
    if (show != IsShown()) {
        Show(show);
        m_relayout();
    }
}

} // namespace Nolvex::Viewer
