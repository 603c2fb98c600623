// SPDX-License-Identifier: MIT
#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/widgets/ComboBoxCanvas.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "apps/gallery/Hand.h"
#include "apps/gallery/Page.h"

#include <wx/dcclient.h>
#include <wx/panel.h>
#include <wx/sizer.h>

#include <string>

namespace Nolvex::Gallery {

namespace {

constexpr int GAP = 8;        // design units
constexpr int WIDTH = 160;    // design units
constexpr int MANY = 100'000; // items
constexpr int MARKED_ROW = 2;

using Wx::ComboBox;
using Wx::TextFlag;
using Items = Array<ComboBox::Item>;
using Canvas = Wx::ComboBoxDropdown::Canvas;

Items channels()
{
    return {{L"RGB", 1, TextFlag::BOLD}, {L"Red", 2, {}},
            {L"Green", 3, {}},           {L"Blue", 4, {}},
            {L"Alpha", 5, {}},           {L"Luminance", 6, TextFlag::ITALIC}};
}

Items manyItems()
{
    Items items;
    for (int i = 1; i <= MANY; ++i)
        items.push_back({L"Frame " + std::to_wstring(i), i, {}});
    return items;
}

void addLabel(wxWindow* parent, wxSizer* rows, const wchar_t* text)
{
    rows->Add(new Wx::StaticText(parent, wxID_ANY, text), 0, wxTOP, Wx::scaleByDpi(GAP));
}

ComboBox* addBox(wxWindow* parent, wxSizer* rows, const wchar_t* name, const Items& items, int selected,
                 bool enabled, const Log& log)
{
    addLabel(parent, rows, name);
    const auto onSelect = [log, name](int id) {
        log(String(name) + L": the item with the id " + std::to_wstring(id) + L" was selected.");
    };
    auto* box = new ComboBox(parent, wxID_ANY, WIDTH, onSelect, {}, enabled);
    box->setData(items);
    box->selectIndex(selected, false);
    Wx::setAccessibleName(*box, name);
    rows->Add(box, 0, wxTOP, Wx::scaleByDpi(GAP / 2));
    return box;
}

// Paints by the fonts and the pixels of the screen, which a bitmap would not have.
void addPicture(wxWindow* parent, wxSizer* rows, const wchar_t* name, const wxSize& size, int gap,
                const Function<void(wxDC&)>& paint)
{
    auto* shown = new wxPanel(parent, wxID_ANY, wxDefaultPosition, size);
    shown->SetMinSize(size);
    shown->Bind(wxEVT_PAINT, [shown, paint](wxPaintEvent&) {
        wxPaintDC dc(shown);
        paint(dc);
    });
    Wx::setAccessibleName(*shown, name);
    rows->Add(shown, 0, wxTOP, gap);
}

// Paints a state that a real box has only while the user does something.
void addFace(wxWindow* parent, wxSizer* rows, const wchar_t* name, const ComboBox& box,
             Flags<OskaBorderState> border)
{
    addLabel(parent, rows, name);
    ComboBox::Face face = box.face();
    face.border = border;
    face.textColour = Wx::toWxColour(Wx::GuiSkin::DEFAULT().text);
    const wxSize size = box.GetMinSize();
    addPicture(parent, rows, name, size, Wx::scaleByDpi(GAP / 2), [size, face](wxDC& dc) {
        ComboBox::draw(dc, {{0, 0}, Wx::toPixel(size)}, face);
    });
}

void addList(wxWindow* parent, wxSizer* rows, const ComboBox& box)
{
    const Items items = channels();
    const int rowHeight = Wx::scaleByDpi(18);
    const wxSize size(box.GetMinSize().x, Canvas::heightOf(static_cast<int>(items.size()), rowHeight));
    addPicture(parent, rows, L"List", size, 0, [items, size, rowHeight, font = box.GetFont()](wxDC& dc) {
        Canvas::draw(dc, wxRect(size),
                     {.items = items,
                      .markedRow = MARKED_ROW,
                      .rowHeight = rowHeight,
                      .skin = Wx::GuiSkin::DEFAULT(),
                      .font = font});
    });
}

void build(wxWindow* parent, const Log& log)
{
    constexpr Flags<OskaBorderState> ENABLED = OskaBorderState::ENABLED;
    auto* live = new wxBoxSizer(wxVERTICAL);
    const ComboBox* box = addBox(parent, live, L"Six items", channels(), 0, true, log);
    addBox(parent, live, L"100,000 items", manyItems(), MANY / 2, true, log);
    addBox(parent, live, L"Nothing selected", channels(), -1, true, log);
    addBox(parent, live, L"No items", {}, -1, true, log);
    addBox(parent, live, L"Disabled", channels(), 1, false, log);

    auto* pictures = new wxBoxSizer(wxVERTICAL);
    addFace(parent, pictures, L"Picture: normal", *box, ENABLED);
    addFace(parent, pictures, L"Picture: under the mouse", *box, ENABLED | OskaBorderState::HOVERED);
    addFace(parent, pictures, L"Picture: open", *box, ENABLED | OskaBorderState::HOVERED);
    addList(parent, pictures, *box);

    auto* columns = new wxBoxSizer(wxHORIZONTAL);
    columns->Add(live);
    columns->Add(pictures, 0, wxLEFT, Wx::scaleByDpi(4 * GAP));
    parent->SetSizer(columns);
}

Function<bool(wxWindow&)> isOpen(std::size_t index)
{
    return Hand::when<ComboBox>(index, [](const ComboBox& box) { return box.isOpen(); });
}

const Hand::Finder FIRST = Hand::nth<ComboBox>(0);

const Array<Scene> SCENES{
    {L"hovered",
     {Hand::moveTo(
         FIRST, {},
         Hand::when<ComboBox>(
             0, [](const ComboBox& box) { return box.borderState().has(OskaBorderState::HOVERED); }))}},
    {L"open", {Hand::moveTo(FIRST), Hand::click(isOpen(0))}},
    {L"open with a row hovered",
     {Hand::moveTo(FIRST), Hand::click(isOpen(0)),
      Hand::moveTo(FIRST, {0, 70},
                   Hand::when<Canvas>(0, [](const Canvas& list) { return list.markedRow() > 0; }))}},
    {L"many items open", {Hand::moveTo(Hand::nth<ComboBox>(1)), Hand::click(isOpen(1))}},
};

const Page PAGE(L"Combo boxes", build, {}, SCENES);

} // namespace

} // namespace Nolvex::Gallery
