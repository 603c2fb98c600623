// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/ComboBox.h"

#include "NolvexLib/Array.h"
#include "NolvexLibWx/FontSetup.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/widgets/ComboBoxCanvas.h"
#include "support/PairedRatio.h"
#include "support/WindowStage.h"

#include <wx/dcclient.h>
#include <wx/dcmemory.h>
#include <wx/odcombo.h>

#include <benchmark/benchmark.h>

#include <chrono>
#include <memory>
#include <string>

namespace Nolvex::Benchmarks {

namespace {

using Wx::ComboBox;
using Items = Array<ComboBox::Item>;

constexpr int MANY = 100'000;
constexpr int FEW = 1'000;
constexpr int ROWS = 17;
constexpr int ROW_HEIGHT = 18;
constexpr int WIDTH = 160;
constexpr int OPENINGS = 4; // the moment of the next frame on the screen varies less over several
constexpr auto MAX_OPENING = std::chrono::milliseconds(15);

Items makeItems(int count)
{
    Items items;
    for (int i = 0; i < count; ++i)
        items.push_back({L"A frame of the animation, number " + std::to_wstring(i), i, {}});
    return items;
}

// A box whose list counts how often it was painted.
class ShownBox
{
public:
    ShownBox(const WindowStage& stage, int count)
        : m_box(new ComboBox(
              stage.panel(), wxID_ANY, WIDTH, {},
              [this](wxWindow* list, ComboBox::WindowEvent) { m_list = list; }, true)),
          m_items(makeItems(count))
    {
        m_box->setData(m_items);
        scroller()->GetChildren().GetFirst()->GetData()->Bind(wxEVT_PAINT, [this](wxPaintEvent& event) {
            ++m_paints;
            event.Skip();
        });
    }

    ComboBox& box() const { return *m_box; }

    wxWindow* canvas() const { return scroller()->GetChildren().GetFirst()->GetData(); }

    /// Opens the list, paints its page into memory, and closes the list. GTK paints the screen with its next
    /// frame only, for which it waits up to 17 ms.
    void openWithoutWaiting(wxDC& dc) const
    {
        m_box->setOpen(true);
        Wx::ComboBoxDropdown::Canvas::draw(dc, wxRect(dc.GetSize()),
                                           {.items = m_items,
                                            .markedRow = 0,
                                            .rowHeight = ROW_HEIGHT,
                                            .skin = Wx::GuiSkin::DEFAULT(),
                                            .font = m_box->GetFont()});
        m_box->setOpen(false);
        WindowStage::pump();
    }

    /// Opens the list until the screen shows it, and closes the list again, several times.
    void openAndClose()
    {
        for (int i = 0; i < OPENINGS; ++i) {
            const int before = m_paints;
            m_box->setOpen(true);
            while (m_paints == before)
                WindowStage::pump();
            m_box->setOpen(false);
            WindowStage::pump();
        }
    }

    void press(int key)
    {
        wxKeyEvent event(wxEVT_CHAR_HOOK);
        event.m_keyCode = key;
        const int before = m_paints;
        m_box->GetEventHandler()->ProcessEvent(event);
        canvas()->Update();
        while (m_paints == before)
            WindowStage::pump();
    }

    void open()
    {
        m_box->setOpen(true);
        while (m_paints == 0)
            WindowStage::pump();
    }

private:
    wxWindow* scroller() const { return m_list->GetChildren().GetFirst()->GetData(); }

    wxWindow* m_list = nullptr;
    ComboBox* m_box;
    Items m_items;
    int m_paints = 0;
};

const wxSize FRAME(500, 500);

struct Boxes
{
    Boxes() { stage.show(); }

    WindowStage stage{FRAME};
    ShownBox few{stage, FEW};
    ShownBox many{stage, MANY};
};

// Opening a long list takes hardly longer than opening a short one.
Contest openMany()
{
    const auto boxes = std::make_shared<Boxes>();
    return {[boxes] { boxes->few.openAndClose(); }, [boxes] { boxes->many.openAndClose(); }};
}

const Figure OPEN_MANY("combo_box_open_100000_to_1000", 0.77, openMany);

// The peer is the time that users do not notice.
Contest openInTime()
{
    const auto boxes = std::make_shared<Boxes>();
    return {[] {
                const auto end = std::chrono::steady_clock::now() + MAX_OPENING;
                while (std::chrono::steady_clock::now() < end) {
                }
            },
            [boxes] {
                wxBitmap bitmap(WIDTH, ROWS * ROW_HEIGHT + 2, 24);
                wxMemoryDC dc(bitmap);
                boxes->many.openWithoutWaiting(dc);
            }};
}

const Figure OPEN_IN_TIME("combo_box_open_100000_in_15ms", 1.0, openInTime);

// Both boxes are filled, opened for the first time, and destroyed.
Contest openFirst()
{
    const auto stage = std::make_shared<WindowStage>(FRAME);
    stage->show();
    const auto items = std::make_shared<Items>(makeItems(MANY));
    const auto texts = std::make_shared<wxArrayString>();
    for (const ComboBox::Item& item : *items)
        texts->push_back(Wx::toWxString(item.text));
    return {[stage, texts] {
                auto* box = new wxOwnerDrawnComboBox(stage->panel(), wxID_ANY, "", wxDefaultPosition,
                                                     wxSize(WIDTH, -1), *texts, wxCB_READONLY);
                box->Popup();
                WindowStage::pump();
                box->Dismiss();
                box->Destroy();
            },
            [stage, items] {
                auto* box = new ComboBox(stage->panel(), wxID_ANY, WIDTH, {}, {}, true);
                box->setData(*items);
                box->setOpen(true);
                WindowStage::pump();
                box->setOpen(false);
                box->Destroy();
            }};
}

const Figure OPEN_FIRST("combo_box_first_opening_to_wx", 5.0, openFirst);

Contest setData()
{
    const auto boxes = std::make_shared<Boxes>();
    const auto items = std::make_shared<Items>(makeItems(MANY));
    return {[items] {
                const Items copy(*items);
                benchmark::DoNotOptimize(copy.data());
            },
            [boxes, items] { boxes->many.box().setData(*items); }};
}

const Figure SET_DATA("combo_box_set_data_to_copy", 0.85, setData);

// A bare window that draws the texts of one page.
class Page : public wxWindow
{
public:
    Page(wxWindow* parent, const wxSize& size, const Items& items, int rowHeight)
        : wxWindow(parent, wxID_ANY, wxPoint(200, 0), size)
    {
        SetBackgroundStyle(wxBG_STYLE_PAINT);
        Bind(wxEVT_PAINT, [this, &items, rowHeight](wxPaintEvent&) {
            wxPaintDC dc(this);
            dc.SetFont(Wx::setupStaticTextFont(dc.GetFont(), {}));
            const std::size_t first = m_isAtEnd ? items.size() - ROWS : 0;
            for (int row = 0; row < ROWS; ++row)
                dc.DrawText(Wx::toWxString(items[first + static_cast<std::size_t>(row)].text), 5,
                            row * rowHeight);
            ++m_paints;
        });
    }

    void turn()
    {
        const int before = m_paints;
        m_isAtEnd = !m_isAtEnd;
        Refresh();
        Update();
        while (m_paints == before)
            WindowStage::pump();
    }

private:
    bool m_isAtEnd = false;
    int m_paints = 0;
};

// Both show the last page and the first one in turn.
Contest jump()
{
    const auto boxes = std::make_shared<Boxes>();
    const auto items = std::make_shared<Items>(makeItems(MANY));
    const wxSize size(WIDTH, ROWS * ROW_HEIGHT + 2);
    boxes->many.open();
    auto* page = new Page(boxes->stage.panel(), size, *items, ROW_HEIGHT);
    for (int i = 0; i < 20; ++i)
        WindowStage::pump();
    return {[boxes, items, page] {
                page->turn();
                page->turn();
            },
            [boxes] {
                boxes->many.press(WXK_END);
                boxes->many.press(WXK_HOME);
            }};
}

const Figure JUMP("combo_box_page_after_jump_to_draw_text", 0.9, jump);

} // namespace

} // namespace Nolvex::Benchmarks
