// SPDX-License-Identifier: MIT
#include "ComboBoxFixture.h"
#include "NolvexLibWx/ColourConversions.h"
#include "support/DefaultSkinGuard.h"
#include "support/Ink.h"
#include "support/Screen.h"

#include <wx/dcmemory.h>
#include <wx/dcsvg.h>
#include <wx/file.h>
#include <wx/filename.h>

#include <gtest/gtest.h>

using namespace Nolvex;
using Tests::inkIn;
using Tests::PAPER;
using Tests::pixelAt;
using Wx::ComboBox;
using Wx::TextFlag;
using Canvas = Wx::ComboBoxDropdown::Canvas;

namespace {

constexpr RgbBytes INNER{37, 37, 37};
constexpr RgbBytes LIT{0, 114, 188};
constexpr RgbBytes GREEN{0, 255, 0};
const wxSize BOX(120, 24);
constexpr int ROW = 18;

ComboBox::Face faceOf(const wxString& text)
{
    return {.border = OskaBorderState::ENABLED,
            .arrow = {},
            .text = text,
            .font = Tests::blockFont(),
            .textColour = Wx::toWxColour(GREEN)};
}

wxBitmap arrowOf(int width, int height)
{
    wxBitmap bitmap(width, height, 24);
    wxMemoryDC dc(bitmap);
    dc.SetBackground(*wxRED_BRUSH);
    dc.Clear();
    return bitmap;
}

wxImage paintedBox(const ComboBox::Face& face, wxSize size = BOX)
{
    return Tests::painted(size, [&](wxDC& dc) { ComboBox::draw(dc, {{0, 0}, {size.x, size.y}}, face); });
}

Canvas::Face listOf(const Array<ComboBox::Item>& items, int marked, int top = 0)
{
    Wx::GuiSkin skin = Wx::GuiSkin::DEFAULT();
    skin.text = GREEN;
    return {.items = items,
            .markedRow = marked,
            .rowHeight = ROW,
            .top = top,
            .skin = skin,
            .font = Tests::blockFont()};
}

/// Returns how many texts are drawn for a part of the list.
int countTexts(const wxRect& part, const Canvas::Face& face)
{
    const wxString path = wxFileName::CreateTempFileName(L"nolvex");
    {
        wxSVGFileDC dc(path, 300, 40'000);
        Canvas::draw(dc, part, face);
    }
    wxString text;
    EXPECT_TRUE(wxFile(path).ReadAll(&text));
    wxRemoveFile(path);
    return static_cast<int>(text.Replace(L"<text ", L"<"));
}

struct ComboBoxPixelTest : Tests::ComboBoxFixture
{
    bool isLit() const { return pixelAt(Tests::captureClientArea(box), 1, 12) == LIT; }

    bool getsLit(bool lit) const
    {
        return Tests::pumpUntil([&] { return isLit() == lit; }, 2000);
    }
};

} // namespace

TEST_F(ComboBoxPixelTest, box_hasTheBevelledBorder)
{
    const wxImage image = paintedBox(faceOf({}));
    EXPECT_EQ(pixelAt(image, 0, 0), RgbBytes(54, 54, 54));
    EXPECT_EQ(pixelAt(image, 1, 1), INNER);
    EXPECT_EQ(pixelAt(image, 5, 23), RgbBytes(85, 85, 85));
    EXPECT_EQ(pixelAt(image, 60, 12), PAPER);
}

TEST_F(ComboBoxPixelTest, arrow_isAtTheRightAndCentred)
{
    ComboBox::Face face = faceOf({});
    face.arrow = arrowOf(10, 6);
    EXPECT_EQ(inkIn(paintedBox(face), wxRect(2, 2, 116, 20)), wxRect(108, 9, 10, 6));
}

TEST_F(ComboBoxPixelTest, tallArrow_staysInsideTheFrame)
{
    ComboBox::Face face = faceOf({});
    face.arrow = arrowOf(10, 60);
    const wxImage image = paintedBox(face);
    EXPECT_EQ(inkIn(image, wxRect(2, 2, 116, 20)), wxRect(108, 2, 10, 20));
    EXPECT_EQ(pixelAt(image, 110, 1), INNER);
    EXPECT_EQ(pixelAt(image, 110, 22), INNER);
}

TEST_F(ComboBoxPixelTest, text_isEightFromTheLeftAndCentred)
{
    const ComboBox::Face face = faceOf(Tests::BLOCK_LABEL);
    wxCoord width = 0;
    wxCoord height = 0;
    const wxImage image = Tests::painted(BOX, [&](wxDC& dc) {
        ComboBox::draw(dc, {{0, 0}, {BOX.x, BOX.y}}, face);
        dc.SetFont(face.font);
        dc.GetTextExtent(face.text, &width, &height);
    });
    const wxImage wanted = Tests::painted(BOX, [&](wxDC& dc) {
        dc.SetFont(face.font);
        dc.SetTextForeground(Wx::toWxColour(GREEN));
        dc.DrawText(face.text, 8, (24 - height - 4) / 2 + 2);
    });
    const wxRect inside(2, 2, 116, 20);
    EXPECT_EQ(inkIn(image, inside), inkIn(wanted, inside));
    EXPECT_EQ(pixelAt(image, 11, 12), GREEN);
}

TEST_F(ComboBoxPixelTest, longText_endsBeforeTheArrow)
{
    ComboBox::Face face = faceOf(wxString(Tests::BLOCK_LABEL[0], 50));
    face.arrow = arrowOf(10, 6);
    const wxImage image = paintedBox(face);
    const wxRect ink = inkIn(image, wxRect(2, 2, 106, 20));
    EXPECT_EQ(ink.GetRight(), 107) << "the text touches the arrow";
    EXPECT_EQ(pixelAt(image, 108, 5), PAPER);
    EXPECT_EQ(pixelAt(image, 119, 12), RgbBytes(54, 54, 54));
}

TEST_F(ComboBoxPixelTest, tinyBox_isPainted)
{
    ComboBox::Face face = faceOf(L"text");
    face.arrow = arrowOf(10, 6);
    for (int length = 1; length < 16; ++length)
        paintedBox(face, wxSize(length, length));
}

TEST_F(ComboBoxPixelTest, face_showsTheSelectedItemInItsFont)
{
    make();
    box->setData(Array<ComboBox::Item>{{L"plain", 1, {}}, {L"bold", 2, TextFlag::BOLD}});
    EXPECT_EQ(box->face().text, L"");
    box->selectIndex(1, false);
    EXPECT_EQ(box->face().text, L"bold");
    EXPECT_EQ(box->face().font.GetWeight(), wxFONTWEIGHT_BOLD);
    box->selectIndex(0, false);
    EXPECT_EQ(box->face().font.GetWeight(), wxFONTWEIGHT_NORMAL);
}

TEST_F(ComboBoxPixelTest, textColour_isGreyWhileDisabled)
{
    makeWithItems(2, 0);
    box->SetForegroundColour(Wx::toWxColour(GREEN));
    EXPECT_EQ(box->face().textColour, Wx::toWxColour(GREEN));
    box->Enable(false);
    EXPECT_EQ(box->face().textColour, wxColour(110, 110, 110));
    box->Enable();
    panel->Disable();
    EXPECT_EQ(box->face().textColour, wxColour(110, 110, 110));
}

TEST_F(ComboBoxPixelTest, arrowOfTheBox_isTheBuiltInOne)
{
    make();
    const wxBitmap arrow = box->face().arrow;
    ASSERT_TRUE(arrow.IsOk());
    EXPECT_EQ(arrow.GetSize(), wxSize(17, 41) * Wx::scaleByDpi(1));
}

TEST_F(ComboBoxPixelTest, mouseFocusAndOpenList_lightTheBorder)
{
    makeWithItems(3, 0);
    auto* other = new ComboBox(panel, wxID_ANY, 50, {}, {}, true);
    other->Move(10, 150);
    showFrame();
    other->SetFocus();
    EXPECT_TRUE(getsLit(false));
    Tests::moveMouse(box, centre());
    EXPECT_TRUE(getsLit(true));
    Tests::moveMouse(panel, {300, 200});
    EXPECT_TRUE(getsLit(false));
    box->setOpen(true);
    EXPECT_TRUE(getsLit(true));
    box->setOpen(false);
    EXPECT_TRUE(getsLit(false));
    box->SetFocus();
    EXPECT_TRUE(getsLit(true));
}

TEST_F(ComboBoxPixelTest, enabling_repaintsTheText)
{
    make();
    box->setData(Array<ComboBox::Item>{{wxString(Tests::BLOCK_LABEL).ToStdWstring(), 1, {}}});
    box->SetFont(Tests::blockFont());
    box->SetForegroundColour(Wx::toWxColour(GREEN));
    box->selectIndex(0, false);
    showFrame();
    const auto shows = [this](RgbBytes colour) {
        return Tests::pumpUntil(
            [&] { return pixelAt(Tests::captureClientArea(box), 11, centre().y) == colour; }, 2000);
    };
    EXPECT_TRUE(shows(GREEN));
    box->Disable();
    EXPECT_TRUE(shows({110, 110, 110}));
    box->Enable();
    EXPECT_TRUE(shows(GREEN));
}

TEST_F(ComboBoxPixelTest, rows_beginTwoPixelsDownAndFiveToTheRight)
{
    const Array<ComboBox::Item> items{{L"\u2588", 1, {}}, {L"\u2588", 2, {}}, {String(), 3, {}}};
    const RgbBytes background = Wx::GuiSkin::DEFAULT().background;
    const wxSize size(80, 3 * ROW + 10);
    const wxImage image =
        Tests::painted(size, [&](wxDC& dc) { Canvas::draw(dc, wxRect(size), listOf(items, 1)); });
    EXPECT_EQ(pixelAt(image, 40, 0), background);
    EXPECT_EQ(pixelAt(image, 40, 2 + ROW - 1), background);
    EXPECT_EQ(pixelAt(image, 0, 2 + ROW), LIT);
    EXPECT_EQ(pixelAt(image, 79, 2 + 2 * ROW - 1), LIT);
    EXPECT_EQ(pixelAt(image, 40, 2 + 2 * ROW), background);
    EXPECT_EQ(pixelAt(image, 40, size.y - 1), background) << "below the last row";
    // The edge of the block may be blended into the pixel beside it.
    EXPECT_EQ(pixelAt(image, 3, 10), background);
    EXPECT_EQ(pixelAt(image, 6, 10), GREEN);
    EXPECT_EQ(pixelAt(image, 6, 2 + ROW + 8), GREEN);
}

TEST_F(ComboBoxPixelTest, markedRow_hasTheHighlightOfTheDefaultSkin)
{
    const Tests::DefaultSkinGuard guard;
    const Array<ComboBox::Item> items{{String(), 1, {}}};
    const Canvas::Face face = listOf(items, 0);
    Wx::GuiSkin::DEFAULT().highlight = {1, 2, 3};
    const wxImage image = Tests::painted(wxSize(50, 30), [&](wxDC& dc) {
        Canvas::draw(dc, {0, 0, 50, 30}, face);
    });
    EXPECT_EQ(pixelAt(image, 40, 10), RgbBytes(1, 2, 3));
}

TEST_F(ComboBoxPixelTest, slice_showsTheSamePixelsAsTheWholeList)
{
    const Array<ComboBox::Item> items = Tests::manyItems(40);
    const wxSize size(120, 100);
    const wxImage whole = Tests::painted(wxSize(120, 800), [&](wxDC& dc) {
        Canvas::draw(dc, {0, 0, 120, 800}, listOf(items, 12));
    });
    const wxImage slice =
        Tests::painted(size, [&](wxDC& dc) { Canvas::draw(dc, wxRect(size), listOf(items, 12, 187)); });
    // The text of the row above the slice may reach into its first row.
    for (int y = ROW; y < size.y; ++y) {
        for (int x = 0; x < size.x; ++x)
            ASSERT_EQ(pixelAt(slice, x, y), pixelAt(whole, x, y + 187)) << x << ", " << y;
    }
}

TEST_F(ComboBoxPixelTest, rowFlags_chooseTheFont)
{
    const auto inkOf = [](Flags<TextFlag> flags) {
        const Array<ComboBox::Item> items{{L"\u2588mmmmmmm", 1, flags}};
        const wxSize size(200, 22);
        const wxImage image =
            Tests::painted(size, [&](wxDC& dc) { Canvas::draw(dc, wxRect(size), listOf(items, -1)); });
        int count = 0;
        for (int y = 0; y < size.y; ++y) {
            for (int x = 0; x < size.x; ++x)
                count += pixelAt(image, x, y) == Wx::GuiSkin::DEFAULT().background ? 0 : 1;
        }
        return count;
    };
    EXPECT_GT(inkOf(TextFlag::BOLD), inkOf({}));
    EXPECT_NE(inkOf(TextFlag::ITALIC), inkOf({}));
}

TEST_F(ComboBoxPixelTest, onlyTheRowsInThePart_arePainted)
{
    const Array<ComboBox::Item> items = Tests::manyItems(100'000);
    EXPECT_EQ(countTexts({0, 2, 100, 17 * ROW}, listOf(items, 0)), 17);
    EXPECT_EQ(countTexts({0, 3, 100, 17 * ROW}, listOf(items, 0)), 18);
    EXPECT_EQ(countTexts({0, 2 + 5 * ROW, 100, 1}, listOf(items, 0)), 1);
    EXPECT_EQ(countTexts({0, 0, 100, 2}, listOf(items, 0)), 0);
    EXPECT_EQ(countTexts({0, 2, 100, 17 * ROW}, listOf(items, 0, 50'000 * ROW)), 17);
    EXPECT_EQ(countTexts({0, 2, 100, 17 * ROW}, listOf(items, 0, 99'990 * ROW)), 10);
    EXPECT_EQ(countTexts({0, 2, 100, 17 * ROW}, listOf({}, 0)), 0);
}
