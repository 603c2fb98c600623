// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/Button.h"

#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/FontSetup.h"
#include "support/Gestures.h"
#include "support/ProcessResources.h"
#include "support/Screen.h"

#include <wx/dcclient.h>
#include <wx/frame.h>
#include <wx/popupwin.h>
#include <wx/sizer.h>

#include <gtest/gtest.h>

#include <type_traits>

using namespace Nolvex;
using Wx::Button;
using Wx::GuiSkin;

namespace {

static_assert(std::is_base_of_v<OskaBorder, Button> && std::is_base_of_v<Wx::TooltipWindow, Button>);
static_assert(static_cast<int>(Button::Behavior::PUSH) == 0 &&
              static_cast<int>(Button::Behavior::TOGGLE) == 1);

constexpr auto PUSH = Button::Behavior::PUSH;
constexpr auto TOGGLE = Button::Behavior::TOGGLE;
constexpr Flags<OskaBorderState> ENABLED = OskaBorderState::ENABLED;
const wxSize BUTTON_SIZE(120, 24);
const wxPoint INSIDE(60, 12);
const wxPoint OUTSIDE(60, 60);

GuiSkin testSkin()
{
    GuiSkin skin;
    skin.text = {250, 250, 0};
    skin.background = {10, 20, 30};
    skin.accentText = {0, 250, 250};
    skin.accent = {40, 50, 60};
    skin.pressedBackground = {70, 80, 90};
    return skin;
}

// What a button reported, in order.
struct Reports
{
    std::vector<std::string> entries;
    wxPoint position{-1, -1};
    int id = 0;
    wxObject* object = nullptr;
};

struct ButtonTest : testing::Test
{
    wxFrame* frame = new wxFrame(nullptr, wxID_ANY, "button", wxPoint(100, 100), wxSize(400, 300));
    wxPanel* panel = new wxPanel(frame);
    Reports reports;

    ButtonTest()
    {
        // On GTK only what has been shown can capture the mouse.
        frame->Show();
        Tests::pumpEvents(30);
        panel->Bind(wxEVT_BUTTON, [this](wxEvent& event) {
            reports.entries.emplace_back("event");
            reports.id = event.GetId();
            reports.object = event.GetEventObject();
            reports.position = static_cast<wxMouseEvent&>(event).GetPosition();
        });
    }

    ~ButtonTest() override
    {
        Tests::destroyNow(frame);
        EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    }

    Button* make(const wxString& label = L"Label", Button::Behavior behavior = PUSH, bool enabled = true,
                 Flags<OskaBorderState> border = ENABLED)
    {
        auto* button = new Button(
            panel, testSkin(), 17, label, wxBitmap(), wxBitmap(),
            [this] { reports.entries.emplace_back("callback"); }, behavior, enabled, border);
        button->SetSize(wxRect(wxPoint(20, 20), BUTTON_SIZE));
        return button;
    }

    void show() const
    {
        frame->Raise();
        wxUIActionSimulator().MouseMove(5, 5);
        Tests::pumpUntil([this] { return frame->IsActive(); }, 200);
        Tests::pumpEvents(100);
    }

    RgbBytes shownBackground(Button* button) const
    {
        return Tests::pixelAt(Tests::captureClientArea(button), 5, 5);
    }
};

using Entries = std::vector<std::string>;

void sendLeft(Button* button, wxEventType type, const wxPoint& position = INSIDE)
{
    wxMouseEvent event(type);
    event.SetPosition(position);
    event.SetEventObject(button);
    button->GetEventHandler()->ProcessEvent(event);
}

void pressAndRelease(Button* button, const wxPoint& releasedAt = INSIDE)
{
    sendLeft(button, wxEVT_LEFT_DOWN);
    sendLeft(button, wxEVT_LEFT_UP, releasedAt);
}

} // namespace

TEST_F(ButtonTest, construction_tellsNobody)
{
    const Button* button = make();
    EXPECT_TRUE(reports.entries.empty());
    EXPECT_EQ(button->GetId(), 17);
    EXPECT_EQ(button->GetName(), "Label");
    EXPECT_EQ(button->GetLabel(), "Label");
    EXPECT_FALSE(button->isToggled());
    EXPECT_FALSE(button->isPressed());
    EXPECT_TRUE(button->HasFlag(wxTAB_TRAVERSAL));
    EXPECT_EQ(button->tooltip(), nullptr);
}

TEST_F(ButtonTest, construction_setsTheFontToTheDefaultSize)
{
    const Button* button = make();
    EXPECT_EQ(button->GetFont(), Wx::setDefaultFontSize(panel->GetFont(), 1.0f));
}

TEST_F(ButtonTest, construction_disabled_clearsTheBorderFlagWhateverTheFlagsSay)
{
    const Button* button = make(L"Label", PUSH, false, ENABLED);
    EXPECT_FALSE(button->borderState().has(OskaBorderState::ENABLED));
    EXPECT_FALSE(button->IsEnabled());
    EXPECT_TRUE(make(L"Label", PUSH, true, {})->borderState().has(OskaBorderState::ENABLED));
}

TEST_F(ButtonTest, tabKey_neverReachesIt)
{
    EXPECT_FALSE(make()->AcceptsFocusFromKeyboard());
}

TEST_F(ButtonTest, otherBehaviour_isPush)
{
    Button* button = make(L"Label", static_cast<Button::Behavior>(2));
    button->doClick(INSIDE);
    EXPECT_FALSE(button->isToggled());
}

TEST_F(ButtonTest, colours_followTheStateInThisOrder)
{
    Button* button = make(L"Label", TOGGLE);
    const auto expectColours = [button](RgbBytes background, RgbBytes foreground) {
        EXPECT_EQ(button->GetBackgroundColour(), Wx::toWxColour(background));
        EXPECT_EQ(button->GetForegroundColour(), Wx::toWxColour(foreground));
    };
    const GuiSkin skin = testSkin();
    expectColours(skin.background, skin.text);
    button->setToggled(true);
    expectColours(skin.accent, skin.accentText);
    sendLeft(button, wxEVT_LEFT_DOWN);
    expectColours(skin.pressedBackground, skin.text);
    sendLeft(button, wxEVT_LEFT_UP, OUTSIDE);
    expectColours(skin.accent, skin.accentText);
    button->setToggled(false);
    expectColours(skin.background, skin.text);
}

TEST_F(ButtonTest, colours_areThoseOfItsOwnCopyOfTheSkin)
{
    GuiSkin skin = testSkin();
    auto* button = new Button(panel, skin, wxID_ANY, wxString(), {}, {}, {}, PUSH, true, ENABLED);
    skin.background = {1, 1, 1};
    button->setToggled(false);
    EXPECT_EQ(button->GetBackgroundColour(), Wx::toWxColour(testSkin().background));
}

TEST_F(ButtonTest, setToggled_onAPushButton_showsTheToggledColours)
{
    Button* button = make();
    button->setToggled(true);
    EXPECT_EQ(button->GetBackgroundColour(), Wx::toWxColour(testSkin().accent));
    EXPECT_TRUE(reports.entries.empty());
}

TEST_F(ButtonTest, setLabel_isTakenAndTellsNobody)
{
    Button* button = make();
    button->SetLabel(L"Other & more");
    EXPECT_EQ(button->GetLabel(), L"Other & more");
    EXPECT_TRUE(reports.entries.empty());
}

TEST_F(ButtonTest, enable_returnsWhetherSomethingChanged)
{
    Button* button = make();
    EXPECT_FALSE(button->Enable(true));
    EXPECT_TRUE(button->Enable(false));
    EXPECT_FALSE(button->borderState().has(OskaBorderState::ENABLED));
    EXPECT_TRUE(button->Enable(true));
    EXPECT_TRUE(button->borderState().has(OskaBorderState::ENABLED));
}

TEST_F(ButtonTest, doClick_tellsTheParentThenTheCallback)
{
    Button* button = make();
    button->doClick({3, 4});
    EXPECT_EQ(reports.entries, Entries({"event", "callback"}));
    EXPECT_EQ(reports.id, 17);
    EXPECT_EQ(reports.object, button);
    EXPECT_EQ(reports.position, wxPoint(3, 4));
}

TEST_F(ButtonTest, doClick_ofADisabledButton_clicksToo)
{
    make(L"Label", PUSH, false)->doClick(INSIDE);
    EXPECT_EQ(reports.entries, Entries({"event", "callback"}));
}

TEST_F(ButtonTest, doClick_isProcessedByTheParentsHandlerAndNotByItsOwn)
{
    Button* button = make();
    button->Bind(wxEVT_BUTTON, [this](wxEvent&) { reports.entries.emplace_back("own"); });
    frame->Bind(wxEVT_BUTTON, [this](wxEvent&) { reports.entries.emplace_back("frame"); });
    wxEvtHandler pushed;
    pushed.Bind(wxEVT_BUTTON, [this](wxEvent& event) {
        reports.entries.emplace_back("pushed");
        event.Skip();
    });
    panel->PushEventHandler(&pushed);
    button->doClick(INSIDE);
    panel->PopEventHandler();
    EXPECT_EQ(reports.entries, Entries({"pushed", "event", "callback"}));
}

TEST_F(ButtonTest, doClick_withoutCallback_sendsTheEventOnly)
{
    auto* button = new Button(panel, testSkin(), 17, wxString(), {}, {}, {}, PUSH, true, ENABLED);
    button->doClick(INSIDE);
    EXPECT_EQ(reports.entries, Entries({"event"}));
}

TEST_F(ButtonTest, toggleButton_hasFlippedBeforeItsEvent)
{
    Button* button = make(L"Label", TOGGLE);
    std::vector<bool> seen;
    panel->Bind(wxEVT_BUTTON, [&](wxEvent& event) {
        seen.push_back(button->isToggled());
        event.Skip();
    });
    button->doClick(INSIDE);
    button->doClick(INSIDE);
    EXPECT_EQ(seen, std::vector<bool>({true, false}));
    EXPECT_EQ(button->GetBackgroundColour(), Wx::toWxColour(testSkin().background));
}

TEST_F(ButtonTest, releasedInside_clicks)
{
    Button* button = make();
    pressAndRelease(button, {0, 0});
    pressAndRelease(button, {BUTTON_SIZE.x - 1, BUTTON_SIZE.y - 1});
    EXPECT_EQ(reports.entries, Entries({"event", "callback", "event", "callback"}));
    EXPECT_EQ(reports.position, wxPoint(BUTTON_SIZE.x - 1, BUTTON_SIZE.y - 1));
}

TEST_F(ButtonTest, releasedOutside_sendsNothingAndClearsThePressedColours)
{
    Button* button = make();
    for (const wxPoint& position :
         {wxPoint(-1, 5), wxPoint(5, -1), wxPoint(BUTTON_SIZE.x, 5), wxPoint(5, BUTTON_SIZE.y)})
        pressAndRelease(button, position);
    EXPECT_TRUE(reports.entries.empty());
    EXPECT_FALSE(button->isPressed());
    EXPECT_EQ(button->GetBackgroundColour(), Wx::toWxColour(testSkin().background));
}

TEST_F(ButtonTest, releasedWithoutPress_sendsNothing)
{
    sendLeft(make(), wxEVT_LEFT_UP);
    EXPECT_TRUE(reports.entries.empty());
}

TEST_F(ButtonTest, doubleClick_isTwoPressesWhoseReleasesClick)
{
    Button* button = make();
    pressAndRelease(button);
    sendLeft(button, wxEVT_LEFT_DCLICK);
    EXPECT_TRUE(button->isPressed());
    EXPECT_EQ(reports.entries.size(), 2u);
    sendLeft(button, wxEVT_LEFT_UP);
    EXPECT_EQ(reports.entries, Entries({"event", "callback", "event", "callback"}));
}

TEST_F(ButtonTest, disabled_ignoresPresses)
{
    Button* button = make(L"Label", PUSH, false);
    sendLeft(button, wxEVT_LEFT_DOWN);
    EXPECT_FALSE(button->isPressed());
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

TEST_F(ButtonTest, disabledWhilePressed_stillCompletesThePress)
{
    Button* button = make();
    sendLeft(button, wxEVT_LEFT_DOWN);
    button->Enable(false);
    sendLeft(button, wxEVT_LEFT_UP);
    EXPECT_EQ(reports.entries, Entries({"event", "callback"}));
}

TEST_F(ButtonTest, captureLost_cancelsThePress)
{
    Button* button = make();
    sendLeft(button, wxEVT_LEFT_DOWN);
    EXPECT_EQ(wxWindow::GetCapture(), button);
    wxMouseCaptureLostEvent lost(button->GetId());
    EXPECT_TRUE(button->GetEventHandler()->ProcessEvent(lost));
    EXPECT_FALSE(button->isPressed());
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    EXPECT_EQ(button->GetBackgroundColour(), Wx::toWxColour(testSkin().background));
    sendLeft(button, wxEVT_LEFT_UP);
    EXPECT_TRUE(reports.entries.empty());
}

TEST_F(ButtonTest, mouseIsReleased_beforeAnybodyIsTold)
{
    Button* button = make();
    wxWindow* captor = button;
    panel->Bind(wxEVT_BUTTON, [&](wxEvent&) { captor = wxWindow::GetCapture(); });
    pressAndRelease(button);
    EXPECT_EQ(captor, nullptr);
}

TEST_F(ButtonTest, destroyedWhilePressed_givesTheMouseBack)
{
    Button* button = make();
    sendLeft(button, wxEVT_LEFT_DOWN);
    ASSERT_EQ(wxWindow::GetCapture(), button);
    button->Destroy();
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

// Each of these would touch freed memory if the button were touched after what the handler did to it.
TEST_F(ButtonTest, callbackThatDestroysTheButton_isSafe)
{
    Button* button = nullptr;
    button = new Button(
        panel, testSkin(), 17, wxString(), {}, {}, [&button] { button->Destroy(); }, TOGGLE, true, ENABLED);
    pressAndRelease(button, {0, 0});
    EXPECT_TRUE(panel->GetChildren().empty());
}

TEST_F(ButtonTest, eventHandlerThatDestroysTheButton_isSafeAndLeavesTheCallbackOut)
{
    Button* button = make();
    panel->Bind(wxEVT_BUTTON, [&](wxEvent&) { button->Destroy(); });
    pressAndRelease(button);
    EXPECT_TRUE(panel->GetChildren().empty());
    EXPECT_TRUE(reports.entries.empty());
}

TEST_F(ButtonTest, callbackThatDestroysTheParent_isSafe)
{
    auto* inner = new wxPanel(panel);
    auto* button = new Button(
        inner, testSkin(), 17, wxString(), {}, {}, [inner] { delete inner; }, PUSH, true, ENABLED);
    pressAndRelease(button, {0, 0});
    EXPECT_TRUE(panel->GetChildren().empty());
}

TEST_F(ButtonTest, callbackThatDeletesTheFrame_isSafe)
{
    auto* other = new wxFrame(nullptr, wxID_ANY, "other");
    other->Show();
    Tests::pumpEvents(30);
    auto* button = new Button(
        other, testSkin(), 17, wxString(), {}, {}, [&other] { delete std::exchange(other, nullptr); }, PUSH,
        true, ENABLED);
    pressAndRelease(button, {0, 0});
    EXPECT_EQ(other, nullptr);
}

TEST_F(ButtonTest, callbackThatThrows_leavesTheButtonReleased)
{
    auto* button = new Button(
        panel, testSkin(), 17, wxString(), {}, {}, [] { throw std::runtime_error("host"); }, PUSH, true,
        ENABLED);
    sendLeft(button, wxEVT_LEFT_DOWN);
    EXPECT_THROW(sendLeft(button, wxEVT_LEFT_UP, {0, 0}), std::runtime_error);
    EXPECT_FALSE(button->isPressed());
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

// With the system's own mouse.
TEST_F(ButtonTest, mouse_clicksIt)
{
    Button* button = make();
    show();
    Tests::clickAt(button, INSIDE);
    EXPECT_EQ(reports.entries, Entries({"event", "callback"}));
    EXPECT_EQ(reports.position, INSIDE);
}

TEST_F(ButtonTest, mouse_pressedInsideAndReleasedOutside_clicksNothing)
{
    Button* button = make();
    show();
    Tests::pressMouseAt(button, INSIDE);
    EXPECT_TRUE(button->isPressed());
    EXPECT_EQ(wxWindow::GetCapture(), button);
    EXPECT_EQ(shownBackground(button), testSkin().pressedBackground);
    Tests::moveMouse(button, OUTSIDE);
    EXPECT_TRUE(button->isPressed());
    Tests::releaseMouse();
    EXPECT_TRUE(reports.entries.empty());
    EXPECT_EQ(shownBackground(button), testSkin().background);
}

TEST_F(ButtonTest, mouse_pressedOutsideAndReleasedInside_clicksNothing)
{
    Button* button = make();
    show();
    Tests::pressMouseAt(button, OUTSIDE);
    Tests::moveMouse(button, INSIDE);
    Tests::releaseMouse();
    EXPECT_TRUE(reports.entries.empty());
}

TEST_F(ButtonTest, mouse_doubleClick_clicksTwice)
{
    Button* button = make();
    show();
    Tests::moveMouse(button, INSIDE);
    wxUIActionSimulator().MouseDblClick(wxMOUSE_BTN_LEFT);
    Tests::pumpEvents(100);
    EXPECT_EQ(reports.entries, Entries({"event", "callback", "event", "callback"}));
}

TEST_F(ButtonTest, mouse_overIt_lightsTheBorderUntilItLeaves)
{
    Button* button = make();
    show();
    Tests::moveMouse(button, INSIDE);
    EXPECT_TRUE(button->borderState().has(OskaBorderState::HOVERED));
    EXPECT_EQ(Tests::pixelAt(Tests::captureClientArea(button), 1, 5), GuiSkin::DEFAULT().highlight);
    Tests::moveMouse(button, OUTSIDE);
    EXPECT_FALSE(button->borderState().has(OskaBorderState::HOVERED));
}

TEST_F(ButtonTest, windowThatCoversIt_endsTheHover)
{
    Button* button = make();
    show();
    Tests::moveMouse(button, INSIDE);
    ASSERT_TRUE(button->borderState().has(OskaBorderState::HOVERED));
    wxPopupWindow cover(frame);
    cover.SetSize(wxRect(button->GetScreenPosition(), BUTTON_SIZE));
    cover.Show();
    EXPECT_TRUE(Tests::pumpUntil([&] { return !button->borderState().has(OskaBorderState::HOVERED); }, 1000));
    cover.Hide();
}

TEST_F(ButtonTest, mouseTakenByAnotherWindow_comesBackAndIsNotKept)
{
    Button* button = make();
    auto* thief = new wxPanel(panel, wxID_ANY, wxPoint(20, 100), wxSize(50, 50));
    thief->Bind(wxEVT_MOUSE_CAPTURE_LOST, [](wxMouseCaptureLostEvent&) {});
    show();
    Tests::pressMouseAt(button, INSIDE);
    ASSERT_EQ(wxWindow::GetCapture(), button);
    thief->CaptureMouse();
    Tests::moveMouse(button, INSIDE + wxPoint(1, 1));
    Tests::releaseMouse();
    EXPECT_TRUE(reports.entries.empty()) << "the release went to the other window";
    thief->ReleaseMouse();
    // The toolkit gives the mouse back to the window below, which is still pressed.
    EXPECT_EQ(wxWindow::GetCapture(), button);
    button->Destroy();
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

// GTK takes the mouse from what is hidden, Windows leaves it until the release.
TEST_F(ButtonTest, hiddenWhilePressed_doesNotKeepTheMouse)
{
    Button* button = make();
    show();
    Tests::pressMouseAt(button, INSIDE);
    ASSERT_TRUE(button->isPressed());
    button->Hide();
    Tests::pumpEvents(50);
    Tests::releaseMouse();
    EXPECT_FALSE(button->isPressed());
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

TEST_F(ButtonTest, disabledUnderTheMouse_isNoLongerLitWhenTheMouseHasGone)
{
    Button* button = make();
    show();
    Tests::moveMouse(button, INSIDE);
    ASSERT_TRUE(button->borderState().has(OskaBorderState::HOVERED));
    button->Enable(false);
    Tests::moveMouse(button, OUTSIDE);
    button->Enable(true);
    Tests::pumpEvents(50);
    EXPECT_FALSE(button->borderState().has(OskaBorderState::HOVERED));
}

TEST_F(ButtonTest, mouse_onADisabledButton_doesNothing)
{
    Button* button = make();
    show();
    button->Enable(false);
    Tests::clickAt(button, INSIDE);
    EXPECT_TRUE(reports.entries.empty());
    EXPECT_FALSE(button->isPressed());
}

TEST_F(ButtonTest, mouse_disabledWhilePressed_stillCompletesThePress)
{
    Button* button = make();
    show();
    Tests::pressMouseAt(button, INSIDE);
    button->Enable(false);
    EXPECT_TRUE(button->isPressed());
    Tests::pumpEvents(50);
    Tests::releaseMouse();
    EXPECT_EQ(reports.entries, Entries({"event", "callback"}));
    EXPECT_FALSE(button->isPressed());
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    Tests::clickAt(button, INSIDE);
    EXPECT_EQ(reports.entries.size(), 2u) << "then it is disabled";
}

TEST_F(ButtonTest, mouse_parentDisabledWhilePressed_doesNotKeepTheMouse)
{
    Button* button = make();
    show();
    Tests::pressMouseAt(button, INSIDE);
    panel->Disable();
    Tests::pumpEvents(50);
    Tests::releaseMouse();
    EXPECT_FALSE(button->isPressed());
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    panel->Enable();
    reports.entries.clear();
    Tests::clickAt(button, INSIDE);
    EXPECT_EQ(reports.entries, Entries({"event", "callback"}));
}

TEST_F(ButtonTest, mouse_callbackThatDestroysTheButton_isSafe)
{
    Button* button = nullptr;
    button = new Button(
        panel, testSkin(), 17, wxString(), {}, {}, [&button] { std::exchange(button, nullptr)->Destroy(); },
        PUSH, true, ENABLED);
    button->SetSize(wxRect(wxPoint(20, 20), BUTTON_SIZE));
    button->setTooltip(L"It goes too.");
    show();
    Tests::clickAt(button, INSIDE);
    EXPECT_EQ(button, nullptr);
}

TEST_F(ButtonTest, tenThousand_createdShownAndDestroyed_leaveNothingBehind)
{
    constexpr int ROUNDS = 20;
    constexpr int BUTTONS = 500;
    show();
    std::size_t memory = 0;
    std::size_t handles = 0;
    for (int round = 0; round < ROUNDS; ++round) {
        auto* page = new wxPanel(panel, wxID_ANY, wxPoint(0, 0), panel->GetClientSize());
        for (int i = 0; i < BUTTONS; ++i) {
            auto* button = new Button(
                page, testSkin(), i, L"Label", {}, {}, [] {}, TOGGLE, true, ENABLED);
            button->SetSize(wxRect((i % 20) * 18, (i / 20) * 10, 17, 9));
        }
        Tests::pumpEvents(20);
        delete page;
        Tests::pumpEvents(5);
        // The first rounds fill the caches of the systems below.
        if (round == ROUNDS / 4) {
            memory = Tests::privateMemory();
            handles = Tests::openHandles();
        }
    }
    EXPECT_LE(Tests::privateMemory(), memory + 2 * 1024 * 1024);
    EXPECT_LE(Tests::openHandles(), handles);
}
