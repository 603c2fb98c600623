// SPDX-License-Identifier: MIT
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/widgets/CheckBox.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "support/DefaultSkinGuard.h"
#include "support/FrameFixture.h"
#include "support/Gestures.h"
#include "support/Ink.h"

#include <wx/dcclient.h>
#include <wx/graphics.h>
#include <wx/pen.h>

#include <algorithm>
#include <array>
#include <memory>

using namespace Nolvex;
using namespace Nolvex::Tests;
using Wx::CheckBox;
using Wx::scaleByDpi;

// The environment of the run sets the scale. The tests hold at every scale.

namespace {

const wxColour PAPER_COLOUR = Wx::toWxColour(PAPER);
const wxColour INK(200, 190, 30);
const wxColour DISABLED_INK(110, 110, 110);
constexpr RgbBytes OUTER{54, 54, 54};
constexpr RgbBytes INNER{37, 37, 37};
constexpr RgbBytes BOTTOM_OUTER{70, 70, 70};
constexpr RgbBytes BOTTOM_INNER{85, 85, 85};

std::size_t scaleIndex()
{
    return static_cast<std::size_t>(std::clamp(scaleByDpi(1) - 1, 0, 2));
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
    for (int y = 0; y < size.y; ++y) {
        for (int x = 0; x < size.x; ++x) {
            const RgbBytes pixel = boxPixel(x, y, PAPER);
            image.SetRGB(x, y, pixel.r, pixel.g, pixel.b);
        }
    }
    return image;
}

// Asked for when the application runs, because GTK knows the scale from then on.
wxSize faceSize()
{
    return scaleByDpi(wxSize(140, 40));
}

CheckBox::Face plainFace(const wxString& label = L"A gjy label")
{
    return {.label = label,
            .font = blockFont(),
            .labelColour = INK,
            .focusColour = INK,
            .checked = false,
            .focused = false};
}

wxImage drawn(const CheckBox::Face& face)
{
    return painted(faceSize(), [&face](wxDC& dc) {
        CheckBox::draw(dc, {{0, 0}, {faceSize().x, faceSize().y}}, face);
    });
}

// Returns the rectangle around the pixels painted to the right of the box.
wxRect inkBesideBox(const wxImage& image)
{
    return inkIn(image, wxRect(wxPoint(scaleByDpi(15), 0), wxPoint(faceSize().x - 1, faceSize().y - 1)));
}

// Shows a face on the screen, where letters have other pixels than in a bitmap.
class FaceWindow : public wxWindow
{
public:
    explicit FaceWindow(wxWindow* parent) : wxWindow(parent, wxID_ANY)
    {
        SetBackgroundColour(PAPER_COLOUR);
        Bind(wxEVT_PAINT, [this](wxPaintEvent&) {
            wxPaintDC dc(this);
            CheckBox::draw(dc, {{0, 0}, {GetClientSize().x, GetClientSize().y}}, m_face);
        });
    }

    wxImage shown(const CheckBox::Face& face, const wxSize& size)
    {
        m_face = face;
        SetSize(wxRect(wxPoint(20, 180), size));
        Refresh();
        pumpEvents(120);
        return captureClientArea(this);
    }

private:
    CheckBox::Face m_face = plainFace(wxString());
};

wxPoint firstDifference(const wxImage& a, const wxImage& b)
{
    for (int y = 0; y < a.GetHeight(); ++y) {
        for (int x = 0; x < a.GetWidth(); ++x) {
            if (pixelAt(a, x, y) != pixelAt(b, x, y))
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
        << testing::PrintToString(pixelAt(shown, std::max(at.x, 0), std::max(at.y, 0))) << " and not "
        << testing::PrintToString(pixelAt(expected, std::max(at.x, 0), std::max(at.y, 0)));
}

// The settings in which a state differs from a check box that is enabled, unchecked and not focused.
struct Shown
{
    wxString label = L"A gjy label";
    bool checked = false;
    bool focused = false;
    wxColour labelColour = INK;
};

struct CheckBoxPixelTest : FrameFixture
{
    CheckBox* other = nullptr;
    CheckBox* box = nullptr;
    FaceWindow* faceWindow = new FaceWindow(panel);

    CheckBoxPixelTest() : FrameFixture(L"check box", {500, 400})
    {
        panel->SetBackgroundColour(PAPER_COLOUR);
        other = new CheckBox(panel, wxID_ANY, L"Other", {20, 100});
        box = new CheckBox(panel, wxID_ANY, L"A g&jy label", {20, 20});
        box->SetForegroundColour(INK);
        box->SetFont(plainFont());
        box->SetSize(scaleByDpi(wxSize(140, 24)));
        showFrame();
        focus(other);
    }

    /// A font that wxGraphicsContext knows by its name.
    static wxFont plainFont()
    {
        const wxString face = wxFontEnumerator::IsValidFacename("Segoe UI") ? "Segoe UI" : "DejaVu Sans";
        return wxFont(wxFontInfo(9).FaceName(face));
    }

    static void focus(wxWindow* window)
    {
        window->SetFocus();
        EXPECT_TRUE(pumpUntil([window] { return window->HasFocus(); }));
        pumpEvents(100);
    }

    // Compares the check box on the screen, where only the areas that the check box refreshes are repainted.
    void expectShown(const Shown& shown, const char* what) const
    {
        const CheckBox::Face face{.label = shown.label,
                                  .font = box->GetFont(),
                                  .labelColour = shown.labelColour,
                                  .focusColour = INK,
                                  .checked = shown.checked,
                                  .focused = shown.focused};
        const wxImage picture = faceWindow->shown(face, box->GetClientSize());
        expectSame(captureClientArea(box), picture, what);
    }
};

} // namespace

TEST(CheckBoxFaceTest, box_hasTheBevelledBorderOfAnEnabledOne)
{
    expectSame(drawn(plainFace(wxString())), paperWithBox(faceSize()), "box");
}

TEST(CheckBoxFaceTest, mark_isWhiteAndStrokesTheFourLinesOfTheContour)
{
    CheckBox::Face face = plainFace(wxString());
    face.checked = true;
    const wxImage image = drawn(face);
    const wxImage empty = paperWithBox(faceSize());
    // The systems put the centre of a stroke into different pixels, so that the brightest neighbour counts.
    const auto brightness = [&image](int x, int y) {
        int brightest = 0;
        for (int i = 0; i < 9; ++i) {
            const RgbBytes pixel = pixelAt(image, scaleByDpi(x) + i % 3 - 1, scaleByDpi(y) + i / 3 - 1);
            brightest = std::max(brightest, static_cast<int>(pixel.g));
        }
        return brightest;
    };
    // At the corners, half way between two of them, and inside the box beside the mark.
    EXPECT_GT(brightness(6, 10), 100);
    EXPECT_GT(brightness(10, 4), 100);
    EXPECT_GT(brightness(4, 8), 100);
    EXPECT_EQ(pixelAt(image, scaleByDpi(5), scaleByDpi(4)), PAPER);
    EXPECT_EQ(pixelAt(image, scaleByDpi(11), scaleByDpi(9)), PAPER);
    wxRect ink;
    for (int y = 0; y < faceSize().y; ++y) {
        for (int x = 0; x < faceSize().x; ++x) {
            if (pixelAt(image, x, y) != pixelAt(empty, x, y))
                ink.Union(wxRect(x, y, 1, 1));
        }
    }
    const wxRect corners(wxPoint(scaleByDpi(3), scaleByDpi(3)), wxPoint(scaleByDpi(11), scaleByDpi(10)));
    EXPECT_TRUE(wxRect(corners).Inflate(1).Contains(ink)) << ink.x << ' ' << ink.y << ' ' << ink.width;
    EXPECT_TRUE(ink.Contains(wxRect(corners).Deflate(1)));
}

TEST(CheckBoxFaceTest, label_startsBesideTheBoxAndRisesAboveTheEdge)
{
    constexpr std::array RISE{1, 3, 4};
    const wxRect ink = inkBesideBox(drawn(plainFace(BLOCK_LABEL)));
    wxBitmap bitmap(faceSize(), 24);
    wxMemoryDC dc(bitmap);
    dc.SetFont(blockFont());
    const wxSize text = dc.GetTextExtent(BLOCK_LABEL);
    EXPECT_NEAR(ink.x, scaleByDpi(18), 1);
    EXPECT_NEAR(ink.GetRight(), scaleByDpi(18) + text.x - 1, 1);
    EXPECT_EQ(ink.y, 0) << "cut off at the edge";
    // The same letters, written where nothing cuts them off.
    constexpr int BELOW = 10;
    const wxImage lower = painted(faceSize(), [](wxDC& paper) {
        const std::unique_ptr<wxGraphicsContext> context(wxGraphicsContext::CreateFromUnknownDC(paper));
        context->SetFont(blockFont(), INK);
        context->DrawText(BLOCK_LABEL, scaleByDpi(18), BELOW);
    });
    EXPECT_EQ(ink.GetBottom(), inkBesideBox(lower).GetBottom() - BELOW - RISE[scaleIndex()]);
}

TEST(CheckBoxFaceTest, label_hasTheGivenColour)
{
    for (const wxColour& colour : {INK, DISABLED_INK}) {
        CheckBox::Face face = plainFace(BLOCK_LABEL);
        face.labelColour = colour;
        const wxImage image = drawn(face);
        const wxRect ink = inkBesideBox(image);
        const wxPoint middle(ink.x + ink.width / 2, ink.y + ink.height / 2);
        EXPECT_EQ(pixelAt(image, middle.x, middle.y), Wx::toRgbBytes(colour));
    }
}

TEST(CheckBoxFaceTest, focusMark_isADottedRectangleAroundTheLabel)
{
    // Spaces have no pixels of their own, so that only the focus mark is painted.
    CheckBox::Face face = plainFace(L"          ");
    EXPECT_TRUE(inkBesideBox(drawn(face)).IsEmpty());
    face.focused = true;
    const wxImage image = drawn(face);
    const wxRect ink = inkBesideBox(image);
    wxBitmap bitmap(faceSize(), 24);
    wxMemoryDC dc(bitmap);
    dc.SetFont(blockFont());
    const wxSize text = dc.GetTextExtent(face.label);
    const int line = scaleByDpi(1);
    EXPECT_NEAR(ink.x, scaleByDpi(17), line);
    EXPECT_NEAR(ink.y, 0, line);
    EXPECT_NEAR(ink.GetRight(), scaleByDpi(17) + text.x + scaleByDpi(2), line);
    EXPECT_NEAR(ink.GetBottom(), text.y - scaleByDpi(1), line);
    // Inside the rectangle and between its dots there is nothing.
    const wxRect inside = wxRect(ink).Deflate(2 * line + 1);
    EXPECT_TRUE(inkIn(image, inside).IsEmpty());
}

TEST(CheckBoxFaceTest, focusMark_hasTheDashesOfTheScale)
{
    using Dashes = std::array<wxDash, 2>;
    static std::array<Dashes, 3> dashes{Dashes{1, 2}, Dashes{2, 1}, Dashes{2, 3}};
    CheckBox::Face face = plainFace(L"          ");
    face.focused = true;
    const wxImage image = drawn(face);
    const wxImage expected = painted(faceSize(), [&face](wxDC& dc) {
        dc.SetFont(face.font);
        const wxSize text = dc.GetTextExtent(face.label);
        wxPen pen(INK, scaleByDpi(1), wxPENSTYLE_USER_DASH);
        pen.SetDashes(2, dashes[scaleIndex()].data());
        const std::unique_ptr<wxGraphicsContext> context(wxGraphicsContext::CreateFromUnknownDC(dc));
        context->SetPen(pen);
        context->DrawRectangle(scaleByDpi(17), 0, text.x + scaleByDpi(2), text.y - scaleByDpi(1));
    });
    const wxRect ink = inkBesideBox(expected);
    ASSERT_FALSE(ink.IsEmpty());
    const wxRect inked = inkBesideBox(image);
    EXPECT_EQ(inked.GetTopLeft(), ink.GetTopLeft());
    EXPECT_EQ(inked.GetBottomRight(), ink.GetBottomRight());
    for (int x = ink.x; x <= ink.GetRight(); ++x)
        ASSERT_EQ(pixelAt(image, x, ink.y), pixelAt(expected, x, ink.y)) << "at " << x;
}

TEST_F(CheckBoxPixelTest, face_followsTheCheckBox)
{
    CheckBox::Face face = box->face();
    EXPECT_EQ(face.label, "A gjy label");
    EXPECT_EQ(face.font, box->GetFont());
    EXPECT_EQ(face.labelColour, INK);
    EXPECT_EQ(face.focusColour, INK);
    EXPECT_FALSE(face.checked);
    EXPECT_FALSE(face.focused);
    box->setValue(true, false);
    focus(box);
    EXPECT_TRUE(box->face().checked);
    EXPECT_TRUE(box->face().focused);
    box->Disable();
    EXPECT_EQ(box->face().labelColour, Wx::toWxColour(Wx::GuiSkin::DEFAULT().disabledText));
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
    expectShown({.labelColour = DISABLED_INK}, "disabled");
    box->setValue(true, false);
    expectShown({.checked = true, .labelColour = DISABLED_INK}, "disabled and checked");
    box->Enable();
    expectShown({.checked = true}, "enabled");
    panel->Disable();
    expectShown({.checked = true, .labelColour = DISABLED_INK}, "parent disabled");
}

TEST_F(CheckBoxPixelTest, disabledLabel_hasTheColourOfTheDefaultSkinNow)
{
    const Tests::DefaultSkinGuard guard;
    Wx::GuiSkin::DEFAULT().disabledText = {10, 220, 130};
    box->Disable();
    expectShown({.labelColour = wxColour(10, 220, 130)}, "other skin");
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
    pumpEvents(120);
    const wxImage image = captureClientArea(plain);
    int inked = 0;
    for (int y = 0; y < image.GetHeight(); ++y) {
        for (int x = scaleByDpi(18); x < image.GetWidth(); ++x)
            inked += pixelAt(image, x, y) == PAPER ? 0 : 1;
    }
    // The label consists of three letters with three strokes each.
    EXPECT_GT(inked, 6 * 8);
    EXPECT_LT(inked, image.GetWidth() * image.GetHeight() * 2 / 3);
}

TEST_F(CheckBoxPixelTest, withoutLabel_showsTheBoxAlone)
{
    auto* bare = new CheckBox(panel, wxID_ANY, String(), {430, 20});
    pumpEvents(120);
    expectSame(captureClientArea(bare), paperWithBox(bare->GetClientSize()), "bare");
}

TEST_F(CheckBoxPixelTest, background_isItsOwnOrElseItsParents)
{
    const wxPoint corner(box->GetClientSize().x - 1, box->GetClientSize().y - 1);
    box->SetBackgroundColour(wxColour(90, 20, 20));
    box->Refresh();
    pumpEvents(120);
    wxImage image = captureClientArea(box);
    EXPECT_EQ(pixelAt(image, corner.x, corner.y), (RgbBytes{90, 20, 20}));
    EXPECT_EQ(pixelAt(image, 2, 2), (RgbBytes{90, 20, 20}));
    box->SetBackgroundColour(wxNullColour);
    panel->SetBackgroundColour(wxColour(20, 90, 20));
    panel->Refresh();
    pumpEvents(120);
    image = captureClientArea(box);
    EXPECT_EQ(pixelAt(image, corner.x, corner.y), (RgbBytes{20, 90, 20}));
    EXPECT_EQ(pixelAt(image, 2, 2), (RgbBytes{20, 90, 20}));
}

TEST_F(CheckBoxPixelTest, bestSize_showsLabelAndFocusMarkWhole)
{
    auto* fitted = new CheckBox(panel, wxID_ANY, L"Whole", {200, 20});
    fitted->SetForegroundColour(INK);
    fitted->SetFont(plainFont());
    fitted->SetSize(fitted->GetBestSize());
    focus(fitted);
    const wxSize larger = fitted->GetSize() + wxSize(20, 0);
    const CheckBox::Face face = fitted->face();
    ASSERT_TRUE(face.focused);
    const wxImage whole = painted(larger, [&](wxDC& dc) {
        CheckBox::draw(dc, {{0, 0}, {larger.x, larger.y}}, face);
    });
    for (int x = fitted->GetSize().x; x < larger.x; ++x) {
        for (int y = 0; y < larger.y; ++y)
            ASSERT_EQ(pixelAt(whole, x, y), PAPER) << "cut off at " << x << ", " << y;
    }
}
