// SPDX-License-Identifier: MIT
#include "ButtonFixture.h"

#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/FontSetup.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <stdexcept>
#include <type_traits>
#include <utility>

using namespace Nolvex;
using namespace Nolvex::Tests;

namespace {

static_assert(std::is_base_of_v<OskaBorder, Button> && std::is_base_of_v<Wx::TooltipWindow, Button>);
static_assert(static_cast<int>(Button::Behavior::PUSH) == 0 &&
              static_cast<int>(Button::Behavior::TOGGLE) == 1);

struct ButtonTest : ButtonFixture
{};

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

namespace {

// A button whose memory is filled with a pattern, and not used again, when it is destroyed: a write would
// change the pattern, and a call of a virtual function would crash. That works where no sanitizer watches,
// too. There can be one at a time.
struct RetainedButton : Button
{
    using Button::Button;

    static void* operator new(std::size_t /*size*/)
    {
        isDestroyed = false;
        return memory.data();
    }

    static void operator delete(void* /*memory*/)
    {
        memory.fill(PATTERN);
        isDestroyed = true;
    }

    /// Returns how many bytes were written since the button was destroyed.
    static std::ptrdiff_t countTouched() { return std::ssize(memory) - std::ranges::count(memory, PATTERN); }

    static constexpr unsigned char PATTERN = 0xDD;
    static constexpr std::size_t MAX_SIZE = 4096;
    static inline bool isDestroyed = false;
    alignas(std::max_align_t) static inline std::array<unsigned char, MAX_SIZE> memory{};
};

static_assert(sizeof(RetainedButton) <= RetainedButton::MAX_SIZE);

} // namespace

TEST_F(ButtonTest, callbackThatDestroysTheButton_findsItsMemoryUntouchedAfterwards)
{
    RetainedButton* button = nullptr;
    button = new RetainedButton(
        panel, testSkin(), 17, L"Label", wxBitmap(), wxBitmap(), [&button] { button->Destroy(); }, TOGGLE,
        true, ENABLED);
    pressAndRelease(button, {0, 0});
    EXPECT_TRUE(panel->GetChildren().empty());
    ASSERT_TRUE(RetainedButton::isDestroyed);
    pumpEvents(50);
    EXPECT_EQ(RetainedButton::countTouched(), 0);
}

TEST_F(ButtonTest, eventHandlerThatDestroysTheButton_findsItsMemoryUntouchedAfterwards)
{
    auto* button = new RetainedButton(
        panel, testSkin(), 17, L"Label", wxBitmap(), wxBitmap(),
        [this] { reports.entries.emplace_back("callback"); }, TOGGLE, true, ENABLED);
    panel->Bind(wxEVT_BUTTON, [button](wxEvent&) { button->Destroy(); });
    pressAndRelease(button, {0, 0});
    ASSERT_TRUE(RetainedButton::isDestroyed);
    pumpEvents(50);
    EXPECT_EQ(RetainedButton::countTouched(), 0);
    EXPECT_TRUE(reports.entries.empty());
}

// In each case the handler destroys the button, so that any later access to the button would touch freed
// memory.
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
