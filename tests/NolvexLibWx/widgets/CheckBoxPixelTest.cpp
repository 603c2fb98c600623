// SPDX-License-Identifier: MIT
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/widgets/CheckBox.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "support/DefaultSkinGuard.h"
#include "support/Gestures.h"
#include "support/Screen.h"

#include <wx/dcclient.h>
#include <wx/dcmemory.h>
#include <wx/fontenum.h>
#include <wx/frame.h>
#include <wx/graphics.h>
#include <wx/panel.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>

using namespace Nolvex;
using Wx::CheckBox;
using Wx::scaleByDpi;

// The run chooses the scale; the tests hold at each.

namespace {

const wxColour PAPER(50, 60, 70);
const wxColour INK(200, 190, 30);
const wxColour DISABLED_INK(110, 110, 110);
constexpr RgbBytes OUTER{54, 54, 54};
constexpr RgbBytes INNER{37, 37, 37};
constexpr RgbBytes BOTTOM_OUTER{70, 70, 70};
constexpr RgbBytes BOTTOM_INNER{85, 85, 85};

// What a check box is to show.
struct Face
{
    wxString label = L"A gjy label";
    bool checked = false;
    bool enabled = true;
    bool focused = false;
    wxColour disabledInk = DISABLED_INK;
};

int scaleIndex()
{
    return std::clamp(scaleByDpi(1) - 1, 0, 2);
}

// The bevelled box, written down pixel by pixel.
RgbBytes boxPixel(int x, int y, const RgbBytes& paper)
{
    const int last = scaleByDpi(15) - 1;
    const auto onOutline = [x, y](int low, int high) {
        return std::min(x, y) >= low && std::max(x, y) <= high &&
               (x == low || y == low || x == high || y == high);
    };
    if (y == last && x <= last)
        return x == 0 || x == last ? BOTTOM_OUTER : BOTTOM_INNER;
    if (onOutline(0, last))
        return OUTER;
    return onOutline(1, last - 1) ? INNER : paper;
}

wxImage paperWithBox(const wxSize& size)
{
    wxImage image(size);
    const RgbBytes paper = Wx::toRgbBytes(PAPER);
    for (int y = 0; y < size.y; ++y) {
        for (int x = 0; x < size.x; ++x) {
            const RgbBytes pixel = boxPixel(x, y, paper);
            image.SetRGB(x, y, pixel.r, pixel.g, pixel.b);
        }
    }
    return image;
}

void drawMark(wxGraphicsContext& context)
{
    context.SetPen(*wxWHITE_PEN);
    wxGraphicsPath path = context.CreatePath();
    path.MoveToPoint(scaleByDpi(3), scaleByDpi(7));
    path.AddLineToPoint(scaleByDpi(6), scaleByDpi(10));
    path.AddLineToPoint(scaleByDpi(11), scaleByDpi(3));
    path.AddLineToPoint(scaleByDpi(6), scaleByDpi(9));
    path.CloseSubpath();
    context.StrokePath(path);
}

void drawFocus(wxGraphicsContext& context, const wxSize& text)
{
    static const std::array<std::array<wxDash, 2>, 3> DASHES{{{1, 2}, {2, 1}, {2, 3}}};
    wxPen pen(INK, scaleByDpi(1), wxPENSTYLE_USER_DASH);
    pen.SetDashes(2, DASHES[static_cast<std::size_t>(scaleIndex())].data());
    context.SetPen(pen);
    context.SetBrush(*wxTRANSPARENT_BRUSH);
    context.DrawRectangle(scaleByDpi(17), 0, text.x + scaleByDpi(2), text.y - scaleByDpi(1));
}

// The whole face, drawn with the toolkit alone.
template<class Dc>
void drawExpected(Dc& dc, const Face& face, const wxSize& size, const wxFont& font)
{
    constexpr std::array LABEL_Y{-1, -3, -4};
    dc.DrawBitmap(wxBitmap(paperWithBox(size), 24), 0, 0);
    dc.SetFont(font);
    const std::unique_ptr<wxGraphicsContext> context(wxGraphicsContext::Create(dc));
    if (face.checked)
        drawMark(*context);
    context->SetFont(font, face.enabled ? INK : face.disabledInk);
    context->DrawText(face.label, scaleByDpi(18), LABEL_Y[static_cast<std::size_t>(scaleIndex())]);
    if (face.focused)
        drawFocus(*context, dc.GetTextExtent(face.label));
}

wxImage expectedFace(const Face& face, const wxSize& size, const wxFont& font)
{
    wxBitmap bitmap(size, 24);
    {
        wxMemoryDC dc(bitmap);
        drawExpected(dc, face, size, font);
    }
    return bitmap.ConvertToImage();
}

// Shows what is expected: letters come out otherwise on the screen than in a bitmap.
class ExpectedWindow : public wxWindow
{
public:
    explicit ExpectedWindow(wxWindow* parent) : wxWindow(parent, wxID_ANY)
    {
        Bind(wxEVT_PAINT, [this](wxPaintEvent&) {
            wxPaintDC dc(this);
            drawExpected(dc, m_face, GetClientSize(), m_faceFont);
        });
    }

    wxImage shown(const Face& face, const wxSize& size, const wxFont& font)
    {
        m_face = face;
        m_faceFont = font;
        SetSize(wxRect(wxPoint(20, 180), size));
        Refresh();
        Tests::pumpEvents(120);
        return Tests::captureClientArea(this);
    }

private:
    Face m_face;
    wxFont m_faceFont = *wxNORMAL_FONT;
};

wxPoint firstDifference(const wxImage& a, const wxImage& b)
{
    for (int y = 0; y < a.GetHeight(); ++y) {
        for (int x = 0; x < a.GetWidth(); ++x) {
            if (Tests::pixelAt(a, x, y) != Tests::pixelAt(b, x, y))
                return {x, y};
        }
    }
    return wxDefaultPosition;
}

void expectSame(const wxImage& shown, const wxImage& expected, const char* what)
{
    ASSERT_EQ(shown.GetSize(), expected.GetSize());
    const wxPoint at = firstDifference(shown, expected);
    EXPECT_EQ(at, wxDefaultPosition)
        << what << ": at " << at.x << ", " << at.y << " it is "
        << testing::PrintToString(Tests::pixelAt(shown, std::max(at.x, 0), std::max(at.y, 0))) << " and not "
        << testing::PrintToString(Tests::pixelAt(expected, std::max(at.x, 0), std::max(at.y, 0)));
}

struct CheckBoxPixelTest : testing::Test
{
    wxFrame* frame = new wxFrame(nullptr, wxID_ANY, "check box", wxPoint(100, 100), wxSize(500, 400));
    wxPanel* panel = new wxPanel(frame);
    CheckBox* other = nullptr;
    CheckBox* box = nullptr;
    ExpectedWindow* expected = new ExpectedWindow(panel);

    CheckBoxPixelTest()
    {
        panel->SetBackgroundColour(PAPER);
        other = new CheckBox(panel, wxID_ANY, L"Other", {20, 100});
        box = new CheckBox(panel, wxID_ANY, L"A g&jy label", {20, 20});
        box->SetForegroundColour(INK);
        box->SetFont(plainFont());
        box->SetSize(scaleByDpi(wxSize(140, 24)));
        frame->Show();
        frame->Raise();
        wxUIActionSimulator().MouseMove(5, 5);
        Tests::pumpUntil([this] { return frame->IsActive(); }, 1000);
        focus(other);
    }

    ~CheckBoxPixelTest() override { Tests::destroyNow(frame); }

    /// One that drawing by the toolkit's graphics knows by its name.
    static wxFont plainFont()
    {
        const wxString face = wxFontEnumerator::IsValidFacename("Segoe UI") ? "Segoe UI" : "DejaVu Sans";
        return wxFont(wxFontInfo(9).FaceName(face));
    }

    static void focus(wxWindow* window)
    {
        window->SetFocus();
        EXPECT_TRUE(Tests::pumpUntil([window] { return window->HasFocus(); }));
        Tests::pumpEvents(100);
    }

    // On the screen, where nothing is repainted but what the check box asks for.
    void expectShown(const Face& face, const char* what) const
    {
        const wxImage picture = expected->shown(face, box->GetClientSize(), box->GetFont());
        expectSame(Tests::captureClientArea(box), picture, what);
    }

    wxImage drawn() const
    {
        wxBitmap bitmap(box->GetClientSize(), 24);
        {
            wxMemoryDC dc(bitmap);
            dc.SetBackground(PAPER);
            dc.Clear();
            box->drawFace(dc);
        }
        return bitmap.ConvertToImage();
    }
};

} // namespace

TEST_F(CheckBoxPixelTest, drawFace_inEveryState_paintsTheseVeryPixels)
{
    for (const bool checked : {false, true}) {
        for (const bool enabled : {false, true}) {
            box->setValue(checked, false);
            box->Enable(enabled);
            const Face face{.checked = checked, .enabled = enabled};
            expectSame(drawn(), expectedFace(face, box->GetClientSize(), box->GetFont()), "drawn");
        }
    }
}

TEST_F(CheckBoxPixelTest, values_showAtOnce)
{
    expectShown({}, "new");
    box->setValue(true, false);
    expectShown({.checked = true}, "checked");
    box->SetValue(false);
    expectShown({}, "unchecked");
    box->setValue(true, true);
    expectShown({.checked = true}, "checked with notice");
}

TEST_F(CheckBoxPixelTest, focus_isMarked)
{
    focus(box);
    expectShown({.focused = true}, "focused");
    focus(other);
    expectShown({}, "focus lost");
}

TEST_F(CheckBoxPixelTest, enabling_shows)
{
    box->Disable();
    expectShown({.enabled = false}, "disabled");
    box->setValue(true, false);
    expectShown({.checked = true, .enabled = false}, "disabled and checked");
    box->Enable();
    expectShown({.checked = true}, "enabled");
    panel->Disable();
    expectShown({.checked = true, .enabled = false}, "parent disabled");
}

TEST_F(CheckBoxPixelTest, disabledLabel_hasTheColourOfTheDefaultSkinNow)
{
    const Tests::DefaultSkinGuard guard;
    Wx::GuiSkin::DEFAULT().disabledText = {10, 220, 130};
    box->Disable();
    expectShown({.enabled = false, .disabledInk = wxColour(10, 220, 130)}, "other skin");
}

TEST_F(CheckBoxPixelTest, mouseAndKeys_leaveNothingOfTheSystems)
{
    const wxPoint inside(scaleByDpi(40), scaleByDpi(12));
    Tests::moveMouse(box, inside);
    expectShown({}, "hovered");
    Tests::pressMouse();
    expectShown({.focused = true}, "pressed");
    Tests::releaseMouse();
    expectShown({.checked = true, .focused = true}, "clicked");
    wxUIActionSimulator().KeyDown(WXK_SPACE);
    expectShown({.checked = true, .focused = true}, "Space down");
    wxUIActionSimulator().KeyUp(WXK_SPACE);
    expectShown({.focused = true}, "Space up");
    wxUIActionSimulator().MouseMove(5, 5);
    expectShown({.focused = true}, "left");
}

TEST_F(CheckBoxPixelTest, label_isShownWithoutItsMnemonic)
{
    box->SetLabel(L"Other && &more");
    expectShown({.label = L"Other & more"}, "other label");
    box->SetLabel(wxString());
    expectShown({.label = wxString()}, "no label");
}

TEST_F(CheckBoxPixelTest, font_shows)
{
    box->SetFont(plainFont().Bold());
    expectShown({}, "bold");
}

TEST_F(CheckBoxPixelTest, labelInTheFontOfTheSystem_isSeen)
{
    auto* plain = new CheckBox(panel, wxID_ANY, L"HHH", {200, 20});
    Tests::pumpEvents(120);
    const wxImage image = Tests::captureClientArea(plain);
    int inked = 0;
    for (int y = 0; y < image.GetHeight(); ++y) {
        for (int x = scaleByDpi(18); x < image.GetWidth(); ++x)
            inked += Tests::pixelAt(image, x, y) == Wx::toRgbBytes(PAPER) ? 0 : 1;
    }
    // Three letters of three strokes.
    EXPECT_GT(inked, 6 * 8);
    EXPECT_LT(inked, image.GetWidth() * image.GetHeight() * 2 / 3);
}

TEST_F(CheckBoxPixelTest, mark_isWhiteAndNarrow)
{
    box->setValue(true, false);
    const wxImage image = drawn();
    const wxImage empty = paperWithBox(box->GetClientSize());
    wxRect inked;
    for (int y = 0; y < scaleByDpi(15); ++y) {
        for (int x = 0; x < scaleByDpi(15); ++x) {
            if (Tests::pixelAt(image, x, y) != Tests::pixelAt(empty, x, y))
                inked.Union(wxRect(x, y, 1, 1));
        }
    }
    const wxRect corners(wxPoint(scaleByDpi(3), scaleByDpi(3)), wxPoint(scaleByDpi(11), scaleByDpi(10)));
    EXPECT_TRUE(wxRect(corners).Inflate(1).Contains(inked))
        << inked.x << ' ' << inked.y << ' ' << inked.width;
    EXPECT_TRUE(inked.Contains(wxRect(corners).Deflate(1)));
}

TEST_F(CheckBoxPixelTest, withoutLabel_showsTheBoxAlone)
{
    auto* bare = new CheckBox(panel, wxID_ANY, String(), {200, 20});
    Tests::pumpEvents(120);
    expectSame(Tests::captureClientArea(bare), paperWithBox(bare->GetClientSize()), "bare");
}

TEST_F(CheckBoxPixelTest, background_isItsOwnOrElseItsParents)
{
    const wxPoint corner(box->GetClientSize().x - 1, box->GetClientSize().y - 1);
    box->SetBackgroundColour(wxColour(90, 20, 20));
    box->Refresh();
    Tests::pumpEvents(120);
    wxImage image = Tests::captureClientArea(box);
    EXPECT_EQ(Tests::pixelAt(image, corner.x, corner.y), (RgbBytes{90, 20, 20}));
    EXPECT_EQ(Tests::pixelAt(image, 2, 2), (RgbBytes{90, 20, 20}));
    box->SetBackgroundColour(wxNullColour);
    panel->SetBackgroundColour(wxColour(20, 90, 20));
    panel->Refresh();
    Tests::pumpEvents(120);
    image = Tests::captureClientArea(box);
    EXPECT_EQ(Tests::pixelAt(image, corner.x, corner.y), (RgbBytes{20, 90, 20}));
    EXPECT_EQ(Tests::pixelAt(image, 2, 2), (RgbBytes{20, 90, 20}));
}

TEST_F(CheckBoxPixelTest, bestSize_showsLabelAndFocusMarkWhole)
{
    auto* fitted = new CheckBox(panel, wxID_ANY, L"Whole", {200, 20});
    fitted->SetForegroundColour(INK);
    fitted->SetFont(plainFont());
    fitted->SetSize(fitted->GetBestSize());
    focus(fitted);
    const wxSize larger = fitted->GetSize() + wxSize(20, 0);
    const Face face{.label = L"Whole", .focused = true};
    const wxImage whole = expectedFace(face, larger, fitted->GetFont());
    for (int x = fitted->GetSize().x; x < larger.x; ++x) {
        for (int y = 0; y < larger.y; ++y)
            ASSERT_EQ(Tests::pixelAt(whole, x, y), Wx::toRgbBytes(PAPER)) << "cut off at " << x << ", " << y;
    }
}
